#include "link/linkchangedefinition.h"

#include "io/columnstream.h"

#include "linktestutil.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using linktest::element;
using linktest::link;
using sigdb::LinkAction;
using sigdb::LinkChangeDefinition;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

base::DbDataType<std::string> text(const char *value)
{
    return base::DbDataType<std::string>(value);
}

// Link 1: action 10 from unit 100 (approval state 256) to platform 200, no order number.
// Link 2: action 13 from unit 1 to unit 2 (exchange id "X"), order number 3. User "AB".
LinkChangeDefinition twoLinks()
{
    LinkChangeDefinition definition;
    LinkAction first = link(1, 2, 10, 100, 200);
    first.fromElement().setApvState(256);
    LinkAction second = link(1, 1, 13, 1, 2);
    second.toElement().setExchgId(text("X"));
    second.setOrderNumber(3);
    definition.setLink1(first);
    definition.setLink2(second);
    definition.setModificationUser(text("AB"));
    return definition;
}

// twoLinks() after setIDs(0): user 1; link 1 order number 2, "to" element 3 to 5, "from"
// element 6 to 8; link 2 order number 9, "to" element 10 to 12, "from" element 13 to 15.
const char *const kTwoLinksBytes =
    // modification user "AB", id 1
    "00 01 00 03 00 00 00 03 41 42 00"
    // link 1: action type 10
    "00 01 00 02 00 0a"
    //   from: type 1, sub-type 0, TID 100 (id 6), approval action 0, approval state 256,
    //   change kind 0, layer 0, exchange id NULL (id 7), user "AB" (id 8)
    "00 01 00 02 00 01"
    "00 02 00 02 00 00"
    "00 06 00 08 00 00 00 00 00 00 00 64"
    "00 04 00 02 00 00"
    "00 05 00 02 01 00"
    "00 06 00 02 00 00"
    "00 07 00 02 00 00"
    "00 07 00 00"
    "00 08 00 03 00 00 00 03 41 42 00"
    //   to: type 2, TID 200 (id 3), exchange id NULL (id 4), user "AB" (id 5)
    "00 01 00 02 00 02"
    "00 02 00 02 00 00"
    "00 03 00 08 00 00 00 00 00 00 00 c8"
    "00 04 00 02 00 00"
    "00 05 00 02 00 00"
    "00 06 00 02 00 00"
    "00 07 00 02 00 00"
    "00 04 00 00"
    "00 05 00 03 00 00 00 03 41 42 00"
    //   order number NULL (id 2)
    "00 02 00 00"
    // link 2: action type 13
    "00 01 00 02 00 0d"
    //   from: type 1, TID 1 (id 13), exchange id NULL (id 14), user "AB" (id 15)
    "00 01 00 02 00 01"
    "00 02 00 02 00 00"
    "00 0d 00 08 00 00 00 00 00 00 00 01"
    "00 04 00 02 00 00"
    "00 05 00 02 00 00"
    "00 06 00 02 00 00"
    "00 07 00 02 00 00"
    "00 0e 00 00"
    "00 0f 00 03 00 00 00 03 41 42 00"
    //   to: type 1, TID 2 (id 10), exchange id "X" (id 11), user "AB" (id 12)
    "00 01 00 02 00 01"
    "00 02 00 02 00 00"
    "00 0a 00 08 00 00 00 00 00 00 00 02"
    "00 04 00 02 00 00"
    "00 05 00 02 00 00"
    "00 06 00 02 00 00"
    "00 07 00 02 00 00"
    "00 0b 00 02 00 00 00 02 58 00"
    "00 0c 00 03 00 00 00 03 41 42 00"
    //   order number 3 (id 9)
    "00 09 00 08 00 00 00 00 00 00 00 03";

// Decodes \a data the way the answer dispatch does: a fresh record numbered with setIDs(0).
bool decode(const QByteArray &data, LinkChangeDefinition &definition)
{
    definition.setIDs(0);
    sigdb::ColumnReader reader(data);
    return definition.readFrom(reader);
}

