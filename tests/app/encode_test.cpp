// sigdbref encode: the JSON that inspect prints goes back to the very bytes it came from, and a
// document that does not describe a record is refused with the JSON path of its first problem.

#include "element/elementdetailslist.h"
#include "link/linkchangedefinition.h"
#include "middleware/inforecords.h"
#include "middleware/namevaluerecords.h"
#include "network/callsigntable.h"

#include "toolrun.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// An answer to getElementDetailList with values at the edges of what JSON holds: 64-bit ids
// beyond 2^53, doubles that are not finite, texts that are not UTF-8, an included detail on
// another layer than its parent, a network list with a sub-list and a callsign table whose
// connection carries dates, a user and both end overviews.
sigdb::ElementDetailsList edgeDetails()
{
    sigdb::ElementOverview member;
    member.element.setType(4);
    member.element.setTID((1ULL << 60) + 1);
    member.keyText1 = std::string("\xff\xfe raw");
    member.location.latitude = std::numeric_limits<double>::quiet_NaN();
    member.location.longitude = -std::numeric_limits<double>::infinity();
    member.location.validFrom = std::string("2024-02-29 23:59:59");
    member.auxiliaryTid = std::numeric_limits<unsigned long long>::max();
    for (const double degrees : {0.1 + 0.2, -0.0, 5e-324, std::numeric_limits<double>::max(), -123.456789012345678}) {
        sigdb::LocationEntry earlier;
        earlier.latitude = degrees;
        earlier.indication = sigdb::LocationIndication_Collocated;
        member.locationList.appendEntry(earlier);
    }
    sigdb::ElementOverviewList network;
    network.appendResult(member, false);
    sigdb::ElementOverviewList group;
    group.listText1 = std::string("group");
    network.appendResultList(group);

    sigdb::ConnectionEntry connection;
    connection.setType(sigdb::ConnectionEntry::ElementType);
    connection.setTID(31);
    connection.creationDate() = std::string("2020-01-01 00:00:00");
    connection.modificationDate() = std::string("2021-06-30 12:00:00");
    connection.setModificationUser(std::string("editor"));
    connection.name() = std::string("north link");
    connection.fromDefinition.element.setType(4);
    connection.fromDefinition.element.setTID(41);
    connection.fromDefinition.overview = member;
    connection.toDefinition.element.setType(4);
    connection.toDefinition.element.setTID(42);
    connection.toDefinition.rcs = true;
    connection.toDefinition.overview.keyText2 = std::string("far end");
    connection.secondNumber = -5;

    sigdb::ElementDetails unit;
    unit.setType(1);
    unit.setTID(7);
    unit.setLayer(2);
    unit.str(5) = std::string("ALPHA");
    sigdb::SigdbElementDetails included;
    included.setType(1);
    included.setLayer(3);
    unit.setIncludedDetails({included});
    unit.profileParameterSettings().setBoolVector({true, false, true});
    unit.profileParameterSettings().parameterSet() = 9007199254740993ULL;
    unit.collocationTID() = 77ULL;
    sigdb::ReferenceDocument document;
    document.documentText2 = std::string("manual");
    unit.referenceDocuments().appendEntry(document);
    unit.networkList() = network;
    unit.callsignTable().connections.appendEntry(connection);

    sigdb::ElementDetailsList list;
    list.appendDetails(unit);
    return list;
}

// A link change whose link elements carry users of their own besides the change's user.
sigdb::LinkChangeDefinition linkChangeWithOwnUsers()
{
    sigdb::LinkChangeDefinition change;
    change.link1().setActionType(10);
    change.setModificationUser(std::string("someone"));
    change.link1().fromElement().setModificationUser(std::string("first"));
    change.link2().toElement().setModificationUser(base::DbDataType<std::string>());
    return change;
}

QByteArray fromHex(const char *hex)
{
    return QByteArray::fromHex(QByteArray(hex).replace(' ', ""));
}

void expectRoundTrip(const QStringList &inspectArguments, const QByteArray &bytes)
{
    const ToolRun inspect = runTool(QStringList{QStringLiteral("inspect")} + inspectArguments, bytes);
    ASSERT_EQ(inspect.exitCode, 0) << inspect.err.constData();
    const ToolRun encode = runTool({QStringLiteral("encode")}, inspect.out);
    ASSERT_EQ(encode.exitCode, 0) << encode.err.constData();
    EXPECT_EQ(encode.out.toHex(), bytes.toHex());
}

} // namespace

TEST(Encode, ValuesAtTheEdgesComeBackByteForByte)
{
    expectRoundTrip(args({"--order-type", "5004"}), encoded(edgeDetails()));
}

