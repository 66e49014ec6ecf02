#include "client/sigdbelementwithmaxcount.h"

#include "io/columnstream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ColumnReader;
using sigdb::SigdbElementWithMaxCount;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

const char *const kDefaultElement =
    "0001 0002 0000  0002 0002 0000  0001 0000  0004 0002 0000  0005 0002 0000"
    "0006 0002 0000  0007 0002 0000  0002 0000  0003 0000";

const char *const kDefaultPaging =
    "00 03 00 08 00 00 00 00 00 00 00 00"
    "00 04 00 08 00 00 00 00 00 00 03 E8"
    "00 05 00 02 00 00";

} // namespace

TEST(SigdbElementWithMaxCount, DefaultEncoding)
{
    QByteArray out;
    SigdbElementWithMaxCount().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes(kDefaultElement) + bytes(kDefaultPaging)));
}

TEST(SigdbElementWithMaxCount, PopulatedEncodingAndRoundTrip)
{
    SigdbElementWithMaxCount request;
    request.setType(4);
    request.setTID(9);
    request.setStartIndex(100);
    request.setResultListMaxCount(50);
    request.setRequestedListType(static_cast<sigdb::ElementList_Type>(3));
    QByteArray out;
    request.serialize(out);
    EXPECT_EQ(hex(out.right(30)), hex(bytes("0003 0008 0000000000000064  0004 0008 0000000000000032"
                                            "0005 0002 0003")));

    SigdbElementWithMaxCount back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(back == request);
    EXPECT_EQ(back.startIndex(), 100u);
    EXPECT_EQ(back.resultListMaxCount(), 50u);
    EXPECT_EQ(back.requestedListType(), 3);
    EXPECT_EQ(back.TID(), 9u);
}

TEST(SigdbElementWithMaxCount, TruncatedAtEveryPositionFails)
{
    QByteArray out;
    SigdbElementWithMaxCount().serialize(out);
    for (int length = 0; length < out.size(); ++length) {
        SigdbElementWithMaxCount back;
        back.setIDs(0);
        const QByteArray truncated = out.left(length);
        ColumnReader reader(truncated);
        EXPECT_FALSE(back.readFrom(reader)) << "length " << length;
    }
}

TEST(SigdbElementWithMaxCount, RecordsDifferingOnlyInListTypeAreEqual)
{
    SigdbElementWithMaxCount a;
    SigdbElementWithMaxCount b;
    b.setRequestedListType(static_cast<sigdb::ElementList_Type>(2));
    EXPECT_TRUE(a == b);
    b.setStartIndex(1);
    EXPECT_FALSE(a == b);
    b = a;
    b.setResultListMaxCount(1);
    EXPECT_FALSE(a == b);
    b = a;
    b.setType(3);
    EXPECT_FALSE(a == b);
}

TEST(SigdbElementWithMaxCount, BuiltFromAnElementKeepsItsIdentity)
{
    sigdb::SigdbElement element;
    element.setType(1);
    element.setTID(55);
    element.setLayer(2);
    const SigdbElementWithMaxCount request(element);
    EXPECT_TRUE(static_cast<const sigdb::SigdbElement &>(request) == element);
    EXPECT_EQ(request.layer(), 2);
    EXPECT_EQ(request.startIndex(), 0u);
    EXPECT_EQ(request.resultListMaxCount(), 1000u);
    EXPECT_EQ(request.requestedListType(), 0);
}

TEST(SigdbElementWithMaxCount, ResetRestoresThePaging)
{
    SigdbElementWithMaxCount request;
    request.setType(4);
    request.setResultListMaxCount(5);
    request.setStartIndex(7);
    request.setRequestedListType(static_cast<sigdb::ElementList_Type>(1));
    request.resetData();
    EXPECT_EQ(request.resultListMaxCount(), 1000u);
    EXPECT_EQ(request.startIndex(), 0u);
    EXPECT_EQ(request.requestedListType(), 0);
    EXPECT_EQ(request.type(), 4);
    request.setResultListMaxCount(5);
    request.reset();
    EXPECT_EQ(request.resultListMaxCount(), 1000u);
    EXPECT_EQ(request.type(), 0);
}

TEST(SigdbElementWithMaxCount, CopiesCarryEverything)
{
    SigdbElementWithMaxCount request;
    request.setTID(3);
    request.setStartIndex(4);
    request.setResultListMaxCount(5);
    request.setRequestedListType(static_cast<sigdb::ElementList_Type>(6));
    const SigdbElementWithMaxCount copy(request);
    SigdbElementWithMaxCount assigned;
    assigned = request;
    base::DbBaseType *heap = request.getCopy(&request);
    auto *typed = dynamic_cast<SigdbElementWithMaxCount *>(heap);
    ASSERT_NE(typed, nullptr);
    const std::vector<const SigdbElementWithMaxCount *> records{&copy, &assigned, typed};
    for (const SigdbElementWithMaxCount *r : records) {
        EXPECT_EQ(r->TID(), 3u);
        EXPECT_EQ(r->startIndex(), 4u);
        EXPECT_EQ(r->resultListMaxCount(), 5u);
        EXPECT_EQ(r->requestedListType(), 6);
    }
    delete heap;
}
