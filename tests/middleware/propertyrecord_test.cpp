// Reading rules of the tagged property stream, shown on real records with streams written by
// hand, and the behaviour on counts and lengths that the bytes cannot justify.

#include "middleware/inforecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"

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

sigdb::InterfaceVersion interfaceVersion(int major, int minor)
{
    sigdb::InterfaceVersion version;
    version.setMajor(major);
    version.setMinor(minor);
    return version;
}

TEST(PropertyRecord, EmptyArrayDecodesWithoutChangingAnything)
{
    sigdb::InterfaceVersion version = interfaceVersion(3, 4);
    version.setLayer(1);
    sigdb::InterfaceVersion::deserialize(QByteArray(), version);
    EXPECT_EQ(version.getMajor(), 3);
    EXPECT_EQ(version.getMinor(), 4);
    EXPECT_EQ(version.layer(), 1);

    const sigdb::InterfaceVersion fresh = sigdb::InterfaceVersion::deserialize(QByteArray());
    EXPECT_EQ(fresh.getMajor(), 0);
    EXPECT_EQ(fresh.getMinor(), 0);
    EXPECT_EQ(fresh.layer(), 0);
}

TEST(PropertyRecord, StreamOfTheFirstPropertiesOnlyKeepsTheRest)
{
    // An older writer that knew StoreType and Major only.
    sigdb::InterfaceVersion version = interfaceVersion(3, 4);
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000002"
                                "00000001 00000004 00000007"),
                          version),
              "");
    EXPECT_EQ(version.layer(), 2);
    EXPECT_EQ(version.getMajor(), 7);
    EXPECT_EQ(version.getMinor(), 4);
}

TEST(PropertyRecord, MissingRequiredPropertyBetweenTwoBlocksIsReported)
{
    sigdb::InterfaceVersion version = interfaceVersion(3, 4);
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000002"
                                "00000002 00000004 00000001"),
                          version),
              "Received incomplete structure InterfaceVersion: Missing property 'Major'");
    // StoreType was read before the failure and stays; nothing after it was read.
    EXPECT_EQ(version.layer(), 2);
    EXPECT_EQ(version.getMajor(), 3);
    EXPECT_EQ(version.getMinor(), 4);
}

// Where decoding stopped: the end, the block standing where a missing property should be, or
// the block whose value failed (here after a skipped obsolete block and inside a vector).
TEST(PropertyRecord, DecodingTellsWhereItStopped)
{
    const struct
    {
        const char *stream;
        qint64 stoppedAt;
    } cases[] = {
        {"00000000 00000004 00000002  00000001 00000004 00000007", 24},
        {"00000000 00000004 00000002  00000002 00000004 00000001", 12},
        {"ffffffff 00000000  00000000 00000004 00000002  00000001 00000004 00000007"
         "00000002 00000004 FFFFFFFF",
         32},
    };
    for (const auto &test : cases) {
        qint64 stoppedAt = -1;
        sigdb::MInfoAnswer answer;
        try {
            sigdb::MInfoAnswer::deserialize(bytes(test.stream), answer, stoppedAt);
        } catch (const QString &) {
        }
        EXPECT_EQ(stoppedAt, test.stoppedAt) << test.stream;
    }
    qint64 stoppedAt = -1;
    sigdb::InterfaceVersion version;
    EXPECT_THROW(sigdb::InterfaceVersion::deserialize(bytes("00000000 00000004 00000002  00000002 00000004 00000001"),
                                                      version, stoppedAt),
                 QString);
    EXPECT_EQ(stoppedAt, 12);
}

TEST(PropertyRecord, MissingStoreTypeIsReportedByTheConstructorFromBytes)
{
    try {
        const sigdb::InterfaceVersion version(bytes("00000001 00000004 00000001"));
        ADD_FAILURE() << "decoded without StoreType";
    } catch (const QString &message) {
        EXPECT_EQ(message.toStdString(),
                  "Received incomplete structure InterfaceVersion: Missing property 'StoreType'");
    }
}

TEST(PropertyRecord, AbsentOptionalPropertyLeavesTheBlockToTheNextOne)
{
    // ClientUserName (1) is optional and absent; the block of index 2 is read for property 2.
    sigdb::MInfoClientLogin login;
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000002 00000004 00000005"),
                          login),
              "");
    EXPECT_TRUE(login.isClientUserNameNull());
    EXPECT_FALSE(login.isClientMessagingRequestNull());
    EXPECT_EQ(login.getClientMessagingRequest(), 5u);
    EXPECT_TRUE(login.isClientTypeNull());
}

TEST(PropertyRecord, LowerIndexBlockIsSkippedBySize)
{
    sigdb::InterfaceVersion version;
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000001"
                                "00000000 00000003 AA BB CC"
                                "00000001 00000004 00000007"
                                "00000000 00000000"
                                "00000002 00000004 00000008"),
                          version),
              "");
    EXPECT_EQ(version.layer(), 1);
    EXPECT_EQ(version.getMajor(), 7);
    EXPECT_EQ(version.getMinor(), 8);
}

