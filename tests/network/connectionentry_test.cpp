#include "network/connectionentry.h"

#include "networktesting.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>

using namespace sigdb;
using networktest::connection;
using networktest::element;
using networktest::end;
using networktest::rcsEnd;
using networktest::text;
using networktest::undefinedElement;

// ---------------------------------------------------------------------------------------------
// Connection ends

TEST(ConnectionEntryDefinition, FlagsReadTrueOnlyWhenSetAndTrue)
{
    ConnectionEntryDefinition d;
    EXPECT_FALSE(d.isRCS());
    EXPECT_FALSE(d.isRelay());
    d.rcs = false;
    d.relay = false;
    EXPECT_FALSE(d.isRCS());
    EXPECT_FALSE(d.isRelay());
    d.rcs = true;
    d.relay = true;
    EXPECT_TRUE(d.isRCS());
    EXPECT_TRUE(d.isRelay());
    d.rcs.setNull(true);
    EXPECT_FALSE(d.isRCS()) << "a stale true behind NULL does not count";
}

TEST(ConnectionEntryDefinition, UndefinedWithoutTypeOrWithoutTid)
{
    EXPECT_TRUE(ConnectionEntryDefinition().isUndefined());
    ConnectionEntryDefinition d;
    d.element.setType(5);
    EXPECT_TRUE(d.isUndefined()) << "type without TID";
    d.element.setType(0);
    d.element.setTID(12);
    EXPECT_TRUE(d.isUndefined()) << "TID without type";
    d.element.setType(5);
    EXPECT_FALSE(d.isUndefined());
}

TEST(ConnectionEntryDefinition, NameAddsTheSecondKeyInParentheses)
{
    ConnectionEntryDefinition d;
    EXPECT_EQ(d.name(), "");
    d.overview.keyText1 = std::string("Alpha");
    EXPECT_EQ(d.name(), "Alpha");
    d.overview.keyText2 = std::string("");
    EXPECT_EQ(d.name(), "Alpha") << "an empty second key adds nothing";
    d.overview.keyText2 = std::string("North");
    EXPECT_EQ(d.name(), "Alpha (North)");
}

TEST(ConnectionEntryDefinition, SetIdsNumbersTextsFlagsOverviewThenElement)
{
    ConnectionEntryDefinition d;
    // Overview from 15: its element 16..18, keys 19.., ..., location ends at 45; element from
    // 46: TID 47, exchange id 48, user 49.
    EXPECT_EQ(d.setIDs(10), 49);
    EXPECT_EQ(d.firstText.getID(), 11);
    EXPECT_EQ(d.secondText.getID(), 12);
    EXPECT_EQ(d.rcs.getID(), 13);
    EXPECT_EQ(d.relay.getID(), 14);
    EXPECT_EQ(d.overview.element.tid().getID(), 16);
    EXPECT_EQ(d.overview.keyText1.getID(), 19);
    EXPECT_EQ(d.element.tid().getID(), 47);
    EXPECT_EQ(d.element.modificationUser().getID(), 49);
}

TEST(ConnectionEntryDefinition, EqualityLooksAtEveryField)
{
    const ConnectionEntryDefinition base = end(element(5, 12), "A");
    EXPECT_TRUE(base == ConnectionEntryDefinition(base));

    ConnectionEntryDefinition other = base;
    other.firstText = std::string("x");
    EXPECT_TRUE(base != other);
    other = base;
    other.secondText = std::string("x");
    EXPECT_TRUE(base != other);
    other = base;
    other.rcs = false;
    EXPECT_TRUE(base != other) << "NULL against false";
    other = base;
    other.relay = true;
    EXPECT_TRUE(base != other);
    other = base;
    other.element.setTID(13);
    EXPECT_TRUE(base != other);
    other = base;
    other.overview.keyText2 = std::string("x");
    EXPECT_TRUE(base != other);
    other = base;
    other.element.setApvState(7);
    EXPECT_TRUE(base == other) << "elements compare by identity";
}

