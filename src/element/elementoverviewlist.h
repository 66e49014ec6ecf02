#ifndef SIGDB_ELEMENT_ELEMENTOVERVIEWLIST_H
#define SIGDB_ELEMENT_ELEMENTOVERVIEWLIST_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelement.h"
#include "core/sigdbenums.h"
#include "element/elementoverview.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sigdb {

class ColumnReader;
class ColumnWriter;
class DictionaryEntryList;

/// The answer to a list or search request, and the record of changeCollocation: the overviews
/// (results) that belong to one parent element, in list order, and nested sub-lists of the
/// same kind, so that one answer can carry a tree. A list that describes a collocation group
/// also carries the group's location and collocation modification state: its parent is the
/// group, its results are the members and its sub-lists are the subgroups.
///
/// Results and sub-lists are held by value. Each list keeps one cursor over its results and
/// one over its sub-lists, so two interleaved iterations over one list are not possible.
class SIGDBREF_EXPORT ElementOverviewList : public base::DbBaseType
{
public:
    /// Fixed tags of the list's bare fields.
    enum FieldTag : int {
        Tag_MoreResultsAvailable = 1,
        Tag_RequestedListType = 2,
        Tag_ResultCount = 3,
        Tag_SubListCount = 4,
        Tag_DataLayer = 8,
    };

    ElementOverviewList();
    /// A copy of \a other.
    ElementOverviewList(const ElementOverviewList &other);
    /// Takes over the contents of \a other without copying them.
    ElementOverviewList(ElementOverviewList &&other) = default;
    ~ElementOverviewList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementOverviewList &operator=(const ElementOverviewList &other);

    /// A new heap copy of \a source (an ElementOverviewList); the caller owns it.
    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Empties the list. Unlike a fresh list, listText1 is then an empty text, not NULL.
    void reset() override;
    /// Writes the stream form into \a out, numbered from 0.
    void serialize(QByteArray &out) const override;

    /// Numbers the parent from \a start, the list's own columns after it, and every result and
    /// sub-list from the same start id (the parent's last id). Returns the collocated
    /// location's last id.
    int setIDs(int start);
    /// The id from which results and sub-lists were last numbered.
    int startID() const { return m_startId; }

    /// Writes the stream form: the list's own fields, then every result, then every sub-list
    /// in this same form.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the stream form into this list (numbered before), appending the results and
    /// sub-lists read; false on a field that does not fit, on bytes that end before the list
    /// does, or on sub-lists nested deeper than ColumnReader::MaxNesting. What was read before
    /// a failure stays in the list.
    bool readFrom(ColumnReader &reader);

    // List fields
    /// How many further results the server holds beyond those delivered.
    unsigned int moreResultsAvailable() const { return m_moreResultsAvailable; }
    /// Sets how many further results the server holds.
    void setMoreResultsAvailable(unsigned int count) { m_moreResultsAvailable = count; }
    /// Adds \a count to the further results the server holds.
    void addMoreResultsAvailable(unsigned int count) { m_moreResultsAvailable += count; }
    /// The element whose list this is (for a collocation group: the group).
    const SigdbElement &parentDefinition() const { return m_parentDefinition; }
    /// The element whose list this is, writable.
    SigdbElement &parentDefinition() { return m_parentDefinition; }
    /// Sets the element whose list this is.
    void setParentDefinition(const SigdbElement &parent) { m_parentDefinition = parent; }
    /// The element type of the parent.
    int parentType() const { return m_parentDefinition.type(); }
    /// Whether the parent has no TID.
    bool isParentTIDundefined() const { return m_parentDefinition.isTIDundefined(); }
    /// The parent's TID; for a parent of type 24 without TID the TID of the first sub-list's
    /// parent (when there is a sub-list).
    unsigned long long parentTID() const;
    /// The kind of list that was requested.
    ElementList_Type requestedListType() const { return m_requestedListType; }
    /// Sets the kind of list that was requested.
    void setRequestedListType(ElementList_Type type) { m_requestedListType = type; }
    /// The data layer of the list; 0 means not set.
    int dataLayer() const { return m_dataLayer; }
    /// Sets the data layer of the list.
    void setDataLayer(int layer) { m_dataLayer = layer; }
    /// Whether a data layer is set.
    bool isDataLayerSet() const { return m_dataLayer != 0; }
    /// The location of the collocation group the list describes.
    const LocationEntry &collocatedLocation() const { return m_collocatedLocation; }
    /// Sets the location of the collocation group.
    void setCollocatedLocation(const LocationEntry &location) { m_collocatedLocation = location; }

    // Collocation modification state of the group the list describes; NULL reads as 0
    /// The collocation modification bit set of the group; 0 while NULL.
    int collocationModificationState() const { return collocationModState(); }
    /// Replaces the collocation modification bit set; not NULL afterwards.
    void setCollocationModificationState(int state) { collocationModState = state; }
    /// Whether bit \a state is in the collocation modification state.
    bool hasCollocationModificationState(int state) const { return collocationModState.has(state); }
    /// Adds bit \a state when absent; state 1 is kept (unlike on an ElementOverview).
    void addCollocationModificationState(int state) { collocationModState.add(state); }
    /// Removes bit \a state when present; a NULL state stays NULL.
    void removeCollocationModificationState(int state) { collocationModState.remove(state); }

    /// Sets the approval action of the parent and, recursively, of every sub-list's parent;
    /// the results are left alone.
    void setApprove(bool approve);

