#include "query/refdatatypeorder.h"


#include "testsupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

using base::DbDataType;
using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdb::RefDatatypeOrder;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

template <typename T>
RefDatatypeOrder<T> makeColumn(int id, bool orderBy, bool ascending)
{
    RefDatatypeOrder<T> column;
    column.setID(static_cast<unsigned int>(id));
    column.setOrderBy(orderBy);
    column.setAscending(ascending);
    return column;
}

template <typename T>
RefDatatypeOrder<T> makeColumn(int id, const T &value, bool orderBy, bool ascending)
{
    RefDatatypeOrder<T> column = makeColumn<T>(id, orderBy, ascending);
    column = value;
    return column;
}

template <typename T>
QByteArray encode(const RefDatatypeOrder<T> &column)
{
    QByteArray out;
    ColumnWriter writer(out);
    column.writeTo(writer);
    writer.finish();
    return out;
}

/// Decodes \a data into a fresh column with id \a id, as a list decodes its entries: the column
/// must take all bytes.
template <typename T>
::testing::AssertionResult decodes(const QByteArray &data, int id, RefDatatypeOrder<T> &column)
{
    column = RefDatatypeOrder<T>();
    column.setID(static_cast<unsigned int>(id));
    ColumnReader reader(data);
    if (!column.readFrom(reader))
        return ::testing::AssertionFailure() << "readFrom failed";
    if (!reader.atEnd())
        return ::testing::AssertionFailure() << reader.bytesLeft() << " bytes left";
    return ::testing::AssertionSuccess();
}

// ---------------------------------------------------------------------------------------------
// One row per kind of filter value: the column, its exact bytes (worked out by hand: value
// frame, then the flag frame under the same tag), and a check that decoding gives it back.

struct ColumnCase
{
    const char *name;
    std::function<QByteArray()> encode;
    const char *bytes;
    std::function<bool(const QByteArray &)> roundTrips;
};

template <typename T>
ColumnCase columnCase(const char *name, RefDatatypeOrder<T> column, const char *expected)
{
    return {name, [column] { return encode(column); }, expected,
            [column](const QByteArray &data) {
                RefDatatypeOrder<T> decoded;
                return bool(decodes(data, column.getID(), decoded)) && decoded == column
                    && decoded.getID() == column.getID();
            }};
}

class ColumnEncoding : public ::testing::TestWithParam<ColumnCase>
{
};

TEST_P(ColumnEncoding, WritesExactBytes)
{
    EXPECT_EQ(hex(GetParam().encode()), hex(bytes(GetParam().bytes)));
}

TEST_P(ColumnEncoding, ReadsBack)
{
    EXPECT_TRUE(GetParam().roundTrips(bytes(GetParam().bytes)));
}

