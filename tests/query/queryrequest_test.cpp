#include "query/queryrequest.h"

#include "client/refcallback.h"
#include "testsupport.h"

#include <QString>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>

using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdb::QueryRequest;
using sigdb::QueryRequestList;
using sigdb::RefDatatypeOrder;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

// ---------------------------------------------------------------------------------------------
// Hand-derived pieces of the encoding. A list numbered with setIDs(0) gives its columns the ids
// 1 (request type), 2, 3 (texts) and 4 (query id); every entry is numbered from 4: the element
// part takes 5 to 7 (TID, exchange id, modification user), the details template 8 to 14 (the
// same three, then removed flag, creation and modification date, name), the flag column 15 and
// the query columns 16 to 73.

// List columns of a default list: query id (tag 4), request type (1), name (2), owner (3), all
// NULL; then the client reference under tag 8 and the count under tag 5.
const char *const kDefaultListColumns = "00 04 00 00"
                                        "00 01 00 00"
                                        "00 02 00 00"
                                        "00 03 00 00"
                                        "00 08 00 08 00 00 00 00 00 00 00 00";
const char *const kCountZero = "00 05 00 08 00 00 00 00 00 00 00 00";
const char *const kCountOne = "00 05 00 08 00 00 00 00 00 00 00 01";
const char *const kCountTwo = "00 05 00 08 00 00 00 00 00 00 00 02";

// The element with paging of a default entry.
const char *const kDefaultPagedElement = "00 01 00 02 00 00"  // type 0
                                         "00 02 00 02 00 00"  // sub-type 0
                                         "00 05 00 00"        // TID (id 5), NULL
                                         "00 04 00 02 00 00"  // approval action 0
                                         "00 05 00 02 00 00"  // approval state 0
                                         "00 06 00 02 00 00"  // change kind 0
                                         "00 07 00 02 00 00"  // layer 0
                                         "00 06 00 00"        // exchange id (id 6), NULL
                                         "00 07 00 00"        // modification user (id 7), NULL
                                         "00 03 00 08 00 00 00 00 00 00 00 00"  // start index 0
                                         "00 04 00 08 00 00 00 00 00 00 03 E8"  // maximum count 1000
                                         "00 05 00 02 00 00"; // list type 0

// The details template of a default entry.
const char *const kDefaultDetails = "00 01 00 02 00 00"  // type 0
                                    "00 02 00 02 00 00"  // sub-type 0
                                    "00 08 00 00"        // TID (id 8), NULL
                                    "00 04 00 02 00 00"  // approval action
                                    "00 05 00 02 00 00"  // approval state
                                    "00 06 00 02 00 00"  // change kind
                                    "00 07 00 02 00 00"  // layer
                                    "00 09 00 00"        // exchange id (id 9), NULL
                                    "00 0A 00 00"        // modification user (id 10), NULL
                                    "11 1E 00 02 00 00"  // 4382: no column texts
                                    "10 65 00 02 00 00"  // 4197: no included details
                                    "12 67 00 02 00 00"  // 4711: no profile flags
                                    "12 69 00 01 00"     // 4713: settings not valid
                                    "12 68 00 00";       // 4712: parameter set, NULL

// The flag column of a default entry (id 15), NULL.
const char *const kDefaultFlagColumn = "00 0F 00 00";

/// The tag \a id as hex, for the 58 query columns whose ids run from 16 to 73.
std::string tag(int id)
{
    return QString::asprintf("%02X %02X ", (id >> 8) & 0xFF, id & 0xFF).toStdString();
}

/// The query columns of a default entry: per column a NULL value frame and the flag frame "e".
std::string defaultQueryColumns()
{
    std::string columns;
    for (int id = 16; id <= 73; ++id)
        columns += tag(id) + "00 00 " + tag(id) + "00 02 00 65 ";
    return columns;
}

std::string defaultEntry()
{
    return std::string(kDefaultPagedElement) + kDefaultDetails + kDefaultFlagColumn
        + defaultQueryColumns();
}

QByteArray serialized(const QueryRequestList &list)
{
    QByteArray out;
    list.serialize(out);
    return out;
}

/// A list as the dispatcher would decode it: numbered from 0, then read.
bool decode(const QByteArray &data, QueryRequestList &list)
{
    list.setIDs(0);
    ColumnReader reader(data);
    return list.readFrom(reader) && reader.atEnd();
}