TEST(ConnectionEntryDefinition, ToResultIsTheOverviewNamedByTheElement)
{
    ConnectionEntryDefinition d = end(element(5, 12), "Alpha");
    d.overview.element = element(9, 99);
    d.overview.infoText2 = std::string("info");
    const ElementOverview result = d.toResult();
    EXPECT_TRUE(result.element == element(5, 12));
    EXPECT_EQ(result.keyText1.getData(), "Alpha");
    EXPECT_EQ(result.infoText2.getData(), "info");
}

TEST(ConnectionEntryDefinition, CopyResetAndSerialize)
{
    ConnectionEntryDefinition d = rcsEnd(element(5, 12));
    d.setLayer(2);
    std::unique_ptr<base::DbBaseType> copy(d.getCopy(&d));
    auto *typed = dynamic_cast<ConnectionEntryDefinition *>(copy.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == d);
    EXPECT_EQ(typed->layer(), 2);

    QByteArray out("keep");
    d.serialize(out);
    EXPECT_EQ(out, QByteArray("keep"));

    d.reset();
    EXPECT_TRUE(d == ConnectionEntryDefinition());
    EXPECT_TRUE(d.rcs.isNull());
}

// ---------------------------------------------------------------------------------------------
// Connections

TEST(ConnectionEntry, ResetState)
{
    ConnectionEntry c;
    EXPECT_EQ(c.type(), 30);
    EXPECT_TRUE(c.isTIDundefined());
    EXPECT_FALSE(c.connectionFlag.isNull());
    EXPECT_TRUE(c.connectionFlag.getData());
    EXPECT_TRUE(c.modificationState.isNull());
    EXPECT_EQ(c.modificationState.getData(), 0);
    EXPECT_TRUE(c.secondNumber.isNull());
    EXPECT_EQ(c.indexInList, -1);
    EXPECT_EQ(c.indexInListCopy, -1);
    EXPECT_TRUE(c.fromDefinition == ConnectionEntryDefinition());

    c.setTID(4);
    c.name() = std::string("n");
    c.modificationState = 3;
    c.indexInList = 7;
    c.fromDefinition = rcsEnd(element(5, 1));
    c.reset();
    EXPECT_TRUE(c == ConnectionEntry());
    EXPECT_EQ(c.indexInList, -1);
    EXPECT_TRUE(c.name().isNull());
}

TEST(ConnectionEntry, ConstructedFromAnElementKeepsItsIdentity)
{
    SigdbElement e = element(30, 812, 2);
    e.setModificationUser(text("ann"));
    const ConnectionEntry c(e);
    EXPECT_EQ(c.type(), 30);
    EXPECT_EQ(c.TID(), 812u);
    EXPECT_EQ(c.layer(), 2);
    EXPECT_EQ(c.modificationUser().getData(), "ann");
    EXPECT_TRUE(c.connectionFlag.getData());
    EXPECT_EQ(c.indexInList, -1);
}

TEST(ConnectionEntry, SetIdsLeavesOneIdOutBeforeTheFromEnd)
{
    ConnectionEntry c;
    // Element part: TID 1, exchange id 2, user 3, removed 4, creation 5, modification 6,
    // name 7. Then 8, 9, 10; 11 is left out; the from end numbers from 11 (texts 12, 13,
    // flags 14, 15) and ends at 50; the to end numbers from 50 and ends at 89.
    EXPECT_EQ(c.setIDs(0), 89);
    EXPECT_EQ(c.name().getID(), 7);
    EXPECT_EQ(c.connectionFlag.getID(), 8);
    EXPECT_EQ(c.modificationState.getID(), 9);
    EXPECT_EQ(c.secondNumber.getID(), 10);
    EXPECT_EQ(c.fromDefinition.firstText.getID(), 12);
    EXPECT_EQ(c.fromDefinition.relay.getID(), 15);
    EXPECT_EQ(c.fromDefinition.element.modificationUser().getID(), 50);
    EXPECT_EQ(c.toDefinition.firstText.getID(), 51);
    EXPECT_EQ(c.toDefinition.relay.getID(), 54);
    EXPECT_EQ(c.toDefinition.element.tid().getID(), 87);
}

