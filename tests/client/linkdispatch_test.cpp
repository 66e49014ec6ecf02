#include "client/refcallback.h"
#include "client/refinterface.h"
#include "core/corecallback.h"
#include "core/orderqueue.h"
#include "link/linkchangedefinition.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Records what the dispatch hands over: copies of the link changes and the error texts.
class RecordingCallback : public sigdb::RefCallback
{
public:
    void callbackLinkChanged(sigdb::LinkChangeDefinition &change) override
    {
        changes.push_back(change);
    }
    void callbackErrorMessage(const std::string &message) override { errors.push_back(message); }

    std::vector<sigdb::LinkChangeDefinition> changes;
    std::vector<std::string> errors;
};

sigdb::SigdbElement element(int type, unsigned long long tid)
{
    sigdb::SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    return e;
}

sigdb::LinkChangeDefinition networkChange()
{
    sigdb::LinkAction added;
    added.setFromElement(element(4, 40));
    added.setToElement(element(1, 10));
    added.setActionType(10);
    added.setOrderNumber(2);
    sigdb::LinkAction removed;
    removed.setFromElement(element(4, 40));
    removed.setToElement(element(2, 20));
    removed.setActionType(14);
    sigdb::LinkChangeDefinition change;
    change.setLink1(added);
    change.setLink2(removed);
    change.setModificationUser(base::DbDataType<std::string>("editor"));
    change.setLayer(1);
    return change;
}

// The byte form of a request, as the order queue hands it to a transport.
QByteArray sentBytes(sigdb::LinkChangeDefinition &change)
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    sigdb::CoreCallback sender;
    const int handle = requests.changeLink(change, &sender);
    const sigdb::Order order = queue.takeFirst();
    EXPECT_EQ(handle, order.handle);
    EXPECT_EQ(order.orderType, 5009);
    EXPECT_EQ(order.callback, &sender);
    return order.data;
}

const char *const kFailure = "deserialize LinkChangeDefinition failed";

} // namespace

TEST(LinkDispatch, ChangeLinkSendsTheEncodedRecord)
{
    sigdb::LinkChangeDefinition change = networkChange();
    QByteArray expected;
    change.serialize(expected);
    EXPECT_EQ(sigdbtest::hex(sentBytes(change)), sigdbtest::hex(expected));
}

TEST(LinkDispatch, ChangeLinkReturnsWhatTheTransportReturned)
{
    sigdb::OrderQueue queue;
    queue.setTransport([](const sigdb::Order &order) { return order.orderType == 5009 ? -7 : 0; });
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    sigdb::LinkChangeDefinition change = networkChange();
    EXPECT_EQ(requests.changeLink(change, nullptr), -7);
}

TEST(LinkDispatch, AnswerReachesCallbackLinkChanged)
{
    sigdb::LinkChangeDefinition change = networkChange();
    const QByteArray answer = sentBytes(change);

    RecordingCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5009, answer));
    EXPECT_TRUE(callback.errors.empty());
    ASSERT_EQ(callback.changes.size(), 1u);
    sigdb::LinkChangeDefinition &received = callback.changes.front();
    EXPECT_TRUE(received == change);
    EXPECT_EQ(received.link1().orderNumber().getData(), 2);
    EXPECT_TRUE(received.link2().orderNumber().isNull());
    EXPECT_EQ(received.link1().fromElement().layer(), 1);
    EXPECT_EQ(received.link2().toElement().TID(), 20u);
    for (const sigdb::LinkAction *l : {&received.link1(), &received.link2()}) {
        EXPECT_EQ(l->modificationUser().getData(), "editor");
        EXPECT_EQ(l->fromElement().modificationUser().getData(), "editor");
        EXPECT_EQ(l->toElement().modificationUser().getData(), "editor");
    }
}

TEST(LinkDispatch, EmptyAnswerReportsTheFailureText)
{
    RecordingCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5009, QByteArray()));
    EXPECT_TRUE(callback.changes.empty());
    EXPECT_EQ(callback.errors, std::vector<std::string>{kFailure});
}

TEST(LinkDispatch, EveryTruncatedAnswerReportsTheFailureText)
{
    sigdb::LinkChangeDefinition change = networkChange();
    const QByteArray answer = sentBytes(change);
    for (int length = 0; length < answer.size(); ++length) {
        RecordingCallback callback;
        EXPECT_TRUE(callback.deliverRawData(5009, answer.left(length)));
        EXPECT_TRUE(callback.changes.empty()) << "length " << length;
        EXPECT_EQ(callback.errors, std::vector<std::string>{kFailure}) << "length " << length;
    }
}

TEST(LinkDispatch, GarbageAnswerReportsTheFailureText)
{
    RecordingCallback callback;
    EXPECT_TRUE(callback.deliverRawData(5009, sigdbtest::bytes("00 01 7f ff 7f ff ff ff 41")));
    EXPECT_TRUE(callback.changes.empty());
    EXPECT_EQ(callback.errors, std::vector<std::string>{kFailure});
}
