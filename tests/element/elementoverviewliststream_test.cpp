#include "element/elementoverviewlist.h"

#include "overviewtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>

using namespace sigdb;
using overviewtest::decode;
using overviewtest::defaultElementHex;
using overviewtest::encode;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

const char kZeroCount[] = "00 00 00 00 00 00 00 00 ";

// The list fields that follow the counts of a default list numbered from 0.
const char kDefaultListTail[] = "00 04 00 01 01 "                      // collocationModState 1
                                "00 05 00 00 00 06 00 00 00 07 00 00 " // listText1..3 NULL
                                "00 08 00 00 00 09 00 00 00 0a 00 00 00 0b 00 00 00 0c 00 00";

// A default list numbered from 0, worked out field by field.
std::string defaultListHex()
{
    return defaultElementHex("01", "02", "03")
        + "00 01 00 08 " + kZeroCount    // more results available
        + "00 02 00 02 00 00 "           // requested list type
        + "00 08 00 08 " + kZeroCount    // data layer
        + "00 03 00 08 " + kZeroCount    // result count
        + "00 04 00 08 " + kZeroCount    // sub-list count
        + kDefaultListTail;
}

// Replaces the first occurrence of the frame \a from in \a text by \a to.
std::string patched(std::string text, const std::string &from, const std::string &to)
{
    const size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos)
        text.replace(at, from.size(), to);
    return text;
}

/// A list nested \a levels deep: every list but the innermost holds one sub-list.
ElementOverviewList nestedList(int levels)
{
    ElementOverviewList list;
    for (int level = 1; level < levels; ++level) {
        ElementOverviewList outer;
        outer.appendResultList(list);
        list = outer;
    }
    return list;
}

int depthOf(const ElementOverviewList &list)
{
    int depth = 1;
    for (const ElementOverviewList *l = &list; l->subListCount() > 0; l = &l->subLists()[0])
        ++depth;
    return depth;
}

} // namespace

TEST(ElementOverviewListStream, DefaultListBytes)
{
    const ElementOverviewList list;
    EXPECT_EQ(hex(encode(list)), hex(bytes(defaultListHex().c_str())));
}

TEST(ElementOverviewListStream, DefaultListDecodesToAnEqualList)
{
    ElementOverviewList decoded;
    decoded.setCollocationModificationState(0);
    ASSERT_TRUE(decode(bytes(defaultListHex().c_str()), decoded));
    EXPECT_TRUE(decoded == ElementOverviewList());
    EXPECT_EQ(decoded.collocationModificationState(), 1);
    EXPECT_FALSE(decoded.collocationModState.isNull());
    EXPECT_TRUE(decoded.listText1.isNull());
    EXPECT_EQ(decoded.count(), 0);
    EXPECT_EQ(decoded.subListCount(), 0);
}

TEST(ElementOverviewListStream, SetFieldsAndOneResultBytes)
{
    ElementOverviewList list;
    list.setParentDefinition(overviewtest::element(24, 100));
    list.setMoreResultsAvailable(12);
    list.setRequestedListType(static_cast<ElementList_Type>(3));
    list.setDataLayer(-1);
    list.setCollocationModificationState(5);
    list.listText1 = std::string("A");
    list.appendResult(ElementOverview(), false);

    const std::string expected = std::string(
        "00 01 00 02 00 18 "                       // parent type 24
        "00 02 00 02 00 00 "
        "00 01 00 08 00 00 00 00 00 00 00 64 "     // parent TID 100
        "00 04 00 02 00 00 00 05 00 02 00 00 00 06 00 02 00 00 00 07 00 02 00 00 "
        "00 02 00 00 00 03 00 00 "
        "00 01 00 08 00 00 00 00 00 00 00 0c "     // 12 more results
        "00 02 00 02 00 03 "                       // requested list type 3
        "00 08 00 08 ff ff ff ff ff ff ff ff "     // data layer -1, sign-extended
        "00 03 00 08 00 00 00 00 00 00 00 01 "     // one result
        "00 04 00 08 00 00 00 00 00 00 00 00 "     // no sub-lists
        "00 04 00 01 05 "                          // collocationModState 5
        "00 05 00 02 00 00 00 02 41 00 "           // listText1 "A"
        "00 06 00 00 00 07 00 00 "
        "00 08 00 00 00 09 00 00 00 0a 00 00 00 0b 00 00 00 0c 00 00 ")
        // The result, numbered from the list's start id 3: every id three above its own.
        + defaultElementHex("04", "05", "06")
        + "00 07 00 00 00 08 00 00 00 09 00 00 "   // keyText1..3
          "00 0a 00 00 00 0b 00 00 00 0e 00 00 "   // location indication, states
          "00 0f 00 00 "                           // networkTypeWord
          "00 01 00 08 00 00 00 00 00 00 00 00 "   // unique links
          "00 14 00 00 00 10 00 00 "               // leader (20), auxiliaryTid (16)
          "00 0c 00 00 00 0d 00 00 "               // collocationModState, orderNumber
        + defaultElementHex("15", "16", "17")
        + "00 18 00 00 00 19 00 00 00 1a 00 00 00 1b 00 00 "
          "00 1d 00 00 00 1e 00 00 00 1f 00 00 00 20 00 00 00 21 00 00 " // location (29..33)
          "00 02 00 08 00 00 00 00 00 00 00 00";
    EXPECT_EQ(hex(encode(list)), hex(bytes(expected.c_str())));

    ElementOverviewList decoded;
    ASSERT_TRUE(decode(bytes(expected.c_str()), decoded));
    EXPECT_TRUE(decoded == list);
    EXPECT_EQ(decoded.dataLayer(), -1);
    EXPECT_EQ(decoded.moreResultsAvailable(), 12u);
    EXPECT_EQ(decoded.requestedListType(), 3);
}

