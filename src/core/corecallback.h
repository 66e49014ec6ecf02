#ifndef SIGDB_CORE_CORECALLBACK_H
#define SIGDB_CORE_CORECALLBACK_H

#include "sigdbcore_export.h"

#include "core/basecallback.h"

namespace sigdb {

class CallbackMessage;
class DbMaintenanceAnswer;
class DictionaryEntryList;
class IAreaOfInterestList;
class LockedElementData;
class SigdbAnswer;
class VersionInfoVector;

/// The core library's own callback class: the answers of the core's orders (maintenance,
/// dictionaries, locks, messages, areas, versions). The records it receives are carried by
/// the reference-data library; every callback does nothing here.
class SIGDBCORE_EXPORT CoreCallback : public BaseCallback
{
public:
    CoreCallback();
    /// A copy of \a other.
    CoreCallback(const CoreCallback &other);
    /// Replaces the contents with a copy of \a other.
    CoreCallback &operator=(const CoreCallback &other);
    ~CoreCallback() override;

    /// Receives the result of a database maintenance order.
    virtual void callbackDbMaintenanceAnswer(const DbMaintenanceAnswer &answer);
    /// Receives the dictionary of one element type.
    virtual void callbackDictionary(DictionaryEntryList &dictionary);
    /// Receives the news that an element was locked or released.
    virtual void callbackLockChange(const LockedElementData &lock);
    /// Receives a message the middleware sends to the client.
    virtual void callbackMessage(const CallbackMessage &message);
    /// Receives the areas of interest nearest to a position.
    virtual void callbackNearestAreas(IAreaOfInterestList &areas);
    /// Receives a generic answer of the core library (result code and text).
    virtual void callbackSigdbAnswer(SigdbAnswer &answer);
    /// Receives the server's versions in answer to the version handshake.
    virtual void callbackVersionInfoVector(const VersionInfoVector &versions);

private:
    bool callbackRawData(int orderType, const QByteArray &data) override;
};

/// The core library's request interface; this library only names it.
class SIGDBCORE_EXPORT CoreInterface
{
public:
    CoreInterface();
    virtual ~CoreInterface();
};

} // namespace sigdb

#endif
