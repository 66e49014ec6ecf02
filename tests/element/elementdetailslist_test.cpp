#include "element/elementdetailslist.h"

#include "client/loopback.h"
#include "client/refcallback.h"
#include "client/refinterface.h"
#include "core/orderqueue.h"
#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include "testsupport.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

using sigdb::ElementDetails;
using sigdb::ElementDetailsList;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

sigdb::CallsignTable awkwardTable()
{
    sigdb::CallsignTable table;
    sigdb::ConnectionEntry connection;
    connection.setTID(300);
    connection.setName(std::string("link | one"));
    connection.fromDefinition.element.setType(1);
    connection.fromDefinition.element.setTID(11);
    connection.fromDefinition.element.setLayer(1);
    connection.fromDefinition.firstText = std::string("from $ text");
    connection.fromDefinition.rcs = true;
    connection.toDefinition.element.setType(2);
    connection.toDefinition.element.setTID(12);
    connection.toDefinition.relay = false;
    table.connections.appendEntry(connection);

    sigdb::CallsignSet set;
    set.firstValue = std::string("day % set");
    sigdb::CallsignEntry entry;
    entry.firstCallsign = std::string("A|B");
    entry.secondCallsign = std::string("C$D/E");
    entry.thirdCallsign = std::string("F~G#");
    entry.fourthCallsign = std::string("%H%");
    set.entries.appendEntry(entry);
    table.sets.appendEntry(set);
    table.overview.element.setType(4);
    table.overview.element.setTID(40);
    table.overview.keyText1 = std::string("NET~40");
    return table;
}

ElementDetails newUnit()
{
    ElementDetails details;
    details.setType(1);
    details.setExchgId(std::string("UNI-NEW"));
    details.str(5) = std::string("ALPHA");
    details.str(17) = std::string("alpha unit");
    details.str(513) = std::string("a1;a2");
    details.setNull(561);
    sigdb::SigdbElement definition;
    definition.setType(4);
    definition.setTID(40);
    details.setElementDefinition(definition);
    details.detailsNumber() = 2;
    details.collocationTID() = 5000ULL;
    sigdb::ReferenceDocument document;
    document.documentText1 = std::string("manual");
    document.documentText3 = std::string("chapter 2");
    details.referenceDocuments().appendEntry(document);
    details.referenceDocuments().appendEntry(sigdb::ReferenceDocument());
    sigdb::ElementOverview member;
    member.element.setType(1);
    member.element.setTID(11);
    details.networkList().appendResult(member, false);
    details.callsignTable() = awkwardTable();
    return details;
}

// The bytes of a list of \a details, as the library sends it.
QByteArray encodedDetails(const std::vector<ElementDetails> &details)
{
    ElementDetailsList list;
    for (const ElementDetails &detail : details)
        list.appendDetails(detail);
    QByteArray out;
    list.serialize(out);
    return out;
}

bool decode(const QByteArray &data, ElementDetailsList &list)
{
    list.setIDs(0);
    sigdb::ColumnReader reader(data);
    return list.readFrom(reader);
}

class Recorder : public sigdb::RefCallback
{
public:
    std::vector<ElementDetailsList> detailLists;
    std::vector<sigdb::ElementOverview> created;
    std::vector<std::string> errors;
    void callbackElementDetailList(ElementDetailsList &list) override { detailLists.push_back(list); }
    void callbackElementCreated(sigdb::ElementOverview &overview) override { created.push_back(overview); }
    void callbackErrorMessage(const std::string &text) override { errors.push_back(text); }
};

} // namespace

TEST(ElementDetailsList, EmptyList)
{
    ElementDetailsList list;
    EXPECT_EQ(list.getMaxOrderNumberOfParameterSets(), -1);
    EXPECT_EQ(list.firstDetailPointer(), nullptr);
    EXPECT_EQ(list.getFirstDetail(), nullptr);
    EXPECT_FALSE(list.approveDataAvailable());
    EXPECT_EQ(list.setIDs(10), 11);
    EXPECT_EQ(list.startID(), 11);
    EXPECT_EQ(list.listNumber().getID(), 11);
    EXPECT_FALSE(list.listNumber().isNull());
    EXPECT_EQ(list.firstDetail().type(), 0);
}

TEST(ElementDetailsList, EmptyListEncoding)
{
    QByteArray out;
    ElementDetailsList().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0001 00  0001 0008 0000000000000000")));
    ElementDetailsList back;
    back.listNumber() = 5;
    ASSERT_TRUE(decode(out, back));
    EXPECT_EQ(back.count(), 0);
    EXPECT_EQ(back.listNumber().getData(), 0);
}