TEST(ElementOverviewListStream, TreeRoundTrips)
{
    const ElementOverviewList original = overviewtest::populatedTree();
    const QByteArray encoded = encode(original);
    ElementOverviewList decoded;
    ASSERT_TRUE(decode(encoded, decoded));
    EXPECT_TRUE(decoded == original);

    EXPECT_EQ(decoded.dataLayer(), 2);
    ASSERT_EQ(decoded.subListCount(), 2);
    const ElementOverviewList &middle = decoded.subLists()[0];
    EXPECT_EQ(middle.count(), 2);
    EXPECT_EQ(middle.collocationModificationState(), 1);
    ASSERT_EQ(middle.subListCount(), 1);
    const ElementOverviewList &inner = middle.subLists()[0];
    EXPECT_EQ(inner.parentDefinition().TID(), 300u);
    EXPECT_EQ(inner.collocationModificationState(), 16);
    EXPECT_EQ(inner.listText2.getData(), "inner");
    ASSERT_EQ(inner.count(), 1);
    EXPECT_EQ(inner.results()[0].element.TID(), 31u);
    EXPECT_EQ(inner.results()[0].orderNumber.getData(), 7);
    EXPECT_EQ(decoded.subLists()[1].subListCount(), 0);

    EXPECT_EQ(hex(encode(decoded)), hex(encoded));
}

TEST(ElementOverviewListStream, NegativeCountsReadNothing)
{
    std::string text = patched(defaultListHex(), "00 03 00 08 00 00 00 00 00 00 00 00",
                               "00 03 00 08 ff ff ff ff ff ff ff ff");
    text = patched(text, "00 04 00 08 00 00 00 00 00 00 00 00", "00 04 00 08 80 00 00 00 00 00 00 00");
    ElementOverviewList decoded;
    EXPECT_TRUE(decode(bytes(text.c_str()), decoded));
    EXPECT_EQ(decoded.count(), 0);
    EXPECT_EQ(decoded.subListCount(), 0);
}

