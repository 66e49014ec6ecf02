#include "core/basecallback.h"

#include <QByteArray>

namespace sigdb {

BaseCallback::BaseCallback() = default;
BaseCallback::BaseCallback(const BaseCallback &) = default;
BaseCallback &BaseCallback::operator=(const BaseCallback &) = default;
BaseCallback::~BaseCallback() = default;

void BaseCallback::callbackErrorMessage(const std::string &)
{
}

bool BaseCallback::deliverRawData(int orderType, const QByteArray &data)
{
    return callbackRawData(orderType, data);
}

bool BaseCallback::callbackRawData(int, const QByteArray &)
{
    return false;
}

} // namespace sigdb