TEST(ConnectionEntry, SetLayerReachesBothEnds)
{
    ConnectionEntry c = connection(1, element(5, 1), element(6, 2));
    c.setLayer(2);
    EXPECT_EQ(c.layer(), 2);
    EXPECT_EQ(c.fromDefinition.element.layer(), 2);
    EXPECT_EQ(c.toDefinition.element.layer(), 2);
    EXPECT_EQ(c.fromDefinition.layer(), 0) << "the definitions' own layers are not touched";
}

TEST(ConnectionEntry, LayersDifferOnlyWhenOneOfThemIsOne)
{
    EXPECT_TRUE(ConnectionEntry::layersDiffer(1, 2));
    EXPECT_TRUE(ConnectionEntry::layersDiffer(0, 1));
    EXPECT_FALSE(ConnectionEntry::layersDiffer(1, 1));
    EXPECT_FALSE(ConnectionEntry::layersDiffer(2, 3));
    EXPECT_FALSE(ConnectionEntry::layersDiffer(0, 0));
}

TEST(ConnectionEntry, DifferentToEndsAreEqualWithoutTheToDefinitionOnly)
{
    const ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    const ConnectionEntry b = connection(1, element(5, 1), element(6, 3));
    EXPECT_TRUE(a.isEqualWithoutModStateAndToDefinition(b));
    EXPECT_FALSE(a.isEqualWithoutModState(b));
    EXPECT_FALSE(a == b);
}

TEST(ConnectionEntry, TidsAreNotComparedAcrossLayerOne)
{
    ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    ConnectionEntry b = connection(2, element(5, 1), element(6, 2));
    a.setLayer(1);
    b.setLayer(2);
    EXPECT_TRUE(a.isEqualWithoutModStateAndToDefinition(b));
    EXPECT_TRUE(a == b);

    a.setLayer(3);
    EXPECT_FALSE(a.isEqualWithoutModStateAndToDefinition(b)) << "layers 3 and 2 count as equal";
    a.setLayer(2);
    EXPECT_FALSE(a == b);
    b.setTID(1);
    EXPECT_TRUE(a == b);
}

TEST(ConnectionEntry, EqualityWithoutStateIgnoresStateNameAndModificationData)
{
    ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    ConnectionEntry b = a;
    b.modificationState = 3;
    b.name() = std::string("other");
    b.modificationUser() = std::string("ann");
    EXPECT_TRUE(a.isEqualWithoutModState(b));
    EXPECT_FALSE(a == b);

    b = a;
    b.connectionFlag = false;
    EXPECT_FALSE(a.isEqualWithoutModStateAndToDefinition(b));
    b = a;
    b.secondNumber = 2;
    EXPECT_FALSE(a.isEqualWithoutModStateAndToDefinition(b));
    b = a;
    b.fromDefinition.firstText = std::string("x");
    EXPECT_FALSE(a.isEqualWithoutModStateAndToDefinition(b));
}

TEST(ConnectionEntry, EqualityComparesEachOwnField)
{
    const ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    ConnectionEntry b = a;
    EXPECT_TRUE(a == b);
    b.modificationState = 0;
    EXPECT_FALSE(a == b) << "NULL state against 0";
    b = a;
    b.name() = std::string("n");
    EXPECT_FALSE(a == b);
    b = a;
    b.modificationDate() = std::string("2024-01-01");
    EXPECT_FALSE(a == b);
    b = a;
    b.modificationUser() = std::string("ann");
    EXPECT_FALSE(a == b);
}