TEST(ElementOverviewListStream, MalformedFramesFail)
{
    struct Case
    {
        const char *name;
        const char *from;
        const char *to;
        bool decodes;
    };
    const Case cases[] = {
        {"control: unchanged", "00 02 00 02 00 00", "00 02 00 02 00 00", true},
        {"tag 2 announced with size 8", "00 02 00 02 00 00", "00 02 00 08 00 00 00 00 00 00 00 00", false},
        {"tag 2 under tag 5", "00 02 00 02 00 00", "00 05 00 02 00 00", false},
        {"tag 1 with size 2", "00 01 00 08 00 00 00 00 00 00 00 00", "00 01 00 02 00 00", false},
        {"tag 1 NULL", "00 01 00 08 00 00 00 00 00 00 00 00", "00 01 00 00", false},
        {"tag 8 under tag 9", "00 08 00 08", "00 09 00 08", false},
        {"result count under tag 4", "00 03 00 08", "00 04 00 08", false},
        {"sub-list count with size 4", "00 04 00 08 00 00 00 00 00 00 00 00", "00 04 00 04 00 00 00 00", false},
        {"collocation state wide", "00 04 00 01 01", "00 04 00 08 00 00 00 00 00 00 00 01", false},
        {"collocation state under id 5", "00 04 00 01 01", "00 05 00 01 01", false},
        {"text under another id", "00 06 00 00", "00 09 00 00", false},
    };
    // The tagged values follow the parent element, whose frames carry tags 1 to 7 as well.
    const std::string parent = defaultElementHex("01", "02", "03");
    const std::string list = defaultListHex().substr(parent.size());
    for (const Case &c : cases) {
        const std::string text = parent + patched(list, c.from, c.to);
        ElementOverviewList decoded;
        EXPECT_EQ(decode(bytes(text.c_str()), decoded), c.decodes) << c.name;
    }
}

TEST(ElementOverviewListStream, EveryTruncationFails)
{
    for (const ElementOverviewList &list : {ElementOverviewList(), overviewtest::populatedTree()}) {
        const QByteArray encoded = encode(list);
        for (int length = 0; length < encoded.size(); ++length) {
            ElementOverviewList decoded;
            EXPECT_FALSE(decode(encoded.left(length), decoded)) << "length " << length;
        }
    }
}

TEST(ElementOverviewListStream, HugeResultCountFailsWithoutPreallocating)
{
    ElementOverviewList one;
    one.appendResult(overviewtest::populatedOverview(), false);
    const std::string text = patched(hex(encode(one)), "00 03 00 08 00 00 00 00 00 00 00 01",
                                     "00 03 00 08 40 00 00 00 00 00 00 00");
    ElementOverviewList decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
    EXPECT_EQ(decoded.count(), 1);

    const std::string none = patched(defaultListHex(), "00 03 00 08 00 00 00 00 00 00 00 00",
                                     "00 03 00 08 7f ff ff ff ff ff ff ff");
    ElementOverviewList empty;
    EXPECT_FALSE(decode(bytes(none.c_str()), empty));
    EXPECT_EQ(empty.count(), 0);
}

TEST(ElementOverviewListStream, HugeSubListCountFailsWithoutPreallocating)
{
    const std::string text = patched(defaultListHex(), "00 04 00 08 00 00 00 00 00 00 00 00",
                                     "00 04 00 08 40 00 00 00 00 00 00 00");
    ElementOverviewList decoded;
    EXPECT_FALSE(decode(bytes(text.c_str()), decoded));
    EXPECT_EQ(decoded.subListCount(), 0);

    // Two real sub-lists follow an announcement of 2^62.
    ElementOverviewList two;
    two.appendResultList(ElementOverviewList());
    two.appendResultList(ElementOverviewList());
    const std::string withTwo = patched(hex(encode(two)), "00 04 00 08 00 00 00 00 00 00 00 02",
                                        "00 04 00 08 40 00 00 00 00 00 00 00");
    ElementOverviewList hostile;
    EXPECT_FALSE(decode(bytes(withTwo.c_str()), hostile));
    EXPECT_EQ(hostile.subListCount(), 2);
}

TEST(ElementOverviewListStream, NestingIsBounded)
{
    const ElementOverviewList deepest = nestedList(ColumnReader::MaxNesting);
    ASSERT_EQ(depthOf(deepest), 64);
    ElementOverviewList decoded;
    ASSERT_TRUE(decode(encode(deepest), decoded));
    EXPECT_EQ(depthOf(decoded), 64);
    EXPECT_TRUE(decoded == deepest);

    ElementOverviewList tooDeep;
    EXPECT_FALSE(decode(encode(nestedList(ColumnReader::MaxNesting + 1)), tooDeep));

    ElementOverviewList hostile;
    EXPECT_FALSE(decode(encode(nestedList(100)), hostile));
    EXPECT_LE(depthOf(hostile), 64);

    // The bound holds for every decode, not only for the first one on a reader.
    const QByteArray twice = encode(deepest) + encode(deepest);
    ColumnReader reader(twice);
    ElementOverviewList first;
    ElementOverviewList second;
    first.setIDs(0);
    second.setIDs(0);
    EXPECT_TRUE(first.readFrom(reader));
    EXPECT_TRUE(second.readFrom(reader));
}
