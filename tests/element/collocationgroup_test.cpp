#include "element/elementoverviewlist.h"

#include "overviewtesting.h"

#include <gtest/gtest.h>

#include <vector>

using namespace sigdb;
using overviewtest::element;

namespace {

// Collocation states used below.
constexpr int Unchanged = CollocationMod_Unchanged;
constexpr int MembersChanged = CollocationMod_MembersChanged;
constexpr int SubgroupsChanged = CollocationMod_SubgroupsChanged;
constexpr int MovedIn = CollocationMod_MovedIn;
constexpr int MovedOut = CollocationMod_MovedOut;
constexpr int Deleted = CollocationMod_Deleted;
constexpr int LeaderChanged = CollocationMod_LeaderChanged;

/// A member of element (type, tid); \a state -1 leaves the state NULL.
ElementOverview member(int type, unsigned long long tid, int state = -1, bool leader = false)
{
    ElementOverview m = overviewtest::overviewOf(type, tid);
    if (state >= 0)
        m.setCollocationModificationState(state);
    if (leader)
        m.setCollocationGroupLeader(true);
    return m;
}

ElementOverviewList group(unsigned long long tid, std::initializer_list<ElementOverview> members,
                          int state = Unchanged)
{
    ElementOverviewList g;
    g.setParentDefinition(element(24, tid));
    for (const ElementOverview &m : members)
        g.appendResult(m, false);
    g.setCollocationModificationState(state);
    return g;
}

std::vector<int> memberStates(const ElementOverviewList &g)
{
    std::vector<int> states;
    for (const ElementOverview &m : g.results())
        states.push_back(m.collocationModState.isNull() ? -1 : m.collocationModificationState());
    return states;
}

std::vector<bool> leaders(const ElementOverviewList &g)
{
    std::vector<bool> out;
    for (const ElementOverview &m : g.results())
        out.push_back(m.isCollocationGroupLeader());
    return out;
}

std::vector<unsigned long long> tids(const ElementList &list)
{
    std::vector<unsigned long long> out;
    for (const SigdbElement &e : list.container())
        out.push_back(e.TID());
    return out;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Validity

TEST(CollocationGroup, GroupWithoutParentIsValidEvenEmpty)
{
    ElementOverviewList g;
    bool changed = false;
    EXPECT_TRUE(g.isValidCollocationGroup(changed));
    EXPECT_FALSE(changed);
}

TEST(CollocationGroup, GroupWithoutMembersIsInvalid)
{
    ElementOverviewList g = group(1, {});
    g.appendResultList(group(2, {member(1, 5)}));
    bool changed = false;
    EXPECT_FALSE(g.isValidCollocationGroup(changed));
    EXPECT_FALSE(changed);
}

TEST(CollocationGroup, GroupNeedsAnActiveMainMember)
{
    bool changed = false;
    EXPECT_FALSE(group(1, {member(3, 5, -1, true), member(3, 6)}).isValidCollocationGroup(changed));
    // A deleted or departed unit does not count.
    EXPECT_FALSE(group(1, {member(1, 4, Deleted, true), member(3, 5), member(3, 6)})
                     .isValidCollocationGroup(changed));
    EXPECT_FALSE(group(1, {member(2, 4, MovedOut, true), member(3, 5), member(3, 6)})
                     .isValidCollocationGroup(changed));
    EXPECT_TRUE(group(1, {member(2, 4, MovedIn, true), member(3, 5)}).isValidCollocationGroup(changed));
    EXPECT_FALSE(changed);
}

TEST(CollocationGroup, GroupNeedsTwoActiveMembersOrSubgroups)
{
    bool changed = false;
    ElementOverviewList alone = group(1, {member(1, 5, Unchanged, true), member(3, 6, Deleted)});
    EXPECT_FALSE(alone.isValidCollocationGroup(changed));
    alone.appendResultList(group(2, {}, Deleted));
    alone.appendResultList(group(3, {}, MovedOut + Unchanged));
    EXPECT_FALSE(alone.isValidCollocationGroup(changed));
    alone.appendResultList(group(4, {}));
    EXPECT_TRUE(alone.isValidCollocationGroup(changed));
    EXPECT_FALSE(changed);
    EXPECT_EQ(alone.collocationModificationState(), Unchanged);
}

TEST(CollocationGroup, MemberAndSubgroupWithOneLeaderIsValidUnchanged)
{
    ElementOverviewList g = group(1, {member(1, 5, Unchanged, true)});
    g.appendResultList(group(2, {member(2, 6)}));
    bool changed = false;
    EXPECT_TRUE(g.isValidCollocationGroup(changed));
    EXPECT_FALSE(changed);
    EXPECT_EQ(g.collocationModificationState(), Unchanged);
    EXPECT_EQ(memberStates(g), (std::vector<int>{Unchanged}));
}

TEST(CollocationGroup, GroupWithoutLeaderIsValidButMarked)
{
    ElementOverviewList g = group(1, {member(1, 5, Unchanged)});
    g.appendResultList(group(2, {member(2, 6)}));
    bool changed = false;
    EXPECT_TRUE(g.isValidCollocationGroup(changed));
    EXPECT_TRUE(changed);
    EXPECT_EQ(g.collocationModificationState(), LeaderChanged + MembersChanged);
    // No leader is chosen.
    EXPECT_EQ(leaders(g), (std::vector<bool>{false}));
    EXPECT_EQ(memberStates(g), (std::vector<int>{Unchanged}));
}

TEST(CollocationGroup, SeveralLeadersLeaveTheFirstActiveMainMemberLeading)
{
    ElementOverviewList g = group(1, {member(3, 1, Unchanged, true), member(2, 2, Deleted, true),
                                      member(1, 3), member(2, 4, -1, true)});
    bool changed = false;
    EXPECT_TRUE(g.isValidCollocationGroup(changed));
    EXPECT_TRUE(changed);
    EXPECT_EQ(g.collocationModificationState(), LeaderChanged + MembersChanged);
    // The deleted leader is no active member and keeps its flag; the unit that led no one
    // before leads now.
    EXPECT_EQ(leaders(g), (std::vector<bool>{false, true, true, false}));
    EXPECT_EQ(memberStates(g), (std::vector<int>{LeaderChanged, Deleted, LeaderChanged, LeaderChanged}));
    EXPECT_FALSE(g.results()[0].collocationGroupLeader.isNull());
}

// ---------------------------------------------------------------------------------------------
// Break-up and deletion

TEST(CollocationGroup, BreakupReturnsMovedInMembersAndDeletesTheOthers)
{
    ElementOverviewList g = group(1, {member(1, 1, MovedIn), member(1, 2), member(1, 3, Deleted),
                                      member(1, 4, MovedIn + Unchanged), member(3, 5, Unchanged)});
    g.breakupCollocationGroup();
    EXPECT_EQ(memberStates(g), (std::vector<int>{0, Deleted, Deleted, 0, Deleted}));
    EXPECT_EQ(g.collocationModificationState(), MembersChanged + Deleted);
}

TEST(CollocationGroup, BreakupOfAnEmptyGroupOnlyDeletesIt)
{
    ElementOverviewList g = group(1, {}, Unchanged + SubgroupsChanged);
    g.breakupCollocationGroup();
    EXPECT_EQ(g.collocationModificationState(), SubgroupsChanged + Deleted);
}

TEST(CollocationGroup, NothingDeletedMarksNothing)
{
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(group(2, {member(1, 2)}));
    const ElementOverviewList before = top;
    ElementList none;
    EXPECT_FALSE(top.setCollocationGroupsToDelete(none, false));
    EXPECT_TRUE(top == before);
}

TEST(CollocationGroup, DeletedParentMarksOnlyTheTopList)
{
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(group(2, {member(1, 2)}));
    ElementList none;
    EXPECT_FALSE(top.setCollocationGroupsToDelete(none, true));
    EXPECT_EQ(top.collocationModificationState(), MovedOut);
    EXPECT_EQ(top.subLists()[0].collocationModificationState(), Unchanged);
    EXPECT_EQ(memberStates(top), (std::vector<int>{-1}));
}

TEST(CollocationGroup, DeletedSubgroupMarksItsMembersItsSubgroupsAndItsParent)
{
    ElementOverviewList inner = group(3, {member(1, 3)});
    ElementOverviewList middle = group(2, {member(1, 2, MovedIn), member(3, 4)});
    middle.appendResultList(inner);
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(middle);
    top.appendResultList(group(5, {member(1, 5)}));

    ElementList deleted;
    deleted.appendEntry(element(24, 2));
    EXPECT_TRUE(top.setCollocationGroupsToDelete(deleted, false));
    EXPECT_EQ(top.collocationModificationState(), SubgroupsChanged);
    EXPECT_EQ(memberStates(top), (std::vector<int>{-1}));
    const ElementOverviewList &m = top.subLists()[0];
    EXPECT_EQ(m.collocationModificationState(), Deleted + MembersChanged);
    EXPECT_EQ(memberStates(m), (std::vector<int>{Deleted, Deleted}));
    EXPECT_EQ(m.subLists()[0].collocationModificationState(), MovedOut);
    EXPECT_EQ(memberStates(m.subLists()[0]), (std::vector<int>{-1}));
    EXPECT_EQ(top.subLists()[1].collocationModificationState(), Unchanged);
}

TEST(CollocationGroup, DeletedTopGroupAnswersTrue)
{
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(group(2, {}));
    ElementList deleted;
    deleted.appendEntry(element(24, 1));
    EXPECT_TRUE(top.setCollocationGroupsToDelete(deleted, false));
    EXPECT_EQ(top.collocationModificationState(), Deleted + MembersChanged);
    EXPECT_EQ(top.subLists()[0].collocationModificationState(), MovedOut);
}

// ---------------------------------------------------------------------------------------------
// Merging

TEST(CollocationGroup, MergingAnUnknownSubgroupChangesNothing)
{
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(group(2, {member(1, 2)}));
    const ElementOverviewList before = top;
    bool membersMoved = false;
    bool subgroupsMoved = false;
    top.mergeCollocationSubgroup(element(24, 99), membersMoved, subgroupsMoved);
    EXPECT_TRUE(top == before);
    EXPECT_EQ(top.collocationModificationState(), Unchanged);
    EXPECT_FALSE(membersMoved);
    EXPECT_FALSE(subgroupsMoved);
}

TEST(CollocationGroup, MergeMovesActiveMembersAndSubgroupsUp)
{
    ElementOverviewList s = group(200, {member(2, 2), member(3, 3, MovedIn), member(3, 4, Deleted)});
    s.appendResultList(group(300, {member(1, 30)}));
    s.appendResultList(group(400, {}, Deleted));
    ElementOverviewList top = group(100, {member(1, 1, Unchanged, true)});
    top.appendResultList(group(150, {}));
    top.appendResultList(s);

    bool membersMoved = false;
    bool subgroupsMoved = false;
    top.mergeCollocationSubgroup(element(24, 200), membersMoved, subgroupsMoved);
    EXPECT_TRUE(membersMoved);
    EXPECT_TRUE(subgroupsMoved);

    // The active members arrive as moved in; the deleted one stays behind.
    EXPECT_EQ(memberStates(top), (std::vector<int>{Unchanged, MovedIn, MovedIn}));
    EXPECT_EQ(top.results()[1].element, element(2, 2));
    EXPECT_EQ(top.results()[2].element, element(3, 3));
    EXPECT_EQ(top.collocationModificationState(), Unchanged + MembersChanged + SubgroupsChanged);

    ASSERT_EQ(top.subListCount(), 3);
    const ElementOverviewList &merged = top.subLists()[1];
    EXPECT_EQ(merged.parentDefinition(), element(24, 200));
    EXPECT_EQ(merged.collocationModificationState(), MembersChanged + SubgroupsChanged + Deleted);
    EXPECT_EQ(memberStates(merged), (std::vector<int>{MovedOut, Unchanged, Deleted}));
    EXPECT_EQ(merged.subLists()[0].collocationModificationState(), MovedOut);
    EXPECT_EQ(merged.subLists()[1].collocationModificationState(), Deleted);

    const ElementOverviewList &movedUp = top.subLists()[2];
    EXPECT_EQ(movedUp.parentDefinition(), element(24, 300));
    EXPECT_EQ(movedUp.collocationModificationState(), MovedIn);
    EXPECT_EQ(movedUp.count(), 1);
    EXPECT_TRUE(top.subLists()[0] == group(150, {}));
}

TEST(CollocationGroup, MergeOfADeletedOnlySubgroupMovesNothing)
{
    ElementOverviewList s = group(200, {member(2, 2, Deleted)});
    s.appendResultList(group(400, {}, Deleted));
    ElementOverviewList top = group(100, {member(1, 1)});
    top.appendResultList(s);
    bool membersMoved = false;
    bool subgroupsMoved = false;
    top.mergeCollocationSubgroup(element(24, 200), membersMoved, subgroupsMoved);
    EXPECT_FALSE(membersMoved);
    EXPECT_FALSE(subgroupsMoved);
    EXPECT_EQ(top.count(), 1);
    EXPECT_EQ(top.subListCount(), 1);
    // Every subgroup, active or not, marks both groups' subgroups as changed.
    EXPECT_EQ(top.collocationModificationState(), Unchanged + SubgroupsChanged);
    EXPECT_EQ(top.subLists()[0].collocationModificationState(), SubgroupsChanged + Deleted);
}

// ---------------------------------------------------------------------------------------------
// Repair

TEST(CollocationGroup, ValidTreeNeedsNoRepair)
{
    ElementOverviewList top = group(1, {member(1, 1, Unchanged, true), member(3, 2, Unchanged)});
    top.appendResultList(group(2, {member(2, 3, Unchanged, true), member(3, 4, Unchanged)}));
    const ElementOverviewList before = top;
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_TRUE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_FALSE(changed);
    EXPECT_FALSE(leaderOrMerge);
    EXPECT_TRUE(top == before);
}

TEST(CollocationGroup, BrokenSubgroupIsMergedIntoItsParent)
{
    ElementOverviewList top = group(100, {member(1, 1, Unchanged, true)});
    top.appendResultList(group(200, {member(3, 2, Unchanged)}));
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_TRUE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_TRUE(changed);
    EXPECT_FALSE(leaderOrMerge);
    EXPECT_EQ(top.collocationModificationState(), MembersChanged);
    EXPECT_EQ(memberStates(top), (std::vector<int>{Unchanged, MovedIn}));
    const ElementOverviewList &merged = top.subLists()[0];
    EXPECT_EQ(merged.collocationModificationState(), MembersChanged + Deleted);
    EXPECT_EQ(memberStates(merged), (std::vector<int>{MovedOut}));
}

TEST(CollocationGroup, BrokenSubgroupOfTheTopIsBrokenUp)
{
    ElementOverviewList top;
    top.appendResultList(group(200, {member(3, 2, Unchanged)}));
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_TRUE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_TRUE(changed);
    EXPECT_FALSE(leaderOrMerge);
    EXPECT_EQ(top.collocationModificationState(), Unchanged);
    EXPECT_EQ(top.count(), 0);
    const ElementOverviewList &brokenUp = top.subLists()[0];
    EXPECT_EQ(brokenUp.collocationModificationState(), MembersChanged + Deleted);
    EXPECT_EQ(memberStates(brokenUp), (std::vector<int>{Deleted}));
}

TEST(CollocationGroup, LeaderRepairBelowIsReportedAbove)
{
    ElementOverviewList top = group(100, {member(1, 1, Unchanged, true), member(2, 2, Unchanged)});
    top.appendResultList(group(200, {member(1, 3, -1, true), member(2, 4, -1, true)}));
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_TRUE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_TRUE(changed);
    EXPECT_TRUE(leaderOrMerge);

    const ElementOverviewList &sub = top.subLists()[0];
    EXPECT_EQ(sub.collocationModificationState(), MembersChanged + LeaderChanged);
    EXPECT_EQ(leaders(sub), (std::vector<bool>{true, false}));
    EXPECT_EQ(memberStates(sub), (std::vector<int>{LeaderChanged, LeaderChanged}));
    EXPECT_EQ(top.collocationModificationState(), SubgroupsChanged + LeaderChanged);
    EXPECT_EQ(memberStates(top), (std::vector<int>{Unchanged, Unchanged}));
}

TEST(CollocationGroup, InvalidGroupTakesInItsSubgroupsUntilValid)
{
    // The top group has a single transceiver: it becomes valid once the members of its first
    // subgroup are moved in.
    ElementOverviewList top = group(100, {member(3, 1, Unchanged)});
    top.appendResultList(group(200, {member(1, 2, Unchanged, true), member(3, 3, Unchanged)}));
    top.appendResultList(group(300, {member(2, 4, Unchanged, true), member(3, 5, Unchanged)}));
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_TRUE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_TRUE(changed);
    EXPECT_FALSE(leaderOrMerge);
    EXPECT_EQ(memberStates(top), (std::vector<int>{Unchanged, MovedIn, MovedIn}));
    EXPECT_EQ(top.collocationModificationState(), MembersChanged);
    EXPECT_EQ(top.subLists()[0].collocationModificationState(), MembersChanged + Deleted);
    EXPECT_EQ(top.subLists()[1].collocationModificationState(), Unchanged);
}

TEST(CollocationGroup, GroupThatCannotBeMadeValidIsReportedInvalid)
{
    ElementOverviewList top = group(100, {member(3, 1, Unchanged)});
    top.appendResultList(group(200, {member(3, 2, Unchanged)}));
    bool changed = false;
    bool leaderOrMerge = false;
    EXPECT_FALSE(top.fixBrokenCollocationGroup(changed, leaderOrMerge));
    EXPECT_TRUE(changed);
}

// ---------------------------------------------------------------------------------------------
// Group data, locations and collecting

TEST(CollocationGroup, GroupDataAsAnOverview)
{
    ElementOverviewList g = group(7, {member(1, 1)}, Unchanged + MembersChanged);
    g.listText1 = std::string("not carried");
    g.listText2 = std::string("info");
    g.listText3 = std::string("EX-7");
    g.setCollocatedLocation(overviewtest::location(1.5, 2.5, "2024-05-05 05:05:05"));
    g.setIDs(0);

    const ElementOverview r = g.collocationGroupDataToQueryResult();
    EXPECT_EQ(r.element, element(24, 7));
    EXPECT_EQ(r.modificationState(), Modification_Unchanged);
    EXPECT_EQ(r.infoText2.getData(), "info");
    EXPECT_EQ(r.infoText2.getID(), g.listText2.getID());
    EXPECT_EQ(r.exchgIdText.getData(), "EX-7");
    EXPECT_TRUE(r.location == g.collocatedLocation());
    EXPECT_EQ(r.collocationModificationState(), Unchanged + MembersChanged);
    EXPECT_TRUE(r.keyText1.isNull());

    g.setCollocationModificationState(CollocationMod_Approved + MembersChanged);
    EXPECT_EQ(g.collocationGroupDataToQueryResult().modificationState(), Modification_ChangedInMdl);
    g.setCollocationModificationState(MembersChanged);
    EXPECT_TRUE(g.collocationGroupDataToQueryResult().modificationState.isNull());
    g.collocationModState.setNull(true);
    const ElementOverview fromNull = g.collocationGroupDataToQueryResult();
    EXPECT_FALSE(fromNull.collocationModState.isNull());
    EXPECT_EQ(fromNull.collocationModificationState(), 0);
}

TEST(CollocationGroup, GroupDataFromAnOverview)
{
    ElementOverview r = overviewtest::overviewOf(24, 8);
    r.location = overviewtest::location(3.0, 4.0, "2024-06-06 06:06:06");
    r.setCollocationModificationState(MovedIn);
    r.infoText2 = std::string("not taken");

    ElementOverviewList g;
    g.takeCollocationGroupDataFromQueryResult(r);
    EXPECT_EQ(g.parentDefinition(), element(24, 8));
    EXPECT_TRUE(g.collocatedLocation() == r.location);
    EXPECT_EQ(g.collocationModificationState(), MovedIn);
    EXPECT_TRUE(g.listText2.isNull());

    r.collocationModState.setNull(true);
    g.takeCollocationGroupDataFromQueryResult(r);
    EXPECT_FALSE(g.collocationModState.isNull());
    EXPECT_EQ(g.collocationModificationState(), 0);

    // There and back again.
    ElementOverviewList back;
    back.takeCollocationGroupDataFromQueryResult(g.collocationGroupDataToQueryResult());
    EXPECT_EQ(back.parentDefinition(), g.parentDefinition());
    EXPECT_TRUE(back.collocatedLocation() == g.collocatedLocation());
}

TEST(CollocationGroup, CurrentLocationReachesTheWholeTree)
{
    ElementOverviewList inner = group(3, {member(1, 3)});
    ElementOverviewList middle = group(2, {member(1, 2), member(3, 4)});
    middle.appendResultList(inner);
    ElementOverviewList top = group(1, {member(1, 1)});
    top.appendResultList(middle);

    const LocationEntry here = overviewtest::location(9.0, 10.0, "2025-01-01 00:00:00");
    top.setCollocatedCurrentLocation(here);
    EXPECT_TRUE(top.collocatedLocation() == here);
    EXPECT_TRUE(top.results()[0].location == here);
    EXPECT_TRUE(top.subLists()[0].collocatedLocation() == here);
    EXPECT_TRUE(top.subLists()[0].results()[1].location == here);
    EXPECT_TRUE(top.subLists()[0].subLists()[0].collocatedLocation() == here);
    EXPECT_TRUE(top.subLists()[0].subLists()[0].results()[0].location == here);
}

TEST(CollocationGroup, ContainedElementsAndGroups)
{
    ElementOverviewList inner = group(30, {member(1, 3), member(1, 1)});
    ElementOverviewList middle = group(20, {member(1, 2), ElementOverview()});
    middle.appendResultList(inner);
    ElementOverviewList top;
    top.appendResult(member(1, 1), false);
    top.appendResultList(middle);
    top.appendResultList(group(40, {member(2, 4)}));

    ElementList elements;
    top.addContainedElements(elements);
    EXPECT_EQ(tids(elements), (std::vector<unsigned long long>{1, 2, 3, 4}));

    ElementList groups;
    top.addContainedGroups(groups);
    // Innermost first; the top list has no group of its own.
    EXPECT_EQ(tids(groups), (std::vector<unsigned long long>{30, 20, 40}));
}
