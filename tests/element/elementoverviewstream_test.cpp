#include "element/elementoverview.h"

#include "overviewtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>

using namespace sigdb;
using overviewtest::decode;
using overviewtest::defaultElementHex;
using overviewtest::encode;
using overviewtest::populatedOverview;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

// A default overview numbered from 0, worked out field by field.
std::string defaultOverviewHex()
{
    return defaultElementHex("01", "02", "03")
        + "00 04 00 00 00 05 00 00 00 06 00 00 "   // keyText1..3 (ids 4, 5, 6)
          "00 07 00 00 "                           // locationIndication (7)
          "00 08 00 00 "                           // modificationState (8)
          "00 0b 00 00 "                           // linkModificationState (11)
          "00 0c 00 00 "                           // networkTypeWord (12)
          "00 01 00 08 00 00 00 00 00 00 00 00 "   // uniqueLinks: count tag 1, 0 entries
          "00 11 00 00 "                           // collocationGroupLeader (17)
          "00 0d 00 00 "                           // auxiliaryTid (13)
          "00 09 00 00 "                           // collocationModState (9)
          "00 0a 00 00 "                           // orderNumber (10)
        + defaultElementHex("12", "13", "14")      // relatedElement (18, 19, 20)
        + "00 15 00 00 00 16 00 00 00 17 00 00 00 18 00 00 " // exchgIdText, infoText2..4
          "00 1a 00 00 00 1b 00 00 00 1c 00 00 00 1d 00 00 00 1e 00 00 " // location (26..30)
          "00 02 00 08 00 00 00 00 00 00 00 00";   // locationList: count tag 2, 0 entries
}

} // namespace

TEST(ElementOverviewStream, DefaultOverviewBytes)
{
    const ElementOverview overview;
    EXPECT_EQ(hex(encode(overview)), hex(bytes(defaultOverviewHex().c_str())));
    // Twelve fixed element frames, 26 NULL columns and two list counts.
    EXPECT_EQ(encode(overview).size(), 12 * 6 + 26 * 4 + 2 * 12);
}

TEST(ElementOverviewStream, DefaultOverviewDecodesToADefaultOverview)
{
    ElementOverview decoded;
    ASSERT_TRUE(decode(bytes(defaultOverviewHex().c_str()), decoded));
    EXPECT_EQ(decoded, ElementOverview());
    EXPECT_TRUE(decoded.modificationState.isNull());
    EXPECT_TRUE(decoded.orderNumber.isNull());
    EXPECT_TRUE(decoded.keyText1.isNull());
    EXPECT_EQ(decoded.uniqueLinks.count(), 0);
}

TEST(ElementOverviewStream, DecodingOverwritesColumnsOfAUsedOverview)
{
    ElementOverview decoded = populatedOverview();
    decoded.uniqueLinks.clear();
    decoded.locationList.clear();
    ASSERT_TRUE(decode(bytes(defaultOverviewHex().c_str()), decoded));
    EXPECT_EQ(decoded, ElementOverview());
    EXPECT_TRUE(decoded.orderNumber.isNull());
}

