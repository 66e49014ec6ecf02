// Information records: their own cases, with streams written by hand.

#include "middleware/inforecords.h"

#include "recordtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using mwtest::decodeError;
using mwtest::encode;
using sigdbtest::bytes;
using sigdbtest::hex;

TEST(MInfoWarningLevel, OnlyTheClientConnectionStateIsTwoBlocks)
{
    sigdb::MInfoWarningLevel level;
    level.setConnectionStateClient(sigdb::ConnectionState_Connected);
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000003 00000004 00000001");
    EXPECT_EQ(hex(encode(level)), hex(expected));

    const sigdb::MInfoWarningLevel decoded(expected);
    EXPECT_TRUE(decoded.isWarningLevelClientNull());
    EXPECT_TRUE(decoded.isWarningLevelMiddlewareNull());
    EXPECT_FALSE(decoded.isConnectionStateClientNull());
    EXPECT_EQ(decoded.getConnectionStateClient(), sigdb::ConnectionState_Connected);
    EXPECT_TRUE(decoded.isConnectionStateMiddlewareNull());
}

TEST(MInfoWarningLevel, MissingStoreTypeIsTheOnlyMissingProperty)
{
    sigdb::MInfoWarningLevel level;
    EXPECT_EQ(decodeError(bytes("00000004 00000004 00000002"), level),
              "Received incomplete structure MInfoWarningLevel: Missing property 'StoreType'");
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000004 00000004 00000002"),
                          level),
              "");
    EXPECT_EQ(level.getConnectionStateMiddleware(), 2);
}

TEST(CallbackMessage, WithoutStringValuesButWithIntValueDecodes)
{
    sigdb::CallbackMessage message;
    message.setstringValues({"kept"});
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 00000002"
                                "00000003 00000004 FFFFFFD6"),
                          message),
              "");
    EXPECT_EQ(message.getmessageType(), sigdb::CallbackMessageType_Warning);
    EXPECT_EQ(message.getstringValues(), (std::vector<std::string>{"kept"}));
    EXPECT_EQ(message.getintValue(), -42);
}

TEST(CallbackMessage, WithoutMessageTypeFails)
{
    sigdb::CallbackMessage message;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000003 00000004 FFFFFFD6"),
                          message),
              "Received incomplete structure CallbackMessage: Missing property 'messageType'");
}

TEST(CallbackMessage, EveryPropertyOnTheWire)
{
    sigdb::CallbackMessage message;
    message.setLayer(2);
    message.setmessageType(sigdb::CallbackMessageType_Progress);
    message.setstringValues({"a", "bc"});
    message.setintValue(75);
    const QByteArray expected = bytes("00000000 00000004 00000002"
                                      "00000001 00000004 00000004"
                                      "00000002 00000011 00000002 00000002 61 00 00000003 62 63 00"
                                      "00000003 00000004 0000004B");
    EXPECT_EQ(hex(encode(message)), hex(expected));
    EXPECT_TRUE(sigdb::CallbackMessage::deserialize(expected) == message);
}

TEST(MInfoClientLogin, AllBitsOfTheMessagingRequestTravelAsMinusOne)
{
    sigdb::MInfoClientLogin login;
    login.setClientMessagingRequest(0xFFFFFFFFu);
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000002 00000004 FFFFFFFF"
                                      "00000004 00000004 00000000");
    EXPECT_EQ(hex(encode(login)), hex(expected));
    const sigdb::MInfoClientLogin decoded(expected);
    EXPECT_EQ(decoded.getClientMessagingRequest(), 0xFFFFFFFFu);
    EXPECT_TRUE(decoded.isClientUserNameNull());
    EXPECT_TRUE(decoded.isClientTypeNull());
}

TEST(MInfoAnswer, EmptyInfoStringsIsABlockWithCountZero)
{
    sigdb::MInfoAnswer answer;
    answer.setRequestType(5);
    EXPECT_EQ(hex(encode(answer)), hex(bytes("00000000 00000004 00000000"
                                             "00000001 00000004 00000005"
                                             "00000002 00000004 00000000")));
}

TEST(Message, CodeOnTheWire)
{
    sigdb::Message message;
    message.setMessage(sigdb::MessageType_Reconnect);
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000004 00000004");
    EXPECT_EQ(hex(encode(message)), hex(expected));
    EXPECT_EQ(sigdb::Message(expected).getMessage(), sigdb::MessageType_Reconnect);
}

TEST(MInfoMessageVector, EntriesOnTheWire)
{
    sigdb::MInfoMessage message;
    message.setMessageType(sigdb::MIMessageType_Error);
    message.setMessageStrings({"x"});
    sigdb::MInfoMessageVector messages;
    messages.setVector({message});
    // The message's stream: 12 + 12 + (8 + 4 + 6) = 42 bytes (0x2A).
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000032 00000001 0000002A"
                                      "    00000000 00000004 00000000"
                                      "    00000001 00000004 00000003"
                                      "    00000002 0000000A 00000001 00000002 78 00");
    EXPECT_EQ(hex(encode(messages)), hex(expected));
    EXPECT_TRUE(sigdb::MInfoMessageVector(expected) == messages);
}

} // namespace
