#include "io/bytecursor.h"

#include "testsupport.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

#include <limits>

using sigdb::ByteReader;
using sigdb::ByteWriter;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

/// What a bare QDataStream at version 12 writes for the same values.
template <typename... Values>
QByteArray streamed(Values... values)
{
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_8);
    (stream << ... << values);
    return out;
}

} // namespace

TEST(ByteWriter, WritesWhatTheStreamWrites)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    QByteArray out;
    {
        ByteWriter writer(out);
        writer.put(qint8(-1));
        writer.put(qint16(-2));
        writer.put(quint16(0xABCD));
        writer.put(qint32(std::numeric_limits<qint32>::min()));
        writer.put(qint64(std::numeric_limits<qint64>::max()));
        ByteWriter::store(writer.claim(8), -0.0);
        ByteWriter::store(writer.claim(8), nan);
        ByteWriter::store(writer.claim(8), -infinity);
    }
    EXPECT_EQ(hex(out), hex(streamed(qint8(-1), qint16(-2), quint16(0xABCD), std::numeric_limits<qint32>::min(),
                                     std::numeric_limits<qint64>::max(), -0.0, nan, -infinity)));
}

TEST(ByteWriter, GrowsPastItsFirstCapacityAndKeepsEveryByte)
{
    QByteArray out;
    {
        ByteWriter writer(out);
        for (qint32 i = 0; i < 100000; ++i)
            writer.put(i);
        EXPECT_EQ(writer.position(), 400000);
    }
    ASSERT_EQ(out.size(), 400000);
    ByteReader reader(out.constData(), out.constData() + out.size());
    for (qint32 i = 0; i < 100000; ++i)
        ASSERT_EQ(reader.take<qint32>(), i);
}

TEST(ByteWriter, OverwritesFromTheFirstByteAndKeepsTheRest)
{
    QByteArray out("ABCDEFGH");
    {
        ByteWriter writer(out);
        writer.put(qint16(0x0102));
    }
    EXPECT_EQ(hex(out), "01 02 43 44 45 46 47 48");
}

TEST(ByteWriter, FinishGivesTheArrayItsSizeWhileWritingGoesOn)
{
    QByteArray out;
    ByteWriter writer(out);
    writer.put(qint32(1));
    writer.finish();
    EXPECT_EQ(hex(out), "00 00 00 01");
    writer.put(qint8(2));
    writer.finish();
    EXPECT_EQ(hex(out), "00 00 00 01 02");
}

TEST(ByteWriter, PatchAndUnclaim)
{
    QByteArray out;
    {
        ByteWriter writer(out);
        writer.put(qint32(0));
        writer.claim(6);
        writer.unclaim(6);
        writer.put(qint8(7));
        writer.patch(0, 0x01020304);
    }
    EXPECT_EQ(hex(out), "01 02 03 04 07");
}

TEST(ByteReader, ReadsWhatTheStreamWrote)
{
    const QByteArray data = streamed(qint8(-1), qint16(-2), qint32(-3), qint64(-4), 1.5);
    ByteReader reader(data.constData(), data.constData() + data.size());
    EXPECT_EQ(reader.take<qint8>(), -1);
    EXPECT_EQ(reader.take<qint16>(), -2);
    EXPECT_EQ(reader.take<qint32>(), -3);
    EXPECT_EQ(reader.take<qint64>(), -4);
    EXPECT_EQ(reader.take<double>(), 1.5);
    EXPECT_EQ(reader.bytesLeft(), 0);
}

TEST(ByteReader, ValueCutShortReadsZeroAndConsumesTheRest)
{
    const QByteArray data = bytes("01 02 03");
    ByteReader reader(data.constData(), data.constData() + data.size());
    EXPECT_EQ(reader.takeOrZero<qint32>(), 0);
    EXPECT_EQ(reader.bytesLeft(), 0);
    EXPECT_EQ(reader.takeOrZero<qint8>(), 0) << "nothing is read past the end";
}

TEST(ByteReader, SkipNeverLeavesTheRange)
{
    const QByteArray data = bytes("01 02 03 04");
    ByteReader reader(data.constData(), data.constData() + data.size());
    reader.skip(-5);
    EXPECT_EQ(reader.position(), 0);
    reader.skip(2);
    EXPECT_EQ(reader.position(), 2);
    reader.skip(std::numeric_limits<qint64>::max());
    EXPECT_EQ(reader.position(), 4);
    reader.rewind(1);
    EXPECT_EQ(reader.take<qint8>(), 2);
}

TEST(ByteReader, EmptyReaderHasNothing)
{
    ByteReader reader;
    EXPECT_EQ(reader.bytesLeft(), 0);
    EXPECT_FALSE(reader.has(1));
    EXPECT_EQ(reader.takeOrZero<qint64>(), 0);
}