TEST(ElementOverviewStream, SetValuesBytes)
{
    ElementOverview o;
    o.element.setType(1);
    o.element.setTID(0x1234);
    o.keyText1 = std::string("AB");
    o.modificationState = Modification_ChangedInMdl;
    o.networkTypeWord = 18;
    o.uniqueLinks.appendEntry(overviewtest::element(2, 7));
    o.uniqueLinks.appendEntry(SigdbElement()); // undefined: not written
    o.collocationGroupLeader = true;
    o.auxiliaryTid = 0x0102030405060708ULL;
    o.orderNumber = -2;

    const std::string expected = std::string(
        "00 01 00 02 00 01 "                        // type 1
        "00 02 00 02 00 00 "                        // sub-type
        "00 01 00 08 00 00 00 00 00 00 12 34 "      // TID 0x1234
        "00 04 00 02 00 00 00 05 00 02 00 00 00 06 00 02 00 00 00 07 00 02 00 00 "
        "00 02 00 00 00 03 00 00 "                  // exchange id, modification user
        "00 04 00 03 00 00 00 03 41 42 00 "         // keyText1 "AB"
        "00 05 00 00 00 06 00 00 "                  // keyText2, keyText3
        "00 07 00 00 "                              // locationIndication NULL
        "00 08 00 01 03 "                           // modificationState 3, one byte
        "00 0b 00 00 "                              // linkModificationState NULL
        "00 0c 00 01 12 "                           // networkTypeWord 18, one byte
        "00 01 00 08 00 00 00 00 00 00 00 01 "      // uniqueLinks: one defined entry
        "00 01 00 02 00 02 00 02 00 02 00 00 "      //   type 2, sub-type
        "00 0e 00 08 00 00 00 00 00 00 00 07 "      //   TID 7 under id 14
        "00 04 00 02 00 00 00 05 00 02 00 00 00 06 00 02 00 00 00 07 00 02 00 00 "
        "00 0f 00 00 00 10 00 00 "                  //   exchange id 15, user 16
        "00 11 00 02 00 01 "                        // collocationGroupLeader true
        "00 0d 00 08 01 02 03 04 05 06 07 08 "      // auxiliaryTid
        "00 09 00 00 "                              // collocationModState NULL
        "00 0a 00 01 fe ")                          // orderNumber -2
        + defaultElementHex("12", "13", "14")
        + "00 15 00 00 00 16 00 00 00 17 00 00 00 18 00 00 "
          "00 1a 00 00 00 1b 00 00 00 1c 00 00 00 1d 00 00 00 1e 00 00 "
          "00 02 00 08 00 00 00 00 00 00 00 00";
    EXPECT_EQ(hex(encode(o)), hex(bytes(expected.c_str())));

    ElementOverview decoded;
    ASSERT_TRUE(decode(encode(o), decoded));
    ElementOverview withoutUndefined = o;
    withoutUndefined.uniqueLinks.removeFirstElementOfType(0);
    EXPECT_EQ(decoded, withoutUndefined);
    EXPECT_EQ(decoded.orderNumber.getData(), -2);
    EXPECT_EQ(decoded.modificationState(), Modification_ChangedInMdl);
}

TEST(ElementOverviewStream, PopulatedOverviewRoundTrips)
{
    const ElementOverview original = populatedOverview();
    const QByteArray encoded = encode(original);
    ElementOverview decoded;
    ASSERT_TRUE(decode(encoded, decoded));
    EXPECT_EQ(decoded, original);

    // Fields that equality leaves out travel as well.
    EXPECT_EQ(decoded.orderNumber.getData(), 7);
    EXPECT_FALSE(decoded.orderNumber.isNull());
    EXPECT_EQ(decoded.element.apvState(), 1024 + 4);
    EXPECT_EQ(decoded.element.approvalType(), Approval_Accept);
    EXPECT_EQ(decoded.element.changeType(), 3);
    EXPECT_EQ(decoded.element.subType(), 9);
    EXPECT_EQ(decoded.element.layer(), 1);
    EXPECT_EQ(decoded.element.modificationUser().getData(), "alice");
    EXPECT_EQ(decoded.locationIndication(), LocationIndication_Collocated);
    EXPECT_EQ(decoded.linkModificationState(), LinkModification_NotApproved);
    EXPECT_EQ(decoded.collocationModificationState(), 20);
    EXPECT_EQ(decoded.infoText3.getData(), "");
    EXPECT_FALSE(decoded.infoText3.isNull());
    EXPECT_EQ(decoded.locationList.count(), 2);
    EXPECT_EQ(decoded.uniqueLinks.count(), 2);

    // The enumeration columns keep the ids they were numbered with.
    EXPECT_EQ(decoded.modificationState.getID(), 8);
    EXPECT_EQ(decoded.linkModificationState.getID(), 11);

    // Writing the decoded overview again gives the same bytes.
    EXPECT_EQ(hex(encode(decoded)), hex(encoded));
}

TEST(ElementOverviewStream, NullEnumerationColumnsRoundTripAsNull)
{
    ElementOverview original = populatedOverview();
    original.modificationState.setNull(true);
    original.locationIndication.setNull(true);
    ElementOverview decoded = populatedOverview();
    ASSERT_TRUE(decode(encode(original), decoded));
    EXPECT_TRUE(decoded.modificationState.isNull());
    EXPECT_TRUE(decoded.locationIndication.isNull());
    EXPECT_EQ(decoded.modificationState(), Modification_Unknown);
}

