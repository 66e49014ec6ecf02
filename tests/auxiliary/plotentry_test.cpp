#include "auxiliary/plotentry.h"

#include "client/refcallback.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdb::PlotEntry;
using sigdb::PlotEntryList;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

// Hand-derived encodings. A list numbered with setIDs(0) gives listId 1, listText1 2,
// listText2 3, and every row firstId 4, secondId 5, text 6, modificationState 7.

const char *const kEmptyList = "00 01 00 00"   // listId, NULL
                               "00 02 00 00"   // listText1, NULL
                               "00 03 00 00"   // listText2, NULL
                               "00 04 00 08 00 00 00 00 00 00 00 00"; // count 0

const char *const kTwoRows = "00 01 00 08 00 00 00 00 00 00 00 05"  // listId 5
                             "00 02 00 02 00 00 00 02 58 00"        // listText1 "X"
                             "00 03 00 00"                          // listText2, NULL
                             "00 04 00 08 00 00 00 00 00 00 00 02"  // count 2
                             // row 1
                             "00 04 00 08 00 00 00 00 00 00 11 22"  // firstId 0x1122
                             "00 05 00 00"                          // secondId, NULL
                             "00 06 00 03 00 00 00 03 41 42 00"     // text "AB"
                             "00 07 00 01 04"                       // state 4, one byte
                             // row 2: a default row
                             "00 04 00 00"
                             "00 05 00 00"
                             "00 06 00 00"
                             "00 07 00 01 07";                      // state 7 (not NULL)

PlotEntryList twoRows()
{
    PlotEntryList list;
    list.listId = 5ULL;
    list.listText1 = std::string("X");
    PlotEntry row;
    row.firstId = 0x1122ULL;
    row.text = std::string("AB");
    row.modificationState = sigdb::Modification_NewInMdl;
    list.appendEntry(row);
    list.appendEntry(PlotEntry());
    return list;
}

QByteArray serialized(const PlotEntryList &list)
{
    QByteArray out;
    list.serialize(out);
    return out;
}

bool decode(const QByteArray &data, PlotEntryList &list)
{
    list.setIDs(0);
    ColumnReader reader(data);
    return list.readFrom(reader) && reader.atEnd();
}

// ---------------------------------------------------------------------------------------------
// PlotEntry

TEST(PlotEntry, Defaults)
{
    const PlotEntry row;
    EXPECT_FALSE(row.modificationState.isNull());
    EXPECT_EQ(row.modificationState.getData(), 7);
    EXPECT_TRUE(row.firstId.isNull());
    EXPECT_TRUE(row.secondId.isNull());
    EXPECT_TRUE(row.text.isNull());
    EXPECT_EQ(row.firstId.getData(), 0ULL);
}

TEST(PlotEntry, FreshEntriesAreEqualUntilOneGetsAText)
{
    PlotEntry a;
    const PlotEntry b;
    EXPECT_TRUE(a == b);
    a.text = std::string("plot");
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
}

TEST(PlotEntry, NullTextsAreEqualWhateverTheirContents)
{
    PlotEntry a;
    PlotEntry b;
    a.text = std::string("one");
    b.text = std::string("two");
    a.text.setNull(true);
    b.text.setNull(true);
    EXPECT_TRUE(a == b);
}

TEST(PlotEntry, EveryMemberIsCompared)
{
    const PlotEntry reference;
    PlotEntry state;
    state.modificationState = sigdb::Modification_Approved;
    PlotEntry nullState;
    nullState.modificationState.setNull(true);
    PlotEntry first;
    first.firstId = 0ULL;
    PlotEntry second;
    second.secondId = 3ULL;
    for (const PlotEntry *other : {&state, &nullState, &first, &second})
        EXPECT_FALSE(reference == *other);
}

TEST(PlotEntry, SetIdsGivesTheStateTheLastId)
{
    PlotEntry row;
    EXPECT_EQ(row.setIDs(20), 24);
    EXPECT_EQ(row.firstId.getID(), 21);
    EXPECT_EQ(row.secondId.getID(), 22);
    EXPECT_EQ(row.text.getID(), 23);
    EXPECT_EQ(row.modificationState.getID(), 24);
}

TEST(PlotEntry, ResetRestoresDefaultsAndKeepsIds)
{
    PlotEntry row;
    row.setIDs(0);
    row.firstId = 9ULL;
    row.modificationState.setNull(true);
    row.text = std::string("t");
    row.reset();
    EXPECT_TRUE(row == PlotEntry());
    EXPECT_EQ(row.modificationState.getData(), 7);
    EXPECT_FALSE(row.modificationState.isNull());
    EXPECT_EQ(row.modificationState.getID(), 4);
}

