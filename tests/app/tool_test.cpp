// Runs the sigdbref tool as a user would: bytes produced by the library go in, JSON comes out.

#include "auxiliary/plotentry.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "link/linkchangedefinition.h"
#include "middleware/inforecords.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"
#include "network/callsigntable.h"
#include "query/queryrequest.h"

#include "testsupport.h"
#include "toolrun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtEndian>

#include <gtest/gtest.h>

#include <functional>

namespace {

sigdb::ElementOverview sampleOverview()
{
    sigdb::ElementOverview overview;
    overview.element.setType(1);
    overview.element.setTID(4711);
    overview.keyText1 = std::string("ALPHA");
    overview.modificationState = sigdb::Modification_ChangedInMdl;
    return overview;
}

// One record the tool must read back: the arguments that select it, its bytes, and a check
// of the decoded JSON value.
struct RecordCase
{
    const char *name;
    QStringList arguments;
    std::function<QByteArray()> bytes;
    std::function<void(const QJsonValue &)> check;
};

std::vector<RecordCase> recordCases()
{
    const auto overviewCheck = [](const QJsonValue &value) {
        EXPECT_EQ(value[QStringLiteral("element")][QStringLiteral("tid")].toInt(), 4711);
        EXPECT_EQ(value[QStringLiteral("keyText1")].toString(), QStringLiteral("ALPHA"));
        EXPECT_EQ(value[QStringLiteral("modificationState")].toInt(), 3);
        EXPECT_TRUE(value[QStringLiteral("orderNumber")].isNull());
    };
    const auto elementBytes = [] {
        sigdb::SigdbElement element;
        element.setType(4);
        element.setTID(12);
        return encoded(element);
    };
    const auto elementCheck = [](const QJsonValue &value) {
        EXPECT_EQ(value[QStringLiteral("type")].toInt(), 4);
        EXPECT_EQ(value[QStringLiteral("tid")].toInt(), 12);
    };
    const auto listBytes = [] {
        sigdb::ElementOverviewList list;
        list.appendResult(sampleOverview(), false);
        list.appendResultList(sigdb::ElementOverviewList());
        return encoded(list);
    };
    const auto listCheck = [overviewCheck](const QJsonValue &value) {
        ASSERT_EQ(value[QStringLiteral("results")].toArray().size(), 1);
        overviewCheck(value[QStringLiteral("results")][0]);
        EXPECT_EQ(value[QStringLiteral("subLists")].toArray().size(), 1);
        EXPECT_EQ(value[QStringLiteral("collocationModState")].toInt(), 1);
    };
    const auto plotBytes = [] {
        sigdb::PlotEntryList plots;
        sigdb::PlotEntry entry;
        entry.text = std::string("track 7");
        plots.appendEntry(entry);
        return encoded(plots);
    };
    const auto plotCheck = [](const QJsonValue &value) {
        EXPECT_EQ(value[QStringLiteral("entries")][0][QStringLiteral("text")].toString(),
                  QStringLiteral("track 7"));
        EXPECT_EQ(value[QStringLiteral("entries")][0][QStringLiteral("modificationState")].toInt(), 7);
    };
    const auto linkBytes = [] {
        sigdb::LinkChangeDefinition change;
        change.link1().setActionType(10);
        change.setModificationUser(std::string("someone"));
        return encoded(change);
    };
    const auto linkCheck = [](const QJsonValue &value) {
        EXPECT_EQ(value[QStringLiteral("modificationUser")].toString(), QStringLiteral("someone"));
        EXPECT_EQ(value[QStringLiteral("link1")][QStringLiteral("actionType")].toInt(), 10);
    };

    const auto detailsBytes = [] {
        sigdb::ElementDetailsList list;
        sigdb::ElementDetails unit;
        unit.setType(1);
        unit.str(5) = std::string("ALPHA");
        unit.collocationTID() = 77ULL;
        sigdb::CallsignSet set;
        sigdb::CallsignEntry entry;
        entry.firstCallsign = std::string("A|1");
        set.entries.appendEntry(entry);
        unit.callsignTable().sets.appendEntry(set);
        list.appendDetails(unit);
        return encoded(list);
    };
    const auto detailsCheck = [](const QJsonValue &value) {
        const QJsonValue detail = value[QStringLiteral("details")][0];
        EXPECT_EQ(detail[QStringLiteral("element")][QStringLiteral("type")].toInt(), 1);
        EXPECT_EQ(detail[QStringLiteral("collocationTID")].toInt(), 77);
        EXPECT_EQ(detail[QStringLiteral("callsignTable")][QStringLiteral("sets")][0][QStringLiteral("entries")][0][QStringLiteral("firstCallsign")].toString(),
                  QStringLiteral("A|1"));
        EXPECT_TRUE(detail[QStringLiteral("columns")].toArray().contains(QStringLiteral("ALPHA")));
    };

    return {
        {"Answer5004", args({"--order-type", "5004"}), detailsBytes, detailsCheck},
        {"Request5005", args({"--order-type", "5005", "--request"}), detailsBytes, detailsCheck},
        {"Request5006", args({"--order-type", "5006", "--request"}), detailsBytes, detailsCheck},
        {"Answer5001", args({"--order-type", "5001"}), [] { return encoded(sampleOverview()); }, overviewCheck},
        {"Answer5005", args({"--order-type", "5005"}), [] { return encoded(sampleOverview()); }, overviewCheck},
        {"Answer5006", args({"--order-type", "5006"}), [] { return encoded(sampleOverview()); }, overviewCheck},
        {"Answer5002", args({"--order-type", "5002"}), listBytes, listCheck},
        {"Answer5012", args({"--order-type", "5012"}), listBytes, listCheck},
        {"Answer5009", args({"--order-type", "5009"}), linkBytes, linkCheck},
        {"Answer5011", args({"--order-type", "5011"}), plotBytes, plotCheck},
        {"Request5001", args({"--order-type", "5001", "--request"}), elementBytes, elementCheck},
        {"Request5007", args({"--order-type", "5007", "--request"}), elementBytes, elementCheck},
        {"Request5008", args({"--order-type", "5008", "--request"}), elementBytes, elementCheck},
        {"Request5002", args({"--order-type", "5002", "--request"}),
         [] {
             sigdb::QueryRequest query;
             query.name() = std::string("AL*");
             query.name().setOrderBy(true);
             sigdb::QueryRequestList queries;
             queries.appendEntry(query);
             return encoded(queries);
         },
         [](const QJsonValue &value) {
             const QJsonValue name = value[QStringLiteral("requests")][0][QStringLiteral("columns")][QStringLiteral("name")];
             EXPECT_EQ(name[QStringLiteral("value")].toString(), QStringLiteral("AL*"));
             EXPECT_TRUE(name[QStringLiteral("orderBy")].toBool());
         }},
        {"Request5003", args({"--order-type", "5003", "--request"}),
         [] {
             sigdb::SigdbElementWithMaxCount request;
             request.setResultListMaxCount(25);
             return encoded(request);
         },
         [](const QJsonValue &value) { EXPECT_EQ(value[QStringLiteral("resultListMaxCount")].toInt(), 25); }},
        {"Request5004", args({"--order-type", "5004", "--request"}),
         [] {
             sigdb::ElementList list;
             sigdb::SigdbElement element;
             element.setType(5);
             element.setTID(9);
             list.appendEntry(element);
             return encoded(list);
         },
         [](const QJsonValue &value) { EXPECT_EQ(value[0][QStringLiteral("tid")].toInt(), 9); }},
        {"Request5009", args({"--order-type", "5009", "--request"}), linkBytes, linkCheck},
        {"Request5010", args({"--order-type", "5010", "--request"}), listBytes, listCheck},
        {"Request5011", args({"--order-type", "5011", "--request"}), plotBytes, plotCheck},
        {"RecordByName", args({"--record", "ElementOverview"}), [] { return encoded(sampleOverview()); }, overviewCheck},
    };
}

class InspectRecord : public testing::TestWithParam<RecordCase>
{
};

} // namespace