TEST(ElementOverviewStream, UnnumberedOverviewDoesNotDecode)
{
    const QByteArray encoded = encode(populatedOverview());
    ElementOverview unnumbered;
    ColumnReader reader(encoded);
    EXPECT_FALSE(unnumbered.readFrom(reader));
}

TEST(ElementOverviewStream, OverviewNumberedElsewhereDoesNotDecode)
{
    const QByteArray encoded = encode(populatedOverview());
    ElementOverview shifted;
    shifted.setIDs(3);
    ColumnReader reader(encoded);
    EXPECT_FALSE(shifted.readFrom(reader));
}

TEST(ElementOverviewStream, EnumerationColumnUnderAnotherIdFails)
{
    std::string text = defaultOverviewHex();
    // modificationState travels under id 8; send it under id 9.
    const std::string frame = "00 08 00 00 00 0b 00 00";
    const size_t at = text.find(frame);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, 5, "00 09");
    ElementOverview decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
}

TEST(ElementOverviewStream, EnumerationColumnOfAnotherSizeFails)
{
    std::string text = defaultOverviewHex();
    const std::string frame = "00 08 00 00 00 0b 00 00";
    const size_t at = text.find(frame);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, 11, "00 08 00 02 00 03");
    ElementOverview decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
}

TEST(ElementOverviewStream, FailureKeepsTheFieldsReadBefore)
{
    ElementOverview original = populatedOverview();
    QByteArray encoded = encode(original);
    // Cut the bytes inside the collocation group leader: everything before it is read.
    std::string text = hex(encoded);
    const size_t leader = text.find("00 11 00 02 00 01");
    ASSERT_NE(leader, std::string::npos);
    encoded.truncate(static_cast<int>(leader / 3 + 3));
    ElementOverview decoded;
    EXPECT_FALSE(decode(encoded, decoded));
    EXPECT_EQ(decoded.keyText1.getData(), "KEY-");
    EXPECT_EQ(decoded.networkTypeWord.getData(), 18);
    EXPECT_EQ(decoded.uniqueLinks.count(), 2);
    EXPECT_TRUE(decoded.auxiliaryTid.isNull());
    EXPECT_TRUE(decoded.relatedElement.isTIDundefined());
}

TEST(ElementOverviewStream, EveryTruncationFails)
{
    for (const ElementOverview &overview : {ElementOverview(), populatedOverview()}) {
        const QByteArray encoded = encode(overview);
        for (int length = 0; length < encoded.size(); ++length) {
            ElementOverview decoded;
            EXPECT_FALSE(decode(encoded.left(length), decoded)) << "length " << length;
        }
        ElementOverview complete;
        EXPECT_TRUE(decode(encoded, complete));
    }
}

TEST(ElementOverviewStream, HugeListCountsFailWithoutReadingOn)
{
    // The location list announces 2^62 entries but none follow.
    std::string text = defaultOverviewHex();
    const std::string count = "00 02 00 08 00 00 00 00 00 00 00 00";
    const size_t at = text.rfind(count);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, count.size(), "00 02 00 08 40 00 00 00 00 00 00 00");
    ElementOverview decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
    EXPECT_EQ(decoded.locationList.count(), 0);

    // The unique links announce 2^62 entries and one follows.
    ElementOverview one;
    one.uniqueLinks.appendEntry(overviewtest::element(2, 7));
    std::string withOne = hex(encode(one));
    const std::string oneCount = "00 01 00 08 00 00 00 00 00 00 00 01";
    const size_t oneAt = withOne.find(oneCount);
    ASSERT_NE(oneAt, std::string::npos);
    withOne.replace(oneAt, oneCount.size(), "00 01 00 08 40 00 00 00 00 00 00 00");
    ElementOverview hostile;
    EXPECT_FALSE(decode(bytes(withOne.c_str()), hostile));
    EXPECT_LE(hostile.uniqueLinks.count(), 2);
}

TEST(ElementOverviewStream, TextLengthBeyondTheBytesFails)
{
    std::string text = defaultOverviewHex();
    // keyText1 claims a text of 0x7fffffff bytes.
    text.replace(text.find("00 04 00 00 00 05"), 11, "00 04 00 03 7f ff ff ff 41 42 00");
    ElementOverview decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
}
