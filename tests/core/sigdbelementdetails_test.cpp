#include "core/sigdbelementdetails.h"

#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using base::DbDataType;
using sigdb::ColumnReader;
using sigdb::SigdbElementDetails;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

const char *const kDefaultElement =
    "0001 0002 0000  0002 0002 0000  0001 0000  0004 0002 0000  0005 0002 0000"
    "0006 0002 0000  0007 0002 0000  0002 0000  0003 0000";

const char *const kEmptyDetailsTail =
    "111e 0002 0000"  // column texts: none
    "1065 0002 0000"  // included details: none
    "1267 0002 0000"  // profile flags: none
    "1269 0001 00"    // settings not valid
    "1268 0000";      // parameter set, NULL

SigdbElementDetails parameterRow(const char *number, const char *name)
{
    SigdbElementDetails row;
    row.setType(86);
    row.str(5) = std::string(number);
    row.str(17) = std::string(name);
    return row;
}

SigdbElementDetails populated()
{
    SigdbElementDetails details;
    details.setType(5);
    details.setTID(77);
    details.setExchgId(std::string("PRO-77"));
    details.str(5) = std::string("P77");
    details.str(17) = std::string("profile");
    details.setNull(513);
    details.str(561) = std::string(""); // empty, not NULL

    SigdbElementDetails row = parameterRow("2", "second");
    row.setIncludedDetails({parameterRow("9", "nested")});
    details.setIncludedDetails({parameterRow("1", "first"), row});

    details.profileParameterSettings().setBoolVector({true, false, true});
    details.profileParameterSettings().setValid(true);
    details.profileParameterSettings().parameterSet() = 0x1234ULL;
    return details;
}

bool decode(const QByteArray &data, SigdbElementDetails &out)
{
    out.setIDs(0);
    ColumnReader reader(data);
    return out.readFrom(reader);
}

} // namespace

TEST(SigdbElementDetails, ColumnsFollowTheTypesTable)
{
    SigdbElementDetails details;
    EXPECT_TRUE(details.allData().empty());
    details.setType(4);
    const sigdb::SigdbTable &table = sigdb::SigdbTableSpace::instance().tableForType(4);
    EXPECT_EQ(static_cast<int>(details.allData().size()), table.allColumnCount());
    bool ok = false;
    details.str(582, &ok) = std::string("T");
    EXPECT_TRUE(ok);
    EXPECT_TRUE(details.getBool(582));
    details.str(99999, &ok);
    EXPECT_FALSE(ok);
    EXPECT_TRUE(details.isNull(5));
    EXPECT_STREQ(details.c_str(582), "T");
}

TEST(SigdbElementDetails, SetTypeKeepsSharedColumns)
{
    SigdbElementDetails details;
    details.setType(4);
    details.str(5) = std::string("kept");
    details.str(582) = std::string("T");
    details.setType(1);
    EXPECT_EQ(details.str(5).getData(), "kept");
    bool ok = true;
    details.str(582, &ok);
    EXPECT_FALSE(ok);
    details.setType(4);
    EXPECT_TRUE(details.isNull(582));
}

TEST(SigdbElementDetails, DefaultEncoding)
{
    QByteArray out;
    SigdbElementDetails().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes(kDefaultElement) + bytes(kEmptyDetailsTail)));
}

TEST(SigdbElementDetails, ColumnTextsTravelUntaggedAndNullsUnderTheirId)
{
    SigdbElementDetails details;
    std::vector<DbDataType<std::string>> texts(2);
    texts[0] = std::string("AB");
    details.setAllData(texts);
    QByteArray out;
    details.serialize(out);
    const QByteArray tail = out.mid(bytes(kDefaultElement).size());
    EXPECT_EQ(hex(tail.left(21)), hex(bytes("111e 0002 0002  0000 0003 00000003 414200  0000 0000")));
}

TEST(SigdbElementDetails, ProfileSettingsEncoding)
{
    SigdbElementDetails details;
    details.profileParameterSettings().setBoolVector({true});
    details.profileParameterSettings().setValid(true);
    details.profileParameterSettings().parameterSet() = 5ULL;
    QByteArray out;
    details.serialize(out);
    const QByteArray tail = out.mid(bytes(kDefaultElement).size() + 12);
    EXPECT_EQ(hex(tail), hex(bytes("1267 0002 0001  1267 0001 01  1269 0001 01"
                                   "1268 0008 0000000000000005")));
}

TEST(SigdbElementDetails, IncludedDetailsAreNumberedFromZeroAndNested)
{
    SigdbElementDetails details;
    details.setIncludedDetails({SigdbElementDetails()});
    QByteArray out;
    details.serialize(out);
    const QByteArray expected = bytes(kDefaultElement) + bytes("111e 0002 0000  1065 0002 0001")
        + bytes(kDefaultElement) + bytes(kEmptyDetailsTail)
        + bytes("1267 0002 0000  1269 0001 00  1268 0000");
    EXPECT_EQ(hex(out), hex(expected));
}

TEST(SigdbElementDetails, RoundTrip)
{
    const SigdbElementDetails original = populated();
    QByteArray out;
    original.serialize(out);

    SigdbElementDetails back;
    ASSERT_TRUE(decode(out, back));
    EXPECT_TRUE(back == original);
    EXPECT_EQ(back.str(5).getData(), "P77");
    EXPECT_TRUE(back.isNull(513));
    EXPECT_FALSE(back.isNull(561));
    ASSERT_EQ(back.includedDetails().size(), 2u);
    ASSERT_EQ(back.includedDetailsAt(1).includedDetails().size(), 1u);
    EXPECT_EQ(back.includedDetailsAt(1).includedDetailsAt(0).str(17).getData(), "nested");
    EXPECT_EQ(back.profileParameterSettings().boolVector(), (std::vector<bool>{true, false, true}));
    EXPECT_TRUE(back.profileParameterSettings().isValid());
    EXPECT_EQ(back.profileParameterSettings().parameterSet().getData(), 0x1234ULL);
    for (const DbDataType<std::string> &text : back.allData())
        EXPECT_EQ(text.getID(), 0);
}