TEST(Encode, InspectShowsEveryValueOfACallsignConnection)
{
    const ToolRun inspect = runTool(args({"inspect", "--order-type", "5004"}), encoded(edgeDetails()));
    const QJsonObject json = inspect.json();
    const QJsonValue detail = json[QStringLiteral("value")][QStringLiteral("details")][0];
    const QJsonValue connection = detail[QStringLiteral("callsignTable")][QStringLiteral("connections")][0];
    EXPECT_EQ(connection[QStringLiteral("creationDate")].toString(), QStringLiteral("2020-01-01 00:00:00"));
    EXPECT_EQ(connection[QStringLiteral("modificationDate")].toString(), QStringLiteral("2021-06-30 12:00:00"));
    EXPECT_EQ(connection[QStringLiteral("element")][QStringLiteral("modificationUser")].toString(),
              QStringLiteral("editor"));
    EXPECT_EQ(connection[QStringLiteral("to")][QStringLiteral("overview")][QStringLiteral("keyText2")].toString(),
              QStringLiteral("far end"));
    EXPECT_EQ(connection[QStringLiteral("from")][QStringLiteral("overview")][QStringLiteral("element")]
                        [QStringLiteral("tid")].toString(),
              QStringLiteral("1152921504606846977"));
    EXPECT_EQ(detail[QStringLiteral("networkList")][QStringLiteral("results")][0][QStringLiteral("keyText1")]
                    [QStringLiteral("hex")].toString(),
              QStringLiteral("fffe20726177"));
}

TEST(Encode, LinkChangeKeepsTheUsersItsBytesHold)
{
    expectRoundTrip(args({"--order-type", "5009", "--request"}), encoded(linkChangeWithOwnUsers()));
}

TEST(Encode, MiddlewareRecordsComeBackWithNullsNestingAndAnyBytes)
{
    sigdb::MInfoClientLogin login;
    login.setStoreType(base::StoreType_Transient);
    login.getClientUserName_T() = std::string("\xe9quipe");
    login.getClientMessagingRequest_T() = 4000000000U;
    login.setClientTeams({"red", "", "\xff"});
    sigdb::MInfoClientLoginVector logins;
    logins.setVector({login, sigdb::MInfoClientLogin()});
    expectRoundTrip(args({"--record", "MInfoClientLoginVector"}), encoded(logins));

    sigdb::NameValuePair pair;
    pair.setName("colour");
    pair.setValue("blue");
    sigdb::NameValueDataForElement data;
    data.setElementType(4);
    data.setElementExchgId("X-1");
    data.setVector({pair, pair});
    sigdb::NameValueDataForElementVector all;
    all.setVector({data});
    expectRoundTrip(args({"--record", "NameValueDataForElementVector"}), encoded(all));
}

TEST(Encode, RawColumnFramesComeBack)
{
    // A text, a non-UTF-8 text, a 64-bit number, a one-byte and a two-byte value, a NULL.
    expectRoundTrip(args({"--raw", "column"}),
                    fromHex("0009 0003 00000003 414200  000a 0003 00000003 ff4100  0004 0008 00000000000003e8"
                            "0005 0001 7f  0006 0002 0001  0007 0000"));
}

TEST(Encode, RawPropertyBlocksComeBack)
{
    // A number, a string, a nested record, a vector of strings and a vector of records.
    expectRoundTrip(args({"--raw", "property"}),
                    fromHex("00000000 00000004 00000002"
                            "00000001 00000007 00000003 414200"
                            "00000002 00000010 0000000c 00000000 00000004 00000001"
                            "00000003 00000010 00000002 00000002 4100 00000002 4200"
                            "00000004 00000014 00000001 0000000c 00000000 00000004 00000009"));
}

TEST(Encode, AnEditedRawTextGetsItsSizesRight)
{
    const ToolRun inspect = runTool(args({"inspect", "--raw", "column"}), fromHex("0009 0003 00000003 414200"));
    const ToolRun encode = runTool(args({"encode", "--hex"}), QByteArray(inspect.out).replace("\"AB\"", "\"ABCD\""));
    ASSERT_EQ(encode.exitCode, 0) << encode.err.constData();
    EXPECT_EQ(encode.out, "00090005000000054142434400\n");
}

TEST(Encode, AnEditedFieldChangesOnlyItsBytes)
{
    // The README's example: one field of a captured answer edited in its JSON.
    sigdb::ElementOverview overview;
    overview.element.setType(1);
    overview.element.setTID(4711);
    overview.keyText1 = std::string("ALPHA");
    const ToolRun inspect = runTool(args({"inspect", "--order-type", "5001"}), encoded(overview));
    const QByteArray edited = QByteArray(inspect.out).replace("\"keyText1\": \"ALPHA\"", "\"keyText1\": \"BRAVO\"");
    ASSERT_NE(edited, inspect.out);
    const ToolRun encode = runTool(args({"encode", "--hex"}), edited);
    ASSERT_EQ(encode.exitCode, 0) << encode.err.constData();
    overview.keyText1 = std::string("BRAVO");
    EXPECT_EQ(encode.out, encoded(overview).toHex() + '\n');
}