TEST(PropertyRecord, BlocksAfterTheLastPropertyAreIgnored)
{
    sigdb::InterfaceVersion version;
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 00000007"
                                "00000002 00000004 00000008"
                                "00000003 00000002 FFFF"
                                "00000007 7FFFFFFF"),
                          version),
              "");
    EXPECT_EQ(version.getMajor(), 7);
    EXPECT_EQ(version.getMinor(), 8);
}

TEST(PropertyRecord, NullValueIsAnAbsentBlockAndAPresentBlockClearsTheFlag)
{
    sigdb::MInfoClientLogin login;
    login.setClientUserName("stale");
    login.setClientUserNameNull(true);
    EXPECT_EQ(hex(encode(login)), hex(bytes("00000000 00000004 00000000"
                                            "00000004 00000004 00000000")));

    sigdb::MInfoClientLogin::deserialize(bytes("00000000 00000004 00000000"
                                               "00000001 00000007 00000003 61 62 00"),
                                         login);
    EXPECT_FALSE(login.isClientUserNameNull());
    EXPECT_EQ(login.getClientUserName(), "ab");
}

TEST(PropertyRecord, EmptyVectorIsCountZeroAndCountZeroKeepsTheEntries)
{
    sigdb::MInfoAnswer answer;
    answer.setRequestType(5);
    EXPECT_EQ(hex(encode(answer)), hex(bytes("00000000 00000004 00000000"
                                             "00000001 00000004 00000005"
                                             "00000002 00000004 00000000")));

    answer.setInfoStrings({"a", "b"});
    sigdb::MInfoAnswer::deserialize(bytes("00000000 00000004 00000000"
                                          "00000001 00000004 00000006"
                                          "00000002 00000004 00000000"),
                                    answer);
    EXPECT_EQ(answer.getRequestType(), 6);
    EXPECT_EQ(answer.getInfoStrings(), (std::vector<std::string>{"a", "b"}));
}

TEST(PropertyRecord, NonZeroCountResizesAndOverwritesInPlace)
{
    // Two entries into three: the third goes, the first is overwritten, and the second keeps
    // its text because its length 0 carries none.
    sigdb::MInfoAnswer answer;
    answer.setInfoStrings({"a", "b", "c"});
    sigdb::MInfoAnswer::deserialize(bytes("00000000 00000004 00000000"
                                          "00000001 00000004 00000000"
                                          "00000002 0000000E 00000002 00000002 78 00 00000000"),
                                    answer);
    EXPECT_EQ(answer.getInfoStrings(), (std::vector<std::string>{"x", "b"}));
}

TEST(PropertyRecord, VectorElementsAreDecodedInPlace)
{
    sigdb::MInfoClientLogin first;
    first.setClientUserName("old1");
    sigdb::MInfoClientLogin second;
    second.setClientUserName("old2");
    sigdb::MInfoClientLoginVector logins;
    logins.setVector({first, second, sigdb::MInfoClientLogin()});

    // Element 0 carries StoreType and ClientType 1; element 1 is a null byte array.
    sigdb::MInfoClientLoginVector::deserialize(
        bytes("00000000 00000004 00000000"
              "00000001 00000024 00000002"
              "    00000018 00000000 00000004 00000000 00000003 00000004 00000001"
              "    FFFFFFFF"),
        logins);
    ASSERT_EQ(logins.getVector().size(), 2u);
    EXPECT_EQ(logins.getVector()[0].getClientUserName(), "old1");
    EXPECT_EQ(logins.getVector()[0].getClientType(), sigdb::ClientConnectionType_Interactive);
    EXPECT_FALSE(logins.getVector()[0].isClientTypeNull());
    EXPECT_EQ(logins.getVector()[1].getClientUserName(), "old2");
    EXPECT_TRUE(logins.getVector()[1].isClientTypeNull());
}

TEST(PropertyRecord, EmptyStringIsLengthOneAndAZeroByte)
{
    sigdb::NameValuePair pair;
    pair.setValue("v");
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000005 00000001 00"
                                      "00000002 00000006 00000002 76 00");
    EXPECT_EQ(hex(encode(pair)), hex(expected));

    sigdb::NameValuePair decoded;
    decoded.setName("old");
    sigdb::NameValuePair::deserialize(expected, decoded);
    EXPECT_EQ(decoded.getName(), "");
    EXPECT_EQ(decoded.getValue(), "v");
}

