#include "link/linkchangedefinition.h"
#include "link/linkdefinitionlist.h"

#include "linktestutil.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using linktest::element;
using linktest::link;
using sigdb::LinkChangeDefinition;
using sigdb::LinkChangeDefinitionList;
using sigdb::LinkDefinition;
using sigdb::LinkDefinitionList;

namespace {

LinkChangeDefinition change(int actionType)
{
    LinkChangeDefinition definition;
    definition.setLink1(link(1, 3, actionType));
    return definition;
}

LinkDefinition definition(unsigned long long tid)
{
    LinkDefinition d;
    d.setTID(tid);
    d.setElementA(element(1, tid * 10));
    d.setElementB(element(3, tid * 10 + 1));
    return d;
}

// The two list classes share their behaviour; the typed tests run it on both.
template <typename List>
struct ListTraits;

template <>
struct ListTraits<LinkChangeDefinitionList>
{
    static LinkChangeDefinition entry(int n) { return change(n); }
    static int key(const LinkChangeDefinition &e) { return e.link1().actionType(); }
};

template <>
struct ListTraits<LinkDefinitionList>
{
    static LinkDefinition entry(int n) { return definition(static_cast<unsigned long long>(n)); }
    static int key(const LinkDefinition &e) { return static_cast<int>(e.TID()); }
};

template <typename List>
class LinkList : public testing::Test
{
protected:
    using Traits = ListTraits<List>;

    static List listOf(std::initializer_list<int> keys)
    {
        List list;
        for (const int key : keys)
            list.appendEntry(Traits::entry(key));
        return list;
    }

    static std::vector<int> keysOf(List &list)
    {
        std::vector<int> keys;
        list.setIteratorToStart();
        while (const auto *entry = list.getNextEntry())
            keys.push_back(Traits::key(*entry));
        return keys;
    }
};

using ListTypes = testing::Types<LinkChangeDefinitionList, LinkDefinitionList>;
TYPED_TEST_SUITE(LinkList, ListTypes);

} // namespace

TYPED_TEST(LinkList, AppendKeepsOrder)
{
    TypeParam list = this->listOf({11, 12, 13});
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(this->keysOf(list), (std::vector<int>{11, 12, 13}));
    EXPECT_EQ(list.container().size(), 3u);
}

TYPED_TEST(LinkList, FirstEntryStartsTheIteration)
{
    TypeParam list = this->listOf({11, 12});
    EXPECT_NE(list.getNextEntry(), nullptr);
    EXPECT_NE(list.getNextEntry(), nullptr);
    EXPECT_EQ(list.getNextEntry(), nullptr);
    const auto *first = list.firstEntry();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(TestFixture::Traits::key(*first), 11);
    const auto *second = list.getNextEntry();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(TestFixture::Traits::key(*second), 12);
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TYPED_TEST(LinkList, EmptyListHasNoEntries)
{
    TypeParam list;
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.firstEntry(), nullptr);
    EXPECT_EQ(list.getNextEntry(), nullptr);
    EXPECT_EQ(list.startID(), 0);
}

TYPED_TEST(LinkList, RemoveFirstEntryMovesTheOthersUp)
{
    TypeParam list = this->listOf({11, 12, 13});
    list.removeFirstEntry();
    EXPECT_EQ(this->keysOf(list), (std::vector<int>{12, 13}));
}

TYPED_TEST(LinkList, RemoveFirstEntryLeavesTheCursor)
{
    TypeParam list = this->listOf({11, 12, 13});
    list.firstEntry();
    list.removeFirstEntry();
    // the cursor still stands on the second place, which now holds 13
    const auto *next = list.getNextEntry();
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(TestFixture::Traits::key(*next), 13);
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TYPED_TEST(LinkList, RemoveFirstEntryOfAnEmptyListDoesNothing)
{
    TypeParam list;
    list.removeFirstEntry();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TYPED_TEST(LinkList, RemovingBehindTheCursorIsSafe)
{
    TypeParam list = this->listOf({11, 12});
    list.getNextEntry();
    list.getNextEntry();
    list.removeFirstEntry();
    list.removeFirstEntry();
    EXPECT_EQ(list.getNextEntry(), nullptr);
}

TYPED_TEST(LinkList, ClearDestroysAllEntries)
{
    TypeParam list = this->listOf({11, 12});
    list.clear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.firstEntry(), nullptr);
}

TYPED_TEST(LinkList, ResetKeepsTheEntries)
{
    TypeParam list = this->listOf({11, 12});
    list.reset();
    EXPECT_EQ(this->keysOf(list), (std::vector<int>{11, 12}));
}

TYPED_TEST(LinkList, SerializeLeavesTheBytesUntouched)
{
    const TypeParam list = this->listOf({11, 12});
    QByteArray out("xyz");
    list.serialize(out);
    EXPECT_EQ(out, QByteArray("xyz"));
    QByteArray empty;
    list.serialize(empty);
    EXPECT_TRUE(empty.isEmpty());
}

TYPED_TEST(LinkList, CompareListLooksAtEntriesInOrder)
{
    TypeParam a = this->listOf({11, 12});
    TypeParam b = this->listOf({11, 12});
    TypeParam reversed = this->listOf({12, 11});
    TypeParam shorter = this->listOf({11});
    EXPECT_TRUE(a.compareList(b));
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a.compareList(reversed));
    EXPECT_FALSE(a == reversed);
    EXPECT_TRUE(a != reversed);
    EXPECT_FALSE(a.compareList(shorter));
    EXPECT_FALSE(shorter.compareList(a));
    EXPECT_TRUE(TypeParam().compareList(TypeParam()));
    EXPECT_TRUE(TypeParam() == TypeParam());
}