// One malformed document per row, after a control row that must encode.
struct BadDocument
{
    const char *name;
    QByteArray document;
    const char *error;
};

class EncodeRefuses : public testing::TestWithParam<BadDocument>
{
};

TEST_P(EncodeRefuses, NamesThePathOfTheFirstProblem)
{
    const ToolRun run = runTool({QStringLiteral("encode")}, GetParam().document);
    if (!*GetParam().error) {
        EXPECT_EQ(run.exitCode, 0) << run.err.constData();
        return;
    }
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out, QByteArray());
    EXPECT_EQ(run.err, QByteArray("encode: ") + GetParam().error + '\n');
}

const char kElement[] = R"({"type": 4, "subType": 0, "tid": 12, "approvalType": 0, "apvState": 0,
    "changeType": 0, "layer": 0, "exchgId": null, "modificationUser": null})";

QByteArray elementDocument(const QByteArray &element)
{
    return R"({"record": "SigdbElement", "direction": "request", "orderType": 5001, "value": )" + element + "}";
}

INSTANTIATE_TEST_SUITE_P(
    Documents, EncodeRefuses,
    testing::Values(
        BadDocument{"Control", elementDocument(kElement), ""},
        BadDocument{"NotJson", "{\"record\": ", "not a JSON document: unterminated object at byte offset 11"},
        BadDocument{"NotAnObject", "[1]", "expected an object"},
        BadDocument{"MissingRecord", R"({"direction": "request", "value": {}})", "record: missing field"},
        BadDocument{"UnknownRecord", R"({"record": "Gadget", "direction": "request", "value": {}})",
                    "record: no request record is called Gadget"},
        BadDocument{"WrongDirection", R"({"record": "ElementOverview", "direction": "request", "value": {}})",
                    "record: no request record is called ElementOverview"},
        BadDocument{"WrongOrderType",
                    R"({"record": "SigdbElement", "direction": "request", "orderType": 5002, "value": {}})",
                    "orderType: SigdbElement does not travel under order type 5002"},
        BadDocument{"UnknownDocumentField", R"({"record": "SigdbElement", "direction": "request", "extra": 1})",
                    "extra: unknown field"},
        BadDocument{"MissingValue", R"({"record": "SigdbElement", "direction": "request"})", "value: missing field"},
        BadDocument{"WrongType", elementDocument(QByteArray(kElement).replace("\"tid\": 12", "\"tid\": \"twelve\"")),
                    "value.tid: expected an unsigned 64-bit number"},
        BadDocument{"OutOfRange", elementDocument(QByteArray(kElement).replace("\"type\": 4", "\"type\": 4294967296")),
                    "value.type: expected a 32-bit integer"},
        BadDocument{"NegativeId", elementDocument(QByteArray(kElement).replace("\"tid\": 12", "\"tid\": -1")),
                    "value.tid: expected an unsigned 64-bit number"},
        BadDocument{"UnknownField", elementDocument(QByteArray(kElement).replace("\"layer\"", "\"layers\"")),
                    "value.layers: unknown field"},
        BadDocument{"MissingField", elementDocument(QByteArray(kElement).replace("\"layer\": 0,", "")),
                    "value.layer: missing field"},
        BadDocument{"NotHexText", elementDocument(QByteArray(kElement).replace("\"exchgId\": null", "\"exchgId\": {\"hex\": \"4\"}")),
                    "value.exchgId.hex: expected pairs of hex digits"},
        BadDocument{"RawFormat", R"({"format": "frames", "items": []})", "format: expected \"column\" or \"property\""},
        BadDocument{"RawValue", R"({"format": "column", "items": [{"offset": 0, "tag": 1, "size": 1, "value": {"int8": 1}}]})",
                    "items[0].value: expected one of text, string, record, vector or hex"},
        BadDocument{"RawTag", R"({"format": "column", "items": [{"offset": 0, "tag": 40000, "size": 0, "value": null}]})",
                    "items[0].tag: out of range"},
        BadDocument{"DeepPath",
                    R"({"record": "ElementOverviewList", "direction": "answer", "value": {"results": [{}]}})",
                    "value.parentDefinition: missing field"}),
    [](const testing::TestParamInfo<BadDocument> &info) { return std::string(info.param.name); });

TEST(Encode, UsageErrors)
{
    EXPECT_EQ(runTool(args({"encode", "--bogus"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"encode", "a", "b"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"encode", "/nonexistent/document.json"})).exitCode, 2);
}