TEST(ConnectionEntry, ModificationDataIsNotComparedAcrossLayerOne)
{
    ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    ConnectionEntry b = a;
    a.setLayer(1);
    b.setLayer(2);
    b.modificationDate() = std::string("2024-01-01");
    b.modificationUser() = std::string("ann");
    EXPECT_TRUE(a == b);
    b.name() = std::string("n");
    EXPECT_FALSE(a == b) << "the name is compared in every layer";
}

TEST(ConnectionEntry, CreationDateCountsOnlyWhenBothHoldOne)
{
    ConnectionEntry a = connection(1, element(5, 1), element(6, 2));
    ConnectionEntry b = a;
    b.creationDate() = std::string("2024-01-01");
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(b == a);
    a.creationDate() = std::string("2024-01-02");
    EXPECT_FALSE(a == b);
    a.creationDate() = std::string("2024-01-01");
    EXPECT_TRUE(a == b);
}

TEST(ConnectionEntry, CompareWithEntryRecordsTheFourOutcomes)
{
    const ConnectionEntry stored = connection(7, element(5, 1), element(6, 2));

    // Unchanged.
    ConnectionEntry mine = stored;
    mine.indexInList = 3;
    ConnectionEntry other = stored;
    other.indexInList = 5;
    mine.compareWithEntry(&other);
    EXPECT_TRUE(mine.hasModificationState(ConnectionEntry::State_Unchanged));
    EXPECT_EQ(mine.indexInListCopy, 5);
    EXPECT_TRUE(other.modificationState.isNull());

    // Same to element, other data changed: the edited connection takes the stored place.
    mine = stored;
    mine.indexInList = 3;
    other = stored;
    other.indexInList = 5;
    other.indexInListCopy = 5;
    other.toDefinition.firstText = std::string("changed");
    mine.compareWithEntry(&other);
    EXPECT_TRUE(other.hasModificationState(ConnectionEntry::State_Changed));
    EXPECT_EQ(other.indexInList, 3);
    EXPECT_TRUE(mine.hasModificationState(ConnectionEntry::State_Changed));
    EXPECT_EQ(mine.toDefinition.firstText.getData(), "changed");
    EXPECT_EQ(mine.indexInList, 3);
    EXPECT_EQ(mine.indexInListCopy, 5);

    // Only the to element changed: the stored connection takes the new to element.
    mine = stored;
    other = connection(7, element(5, 1), element(6, 9));
    other.toDefinition.overview.keyText1 = std::string("not compared");
    other.indexInList = 4;
    mine.compareWithEntry(&other);
    EXPECT_TRUE(mine.hasModificationState(ConnectionEntry::State_ToChanged));
    EXPECT_TRUE(mine.toDefinition.element == element(6, 9));
    EXPECT_TRUE(mine.toDefinition.overview.keyText1.isNull()) << "only the element is taken";
    EXPECT_EQ(mine.indexInListCopy, 4);
    EXPECT_TRUE(other.modificationState.isNull());

    // Both.
    mine = stored;
    mine.indexInList = 0;
    other = connection(7, element(5, 1), element(6, 9));
    other.connectionFlag = false;
    mine.compareWithEntry(&other);
    EXPECT_TRUE(other.hasModificationState(ConnectionEntry::State_ToAndRestChanged));
    EXPECT_TRUE(mine.hasModificationState(ConnectionEntry::State_ToAndRestChanged));
    EXPECT_FALSE(mine.connectionFlag.getData());
    EXPECT_EQ(mine.indexInList, 0);

    mine = stored;
    mine.compareWithEntry(nullptr);
    EXPECT_TRUE(mine.modificationState.isNull());
}