TEST_P(InspectRecord, PrintsTheDecodedRecordAsJson)
{
    const ToolRun run = runTool(QStringList{QStringLiteral("inspect")} + GetParam().arguments,
                                GetParam().bytes());
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    EXPECT_TRUE(json[QStringLiteral("ok")].toBool());
    GetParam().check(json[QStringLiteral("value")]);
}

TEST_P(InspectRecord, HexInputGivesTheSameOutput)
{
    const QByteArray bytes = GetParam().bytes();
    const ToolRun binary = runTool(QStringList{QStringLiteral("inspect")} + GetParam().arguments, bytes);
    const ToolRun hex = runTool(QStringList{QStringLiteral("inspect"), QStringLiteral("--hex")}
                                    + GetParam().arguments,
                                bytes.toHex(' ') + "\n");
    EXPECT_EQ(hex.exitCode, 0);
    EXPECT_EQ(hex.out, binary.out);
}

TEST_P(InspectRecord, EncodeGivesTheInspectedBytesBack)
{
    const QByteArray bytes = GetParam().bytes();
    const ToolRun inspect = runTool(QStringList{QStringLiteral("inspect")} + GetParam().arguments, bytes);
    ASSERT_EQ(inspect.exitCode, 0) << inspect.err.constData();
    const ToolRun encode = runTool({QStringLiteral("encode")}, inspect.out);
    ASSERT_EQ(encode.exitCode, 0) << encode.err.constData();
    EXPECT_EQ(encode.out.toHex(), bytes.toHex());
    const ToolRun hex = runTool({QStringLiteral("encode"), QStringLiteral("--hex")}, inspect.out);
    EXPECT_EQ(hex.out, bytes.toHex() + '\n');
}