// The kinds of the query columns, as runs of one kind.
enum class Kind { Text, Bool, Char, Int, Double };
struct KindRun
{
    Kind kind;
    int count;
};
const KindRun kRuns[] = {
    {Kind::Text, 3},   {Kind::Bool, 1},   {Kind::Text, 3},   {Kind::Bool, 1},   {Kind::Text, 5},
    {Kind::Char, 4},   {Kind::Text, 1},   {Kind::Int, 2},    {Kind::Text, 1},   {Kind::Double, 4},
    {Kind::Text, 5},   {Kind::Bool, 3},   {Kind::Text, 3},   {Kind::Bool, 1},   {Kind::Double, 8},
    {Kind::Text, 3},   {Kind::Bool, 3},   {Kind::Double, 4}, {Kind::Bool, 3},
};

/// Gives every query column a value of its kind and the flags "b" (sorted, descending).
void fillEveryColumn(QueryRequest &request)
{
    std::apply(
        [](auto &...column) {
            auto fill = [](auto &c) {
                using Value = std::decay_t<decltype(c.getData())>;
                if constexpr (std::is_same<Value, std::string>::value)
                    c = std::string("x");
                else if constexpr (std::is_same<Value, bool>::value)
                    c = true;
                else if constexpr (std::is_same<Value, char>::value)
                    c = 'q';
                else if constexpr (std::is_same<Value, int>::value)
                    c = 7;
                else
                    c = 0.5;
                c.setOrderBy(true);
                c.setAscending(false);
            };
            (fill(column), ...);
        },
        request.columns());
}

/// The value frame (without tag) that fillEveryColumn() gives a column of \a kind.
const char *filledValue(Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return "00 02 00 00 00 02 78 00 ";
    case Kind::Bool:
        return "00 02 00 01 ";
    case Kind::Char:
        return "00 02 00 71 ";
    case Kind::Int:
        return "00 08 00 00 00 00 00 00 00 07 ";
    case Kind::Double:
        return "00 08 3F E0 00 00 00 00 00 00 ";
    }
    return "";
}

// ---------------------------------------------------------------------------------------------
// Column table

TEST(QueryColumns, CountsAndKinds)
{
    EXPECT_EQ(sigdb::QueryColumnCount, 58);
    EXPECT_EQ(std::tuple_size<sigdb::QueryColumns>::value, 58u);
    int total = 0;
    for (const KindRun &run : kRuns)
        total += run.count;
    EXPECT_EQ(total, 58);
}

TEST(QueryColumns, NamedAccessorsStandForTheirPositions)
{
    QueryRequest request;
    EXPECT_EQ(&request.identifier(), &std::get<0>(request.columns()));
    EXPECT_EQ(&request.includeRemoved(), &std::get<3>(request.columns()));
    EXPECT_EQ(&request.statusCode(), &std::get<13>(request.columns()));
    EXPECT_EQ(&request.elementType(), &std::get<18>(request.columns()));
    EXPECT_EQ(&request.frequencyMin(), &std::get<21>(request.columns()));
    EXPECT_EQ(&request.latitudeMin(), &std::get<37>(request.columns()));
    EXPECT_EQ(&request.includeCollocationGroups(), &std::get<57>(request.columns()));
    EXPECT_EQ(&request.column<21>(), &request.frequencyMin());

    static_assert(std::is_same<decltype(request.name()), RefDatatypeOrder<std::string> &>::value, "");
    static_assert(std::is_same<decltype(request.releasabilityCode()), RefDatatypeOrder<char> &>::value, "");
    static_assert(std::is_same<decltype(request.dataLayer()), RefDatatypeOrder<int> &>::value, "");
    static_assert(std::is_same<decltype(request.scanPeriodMax()), RefDatatypeOrder<double> &>::value, "");
    static_assert(std::is_same<decltype(request.isEncrypted()), RefDatatypeOrder<bool> &>::value, "");
}

TEST(QueryColumns, NamesByPosition)
{
    EXPECT_STREQ(QueryRequest::columnName(0), "identifier");
    EXPECT_STREQ(QueryRequest::columnName(21), "frequencyMin");
    EXPECT_STREQ(QueryRequest::columnName(57), "includeCollocationGroups");
    EXPECT_EQ(QueryRequest::columnName(58), nullptr);
    EXPECT_EQ(QueryRequest::columnName(-1), nullptr);
}