TEST(ConnectionEntry, ToResultDescribesTheConnection)
{
    ConnectionEntry c = connection(812, end(element(5, 1), "Alpha"), end(element(6, 2), "Bravo"));
    c.name() = std::string("link");
    c.setExchgId(text("X-1"));
    c.setLayer(2);
    const ElementOverview result = c.toResult();
    EXPECT_EQ(result.element.type(), 30);
    EXPECT_EQ(result.element.TID(), 812u);
    EXPECT_EQ(result.element.layer(), 2);
    EXPECT_EQ(result.layer(), 2);
    EXPECT_TRUE(result.relatedElement == element(5, 1));
    EXPECT_EQ(result.keyText1.getData(), "link");
    EXPECT_EQ(result.exchgIdText.getData(), "X-1");
    EXPECT_EQ(result.infoText2.getData(), "Alpha");
    EXPECT_EQ(result.infoText3.getData(), "Bravo");

    const ElementOverview bare = ConnectionEntry().toResult();
    EXPECT_TRUE(bare.infoText2.isNull());
    EXPECT_TRUE(bare.keyText1.isNull());
}

TEST(ConnectionEntry, CopyAndSerialize)
{
    ConnectionEntry c = connection(3, element(5, 1), element(6, 2));
    c.indexInList = 4;
    std::unique_ptr<base::DbBaseType> copy(c.getCopy(&c));
    auto *typed = dynamic_cast<ConnectionEntry *>(copy.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == c);
    EXPECT_EQ(typed->indexInList, 4);
    QByteArray out;
    c.serialize(out);
    EXPECT_TRUE(out.isEmpty());
}

// ---------------------------------------------------------------------------------------------
// Connection lists

TEST(ConnectionEntryList, EmptyListLookUps)
{
    ConnectionEntryList list;
    EXPECT_TRUE(list.getFirstElementdefinitionOrRCS().isUndefined());
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(5, 1)), -1);
    EXPECT_TRUE(list.getConnectionEntryDefinition(element(5, 1)) == ConnectionEntryDefinition());
    EXPECT_EQ(list.getEntryWithConnectionTid(base::DbDataType<unsigned long long>()), nullptr);
    EXPECT_EQ(list.getEntryWithConnectionTid(base::DbDataType<unsigned long long>(1)), nullptr);
    EXPECT_EQ(list.entryReferenceAt(0), nullptr);
    EXPECT_TRUE(list.entryAt(0) == ConnectionEntry());
    EXPECT_EQ(list.setIDs(5), 5);
    EXPECT_EQ(list.startID(), 5);
}

TEST(ConnectionEntryList, EntryAtCopiesAndReferenceAtPoints)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, element(5, 1), element(6, 2)));
    list.prependEntry(connection(2, element(5, 3), element(6, 4)));
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.entryAt(0).TID(), 2u);
    ConnectionEntry copy = list.entryAt(1);
    copy.setTID(99);
    EXPECT_EQ(list.entryAt(1).TID(), 1u);
    list.entryReferenceAt(1)->setTID(98);
    EXPECT_EQ(list.entryAt(1).TID(), 98u);
    EXPECT_EQ(list.entryReferenceAt(2), nullptr);
    EXPECT_EQ(list.entryReferenceAt(-1), nullptr);
    EXPECT_TRUE(list.contains(list.entryAt(0)));
    EXPECT_FALSE(list.contains(connection(2, element(5, 3), element(6, 5))));
}

TEST(ConnectionEntryList, CompareListIgnoresOrderButNotCounts)
{
    const ConnectionEntry x = connection(1, element(5, 1), element(6, 2));
    const ConnectionEntry y = connection(2, element(5, 3), element(6, 4));
    ConnectionEntryList xy;
    xy.appendEntry(x);
    xy.appendEntry(y);
    ConnectionEntryList yx;
    yx.appendEntry(y);
    yx.appendEntry(x);
    ConnectionEntryList xx;
    xx.appendEntry(x);
    xx.appendEntry(x);
    EXPECT_TRUE(xy.compareList(yx));
    EXPECT_TRUE(xy == yx);
    EXPECT_TRUE(xx.compareList(xy));
    EXPECT_FALSE(xy.compareList(xx));
    ConnectionEntryList justX;
    justX.appendEntry(x);
    EXPECT_FALSE(justX.compareList(xy));
}