// The user at all seven places of a definition, in the order setModificationUser() fills them.
std::vector<const base::DbDataType<std::string> *> userPlaces(const LinkChangeDefinition &d)
{
    return {&d.modificationUser(),
            &d.link1().modificationUser(),
            &d.link2().modificationUser(),
            &d.link1().fromElement().modificationUser(),
            &d.link1().toElement().modificationUser(),
            &d.link2().fromElement().modificationUser(),
            &d.link2().toElement().modificationUser()};
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Encoding

TEST(LinkChangeDefinition, EncodesTwoLinksByteForByte)
{
    QByteArray out;
    twoLinks().serialize(out);
    EXPECT_EQ(hex(out), hex(bytes(kTwoLinksBytes)));
    EXPECT_EQ(out.size(), 297);
}

TEST(LinkChangeDefinition, EncodesANullUserAsItsIdAndZero)
{
    QByteArray out;
    LinkChangeDefinition().serialize(out);
    ASSERT_GE(out.size(), 10);
    // user NULL, then link 1's action type 0
    EXPECT_EQ(hex(out.left(10)), hex(bytes("00 01 00 00 00 01 00 02 00 00")));
    // the last frame: link 2's order number NULL under id 9
    EXPECT_EQ(hex(out.right(4)), hex(bytes("00 09 00 00")));
}

TEST(LinkChangeDefinition, DecodesWhatItEncoded)
{
    const LinkChangeDefinition original = twoLinks();
    LinkChangeDefinition decoded;
    ASSERT_TRUE(decode(bytes(kTwoLinksBytes), decoded));
    EXPECT_TRUE(decoded == original);
    EXPECT_EQ(decoded.modificationUser().getData(), "AB");
    EXPECT_EQ(decoded.link1().actionType(), 10);
    EXPECT_EQ(decoded.link1().fromElement().TID(), 100u);
    EXPECT_EQ(decoded.link1().fromElement().apvState(), 256);
    EXPECT_EQ(decoded.link1().toElement().type(), 2);
    EXPECT_TRUE(decoded.link1().orderNumber().isNull());
    EXPECT_EQ(decoded.link1().orderNumber().getData(), -1);
    EXPECT_EQ(decoded.link2().actionType(), 13);
    EXPECT_EQ(decoded.link2().toElement().exchgId().getData(), "X");
    EXPECT_FALSE(decoded.link2().orderNumber().isNull());
    EXPECT_EQ(decoded.link2().orderNumber().getData(), 3);

    QByteArray again;
    decoded.serialize(again);
    EXPECT_EQ(hex(again), hex(bytes(kTwoLinksBytes)));
}

TEST(LinkChangeDefinition, DecodedUserReachesAllSevenPlaces)
{
    LinkChangeDefinition original = twoLinks();
    // the ends travel with users of their own; the definition's user wins after decoding
    original.link1().fromElement().setModificationUser(text("XY"));
    original.link2().toElement().setModificationUser(base::DbDataType<std::string>("", true));
    QByteArray data;
    original.serialize(data);

    LinkChangeDefinition decoded;
    ASSERT_TRUE(decode(data, decoded));
    for (const auto *user : userPlaces(decoded)) {
        EXPECT_FALSE(user->isNull());
        EXPECT_EQ(user->getData(), "AB");
    }
}

TEST(LinkChangeDefinition, FailedDecodeLeavesTheUserAndKeepsWhatWasRead)
{
    const QByteArray data = bytes(kTwoLinksBytes);
    LinkChangeDefinition decoded;
    // cut inside link 2's "from" element
    ASSERT_FALSE(decode(data.left(11 + 136 + 20), decoded));
    EXPECT_TRUE(decoded.modificationUser().isNull());
    EXPECT_EQ(decoded.link1().actionType(), 10);
    EXPECT_EQ(decoded.link1().fromElement().TID(), 100u);
    EXPECT_EQ(decoded.link2().actionType(), 13);
}

TEST(LinkChangeDefinition, DecodeFailsAtEveryTruncation)
{
    const QByteArray data = bytes(kTwoLinksBytes);
    for (int length = 0; length < data.size(); ++length) {
        LinkChangeDefinition decoded;
        EXPECT_FALSE(decode(data.left(length), decoded)) << "length " << length;
        EXPECT_TRUE(decoded.modificationUser().isNull()) << "length " << length;
    }
}

TEST(LinkChangeDefinition, DecodeFailsWithoutNumbering)
{
    LinkChangeDefinition decoded;
    sigdb::ColumnReader reader(bytes(kTwoLinksBytes));
    EXPECT_FALSE(decoded.readFrom(reader));
}

TEST(LinkChangeDefinition, DecodeRejectsAHugeAnnouncedText)
{
    LinkChangeDefinition decoded;
    EXPECT_FALSE(decode(bytes("00 01 00 03 7f ff ff ff 41 42 00"), decoded));
    EXPECT_FALSE(decode(bytes("00 01 ff ff ff ff ff ff 41 42 00"), decoded));
}

struct MalformedCase
{
    const char *name;
    int offset; // byte of kTwoLinksBytes to replace; -1 for none
    char value;
    bool decodes;
};

class MalformedLinkChange : public testing::TestWithParam<MalformedCase>
{
};

TEST_P(MalformedLinkChange, DecodesOnlyTheUntouchedRecord)
{
    QByteArray data = bytes(kTwoLinksBytes);
    if (GetParam().offset >= 0)
        data[GetParam().offset] = GetParam().value;
    LinkChangeDefinition decoded;
    EXPECT_EQ(decode(data, decoded), GetParam().decodes);
}

INSTANTIATE_TEST_SUITE_P(
    LinkChangeDefinition, MalformedLinkChange,
    testing::Values(MalformedCase{"Untouched", -1, 0, true},
                    MalformedCase{"UserTag", 1, 0x02, false},
                    MalformedCase{"UserLengthBeyondTheData", 5, 0x7f, false},
                    MalformedCase{"ActionTypeTag", 12, 0x02, false},
                    MalformedCase{"ActionTypeSize", 14, 0x01, false},
                    MalformedCase{"ActionTypeNull", 14, 0x00, false},
                    MalformedCase{"ElementTypeSize", 20, 0x08, false},
                    MalformedCase{"ElementTidTag", 30, 0x03, false},
                    MalformedCase{"OrderNumberTag", 286, 0x08, false},
                    MalformedCase{"OrderNumberSize", 288, 0x04, false}),
    [](const testing::TestParamInfo<MalformedCase> &info) { return info.param.name; });

// ---------------------------------------------------------------------------------------------
// Record operations

TEST(LinkChangeDefinition, DefaultHasNoUserAndUndefinedLinks)
{
    const LinkChangeDefinition definition;
    EXPECT_TRUE(definition.modificationUser().isNull());
    EXPECT_TRUE(definition.link1().isUndefined());
    EXPECT_TRUE(definition.link2().isUndefined());
}

TEST(LinkChangeDefinition, SetIdsNumbersUserThenLinkOneThenLinkTwo)
{
    LinkChangeDefinition definition;
    EXPECT_EQ(definition.setIDs(0), 15);
    EXPECT_EQ(definition.modificationUser().getID(), 1);
    EXPECT_EQ(definition.link1().orderNumber().getID(), 2);
    EXPECT_EQ(definition.link1().toElement().tid().getID(), 3);
    EXPECT_EQ(definition.link1().fromElement().modificationUser().getID(), 8);
    EXPECT_EQ(definition.link2().orderNumber().getID(), 9);
    EXPECT_EQ(definition.link2().fromElement().modificationUser().getID(), 15);
    EXPECT_EQ(definition.setIDs(10), 25);
    EXPECT_EQ(definition.modificationUser().getID(), 11);
}

TEST(LinkChangeDefinition, UserIdsAreTakenOnlyWhereNoneIsSet)
{
    LinkChangeDefinition fresh;
    base::DbDataType<std::string> user("KL");
    user.setID(40);
    fresh.setModificationUser(user);
    for (const auto *place : userPlaces(fresh)) {
        EXPECT_EQ(place->getData(), "KL");
        EXPECT_EQ(place->getID(), 40);
    }

    LinkChangeDefinition numbered;
    numbered.setIDs(0);
    numbered.setModificationUser(user);
    const std::vector<int> ids = {1, 40, 40, 8, 5, 15, 12};
    const auto places = userPlaces(numbered);
    for (size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i]->getData(), "KL");
        EXPECT_EQ(places[i]->getID(), ids[i]) << "place " << i;
    }
}