TEST(PropertyRecord, TextBytesTravelWithoutConversion)
{
    sigdb::NameValuePair pair;
    pair.setName("\xE4\xF6");
    pair.setValue(std::string("cut\0here", 8));
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000007 00000003 E4 F6 00"
                                      "00000002 00000008 00000004 63 75 74 00");
    EXPECT_EQ(hex(encode(pair)), hex(expected));
    const sigdb::NameValuePair decoded(expected);
    EXPECT_EQ(decoded.getName(), "\xE4\xF6");
    EXPECT_EQ(decoded.getValue(), "cut");
}

// ---------------------------------------------------------------------------------------------
// Counts and lengths that the bytes cannot justify

struct HostileCase
{
    const char *name;
    const char *stream;
    const char *error; // "" when the stream decodes
};

class MInfoAnswerHostileCount : public ::testing::TestWithParam<HostileCase>
{
};

const HostileCase kAnswerCases[] = {
    {"ControlTwoEmptyEntries", "00000002 0000000E 00000002 00000001 00 00000001 00", ""},
    {"CountFitsFourBytesPerEntry", "00000002 0000000C 00000002 00000000 00000000", ""},
    {"Negative", "00000002 00000004 FFFFFFFF",
     "Received corrupt structure MInfoAnswer: Invalid count -1 in property 'InfoStrings'"},
    {"MostNegative", "00000002 00000004 80000000",
     "Received corrupt structure MInfoAnswer: Invalid count -2147483648 in property 'InfoStrings'"},
    {"Huge", "00000002 0000000A 7FFFFFFF 00000001 00 00",
     "Received corrupt structure MInfoAnswer: Invalid count 2147483647 in property 'InfoStrings'"},
    {"OneEntryMoreThanFits", "00000002 0000000C 00000003 00000000 00000000",
     "Received corrupt structure MInfoAnswer: Invalid count 3 in property 'InfoStrings'"},
};

std::string hostileName(const ::testing::TestParamInfo<HostileCase> &info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Counts, MInfoAnswerHostileCount, ::testing::ValuesIn(kAnswerCases), hostileName);

TEST_P(MInfoAnswerHostileCount, IsRejectedBeforeAnythingIsAllocated)
{
    sigdb::MInfoAnswer answer;
    const QByteArray stream = bytes("00000000 00000004 00000000"
                                    "00000001 00000004 00000009")
        + bytes(GetParam().stream);
    EXPECT_EQ(decodeError(stream, answer), GetParam().error);
    EXPECT_EQ(answer.getRequestType(), 9); // read before the count, kept
    if (std::string(GetParam().error).empty())
        EXPECT_EQ(answer.getInfoStrings(), (std::vector<std::string>{"", ""}));
    else
        EXPECT_TRUE(answer.getInfoStrings().empty());
}

TEST(PropertyRecord, HugeRecordCountIsRejected)
{
    sigdb::ProductVersionVector versions;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000004 7FFFFFFF"),
                          versions),
              "Received corrupt structure ProductVersionVector: Invalid count 2147483647 in property 'Vector'");
}

TEST(PropertyRecord, CorruptCountInsideAnElementNamesTheElementClass)
{
    // NameValueDataForElementVector with one element whose pair list announces -5 entries.
    sigdb::NameValueDataForElementVector data;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000039 00000001 00000031"
                                "    00000000 00000004 00000000"
                                "    00000001 00000004 00000000"
                                "    00000002 00000005 00000001 00"
                                "    00000003 00000004 FFFFFFFB"),
                          data),
              "Received corrupt structure NameValueDataForElement: Invalid count -5 in property 'Vector'");
}

TEST(PropertyRecord, TextLongerThanTheStreamKeepsItsValueAndEndsTheStream)
{
    sigdb::ProductVersion version;
    version.setOrigin("kept");
    version.setMajor(4);
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000001"
                                "00000001 00000008 FFFFFFFF 41 42 43 44"
                                "00000002 00000004 00000009"),
                          version),
              "");
    EXPECT_EQ(version.layer(), 1);
    EXPECT_EQ(version.getOrigin(), "kept");
    EXPECT_EQ(version.getMajor(), 4); // the rest of the stream went with the text
}

TEST(PropertyRecord, NestedRecordLongerThanTheStreamKeepsItsValues)
{
    sigdb::VersionInfo info;
    info.getProductVersion().setMajor(5);
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000008 7FFFFFFF 00000000"),
                          info),
              "");
    EXPECT_EQ(info.getProductVersion().getMajor(), 5);
}

TEST(PropertyRecord, NegativeBlockSizeDoesNotLoop)
{
    sigdb::InterfaceVersion version;
    ASSERT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000000 FFFFFFF8"
                                "00000000 FFFFFFFF"
                                "00000001 00000004 00000007"
                                "00000002 00000004 00000008"),
                          version),
              "");
    EXPECT_EQ(version.getMajor(), 7);
    EXPECT_EQ(version.getMinor(), 8);
}

} // namespace
