#include "core/sigdbelement.h"

#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ColumnReader;
using sigdb::SigdbElement;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

const char *const kDefaultElement =
    "0001 0002 0000"   // type
    "0002 0002 0000"   // sub-type
    "0001 0000"        // TID column, NULL
    "0004 0002 0000"   // approval action
    "0005 0002 0000"   // approval state
    "0006 0002 0000"   // change kind
    "0007 0002 0000"   // layer
    "0002 0000"        // exchange id, NULL
    "0003 0000";       // modification user, NULL

SigdbElement populated()
{
    SigdbElement element;
    element.setType(4);
    element.setSubType(3);
    element.setTID(0x0102030405060708ULL);
    element.setApproveType(sigdb::Approval_Reject);
    element.setApvState(1024 + 2);
    element.setChangeType(1);
    element.setLayer(2);
    element.setExchgId(std::string("NET-7"));
    element.setModificationUser(std::string("ab"));
    return element;
}

} // namespace

TEST(SigdbElement, DefaultState)
{
    const SigdbElement element;
    EXPECT_TRUE(element.isTYPEundefined());
    EXPECT_TRUE(element.isTIDundefined());
    EXPECT_TRUE(element.isUndefined());
    EXPECT_EQ(element.TID(), 0u);
    EXPECT_EQ(element.layer(), 0);
    EXPECT_EQ(element.approvalType(), sigdb::Approval_None);
    EXPECT_TRUE(element.exchgId().isNull());
}

TEST(SigdbElement, SetIdsNumbersThreeColumns)
{
    SigdbElement element;
    EXPECT_EQ(element.setIDs(10), 13);
    EXPECT_EQ(element.tid().getID(), 11);
    EXPECT_EQ(element.exchgId().getID(), 12);
    EXPECT_EQ(element.modificationUser().getID(), 13);
}

TEST(SigdbElement, DefaultEncoding)
{
    QByteArray out;
    SigdbElement().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes(kDefaultElement)));
}

TEST(SigdbElement, PopulatedEncoding)
{
    QByteArray out;
    populated().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes("0001 0002 0004  0002 0002 0003  0001 0008 0102030405060708"
                                  "0004 0002 0002  0005 0002 0402  0006 0002 0001  0007 0002 0002"
                                  "0002 0006 00000006 4e45542d3700  0003 0003 00000003 616200")));
}

TEST(SigdbElement, RoundTrip)
{
    QByteArray out;
    const SigdbElement original = populated();
    original.serialize(out);

    SigdbElement back;
    back.setIDs(0);
    ColumnReader reader(out);
    ASSERT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(reader.atEnd());
    EXPECT_TRUE(back == original);
    EXPECT_EQ(back.subType(), 3);
    EXPECT_EQ(back.apvState(), 1026);
    EXPECT_EQ(back.approvalType(), sigdb::Approval_Reject);
    EXPECT_EQ(back.changeType(), 1);
    EXPECT_EQ(back.layer(), 2);
    EXPECT_EQ(back.exchgId().getData(), "NET-7");
    EXPECT_EQ(back.modificationUser().getData(), "ab");
}

TEST(SigdbElement, DecodingIntoAnUnnumberedElementFails)
{
    QByteArray out;
    populated().serialize(out);
    SigdbElement back; // not numbered with setIDs(0)
    ColumnReader reader(out);
    EXPECT_FALSE(back.readFrom(reader));
}

TEST(SigdbElement, WrongFixedTagFails)
{
    QByteArray data = bytes(kDefaultElement);
    data[1] = 9; // tag of the type frame
    SigdbElement back;
    back.setIDs(0);
    ColumnReader reader(data);
    EXPECT_FALSE(back.readFrom(reader));
}

TEST(SigdbElement, TruncatedAtEveryPositionFails)
{
    QByteArray out;
    populated().serialize(out);
    for (int length = 0; length < out.size(); ++length) {
        const QByteArray truncated = out.left(length);
        SigdbElement back;
        back.setIDs(0);
        ColumnReader reader(truncated);
        EXPECT_FALSE(back.readFrom(reader)) << "length " << length;
    }
}