TEST(QueryColumns, KindsTravelInTheirRunOrder)
{
    QueryRequestList list;
    QueryRequest request;
    fillEveryColumn(request);
    list.appendEntry(request);

    std::string expected;
    int id = 16;
    for (const KindRun &run : kRuns) {
        for (int i = 0; i < run.count; ++i, ++id)
            expected += tag(id) + filledValue(run.kind) + tag(id) + "00 02 00 62 ";
    }
    const QByteArray columns = bytes(expected.c_str());
    const QByteArray encoded = serialized(list);
    ASSERT_GE(encoded.size(), columns.size());
    EXPECT_EQ(hex(encoded.right(columns.size())), hex(columns));
}

// ---------------------------------------------------------------------------------------------
// Numbering

TEST(QueryRequest, SetIdsNumbersElementDetailsFlagAndColumns)
{
    QueryRequest request;
    EXPECT_EQ(request.setIDs(0), 69);
    EXPECT_EQ(request.element().tid().getID(), 1);
    EXPECT_EQ(request.element().modificationUser().getID(), 3);
    EXPECT_EQ(request.detailsTemplate().tid().getID(), 4);
    EXPECT_EQ(request.detailsTemplate().name().getID(), 10);
    EXPECT_EQ(request.exactMatch().getID(), 11);
    EXPECT_EQ(request.identifier().getID(), 12);
    EXPECT_EQ(request.includeCollocationGroups().getID(), 69);

    EXPECT_EQ(request.setIDs(100), 169);
    EXPECT_EQ(request.exactMatch().getID(), 111);
}

TEST(QueryRequestList, SetIdsNumbersEveryEntryFromTheSameStart)
{
    QueryRequestList list;
    list.appendEntry(QueryRequest());
    list.appendEntry(QueryRequest());
    EXPECT_EQ(list.setIDs(10), 14);
    EXPECT_EQ(list.startID(), 14);
    EXPECT_EQ(list.requestType().getID(), 11);
    EXPECT_EQ(list.queryName().getID(), 12);
    EXPECT_EQ(list.queryOwner().getID(), 13);
    EXPECT_EQ(list.queryId().getID(), 14);
    list.setIteratorToStart();
    for (int i = 0; i < 2; ++i) {
        SCOPED_TRACE(i);
        QueryRequest *entry = list.getNextEntry();
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->element().tid().getID(), 15);
        EXPECT_EQ(entry->exactMatch().getID(), 25);
        EXPECT_EQ(entry->identifier().getID(), 26);
        EXPECT_EQ(entry->includeCollocationGroups().getID(), 83);
    }
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TEST(QueryRequestList, SetIdsResultDoesNotDependOnEntries)
{
    QueryRequestList empty;
    QueryRequestList full;
    full.appendEntry(QueryRequest());
    EXPECT_EQ(empty.setIDs(0), full.setIDs(0));
}

// ---------------------------------------------------------------------------------------------
// Encoding

TEST(QueryRequestList, DefaultEmptyListBytes)
{
    const QueryRequestList list;
    const QByteArray expected = bytes((std::string(kDefaultListColumns) + kCountZero).c_str());
    EXPECT_EQ(hex(serialized(list)), hex(expected));
    EXPECT_EQ(expected.size(), 40);
}

TEST(QueryRequestList, OneDefaultEntryBytes)
{
    QueryRequestList list;
    list.appendEntry(QueryRequest());
    const QByteArray entry = bytes(defaultEntry().c_str());
    EXPECT_EQ(entry.size(), 78 + 75 + 4 + 58 * 10);
    const QByteArray expected = bytes((std::string(kDefaultListColumns) + kCountOne).c_str()) + entry;
    EXPECT_EQ(hex(serialized(list)), hex(expected));
}

TEST(QueryRequestList, EveryQueryColumnHasAFlagFrameHoldingE)
{
    QueryRequestList list;
    list.appendEntry(QueryRequest());
    const QByteArray encoded = serialized(list);
    // The last 58 * 10 bytes are the query columns: a NULL value frame, then the flag frame.
    const QByteArray columns = encoded.right(58 * 10);
    for (int i = 0; i < 58; ++i) {
        SCOPED_TRACE(i);
        const QByteArray pair = columns.mid(i * 10, 10);
        EXPECT_EQ(hex(pair.mid(2, 2)), "00 00");
        EXPECT_EQ(pair.left(2), pair.mid(4, 2)) << "both frames under the column's id";
        EXPECT_EQ(hex(pair.mid(6, 4)), "00 02 00 65");
    }
}

