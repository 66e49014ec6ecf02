#include "client/refcallbackforwarder.h"

#include "client/refcallback.h"

namespace sigdb {

RefCallbackForwarder::RefCallbackForwarder(RefCallback &target)
    : m_target(target)
{
}

bool RefCallbackForwarder::callbackRawData(int orderType, const QByteArray &data)
{
    return m_target.deliverRawData(orderType, data);
}

} // namespace sigdb
