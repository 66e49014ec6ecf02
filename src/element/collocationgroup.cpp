// Collocation groups. Elements that stand at the same place form a group; an
// ElementOverviewList describes one: its parent is the group, its results are the members and
// its sub-lists are nested subgroups. Before a changed group is sent (changeCollocation) the
// tree is repaired, and every list and member that changed is marked in its collocation
// modification state, so that the server learns what changed.

#include "element/elementoverviewlist.h"

namespace sigdb {

namespace {

/// Members of these element types can lead a group.
bool isMainMember(const SigdbElement &element)
{
    return element.type() == 1 || element.type() == 2;
}

/// A member or subgroup takes part in its group unless it was deleted or moved out.
bool isActive(const CollocationStateColumn &state)
{
    return !state.has(CollocationMod_Deleted) && !state.has(CollocationMod_MovedOut);
}

/// The state of a member or subgroup that leaves its group: one that had been moved in is
/// simply returned (unchanged), any other one is marked with \a otherwise.
int leavingState(const CollocationStateColumn &state, int otherwise)
{
    return state.has(CollocationMod_MovedIn) ? CollocationMod_Unchanged : otherwise;
}

} // namespace

bool ElementOverviewList::isValidCollocationGroup(bool &changed)
{
    if (m_parentDefinition.isUndefined())
        return true;
    if (m_results.empty())
        return false;

    bool hasMainMember = false;
    int activeCount = 0;
    int leaderCount = 0;
    for (const ElementOverview &member : m_results) {
        if (!isActive(member.collocationModState))
            continue;
        hasMainMember = hasMainMember || isMainMember(member.element);
        ++activeCount;
        if (member.isCollocationGroupLeader())
            ++leaderCount;
    }
    if (!hasMainMember)
        return false;
    for (const ElementOverviewList &subgroup : m_subLists) {
        if (activeCount >= 2)
            break;
        if (isActive(subgroup.collocationModState))
            ++activeCount;
    }
    if (activeCount < 2)
        return false;
    if (leaderCount == 1)
        return true;

    addCollocationModificationState(CollocationMod_LeaderChanged);
    addCollocationModificationState(CollocationMod_MembersChanged);
    removeCollocationModificationState(CollocationMod_Unchanged);
    changed = true;
    if (leaderCount == 0)
        return true;

    // Several leaders: the first active main member leads, whichever member led before.
    for (ElementOverview &member : m_results) {
        if (isActive(member.collocationModState) && member.isCollocationGroupLeader()) {
            member.setCollocationGroupLeader(false);
            member.addCollocationModificationState(CollocationMod_LeaderChanged);
        }
    }
    for (ElementOverview &member : m_results) {
        if (isActive(member.collocationModState) && isMainMember(member.element)) {
            member.setCollocationGroupLeader(true);
            member.addCollocationModificationState(CollocationMod_LeaderChanged);
            break;
        }
    }
    return true;
}

void ElementOverviewList::breakupCollocationGroup()
{
    for (ElementOverview &member : m_results) {
        if (!member.collocationModState.has(CollocationMod_Deleted))
            member.setCollocationModificationState(
                leavingState(member.collocationModState, CollocationMod_Deleted));
        addCollocationModificationState(CollocationMod_MembersChanged);
        member.collocationModState.remove(CollocationMod_Unchanged);
    }
    addCollocationModificationState(CollocationMod_Deleted);
    removeCollocationModificationState(CollocationMod_Unchanged);
}

bool ElementOverviewList::setCollocationGroupsToDelete(const ElementList &deleted, bool parentDeleted)
{
    const bool deletedHere = deleted.containsEntry(m_parentDefinition);
    if (deletedHere) {
        for (ElementOverview &member : m_results)
            member.setCollocationModificationState(CollocationMod_Deleted);
        setCollocationModificationState(CollocationMod_Deleted);
        addCollocationModificationState(CollocationMod_MembersChanged);
    } else if (parentDeleted) {
        setCollocationModificationState(CollocationMod_MovedOut);
    }

    bool anyDeleted = deletedHere;
    for (ElementOverviewList &subgroup : m_subLists) {
        if (subgroup.setCollocationGroupsToDelete(deleted, deletedHere)) {
            anyDeleted = true;
            addCollocationModificationState(CollocationMod_SubgroupsChanged);
            removeCollocationModificationState(CollocationMod_Unchanged);
        }
    }
    return anyDeleted;
}

int ElementOverviewList::subListIndexOf(const SigdbElement &group) const
{
    for (std::size_t i = 0; i < m_subLists.size(); ++i) {
        if (m_subLists[i].m_parentDefinition == group)
            return static_cast<int>(i);
    }
    return -1;
}

void ElementOverviewList::mergeCollocationSubgroup(const SigdbElement &group, bool &membersMoved,
                                                   bool &subgroupsMoved)
{
    const int index = subListIndexOf(group);
    if (index < 0)
        return;

    ElementOverviewList merged = m_subLists[static_cast<std::size_t>(index)];
    for (ElementOverview &member : merged.m_results) {
        if (member.collocationModState.has(CollocationMod_Deleted))
            continue;
        ElementOverview movedIn = member;
        movedIn.setCollocationModificationState(CollocationMod_MovedIn);
        m_results.push_back(std::move(movedIn));
        member.setCollocationModificationState(
            leavingState(member.collocationModState, CollocationMod_MovedOut));
        membersMoved = true;
        merged.addCollocationModificationState(CollocationMod_MembersChanged);
        addCollocationModificationState(CollocationMod_MembersChanged);
    }

    std::vector<ElementOverviewList> movedSubgroups;
    for (ElementOverviewList &subgroup : merged.m_subLists) {
        if (!subgroup.collocationModState.has(CollocationMod_Deleted)) {
            ElementOverviewList movedIn = subgroup;
            subgroup.setCollocationModificationState(
                leavingState(subgroup.collocationModState, CollocationMod_MovedOut));
            movedIn.addCollocationModificationState(CollocationMod_MovedIn);
            movedIn.removeCollocationModificationState(CollocationMod_Unchanged);
            movedSubgroups.push_back(std::move(movedIn));
        }
        merged.addCollocationModificationState(CollocationMod_SubgroupsChanged);
        addCollocationModificationState(CollocationMod_SubgroupsChanged);
    }
    if (!movedSubgroups.empty())
        subgroupsMoved = true;
    m_subLists.insert(m_subLists.end(), movedSubgroups.begin(), movedSubgroups.end());

    merged.addCollocationModificationState(CollocationMod_Deleted);
    merged.removeCollocationModificationState(CollocationMod_Unchanged);
    m_subLists[static_cast<std::size_t>(index)] = merged;
}

bool ElementOverviewList::fixBrokenCollocationGroup(bool &changed, bool &leaderOrMergeChanged)
{
    // Subgroups first: a subgroup that cannot be repaired is merged into this group, or broken
    // up when this list is the top of the tree.
    bool subgroupChanged = false;
    bool subgroupMerged = false;
    ElementList brokenGroups;
    ElementList allGroups;
    for (ElementOverviewList &subgroup : m_subLists) {
        bool subChanged = false;
        bool subMerged = false;
        const bool subValid = subgroup.fixBrokenCollocationGroup(subChanged, subMerged);
        subgroupChanged = subgroupChanged || subChanged;
        subgroupMerged = subgroupMerged || subMerged;
        if (!subValid) {
            changed = true;
            if (!m_parentDefinition.isUndefined())
                brokenGroups.appendEntryNoDuplicate(subgroup.m_parentDefinition);
            else
                subgroup.breakupCollocationGroup();
        }
        allGroups.appendEntry(subgroup.m_parentDefinition);
    }

    bool membersMoved = false;
    bool subgroupsMoved = false;
    for (const SigdbElement &group : brokenGroups.container())
        mergeCollocationSubgroup(group, membersMoved, subgroupsMoved);
    if (subgroupMerged) {
        addCollocationModificationState(CollocationMod_SubgroupsChanged);
        addCollocationModificationState(CollocationMod_LeaderChanged);
    }

    // An invalid group takes in its subgroups one by one until it becomes valid.
    bool leaderRepaired = false;
    bool valid = isValidCollocationGroup(leaderRepaired);
    if (!valid) {
        removeCollocationModificationState(CollocationMod_Unchanged);
        for (const SigdbElement &group : allGroups.container()) {
            mergeCollocationSubgroup(group, membersMoved, subgroupsMoved);
            if (isValidCollocationGroup(leaderRepaired)) {
                valid = true;
                break;
            }
        }
    }

    if (membersMoved) {
        changed = true;
        addCollocationModificationState(CollocationMod_MembersChanged);
        removeCollocationModificationState(CollocationMod_Unchanged);
    }
    if (leaderRepaired) {
        addCollocationModificationState(CollocationMod_MembersChanged);
        addCollocationModificationState(CollocationMod_LeaderChanged);
        removeCollocationModificationState(CollocationMod_Unchanged);
    }
    if (subgroupChanged || subgroupsMoved) {
        changed = true;
        addCollocationModificationState(CollocationMod_SubgroupsChanged);
        removeCollocationModificationState(CollocationMod_Unchanged);
    }
    if (subgroupMerged || leaderRepaired) {
        leaderOrMergeChanged = true;
        changed = true;
    }
    return valid;
}

ElementOverview ElementOverviewList::collocationGroupDataToQueryResult() const
{
    ElementOverview result;
    result.element = m_parentDefinition;
    if (hasCollocationModificationState(CollocationMod_Unchanged))
        result.modificationState = Modification_Unchanged;
    else if (hasCollocationModificationState(CollocationMod_Approved))
        result.modificationState = Modification_ChangedInMdl;
    result.infoText2 = listText2;
    result.exchgIdText = listText3;
    result.location = m_collocatedLocation;
    result.setCollocationModificationState(collocationModificationState());
    return result;
}

void ElementOverviewList::takeCollocationGroupDataFromQueryResult(const ElementOverview &result)
{
    m_parentDefinition = result.element;
    m_collocatedLocation = result.location;
    setCollocationModificationState(result.collocationModificationState());
}

void ElementOverviewList::setCollocatedCurrentLocation(const LocationEntry &location)
{
    m_collocatedLocation = location;
    for (ElementOverview &member : m_results)
        member.location = location;
    for (ElementOverviewList &subgroup : m_subLists)
        subgroup.setCollocatedCurrentLocation(location);
}

void ElementOverviewList::addContainedElements(ElementList &elements) const
{
    for (const ElementOverview &member : m_results) {
        if (!member.element.isUndefined())
            elements.appendEntryNoDuplicate(member.element);
    }
    for (const ElementOverviewList &subgroup : m_subLists)
        subgroup.addContainedElements(elements);
}

void ElementOverviewList::addContainedGroups(ElementList &groups) const
{
    for (const ElementOverviewList &subgroup : m_subLists)
        subgroup.addContainedGroups(groups);
    if (!m_parentDefinition.isUndefined())
        groups.appendEntry(m_parentDefinition);
}

} // namespace sigdb
