#include "io/columnstream.h"

#include "core/sigdbenums.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>

using base::DbDataType;
using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

template <typename T>
DbDataType<T> column(int id, const T &value)
{
    DbDataType<T> result(value);
    result.setID(static_cast<unsigned int>(id));
    return result;
}

template <typename T>
DbDataType<T> nullColumn(int id)
{
    DbDataType<T> result;
    result.setID(static_cast<unsigned int>(id));
    return result;
}

QByteArray written(const std::function<void(ColumnWriter &)> &write)
{
    QByteArray out;
    ColumnWriter writer(out);
    write(writer);
    writer.finish();
    return out;
}

// One row of the primitive table: how a value is written, its exact bytes, and how reading the
// bytes into a target numbered with the same id gives it back.
struct PrimitiveCase
{
    const char *name;
    std::function<void(ColumnWriter &)> write;
    const char *expected;
    std::function<bool(ColumnReader &)> readBack; // reads and checks the value
};

const PrimitiveCase kPrimitiveCases[] = {
    {"NullDouble", [](ColumnWriter &w) { w.write(nullColumn<double>(7)); }, "00 07 00 00",
     [](ColumnReader &r) {
         auto v = column<double>(7, 1.0);
         return r.read(v) && v.isNull();
     }},
    {"Double", [](ColumnWriter &w) { w.write(column<double>(7, 1.5)); },
     "00 07 00 08 3f f8 00 00 00 00 00 00",
     [](ColumnReader &r) {
         auto v = nullColumn<double>(7);
         return r.read(v) && !v.isNull() && v.getData() == 1.5;
     }},
    {"TextAB", [](ColumnWriter &w) { w.write(column<std::string>(9, "AB")); },
     "00 09 00 03 00 00 00 03 41 42 00",
     [](ColumnReader &r) {
         auto v = nullColumn<std::string>(9);
         return r.read(v) && !v.isNull() && v.getData() == "AB";
     }},
    {"EmptyText", [](ColumnWriter &w) { w.write(column<std::string>(9, "")); },
     "00 09 00 01 00 00 00 01 00",
     [](ColumnReader &r) {
         auto v = nullColumn<std::string>(9);
         return r.read(v) && !v.isNull() && v.getData().empty();
     }},
    {"NullText", [](ColumnWriter &w) { w.write(nullColumn<std::string>(9)); }, "00 09 00 00",
     [](ColumnReader &r) {
         auto v = column<std::string>(9, "old");
         return r.read(v) && v.isNull();
     }},
    {"UntaggedText", [](ColumnWriter &w) { w.writeUntagged(column<std::string>(9, "A")); },
     "00 00 00 02 00 00 00 02 41 00",
     [](ColumnReader &r) {
         DbDataType<std::string> v;
         return r.readUntagged(v) && v.getData() == "A";
     }},
    {"UntaggedNullKeepsItsId", [](ColumnWriter &w) { w.writeUntagged(nullColumn<std::string>(9)); },
     "00 09 00 00",
     [](ColumnReader &r) {
         auto v = nullColumn<std::string>(9);
         return r.readUntagged(v) && v.isNull();
     }},
    {"BoolTrue", [](ColumnWriter &w) { w.write(column<bool>(3, true)); }, "00 03 00 02 00 01",
     [](ColumnReader &r) {
         auto v = nullColumn<bool>(3);
         return r.read(v) && v.getData();
     }},
    {"BoolFalse", [](ColumnWriter &w) { w.write(column<bool>(3, false)); }, "00 03 00 02 00 00",
     [](ColumnReader &r) {
         auto v = nullColumn<bool>(3);
         return r.read(v) && !v.isNull() && !v.getData();
     }},
    {"CharSignExtended", [](ColumnWriter &w) { w.write(column<char>(4, static_cast<char>(0xE9))); },
     "00 04 00 02 ff e9",
     [](ColumnReader &r) {
         auto v = nullColumn<char>(4);
         return r.read(v) && v.getData() == static_cast<char>(0xE9);
     }},
    {"CharE", [](ColumnWriter &w) { w.write(column<char>(4, 'e')); }, "00 04 00 02 00 65",
     [](ColumnReader &r) {
         auto v = nullColumn<char>(4);
         return r.read(v) && v.getData() == 'e';
     }},
    {"UnsignedLongLong", [](ColumnWriter &w) { w.write(column<unsigned long long>(2, 0x1122334455667788ULL)); },
     "00 02 00 08 11 22 33 44 55 66 77 88",
     [](ColumnReader &r) {
         auto v = nullColumn<unsigned long long>(2);
         return r.read(v) && v.getData() == 0x1122334455667788ULL;
     }},
    {"AllBitsTid", [](ColumnWriter &w) { w.write(column<unsigned long long>(2, ~0ULL)); },
     "00 02 00 08 ff ff ff ff ff ff ff ff",
     [](ColumnReader &r) {
         auto v = nullColumn<unsigned long long>(2);
         return r.read(v) && v.getData() == ~0ULL;
     }},
    {"NarrowInt", [](ColumnWriter &w) { w.write(column<int>(5, -2)); }, "00 05 00 01 fe",
     [](ColumnReader &r) {
         auto v = nullColumn<int>(5);
         return r.read(v) && v.getData() == -2;
     }},
    {"WideInt", [](ColumnWriter &w) { w.writeWide(column<int>(5, -2)); },
     "00 05 00 08 ff ff ff ff ff ff ff fe",
     [](ColumnReader &r) {
         auto v = nullColumn<int>(5);
         return r.readWide(v) && v.getData() == -2;
     }},
    {"WideUnsigned", [](ColumnWriter &w) { w.writeWide(column<unsigned int>(5, 0xFFFFFFFFu)); },
     "00 05 00 08 00 00 00 00 ff ff ff ff",
     [](ColumnReader &r) {
         auto v = nullColumn<unsigned int>(5);
         return r.readWide(v) && v.getData() == 0xFFFFFFFFu;
     }},
    {"Enumeration", [](ColumnWriter &w) { w.writeEnum(column<sigdb::Modification_State>(6, sigdb::Modification_DeletedInMdl)); },
     "00 06 00 01 05",
     [](ColumnReader &r) {
         auto v = nullColumn<sigdb::Modification_State>(6);
         return r.readEnum(v) && v.getData() == sigdb::Modification_DeletedInMdl;
     }},
    {"ShortField", [](ColumnWriter &w) { w.writeShortField(7, -1); }, "00 07 00 02 ff ff",
     [](ColumnReader &r) {
         qint16 v = 0;
         return r.readShortField(7, v) && v == -1;
     }},
    {"LongField", [](ColumnWriter &w) { w.writeLongField(4, 1000); },
     "00 04 00 08 00 00 00 00 00 00 03 e8",
     [](ColumnReader &r) {
         qint64 v = 0;
         return r.readLongField(4, v) && v == 1000;
     }},
    {"ByteField", [](ColumnWriter &w) { w.writeByteField(4713, 1); }, "12 69 00 01 01",
     [](ColumnReader &r) {
         qint8 v = 0;
         return r.readByteField(4713, v) && v == 1;
     }},
    {"Flags", [](ColumnWriter &w) { w.writeFlags(4711, {true, false}); },
     "12 67 00 02 00 02  12 67 00 01 01  12 67 00 01 00",
     [](ColumnReader &r) {
         std::vector<bool> v;
         return r.readFlags(4711, v) && v == std::vector<bool>{true, false};
     }},
    {"NoFlags", [](ColumnWriter &w) { w.writeFlags(4711, {}); }, "12 67 00 02 00 00",
     [](ColumnReader &r) {
         std::vector<bool> v{true};
         return r.readFlags(4711, v) && v.empty();
     }},
    {"TextField", [](ColumnWriter &w) { w.writeTextField(1111, QByteArray("x$")); },
     "04 57 00 03 00 00 00 03 78 24 00",
     [](ColumnReader &r) {
         QByteArray v;
         return r.readTextField(1111, v) && v == "x$";
     }},
};