    // Results
    /// The number of results.
    int count() const { return static_cast<int>(m_results.size()); }
    /// The results in list order.
    const std::vector<ElementOverview> &results() const { return m_results; }
    /// Appends a copy of \a result; with \a ordered it is inserted by its order number
    /// instead: a result without number goes first, a numbered one before the first result
    /// with a greater number (so equal numbers keep their order of arrival).
    void appendResult(const ElementOverview &result, bool ordered);
    /// Inserts a copy of \a result in front of all results.
    void prependResult(const ElementOverview &result);
    /// Appends a copy unless a result of the same element is present; returns whether it did.
    bool appendResultNoDuplicate(const ElementOverview &result);
    /// Whether a result of the element of \a result is present.
    bool containsResult(const ElementOverview &result) const;
    /// Adds one entry per dictionary entry: the entry's element with its text as keyText1,
    /// modification state 0.
    void addDictionary(DictionaryEntryList &dictionary);
    /// Removes every result; the result cursor is left where it is.
    void clear();

    /// Moves the result cursor back to the first result.
    void setIteratorToStart() { m_resultCursor = 0; }
    /// The first result (null when empty), with the cursor moved past it.
    const ElementOverview *firstResult();
    /// The result under the cursor, advancing it; null after the last.
    const ElementOverview *getNextResult();

    /// The result of the parent element itself (parent type and TID as parentTID()); null for
    /// a list without parent type or without results.
    const ElementOverview *superiorResult() const;
    /// The result that the list stands for when its parent was selected; null when none.
    const ElementOverview *selectedResult() const;

    // Sub-lists
    /// The number of sub-lists.
    int subListCount() const { return static_cast<int>(m_subLists.size()); }
    /// The sub-lists in list order.
    const std::vector<ElementOverviewList> &subLists() const { return m_subLists; }
    /// Appends a copy of \a list as a sub-list.
    void appendResultList(const ElementOverviewList &list);
    /// Removes every sub-list; the sub-list cursor is left where it is.
    void clearSubLists();

    /// The sub-list iteration, as setIteratorToStart(), firstResult() and getNextResult().
    void setSubListIteratorToStart() { m_subListCursor = 0; }
    /// The first sub-list (null when none), with the sub-list cursor moved past it.
    const ElementOverviewList *firstSubList();
    /// The sub-list under the cursor, advancing it; null after the last.
    const ElementOverviewList *getNextSubList();

    // Comparison
    /// Equal results and then equal sub-lists, pairwise in order.
    bool compareContent(const ElementOverviewList &other) const;

    /// Prints the debug output of every sub-list; the list itself prints nothing.
    void printDebug() const;

    // Collocation groups: the list is a group, its results the members, its sub-lists the
    // subgroups. A member or subgroup is active unless marked deleted (128) or moved out (32).

    /// Whether the group is valid: a group without parent always is; otherwise it needs an
    /// active main member (type 1 or 2), two active members or subgroups, and one leader. A
    /// group with several leaders gets a new one; \a changed reports a leader repair.
    bool isValidCollocationGroup(bool &changed);
    /// Repairs the tree bottom-up: broken subgroups are merged into their parent (or broken up
    /// at the top), and the group is made valid if merging its subgroups can do it. Returns
    /// whether the group is valid; \a changed reports any change, \a leaderOrMergeChanged a
    /// leader repair or a merge below.
    bool fixBrokenCollocationGroup(bool &changed, bool &leaderOrMergeChanged);
    /// Moves the members and subgroups of the subgroup of \a group into this group and marks
    /// the subgroup deleted.
    void mergeCollocationSubgroup(const SigdbElement &group, bool &membersMoved, bool &subgroupsMoved);
    /// Dissolves the group: members moved in go back, the others are deleted with it.
    void breakupCollocationGroup();
    /// Marks the groups of \a deleted (and their members) deleted and the subgroups of a
    /// deleted group as having lost their parent; returns whether a group of the tree was
    /// deleted.
    bool setCollocationGroupsToDelete(const ElementList &deleted, bool parentDeleted);
    /// An overview that describes the group itself.
    ElementOverview collocationGroupDataToQueryResult() const;
    /// Takes the group's element, location and collocation state from such an overview.
    void takeCollocationGroupDataFromQueryResult(const ElementOverview &result);
    /// Sets the location of the group, of all members and of all subgroups.
    void setCollocatedCurrentLocation(const LocationEntry &location);
    /// Appends the elements of all members of the tree (members before subgroups, no
    /// duplicates, undefined elements left out).
    void addContainedElements(ElementList &elements) const;
    /// Appends the groups of the tree, innermost first.
    void addContainedGroups(ElementList &groups) const;

    /// Bit set of Collocation_Modification_State values; 1 and not NULL on a fresh list.
    CollocationStateColumn collocationModState;
    /// Text columns carried with the list.
    base::DbDataType<std::string> listText1;
    /// Second text column carried with the list.
    base::DbDataType<std::string> listText2;
    /// Third text column carried with the list.
    base::DbDataType<std::string> listText3;

private:
    /// The index of the first sub-list whose parent is \a group; -1 when none.
    int subListIndexOf(const SigdbElement &group) const;

    std::vector<ElementOverview> m_results;
    std::size_t m_resultCursor = 0;
    unsigned int m_moreResultsAvailable = 0;
    SigdbElement m_parentDefinition;
    ElementList_Type m_requestedListType = ElementList_Default;
    int m_startId = 0;
    std::vector<ElementOverviewList> m_subLists;
    std::size_t m_subListCursor = 0;
    LocationEntry m_collocatedLocation;
    int m_dataLayer = 0;
};

/// Equal list fields, results and sub-lists; the start id, the data layer and the cursors take
/// no part.
SIGDBREF_EXPORT bool operator==(const ElementOverviewList &a, const ElementOverviewList &b);
SIGDBREF_EXPORT bool operator!=(const ElementOverviewList &a, const ElementOverviewList &b);

} // namespace sigdb

#endif
