#include "client/refcallback.h"

#include "client/refinterface.h"
#include "core/orderqueue.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace sigdb;

namespace {

/// Records every callback with what it received.
class RecordingCallback : public RefCallback
{
public:
    struct Call
    {
        std::string callback;
        unsigned long long tid = 0; // of the overview, or of the list's parent
        int count = 0;              // results of a list
    };

    void callbackErrorMessage(const std::string &message) override { errors.push_back(message); }
    void callbackElementOverview(ElementOverview &o) override { record("ElementOverview", o); }
    void callbackElementCreated(ElementOverview &o) override { record("ElementCreated", o); }
    void callbackElementChanged(ElementOverview &o) override { record("ElementChanged", o); }
    void callbackElementOverviewList(ElementOverviewList &l) override { record("ElementOverviewList", l); }
    void callbackNewElementWithLink(ElementOverviewList &l) override { record("NewElementWithLink", l); }
    void callbackElementDetailList(ElementDetailsList &) override { calls.push_back({"ElementDetailList"}); }
    void callbackLinkChanged(LinkChangeDefinition &) override { calls.push_back({"LinkChanged"}); }
    void callbackPlotEntryList(PlotEntryList &) override { calls.push_back({"PlotEntryList"}); }

    std::vector<Call> calls;
    std::vector<std::string> errors;
    ElementOverview lastOverview;

private:
    void record(const char *name, const ElementOverview &o)
    {
        calls.push_back({name, o.element.TID(), 0});
        lastOverview = o;
    }
    void record(const char *name, const ElementOverviewList &l)
    {
        calls.push_back({name, l.parentDefinition().TID(), l.count()});
    }
};

ElementOverview answerOverview()
{
    ElementOverview o;
    o.element.setType(1);
    o.element.setTID(4711);
    o.keyText1 = std::string("KEY");
    o.modificationState = Modification_NewInMdl;
    o.networkTypeWord = 2;
    o.orderNumber = 3;
    return o;
}

ElementOverviewList answerList()
{
    ElementOverviewList list;
    SigdbElement parent;
    parent.setType(24);
    parent.setTID(99);
    list.setParentDefinition(parent);
    list.appendResult(answerOverview(), false);
    list.appendResult(answerOverview(), false);
    ElementOverviewList sub;
    sub.appendResult(answerOverview(), false);
    list.appendResultList(sub);
    return list;
}

template <typename Record>
QByteArray encoded(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

} // namespace

TEST(RefCallbackDispatch, OverviewAnswersReachTheirOwnCallbacks)
{
    const QByteArray bytes = encoded(answerOverview());
    struct Case
    {
        int orderType;
        const char *callback;
    };
    const Case cases[] = {
        {5001, "ElementOverview"},
        {5005, "ElementCreated"},
        {5006, "ElementChanged"},
    };
    for (const Case &c : cases) {
        RecordingCallback callback;
        EXPECT_TRUE(callback.deliverRawData(c.orderType, bytes));
        ASSERT_EQ(callback.calls.size(), 1u) << c.orderType;
        EXPECT_EQ(callback.calls[0].callback, c.callback);
        EXPECT_EQ(callback.calls[0].tid, 4711u);
        EXPECT_TRUE(callback.errors.empty());
        EXPECT_EQ(callback.lastOverview, answerOverview());
        EXPECT_EQ(callback.lastOverview.orderNumber.getData(), 3);
        EXPECT_EQ(callback.lastOverview.modificationState(), Modification_NewInMdl);
    }
}

TEST(RefCallbackDispatch, ListAnswersReachTheirOwnCallbacks)
{
    const QByteArray bytes = encoded(answerList());
    RecordingCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5002, bytes));
    EXPECT_TRUE(callback.deliverRawData(5012, bytes));
    ASSERT_EQ(callback.calls.size(), 2u);
    EXPECT_EQ(callback.calls[0].callback, "ElementOverviewList");
    EXPECT_EQ(callback.calls[1].callback, "NewElementWithLink");
    for (const RecordingCallback::Call &call : callback.calls) {
        EXPECT_EQ(call.tid, 99u);
        EXPECT_EQ(call.count, 2);
    }
    EXPECT_TRUE(callback.errors.empty());
}

