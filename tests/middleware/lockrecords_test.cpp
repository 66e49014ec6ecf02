// Lock and name-value records: their own cases, with streams written by hand.

#include "middleware/lockrecords.h"
#include "middleware/namevaluerecords.h"

#include "recordtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using mwtest::decodeError;
using mwtest::encode;
using sigdbtest::bytes;
using sigdbtest::hex;

TEST(LockedElementData, WithoutIdentitiesIsNineBlocks)
{
    sigdb::LockedElementData lock;
    lock.setType(4);
    lock.setUserName("u");
    lock.setIp("1.2");
    lock.setDate("d");
    lock.setLockState(sigdb::LockState_Locked);
    lock.setLockType(sigdb::LockType_Write);
    lock.setClientId(7);
    lock.setLockedByMe(true);
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000004 00000004"
                                      "00000004 00000006 00000002 75 00"
                                      "00000005 00000008 00000004 31 2E 32 00"
                                      "00000006 00000006 00000002 64 00"
                                      "00000007 00000004 00000001"
                                      "00000008 00000004 00000002"
                                      "00000009 00000004 00000007"
                                      "0000000A 00000001 01");
    EXPECT_EQ(hex(encode(lock)), hex(expected));

    const sigdb::LockedElementData decoded(expected);
    EXPECT_TRUE(decoded.isExchgIdNull());
    EXPECT_TRUE(decoded.isTidNull());
    EXPECT_TRUE(decoded == lock);
    EXPECT_EQ(decoded.getIp(), "1.2");
    EXPECT_TRUE(decoded.getLockedByMe());
}

TEST(LockedElementData, AllBitsOfTheTidTravelAsMinusOne)
{
    sigdb::LockedElementData lock;
    lock.setTid(0xFFFFFFFFFFFFFFFFull);
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000004 00000000"
                                      "00000003 00000008 FFFFFFFF FFFFFFFF"
                                      "00000004 00000005 00000001 00"
                                      "00000005 00000005 00000001 00"
                                      "00000006 00000005 00000001 00"
                                      "00000007 00000004 00000000"
                                      "00000008 00000004 00000000"
                                      "00000009 00000004 00000000"
                                      "0000000A 00000001 00");
    EXPECT_EQ(hex(encode(lock)), hex(expected));
    const sigdb::LockedElementData decoded(expected);
    EXPECT_FALSE(decoded.isTidNull());
    EXPECT_EQ(decoded.getTid(), 0xFFFFFFFFFFFFFFFFull);
    EXPECT_TRUE(decoded.isExchgIdNull());
}

TEST(LockedElementData, WithoutUserNameButWithIpFails)
{
    sigdb::LockedElementData lock;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 00000004"
                                "00000005 00000005 00000001 00"),
                          lock),
              "Received incomplete structure LockedElementData: Missing property 'UserName'");
    EXPECT_EQ(lock.getType(), 4);
}

TEST(LockedElementDataVector, WithoutVectorBlockKeepsTheListAndReadsTheClient)
{
    sigdb::LockedElementData lock;
    lock.setUserName("held");
    sigdb::LockedElementDataVector locks;
    locks.setVector({lock});
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000002 00000004 00000009"),
                          locks),
              "");
    ASSERT_EQ(locks.getVector().size(), 1u);
    EXPECT_EQ(locks.getVector()[0].getUserName(), "held");
    EXPECT_EQ(locks.getClientId(), 9);
    EXPECT_TRUE(locks.isUserNameNull());
}

TEST(LockedElementDataVector, StreamEndingAfterTheVectorKeepsTheClient)
{
    sigdb::LockedElementDataVector locks;
    locks.setClientId(5);
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 00000000"),
                          locks),
              "");
    EXPECT_EQ(locks.getClientId(), 5);
}

TEST(LockedElementDataVector, UserNameWithoutClientIdFails)
{
    sigdb::LockedElementDataVector locks;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 00000000"
                                "00000003 00000007 00000003 61 62 00"),
                          locks),
              "Received incomplete structure LockedElementDataVector: Missing property 'ClientId'");
}

TEST(LockedElementDataVector, UserNameIsNullableHere)
{
    sigdb::LockedElementDataVector locks;
    locks.setClientId(3);
    locks.setUserName("ab");
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000004 00000000"
                                      "00000002 00000004 00000003"
                                      "00000003 00000007 00000003 61 62 00");
    EXPECT_EQ(hex(encode(locks)), hex(expected));
    const sigdb::LockedElementDataVector decoded(expected);
    EXPECT_FALSE(decoded.isUserNameNull());
    EXPECT_EQ(decoded.getUserName(), "ab");
}

TEST(NameValueDataForElement, EmptyPairListIsABlockWithCountZero)
{
    sigdb::NameValueDataForElement data;
    data.setElementType(4);
    data.setElementExchgId("X");
    EXPECT_EQ(hex(encode(data)), hex(bytes("00000000 00000004 00000000"
                                           "00000001 00000004 00000004"
                                           "00000002 00000006 00000002 58 00"
                                           "00000003 00000004 00000000")));
}

TEST(NameValueDataForElement, PairsTravelAsNestedStreams)
{
    sigdb::NameValuePair pair;
    pair.setName("n");
    pair.setValue("v");
    sigdb::NameValueDataForElement data;
    data.setVector({pair});
    // The pair's stream: 12 + 14 + 14 = 40 bytes (0x28).
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000004 00000000"
                                      "00000002 00000005 00000001 00"
                                      "00000003 00000030 00000001 00000028"
                                      "    00000000 00000004 00000000"
                                      "    00000001 00000006 00000002 6E 00"
                                      "    00000002 00000006 00000002 76 00");
    EXPECT_EQ(hex(encode(data)), hex(expected));
    EXPECT_TRUE(sigdb::NameValueDataForElement(expected) == data);
}

} // namespace