TEST(LinkChangeDefinition, NullUserIsNullEverywhere)
{
    LinkChangeDefinition definition = twoLinks();
    definition.setModificationUser(base::DbDataType<std::string>("old", true));
    for (const auto *place : userPlaces(definition))
        EXPECT_TRUE(place->isNull());
}

TEST(LinkChangeDefinition, LayerReachesLinksAndEnds)
{
    LinkChangeDefinition definition = twoLinks();
    definition.setLayer(2);
    EXPECT_EQ(definition.layer(), 2);
    for (const LinkAction *l : {&definition.link1(), &definition.link2()}) {
        EXPECT_EQ(l->layer(), 2);
        EXPECT_EQ(l->fromElement().layer(), 2);
        EXPECT_EQ(l->toElement().layer(), 2);
    }
    QByteArray out;
    definition.serialize(out);
    // the "from" element of link 1 carries the layer in its seventh frame
    EXPECT_EQ(hex(out.mid(11 + 6 + 42, 6)), hex(bytes("00 07 00 02 00 02")));
}

TEST(LinkChangeDefinition, ResetDoesNothing)
{
    LinkChangeDefinition definition = twoLinks();
    definition.reset();
    EXPECT_TRUE(definition == twoLinks());
    EXPECT_EQ(definition.modificationUser().getData(), "AB");
    EXPECT_EQ(definition.link2().orderNumber().getData(), 3);
}

