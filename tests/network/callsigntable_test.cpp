#include "network/callsigntable.h"

#include "networktesting.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <memory>

using namespace sigdb;
using networktest::callsigns;
using networktest::connection;
using networktest::element;
using networktest::end;
using networktest::rcsEnd;
using networktest::set;
using networktest::table;
using networktest::text;
using networktest::Text;

namespace {

CallsignTable twoConnectionTable()
{
    return table({connection(1, element(5, 1), element(6, 2)), connection(2, element(5, 3), element(6, 4))},
                 {set({callsigns("A", "B", "C", "D"), callsigns("E", "F", "G", "H")})});
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Record operations

TEST(CallsignTable, DefaultIsEmpty)
{
    const CallsignTable t;
    EXPECT_EQ(t.connections.count(), 0);
    EXPECT_EQ(t.sets.count(), 0);
    EXPECT_TRUE(t.overview == ElementOverview());
}

TEST(CallsignTable, SerializeWritesNothing)
{
    QByteArray out("keep");
    twoConnectionTable().serialize(out);
    EXPECT_EQ(out, QByteArray("keep"));
}

TEST(CallsignTable, CopyResetAndGetCopy)
{
    CallsignTable t = twoConnectionTable();
    t.overview.keyText1 = std::string("net");
    t.base::DbBaseType::setLayer(2);
    std::unique_ptr<base::DbBaseType> copy(t.getCopy(&t));
    auto *typed = dynamic_cast<CallsignTable *>(copy.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == t);
    EXPECT_EQ(typed->layer(), 2);

    CallsignTable assigned;
    assigned = t;
    EXPECT_TRUE(assigned == t);

    t.reset();
    EXPECT_EQ(t.connections.count(), 0);
    EXPECT_EQ(t.sets.count(), 0);
    EXPECT_TRUE(t.overview.keyText1.isNull());
}

TEST(CallsignTable, SetIdsNumbersConnectionsThenSets)
{
    CallsignTable t = table({connection(1, element(5, 1), element(6, 2))}, {set({callsigns("A")})});
    // Connections from 1 (one connection takes 89 ids), then the set: texts 91 and 92, entry
    // list start 93, entry 94 to 97.
    EXPECT_EQ(t.setIDs(0), 97);
    EXPECT_EQ(t.connections.startID(), 1);
    EXPECT_EQ(t.connections.container()[0].tid().getID(), 2);
    EXPECT_EQ(t.sets.startID(), 90);
    EXPECT_EQ(t.sets.container()[0].firstValue.getID(), 91);
    EXPECT_EQ(t.sets.container()[0].entries.container()[0].fourthCallsign.getID(), 97);

    CallsignTable empty;
    EXPECT_EQ(empty.setIDs(4), 5);
}

TEST(CallsignTable, SetLayerReachesConnectionsAndEntriesButNotTheTable)
{
    CallsignTable t = twoConnectionTable();
    t.setLayer(2);
    EXPECT_EQ(t.layer(), 0);
    EXPECT_EQ(t.connections.container()[1].layer(), 2);
    EXPECT_EQ(t.connections.container()[1].fromDefinition.element.layer(), 2);
    EXPECT_EQ(t.sets.container()[0].entries.container()[1].layer(), 2);
    EXPECT_EQ(t.sets.container()[0].layer(), 0);
}

TEST(CallsignTable, EqualityOrderRules)
{
    const CallsignTable t = twoConnectionTable();
    CallsignTable swapped = t;
    std::swap(swapped.connections.container()[0], swapped.connections.container()[1]);
    EXPECT_TRUE(t == swapped) << "connections in any order";

    CallsignTable twoSets = t;
    twoSets.sets.appendEntry(set({callsigns("X")}));
    CallsignTable setsSwapped = twoSets;
    std::swap(setsSwapped.sets.container()[0], setsSwapped.sets.container()[1]);
    EXPECT_FALSE(twoSets == setsSwapped) << "sets in order";

    CallsignTable otherOverview = t;
    otherOverview.overview.keyText1 = std::string("x");
    EXPECT_TRUE(t != otherOverview);
}

// ---------------------------------------------------------------------------------------------
// All new

TEST(CallsignTable, SetAllNewMarksEveryConnection)
{
    CallsignTable t = twoConnectionTable();
    t.connections.container()[0].modificationUser().setID(40);
    t.setAllNew(text("ann"));
    for (const ConnectionEntry &c : t.connections.container()) {
        EXPECT_TRUE(c.hasModificationState(ConnectionEntry::State_New));
        EXPECT_EQ(c.modificationUser().getData(), "ann");
        EXPECT_TRUE(c.isTIDundefined());
        EXPECT_EQ(c.TID(), 0u);
    }
    EXPECT_EQ(t.connections.container()[0].modificationUser().getID(), 40) << "an id given is kept";

    t.setAllNew(text(nullptr));
    EXPECT_TRUE(t.connections.container()[0].modificationUser().isNull());
}

TEST(CallsignTable, CloneAsNewLeavesTheSourceAlone)
{
    const CallsignTable t = twoConnectionTable();
    const CallsignTable clone = t.cloneAsNew(text("ann"));
    for (const ConnectionEntry &c : t.connections.container()) {
        EXPECT_TRUE(c.modificationState.isNull());
        EXPECT_FALSE(c.isTIDundefined());
        EXPECT_TRUE(c.modificationUser().isNull());
    }
    EXPECT_EQ(t.connections.container()[1].TID(), 2u);
    ASSERT_EQ(clone.connections.count(), 2);
    EXPECT_TRUE(clone.connections.container()[1].hasModificationState(ConnectionEntry::State_New));
    EXPECT_TRUE(clone.connections.container()[1].isTIDundefined());
    EXPECT_TRUE(clone.sets == t.sets);
}

// ---------------------------------------------------------------------------------------------
// Joining callsigns

TEST(CallsignTable, AddCallsignJoinsWithSlash)
{
    Text target = text("A");
    CallsignTable::addCallsign(target, text("B"));
    EXPECT_EQ(target.getData(), "A/B");
    CallsignTable::addCallsign(target, text("B"));
    EXPECT_EQ(target.getData(), "A/B");
    CallsignTable::addCallsign(target, text("A"));
    EXPECT_EQ(target.getData(), "A/B") << "A/ occurs in A/B";
    CallsignTable::addCallsign(target, text("C"));
    EXPECT_EQ(target.getData(), "A/B/C");
    CallsignTable::addCallsign(target, text(""));
    CallsignTable::addCallsign(target, text(nullptr));
    EXPECT_EQ(target.getData(), "A/B/C");
    EXPECT_FALSE(target.isNull());
}

TEST(CallsignTable, AddCallsignFindsPlainSubstrings)
{
    Text target = text("CAB/X");
    CallsignTable::addCallsign(target, text("AB"));
    EXPECT_EQ(target.getData(), "CAB/X") << "AB/ occurs in CAB/X";
    CallsignTable::addCallsign(target, text("X"));
    EXPECT_EQ(target.getData(), "CAB/X") << "/X occurs";
    CallsignTable::addCallsign(target, text("CA"));
    EXPECT_EQ(target.getData(), "CAB/X/CA");

    Text single = text("AB");
    CallsignTable::addCallsign(single, text("A"));
    EXPECT_EQ(single.getData(), "AB/A") << "without a slash in the target nothing matches";
}

TEST(CallsignTable, AddCallsignIntoEmptyOrNullTakesTheCallsign)
{
    Text target;
    target.setID(7);
    Text callsign = text("Q");
    callsign.setID(9);
    CallsignTable::addCallsign(target, callsign);
    EXPECT_EQ(target.getData(), "Q");
    EXPECT_EQ(target.getID(), 7);

    Text nullWithId;
    CallsignTable::addCallsign(nullWithId, callsign);
    EXPECT_EQ(nullWithId.getID(), 9) << "takes the id where none was given";

    Text empty = text("");
    CallsignTable::addCallsign(empty, text(nullptr));
    EXPECT_TRUE(empty.isNull()) << "an empty target takes even a NULL callsign";

    Text stale = text("old");
    stale.setNull(true);
    CallsignTable::addCallsign(stale, text("new"));
    EXPECT_EQ(stale.getData(), "new");
}

// ---------------------------------------------------------------------------------------------
// RCS ends

TEST(CallsignTable, MainEntryListCollectsDistinctDefinedRcsEnds)
{
    ConnectionEntryDefinition noTid = rcsEnd(element(6, 9));
    noTid.element.tid().setNull(true);
    ConnectionEntryDefinition noType = rcsEnd(element(0, 9));
    ConnectionEntryDefinition falseRcs = end(element(6, 8));
    falseRcs.rcs = false;
    const CallsignTable t = table(
        {
            connection(1, end(element(5, 1)), rcsEnd(element(6, 2))),
            connection(2, rcsEnd(element(5, 3)), rcsEnd(element(6, 2))),
            connection(3, noTid, noType),
            connection(4, falseRcs, rcsEnd(element(5, 3))),
            connection(5, rcsEnd(element(6, 10)), end(element(5, 1))),
        },
        {});
    const std::vector<ConnectionEntryDefinition> main = t.mainEntryList();
    ASSERT_EQ(main.size(), 3u);
    EXPECT_TRUE(main[0].element == element(6, 2));
    EXPECT_TRUE(main[1].element == element(5, 3));
    EXPECT_TRUE(main[2].element == element(6, 10));
    EXPECT_TRUE(main[1].isRCS());
    EXPECT_TRUE(CallsignTable().mainEntryList().empty());
}
