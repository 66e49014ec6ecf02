#include "core/orderqueue.h"

#include "core/baseinterface.h"
#include "core/basecallback.h"
#include "core/sigdbelement.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::Order;
using sigdb::OrderQueue;

namespace {

class RecordingCallback : public sigdb::BaseCallback
{
public:
    int orderType = 0;
    QByteArray data;

private:
    bool callbackRawData(int type, const QByteArray &bytes) override
    {
        orderType = type;
        data = bytes;
        return type == 42;
    }
};

class Interface : public sigdb::BaseInterface
{
public:
    using sigdb::BaseInterface::addData;
};

} // namespace

TEST(OrderQueue, AddDataQueuesTheEncodedRecord)
{
    OrderQueue queue;
    Interface interface;
    interface.setOrderQueue(queue);
    RecordingCallback callback;

    sigdb::SigdbElement element;
    element.setType(4);
    EXPECT_EQ(interface.addData(&callback, 5001, &element), 1);
    EXPECT_EQ(interface.addData(nullptr, 5007, &element), 2);
    EXPECT_EQ(queue.count(), 2);

    const Order first = queue.takeFirst();
    EXPECT_EQ(first.handle, 1);
    EXPECT_EQ(first.orderType, 5001);
    EXPECT_EQ(first.callback, &callback);
    QByteArray expected;
    element.serialize(expected);
    EXPECT_EQ(first.data, expected);

    const std::vector<Order> rest = queue.takeAll();
    ASSERT_EQ(rest.size(), 1u);
    EXPECT_EQ(rest[0].orderType, 5007);
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_EQ(queue.takeFirst().handle, 0);
}

TEST(OrderQueue, WithoutARecordNothingIsQueued)
{
    OrderQueue queue;
    Interface interface;
    interface.setOrderQueue(queue);
    EXPECT_EQ(interface.addData(nullptr, 5001, nullptr), -1);
    EXPECT_TRUE(queue.isEmpty());
}

TEST(OrderQueue, TransportReceivesOrdersAndDecidesTheResult)
{
    OrderQueue queue;
    std::vector<Order> sent;
    queue.setTransport([&sent](const Order &order) {
        sent.push_back(order);
        return -77;
    });
    sigdb::SigdbElement element;
    EXPECT_EQ(queue.enqueue(5008, &element, nullptr), -77);
    EXPECT_TRUE(queue.isEmpty());
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].orderType, 5008);
    queue.setTransport(nullptr);
    EXPECT_EQ(queue.enqueue(5008, &element, nullptr), 2);
    queue.clear();
    EXPECT_EQ(queue.count(), 0);
}

TEST(OrderQueue, AnswersReachTheOrdersCallback)
{
    OrderQueue queue;
    RecordingCallback callback;
    sigdb::SigdbElement element;
    queue.enqueue(5001, &element, &callback);
    const Order order = queue.takeFirst();
    EXPECT_TRUE(OrderQueue::deliverAnswer(order, 42, QByteArray("xy")));
    EXPECT_EQ(callback.orderType, 42);
    EXPECT_EQ(callback.data, QByteArray("xy"));
    EXPECT_FALSE(OrderQueue::deliverAnswer(order, 43, QByteArray()));
    EXPECT_FALSE(OrderQueue::deliverAnswer(Order(), 42, QByteArray()));
}

TEST(OrderQueue, InterfacesUseTheDefaultQueueUnlessTold)
{
    Interface interface;
    EXPECT_EQ(&interface.orderQueue(), &OrderQueue::defaultQueue());
}