TEST(ElementDetailsList, TheEncoderResetsTheCursorToTheStart)
{
    ElementDetailsList list;
    ElementDetails first;
    first.setType(1);
    ElementDetails second;
    second.setType(4);
    list.appendDetails(first);
    list.appendDetails(second);
    ASSERT_EQ(list.getFirstDetail()->type(), 1);

    QByteArray out;
    list.serialize(out);
    ElementDetails *next = list.getNextDetail();
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->type(), 1) << "after serialize() the iteration starts again at the first detail";
    EXPECT_EQ(list.getNextDetail()->type(), 4);
    EXPECT_EQ(list.getNextDetail(), nullptr);
}

TEST(ElementDetailsList, CountZeroDecodesEvenWhenTheListNumberDoesNot)
{
    ElementDetailsList back;
    ASSERT_TRUE(decode(bytes("0009 0001 07  0001 0008 0000000000000000"), back));
    EXPECT_EQ(back.count(), 0);
    EXPECT_EQ(back.listNumber().getData(), 0) << "a list number that did not read is not taken";
}

TEST(ElementDetailsList, ApproveDataAvailable)
{
    sigdbtest::DefaultSchemaGuard guard;
    ElementDetailsList list;
    ElementDetails first;
    first.setType(1);
    first.setApprovalData(true);
    list.appendDetails(first);
    EXPECT_FALSE(list.approveDataAvailable()) << "one detail is never enough";

    ElementDetails second;
    list.appendDetails(second);
    EXPECT_FALSE(list.approveDataAvailable()) << "second detail without type";

    list.container()[1].setType(12); // its key column 17 is replaced by column 5
    EXPECT_TRUE(list.approveDataAvailable()) << "no approval data: nothing to check";
    list.container()[1].setApprovalData(true);
    EXPECT_FALSE(list.approveDataAvailable());
    list.container()[1].str(5) = std::string("S12");
    EXPECT_TRUE(list.approveDataAvailable());

    list.container()[1].setType(1); // has column 17 itself: no replacement
    EXPECT_FALSE(list.approveDataAvailable());
}

TEST(ElementDetailsList, TypesAndParameterSets)
{
    ElementDetailsList list;
    ElementDetails profile;
    profile.setType(5);
    sigdb::SigdbElementDetails row;
    row.setType(86);
    row.str(586) = std::string("9");
    sigdb::SigdbTable table = sigdb::SigdbTableSpace::instance().tableForType(86);
    ASSERT_FALSE(table.hasColumnWithId(586)) << "parameter rows are counted through column 586 of the row";
    list.appendDetails(profile);
    list.appendDetails(ElementDetails());
    EXPECT_EQ(list.getTypeOfIndex(0), 5);
    EXPECT_EQ(list.getTypeOfIndex(1), 0);
    EXPECT_EQ(list.getTypeOfIndex(static_cast<unsigned>(list.count())), 0);
    EXPECT_EQ(list.getMaxOrderNumberOfParameterSets(), -1);
}

TEST(ElementDetailsList, ListNumberNullDiffersFromZero)
{
    ElementDetailsList a;
    ElementDetailsList b;
    a.appendDetails(newUnit());
    b.appendDetails(newUnit());
    EXPECT_TRUE(a == b);
    b.listNumber().setNull(true);
    EXPECT_FALSE(a == b);
    b.listNumber().setNull(false);
    b.container()[0].detailsNumber() = 9;
    EXPECT_FALSE(a.compareDetails(b));
}

TEST(ElementDetailsList, IdsRunOnThroughTheDetails)
{
    ElementDetailsList list;
    list.appendDetails(ElementDetails());
    list.appendDetails(ElementDetails());
    EXPECT_EQ(list.setIDs(0), 25);
    EXPECT_EQ(list.container()[0].tid().getID(), 2);
    EXPECT_EQ(list.container()[1].tid().getID(), 14);
}

TEST(ElementDetailsList, RoundTripOfANewElement)
{
    ElementDetailsList list;
    list.listNumber() = 7;
    list.appendDetails(newUnit());
    QByteArray out;
    list.serialize(out);

    ElementDetailsList back;
    ASSERT_TRUE(decode(out, back));
    ASSERT_EQ(back.count(), 1);
    EXPECT_TRUE(back == list);
    const ElementDetails &detail = back.container()[0];
    EXPECT_EQ(detail.str(5).getData(), "ALPHA");
    EXPECT_TRUE(detail.isNull(561));
    EXPECT_EQ(detail.collocationTID().getData(), 5000u);
    EXPECT_EQ(detail.referenceDocuments().count(), 2);
    EXPECT_EQ(detail.networkList().count(), 1);
    EXPECT_EQ(detail.callsignTable().sets.container()[0].entries.container()[0].secondCallsign.getData(), "C$D/E");
    EXPECT_EQ(detail.callsignTable().connections.container()[0].name().getData(), "link | one");
    EXPECT_EQ(back.listNumber().getData(), 7);
}