TEST(SigdbElement, DefaultRoundTrip)
{
    const QByteArray data = bytes(kDefaultElement);
    SigdbElement back;
    back.setIDs(0);
    ColumnReader reader(data);
    EXPECT_TRUE(back.readFrom(reader));
    EXPECT_TRUE(back == SigdbElement());
}

TEST(SigdbElement, IdentityEquality)
{
    SigdbElement a = populated();
    SigdbElement b = populated();
    b.setApvState(0);
    b.setLayer(1);
    EXPECT_TRUE(a == b) << "identity is type and TID";
    b.setTID(1);
    EXPECT_FALSE(a == b);
    b = a;
    b.setType(5);
    EXPECT_TRUE(a != b);

    SigdbElement newA;
    newA.setType(4);
    newA.setExchgId(std::string("X"));
    SigdbElement newB = newA;
    EXPECT_TRUE(newA == newB);
    newB.setExchgId(std::string("Y"));
    EXPECT_FALSE(newA == newB) << "elements without TID are told apart by their exchange ids";
}

TEST(SigdbElement, AssignmentKeepsIds)
{
    SigdbElement target;
    target.setIDs(20);
    target = populated();
    EXPECT_EQ(target.tid().getID(), 21);
    EXPECT_EQ(target.TID(), 0x0102030405060708ULL);
}

TEST(SigdbElement, ApprovalFromModificationState)
{
    SigdbElement element;
    element.setApprovalTypeFromModState(sigdb::Modification_ChangedInMdl, true);
    EXPECT_EQ(element.approvalType(), sigdb::Approval_Accept);
    EXPECT_TRUE(element.approve());
    element.setApprovalTypeFromModState(sigdb::Modification_Unknown, false);
    EXPECT_EQ(element.approvalType(), sigdb::Approval_Reject);
    element.setApprovalTypeFromModState(sigdb::Modification_Approved, true);
    EXPECT_EQ(element.approvalType(), sigdb::Approval_None);
    element.setApprove(true);
    EXPECT_TRUE(element.approve());
    element.setApprove(false);
    EXPECT_FALSE(element.approve());
}

TEST(SigdbElement, NamingComesFromTheSchema)
{
    SigdbElement network;
    network.setType(4);
    network.setTID(12);
    network.setLayer(1);
    EXPECT_EQ(network.typeName(), "Network");
    EXPECT_EQ(network.tableName(), "CORENETWORK");
    EXPECT_EQ(network.tablePrefix(), "CORE");
    EXPECT_EQ(network.tableAbbrevation(), "NET");
    EXPECT_EQ(network.convertedColumnName("TID"), "NETTID");
    EXPECT_EQ(network.infoAsString(), "Network 4:12:1");
    SigdbElement unknown;
    unknown.setType(999);
    EXPECT_EQ(unknown.typeAsString(), "type 999");
    EXPECT_EQ(unknown.infoAsString(), "type 999 999::0");
    EXPECT_EQ(SigdbElement::linkTableNameforTypes(4, 1), "CORENETUNILINK");
}

TEST(SigdbElement, TypeRulesComeFromTheSchema)
{
    SigdbElement unit;
    unit.setType(1);
    EXPECT_EQ(unit.superiorType(), 2);
    EXPECT_TRUE(unit.canBeCollocated());
    EXPECT_TRUE(unit.isNetworkMemberType());
    EXPECT_FALSE(unit.isLocalData());
    EXPECT_TRUE(unit.hasColumnWithId(17));
    SigdbElement plot;
    plot.setType(29);
    EXPECT_TRUE(plot.isLocalData());
}

TEST(SigdbElement, GetCopyAndReset)
{
    SigdbElement element = populated();
    base::DbBaseType *copy = element.getCopy(&element);
    auto *typed = dynamic_cast<SigdbElement *>(copy);
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == element);
    EXPECT_EQ(typed->layer(), 2);
    delete copy;

    element.reset();
    EXPECT_TRUE(element.isUndefined());
    EXPECT_EQ(element.layer(), 0);
    EXPECT_TRUE(element.exchgId().isNull());
}