TEST(SigdbElementDetails, TruncatedAtEveryPositionFails)
{
    QByteArray out;
    populated().serialize(out);
    for (int length = 0; length < out.size(); ++length) {
        SigdbElementDetails back;
        EXPECT_FALSE(decode(out.left(length), back)) << "length " << length;
    }
}

TEST(SigdbElementDetails, WrongValidityFrameFailsAndClearsValidity)
{
    SigdbElementDetails details;
    details.profileParameterSettings().setValid(true);
    QByteArray out;
    details.serialize(out);
    const int validityAt = out.indexOf(bytes("1269 0001 01"));
    ASSERT_GT(validityAt, 0);
    out[validityAt + 3] = 2; // size 2 instead of 1

    SigdbElementDetails back;
    back.profileParameterSettings().setValid(true);
    EXPECT_FALSE(decode(out, back));
    EXPECT_FALSE(back.profileParameterSettings().isValid());
}

TEST(SigdbElementDetails, CountFrameWithWrongTagFails)
{
    QByteArray data = bytes(kDefaultElement) + bytes("111f 0002 0000") + bytes(kEmptyDetailsTail).mid(6);
    SigdbElementDetails back;
    EXPECT_FALSE(decode(data, back));
}

TEST(SigdbElementDetails, NegativeCountsReadNoEntries)
{
    const QByteArray data = bytes(kDefaultElement) + bytes("111e 0002 ffff  1065 0002 8000")
        + bytes("1267 0002 0000  1269 0001 00  1268 0000");
    SigdbElementDetails back;
    EXPECT_TRUE(decode(data, back));
    EXPECT_TRUE(back.allData().empty());
}

TEST(SigdbElementDetails, FailedIncludedDetailsLeaveTheOldOnes)
{
    SigdbElementDetails source;
    source.setIncludedDetails({SigdbElementDetails(), SigdbElementDetails()});
    QByteArray out;
    source.serialize(out);
    const QByteArray truncated = out.left(out.size() - 30);

    SigdbElementDetails back;
    back.setIncludedDetails({parameterRow("1", "old")});
    EXPECT_FALSE(decode(truncated, back));
    ASSERT_EQ(back.includedDetails().size(), 1u);
}

TEST(SigdbElementDetails, NestingDeeperThanTheLimitFails)
{
    const auto nested = [](int depth) {
        SigdbElementDetails details;
        for (int i = 1; i < depth; ++i) {
            SigdbElementDetails outer;
            outer.setIncludedDetails({details});
            details = outer;
        }
        return details;
    };

    QByteArray atLimit;
    nested(ColumnReader::MaxNesting).serialize(atLimit);
    SigdbElementDetails back;
    EXPECT_TRUE(decode(atLimit, back));

    QByteArray beyond;
    nested(ColumnReader::MaxNesting + 1).serialize(beyond);
    SigdbElementDetails tooDeep;
    EXPECT_FALSE(decode(beyond, tooDeep));
}

TEST(SigdbElementDetails, HostileCountOfIncludedDetailsStopsAtTheEnd)
{
    const QByteArray data = bytes(kDefaultElement) + bytes("111e 0002 0000  1065 0002 7fff");
    SigdbElementDetails back;
    EXPECT_FALSE(decode(data, back));
    EXPECT_TRUE(back.includedDetails().empty());
}

TEST(SigdbElementDetails, IncludedDetailsOperations)
{
    SigdbElementDetails details;
    details.setType(5);
    EXPECT_TRUE(details.hasTableIncludeType());
    EXPECT_EQ(details.tableIncludeType(), 86);
    EXPECT_EQ(details.getIncludedDetailsMaxValueForColumnId(5), -1);
    details.setIncludedDetails({parameterRow("10", "a"), parameterRow("2", "b"), parameterRow("7", "c")});
    EXPECT_EQ(details.getIncludedDetailsMaxValueForColumnId(5), 10);
    details.sortIncludedDetailsByColumnId(5);
    EXPECT_EQ(details.includedDetailsAt(0).str(17).getData(), "b");
    EXPECT_EQ(details.includedDetailsAt(2).str(17).getData(), "a");
    EXPECT_TRUE(details.includedDetailsAt(3).allData().empty()) << "a bad index gives a scratch detail";
}

TEST(SigdbElementDetails, SortStrVectorAndBooleans)
{
    SigdbElementDetails details;
    details.setType(1);
    details.str(513) = std::string("c;a;b");
    details.sortStrVector(513);
    EXPECT_EQ(details.str(513).getData(), "a;b;c");
    EXPECT_TRUE(details.setBool(5, false));
    EXPECT_FALSE(details.getBool(5));
    EXPECT_EQ(details.str(5).getData(), "F");
    EXPECT_FALSE(details.setBool(99999, true));
}

TEST(SigdbElementDetails, SetLayerReachesIncludedDetails)
{
    SigdbElementDetails details = populated();
    details.setLayer(2);
    EXPECT_EQ(details.layer(), 2);
    EXPECT_EQ(details.includedDetailsAt(1).includedDetailsAt(0).layer(), 2);
}
