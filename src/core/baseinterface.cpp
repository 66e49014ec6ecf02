#include "core/baseinterface.h"

#include "core/orderqueue.h"

namespace sigdb {

BaseInterface::BaseInterface()
    : m_queue(&OrderQueue::defaultQueue())
{
}

BaseInterface::BaseInterface(const BaseInterface &other) = default;
BaseInterface &BaseInterface::operator=(const BaseInterface &other) = default;
BaseInterface::~BaseInterface() = default;

int BaseInterface::addData(const BaseCallback *callback, int orderType, const base::DbBaseType *record)
{
    return m_queue->enqueue(orderType, record, callback);
}

} // namespace sigdb
