#include "client/refinterface.h"

#include "client/refcallback.h"
#include "auxiliary/plotentry.h"
#include "client/refcallbackforwarder.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "query/queryrequest.h"
#include "core/orderqueue.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <functional>

using sigdb::Order;
using sigdb::OrderQueue;
using sigdb::RefCallback;
using sigdb::RefInterface;

namespace {

// A transport that answers every order with a chosen result, so that the tests can see that
// the request methods return exactly what addData returned, failures included.
class RecordingTransport
{
public:
    explicit RecordingTransport(OrderQueue &queue)
    {
        queue.setTransport([this](const Order &order) {
            orders.push_back(order);
            return nextResult;
        });
    }
    std::vector<Order> orders;
    int nextResult = 0;
};

struct RequestCase
{
    const char *name;
    int orderType;
    std::function<int(RefInterface &, const RefCallback *)> send;
    std::function<QByteArray()> expectedBytes;
};

sigdb::SigdbElement sampleElement()
{
    sigdb::SigdbElement element;
    element.setType(1);
    element.setTID(17);
    return element;
}

template <typename Record>
QByteArray encoded(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

const RequestCase kRequests[] = {
    {"getElementOverview", 5001,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::SigdbElement e = sampleElement();
         return i.getElementOverview(e, c);
     },
     [] { return encoded(sampleElement()); }},
    {"getElementSubElementList", 5003,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::SigdbElementWithMaxCount e(sampleElement());
         return i.getElementSubElementList(e, c);
     },
     [] { return encoded(sigdb::SigdbElementWithMaxCount(sampleElement())); }},
    {"getElementDetailList", 5004,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::ElementList list;
         list.appendEntry(sampleElement());
         return i.getElementDetailList(list, c);
     },
     [] {
         sigdb::ElementList list;
         list.appendEntry(sampleElement());
         return encoded(list);
     }},
    {"deleteElement", 5007,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::SigdbElement e = sampleElement();
         return i.deleteElement(e, c);
     },
     [] { return encoded(sampleElement()); }},
    {"getElementOverviewList", 5002,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::QueryRequestList queries;
         queries.appendEntry(sigdb::QueryRequest());
         return i.getElementOverviewList(queries, c);
     },
     [] {
         sigdb::QueryRequestList queries;
         queries.appendEntry(sigdb::QueryRequest());
         return encoded(queries);
     }},
    {"createElement", 5005,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::ElementDetailsList details;
         details.appendDetails(sigdb::ElementDetails());
         return i.createElement(details, c);
     },
     [] {
         sigdb::ElementDetailsList details;
         details.appendDetails(sigdb::ElementDetails());
         return encoded(details);
     }},
    {"changeElement", 5006,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::ElementDetailsList details;
         return i.changeElement(details, c);
     },
     [] { return encoded(sigdb::ElementDetailsList()); }},
    {"changeLink", 5009,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::LinkChangeDefinition change;
         change.link1().setActionType(10);
         // changeLink alone is addressed to a core callback.
         static thread_local std::unique_ptr<sigdb::RefCallbackForwarder> forwarder;
         forwarder.reset(c ? new sigdb::RefCallbackForwarder(*const_cast<RefCallback *>(c)) : nullptr);
         return i.changeLink(change, forwarder.get());
     },
     [] {
         sigdb::LinkChangeDefinition change;
         change.link1().setActionType(10);
         return encoded(change);
     }},
    {"changeCollocation", 5010,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::ElementOverviewList group;
         return i.changeCollocation(group, c);
     },
     [] { return encoded(sigdb::ElementOverviewList()); }},
    {"changePlotEntry", 5011,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::PlotEntryList plots;
         plots.appendEntry(sigdb::PlotEntry());
         return i.changePlotEntry(plots, c);
     },
     [] {
         sigdb::PlotEntryList plots;
         plots.appendEntry(sigdb::PlotEntry());
         return encoded(plots);
     }},
    {"approveElement", 5008,
     [](RefInterface &i, const RefCallback *c) {
         sigdb::SigdbElement e = sampleElement();
         return i.approveElement(e, c);
     },
     [] { return encoded(sampleElement()); }},
};

class Request : public testing::TestWithParam<RequestCase>
{
};

} // namespace

TEST_P(Request, SendsItsRecordUnderItsOrderType)
{
    OrderQueue queue;
    RefInterface interface;
    interface.setOrderQueue(queue);
    RefCallback callback;

    EXPECT_EQ(GetParam().send(interface, &callback), 1);
    ASSERT_EQ(queue.count(), 1);
    const Order order = queue.takeFirst();
    EXPECT_EQ(order.orderType, GetParam().orderType);
    if (GetParam().orderType == 5009)
        EXPECT_NE(order.callback, nullptr) << "a forwarder to the callback";
    else
        EXPECT_EQ(order.callback, &callback);
    EXPECT_EQ(order.data, GetParam().expectedBytes());
}

TEST_P(Request, ReturnsExactlyWhatAddDataReturned)
{
    OrderQueue queue;
    RecordingTransport transport(queue);
    RefInterface interface;
    interface.setOrderQueue(queue);
    for (int result : {0, -1, -2147483647 - 1, 12345}) {
        transport.nextResult = result;
        EXPECT_EQ(GetParam().send(interface, nullptr), result);
    }
    EXPECT_EQ(transport.orders.size(), 4u) << "one order per call, nothing else";
}

INSTANTIATE_TEST_SUITE_P(AllRequests, Request, testing::ValuesIn(kRequests),
                         [](const testing::TestParamInfo<RequestCase> &info) {
                             return std::string(info.param.name);
                         });

TEST(RefInterface, CopiesShareTheQueue)
{
    OrderQueue queue;
    RefInterface interface;
    interface.setOrderQueue(queue);
    RefInterface copy(interface);
    EXPECT_EQ(&copy.orderQueue(), &queue);
    RefInterface assigned;
    assigned = interface;
    EXPECT_EQ(&assigned.orderQueue(), &queue);
}