TEST(PlotEntry, SerializeLeavesTheArrayUnchanged)
{
    PlotEntry row;
    row.text = std::string("ignored");
    QByteArray out("\x01\x02", 2);
    row.serialize(out);
    EXPECT_EQ(hex(out), "01 02");
}

TEST(PlotEntry, CopyAndGetCopy)
{
    PlotEntry row;
    row.setIDs(0);
    row.secondId = 8ULL;
    const PlotEntry copy(row);
    EXPECT_TRUE(copy == row);
    EXPECT_EQ(copy.secondId.getID(), 2);

    std::unique_ptr<base::DbBaseType> heap(PlotEntry().getCopy(&row));
    auto *typed = dynamic_cast<PlotEntry *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == row);
}

// ---------------------------------------------------------------------------------------------
// PlotEntryList numbering and comparison

TEST(PlotEntryList, SetIdsReturnsThreeAboveStartAndSharesRowIds)
{
    PlotEntryList list = twoRows();
    EXPECT_EQ(list.setIDs(10), 13);
    EXPECT_EQ(list.startID(), 13);
    EXPECT_EQ(list.listId.getID(), 11);
    EXPECT_EQ(list.listText1.getID(), 12);
    EXPECT_EQ(list.listText2.getID(), 13);
    list.setIteratorToStart();
    while (PlotEntry *row = list.getNextEntry()) {
        EXPECT_EQ(row->firstId.getID(), 14);
        EXPECT_EQ(row->secondId.getID(), 15);
        EXPECT_EQ(row->text.getID(), 16);
        EXPECT_EQ(row->modificationState.getID(), 17);
    }
    EXPECT_EQ(PlotEntryList().setIDs(10), 13) << "the rows are not counted";
}

TEST(PlotEntryList, CompareList)
{
    const PlotEntryList reference = twoRows();
    EXPECT_TRUE(reference.compareList(twoRows()));
    EXPECT_TRUE(reference == twoRows());

    PlotEntryList shorter = twoRows();
    shorter.clear();
    shorter.appendEntry(PlotEntry());
    PlotEntryList reordered;
    reordered.listId = 5ULL;
    reordered.listText1 = std::string("X");
    reordered.appendEntry(PlotEntry());
    reordered.appendEntry(*twoRows().getNextEntry());
    PlotEntryList id = twoRows();
    id.listId = 6ULL;
    PlotEntryList text1 = twoRows();
    text1.listText1.setNull(true);
    PlotEntryList text2 = twoRows();
    text2.listText2 = std::string("");
    for (const PlotEntryList *other : {&shorter, &reordered, &id, &text1, &text2}) {
        EXPECT_FALSE(reference.compareList(*other));
        EXPECT_TRUE(reference != *other);
    }
}

TEST(PlotEntryList, ListOperations)
{
    PlotEntryList list;
    PlotEntry first;
    first.firstId = 1ULL;
    PlotEntry second;
    second.firstId = 2ULL;
    list.appendEntry(second);
    list.prependEntry(first);
    EXPECT_EQ(list.count(), 2);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry()->firstId.getData(), 1ULL);
    EXPECT_EQ(list.getNextEntry()->firstId.getData(), 2ULL);
    EXPECT_EQ(list.getNextEntry(), nullptr);
    list.clear();
    EXPECT_EQ(list.count(), 0);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TEST(PlotEntryList, ResetEmptiesTheList)
{
    PlotEntryList list = twoRows();
    list.reset();
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(list.listId.isNull());
    EXPECT_TRUE(list.listText1.isNull());
    EXPECT_TRUE(list == PlotEntryList());
}

TEST(PlotEntryList, CopyAndGetCopy)
{
    const PlotEntryList list = twoRows();
    const PlotEntryList copy(list);
    EXPECT_TRUE(copy == list);
    PlotEntryList assigned;
    assigned = list;
    EXPECT_TRUE(assigned == list);
    std::unique_ptr<base::DbBaseType> heap(PlotEntryList().getCopy(&list));
    auto *typed = dynamic_cast<PlotEntryList *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == list);
}

// ---------------------------------------------------------------------------------------------
// PlotEntryList encoding

