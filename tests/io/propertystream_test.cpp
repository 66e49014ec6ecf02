#include "io/propertystream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using sigdb::PropertyReader;
using sigdb::PropertyWriter;
using sigdbtest::bytes;
using sigdbtest::hex;

// ---------------------------------------------------------------------------------------------
// Value encodings: one table drives both directions. Every value is written inside a block of
// property 3, so each row also shows the header and the patched size.

struct ValueCase
{
    const char *name;
    std::function<void(PropertyWriter &)> write;
    const char *block; // the whole block, worked out by hand
    std::function<void(PropertyReader &)> readAndCheck;
};

std::string caseName(const ::testing::TestParamInfo<ValueCase> &info)
{
    return info.param.name;
}

class PropertyValueTest : public ::testing::TestWithParam<ValueCase>
{
};

const ValueCase kValueCases[] = {
    {"Int32Zero", [](PropertyWriter &w) { w.writeInt32(0); },
     "00000003 00000004 00000000",
     [](PropertyReader &r) { qint32 v = 7; r.readInt32(v); EXPECT_EQ(v, 0); }},
    {"Int32AllBitsSet", [](PropertyWriter &w) { w.writeInt32(-1); },
     "00000003 00000004 FFFFFFFF",
     [](PropertyReader &r) { qint32 v = 0; r.readInt32(v); EXPECT_EQ(v, -1); }},
    {"Int32BigEndian", [](PropertyWriter &w) { w.writeInt32(0x12345678); },
     "00000003 00000004 12345678",
     [](PropertyReader &r) { qint32 v = 0; r.readInt32(v); EXPECT_EQ(v, 0x12345678); }},
    {"BoolTrue", [](PropertyWriter &w) { w.writeBool(true); },
     "00000003 00000001 01",
     [](PropertyReader &r) { bool v = false; r.readBool(v); EXPECT_TRUE(v); }},
    {"BoolFalse", [](PropertyWriter &w) { w.writeBool(false); },
     "00000003 00000001 00",
     [](PropertyReader &r) { bool v = true; r.readBool(v); EXPECT_FALSE(v); }},
    {"Int64AllBitsSet", [](PropertyWriter &w) { w.writeInt64(-1); },
     "00000003 00000008 FFFFFFFF FFFFFFFF",
     [](PropertyReader &r) { qint64 v = 0; r.readInt64(v); EXPECT_EQ(v, -1); }},
    {"Int64BigEndian", [](PropertyWriter &w) { w.writeInt64(0x0102030405060708LL); },
     "00000003 00000008 01020304 05060708",
     [](PropertyReader &r) { qint64 v = 0; r.readInt64(v); EXPECT_EQ(v, 0x0102030405060708LL); }},
    {"EmptyString", [](PropertyWriter &w) { w.writeString(""); },
     "00000003 00000005 00000001 00",
     [](PropertyReader &r) { std::string v = "old"; r.readString(v); EXPECT_EQ(v, ""); }},
    {"StringAB", [](PropertyWriter &w) { w.writeString("AB"); },
     "00000003 00000007 00000003 41 42 00",
     [](PropertyReader &r) { std::string v; r.readString(v); EXPECT_EQ(v, "AB"); }},
    {"StringBytesAsTheyAre", [](PropertyWriter &w) { w.writeString("\xC3\xA4\xFF"); },
     "00000003 00000008 00000004 C3 A4 FF 00",
     [](PropertyReader &r) { std::string v; r.readString(v); EXPECT_EQ(v, "\xC3\xA4\xFF"); }},
    {"StringCutAtZeroByte", [](PropertyWriter &w) { w.writeString(std::string("A\0B", 3)); },
     "00000003 00000006 00000002 41 00",
     [](PropertyReader &r) { std::string v; r.readString(v); EXPECT_EQ(v, "A"); }},
    {"Bytes", [](PropertyWriter &w) { w.writeBytes(bytes("01 02 03")); },
     "00000003 00000007 00000003 01 02 03",
     [](PropertyReader &r) { QByteArray v; r.readBytes(v); EXPECT_EQ(hex(v), "01 02 03"); }},
    {"EmptyBytes", [](PropertyWriter &w) { w.writeBytes(QByteArray("", 0)); },
     "00000003 00000004 00000000",
     [](PropertyReader &r) { QByteArray v("x"); r.readBytes(v); EXPECT_TRUE(v.isEmpty()); }},
    {"CountZero", [](PropertyWriter &w) { w.writeCount(0); },
     "00000003 00000004 00000000",
     [](PropertyReader &r) { qint32 v = 5; EXPECT_TRUE(r.readCount(v)); EXPECT_EQ(v, 0); }},
    {"StringVector", [](PropertyWriter &w) { w.writeCount(2); w.writeString("a"); w.writeString(""); },
     "00000003 0000000F 00000002 00000002 61 00 00000001 00",
     [](PropertyReader &r) {
         qint32 count = 0;
         EXPECT_TRUE(r.readCount(count));
         EXPECT_EQ(count, 2);
         std::string first, second = "old";
         r.readString(first);
         r.readString(second);
         EXPECT_EQ(first, "a");
         EXPECT_EQ(second, "");
     }},
};