TEST_P(InspectRecord, TruncatedInputFailsWithTheOffset)
{
    const QByteArray bytes = GetParam().bytes();
    const ToolRun run = runTool(QStringList{QStringLiteral("inspect")} + GetParam().arguments,
                                bytes.left(bytes.size() - 3));
    EXPECT_EQ(run.exitCode, 1);
    const QJsonObject json = run.json();
    EXPECT_FALSE(json[QStringLiteral("ok")].toBool());
    EXPECT_GE(json[QStringLiteral("offset")].toInt(), 0);
    EXPECT_TRUE(json.contains(QStringLiteral("decoded")));
    EXPECT_TRUE(run.err.contains("byte offset")) << run.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(AllRecords, InspectRecord, testing::ValuesIn(recordCases()),
                         [](const testing::TestParamInfo<RecordCase> &info) {
                             return std::string(info.param.name);
                         });

TEST(Tool, GarbageFailsCleanly)
{
    for (const char *orderType : {"5001", "5002", "5009", "5011", "5012"}) {
        const ToolRun run = runTool(args({"inspect", "--order-type", orderType}),
                                    QByteArray("\xff\xfe garbage \x00\x01", 14));
        EXPECT_EQ(run.exitCode, 1) << orderType;
        EXPECT_FALSE(run.json()[QStringLiteral("ok")].toBool());
    }
}

TEST(Tool, TrailingBytesAreReported)
{
    const ToolRun run = runTool(args({"inspect", "--order-type", "5001"}), encoded(sampleOverview()) + "xx");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("2 more bytes follow")) << run.err.toStdString();
}

TEST(Tool, RawColumnDissection)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--hex"}),
                                "00 09 00 03 00 00 00 03 41 42 00  00 04 00 08 00 00 00 00 00 00 03 e8  00 07 00 00");
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonArray items = run.json()[QStringLiteral("items")].toArray();
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items[0][QStringLiteral("tag")].toInt(), 9);
    EXPECT_EQ(items[0][QStringLiteral("value")][QStringLiteral("text")].toString(), QStringLiteral("AB"));
    EXPECT_EQ(items[1][QStringLiteral("value")][QStringLiteral("int64")].toString(), QStringLiteral("1000"));
    EXPECT_TRUE(items[2][QStringLiteral("value")].isNull());
}

TEST(Tool, RawColumnDissectionReportsTheOffsetOfACutFrame)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--hex"}), "00 04 00 08 00 00");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.json()[QStringLiteral("offset")].toInt(), 4);
}

TEST(Tool, RawPropertyDissectionFindsNestedRecordsAndStrings)
{
    // Block 0: qint32 2; block 1: the string "AB"; block 2: a nested record holding block 0.
    const ToolRun run = runTool(args({"inspect", "--raw", "property", "--hex"}),
                                "00000000 00000004 00000002"
                                "00000001 00000007 00000003 414200"
                                "00000002 00000010 0000000c 00000000 00000004 00000001");
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonArray items = run.json()[QStringLiteral("items")].toArray();
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items[0][QStringLiteral("value")][QStringLiteral("int32")].toInt(), 2);
    EXPECT_EQ(items[1][QStringLiteral("value")][QStringLiteral("string")].toString(), QStringLiteral("AB"));
    const QJsonArray nested = items[2][QStringLiteral("value")][QStringLiteral("record")].toArray();
    ASSERT_EQ(nested.size(), 1);
    EXPECT_EQ(nested[0][QStringLiteral("value")][QStringLiteral("int32")].toInt(), 1);
}

TEST(Tool, RawPropertyDissectionRejectsABlockLargerThanTheInput)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "property", "--hex"}), "00000000 7fffffff 00");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.json()[QStringLiteral("offset")].toInt(), 0);
}

TEST(Tool, UsageErrors)
{
    EXPECT_EQ(runTool(args({"inspect"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--order-type", "4999"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--record", "NoSuchRecord"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "neither"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--order-type", "5001", "--record", "ElementOverview"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"bogus"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--order-type", "5001", "/no/such/file"})).exitCode, 2);
}

TEST(Tool, HelpAndVersion)
{
    EXPECT_EQ(runTool(args({"--help"})).exitCode, 0);
    const ToolRun inspectHelp = runTool(args({"inspect", "--help"}));
    EXPECT_EQ(inspectHelp.exitCode, 0);
    EXPECT_TRUE(inspectHelp.out.contains("--order-type"));
    EXPECT_TRUE(inspectHelp.out.contains("ElementOverview"));
    EXPECT_EQ(runTool(args({"demo", "--help"})).exitCode, 0);
    EXPECT_TRUE(runTool(args({"--version"})).out.startsWith("sigdbref "));
}

