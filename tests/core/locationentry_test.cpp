#include "core/locationentry.h"

#include "io/columnstream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ColumnReader;
using sigdb::LocationEntry;
using sigdb::LocationEntryList;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

LocationEntry at(const char *time, double latitude)
{
    LocationEntry entry;
    entry.validFrom = std::string(time);
    entry.latitude = latitude;
    entry.longitude = 2.0;
    entry.indication = sigdb::LocationIndication_Own;
    entry.modification = sigdb::LocationModification_New;
    return entry;
}

} // namespace

TEST(LocationEntry, DefaultEncodingIsFiveNullColumns)
{
    QByteArray out;
    LocationEntry().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0000 0002 0000 0003 0000 0004 0000 0005 0000")));
}

TEST(LocationEntry, PopulatedEncodingAndRoundTrip)
{
    const LocationEntry entry = at("T", 1.0);
    QByteArray out;
    entry.serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0008 3ff0000000000000  0002 0008 4000000000000000"
                                  "0003 0002 00000002 5400  0004 0001 01  0005 0001 01")));
    LocationEntry back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(back == entry);
}

TEST(LocationEntryList, RoundTripAndIds)
{
    LocationEntryList list;
    list.appendEntry(at("2026-02-01 00:00:00", 1.0));
    list.appendEntry(at("2026-01-01 00:00:00", 3.0));
    EXPECT_EQ(list.setIDs(3), 8);
    QByteArray out;
    list.serialize(out);
    EXPECT_EQ(hex(out.left(12)), hex(bytes("0002 0008 0000000000000002")));
    LocationEntryList back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(back == list);
    EXPECT_TRUE(reader.atEnd());
}

TEST(LocationEntryList, SortByTimeAndCompare)
{
    LocationEntryList list;
    list.appendEntry(at("2026-02-01", 1.0));
    list.appendEntry(LocationEntry());
    list.appendEntry(at("2026-01-01", 3.0));
    LocationEntryList sorted = list;
    sorted.sortByTime();
    EXPECT_FALSE(sorted.testCompare(list));
    sorted.setIteratorToStart();
    EXPECT_TRUE(sorted.getNextEntry()->validFrom.isNull());
    EXPECT_EQ(sorted.getNextEntry()->validFrom.getData(), "2026-01-01");
    EXPECT_EQ(sorted.getNextEntry()->validFrom.getData(), "2026-02-01");
    EXPECT_EQ(sorted.getNextEntry(), nullptr);
}