class ColumnPrimitive : public testing::TestWithParam<PrimitiveCase>
{
};

} // namespace

TEST_P(ColumnPrimitive, WritesExactBytes)
{
    EXPECT_EQ(hex(written(GetParam().write)), hex(bytes(GetParam().expected)));
}

TEST_P(ColumnPrimitive, ReadsBackAndConsumesEverything)
{
    const QByteArray data = bytes(GetParam().expected);
    ColumnReader reader(data);
    EXPECT_TRUE(GetParam().readBack(reader));
    EXPECT_TRUE(reader.atEnd());
}

TEST_P(ColumnPrimitive, TruncatedInputNeverReadsOutOfBounds)
{
    const QByteArray data = bytes(GetParam().expected);
    for (int length = 0; length < data.size(); ++length) {
        const QByteArray truncated = data.left(length);
        ColumnReader reader(truncated);
        GetParam().readBack(reader); // may fail or read NULL; must not crash
        EXPECT_LE(reader.offset(), length);
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, ColumnPrimitive, testing::ValuesIn(kPrimitiveCases),
                         [](const testing::TestParamInfo<PrimitiveCase> &info) {
                             return std::string(info.param.name);
                         });

TEST(ColumnWriter, NullOfEveryKindIsTagAndZero)
{
    const QByteArray out = written([](ColumnWriter &w) {
        w.write(nullColumn<unsigned long long>(1));
        w.write(nullColumn<bool>(2));
        w.write(nullColumn<char>(3));
        w.write(nullColumn<int>(4));
        w.writeWide(nullColumn<int>(5));
        w.writeWide(nullColumn<unsigned int>(6));
        w.writeEnum(nullColumn<sigdb::Location_Indication_Type>(7));
    });
    EXPECT_EQ(hex(out), hex(bytes("0001 0000 0002 0000 0003 0000 0004 0000 0005 0000 0006 0000 0007 0000")));
}

TEST(ColumnWriter, TagIsTheIdTruncatedTo16Bits)
{
    const QByteArray out = written([](ColumnWriter &w) { w.write(nullColumn<double>(0x12345)); });
    EXPECT_EQ(hex(out), "23 45 00 00");
}

TEST(ColumnWriter, TextWithZeroByteIsCutThere)
{
    const QByteArray out = written(
        [](ColumnWriter &w) { w.write(column<std::string>(1, std::string("A\0B", 3))); });
    EXPECT_EQ(hex(out), hex(bytes("0001 0002 00000002 41 00")));
}

TEST(ColumnWriter, TextWhoseSizeWouldWrapToZeroStaysReadable)
{
    const std::string text(65535, 'x'); // length + 1 = 65536 does not fit 16 bits
    const QByteArray out = written([&text](ColumnWriter &w) { w.write(column<std::string>(1, text)); });
    EXPECT_EQ(hex(out.left(8)), "00 01 ff ff 00 01 00 00");
    ColumnReader reader(out);
    auto back = nullColumn<std::string>(1);
    EXPECT_TRUE(reader.read(back));
    EXPECT_EQ(back.getData(), text);
}

TEST(ColumnWriter, WritesFromTheFirstByteWithoutTruncating)
{
    QByteArray out("ABCDEFGH");
    {
        ColumnWriter writer(out);
        writer.writeShortField(1, 2);
    }
    EXPECT_EQ(hex(out), "00 01 00 02 00 02 47 48");
}

TEST(ColumnWriter, NanTravelsAsItsBits)
{
    const QByteArray out = written(
        [](ColumnWriter &w) { w.write(column<double>(1, std::numeric_limits<double>::infinity())); });
    EXPECT_EQ(hex(out), "00 01 00 08 7f f0 00 00 00 00 00 00");
}

TEST(ColumnReader, SizeMismatchFailsWithoutReadingTheValue)
{
    const QByteArray data = bytes("0007 0002 0001");
    ColumnReader reader(data);
    auto value = nullColumn<double>(7);
    EXPECT_FALSE(reader.read(value));
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(reader.offset(), 4);
}

TEST(ColumnReader, TagMismatchIsFoundAfterTheValue)
{
    const QByteArray data = bytes("0008 0002 0001");
    ColumnReader reader(data);
    auto value = nullColumn<bool>(7);
    EXPECT_FALSE(reader.read(value));
    EXPECT_TRUE(value.getData()) << "the value is consumed and stored";
    EXPECT_TRUE(reader.atEnd());
}

TEST(ColumnReader, UnnumberedTargetFailsOnANumberedFrame)
{
    const QByteArray data = bytes("0001 0001 05");
    ColumnReader reader(data);
    DbDataType<int> value; // id 0: not numbered with setIDs(0)
    EXPECT_FALSE(reader.read(value));
}

TEST(ColumnReader, PastTheEndReadsNullWhereTheIdIsZero)
{
    const QByteArray empty;
    ColumnReader reader(empty);
    DbDataType<std::string> unnumbered(std::string("x"));
    EXPECT_TRUE(reader.read(unnumbered));
    EXPECT_TRUE(unnumbered.isNull());
    auto numbered = nullColumn<int>(3);
    EXPECT_FALSE(reader.read(numbered));
    qint64 count = 0;
    EXPECT_FALSE(reader.readLongField(0, count)) << "a bare field needs its size";
}

TEST(ColumnReader, TextWithLengthZeroIsNullAndFails)
{
    const QByteArray data = bytes("0001 0001 00000000");
    ColumnReader reader(data);
    auto value = column<std::string>(1, "old");
    EXPECT_FALSE(reader.read(value));
    EXPECT_TRUE(value.isNull());
}

TEST(ColumnReader, TextLongerThanTheInputFailsWithoutAllocating)
{
    const QByteArray data = bytes("0001 7fff fffffff0 41 42");
    ColumnReader reader(data);
    auto value = nullColumn<std::string>(1);
    EXPECT_FALSE(reader.read(value));
    EXPECT_TRUE(value.isNull());
}

TEST(ColumnReader, TextWithoutTerminatorKeepsAllItsBytes)
{
    const QByteArray data = bytes("0001 0003 00000002 41 42");
    ColumnReader reader(data);
    auto value = nullColumn<std::string>(1);
    EXPECT_TRUE(reader.read(value));
    EXPECT_EQ(value.getData(), "AB");
}

TEST(ColumnReader, TextFieldChecksItsTagAfterReading)
{
    const QByteArray data = bytes("0458 0002 00000002 41 00");
    ColumnReader reader(data);
    QByteArray text;
    EXPECT_FALSE(reader.readTextField(1111, text));
    EXPECT_EQ(text, "A");
}

TEST(ColumnReader, FlagsFailOnAWrongEntryFrameAndKeepTheOldFlags)
{
    const QByteArray data = bytes("1267 0002 0002  1267 0001 01  1268 0001 00");
    ColumnReader reader(data);
    std::vector<bool> flags{false, false, false};
    EXPECT_FALSE(reader.readFlags(4711, flags));
    EXPECT_EQ(flags.size(), 3u);
}

TEST(ColumnReader, FlagCountBeyondTheInputFails)
{
    const QByteArray data = bytes("1267 0002 7fff  1267 0001 01");
    ColumnReader reader(data);
    std::vector<bool> flags;
    EXPECT_FALSE(reader.readFlags(4711, flags));
    EXPECT_TRUE(flags.empty());
}

TEST(ColumnReader, NestingIsBounded)
{
    const QByteArray empty;
    ColumnReader reader(empty);
    std::vector<std::unique_ptr<ColumnReader::Nesting>> levels;
    for (int i = 0; i < ColumnReader::MaxNesting; ++i) {
        levels.push_back(std::make_unique<ColumnReader::Nesting>(reader));
        EXPECT_TRUE(levels.back()->ok());
    }
    ColumnReader::Nesting tooDeep(reader);
    EXPECT_FALSE(tooDeep.ok());
    levels.pop_back();
    ColumnReader::Nesting again(reader);
    EXPECT_FALSE(again.ok()) << "tooDeep still holds its level";
}
