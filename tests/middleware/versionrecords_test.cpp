// Version and maintenance records: their own cases, with streams written by hand.

#include "recordsamples.h"
#include "recordtesting.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using mwtest::Sample;
using mwtest::decodeError;
using mwtest::encode;
using sigdbtest::bytes;
using sigdbtest::hex;

TEST(VersionInfo, StreamEndingAfterTheInterfaceVersionKeepsTheRest)
{
    sigdb::VersionInfo info = Sample<sigdb::VersionInfo>::populated();
    const QByteArray stream = bytes("00000000 00000004 00000000")
        + bytes("00000001 00000067 00000063") + Sample<sigdb::ProductVersion>::defaultBytes()
        + bytes("00000002 00000028 00000024") + Sample<sigdb::InterfaceVersion>::defaultBytes();
    ASSERT_EQ(decodeError(stream, info), "");
    EXPECT_EQ(info.layer(), 0);
    EXPECT_TRUE(info.getProductVersion() == sigdb::ProductVersion());
    EXPECT_TRUE(info.getInterfaceVersion() == sigdb::InterfaceVersion());
    EXPECT_EQ(info.getRequiredInterfaceVersion().getMajor(), 3);
    EXPECT_EQ(info.getRequiredInterfaceVersion().getMinor(), 9);
    EXPECT_EQ(info.getInterfaceMatching(), sigdb::InterfaceMatching_Compatible);
    EXPECT_EQ(info.getInterfaceIdentifier(), sigdb::InterfaceIdentifier_Reference);
}

TEST(VersionInfo, NestedProductVersionWithoutMajorRaisesItsOwnMessage)
{
    // The nested product version: StoreType, Origin "", then Minor 2 without Major
    // (12 + 13 + 12 bytes = 0x25; the block holds 4 more for the array length).
    sigdb::VersionInfo info;
    const QByteArray stream = bytes("00000000 00000004 00000001"
                                    "00000001 00000029 00000025"
                                    "    00000000 00000004 00000000"
                                    "    00000001 00000005 00000001 00"
                                    "    00000003 00000004 00000002");
    EXPECT_EQ(decodeError(stream, info),
              "Received incomplete structure ProductVersion: Missing property 'Major'");
    EXPECT_EQ(info.layer(), 1);
}

TEST(VersionInfo, NestedRecordsTravelAsByteArrays)
{
    sigdb::VersionInfo info;
    info.setInterfaceVersion(Sample<sigdb::InterfaceVersion>::make(7, 1)); // StoreType 2
    info.setInterfaceMatching(sigdb::InterfaceMatching_Match);
    info.setInterfaceIdentifier(static_cast<sigdb::InterfaceIdentifier>(-3));
    const QByteArray expected = bytes("00000000 00000004 00000000")
        + bytes("00000001 00000067 00000063") + Sample<sigdb::ProductVersion>::defaultBytes()
        + bytes("00000002 00000028 00000024"
                "    00000000 00000004 00000002"
                "    00000001 00000004 00000007"
                "    00000002 00000004 00000001")
        + bytes("00000003 00000028 00000024") + Sample<sigdb::InterfaceVersion>::defaultBytes()
        + bytes("00000004 00000004 00000001"
                "00000005 00000004 FFFFFFFD");
    EXPECT_EQ(hex(encode(info)), hex(expected));
    EXPECT_TRUE(sigdb::VersionInfo(expected) == info);
}

TEST(VersionInfoVector, EntriesCarryTheClassName)
{
    // The entries' property is named after the class, also in its message.
    EXPECT_EQ(sigdb::VersionInfoVector::propertyNames().value(1).toStdString(), "VersionInfoVector");
    sigdb::VersionInfoVector versions;
    EXPECT_EQ(decodeError(bytes("00000001 00000004 00000000"), versions),
              "Received incomplete structure VersionInfoVector: Missing property 'StoreType'");
}

TEST(ProductVersion, EveryPropertyOnTheWire)
{
    sigdb::ProductVersion version;
    version.setOrigin("S");
    version.setMajor(1);
    version.setMinor(2);
    version.setBugfix(3);
    version.setBuild(258);
    version.setVersionDate("D");
    version.setBuildDate("");
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000006 00000002 53 00"
                                      "00000002 00000004 00000001"
                                      "00000003 00000004 00000002"
                                      "00000004 00000004 00000003"
                                      "00000005 00000004 00000102"
                                      "00000006 00000006 00000002 44 00"
                                      "00000007 00000005 00000001 00");
    EXPECT_EQ(hex(encode(version)), hex(expected));
    EXPECT_TRUE(sigdb::ProductVersion::deserialize(expected) == version);
}

TEST(DbMaintenanceRequest, NullOptionalDataIsLeftOut)
{
    sigdb::DbMaintenanceRequest request;
    request.setLayer(1);
    request.setInterface(sigdb::InterfaceIdentifier_Core);
    request.setAction(sigdb::DbMaintenanceAction_Backup);
    const QByteArray expected = bytes("00000000 00000004 00000001"
                                      "00000001 00000004 00000001"
                                      "00000002 00000004 00000004");
    EXPECT_EQ(hex(encode(request)), hex(expected));

    const sigdb::DbMaintenanceRequest decoded(expected);
    EXPECT_TRUE(decoded.isOptionalDataNull());
    EXPECT_EQ(decoded.getInterface(), sigdb::InterfaceIdentifier_Core);
    EXPECT_EQ(decoded.getAction(), sigdb::DbMaintenanceAction_Backup);
    EXPECT_TRUE(decoded.isPersistent());
}

TEST(DbMaintenanceAnswer, EchoesTheWholeRequest)
{
    sigdb::DbMaintenanceRequest request;
    request.setInterface(sigdb::InterfaceIdentifier_Middleware);
    request.setAction(sigdb::DbMaintenanceAction_Reorganize);
    request.setOptionalData("x");
    sigdb::DbMaintenanceAnswer answer;
    answer.setRequest(request);
    answer.setResult(sigdb::DbMaintenanceResult_Success);
    // The request's stream is 3 * 12 + 14 = 50 bytes (0x32).
    const QByteArray expected = bytes("00000000 00000004 00000000"
                                      "00000001 00000036 00000032"
                                      "    00000000 00000004 00000000"
                                      "    00000001 00000004 00000003"
                                      "    00000002 00000004 00000002"
                                      "    00000003 00000006 00000002 78 00"
                                      "00000002 00000004 00000001");
    EXPECT_EQ(hex(encode(answer)), hex(expected));

    const sigdb::DbMaintenanceAnswer decoded = sigdb::DbMaintenanceAnswer::deserialize(expected);
    EXPECT_FALSE(decoded.getRequest().isOptionalDataNull());
    EXPECT_EQ(decoded.getRequest().getOptionalData(), "x");
    EXPECT_TRUE(decoded.getRequest() == request);
    EXPECT_EQ(decoded.getResult(), sigdb::DbMaintenanceResult_Success);
}

TEST(DbMaintenanceAnswerVector, MissingPropertyOfAnElementRaisesTheElementsMessage)
{
    // One answer whose stream holds StoreType and Result but no Request.
    sigdb::DbMaintenanceAnswerVector answers;
    EXPECT_EQ(decodeError(bytes("00000000 00000004 00000000"
                                "00000001 00000020 00000001"
                                "    00000018 00000000 00000004 00000000 00000002 00000004 00000001"),
                          answers),
              "Received incomplete structure DbMaintenanceAnswer: Missing property 'Request'");
}

} // namespace