TEST(Tool, NotHexFails)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--hex"}), "00 0g");
    EXPECT_EQ(run.exitCode, 1);
}

TEST(Tool, DemoRunsEveryStep)
{
    const ToolRun run = runTool(args({"demo"}));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    for (const char *step : {"== 1. version handshake", "-> callbackVersionInfoVector", "order 5005",
                             "answer 5005", "-> callbackElementCreated: Unit 1:1000:0", "order 5002",
                             "answer 5002", "-> callbackElementOverviewList: 2 result(s)", "order 5009",
                             "answer 5009", "-> callbackLinkChanged: action 10 by demo", "0 error(s)"})
        EXPECT_TRUE(run.out.contains(step)) << step << "\n" << run.out.toStdString();
}

namespace {

template <typename Record>
void expectMiddlewareRecordReadsBack(const char *name)
{
    Record record;
    record.setStoreType(base::StoreType_Transient);
    const ToolRun run = runTool(args({"inspect", "--record", name}), encoded(record));
    ASSERT_EQ(run.exitCode, 0) << name << ": " << run.err.toStdString();
    const QJsonObject json = run.json();
    EXPECT_EQ(json[QStringLiteral("direction")].toString(), QStringLiteral("middleware"));
    const QJsonObject value = json[QStringLiteral("value")].toObject();
    EXPECT_EQ(value[QStringLiteral("StoreType")].toInt(), 2) << name;
    EXPECT_EQ(QStringList(value.keys()).size(), Record::propertyNames().size()) << name;
    for (const QString &property : Record::propertyNames())
        EXPECT_TRUE(value.contains(property)) << name << " lacks " << property.toStdString();
}

} // namespace

TEST(ToolMiddleware, EveryRecordReadsBack)
{
    expectMiddlewareRecordReadsBack<sigdb::ProductVersion>("ProductVersion");
    expectMiddlewareRecordReadsBack<sigdb::InterfaceVersion>("InterfaceVersion");
    expectMiddlewareRecordReadsBack<sigdb::VersionInfo>("VersionInfo");
    expectMiddlewareRecordReadsBack<sigdb::ProductVersionVector>("ProductVersionVector");
    expectMiddlewareRecordReadsBack<sigdb::InterfaceVersionVector>("InterfaceVersionVector");
    expectMiddlewareRecordReadsBack<sigdb::VersionInfoVector>("VersionInfoVector");
    expectMiddlewareRecordReadsBack<sigdb::DbMaintenanceRequest>("DbMaintenanceRequest");
    expectMiddlewareRecordReadsBack<sigdb::DbMaintenanceAnswer>("DbMaintenanceAnswer");
    expectMiddlewareRecordReadsBack<sigdb::DbMaintenanceRequestVector>("DbMaintenanceRequestVector");
    expectMiddlewareRecordReadsBack<sigdb::DbMaintenanceAnswerVector>("DbMaintenanceAnswerVector");
    expectMiddlewareRecordReadsBack<sigdb::Message>("Message");
    expectMiddlewareRecordReadsBack<sigdb::MInfoAnswer>("MInfoAnswer");
    expectMiddlewareRecordReadsBack<sigdb::MInfoClientLogin>("MInfoClientLogin");
    expectMiddlewareRecordReadsBack<sigdb::MInfoMessage>("MInfoMessage");
    expectMiddlewareRecordReadsBack<sigdb::MInfoWarningLevel>("MInfoWarningLevel");
    expectMiddlewareRecordReadsBack<sigdb::CallbackMessage>("CallbackMessage");
    expectMiddlewareRecordReadsBack<sigdb::MessageVector>("MessageVector");
    expectMiddlewareRecordReadsBack<sigdb::MInfoAnswerVector>("MInfoAnswerVector");
    expectMiddlewareRecordReadsBack<sigdb::MInfoClientLoginVector>("MInfoClientLoginVector");
    expectMiddlewareRecordReadsBack<sigdb::MInfoMessageVector>("MInfoMessageVector");
    expectMiddlewareRecordReadsBack<sigdb::MInfoWarningLevelVector>("MInfoWarningLevelVector");
    expectMiddlewareRecordReadsBack<sigdb::CallbackMessageVector>("CallbackMessageVector");
    expectMiddlewareRecordReadsBack<sigdb::LockedElementData>("LockedElementData");
    expectMiddlewareRecordReadsBack<sigdb::LockedElementDataVector>("LockedElementDataVector");
    expectMiddlewareRecordReadsBack<sigdb::NameValuePair>("NameValuePair");
    expectMiddlewareRecordReadsBack<sigdb::NameValueDataForElement>("NameValueDataForElement");
    expectMiddlewareRecordReadsBack<sigdb::NameValuePairVector>("NameValuePairVector");
    expectMiddlewareRecordReadsBack<sigdb::NameValueDataForElementVector>("NameValueDataForElementVector");
}

