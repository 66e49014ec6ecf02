#include "auxiliary/plotentry.h"
#include "client/refcallback.h"
#include "client/refinterface.h"
#include "core/orderqueue.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using sigdb::PlotEntry;
using sigdb::PlotEntryList;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

const char *const kFailure = "deserialize PlotEntryList  failed";

/// Keeps a copy of every plot entry list and every error text it receives.
class Recorder : public sigdb::RefCallback
{
public:
    void callbackPlotEntryList(PlotEntryList &list) override { lists.push_back(list); }
    void callbackErrorMessage(const std::string &message) override { errors.push_back(message); }

    std::vector<PlotEntryList> lists;
    std::vector<std::string> errors;
};

// listId 0x2A, listText1 NULL, listText2 "ok", one row: firstId 1, secondId 2, text NULL,
// state 3 (ids as setIDs(0) gives them).
const char *const kOneRow = "00 01 00 08 00 00 00 00 00 00 00 2A"
                            "00 02 00 00"
                            "00 03 00 03 00 00 00 03 6F 6B 00"
                            "00 04 00 08 00 00 00 00 00 00 00 01"
                            "00 04 00 08 00 00 00 00 00 00 00 01"
                            "00 05 00 08 00 00 00 00 00 00 00 02"
                            "00 06 00 00"
                            "00 07 00 01 03";

PlotEntryList oneRow()
{
    PlotEntryList list;
    list.listId = 0x2AULL;
    list.listText2 = std::string("ok");
    PlotEntry row;
    row.firstId = 1ULL;
    row.secondId = 2ULL;
    row.modificationState = sigdb::Modification_ChangedInMdl;
    list.appendEntry(row);
    return list;
}

TEST(PlotDispatch, DecodesAnswer5011AndCallsCallbackPlotEntryList)
{
    Recorder recorder;
    EXPECT_TRUE(recorder.deliverRawData(5011, bytes(kOneRow)));
    EXPECT_TRUE(recorder.errors.empty());
    ASSERT_EQ(recorder.lists.size(), 1u);
    EXPECT_TRUE(recorder.lists[0] == oneRow());
    PlotEntryList &received = recorder.lists[0];
    EXPECT_EQ(received.listId.getID(), 1) << "the dispatcher numbers the record from 0";
    received.setIteratorToStart();
    EXPECT_EQ(received.getNextEntry()->modificationState.getData(), sigdb::Modification_ChangedInMdl);
}

TEST(PlotDispatch, EmptyListRoundTrip)
{
    Recorder recorder;
    QByteArray data;
    PlotEntryList().serialize(data);
    EXPECT_TRUE(recorder.deliverRawData(5011, data));
    ASSERT_EQ(recorder.lists.size(), 1u);
    EXPECT_EQ(recorder.lists[0].count(), 0);
    EXPECT_TRUE(recorder.errors.empty());
}

TEST(PlotDispatch, SentOrderComesBackAsTheSameList)
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    Recorder recorder;
    PlotEntryList list = oneRow();
    PlotEntry second;
    second.text = std::string("second row");
    second.modificationState.setNull(true);
    list.appendEntry(second);
    ASSERT_GT(requests.changePlotEntry(list, &recorder), 0);

    const sigdb::Order order = queue.takeFirst();
    EXPECT_EQ(order.orderType, 5011);
    EXPECT_TRUE(sigdb::OrderQueue::deliverAnswer(order, 5011, order.data));
    ASSERT_EQ(recorder.lists.size(), 1u);
    EXPECT_TRUE(recorder.lists[0] == list);
    EXPECT_TRUE(recorder.errors.empty());
}

TEST(PlotDispatch, FailuresReportTheFixedText)
{
    struct Row
    {
        const char *name;
        const char *bytes;
    };
    const Row rows[] = {
        {"empty", ""},
        {"count of size 4", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 04 00 00 00 00"},
        {"count 2^62 on a short stream", "00 01 00 00 00 02 00 00 00 03 00 00"
                                         "00 04 00 08 40 00 00 00 00 00 00 00"
                                         "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 01"},
        {"state wide", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 01"
                       "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 08 00 00 00 00 00 00 00 01"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Recorder recorder;
        EXPECT_TRUE(recorder.deliverRawData(5011, bytes(row.bytes)));
        EXPECT_TRUE(recorder.lists.empty());
        ASSERT_EQ(recorder.errors.size(), 1u);
        EXPECT_EQ(recorder.errors[0], kFailure);
    }
}

TEST(PlotDispatch, EveryTruncationReportsTheFixedText)
{
    const QByteArray full = bytes(kOneRow);
    for (int length = 0; length < full.size(); ++length) {
        SCOPED_TRACE(length);
        Recorder recorder;
        EXPECT_TRUE(recorder.deliverRawData(5011, full.left(length)));
        EXPECT_TRUE(recorder.lists.empty());
        ASSERT_EQ(recorder.errors.size(), 1u);
        EXPECT_EQ(recorder.errors[0], kFailure);
    }
}

TEST(PlotDispatch, TrailingBytesAreNotLookedAt)
{
    Recorder recorder;
    EXPECT_TRUE(recorder.deliverRawData(5011, bytes(kOneRow) + QByteArray("\x00\x09", 2)));
    ASSERT_EQ(recorder.lists.size(), 1u);
    EXPECT_TRUE(recorder.errors.empty());
}

} // namespace
