#ifndef SIGDB_CORE_ORDERQUEUE_H
#define SIGDB_CORE_ORDERQUEUE_H

#include "sigdbcore_export.h"

#include <QByteArray>

#include <deque>
#include <functional>
#include <mutex>
#include <vector>

namespace base {
class DbBaseType;
}

namespace sigdb {

class BaseCallback;

/// One order as the request interface hands it over: the order type, the record's encoded
/// bytes and the callback that is to receive the answer.
struct SIGDBCORE_EXPORT Order
{
    /// The handle addData returned for the order (1, 2, ...).
    int handle = 0;
    /// The order type, which tells the server what to do with the bytes.
    int orderType = 0;
    /// The encoded record.
    QByteArray data;
    /// The callback that is to receive the answer; not owned.
    const BaseCallback *callback = nullptr;
};

/// Where BaseInterface::addData puts orders. Without a middleware in this process, an
/// application drains the queue and hands the orders to a transport of its choosing, or
/// installs the transport with setTransport() so that every order goes out at once. An answer
/// reaches its callback through deliverAnswer().
///
/// The queue is safe to use from several threads.
class SIGDBCORE_EXPORT OrderQueue
{
public:
    /// Sends one order; what it returns is what addData returns (a handle or an error code).
    using Transport = std::function<int(const Order &)>;

    OrderQueue();
    OrderQueue(const OrderQueue &) = delete;
    OrderQueue &operator=(const OrderQueue &) = delete;

    /// The queue that every BaseInterface uses unless it is given another one.
    static OrderQueue &defaultQueue();

    /// Encodes \a record through its virtual serialize() and queues (or sends) the order.
    /// Returns the order's handle (1, 2, ...), the transport's result, or -1 without a record.
    int enqueue(int orderType, const base::DbBaseType *record, const BaseCallback *callback);

    /// Sends every order from now on through \a transport instead of keeping it; an empty transport queues again.
    void setTransport(Transport transport);

    /// Whether no order is waiting.
    bool isEmpty() const;
    /// The number of orders waiting.
    int count() const;
    /// Removes and returns the oldest order; a default Order (handle 0) when empty.
    Order takeFirst();
    /// Removes and returns every waiting order, oldest first.
    std::vector<Order> takeAll();
    /// Drops every waiting order.
    void clear();

    /// Delivers an answer to the callback of \a order; false when the order has no callback
    /// or the callback does not handle \a orderType.
    static bool deliverAnswer(const Order &order, int orderType, const QByteArray &data);

private:
    mutable std::mutex m_mutex;
    std::deque<Order> m_orders;
    Transport m_transport;
    int m_nextHandle = 1;
};

} // namespace sigdb

#endif