TEST(LinkChangeDefinition, CopiesCopyEverything)
{
    LinkChangeDefinition original = twoLinks();
    original.setLayer(1);
    const LinkChangeDefinition copy(original);
    LinkChangeDefinition assigned;
    assigned = original;
    const LinkChangeDefinition *assignedPointer = &assigned;
    std::unique_ptr<base::DbBaseType> heap(LinkChangeDefinition().getCopy(&original));
    const auto *heapCopy = dynamic_cast<const LinkChangeDefinition *>(heap.get());
    ASSERT_NE(heapCopy, nullptr);
    for (const LinkChangeDefinition *c : {&copy, assignedPointer, heapCopy}) {
        EXPECT_TRUE(*c == original);
        EXPECT_EQ(c->layer(), 1);
        EXPECT_EQ(c->link2().orderNumber().getData(), 3);
    }
}

TEST(LinkChangeDefinition, EqualityOfUsers)
{
    LinkChangeDefinition a;
    LinkChangeDefinition b;
    EXPECT_TRUE(a == b);
    b.setModificationUser(text(""));
    EXPECT_FALSE(a == b); // NULL against an empty text
    a.setModificationUser(text(""));
    EXPECT_TRUE(a == b);
    a.setModificationUser(text("AB"));
    EXPECT_TRUE(a != b);
}

TEST(LinkChangeDefinition, EqualityOfLinks)
{
    LinkChangeDefinition a = twoLinks();
    LinkChangeDefinition b = twoLinks();
    b.link2().setOrderNumber(8);
    EXPECT_TRUE(a == b);
    b.link1().setActionType(11);
    EXPECT_FALSE(a == b);
    b = twoLinks();
    b.link2().setToElement(element(1, 3));
    EXPECT_FALSE(a == b);
}

// ---------------------------------------------------------------------------------------------
// Info text

TEST(LinkChangeDefinition, InfoTextWithoutUser)
{
    EXPECT_EQ(LinkChangeDefinition().shortInfoAsString(),
              "ModifiedUser: \nLink1: not defined\nLink2: not defined\n");
}

TEST(LinkChangeDefinition, InfoTextShowsTheStoredTextOfANullUser)
{
    LinkChangeDefinition definition;
    definition.setModificationUser(base::DbDataType<std::string>("old", true));
    EXPECT_EQ(definition.shortInfoAsString(),
              "ModifiedUser: old\nLink1: not defined\nLink2: not defined\n");
}

TEST(LinkChangeDefinition, InfoTextWithOneLink)
{
    LinkChangeDefinition definition;
    definition.setLink1(link(1, 2, 10, 100, 200));
    definition.setModificationUser(text("AB"));
    EXPECT_EQ(definition.shortInfoAsString(),
              "ModifiedUser: AB\n"
              "Link1: >>>Link from Type: Unit 1:100:0\n"
              "   Link to Type:   Platform 2:200:0\n"
              "   Layer: 0 --- ActionType: 10  ModDate:  --- ModUser: AB -- OrderNumber is null \n"
              "\n"
              "Link2: not defined\n");
}