TEST(QueryRequestList, TwoIdenticalEntriesWriteIdenticalIds)
{
    QueryRequestList list;
    list.appendEntry(QueryRequest());
    list.appendEntry(QueryRequest());
    const QByteArray entry = bytes(defaultEntry().c_str());
    const QByteArray expected =
        bytes((std::string(kDefaultListColumns) + kCountTwo).c_str()) + entry + entry;
    EXPECT_EQ(hex(serialized(list)), hex(expected));
}

TEST(QueryRequestList, ListColumnsBytes)
{
    QueryRequestList list;
    list.queryId() = 0x0102ULL;
    list.requestType() = static_cast<sigdb::QueryRequest_Type>(3);
    list.queryName() = std::string("Q");
    list.setClientReference(-1);
    const QByteArray expected = bytes("00 04 00 08 00 00 00 00 00 00 01 02"
                                      "00 01 00 01 03"
                                      "00 02 00 02 00 00 00 02 51 00"
                                      "00 03 00 00"
                                      "00 08 00 08 FF FF FF FF FF FF FF FF"
                                      "00 05 00 08 00 00 00 00 00 00 00 00");
    EXPECT_EQ(hex(serialized(list)), hex(expected));
}

TEST(QueryRequestList, EntryWithValuesBytes)
{
    QueryRequestList list;
    QueryRequest request;
    request.element().setType(1);
    request.element().setTID(0x20);
    request.element().setStartIndex(50);
    request.element().setResultListMaxCount(25);
    request.exactMatch() = true;
    request.name() = std::string("AB");
    request.name().setOrderBy(true);
    request.name().setAscending(true);
    request.elementType() = 300;
    list.appendEntry(request);

    std::string expected = std::string(kDefaultListColumns) + kCountOne;
    expected += "00 01 00 02 00 01"                     // type 1
                "00 02 00 02 00 00"                     // sub-type
                "00 05 00 08 00 00 00 00 00 00 00 20"   // TID 0x20
                "00 04 00 02 00 00 00 05 00 02 00 00 00 06 00 02 00 00 00 07 00 02 00 00"
                "00 06 00 00 00 07 00 00"
                "00 03 00 08 00 00 00 00 00 00 00 32"   // start index 50
                "00 04 00 08 00 00 00 00 00 00 00 19"   // maximum count 25
                "00 05 00 02 00 00";
    expected += kDefaultDetails;
    expected += "00 0F 00 02 00 01 ";                   // flag column true
    for (int id = 16; id <= 73; ++id) {
        if (id == 17) // name: "AB", sorted ascending
            expected += "00 11 00 03 00 00 00 03 41 42 00 00 11 00 02 00 61 ";
        else if (id == 34) // element type 300, wide
            expected += "00 22 00 08 00 00 00 00 00 00 01 2C 00 22 00 02 00 65 ";
        else
            expected += tag(id) + "00 00 " + tag(id) + "00 02 00 65 ";
    }
    EXPECT_EQ(hex(serialized(list)), hex(bytes(expected.c_str())));
}

TEST(QueryRequestList, SerializeRenumbersFromZero)
{
    QueryRequestList list;
    list.appendEntry(QueryRequest());
    list.setIDs(40);
    const QByteArray encoded = serialized(list);
    EXPECT_EQ(list.queryId().getID(), 4);
    EXPECT_EQ(list.startID(), 4);
    EXPECT_EQ(hex(encoded.left(4)), "00 04 00 00");
}

// ---------------------------------------------------------------------------------------------
// Reading back

QueryRequestList sampleList()
{
    QueryRequestList list;
    list.queryId() = 99ULL;
    list.requestType() = static_cast<sigdb::QueryRequest_Type>(2);
    list.queryName() = std::string("weekly");
    list.queryOwner() = std::string("");
    list.setClientReference(1234567890123LL);

    QueryRequest first;
    first.element().setType(4);
    first.element().setTID(77);
    first.element().setResultListMaxCount(10);
    first.element().setRequestedListType(static_cast<sigdb::ElementList_Type>(2));
    first.detailsTemplate().setType(1);
    first.detailsTemplate().str(5) = std::string("ALPHA");
    first.exactMatch() = false;
    first.identifier() = std::string("ALPHA*");
    first.identifier().setOrderBy(true);
    first.frequencyMin() = 30.0e6;
    first.frequencyMax() = 88.0e6;
    first.frequencyMax().setAscending(true);
    first.statusCode() = 'A';
    first.dataLayer() = -3;
    first.isEncrypted() = false;
    list.appendEntry(first);

    QueryRequest second;
    fillEveryColumn(second);
    list.appendEntry(second);
    return list;
}