INSTANTIATE_TEST_SUITE_P(Encodings, PropertyValueTest, ::testing::ValuesIn(kValueCases), caseName);

TEST_P(PropertyValueTest, WritesTheBlock)
{
    QByteArray out;
    PropertyWriter writer(out);
    writer.writeBlock(3, [&] { GetParam().write(writer); });
    writer.finish();
    EXPECT_EQ(hex(out), hex(bytes(GetParam().block)));
}

TEST_P(PropertyValueTest, ReadsTheBlock)
{
    PropertyReader reader(bytes(GetParam().block));
    ASSERT_EQ(reader.findBlock(3), PropertyReader::Block::Found);
    GetParam().readAndCheck(reader);
    EXPECT_TRUE(reader.atEnd());
}

// ---------------------------------------------------------------------------------------------
// Writing blocks

TEST(PropertyWriter, PatchesEverySizeOfConsecutiveBlocks)
{
    QByteArray out;
    PropertyWriter writer(out);
    writer.writeBlock(0, [&] { writer.writeInt32(1); });
    writer.writeBlock(1, [&] { writer.writeString("xyz"); });
    writer.writeBlock(2, [] {});
    writer.writeBlock(3, [&] { writer.writeBool(true); });
    writer.finish();
    EXPECT_EQ(hex(out), hex(bytes("00000000 00000004 00000001"
                                  "00000001 00000008 00000004 78 79 7A 00"
                                  "00000002 00000000"
                                  "00000003 00000001 01")));
}

TEST(PropertyWriter, NestedStreamInsideABlock)
{
    QByteArray nested;
    {
        PropertyWriter inner(nested);
        inner.writeBlock(0, [&] { inner.writeInt32(2); });
    }
    QByteArray out;
    PropertyWriter writer(out);
    writer.writeBlock(1, [&] { writer.writeBytes(nested); });
    writer.finish();
    EXPECT_EQ(hex(out), hex(bytes("00000001 00000010 0000000C 00000000 00000004 00000002")));
}

TEST(PropertyWriter, NestedRecordWrittenInPlace)
{
    QByteArray out;
    {
        PropertyWriter writer(out);
        writer.writeBlock(1, [&] { writer.writeNested([&] { writer.writeBlock(0, [&] { writer.writeInt32(2); }); }); });
    }
    EXPECT_EQ(hex(out), hex(bytes("00000001 00000010 0000000C 00000000 00000004 00000002")));
}

TEST(PropertyWriter, TheArrayHoldsTheBytesOnceTheWriterIsDone)
{
    QByteArray out;
    {
        PropertyWriter writer(out);
        for (qint32 i = 0; i < 1000; ++i)
            writer.writeInt32(i);
    }
    ASSERT_EQ(out.size(), 4000) << "grown past its first capacity and cut back to what was written";
    EXPECT_EQ(hex(out.right(4)), "00 00 03 e7");
}

