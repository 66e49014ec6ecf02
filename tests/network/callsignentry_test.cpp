#include "network/callsignentry.h"

#include "networktesting.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

using sigdb::CallsignEntry;
using sigdb::CallsignEntryList;

namespace {

CallsignEntry entry(const char *first, const char *second = nullptr)
{
    CallsignEntry e;
    e.firstCallsign = std::string(first);
    if (second)
        e.secondCallsign = std::string(second);
    return e;
}

} // namespace

TEST(CallsignEntry, DefaultIsAllNull)
{
    const CallsignEntry e;
    EXPECT_TRUE(e.entryNumber.isNull());
    EXPECT_EQ(e.entryNumber.getData(), 0u);
    EXPECT_TRUE(e.firstCallsign.isNull());
    EXPECT_TRUE(e.fourthCallsign.isNull());
}

TEST(CallsignEntry, SetIdsNumbersTheFourTextsOnly)
{
    CallsignEntry e;
    e.entryNumber.setID(99);
    EXPECT_EQ(e.setIDs(10), 14);
    EXPECT_EQ(e.firstCallsign.getID(), 11);
    EXPECT_EQ(e.secondCallsign.getID(), 12);
    EXPECT_EQ(e.thirdCallsign.getID(), 13);
    EXPECT_EQ(e.fourthCallsign.getID(), 14);
    EXPECT_EQ(e.entryNumber.getID(), 99);
}

TEST(CallsignEntry, EqualityComparesTheFourTextsButNotTheNumber)
{
    CallsignEntry a = entry("A1", "B1");
    CallsignEntry b = entry("A1", "B1");
    b.entryNumber = 5ULL;
    EXPECT_TRUE(a == b);
    b.thirdCallsign = std::string("");
    EXPECT_FALSE(a == b) << "NULL differs from an empty text";
    b = a;
    b.secondCallsign.setNull(true);
    EXPECT_TRUE(a != b);
}

TEST(CallsignEntry, SerializeWritesNothing)
{
    QByteArray out("keep");
    entry("X").serialize(out);
    EXPECT_EQ(out, QByteArray("keep"));
}

TEST(CallsignEntry, ResetAndCopy)
{
    CallsignEntry e = entry("A", "B");
    e.setLayer(2);
    base::DbBaseType *copy = e.getCopy(&e);
    auto *typed = dynamic_cast<CallsignEntry *>(copy);
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == e);
    EXPECT_EQ(typed->layer(), 2);
    delete copy;
    e.reset();
    EXPECT_TRUE(e.firstCallsign.isNull());
    EXPECT_TRUE(e.firstCallsign.getData().empty());
}

TEST(CallsignEntryList, CompareListIgnoresOrderButNotCount)
{
    const CallsignEntry x = entry("X");
    const CallsignEntry y = entry("Y");
    CallsignEntryList xy;
    xy.appendEntry(x);
    xy.appendEntry(y);
    CallsignEntryList yx;
    yx.appendEntry(y);
    yx.appendEntry(x);
    CallsignEntryList xx;
    xx.appendEntry(x);
    xx.appendEntry(x);
    EXPECT_TRUE(xy.compareList(yx));
    EXPECT_TRUE(xx.compareList(xy)) << "every entry of [X, X] has a match in [X, Y]";
    EXPECT_FALSE(xy.compareList(xx));
    CallsignEntryList single;
    single.appendEntry(x);
    EXPECT_FALSE(single.compareList(xx));
    EXPECT_TRUE(CallsignEntryList() == CallsignEntryList());
}

TEST(CallsignEntryList, CompareListAgreesWithTheOracle)
{
    // Few values, so that matches, near misses and repeats are all common.
    const char *const values[] = {nullptr, "", "A"};
    const auto randomEntry = [&values](std::mt19937 &random) {
        CallsignEntry e;
        for (base::DbDataType<std::string> *t : {&e.firstCallsign, &e.secondCallsign, &e.thirdCallsign, &e.fourthCallsign})
            *t = networktest::text(values[random() % 3]);
        return e;
    };
    networktest::expectCompareListAgreesWithTheOracle<CallsignEntryList>(
        3000, randomEntry, [&randomEntry](CallsignEntry &e, std::mt19937 &random) { e = randomEntry(random); });
}

TEST(CallsignEntryList, ManyAlikeEntriesCompareByValue)
{
    CallsignEntryList nulls;
    nulls.container().assign(20000, CallsignEntry());
    CallsignEntryList same = nulls;
    EXPECT_TRUE(nulls.compareList(same));
    same.container().back() = entry("X");
    EXPECT_FALSE(same.compareList(nulls)) << "X has no match among the NULL entries";
    EXPECT_TRUE(nulls.compareList(same)) << "every NULL entry has a match; repeats are not counted";
}

TEST(CallsignEntryList, EntryAtAndChangeEntryAt)
{
    CallsignEntryList list;
    list.appendEntry(entry("A"));
    list.appendEntry(entry("B"));
    ASSERT_NE(list.entryAt(1), nullptr);
    EXPECT_EQ(list.entryAt(1)->firstCallsign.getData(), "B");
    EXPECT_EQ(list.entryAt(list.count()), nullptr);
    EXPECT_THROW(list.entryAt(-1), std::out_of_range);

    list.changeEntryAt(list.count(), entry("C"));
    EXPECT_EQ(list.count(), 2);
    list.changeEntryAt(0, entry("C"));
    EXPECT_EQ(list.entryAt(0)->firstCallsign.getData(), "C");
    EXPECT_TRUE(list.contains(entry("C")));
    EXPECT_FALSE(list.contains(entry("A")));
}

TEST(CallsignEntryList, SetIdsChainsTheEntries)
{
    CallsignEntryList list;
    EXPECT_EQ(list.setIDs(0), 0);
    list.appendEntry(CallsignEntry());
    list.appendEntry(CallsignEntry());
    EXPECT_EQ(list.setIDs(0), 8);
    EXPECT_EQ(list.startID(), 0);
    EXPECT_EQ(list.entryAt(0)->firstCallsign.getID(), 1);
    EXPECT_EQ(list.entryAt(0)->fourthCallsign.getID(), 4);
    EXPECT_EQ(list.entryAt(1)->firstCallsign.getID(), 5);
    EXPECT_EQ(list.entryAt(1)->fourthCallsign.getID(), 8);
}

TEST(CallsignEntryList, ListOperations)
{
    CallsignEntryList list;
    list.appendEntry(entry("B"));
    list.prependEntry(entry("A"));
    list.setLayer(1);
    list.setIteratorToStart();
    CallsignEntry *first = list.getNextEntry();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->firstCallsign.getData(), "A");
    EXPECT_EQ(first->layer(), 1);
    EXPECT_EQ(list.getNextEntry()->firstCallsign.getData(), "B");
    EXPECT_EQ(list.getNextEntry(), nullptr);
    list.clear();
    EXPECT_EQ(list.count(), 0);
}