TEST(ElementDetailsList, CallsignTableTravelsAsOneUtf8Text)
{
    const QByteArray out = encodedDetails({newUnit()});
    const QByteArray text = newUnit().callsignTable().toUtf8Text();
    // Tag 1111, size length + 1, then the text as a C string, as a bare stream writes it.
    QByteArray frame;
    {
        QDataStream stream(&frame, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_4_8);
        stream << qint16(1111) << static_cast<qint16>(text.size() + 1);
        stream.writeBytes(text.constData(), static_cast<uint>(text.size() + 1));
    }
    EXPECT_TRUE(out.endsWith(frame)) << "the table is the last item of a detail";
    EXPECT_EQ(hex(frame.left(8)), hex(bytes("0457")) + " " + hex(frame.mid(2, 2)) + " " + hex(frame.mid(4, 4)));
}

TEST(ElementDetailsList, TruncatedAtEveryPositionFails)
{
    const QByteArray out = encodedDetails({newUnit()});
    for (int length = 14; length < out.size(); ++length) {
        ElementDetailsList back;
        EXPECT_FALSE(decode(out.left(length), back)) << "length " << length;
    }
}

TEST(ElementDetailsList, HugeCountOnAShortStreamFails)
{
    ElementDetailsList back;
    EXPECT_FALSE(decode(bytes("0001 0001 00  0001 0008 4000000000000000"), back));
    EXPECT_EQ(back.count(), 0);
}

TEST(ElementDetailsList, CorruptCallsignTableTextFailsTheDetail)
{
    const QByteArray out = encodedDetails({ElementDetails()});
    const int at = out.lastIndexOf(bytes("0457"));
    ASSERT_GT(at, 0);
    QByteArray corrupt = out.left(at);
    {
        QByteArray frame;
        sigdb::ColumnWriter writer(frame);
        writer.writeTextField(1111, QByteArray("#%#%net:4:0")); // the network's type is no number
        writer.finish();
        corrupt += frame;
    }
    ElementDetailsList back;
    EXPECT_FALSE(decode(corrupt, back));
}

// Reads a list one detail at a time and rebuilds it from what arrives, as a caller that does not
// want to hold the list would see it.
namespace {
bool decodeEach(const QByteArray &data, ElementDetailsList &list, int stopAfter = -1)
{
    list.setIDs(0);
    sigdb::ColumnReader reader(data);
    int taken = 0;
    return list.readEach(reader, [&list, &taken, stopAfter](ElementDetails &details, const QByteArray &tableText) {
        EXPECT_TRUE(details.callsignTable() == sigdb::CallsignTable()) << "the table comes as its text";
        if (!details.callsignTable().fromUtf8Text(tableText))
            return false;
        list.appendDetails(details);
        return ++taken != stopAfter;
    });
}
} // namespace

TEST(ElementDetailsList, ReadOneByOneGivesWhatReadingTheListGives)
{
    ElementDetailsList list;
    list.listNumber() = 7;
    list.appendDetails(newUnit());
    list.appendDetails(ElementDetails());
    list.appendDetails(newUnit());
    QByteArray out;
    list.serialize(out);

    ElementDetailsList whole;
    ASSERT_TRUE(decode(out, whole));
    ElementDetailsList oneByOne;
    ASSERT_TRUE(decodeEach(out, oneByOne));
    EXPECT_TRUE(oneByOne == whole);
    EXPECT_EQ(oneByOne.listNumber().getData(), 7);
    ASSERT_EQ(oneByOne.count(), 3);
    EXPECT_EQ(oneByOne.container()[2].callsignTable().connections.container()[0].name().getData(), "link | one");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(oneByOne.container()[static_cast<size_t>(i)].str(5).getID(),
                  whole.container()[static_cast<size_t>(i)].str(5).getID())
            << "numbered as the list numbers them";
    }

    ElementDetailsList stopped;
    EXPECT_FALSE(decodeEach(out, stopped, 2)) << "the receiver can stop the reading";
    EXPECT_EQ(stopped.count(), 2);
}

