#include "network/callsigntable.h"

#include "networktesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace sigdb;
using networktest::callsigns;
using networktest::connection;
using networktest::element;
using networktest::set;
using networktest::show;
using networktest::table;
using networktest::text;

namespace {

const SigdbElement A = element(5, 1);
const SigdbElement B = element(5, 2);
const SigdbElement C = element(5, 3);
const SigdbElement D = element(5, 4);
const SigdbElement E = element(5, 5);
const SigdbElement F = element(5, 6);

const char *const kNullTidText = "CallsignTable::mergeTable:: initial NULL TID detected. Copy table - no merge\n";

ConnectionEntry byUser(ConnectionEntry c, const char *user)
{
    c.modificationUser() = text(user);
    return c;
}

/// The callsigns of connection \a tid in a set numbered \a prefix: prefix + tid four times.
CallsignEntry entryFor(const std::string &prefix, int tid)
{
    const std::string t = prefix + std::to_string(tid);
    return callsigns(t.c_str(), t.c_str(), t.c_str(), t.c_str());
}

std::vector<int> states(const CallsignTable &t)
{
    std::vector<int> result;
    for (const ConnectionEntry &c : t.connections.container())
        result.push_back(c.modificationState.isNull() ? -1 : c.modificationState.getData());
    return result;
}

std::vector<std::string> shownEntries(const CallsignSet &s)
{
    std::vector<std::string> result;
    for (const CallsignEntry &e : s.entries.container())
        result.push_back(show(e));
    return result;
}

/// A stored table whose seven connections (TIDs 101 to 107) will meet every outcome of the
/// merge, with two sets.
CallsignTable storedTable()
{
    CallsignTable t = table(
        {
            byUser(connection(101, A, B), "old"),
            byUser(connection(102, A, C), "old"),
            byUser(connection(103, B, C), "old"),
            byUser(connection(104, C, D), "old"),
            byUser(connection(105, D, A), "old"),
            byUser(connection(106, A, D), "old"),
            byUser(connection(107, B, D), "old"),
        },
        {});
    for (const char *prefix : {"s", "x"}) {
        CallsignSet s;
        s.firstValue = std::string("stored set");
        for (int tid = 101; tid <= 107; ++tid)
            s.entries.appendEntry(entryFor(prefix, tid));
        t.sets.appendEntry(s);
    }
    return t;
}

/// The edited table, in another order: a new connection without TID; 107 with another to
/// element and other callsigns; 106 with other callsigns; 104 with another to element and
/// another flag; 103 with another to element; 102 with another from text; 101 as stored; 105
/// left out; 300 unknown to the stored table.
CallsignTable editedTable()
{
    ConnectionEntry changedFrom = byUser(connection(102, A, C), "old");
    changedFrom.fromDefinition.firstText = std::string("changed");
    ConnectionEntry changedFlag = byUser(connection(104, C, E), "old");
    changedFlag.connectionFlag = false;
    CallsignTable t = table(
        {
            connection(0, E, F),
            byUser(connection(107, B, A), "old"),
            byUser(connection(106, A, D), "old"),
            changedFlag,
            byUser(connection(103, B, E), "old"),
            changedFrom,
            byUser(connection(101, A, B), "old"),
            connection(300, C, F),
        },
        {});
    const std::vector<int> order = {0, 107, 106, 104, 103, 102, 101, 300};
    for (const char *prefix : {"s", "x"}) {
        CallsignSet s;
        s.firstValue = std::string("edited set");
        for (int tid : order) {
            if (tid == 0)
                s.entries.appendEntry(entryFor(std::string(prefix) + "new", 0));
            else if (std::string(prefix) == "s" && (tid == 106 || tid == 107))
                s.entries.appendEntry(entryFor("changed", tid));
            else
                s.entries.appendEntry(entryFor(prefix, tid));
        }
        t.sets.appendEntry(s);
    }
    return t;
}

} // namespace