TEST(PropertyReader, NestedReaderSeesOnlyTheArrayContents)
{
    PropertyReader reader(bytes("0000000C 00000000 00000004 00000002 00000001 00000004 00000009"));
    PropertyReader nested = reader.readNested();
    EXPECT_EQ(nested.bytesLeft(), 12);
    ASSERT_EQ(nested.findBlock(0), PropertyReader::Block::Found);
    qint32 value = 0;
    nested.readInt32(value);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(nested.findBlock(1), PropertyReader::Block::EndOfStream) << "the outer block is not the nested record's";
    EXPECT_EQ(reader.offset(), 16);
}

TEST(PropertyReader, NestedArrayCutShortGivesAnEmptyReaderAndEndsTheOuter)
{
    PropertyReader reader(bytes("00000010 00000000 00000004"));
    PropertyReader nested = reader.readNested();
    EXPECT_TRUE(nested.atEnd());
    EXPECT_TRUE(reader.atEnd());
}

// ---------------------------------------------------------------------------------------------
// Finding blocks

TEST(PropertyReader, EmptyArrayEndsAtOnce)
{
    PropertyReader reader{QByteArray()};
    EXPECT_EQ(reader.findBlock(0), PropertyReader::Block::EndOfStream);
}

TEST(PropertyReader, LowerBlocksOfAnySizeAreSkipped)
{
    PropertyReader reader(bytes("00000000 00000000"
                                "00000001 00000003 AA BB CC"
                                "00000001 00000004 FFFFFFFF"
                                "00000002 00000004 00000009"));
    ASSERT_EQ(reader.findBlock(2), PropertyReader::Block::Found);
    qint32 value = 0;
    reader.readInt32(value);
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(reader.atEnd());
}

TEST(PropertyReader, HigherBlockIsLeftForTheNextProperty)
{
    const QByteArray stream = bytes("00000000 00000004 00000001"
                                    "00000005 00000004 00000007");
    PropertyReader reader(stream);
    ASSERT_EQ(reader.findBlock(0), PropertyReader::Block::Found);
    qint32 value = 0;
    reader.readInt32(value);
    EXPECT_EQ(reader.findBlock(1), PropertyReader::Block::Absent);
    EXPECT_EQ(reader.bytesLeft(), 12);
    EXPECT_EQ(reader.findBlock(4), PropertyReader::Block::Absent);
    ASSERT_EQ(reader.findBlock(5), PropertyReader::Block::Found);
    reader.readInt32(value);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(reader.findBlock(6), PropertyReader::Block::EndOfStream);
}

TEST(PropertyReader, ReadPropertyFollowsTheKinds)
{
    const QByteArray stream = bytes("00000002 00000004 00000007");
    int calls = 0;
    {
        PropertyReader reader(stream);
        EXPECT_TRUE(reader.readProperty(1, false, [&] { ++calls; })); // optional: absent is fine
        EXPECT_FALSE(reader.readProperty(1, true, [&] { ++calls; })); // required: missing
        EXPECT_TRUE(reader.readProperty(2, true, [&] {
            qint32 value = 0;
            reader.readInt32(value);
            EXPECT_EQ(value, 7);
            ++calls;
        }));
        EXPECT_TRUE(reader.readProperty(3, true, [&] { ++calls; })); // stream ended
    }
    EXPECT_EQ(calls, 1);
}

TEST(PropertyReader, NegativeSizeNeverMovesBackwards)
{
    // Every negative size, -1 and -8 included, skips nothing: the next header follows.
    PropertyReader reader(bytes("00000000 FFFFFFFF"
                                "00000000 FFFFFFF8"
                                "00000000 80000000"
                                "00000001 00000004 00000003"));
    ASSERT_EQ(reader.findBlock(1), PropertyReader::Block::Found);
    qint32 value = 0;
    reader.readInt32(value);
    EXPECT_EQ(value, 3);
}