TEST(QueryRequestList, RoundTrip)
{
    QueryRequestList list = sampleList();
    QueryRequestList decoded;
    ASSERT_TRUE(decode(serialized(list), decoded));
    EXPECT_TRUE(decoded.compareList(list));
    EXPECT_EQ(decoded.clientReference(), 1234567890123LL);
    ASSERT_EQ(decoded.count(), 2);

    decoded.setIteratorToStart();
    list.setIteratorToStart();
    const QueryRequest *first = decoded.getNextEntry();
    const QueryRequest *original = list.getNextEntry();
    EXPECT_EQ(first->element().requestedListType(), 2);
    EXPECT_TRUE(first->detailsTemplate() == original->detailsTemplate());
    EXPECT_EQ(first->detailsTemplate().str(5).getData(), "ALPHA");
    EXPECT_EQ(first->frequencyMax().getData(), 88.0e6);
    EXPECT_TRUE(first->frequencyMax().ascending());
    EXPECT_FALSE(first->frequencyMax().orderBy());
    EXPECT_EQ(first->dataLayer().getData(), -3);
    EXPECT_TRUE(first->includeApproved().isNull());

    QByteArray again;
    decoded.serialize(again);
    EXPECT_EQ(hex(again), hex(serialized(list)));
}

TEST(QueryRequestList, ReadingClearsTheList)
{
    QueryRequestList decoded;
    decoded.appendEntry(QueryRequest());
    decoded.appendEntry(QueryRequest());
    ASSERT_TRUE(decode(bytes((std::string(kDefaultListColumns) + kCountZero).c_str()), decoded));
    EXPECT_EQ(decoded.count(), 0);
}

TEST(QueryRequestList, EveryTruncationFails)
{
    const QByteArray full = serialized(sampleList());
    for (int length = 0; length < full.size(); ++length) {
        SCOPED_TRACE(length);
        QueryRequestList decoded;
        EXPECT_FALSE(decode(full.left(length), decoded));
        EXPECT_LE(decoded.count(), 2);
    }
}

TEST(QueryRequestList, MalformedFrames)
{
    struct Row
    {
        const char *name;
        std::string bytes;
        bool ok;
    };
    const std::string header = kDefaultListColumns;
    const Row rows[] = {
        {"control", header + kCountOne + defaultEntry(), true},
        {"count of size 4", header + "00 05 00 04 00 00 00 01" + defaultEntry(), false},
        {"count under tag 6", header + "00 06 00 08 00 00 00 00 00 00 00 01" + defaultEntry(), false},
        {"client reference of size 2", "00 04 00 00 00 01 00 00 00 02 00 00 00 03 00 00"
                                       "00 08 00 02 00 00" + std::string(kCountZero), false},
        {"request type wide", "00 04 00 00 00 01 00 08 00 00 00 00 00 00 00 01 00 02 00 00 00 03 00 00"
                              "00 08 00 08 00 00 00 00 00 00 00 00" + std::string(kCountZero), false},
        {"count two, one entry", header + kCountTwo + defaultEntry(), false},
        {"negative count", header + "00 05 00 08 FF FF FF FF FF FF FF FF", true},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        QueryRequestList decoded;
        EXPECT_EQ(decode(bytes(row.bytes.c_str()), decoded), row.ok);
    }
}

TEST(QueryRequestList, HugeCountOnShortStreamFailsAtOnce)
{
    const std::string data = std::string(kDefaultListColumns) + "00 05 00 08 40 00 00 00 00 00 00 00"
        + defaultEntry();
    QueryRequestList decoded;
    EXPECT_FALSE(decode(bytes(data.c_str()), decoded));
    EXPECT_EQ(decoded.count(), 1) << "the entry that was there stays";
}

// ---------------------------------------------------------------------------------------------
// Equality

TEST(QueryRequest, DefaultsAreEqual)
{
    EXPECT_TRUE(QueryRequest() == QueryRequest());
}

TEST(QueryRequest, DetailsTemplateAndListTypeTakeNoPart)
{
    QueryRequest a;
    QueryRequest b;
    b.detailsTemplate().setType(1);
    b.detailsTemplate().str(5) = std::string("other");
    EXPECT_TRUE(a == b);

    QueryRequest c;
    c.element().setRequestedListType(static_cast<sigdb::ElementList_Type>(3));
    EXPECT_TRUE(a == c);
}

