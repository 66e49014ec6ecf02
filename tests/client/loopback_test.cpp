#include "client/loopback.h"

#include "auxiliary/plotentry.h"
#include "client/refcallback.h"
#include "client/refcallbackforwarder.h"
#include "client/refinterface.h"
#include "core/corecallback.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ElementOverview;
using sigdb::Loopback;
using sigdb::OrderQueue;

namespace {

// Keeps copies of everything the loopback answers.
class Recorder : public sigdb::RefCallback
{
public:
    std::vector<ElementOverview> overviews;
    std::vector<ElementOverview> changed;
    std::vector<sigdb::ElementOverviewList> lists;
    std::vector<sigdb::LinkChangeDefinition> links;
    std::vector<sigdb::PlotEntryList> plots;
    std::vector<std::string> errors;

    void callbackElementOverview(ElementOverview &o) override { overviews.push_back(o); }
    void callbackElementChanged(ElementOverview &o) override { changed.push_back(o); }
    void callbackElementOverviewList(sigdb::ElementOverviewList &l) override { lists.push_back(l); }
    void callbackLinkChanged(sigdb::LinkChangeDefinition &c) override { links.push_back(c); }
    void callbackPlotEntryList(sigdb::PlotEntryList &p) override { plots.push_back(p); }
    void callbackErrorMessage(const std::string &text) override { errors.push_back(text); }
};

ElementOverview unit(const char *name, unsigned long long tid = 0)
{
    ElementOverview overview;
    overview.element.setType(1);
    if (tid)
        overview.element.setTID(tid);
    overview.keyText1 = std::string(name);
    overview.modificationState = sigdb::Modification_NewInMdl;
    return overview;
}

class LoopbackTest : public testing::Test
{
protected:
    LoopbackTest()
        : server(queue)
    {
        requests.setOrderQueue(queue);
    }

    OrderQueue queue;
    sigdb::RefInterface requests;
    Loopback server;
    Recorder recorder;
};

} // namespace

TEST_F(LoopbackTest, StoresElementsWithFreshTids)
{
    const ElementOverview first = server.storeElement(unit("ALPHA"));
    const ElementOverview second = server.storeElement(unit("BRAVO"));
    EXPECT_EQ(first.element.TID(), 1000u);
    EXPECT_EQ(second.element.TID(), 1001u);
    server.storeElement(unit("CHARLIE", 5000));
    EXPECT_EQ(server.storeElement(unit("DELTA")).element.TID(), 5001u);
    EXPECT_EQ(server.storedElementCount(), 4);
}

TEST_F(LoopbackTest, AnswersAnOverviewThroughTheCallback)
{
    const ElementOverview stored = server.storeElement(unit("ALPHA"));
    sigdb::SigdbElement element = stored.element;
    EXPECT_EQ(requests.getElementOverview(element, &recorder), 1);
    EXPECT_TRUE(recorder.overviews.empty()) << "nothing arrives before the server runs";
    EXPECT_EQ(server.processPendingOrders(), 1);
    ASSERT_EQ(recorder.overviews.size(), 1u);
    EXPECT_TRUE(recorder.overviews[0] == stored);
    EXPECT_TRUE(recorder.errors.empty());
}

TEST_F(LoopbackTest, QueriesSelectByTypeAndNameAndPage)
{
    server.storeElement(unit("ALPHA"));
    server.storeElement(unit("ALBERT"));
    server.storeElement(unit("BRAVO"));
    ElementOverview network;
    network.element.setType(4);
    network.keyText1 = std::string("ALNET");
    server.storeElement(network);

    sigdb::QueryRequest query;
    query.element().setType(1);
    query.name() = std::string("AL*");
    query.element().setResultListMaxCount(1);
    sigdb::QueryRequestList queries;
    queries.appendEntry(query);
    requests.getElementOverviewList(queries, &recorder);
    server.processPendingOrders();

    ASSERT_EQ(recorder.lists.size(), 1u);
    ASSERT_EQ(recorder.lists[0].count(), 1);
    EXPECT_EQ(recorder.lists[0].results()[0].keyText1.getData(), "ALPHA");
    EXPECT_EQ(recorder.lists[0].moreResultsAvailable(), 1u) << "ALBERT did not fit the page";
}

TEST_F(LoopbackTest, DeletingAndApprovingAnswerWithTheChangedOverview)
{
    const ElementOverview stored = server.storeElement(unit("ALPHA"));
    sigdb::SigdbElement element = stored.element;
    requests.deleteElement(element, &recorder);
    element.setApprove(true);
    requests.approveElement(element, &recorder);
    server.processPendingOrders();
    ASSERT_EQ(recorder.changed.size(), 2u);
    EXPECT_EQ(recorder.changed[0].modificationState(), sigdb::Modification_DeletedInMdl);
    EXPECT_EQ(recorder.changed[1].modificationState(), sigdb::Modification_Approved);
    EXPECT_EQ(server.findElement(element)->modificationState(), sigdb::Modification_Approved);
}

