#include "core/elementlist.h"

#include "io/columnstream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdb::ElementList;
using sigdb::SigdbElement;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

SigdbElement element(int type, unsigned long long tid)
{
    SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    return e;
}

} // namespace

TEST(ElementList, EntriesShareTheIdsAndTheResultDoesNotDependOnTheCount)
{
    ElementList list;
    EXPECT_EQ(list.setIDs(5), 8);
    list.appendEntry(element(1, 1));
    list.appendEntry(element(2, 2));
    EXPECT_EQ(list.setIDs(5), 8);
    EXPECT_EQ(list.startID(), 5);
    for (const SigdbElement &e : list.container())
        EXPECT_EQ(e.tid().getID(), 6);
}

TEST(ElementList, EmptyEncodingIsTheCountFrame)
{
    QByteArray out;
    ElementList().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0008 0000000000000000")));
}

TEST(ElementList, EncodingAndRoundTrip)
{
    ElementList list;
    list.appendEntry(element(1, 258));
    QByteArray out;
    list.serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0008 0000000000000001"
                                  "0001 0002 0001  0002 0002 0000  0001 0008 0000000000000102"
                                  "0004 0002 0000  0005 0002 0000  0006 0002 0000  0007 0002 0000"
                                  "0002 0000  0003 0000")));
    ElementList back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(back == list);
}

TEST(ElementList, SkippingUndefinedElements)
{
    ElementList list;
    list.appendEntry(SigdbElement());
    list.appendEntry(element(1, 7));
    list.setIDs(0);
    QByteArray out;
    {
        ColumnWriter writer(out);
        list.writeTo(writer, true);
    }
    ElementList back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    ASSERT_EQ(back.count(), 1);
    EXPECT_TRUE(back.container()[0] == element(1, 7));
}

TEST(ElementList, HugeCountOnAShortStreamFails)
{
    const QByteArray data = bytes("0001 0008 4000000000000000");
    ElementList back;
    back.setIDs(0);
    ColumnReader reader(data);
    EXPECT_FALSE(back.readFrom(reader));
    EXPECT_EQ(back.count(), 0);
}

TEST(ElementList, Operations)
{
    ElementList list;
    EXPECT_TRUE(list.appendEntryNoDuplicate(element(1, 1)));
    EXPECT_FALSE(list.appendEntryNoDuplicate(element(1, 1)));
    list.appendEntry(element(2, 2));
    list.appendEntry(element(2, 3));
    EXPECT_EQ(list.count(), 3);
    EXPECT_TRUE(list.containsEntry(element(2, 3)));
    EXPECT_TRUE(list.containsElementOfType(2));
    EXPECT_FALSE(list.containsElementOfType(4));
    list.removeFirstElementOfType(2);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.container()[1].TID(), 3u);

    list.setIteratorToStart();
    EXPECT_EQ(list.getNextEntry()->TID(), 1u);
    EXPECT_EQ(list.getNextEntry()->TID(), 3u);
    EXPECT_EQ(list.getNextEntry(), nullptr);
    list.clear();
    EXPECT_EQ(list.count(), 0);
}
