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
    CoreCallback(const CoreCallback &other);
    CoreCallback &operator=(const CoreCallback &other);
    ~CoreCallback() override;

    virtual void callbackDbMaintenanceAnswer(const DbMaintenanceAnswer &answer);
    virtual void callbackDictionary(DictionaryEntryList &dictionary);
    virtual void callbackLockChange(const LockedElementData &lock);
    virtual void callbackMessage(const CallbackMessage &message);
    virtual void callbackNearestAreas(IAreaOfInterestList &areas);
    virtual void callbackSigdbAnswer(SigdbAnswer &answer);
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