TEST_P(ColumnEncoding, EveryTruncationFails)
{
    const QByteArray full = bytes(GetParam().bytes);
    for (int length = 0; length < full.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_FALSE(GetParam().roundTrips(full.left(length)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ColumnEncoding,
    ::testing::Values(
        columnCase("TextSortedAscending", makeColumn<std::string>(16, "AB", true, true),
                   "00 10 00 03 00 00 00 03 41 42 00"
                   "00 10 00 02 00 61"),
        columnCase("NullTextUnsorted", makeColumn<std::string>(16, false, false),
                   "00 10 00 00"
                   "00 10 00 02 00 65"),
        columnCase("IntIsWide", makeColumn<int>(3, 5, false, false),
                   "00 03 00 08 00 00 00 00 00 00 00 05"
                   "00 03 00 02 00 65"),
        columnCase("NegativeIntIsSignExtended", makeColumn<int>(19, -2, true, false),
                   "00 13 00 08 FF FF FF FF FF FF FF FE"
                   "00 13 00 02 00 62"),
        columnCase("Double", makeColumn<double>(21, 1.5, false, true),
                   "00 15 00 08 3F F8 00 00 00 00 00 00"
                   "00 15 00 02 00 63"),
        columnCase("NullDouble", makeColumn<double>(7, false, false),
                   "00 07 00 00"
                   "00 07 00 02 00 65"),
        columnCase("Char", makeColumn<char>(2, 'x', true, false),
                   "00 02 00 02 00 78"
                   "00 02 00 02 00 62"),
        columnCase("HighCharIsSignExtended", makeColumn<char>(2, static_cast<char>(0xE9), false, false),
                   "00 02 00 02 FF E9"
                   "00 02 00 02 00 65"),
        columnCase("BoolTrue", makeColumn<bool>(1, true, false, true),
                   "00 01 00 02 00 01"
                   "00 01 00 02 00 63"),
        columnCase("BoolFalse", makeColumn<bool>(1, false, true, true),
                   "00 01 00 02 00 00"
                   "00 01 00 02 00 61"),
        columnCase("UnsignedLongLong", makeColumn<unsigned long long>(300, 0x0102030405060708ULL, false, false),
                   "01 2C 00 08 01 02 03 04 05 06 07 08"
                   "01 2C 00 02 00 65")),
    [](const ::testing::TestParamInfo<ColumnCase> &info) { return std::string(info.param.name); });

// ---------------------------------------------------------------------------------------------
// The packed flag character.

TEST(RefDatatypeOrder, DefaultIsNullUnsortedWithIdZero)
{
    const RefDatatypeOrder<double> column;
    EXPECT_TRUE(column.isNull());
    EXPECT_EQ(column.getID(), 0);
    EXPECT_FALSE(column.orderBy());
    EXPECT_FALSE(column.ascending());
}

TEST(RefDatatypeOrder, FlagCharacterOfEveryCombination)
{
    struct Row
    {
        bool orderBy;
        bool ascending;
        char expected;
    };
    const Row rows[] = {{true, true, 'a'}, {true, false, 'b'}, {false, true, 'c'}, {false, false, 'e'}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.expected);
        const RefDatatypeOrder<int> column = makeColumn<int>(42, row.orderBy, row.ascending);
        const DbDataType<char> code = column.getBoolValuesAsChar();
        EXPECT_FALSE(code.isNull()) << "the flag character is never NULL, also for a NULL value";
        EXPECT_EQ(code.getData(), row.expected);
        EXPECT_EQ(code.getID(), 42);

        RefDatatypeOrder<int> back;
        back.setOrderBy(!row.orderBy);
        back.setAscending(!row.ascending);
        back.setBoolValuesFromChar(code);
        EXPECT_EQ(back.orderBy(), row.orderBy);
        EXPECT_EQ(back.ascending(), row.ascending);
    }
}

TEST(RefDatatypeOrder, DefaultColumnEncodesFlagsAsEAndDecodesToUnsorted)
{
    const RefDatatypeOrder<std::string> column;
    EXPECT_EQ(column.getBoolValuesAsChar().getData(), 'e');
    EXPECT_EQ(hex(encode(column)), hex(bytes("00 00 00 00  00 00 00 02 00 65")));

    RefDatatypeOrder<std::string> decoded;
    decoded.setOrderBy(true);
    decoded.setAscending(true);
    ASSERT_TRUE(decodes(encode(column), 0, decoded));
    EXPECT_FALSE(decoded.orderBy());
    EXPECT_FALSE(decoded.ascending());
    EXPECT_TRUE(decoded.isNull());
}

TEST(RefDatatypeOrder, EveryOtherCharacterMeansUnsorted)
{
    for (const char code : {'d', 'e', '\0', 'A', 'B', 'f', static_cast<char>(0xE1)}) {
        SCOPED_TRACE(static_cast<int>(code));
        RefDatatypeOrder<bool> column;
        column.setOrderBy(true);
        column.setAscending(true);
        column.setBoolValuesFromChar(DbDataType<char>(code));
        EXPECT_FALSE(column.orderBy());
        EXPECT_FALSE(column.ascending());
    }
}

TEST(RefDatatypeOrder, LetterDDecodesLikeE)
{
    RefDatatypeOrder<int> column;
    ASSERT_TRUE(decodes(bytes("00 05 00 00  00 05 00 02 00 64"), 5, column));
    EXPECT_FALSE(column.orderBy());
    EXPECT_FALSE(column.ascending());
}

TEST(RefDatatypeOrder, NullCharacterWithStaleValueAStillSetsBothFlags)
{
    DbDataType<char> code('a');
    code.setNull(true);
    RefDatatypeOrder<std::string> column;
    column.setBoolValuesFromChar(code);
    EXPECT_TRUE(column.orderBy());
    EXPECT_TRUE(column.ascending());
}

TEST(RefDatatypeOrder, NullFlagFrameReadsAsUnsorted)
{
    RefDatatypeOrder<char> column;
    column.setOrderBy(true);
    ASSERT_TRUE(decodes(bytes("00 09 00 02 00 41  00 09 00 00"), 9, column));
    EXPECT_EQ(column.getData(), 'A');
    EXPECT_FALSE(column.orderBy());
    EXPECT_FALSE(column.ascending());
}

// ---------------------------------------------------------------------------------------------
// Decoding failures.

TEST(RefDatatypeOrder, WrongSizesAndTagsFail)
{
    struct Row
    {
        const char *name;
        const char *bytes;
        bool ok;
    };
    // An int column with id 3.
    const Row rows[] = {
        {"control", "00 03 00 08 00 00 00 00 00 00 00 05  00 03 00 02 00 61", true},
        {"narrow int value", "00 03 00 01 05  00 03 00 02 00 61", false},
        {"value under another tag", "00 04 00 08 00 00 00 00 00 00 00 05  00 03 00 02 00 61", false},
        {"flag under another tag", "00 03 00 08 00 00 00 00 00 00 00 05  00 04 00 02 00 61", false},
        {"flag frame of size 1", "00 03 00 08 00 00 00 00 00 00 00 05  00 03 00 01 61", false},
        {"flag frame missing", "00 03 00 08 00 00 00 00 00 00 00 05", false},
        {"nothing", "", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        RefDatatypeOrder<int> column;
        column.setID(3);
        ColumnReader reader(bytes(row.bytes));
        EXPECT_EQ(column.readFrom(reader), row.ok);
        if (row.ok) {
            EXPECT_EQ(column.getData(), 5);
            EXPECT_TRUE(column.orderBy());
            EXPECT_TRUE(column.ascending());
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Assignment and equality.

TEST(RefDatatypeOrder, FiveWithFlagsAAndBAreUnequal)
{
    const RefDatatypeOrder<int> a = makeColumn<int>(3, 5, true, true);
    const RefDatatypeOrder<int> b = makeColumn<int>(3, 5, true, false);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
}

TEST(RefDatatypeOrder, FiveWithIdsThreeAndFourAndSameFlagsAreEqual)
{
    const RefDatatypeOrder<int> a = makeColumn<int>(3, 5, true, true);
    const RefDatatypeOrder<int> b = makeColumn<int>(4, 5, true, true);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
}

TEST(RefDatatypeOrder, TwoNullColumnsWithDifferentFlagsAreUnequal)
{
    EXPECT_FALSE(makeColumn<std::string>(1, false, true) == makeColumn<std::string>(1, false, false));
    EXPECT_TRUE(makeColumn<std::string>(1, false, true) == makeColumn<std::string>(2, false, true));
}

TEST(RefDatatypeOrder, NullIgnoresStaleValue)
{
    RefDatatypeOrder<double> a = makeColumn<double>(1, 2.5, false, false);
    a.setNull(true);
    EXPECT_TRUE(a == RefDatatypeOrder<double>());
}

TEST(RefDatatypeOrder, AssignmentKeepsAnAssignedIdAndCopiesFlags)
{
    const RefDatatypeOrder<std::string> source = makeColumn<std::string>(9, "X", true, false);

    RefDatatypeOrder<std::string> numbered;
    numbered.setID(4);
    numbered = source;
    EXPECT_EQ(numbered.getID(), 4);
    EXPECT_EQ(numbered.getData(), "X");
    EXPECT_FALSE(numbered.isNull());
    EXPECT_TRUE(numbered.orderBy());
    EXPECT_FALSE(numbered.ascending());

    RefDatatypeOrder<std::string> fresh;
    fresh = source;
    EXPECT_EQ(fresh.getID(), 9);

    const RefDatatypeOrder<std::string> copy(source);
    EXPECT_EQ(copy.getID(), 9);
    EXPECT_TRUE(copy == source);
}

TEST(RefDatatypeOrder, AssigningAValueKeepsIdAndFlags)
{
    RefDatatypeOrder<unsigned long long> column = makeColumn<unsigned long long>(12, true, true);
    column = 77ULL;
    EXPECT_FALSE(column.isNull());
    EXPECT_EQ(column.getData(), 77ULL);
    EXPECT_EQ(column.getID(), 12);
    EXPECT_TRUE(column.orderBy());
    EXPECT_TRUE(column.ascending());
}

TEST(RefDatatypeOrder, NanIsNeverEqual)
{
    const RefDatatypeOrder<double> nan = makeColumn<double>(1, std::numeric_limits<double>::quiet_NaN(), false, false);
    EXPECT_FALSE(nan == nan);
}

} // namespace