TEST(QueryRequest, EveryComparedPartMatters)
{
    const QueryRequest reference;
    QueryRequest element;
    element.element().setType(2);
    QueryRequest start;
    start.element().setStartIndex(1);
    QueryRequest maximum;
    maximum.element().setResultListMaxCount(5);
    QueryRequest flag;
    flag.exactMatch() = false;
    QueryRequest value;
    value.scanType() = std::string("circular");
    QueryRequest sort;
    sort.scanType().setOrderBy(true);
    QueryRequest direction;
    direction.includeCollocationGroups().setAscending(true);
    for (const QueryRequest *other : {&element, &start, &maximum, &flag, &value, &sort, &direction})
        EXPECT_FALSE(reference == *other);
}

TEST(QueryRequest, IdsTakeNoPart)
{
    QueryRequest a;
    QueryRequest b;
    a.setIDs(0);
    b.setIDs(500);
    EXPECT_TRUE(a == b);
}

TEST(QueryRequest, CopiesCompareEqual)
{
    QueryRequest request;
    fillEveryColumn(request);
    request.detailsTemplate().setType(2);
    const QueryRequest copy(request);
    EXPECT_TRUE(copy == request);
    QueryRequest assigned;
    assigned = request;
    EXPECT_TRUE(assigned == request);
    EXPECT_TRUE(assigned.detailsTemplate() == request.detailsTemplate());

    std::unique_ptr<base::DbBaseType> heap(QueryRequest().getCopy(&request));
    auto *typed = dynamic_cast<QueryRequest *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == request);
}

TEST(QueryRequest, ResetAndSerializeDoNothing)
{
    QueryRequest request;
    request.name() = std::string("kept");
    request.reset();
    EXPECT_EQ(request.name().getData(), "kept");
    QByteArray out("untouched");
    request.serialize(out);
    EXPECT_EQ(out, QByteArray("untouched"));
}

TEST(QueryRequestList, DifferentClientReferencesCompareEqual)
{
    QueryRequestList a;
    QueryRequestList b;
    b.setClientReference(42);
    EXPECT_TRUE(a.compareList(b));
    EXPECT_TRUE(a == b);
}

TEST(QueryRequestList, ComparedColumnsAndEntriesMatter)
{
    const QueryRequestList reference;
    QueryRequestList id;
    id.queryId() = 1ULL;
    QueryRequestList type;
    type.requestType() = sigdb::QueryRequest_Default;
    QueryRequestList name;
    name.queryName() = std::string("n");
    QueryRequestList owner;
    owner.queryOwner() = std::string("o");
    QueryRequestList entries;
    entries.appendEntry(QueryRequest());
    for (const QueryRequestList *other : {&id, &type, &name, &owner, &entries}) {
        EXPECT_FALSE(reference.compareList(*other));
        EXPECT_TRUE(reference != *other);
    }

    QueryRequestList one;
    QueryRequest request;
    request.hasLinks() = true;
    one.appendEntry(request);
    EXPECT_FALSE(entries.compareList(one)) << "entries are compared pairwise";
}

TEST(QueryRequestList, ListOperations)
{
    QueryRequestList list;
    QueryRequest first;
    first.name() = std::string("first");
    QueryRequest second;
    second.name() = std::string("second");
    list.appendEntry(second);
    list.prependEntry(first);
    ASSERT_EQ(list.count(), 2);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry()->name().getData(), "first");
    EXPECT_EQ(list.getNextEntry()->name().getData(), "second");
    EXPECT_EQ(list.getNextEntry(), nullptr);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry()->name().getData(), "first");

    list.reset();
    EXPECT_EQ(list.count(), 2) << "reset does nothing on a query request list";
    list.clear();
    EXPECT_EQ(list.count(), 0);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TEST(QueryRequestList, CopyKeepsEverything)
{
    const QueryRequestList list = sampleList();
    const QueryRequestList copy(list);
    EXPECT_TRUE(copy.compareList(list));
    EXPECT_EQ(copy.clientReference(), list.clientReference());

    std::unique_ptr<base::DbBaseType> heap(QueryRequestList().getCopy(&list));
    auto *typed = dynamic_cast<QueryRequestList *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(typed->compareList(list));
    EXPECT_EQ(typed->clientReference(), list.clientReference());
}

} // namespace
