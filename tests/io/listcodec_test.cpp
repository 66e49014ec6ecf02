#include "io/listcodec.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <vector>

using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

bool readShorts(ColumnReader &reader, std::vector<qint16> &out)
{
    return sigdb::readListEntries(reader, 9, out, 6, [&](qint16 &value) { return reader.readShortField(1, value); });
}

} // namespace

TEST(ListCodec, WritesCountThenEntries)
{
    QByteArray out;
    {
        ColumnWriter writer(out);
        const std::vector<qint16> entries{5, 6};
        sigdb::writeListEntries(writer, 9, entries,
                                [&writer](qint16 v) { writer.writeShortField(1, v); });
    }
    EXPECT_EQ(hex(out), hex(bytes("0009 0008 0000000000000002  0001 0002 0005  0001 0002 0006")));
}

TEST(ListCodec, CountZeroReadsNothingMore)
{
    const QByteArray data = bytes("0009 0008 0000000000000000 0001 0002 0005");
    ColumnReader reader(data);
    std::vector<qint16> out;
    EXPECT_TRUE(readShorts(reader, out));
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(reader.offset(), 12);
}

TEST(ListCodec, NegativeCountEndsTheList)
{
    const QByteArray data = bytes("0009 0008 ffffffffffffffff");
    ColumnReader reader(data);
    std::vector<qint16> out;
    EXPECT_TRUE(readShorts(reader, out));
    EXPECT_TRUE(out.empty());
}

TEST(ListCodec, WrongCountTagOrSizeFails)
{
    std::vector<qint16> out;
    const QByteArray wrongTag = bytes("0008 0008 0000000000000001 0001 0002 0005");
    ColumnReader tagReader(wrongTag);
    EXPECT_FALSE(readShorts(tagReader, out));
    const QByteArray wrongSize = bytes("0009 0004 00000001");
    ColumnReader sizeReader(wrongSize);
    EXPECT_FALSE(readShorts(sizeReader, out));
}

TEST(ListCodec, HugeCountStopsAtTheEndOfTheInput)
{
    const QByteArray data = bytes("0009 0008 7fffffffffffffff  0001 0002 0005");
    ColumnReader reader(data);
    std::vector<qint16> out;
    EXPECT_FALSE(readShorts(reader, out));
    EXPECT_EQ(out, std::vector<qint16>{5}) << "entries read before the failure stay";
    EXPECT_LE(out.capacity(), 1u) << "room for no more entries than the six bytes after the count hold";
}

TEST(ListCodec, ReservesWhatTheBytesLeftCanHold)
{
    const QByteArray data = bytes("0009 0008 0000000000000003  0001 0002 0005  0001 0002 0006  0001 0002 0007");
    ColumnReader reader(data);
    std::vector<qint16> out;
    EXPECT_TRUE(readShorts(reader, out));
    EXPECT_EQ(out, (std::vector<qint16>{5, 6, 7}));
    EXPECT_EQ(out.capacity(), 3u) << "reserved once, before the first entry";
}

TEST(ListCodec, MinimumEntrySizeIsFourBytesAFrameOfADefaultEntry)
{
    struct ThreeColumns
    {
        base::DbDataType<int> a, b;
        base::DbDataType<std::string> c;
        int setIDs(int start) { return start; }
        void writeTo(ColumnWriter &writer) const
        {
            writer.write(a);
            writer.write(b);
            writer.write(c);
        }
    };
    EXPECT_EQ(sigdb::minimumEntrySize<ThreeColumns>(), 12);
}

TEST(ListCodec, EntriesThatWouldReadFromNothingStopTheList)
{
    // An entry whose every column could read NULL from an exhausted stream must still not be
    // appended over and over.
    const QByteArray data = bytes("0009 0008 7fffffffffffffff");
    ColumnReader reader(data);
    int entries = 0;
    std::vector<base::DbDataType<std::string>> texts;
    EXPECT_FALSE(sigdb::readListEntries(reader, 9, texts, 4, [&](base::DbDataType<std::string> &text) {
        ++entries;
        return reader.read(text);
    }));
    EXPECT_TRUE(texts.empty());
    EXPECT_EQ(entries, 0);
}