TEST(CallsignTableMerge, EveryStateAtOnce)
{
    CallsignTable stored = storedTable();
    CallsignTable edited = editedTable();
    const std::string printed = sigdbtest::captureStdout([&] { stored.mergeTable(edited, text("editor"), false); });
    EXPECT_EQ(printed, "");

    EXPECT_EQ(states(stored), (std::vector<int>{0, 1, 2, 3, 4, 1, 3, 5}));
    const std::vector<ConnectionEntry> &merged = stored.connections.container();
    ASSERT_EQ(merged.size(), 8u);

    // 101: unchanged, keeps its user.
    EXPECT_EQ(merged[0].TID(), 101u);
    EXPECT_EQ(merged[0].modificationUser().getData(), "old");
    EXPECT_EQ(merged[0].indexInList, 0);
    EXPECT_EQ(merged[0].indexInListCopy, 6);
    // 102: the edited connection took the stored place.
    EXPECT_EQ(merged[1].TID(), 102u);
    EXPECT_EQ(merged[1].fromDefinition.firstText.getData(), "changed");
    EXPECT_EQ(merged[1].modificationUser().getData(), "editor");
    EXPECT_EQ(merged[1].indexInList, 1);
    EXPECT_EQ(merged[1].indexInListCopy, 5);
    // 103: only the to element changed, callsigns equal in both sets.
    EXPECT_EQ(merged[2].TID(), 103u);
    EXPECT_TRUE(merged[2].toDefinition.element == E);
    EXPECT_EQ(merged[2].modificationUser().getData(), "editor");
    EXPECT_EQ(merged[2].indexInListCopy, 4);
    // 104: to element and flag changed.
    EXPECT_EQ(merged[3].TID(), 104u);
    EXPECT_TRUE(merged[3].toDefinition.element == E);
    EXPECT_FALSE(merged[3].connectionFlag.getData());
    EXPECT_EQ(merged[3].modificationUser().getData(), "editor");
    EXPECT_EQ(merged[3].indexInList, 3);
    EXPECT_EQ(merged[3].indexInListCopy, 3);
    // 105: removed, keeps its place.
    EXPECT_EQ(merged[4].TID(), 105u);
    EXPECT_TRUE(merged[4].toDefinition.element == A);
    EXPECT_EQ(merged[4].modificationUser().getData(), "editor");
    // 106: unchanged connection, changed callsigns.
    EXPECT_EQ(merged[5].TID(), 106u);
    EXPECT_EQ(merged[5].modificationUser().getData(), "editor");
    // 107: to element changed, then the callsigns too.
    EXPECT_EQ(merged[6].TID(), 107u);
    EXPECT_TRUE(merged[6].toDefinition.element == A);
    EXPECT_EQ(merged[6].modificationUser().getData(), "editor");
    // The connection without TID is new; 300 is not added without addNew.
    EXPECT_TRUE(merged[7].isTIDundefined());
    EXPECT_TRUE(merged[7].fromDefinition.element == E);
    EXPECT_EQ(merged[7].modificationUser().getData(), "editor");
    EXPECT_EQ(merged[7].indexInListCopy, 0);

    ASSERT_EQ(stored.sets.count(), 2);
    for (const CallsignSet &s : stored.sets.container()) {
        EXPECT_TRUE(s.firstValue.isNull()) << "the texts of the sets are not carried over";
        EXPECT_TRUE(s.secondValue.isNull());
    }
    const std::string none = "<null>,<null>,<null>,<null>";
    EXPECT_EQ(shownEntries(stored.sets.container()[0]),
              (std::vector<std::string>{"s101,s101,s101,s101", "s102,s102,s102,s102", "s103,s103,s103,s103",
                                        "s104,s104,s104,s104", none, "changed106,changed106,changed106,changed106",
                                        "changed107,changed107,changed107,changed107", "snew0,snew0,snew0,snew0"}));
    EXPECT_EQ(shownEntries(stored.sets.container()[1]),
              (std::vector<std::string>{"x101,x101,x101,x101", "x102,x102,x102,x102", "x103,x103,x103,x103",
                                        "x104,x104,x104,x104", none, "x106,x106,x106,x106", "x107,x107,x107,x107",
                                        "xnew0,xnew0,xnew0,xnew0"}));

    // The edited table carries the marks of the merge too.
    const std::vector<ConnectionEntry> &changed = edited.connections.container();
    EXPECT_EQ(states(edited), (std::vector<int>{5, -1, -1, 3, -1, 1, -1, -1}));
    EXPECT_EQ(changed[0].modificationUser().getData(), "editor");
    EXPECT_EQ(changed[3].indexInList, 3);
    EXPECT_EQ(changed[5].indexInList, 1);
    EXPECT_EQ(changed[6].indexInList, 6);
    EXPECT_EQ(changed[6].indexInListCopy, 6);
    EXPECT_TRUE(changed[7].modificationUser().isNull());
}

