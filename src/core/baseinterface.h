#ifndef SIGDB_CORE_BASEINTERFACE_H
#define SIGDB_CORE_BASEINTERFACE_H

#include "sigdbcore_export.h"

namespace base {
class DbBaseType;
}

namespace sigdb {

class BaseCallback;
class OrderQueue;

/// The base of every request interface: addData() hands one order to the core library.
class SIGDBCORE_EXPORT BaseInterface
{
public:
    BaseInterface();
    /// A copy of \a other.
    BaseInterface(const BaseInterface &other);
    /// Replaces the contents with a copy of \a other.
    BaseInterface &operator=(const BaseInterface &other);
    virtual ~BaseInterface();

    /// The queue that receives this interface's orders (OrderQueue::defaultQueue() unless set).
    OrderQueue &orderQueue() const { return *m_queue; }
    /// Sends this interface's orders into \a queue from now on; the queue must outlive the interface.
    void setOrderQueue(OrderQueue &queue) { m_queue = &queue; }

protected:
    /// Queues one order: \a record is encoded through its virtual serialize(); the answer is
    /// to reach \a callback. Returns the order's handle, or the transport's error code.
    int addData(const BaseCallback *callback, int orderType, const base::DbBaseType *record);

private:
    OrderQueue *m_queue;
};

} // namespace sigdb

#endif