TEST(ToolMiddleware, NestedRecordsAndValues)
{
    sigdb::VersionInfo info;
    info.getProductVersion().setOrigin("server");
    info.getProductVersion().setMajor(4);
    info.getRequiredInterfaceVersion().setMinor(2);
    sigdb::VersionInfoVector versions;
    versions.setVersionInfoVector({info, info});
    const ToolRun run = runTool(args({"inspect", "--record", "VersionInfoVector"}), encoded(versions));
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonArray entries = run.json()[QStringLiteral("value")].toObject()[QStringLiteral("VersionInfoVector")].toArray();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[1][QStringLiteral("ProductVersion")][QStringLiteral("Origin")].toString(), QStringLiteral("server"));
    EXPECT_EQ(entries[1][QStringLiteral("ProductVersion")][QStringLiteral("Major")].toInt(), 4);
    EXPECT_EQ(entries[0][QStringLiteral("RequiredInterfaceVersion")][QStringLiteral("Minor")].toInt(), 2);
}

TEST(ToolMiddleware, VectorEntriesBeyondTheMaximumAreCounted)
{
    sigdb::VersionInfo info;
    info.getProductVersion().setOrigin("server");
    sigdb::VersionInfoVector versions;
    versions.setVersionInfoVector(std::vector<sigdb::VersionInfo>(5, info));
    const ToolRun run = runTool(args({"inspect", "--record", "VersionInfoVector", "--max-items", "2"}), encoded(versions));
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    const QJsonObject value = json[QStringLiteral("value")].toObject();
    EXPECT_EQ(value[QStringLiteral("VersionInfoVector")].toArray().size(), 2);
    EXPECT_EQ(json[QStringLiteral("itemsLeftOut")].toInt(), 3);
    EXPECT_EQ(value.keys().first(), QStringLiteral("StoreType")) << "the fields are there around the cut";
    EXPECT_EQ(run.err, "note: 3 more items are left out (--max-items)\n");
}

TEST(ToolMiddleware, MissingPropertyNamesItAndTheBlock)
{
    // InterfaceVersion with StoreType and Minor but no Major.
    const ToolRun run = runTool(args({"inspect", "--record", "InterfaceVersion", "--hex"}),
                                "00000000 00000004 00000000  00000002 00000004 00000007");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("Missing property 'Major'")) << run.err.toStdString();
    EXPECT_EQ(run.json()[QStringLiteral("offset")].toInt(), 12);
    EXPECT_EQ(run.json()[QStringLiteral("decoded")].toObject()[QStringLiteral("StoreType")].toInt(), 0);
}

TEST(ToolMiddleware, CutCaptureFails)
{
    sigdb::NameValuePair pair;
    pair.setName("key");
    pair.setValue("value");
    const QByteArray bytes = encoded(pair);
    const ToolRun run = runTool(args({"inspect", "--record", "NameValuePair"}), bytes.left(bytes.size() - 2));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("cut short")) << run.err.toStdString();
    EXPECT_EQ(run.json()[QStringLiteral("decoded")].toObject()[QStringLiteral("Name")].toString(), QStringLiteral("key"));
}

// Inputs shaped to make a dissector or a decoder do too much: each must end quickly with a
// clear result. Their time and memory on large sizes are measured by tools/measure-tool.sh.
namespace {

QByteArray bigEndian32(qint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

// Levels of [L][L-4][len(V)][V][01] around an eight-byte value, in a block of property 0: every
// level looks like a nested record and like a vector of records at once.
QByteArray nestedLookalikes(int depth)
{
    QByteArray value = QByteArray::fromHex("0000000100000000");
    for (int level = 0; level < depth; ++level) {
        const qint32 size = value.size();
        value = bigEndian32(size + 5) + bigEndian32(size + 1) + bigEndian32(size) + value + QByteArray(1, '\1');
    }
    return bigEndian32(0) + bigEndian32(value.size()) + value;
}

// Blocks of an obsolete property (-1, skipped by size) and then a block of property 5.
QByteArray skippedBlocksThenAGap(int blocks)
{
    return QByteArray::fromHex("ffffffff00000000").repeated(blocks) + QByteArray::fromHex("0000000500000000");
}

} // namespace

TEST(ToolHostileInput, NestedLookalikesAreTakenApartOnce)
{
    const QByteArray bytes = nestedLookalikes(30);
    ASSERT_EQ(bytes.size(), 406);
    const ToolRun run = runTool(args({"inspect", "--raw", "property"}), bytes);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonArray items = run.json()[QStringLiteral("items")].toArray();
    ASSERT_EQ(items.size(), 1);
    // Its length (L = size - 8) is not that of a nested record, and its count L is more than
    // 398 bytes hold: the value is shown as it is.
    const QJsonObject value = items[0][QStringLiteral("value")].toObject();
    EXPECT_EQ(value.keys(), QStringList{QStringLiteral("hex")});
    EXPECT_TRUE(value[QStringLiteral("hex")].toString().startsWith(QStringLiteral("00 00 01 86 00 00 01 82")));
    EXPECT_EQ(value[QStringLiteral("hex")].toString().size(), 398 * 3 - 1);
}

TEST(ToolHostileInput, NestedLookalikesFailTheRecordAtTheirSecondBlock)
{
    const ToolRun run = runTool(args({"inspect", "--record", "ProductVersion"}), nestedLookalikes(30));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "error: ProductVersion did not decode: Received incomplete structure ProductVersion: "
                       "Missing property 'Origin' (in the block at byte offset 12)\n");
    EXPECT_EQ(run.json()[QStringLiteral("offset")].toInt(), 12);
}