TEST(PropertyReader, SizeBeyondTheEndSkipsToTheEnd)
{
    PropertyReader reader(bytes("00000000 7FFFFFFF 00000001 00000004 00000003"));
    EXPECT_EQ(reader.findBlock(1), PropertyReader::Block::EndOfStream);
    EXPECT_TRUE(reader.atEnd());
}

TEST(PropertyReader, HeaderCutShortDoesNotReadBeyondTheEnd)
{
    for (const char *stream : {"00", "000000", "00000001", "00000001 0000", "00000001 00000004 0000"}) {
        PropertyReader reader(bytes(stream));
        const PropertyReader::Block found = reader.findBlock(1);
        EXPECT_NE(found, PropertyReader::Block::Absent) << stream;
        if (found == PropertyReader::Block::Found) {
            qint32 value = 5;
            reader.readInt32(value);
            EXPECT_EQ(value, 0) << stream;
        }
        EXPECT_EQ(reader.findBlock(2), PropertyReader::Block::EndOfStream) << stream;
    }
}

// ---------------------------------------------------------------------------------------------
// Values that the bytes cannot justify

TEST(PropertyReader, StringLengthZeroKeepsTheText)
{
    PropertyReader reader(bytes("00000000 00000001 00"));
    std::string text = "kept";
    reader.readString(text);
    EXPECT_EQ(text, "kept");
    reader.readString(text);
    EXPECT_EQ(text, "");
}

TEST(PropertyReader, StringWithoutTerminatorReadsItsCharacters)
{
    PropertyReader reader(bytes("00000002 41 42"));
    std::string text;
    reader.readString(text);
    EXPECT_EQ(text, "AB");
    EXPECT_TRUE(reader.atEnd());
}

TEST(PropertyReader, StringLongerThanTheRestKeepsTheTextAndEndsTheStream)
{
    for (const char *stream : {"00000004 41 42 00", "FFFFFFFF 41", "7FFFFFFF"}) {
        PropertyReader reader(bytes(stream));
        std::string text = "kept";
        reader.readString(text);
        EXPECT_EQ(text, "kept") << stream;
        EXPECT_TRUE(reader.atEnd()) << stream;
    }
}

TEST(PropertyReader, BytesNullEmptyOrTooLongReadEmpty)
{
    {
        PropertyReader reader(bytes("FFFFFFFF 00000001 AA"));
        QByteArray value("x");
        reader.readBytes(value);
        EXPECT_TRUE(value.isEmpty());
        reader.readBytes(value);
        EXPECT_EQ(hex(value), "aa");
    }
    {
        PropertyReader reader(bytes("00000005 01 02 03"));
        QByteArray value("x");
        reader.readBytes(value);
        EXPECT_TRUE(value.isEmpty());
        EXPECT_TRUE(reader.atEnd());
    }
}

TEST(PropertyReader, CountsThatTheBytesCannotHoldAreRejected)
{
    struct CountCase
    {
        const char *stream;
        bool accepted;
        qint32 count;
    };
    const CountCase cases[] = {
        {"00000000", true, 0},                            // control: count 0
        {"00000002 00000000 00000000", true, 2},           // two elements of 4 bytes fit
        {"00000003 00000000 00000000", false, 3},          // the third would not
        {"FFFFFFFF", false, -1},                           // negative
        {"80000000 00000000", false, -2147483647 - 1},     // most negative
        {"7FFFFFFF 00000000 00000000", false, 2147483647}, // huge
    };
    for (const CountCase &c : cases) {
        PropertyReader reader(bytes(c.stream));
        qint32 count = 0;
        EXPECT_EQ(reader.readCount(count), c.accepted) << c.stream;
        EXPECT_EQ(count, c.count) << c.stream;
    }
}

TEST(PropertyReader, NumbersCutShortReadAsZero)
{
    PropertyReader reader(bytes("01 02"));
    qint64 wide = 9;
    reader.readInt64(wide);
    EXPECT_EQ(wide, 0);
    qint32 narrow = 9;
    reader.readInt32(narrow);
    EXPECT_EQ(narrow, 0);
    EXPECT_TRUE(reader.atEnd());
}

} // namespace