TYPED_TEST(LinkList, CopiesCopyAllEntries)
{
    TypeParam original = this->listOf({11, 12, 13});
    TypeParam copy(original);
    TypeParam assigned;
    assigned = original;
    std::unique_ptr<base::DbBaseType> heap(TypeParam().getCopy(&original));
    auto *heapCopy = dynamic_cast<TypeParam *>(heap.get());
    ASSERT_NE(heapCopy, nullptr);
    for (TypeParam *c : {&copy, &assigned, heapCopy}) {
        EXPECT_TRUE(*c == original);
        EXPECT_EQ(this->keysOf(*c), (std::vector<int>{11, 12, 13}));
    }
}

TYPED_TEST(LinkList, EmptyListNumbersNothing)
{
    TypeParam list;
    EXPECT_EQ(list.setIDs(10), 10);
    EXPECT_EQ(list.startID(), 10);
}

// ---------------------------------------------------------------------------------------------
// What sets the two lists apart

TEST(LinkChangeDefinitionList, EveryEntryIsNumberedFromTheStart)
{
    LinkChangeDefinitionList list;
    for (int i = 0; i < 3; ++i)
        list.appendEntry(change(10 + i));
    // user start + 1, link 1 from there (7 ids), link 2 from link 1's result (7 ids)
    EXPECT_EQ(list.setIDs(10), 25);
    EXPECT_EQ(list.startID(), 10);
    list.setIteratorToStart();
    while (const LinkChangeDefinition *entry = list.getNextEntry()) {
        EXPECT_EQ(entry->modificationUser().getID(), 11);
        EXPECT_EQ(entry->link1().orderNumber().getID(), 12);
        EXPECT_EQ(entry->link2().orderNumber().getID(), 19);
        EXPECT_EQ(entry->link2().fromElement().modificationUser().getID(), 25);
    }
}

TEST(LinkDefinitionList, EveryEntryIsNumberedFromTheStartItself)
{
    LinkDefinitionList list;
    list.appendEntry(definition(1));
    list.appendEntry(definition(2));
    // element part 11 to 13, bookkeeping 14 to 16, name 17, element A 18 to 20, B 21 to 23
    EXPECT_EQ(list.setIDs(10), 23);
    list.setIteratorToStart();
    while (const LinkDefinition *entry = list.getNextEntry()) {
        EXPECT_EQ(entry->tid().getID(), 11);
        EXPECT_EQ(entry->name().getID(), 17);
        EXPECT_EQ(entry->elementA().tid().getID(), 18);
        EXPECT_EQ(entry->elementB().modificationUser().getID(), 23);
    }
}

TEST(LinkDefinitionList, PrependPutsTheEntryInFront)
{
    LinkDefinitionList list;
    list.appendEntry(definition(1));
    list.prependEntry(definition(2));
    list.prependEntry(definition(3));
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.firstEntry()->TID(), 3u);
    EXPECT_EQ(list.getNextEntry()->TID(), 2u);
    EXPECT_EQ(list.getNextEntry()->TID(), 1u);
}

TEST(LinkDefinitionList, EqualityIsTheCoreLibrarysLinkDefinitionEquality)
{
    LinkDefinitionList a;
    LinkDefinitionList b;
    a.appendEntry(definition(1));
    LinkDefinition renamed = definition(1);
    renamed.setName(base::DbDataType<std::string>("other"));
    b.appendEntry(renamed);
    EXPECT_FALSE(a == b); // the core compares bookkeeping and name too
}

TEST(LinkChangeDefinitionList, EqualityIgnoresOrderNumbers)
{
    LinkChangeDefinitionList a;
    LinkChangeDefinitionList b;
    LinkChangeDefinition first = change(10);
    a.appendEntry(first);
    first.link1().setOrderNumber(4);
    b.appendEntry(first);
    EXPECT_TRUE(a == b);
}