TEST(ConnectionEntryList, CompareListKeepsTheElementEquality)
{
    // Ends without TID are told apart by their exchange ids; connections in different layers
    // match without their own TIDs.
    SigdbElement a;
    a.setType(5);
    a.setExchgId(text("A"));
    SigdbElement b = a;
    b.setExchgId(text("B"));
    ConnectionEntry withA = connection(1, a, element(6, 2));
    ConnectionEntry withB = connection(1, b, element(6, 2));
    ConnectionEntryList listA;
    listA.appendEntry(withA);
    ConnectionEntryList listB;
    listB.appendEntry(withB);
    EXPECT_FALSE(listA.compareList(listB));

    SigdbElement aWithTid = a;
    aWithTid.setTID(5);
    SigdbElement bWithTid = b;
    bWithTid.setTID(5);
    ConnectionEntryList tidA;
    tidA.appendEntry(connection(1, aWithTid, element(6, 2)));
    ConnectionEntryList tidB;
    tidB.appendEntry(connection(1, bWithTid, element(6, 2)));
    EXPECT_TRUE(tidA.compareList(tidB)) << "with a TID the exchange id does not count";

    tidB.entryReferenceAt(0)->setTID(77);
    EXPECT_FALSE(tidA.compareList(tidB));
    tidA.setLayer(1);
    tidB.setLayer(2);
    EXPECT_TRUE(tidA.compareList(tidB));
}

namespace {

/// Sets field \a field of \a c to one of a few values, so that random connections often agree.
void setRandomField(ConnectionEntry &c, int field, std::mt19937 &random)
{
    const unsigned pick = random() % 3;
    const char *const texts[] = {nullptr, "a", "b"};
    switch (field) {
    case 0: c.setLayer(static_cast<int>(pick)); break;
    case 1: c.tid() = pick == 0 ? base::DbDataType<unsigned long long>() : base::DbDataType<unsigned long long>(pick); break;
    case 2: c.creationDate() = text(texts[pick]); break;
    case 3: c.modificationDate() = text(texts[pick % 2]); break;
    case 4: c.modificationUser() = text(texts[pick % 2]); break;
    case 5: c.name() = text(texts[pick % 2]); break;
    case 6: c.secondNumber = pick % 2 ? base::DbDataType<int>(1) : base::DbDataType<int>(); break;
    case 7: c.connectionFlag = pick % 2 ? base::DbDataType<bool>(true) : base::DbDataType<bool>(); break;
    case 8: c.modificationState = pick % 2 ? base::DbDataType<int>(1) : base::DbDataType<int>(); break;
    case 9: c.fromDefinition.firstText = text(texts[pick % 2]); break;
    case 10: c.toDefinition.element.setTID(2 + pick % 2); break;
    default: {
        // Zero of either sign, NULL, or now and then a NaN, which equals nothing, itself included.
        base::DbDataType<double> &latitude = c.fromDefinition.overview.location.latitude;
        if (random() % 40 == 0)
            latitude = std::numeric_limits<double>::quiet_NaN();
        else
            latitude = pick == 0 ? base::DbDataType<double>() : base::DbDataType<double>(pick == 1 ? 0.0 : -0.0);
    }
    }
}

constexpr int kRandomFields = 12;

ConnectionEntry randomConnection(std::mt19937 &random)
{
    ConnectionEntry c = connection(0, element(5, 1), element(6, 2));
    for (int field = 0; field < kRandomFields; ++field)
        setRandomField(c, field, random);
    return c;
}

} // namespace

TEST(ConnectionEntryList, CompareListAgreesWithTheOracle)
{
    // Layers around layer 1, TIDs, modification data and creation dates present or not: the
    // parts of connection equality that are not an equivalence, all mixed.
    networktest::expectCompareListAgreesWithTheOracle<ConnectionEntryList>(
        4000, randomConnection, [](ConnectionEntry &c, std::mt19937 &random) {
            setRandomField(c, static_cast<int>(random() % kRandomFields), random);
        });
}