TEST(RefCallbackDispatch, UndecodableAnswersReportTheirTextAndAreHandled)
{
    const QByteArray overview = encoded(answerOverview());
    const QByteArray list = encoded(answerList());
    struct Case
    {
        int orderType;
        QByteArray data;
        const char *text;
    };
    const Case cases[] = {
        {5001, QByteArray(), "deserialize ElementOverview (callbackElementOverview) failed"},
        {5001, overview.left(overview.size() - 1), "deserialize ElementOverview (callbackElementOverview) failed"},
        {5005, overview.left(40), "deserialize ElementOverview (callbackElementCreated) failed"},
        {5006, overview.left(1), "deserialize ElementOverview (callbackElementChanged) failed"},
        {5006, list, "deserialize ElementOverview (callbackElementChanged) failed"},
        {5002, list.left(list.size() - 3), "deserialize ElementOverviewList (callbackElementOverviewList)  failed"},
        {5002, overview, "deserialize ElementOverviewList (callbackElementOverviewList)  failed"},
        {5012, QByteArray(), "deserialize ElementOverviewList  failed"},
        {5012, list.left(100), "deserialize ElementOverviewList  failed"},
    };
    for (const Case &c : cases) {
        RecordingCallback callback;
        EXPECT_TRUE(callback.deliverRawData(c.orderType, c.data)) << c.orderType;
        EXPECT_TRUE(callback.calls.empty()) << c.orderType;
        EXPECT_EQ(callback.errors, std::vector<std::string>{c.text});
    }
}

TEST(RefCallbackDispatch, RowsOfOtherRecordsRouteToTheirOwnFailureText)
{
    // Nothing decodes from no bytes at all, whichever record the row builds.
    struct Case
    {
        int orderType;
        const char *text;
    };
    const Case cases[] = {
        {5004, "deserialize ElementDetailsList  failed"},
        {5009, "deserialize LinkChangeDefinition failed"},
        {5011, "deserialize PlotEntryList  failed"},
    };
    for (const Case &c : cases) {
        RecordingCallback callback;
        EXPECT_TRUE(callback.deliverRawData(c.orderType, QByteArray()));
        EXPECT_TRUE(callback.calls.empty());
        EXPECT_EQ(callback.errors, std::vector<std::string>{c.text});
    }
}

TEST(RefCallbackDispatch, OrderTypesOutsideTheRangeAreNotOursAndSilent)
{
    const QByteArray bytes = encoded(answerOverview());
    for (int orderType : {4999, 10000, 0, -5001, 1}) {
        RecordingCallback callback;
        EXPECT_FALSE(callback.deliverRawData(orderType, bytes)) << orderType;
        EXPECT_TRUE(callback.calls.empty());
        EXPECT_TRUE(callback.errors.empty());
    }
}

TEST(RefCallbackDispatch, UnknownOrderTypesInTheRangeAreReported)
{
    const QByteArray bytes = encoded(answerOverview());
    for (int orderType : {5000, 5003, 5007, 5008, 5010, 5013, 9999}) {
        RecordingCallback callback;
        EXPECT_FALSE(callback.deliverRawData(orderType, bytes)) << orderType;
        EXPECT_TRUE(callback.calls.empty());
        EXPECT_EQ(callback.errors,
                  std::vector<std::string>{"RefCallback::callbackRawData::unknown orderType "
                                           + std::to_string(orderType) + " "});
    }
    RecordingCallback callback;
    callback.deliverRawData(5003, QByteArray());
    EXPECT_EQ(callback.errors,
              std::vector<std::string>{"RefCallback::callbackRawData::unknown orderType 5003 "});
}

TEST(RefCallbackDispatch, BaseCallbacksDoNothing)
{
    RefCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5001, encoded(answerOverview())));
    EXPECT_TRUE(callback.deliverRawData(5002, encoded(answerList())));
    EXPECT_TRUE(callback.deliverRawData(5001, QByteArray()));
}

TEST(RefCallbackDispatch, HostileListAnswersFailCleanly)
{
    // A list nested 100 deep.
    ElementOverviewList deep;
    for (int level = 1; level < 100; ++level) {
        ElementOverviewList outer;
        outer.appendResultList(deep);
        deep = outer;
    }
    RecordingCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5012, encoded(deep)));
    EXPECT_TRUE(callback.calls.empty());
    EXPECT_EQ(callback.errors, std::vector<std::string>{"deserialize ElementOverviewList  failed"});
}

TEST(RefInterfaceCollocation, ChangeCollocationSendsTheGroupAsOrder5010)
{
    OrderQueue queue;
    RefInterface refInterface;
    refInterface.setOrderQueue(queue);
    RefCallback callback;
    ElementOverviewList group = answerList();

    EXPECT_EQ(refInterface.changeCollocation(group, &callback), 1);
    ASSERT_EQ(queue.count(), 1);
    const Order order = queue.takeFirst();
    EXPECT_EQ(order.orderType, 5010);
    EXPECT_EQ(order.callback, &callback);
    EXPECT_EQ(sigdbtest::hex(order.data), sigdbtest::hex(encoded(group)));

    queue.setTransport([](const Order &) { return -42; });
    EXPECT_EQ(refInterface.changeCollocation(group, &callback), -42);
}
