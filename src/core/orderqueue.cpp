#include "core/orderqueue.h"

#include "base/dbbasetype.h"
#include "core/basecallback.h"

namespace sigdb {

OrderQueue::OrderQueue() = default;

OrderQueue &OrderQueue::defaultQueue()
{
    static OrderQueue queue;
    return queue;
}

int OrderQueue::enqueue(int orderType, const base::DbBaseType *record, const BaseCallback *callback)
{
    if (!record)
        return -1;
    Order order;
    order.orderType = orderType;
    order.callback = callback;
    record->serialize(order.data);

    Transport transport;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        order.handle = m_nextHandle++;
        if (!m_transport) {
            const int handle = order.handle;
            m_orders.push_back(std::move(order));
            return handle;
        }
        transport = m_transport;
    }
    return transport(order);
}

void OrderQueue::setTransport(Transport transport)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_transport = std::move(transport);
}

bool OrderQueue::isEmpty() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_orders.empty();
}

int OrderQueue::count() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_orders.size());
}

Order OrderQueue::takeFirst()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_orders.empty())
        return Order();
    Order order = std::move(m_orders.front());
    m_orders.pop_front();
    return order;
}

std::vector<Order> OrderQueue::takeAll()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Order> orders(std::make_move_iterator(m_orders.begin()),
                              std::make_move_iterator(m_orders.end()));
    m_orders.clear();
    return orders;
}

void OrderQueue::clear()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_orders.clear();
}

bool OrderQueue::deliverAnswer(const Order &order, int orderType, const QByteArray &data)
{
    if (!order.callback)
        return false;
    // Orders keep the callback as the request interface received it (const); answering it
    // is what the client asked for when it passed the callback.
    return const_cast<BaseCallback *>(order.callback)->deliverRawData(orderType, data);
}

} // namespace sigdb