TEST(ConnectionEntryList, CompareListFollowsTheLayerAndCreationDateRules)
{
    ConnectionEntry inLayerOne = connection(1, element(5, 1), element(6, 2));
    inLayerOne.setLayer(1);
    inLayerOne.modificationUser() = text("ann");
    ConnectionEntry inLayerTwo = inLayerOne;
    inLayerTwo.setLayer(2);
    inLayerTwo.setTID(2);
    inLayerTwo.modificationUser() = text("bob");
    ConnectionEntry inLayerThree = inLayerTwo;
    inLayerThree.setLayer(3);
    inLayerThree.setTID(3);
    const auto listOf = [](const ConnectionEntry &c) {
        ConnectionEntryList list;
        list.appendEntry(c);
        return list;
    };
    EXPECT_TRUE(listOf(inLayerOne).compareList(listOf(inLayerTwo))) << "across layer 1 TID and user do not count";
    EXPECT_TRUE(listOf(inLayerThree).compareList(listOf(inLayerOne)));
    EXPECT_FALSE(listOf(inLayerTwo).compareList(listOf(inLayerThree))) << "layers 2 and 3 compare their TIDs";

    ConnectionEntry dated = inLayerOne;
    dated.creationDate() = text("2020-01-01");
    ConnectionEntry otherDate = inLayerOne;
    otherDate.creationDate() = text("2021-01-01");
    EXPECT_TRUE(listOf(dated).compareList(listOf(inLayerOne))) << "a creation date counts only where both hold one";
    EXPECT_TRUE(listOf(inLayerOne).compareList(listOf(otherDate)));
    EXPECT_FALSE(listOf(dated).compareList(listOf(otherDate)));
}

TEST(ConnectionEntryList, ManyConnectionsBetweenTheSameEndsCompareByTheirOwnFields)
{
    ConnectionEntryList list;
    for (unsigned long long tid = 1; tid <= 2000; ++tid) {
        ConnectionEntry c = connection(tid, element(5, 1), element(6, 2));
        c.fromDefinition.secondText = text(("note " + std::to_string(tid)).c_str());
        list.appendEntry(c);
    }
    ConnectionEntryList reversed = list;
    std::reverse(reversed.container().begin(), reversed.container().end());
    EXPECT_TRUE(list.compareList(reversed));
    reversed.entryReferenceAt(1000)->setTID(9999);
    EXPECT_FALSE(list.compareList(reversed)) << "one connection's TID has no match any more";
    reversed.setLayer(1);
    EXPECT_TRUE(list.compareList(reversed)) << "across layer 1 the TIDs do not count";
}

TEST(ConnectionEntryList, AConnectionHoldingANanMatchesNothing)
{
    ConnectionEntry c = connection(1, element(5, 1), element(6, 2));
    c.toDefinition.overview.location.longitude = std::numeric_limits<double>::quiet_NaN();
    ConnectionEntryList list;
    list.container().assign(1000, c);
    EXPECT_FALSE(c == c);
    EXPECT_FALSE(list.compareList(list));
}

TEST(ConnectionEntryList, SetIdsChainsTheConnections)
{
    ConnectionEntryList list;
    list.appendEntry(ConnectionEntry());
    list.appendEntry(ConnectionEntry());
    EXPECT_EQ(list.setIDs(10), 10 + 89 + 89);
    EXPECT_EQ(list.startID(), 10);
    EXPECT_EQ(list.container()[0].tid().getID(), 11);
    EXPECT_EQ(list.container()[1].tid().getID(), 100);
}

TEST(ConnectionEntryList, SetLayerAndPositions)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, element(5, 1), element(6, 2)));
    list.appendEntry(connection(2, element(5, 3), element(6, 4)));
    list.setLayer(2);
    list.setIndexInListValueForEntries();
    for (int i = 0; i < 2; ++i) {
        const ConnectionEntry &c = list.container()[static_cast<size_t>(i)];
        EXPECT_EQ(c.layer(), 2);
        EXPECT_EQ(c.toDefinition.element.layer(), 2);
        EXPECT_EQ(c.indexInList, i);
        EXPECT_EQ(c.indexInListCopy, i);
    }
}