TEST(CallsignTableMerge, AddNewTakesUnknownTidsOnce)
{
    CallsignTable stored = table({connection(1, A, B)}, {set({callsigns("a")})});
    CallsignTable edited = table({connection(1, A, B), connection(7, A, C), connection(7, A, D), connection(0, B, C)},
                                 {set({callsigns("a"), callsigns("c"), callsigns("d"), callsigns("n")})});
    stored.mergeTable(edited, text("u"), true);
    EXPECT_EQ(states(stored), (std::vector<int>{0, 5, 5}));
    EXPECT_EQ(stored.connections.container()[1].TID(), 7u);
    EXPECT_TRUE(stored.connections.container()[1].toDefinition.element == C) << "the first with the TID";
    EXPECT_TRUE(stored.connections.container()[2].isTIDundefined());
    EXPECT_EQ(stored.connections.container()[2].modificationUser().getData(), "u");
    EXPECT_EQ(shownEntries(stored.sets.container()[0]),
              (std::vector<std::string>{"a,<null>,<null>,<null>", "c,<null>,<null>,<null>", "n,<null>,<null>,<null>"}));

    CallsignTable withoutAddNew = table({connection(1, A, B)}, {set({callsigns("a")})});
    CallsignTable again = table({connection(1, A, B), connection(7, A, C), connection(0, B, C)},
                                {set({callsigns("a"), callsigns("c"), callsigns("n")})});
    withoutAddNew.mergeTable(again, text("u"), false);
    EXPECT_EQ(states(withoutAddNew), (std::vector<int>{0, 5}));
    EXPECT_TRUE(withoutAddNew.connections.container()[1].isTIDundefined());
}

TEST(CallsignTableMerge, NullTidInTheStoredTableCopiesTheEditedTable)
{
    CallsignTable stored = table({connection(0, A, B), connection(2, A, C)}, {set({callsigns("a"), callsigns("b")})});
    CallsignTable edited = table({connection(11, C, D), connection(12, D, E)}, {set({callsigns("x"), callsigns("y")})});
    edited.overview.keyText1 = std::string("edited network");
    edited.base::DbBaseType::setLayer(2);
    const CallsignTable editedBefore = edited;

    const std::string printed = sigdbtest::captureStdout([&] { stored.mergeTable(edited, text("ann"), false); });
    EXPECT_EQ(printed, kNullTidText);
    EXPECT_EQ(states(stored), (std::vector<int>{5, 5}));
    for (const ConnectionEntry &c : stored.connections.container()) {
        EXPECT_TRUE(c.isTIDundefined());
        EXPECT_EQ(c.modificationUser().getData(), "ann");
    }
    EXPECT_TRUE(stored.connections.container()[0].fromDefinition.element == C);
    EXPECT_TRUE(stored.sets == editedBefore.sets);
    EXPECT_EQ(stored.sets.container()[0].entries.container()[1].firstCallsign.getData(), "y");
    EXPECT_EQ(stored.overview.keyText1.getData(), "edited network");
    EXPECT_EQ(stored.layer(), 2);
    EXPECT_EQ(edited.connections.container()[0].TID(), 11u) << "the edited table keeps its TIDs";
}

TEST(CallsignTableMerge, NullTidAfterStoredConnectionsStillCopies)
{
    CallsignTable stored = table({connection(1, A, B), connection(0, A, C)}, {set({callsigns("a"), callsigns("b")})});
    CallsignTable edited = table({connection(1, A, D)}, {set({callsigns("x")})});
    const std::string printed = sigdbtest::captureStdout([&] { stored.mergeTable(edited, text("ann"), false); });
    EXPECT_EQ(printed, kNullTidText);
    EXPECT_EQ(states(stored), (std::vector<int>{5}));
    EXPECT_TRUE(stored.connections.container()[0].toDefinition.element == D);
}