TEST_F(LoopbackTest, LinksAreStoredEchoedAndListedAsSubElements)
{
    const ElementOverview network = [this] {
        ElementOverview n;
        n.element.setType(4);
        return server.storeElement(n);
    }();
    const ElementOverview member = server.storeElement(unit("ALPHA"));

    sigdb::LinkChangeDefinition change;
    change.link1().setActionType(10);
    change.link1().setFromElement(network.element);
    change.link1().setToElement(member.element);
    change.setModificationUser(std::string("demo"));
    sigdb::RefCallbackForwarder linkAnswers(recorder);
    requests.changeLink(change, &linkAnswers);

    sigdb::SigdbElementWithMaxCount parent(network.element);
    requests.getElementSubElementList(parent, &recorder);
    server.processPendingOrders();

    ASSERT_EQ(recorder.links.size(), 1u);
    EXPECT_EQ(recorder.links[0].link1().actionType(), 10);
    EXPECT_TRUE(recorder.links[0].link1().toElement() == member.element);
    EXPECT_EQ(recorder.links[0].modificationUser().getData(), "demo");
    ASSERT_EQ(recorder.lists.size(), 1u);
    ASSERT_EQ(recorder.lists[0].count(), 1);
    EXPECT_TRUE(recorder.lists[0].results()[0] == member);
    EXPECT_TRUE(recorder.lists[0].parentDefinition() == network.element);
}

TEST_F(LoopbackTest, PlotEntriesAreNumberedAndEchoed)
{
    sigdb::PlotEntryList plots;
    sigdb::PlotEntry entry;
    entry.text = std::string("track");
    plots.appendEntry(entry);
    plots.appendEntry(entry);
    requests.changePlotEntry(plots, &recorder);
    server.processPendingOrders();
    ASSERT_EQ(recorder.plots.size(), 1u);
    ASSERT_EQ(recorder.plots[0].count(), 2);
    EXPECT_EQ(recorder.plots[0].container()[0].firstId.getData(), 1u);
    EXPECT_EQ(recorder.plots[0].container()[1].firstId.getData(), 2u);
}

TEST_F(LoopbackTest, OrdersThatDoNotDecodeAreRejected)
{
    sigdb::Order broken;
    broken.orderType = 5001;
    broken.data = sigdbtest::bytes("0001 0002");
    broken.callback = &recorder;
    EXPECT_TRUE(server.answer(broken).empty());
    EXPECT_EQ(server.rejected(), 1);
}

TEST_F(LoopbackTest, TheObserverSeesEveryOrderAndItsAnswers)
{
    std::vector<int> seen;
    server.setObserver([&seen](const sigdb::Order &order, const std::vector<Loopback::Answer> &answers) {
        seen.push_back(order.orderType);
        for (const Loopback::Answer &answer : answers)
            seen.push_back(answer.orderType);
    });
    sigdb::SigdbElement element;
    element.setType(1);
    element.setTID(7);
    requests.getElementOverview(element, &recorder);
    requests.deleteElement(element, &recorder);
    server.processPendingOrders();
    EXPECT_EQ(seen, (std::vector<int>{5001, 5001, 5007, 5006}));
}

TEST_F(LoopbackTest, VersionHandshake)
{
    sigdb::VersionInfo client;
    client.getInterfaceVersion().setMajor(1);
    client.getRequiredInterfaceVersion().setMajor(1);
    client.setInterfaceIdentifier(sigdb::InterfaceIdentifier_Reference);
    QByteArray request;
    client.serialize(request);

    const sigdb::VersionInfoVector answer = sigdb::VersionInfoVector::deserialize(server.answerVersionInfo(request));
    ASSERT_EQ(answer.getVersionInfoVector().size(), 1u);
    const sigdb::VersionInfo &info = answer.getVersionInfoVector()[0];
    EXPECT_EQ(info.getInterfaceMatching(), sigdb::InterfaceMatching_Match);
    EXPECT_EQ(info.getInterfaceIdentifier(), sigdb::InterfaceIdentifier_Reference);
    EXPECT_EQ(info.getProductVersion().getOrigin(), "sigdbref loopback");

    client.getInterfaceVersion().setMajor(2);
    client.getRequiredInterfaceVersion().setMajor(1);
    request.clear();
    client.serialize(request);
    EXPECT_EQ(sigdb::VersionInfoVector::deserialize(server.answerVersionInfo(request)).getVersionInfoVector()[0].getInterfaceMatching(),
              sigdb::InterfaceMatching_Compatible);
    client.getRequiredInterfaceVersion().setMajor(3);
    request.clear();
    client.serialize(request);
    EXPECT_EQ(sigdb::VersionInfoVector::deserialize(server.answerVersionInfo(request)).getVersionInfoVector()[0].getInterfaceMatching(),
              sigdb::InterfaceMatching_Mismatch);

    EXPECT_THROW(server.answerVersionInfo(sigdbtest::bytes("00000000 00000004 00000000 00000002 00000004 00000000")),
                 QString);
}
