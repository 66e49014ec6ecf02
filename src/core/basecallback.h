#ifndef SIGDB_CORE_BASECALLBACK_H
#define SIGDB_CORE_BASECALLBACK_H

#include "sigdbcore_export.h"

#include <string>

class QByteArray;

namespace sigdb {

class OrderQueue;

/// The receiver of answers to orders. The core library hands every answer to
/// callbackRawData() with the answer's order type; derived classes decode the bytes and call
/// their typed callbacks. Error texts of the decoding go to callbackErrorMessage().
class SIGDBCORE_EXPORT BaseCallback
{
public:
    BaseCallback();
    /// A copy of \a other.
    BaseCallback(const BaseCallback &other);
    /// Replaces the contents with a copy of \a other.
    BaseCallback &operator=(const BaseCallback &other);
    virtual ~BaseCallback();

    /// Receives every error text of the answer dispatch. Does nothing here.
    virtual void callbackErrorMessage(const std::string &message);

    /// Hands an answer to this callback, as a transport does when an answer arrives; returns
    /// whether the order type is one this callback handles.
    bool deliverRawData(int orderType, const QByteArray &data);

private:
    /// Decodes an answer and dispatches it; the base class handles no order type.
    virtual bool callbackRawData(int orderType, const QByteArray &data);
};

} // namespace sigdb

#endif