TEST(ConnectionEntryList, EntryWithConnectionTidUsesNullableEquality)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, element(5, 1), element(6, 2)));
    list.appendEntry(connection(0, element(5, 3), element(6, 4)));
    list.appendEntry(connection(0, element(5, 5), element(6, 6)));
    list.appendEntry(connection(1, element(5, 7), element(6, 8)));
    EXPECT_EQ(list.getEntryWithConnectionTid(base::DbDataType<unsigned long long>(1)), list.entryReferenceAt(0));
    EXPECT_EQ(list.getEntryWithConnectionTid(base::DbDataType<unsigned long long>()), list.entryReferenceAt(1));
    EXPECT_EQ(list.getEntryWithConnectionTid(base::DbDataType<unsigned long long>(0)), nullptr)
        << "TID 0 is not NULL";
}

TEST(ConnectionEntryList, FirstIndexLooksAtBothEnds)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, element(5, 1), element(6, 2)));
    list.appendEntry(connection(2, element(6, 3), element(5, 1)));
    list.appendEntry(connection(3, element(6, 3), element(6, 4)));
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(5, 1)), 0);
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(6, 2)), 0);
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(6, 3)), 1);
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(6, 4)), 2);
    EXPECT_EQ(list.getFirstIndexForElementdefinition(element(5, 2)), -1);
}

TEST(ConnectionEntryList, DefinitionTakesTheFromEndBeforeTheToEnd)
{
    ConnectionEntryList list;
    ConnectionEntryDefinition asTo = end(element(5, 1), "as to end");
    ConnectionEntryDefinition asFrom = end(element(5, 1), "as from end");
    list.appendEntry(connection(1, end(element(6, 9)), asTo));
    list.appendEntry(connection(2, asFrom, end(element(6, 8))));
    EXPECT_TRUE(list.getConnectionEntryDefinition(element(5, 1)) == asTo) << "entries in order";
    list.prependEntry(connection(3, asFrom, asTo));
    EXPECT_TRUE(list.getConnectionEntryDefinition(element(5, 1)) == asFrom);
}

TEST(ConnectionEntryList, CentreChoiceFallsBackToTheFirstFromEnd)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, undefinedElement(), element(6, 2)));
    EXPECT_TRUE(list.getFirstElementdefinitionOrRCS().isUndefined()) << "a plain to end never";
    list.appendEntry(connection(2, element(5, 1), element(6, 3)));
    list.appendEntry(connection(3, element(5, 4), element(6, 5)));
    EXPECT_TRUE(list.getFirstElementdefinitionOrRCS() == element(5, 1));
}

TEST(ConnectionEntryList, CentreChoiceTakesTheLastToRcsUnlessAFromRcsComes)
{
    ConnectionEntryList list;
    list.appendEntry(connection(1, end(element(5, 1)), rcsEnd(element(6, 2))));
    list.appendEntry(connection(2, end(element(5, 3)), rcsEnd(element(6, 4))));
    EXPECT_TRUE(list.getFirstElementdefinitionOrRCS() == element(6, 4));

    list.appendEntry(connection(3, rcsEnd(element(5, 7)), rcsEnd(element(6, 8))));
    list.appendEntry(connection(4, rcsEnd(element(5, 9)), end(element(6, 10))));
    EXPECT_TRUE(list.getFirstElementdefinitionOrRCS() == element(5, 7))
        << "the first RCS at a from end ends the walk";

    ConnectionEntryList undefinedRcs;
    ConnectionEntryDefinition noTid = rcsEnd(element(6, 2));
    noTid.element.tid().setNull(true);
    undefinedRcs.appendEntry(connection(1, end(element(5, 1)), noTid));
    EXPECT_TRUE(undefinedRcs.getFirstElementdefinitionOrRCS() == element(5, 1));
}