TEST(ToolHostileInput, AFailureAfterManySkippedBlocksIsPlacedInTheLastBlock)
{
    const ToolRun run = runTool(args({"inspect", "--record", "ProductVersion"}), skippedBlocksThenAGap(10000));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "error: ProductVersion did not decode: Received incomplete structure ProductVersion: "
                       "Missing property 'StoreType' (in the block at byte offset 80000)\n");
    EXPECT_EQ(run.json()[QStringLiteral("offset")].toInt(), 80000);
}

TEST(ToolHostileInput, ZerosAreFramesBlocksAndARecord)
{
    const QByteArray zeros(64 * 1024, '\0');
    const ToolRun column = runTool(args({"inspect", "--raw", "column"}), zeros);
    EXPECT_EQ(column.exitCode, 0) << column.err.toStdString();
    EXPECT_EQ(column.json()[QStringLiteral("items")].toArray().size(), 16384);
    const ToolRun property = runTool(args({"inspect", "--raw", "property"}), zeros);
    EXPECT_EQ(property.exitCode, 0) << property.err.toStdString();
    EXPECT_EQ(property.json()[QStringLiteral("items")].toArray().size(), 8192);
    const ToolRun record = runTool(args({"inspect", "--record", "ProductVersion"}), zeros);
    EXPECT_EQ(record.exitCode, 0) << record.err.toStdString();
    EXPECT_EQ(record.json()[QStringLiteral("value")].toObject()[QStringLiteral("StoreType")].toInt(), 0);
}

TEST(ToolHostileInput, ItemsBeyondTheMaximumAreCounted)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--max-items", "3"}), QByteArray(64, '\0'));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    EXPECT_EQ(json[QStringLiteral("items")].toArray().size(), 3);
    EXPECT_EQ(json[QStringLiteral("itemsLeftOut")].toInt(), 13);
    EXPECT_EQ(run.err, "note: 13 more items are left out (--max-items)\n");
}

TEST(ToolHostileInput, ItemsBeyondTheMaximumInsideARecordLeaveAValidReport)
{
    // Block 0, then block 2 holding a record of two blocks: the maximum falls inside it.
    const ToolRun run = runTool(args({"inspect", "--raw", "property", "--hex", "--max-items", "2"}),
                                "00000000 00000004 00000002"
                                "00000002 0000001c 00000018 00000000 00000004 00000001 00000001 00000004 00000007");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    const QJsonArray items = json[QStringLiteral("items")].toArray();
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[1][QStringLiteral("value")][QStringLiteral("record")].toArray().size(), 0);
    EXPECT_EQ(json[QStringLiteral("itemsLeftOut")].toInt(), 2);
    EXPECT_TRUE(json[QStringLiteral("ok")].toBool());
}

namespace {

// A list of blank element details whose callsign tables travel as the texts given, one per
// detail: a detail's table is its last frame, one text frame under tag 1111.
QByteArray detailsWithTableTexts(const std::vector<QByteArray> &texts)
{
    const auto textFrame = [](const QByteArray &text) {
        QByteArray frame;
        sigdb::ColumnWriter writer(frame);
        writer.writeTextField(sigdb::ElementDetailsList::CallsignTableTag, text);
        writer.finish();
        return frame;
    };
    sigdb::ElementDetailsList list;
    for (size_t i = 0; i < texts.size(); ++i)
        list.appendDetails(sigdb::ElementDetails());
    const QByteArray blank = encoded(list);
    const QByteArray blankFrame = textFrame(sigdb::CallsignTable().toUtf8Text());
    QByteArray bytes;
    int from = 0;
    for (const QByteArray &text : texts) {
        const int at = blank.indexOf(blankFrame, from);
        bytes += blank.mid(from, at - from) + textFrame(text);
        from = at + blankFrame.size();
    }
    return bytes + blank.mid(from);
}

QByteArray separators(int count)
{
    return QByteArray("#$").repeated(count) + sigdb::CallsignTable().toUtf8Text();
}

} // namespace