TEST(ElementDetailsList, ReadOneByOneFailsWhereReadingTheListFails)
{
    const QByteArray out = encodedDetails({newUnit()});
    for (int length = 0; length < out.size(); ++length) {
        ElementDetailsList whole;
        ElementDetailsList oneByOne;
        EXPECT_EQ(decodeEach(out.left(length), oneByOne), decode(out.left(length), whole)) << "length " << length;
        EXPECT_TRUE(oneByOne == whole) << "length " << length;
    }
    ElementDetailsList huge;
    EXPECT_FALSE(decodeEach(bytes("0001 0001 00  0001 0008 4000000000000000"), huge));
}

// The typical road of a client: a new element with full details goes out with createElement,
// the server reads the order back, and answers with the new element's overview.
TEST(ElementDetailsList, CreateElementEndToEnd)
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    Recorder recorder;

    ElementDetailsList list;
    list.appendDetails(newUnit());
    EXPECT_EQ(requests.createElement(list, &recorder), 1);
    const sigdb::Order order = queue.takeFirst();
    EXPECT_EQ(order.orderType, 5005);

    ElementDetailsList received;
    ASSERT_TRUE(decode(order.data, received));
    EXPECT_TRUE(received == list);

    sigdb::ElementOverview created;
    created.element = received.container()[0];
    created.element.setTID(4242);
    created.keyText1 = received.container()[0].str(5);
    created.modificationState = sigdb::Modification_NewInMdl;
    QByteArray answer;
    created.serialize(answer);
    EXPECT_TRUE(sigdb::OrderQueue::deliverAnswer(order, 5005, answer));
    ASSERT_EQ(recorder.created.size(), 1u);
    EXPECT_TRUE(recorder.created[0] == created);
    EXPECT_EQ(recorder.created[0].element.TID(), 4242u);
    EXPECT_TRUE(recorder.errors.empty());
}

TEST(ElementDetailsList, DispatchedAsAnswer5004)
{
    Recorder recorder;
    ElementDetailsList list;
    list.appendDetails(newUnit());
    QByteArray answer;
    list.serialize(answer);
    EXPECT_TRUE(recorder.deliverRawData(5004, answer));
    ASSERT_EQ(recorder.detailLists.size(), 1u);
    EXPECT_TRUE(recorder.detailLists[0] == list);

    EXPECT_TRUE(recorder.deliverRawData(5004, answer.left(answer.size() / 2)));
    EXPECT_EQ(recorder.errors, std::vector<std::string>{"deserialize ElementDetailsList  failed"});
}

TEST(ElementDetailsList, LoopbackCreatesStoresAndAnswers)
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    sigdb::Loopback server(queue);
    Recorder recorder;

    ElementDetailsList list;
    ElementDetails unit = newUnit();
    unit.setExchgId(base::DbDataType<std::string>());
    list.appendDetails(unit);
    requests.createElement(list, &recorder);
    server.processPendingOrders();
    ASSERT_EQ(recorder.created.size(), 1u);
    const sigdb::SigdbElement created = recorder.created[0].element;
    EXPECT_FALSE(created.isTIDundefined());
    EXPECT_EQ(created.exchgId().getData(), "UNI-" + std::to_string(created.TID()));
    EXPECT_EQ(recorder.created[0].keyText1.getData(), "ALPHA");

    sigdb::ElementList wanted;
    wanted.appendEntry(created);
    requests.getElementDetailList(wanted, &recorder);
    server.processPendingOrders();
    ASSERT_EQ(recorder.detailLists.size(), 1u);
    ASSERT_EQ(recorder.detailLists[0].count(), 1);
    EXPECT_EQ(recorder.detailLists[0].container()[0].str(17).getData(), "alpha unit");
    EXPECT_TRUE(recorder.detailLists[0].container()[0].callsignTable() == unit.callsignTable());
}

TEST(ElementDetailsList, ListOperations)
{
    ElementDetailsList list;
    list.appendDetails(newUnit());
    ElementDetailsList other;
    other.listNumber() = 3;
    other.appendDetails(ElementDetails());
    list.appendDetailsList(other);
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.listNumber().getData(), 0);
    EXPECT_EQ(list.getFirstDetail()->type(), 1);
    EXPECT_EQ(list.getNextDetail()->type(), 0);
    EXPECT_EQ(list.getNextDetail(), nullptr);
    list.setApprove(true);
    EXPECT_TRUE(list.container()[1].approve());
    list.clear();
    EXPECT_EQ(list.count(), 0);
}