TEST(CallsignTableMerge, MissingConnectionGetsAnEmptyEntryInEverySet)
{
    CallsignTable stored = table({connection(1, A, B), connection(2, A, C)},
                                 {set({callsigns("a1"), callsigns("a2")}), set({callsigns("b1"), callsigns("b2")})});
    CallsignTable edited = table({connection(1, A, B)}, {set({callsigns("a1")}), set({callsigns("b1")})});
    stored.mergeTable(edited, text("u"), false);
    EXPECT_EQ(states(stored), (std::vector<int>{0, 4}));
    EXPECT_EQ(stored.connections.container()[1].modificationUser().getData(), "u");
    for (const CallsignSet &s : stored.sets.container()) {
        ASSERT_EQ(s.entries.count(), 2);
        EXPECT_TRUE(s.entries.container()[1] == CallsignEntry());
    }
    EXPECT_EQ(stored.sets.container()[1].entries.container()[0].firstCallsign.getData(), "b1");
}

TEST(CallsignTableMerge, ExtraEditedSetsCompareAgainstNothing)
{
    CallsignTable stored = table({connection(1, A, B), connection(2, A, C)}, {set({callsigns("a"), callsigns("b")})});
    CallsignTable edited = table({connection(1, A, B), connection(2, A, D)},
                                 {set({callsigns("a"), callsigns("b")}), set({callsigns("x"), callsigns("y")})});
    stored.mergeTable(edited, text("u"), false);
    EXPECT_EQ(states(stored), (std::vector<int>{1, 3}));
    EXPECT_EQ(stored.connections.container()[0].modificationUser().getData(), "u");
    ASSERT_EQ(stored.sets.count(), 2);
    EXPECT_EQ(stored.sets.container()[1].entries.container()[1].firstCallsign.getData(), "y");
}

TEST(CallsignTableMerge, EditedSetsAloneDecideTheMergedSets)
{
    CallsignTable stored = table({connection(1, A, B)}, {set({callsigns("a")}), set({callsigns("b")})});
    CallsignTable edited = table({connection(1, A, B)}, {});
    stored.mergeTable(edited, text("u"), false);
    EXPECT_EQ(states(stored), (std::vector<int>{0}));
    EXPECT_EQ(stored.sets.count(), 0);
}

TEST(CallsignTableMerge, ShortEditedSetGivesAnEmptyEntryAndAChange)
{
    CallsignTable stored = table({connection(1, A, B), connection(2, A, C)}, {set({callsigns("a"), callsigns("b")})});
    CallsignTable edited = table({connection(1, A, B), connection(2, A, C)}, {set({callsigns("a")})});
    stored.mergeTable(edited, text("u"), false);
    EXPECT_EQ(states(stored), (std::vector<int>{0, 1}));
    ASSERT_EQ(stored.sets.container()[0].entries.count(), 2);
    EXPECT_TRUE(stored.sets.container()[0].entries.container()[1] == CallsignEntry());
}

TEST(CallsignTableMerge, EmptyStoredTableTakesTheNewConnections)
{
    CallsignTable stored;
    CallsignTable edited = table({connection(0, A, B), connection(5, A, C)}, {set({callsigns("a"), callsigns("c")})});
    stored.mergeTable(edited, text("u"), false);
    EXPECT_EQ(states(stored), (std::vector<int>{5}));
    EXPECT_EQ(stored.sets.container()[0].entries.container()[0].firstCallsign.getData(), "a");
}

TEST(CallsignTableMerge, MergingATableIntoItself)
{
    CallsignTable t = table({connection(1, A, B), connection(2, A, C)}, {set({callsigns("a"), callsigns("b")})});
    t.mergeTable(t, text("u"), true);
    EXPECT_EQ(states(t), (std::vector<int>{0, 0}));
    EXPECT_EQ(t.sets.container()[0].entries.container()[1].firstCallsign.getData(), "b");
}