TEST(ToolHostileInput, ACallsignTableTextOfSeparatorsIsOneConnectionPerPart)
{
    const QByteArray bytes = detailsWithTableTexts({separators(300)});
    const ToolRun all = runTool(args({"inspect", "--order-type", "5004", "--max-items", "all"}), bytes);
    ASSERT_EQ(all.exitCode, 0) << all.err.toStdString();
    EXPECT_TRUE(all.err.isEmpty());
    const QJsonValue value = all.json()[QStringLiteral("value")];
    const QJsonObject table = value[QStringLiteral("details")][0][QStringLiteral("callsignTable")].toObject();
    const QJsonArray connections = table[QStringLiteral("connections")].toArray();
    ASSERT_EQ(connections.size(), 301);
    EXPECT_TRUE(connections[300][QStringLiteral("connectionFlag")].isNull()) << "an empty part is all NULL";
    EXPECT_TRUE(connections[300][QStringLiteral("from")][QStringLiteral("overview")][QStringLiteral("keyText1")].isNull());
    EXPECT_EQ(table.keys(), (QStringList{QStringLiteral("connections"), QStringLiteral("overview"), QStringLiteral("sets")}));
}

TEST(ToolHostileInput, ConnectionsBeyondTheMaximumAreCountedAndTheReportStaysValid)
{
    const QByteArray bytes = detailsWithTableTexts({separators(5000)});
    const ToolRun run = runTool(args({"inspect", "--order-type", "5004", "--max-items", "30"}), bytes);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    ASSERT_FALSE(json.isEmpty()) << "a valid document";
    EXPECT_TRUE(json[QStringLiteral("ok")].toBool());
    const QJsonValue detail = json[QStringLiteral("value")][QStringLiteral("details")][0];
    const int shown = detail[QStringLiteral("callsignTable")][QStringLiteral("connections")].toArray().size();
    EXPECT_GT(shown, 0);
    EXPECT_LT(shown, 30);
    const int leftOut = json[QStringLiteral("itemsLeftOut")].toInt();
    EXPECT_EQ(leftOut, 5001 - shown) << "every connection not shown is counted";
    EXPECT_EQ(run.err, QByteArray("note: ") + QByteArray::number(leftOut) + " more items are left out (--max-items)\n");
    EXPECT_EQ(json[QStringLiteral("value")][QStringLiteral("listNumber")].toInt(), 0);
}

TEST(ToolHostileInput, TheDefaultMaximumOfItemsIsAHundredThousand)
{
    // 100,002 entries of one set: no connection, one set of empty entries.
    const QByteArray text = QByteArray("#%#\xEF\xBF\xBD#\xEF\xBF\xBD") + QByteArray("#~").repeated(100001) + "#%";
    const ToolRun run = runTool(args({"inspect", "--order-type", "5004"}), detailsWithTableTexts({text}));
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const int leftOut = run.json()[QStringLiteral("itemsLeftOut")].toInt();
    EXPECT_GT(leftOut, 0);
    EXPECT_LT(leftOut, 100);
    EXPECT_TRUE(run.err.startsWith("note: ")) << run.err.toStdString();
}

TEST(ToolHostileInput, AMalformedTableTextFailsItsDetailAndShowsTheOnesBefore)
{
    const QByteArray bytes = detailsWithTableTexts({separators(2), "#%#%net:4:0", separators(1)});
    const ToolRun run = runTool(args({"inspect", "--order-type", "5004"}), bytes);
    EXPECT_EQ(run.exitCode, 1);
    const QJsonObject json = run.json();
    EXPECT_FALSE(json[QStringLiteral("ok")].toBool());
    const QJsonArray decoded = json[QStringLiteral("decoded")][QStringLiteral("details")].toArray();
    ASSERT_EQ(decoded.size(), 1) << "as the library's decoder keeps it: the details before the failure";
    EXPECT_EQ(decoded[0][QStringLiteral("callsignTable")][QStringLiteral("connections")].toArray().size(), 3);
    const int end = json[QStringLiteral("offset")].toInt();
    EXPECT_GT(end, 0);
    EXPECT_LT(end, bytes.size());
    EXPECT_EQ(run.err, QStringLiteral("error: ElementDetailsList did not decode: the callsign table text of details[1], "
                                      "ending at byte offset %1, is malformed\n")
                           .arg(end)
                           .toUtf8());
}