TEST(PlotEntryList, EmptyListBytesAndReadBack)
{
    const PlotEntryList list;
    EXPECT_EQ(hex(serialized(list)), hex(bytes(kEmptyList)));

    PlotEntryList decoded = twoRows();
    ASSERT_TRUE(decode(bytes(kEmptyList), decoded));
    EXPECT_EQ(decoded.count(), 0);
    EXPECT_TRUE(decoded.listId.isNull());
    EXPECT_TRUE(decoded == list);
}

TEST(PlotEntryList, TwoRowsBytesAndReadBack)
{
    const PlotEntryList list = twoRows();
    EXPECT_EQ(hex(serialized(list)), hex(bytes(kTwoRows)));

    PlotEntryList decoded;
    ASSERT_TRUE(decode(bytes(kTwoRows), decoded));
    EXPECT_TRUE(decoded == list);
    decoded.setIteratorToStart();
    EXPECT_EQ(decoded.getNextEntry()->modificationState.getData(), sigdb::Modification_NewInMdl);
    EXPECT_EQ(decoded.getNextEntry()->modificationState.getData(), sigdb::Modification_Unknown);
}

TEST(PlotEntryList, NullStateTravelsAsNull)
{
    PlotEntryList list;
    PlotEntry row;
    row.modificationState.setNull(true);
    list.appendEntry(row);
    const char *expected = "00 01 00 00 00 02 00 00 00 03 00 00"
                           "00 04 00 08 00 00 00 00 00 00 00 01"
                           "00 04 00 00 00 05 00 00 00 06 00 00"
                           "00 07 00 00";
    EXPECT_EQ(hex(serialized(list)), hex(bytes(expected)));
    PlotEntryList decoded;
    ASSERT_TRUE(decode(bytes(expected), decoded));
    decoded.setIteratorToStart();
    EXPECT_TRUE(decoded.getNextEntry()->modificationState.isNull());
}

TEST(PlotEntryList, SerializeNumbersFromZero)
{
    PlotEntryList list = twoRows();
    list.setIDs(50);
    EXPECT_EQ(hex(serialized(list)), hex(bytes(kTwoRows)));
    EXPECT_EQ(list.listId.getID(), 1);
    EXPECT_EQ(list.startID(), 3);
}

TEST(PlotEntryList, MalformedInput)
{
    struct Row
    {
        const char *name;
        const char *bytes;
        bool ok;
        int rowsKept;
    };
    const Row rows[] = {
        {"control", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 01"
                    "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 02", true, 1},
        {"count of size 4", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 04 00 00 00 01"
                            "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 02", false, 0},
        {"count under tag 5", "00 01 00 00 00 02 00 00 00 03 00 00 00 05 00 08 00 00 00 00 00 00 00 01"
                              "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 02", false, 0},
        {"NULL count", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00", false, 0},
        {"negative count", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 FF FF FF FF FF FF FF FF", true, 0},
        {"listId under tag 2", "00 02 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 00", false, 0},
        {"listId of size 4", "00 01 00 04 00 00 00 05 00 02 00 00 00 03 00 00"
                             "00 04 00 08 00 00 00 00 00 00 00 00", false, 0},
        {"state of size 2", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 01"
                            "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 02 00 02", false, 0},
        {"second row broken", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 02"
                              "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 02"
                              "00 04 00 00 00 05 00 00 00 09 00 00 00 07 00 01 02", false, 1},
        {"text with NUL length", "00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 08 00 00 00 00 00 00 00 01"
                                 "00 04 00 00 00 05 00 00 00 06 00 01 00 00 00 00 00 07 00 01 02", false, 0},
        {"empty", "", false, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        PlotEntryList decoded;
        EXPECT_EQ(decode(bytes(row.bytes), decoded), row.ok);
        EXPECT_EQ(decoded.count(), row.rowsKept);
    }
}

TEST(PlotEntryList, EveryTruncationFails)
{
    const QByteArray full = bytes(kTwoRows);
    for (int length = 0; length < full.size(); ++length) {
        SCOPED_TRACE(length);
        PlotEntryList decoded;
        decoded.setIDs(0);
        ColumnReader reader(full.left(length));
        EXPECT_FALSE(decoded.readFrom(reader));
        EXPECT_LE(decoded.count(), 1);
    }
}

TEST(PlotEntryList, HugeCountOnShortStreamFails)
{
    // Count 2^62 followed by a single row.
    const char *data = "00 01 00 00 00 02 00 00 00 03 00 00"
                       "00 04 00 08 40 00 00 00 00 00 00 00"
                       "00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 01 02";
    PlotEntryList decoded;
    EXPECT_FALSE(decode(bytes(data), decoded));
    EXPECT_EQ(decoded.count(), 1) << "the row that was there stays";
}

} // namespace