TEST(ToolHostileInput, ADetailsListCutShortShowsTheDetailsBefore)
{
    const QByteArray bytes = detailsWithTableTexts({separators(1), separators(2)});
    const ToolRun run = runTool(args({"inspect", "--order-type", "5004"}), bytes.left(bytes.size() - 3));
    EXPECT_EQ(run.exitCode, 1);
    const QJsonValue decoded = run.json()[QStringLiteral("decoded")];
    EXPECT_EQ(decoded[QStringLiteral("details")].toArray().size(), 1);
    EXPECT_TRUE(run.err.startsWith("error: ElementDetailsList did not decode: the frame ending at byte offset"))
        << run.err.toStdString();
}

TEST(ToolHostileInput, NumbersBeyondSixtyFourBitsAreWrittenAsTheyAre)
{
    // Found by fuzzing: the eight bytes fcfcfcfc 00000300 read as a double are about -1.16e294,
    // far beyond any 64-bit integer; the writer of whole numbers must not take it for one.
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--hex"}),
                                "0001 0008 00000000 00000001 0001 0002 0002 0002 0002 0000 0001 0008 "
                                "fcfcfcfc 00000300 00");
    EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("\"double\": -1.1571171681291964e+294")) << run.out.toStdString();
    EXPECT_FALSE(run.json().isEmpty()) << "a valid document";
}

TEST(ToolHostileInput, InputBeyondTheMaximumIsRefused)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--max-input", "1K"}), QByteArray(1025, '\0'));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "inspect: the input is larger than the maximum of 1024 bytes (--max-input changes it)\n");
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--max-input", "1K"}), QByteArray(1024, '\0')).exitCode, 0);
}

TEST(ToolHostileInput, EndlessInputIsRefused)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "property", "--max-input", "1M", "/dev/zero"}));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "inspect: the input is larger than the maximum of 1048576 bytes (--max-input changes it)\n");
}

TEST(ToolHostileInput, MaximaMustBeSizes)
{
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--max-input", "lots"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--max-input", "2G"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--max-items", "-1"})).exitCode, 2);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--max-items", "some"})).exitCode, 2);
}

TEST(Tool, NoCommandPrintsTheUsage)
{
    const ToolRun run = runTool(QStringList());
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.startsWith("Usage: sigdbref <command> [options]")) << run.err.toStdString();
}

TEST(Tool, HexTakesPrefixesAndLineBreaks)
{
    const ToolRun run = runTool(args({"inspect", "--raw", "column", "--hex"}), "0x0007 0X0000\r\n\t0007\n00 00\n");
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.json()[QStringLiteral("size")].toInt(), 8);
    EXPECT_EQ(run.json()[QStringLiteral("items")].toArray().size(), 2);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--hex"}), "0000 0x 0000").exitCode, 0);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--hex"}), "000").exitCode, 1);
    EXPECT_EQ(runTool(args({"inspect", "--raw", "column", "--hex"}), "00x0").exitCode, 1);
}

TEST(ToolHostileInput, NestedRecordsAreTakenApartSixtyFourLevelsDeep)
{
    // Property 1 holding a record that holds property 1 ..., 70 levels, around property 0.
    QByteArray record = QByteArray::fromHex("00000000 00000004 00000007");
    for (int level = 0; level < 70; ++level)
        record = bigEndian32(1) + bigEndian32(record.size() + 4) + bigEndian32(record.size()) + record;
    const ToolRun run = runTool(args({"inspect", "--raw", "property"}), record);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonArray items = run.json()[QStringLiteral("items")].toArray();
    QJsonValue value = items.first()[QStringLiteral("value")];
    int levels = 0;
    while (value.toObject().contains(QStringLiteral("record"))) {
        ++levels;
        value = value[QStringLiteral("record")][0][QStringLiteral("value")];
    }
    EXPECT_EQ(levels, 64);
    EXPECT_EQ(value[QStringLiteral("tooDeep")].toString(),
              QStringLiteral("a record nested more than 64 levels deep, not taken apart"));
    EXPECT_TRUE(value.toObject().contains(QStringLiteral("hex")));
}

// Sub-lists nested one level deeper than a reader takes, as one overview list answer.
QByteArray overviewListsNested(int depth)
{
    sigdb::ElementOverviewList list;
    for (int level = 0; level < depth; ++level) {
        sigdb::ElementOverviewList outer;
        outer.appendResultList(list);
        list = outer;
    }
    return encoded(list);
}

TEST(ToolHostileInput, ColumnRecordsNestedTooDeepSaySo)
{
    const ToolRun deepest = runTool(args({"inspect", "--order-type", "5002"}), overviewListsNested(63));
    EXPECT_EQ(deepest.exitCode, 0) << deepest.err.toStdString();

    const ToolRun tooDeep = runTool(args({"inspect", "--order-type", "5002"}), overviewListsNested(64));
    EXPECT_EQ(tooDeep.exitCode, 1);
    EXPECT_TRUE(tooDeep.err.startsWith(
        "error: ElementOverviewList did not decode: its records nest too deep (more than 64 levels) at byte offset "))
        << tooDeep.err.toStdString();
}
