#include "element/elementoverviewlist.h"

#include "core/dictionaryentry.h"
#include "overviewtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace sigdb;
using overviewtest::element;
using overviewtest::overviewOf;
using overviewtest::populatedOverview;

namespace {

ElementOverview numbered(unsigned long long tid, int orderNumber)
{
    ElementOverview result = overviewOf(1, tid);
    result.orderNumber = orderNumber;
    return result;
}

/// The TIDs of the results in list order.
std::vector<unsigned long long> tids(const ElementOverviewList &list)
{
    std::vector<unsigned long long> out;
    for (const ElementOverview &result : list.results())
        out.push_back(result.element.TID());
    return out;
}

ElementOverviewList listOf(const SigdbElement &parent, std::initializer_list<ElementOverview> results)
{
    ElementOverviewList list;
    list.setParentDefinition(parent);
    for (const ElementOverview &result : results)
        list.appendResult(result, false);
    return list;
}

/// The index of \a result in \a list, -1 for null.
int indexOf(const ElementOverviewList &list, const ElementOverview *result)
{
    if (!result)
        return -1;
    return static_cast<int>(result - list.results().data());
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Fields

TEST(ElementOverviewList, FreshListDefaults)
{
    const ElementOverviewList list;
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.subListCount(), 0);
    EXPECT_EQ(list.moreResultsAvailable(), 0u);
    EXPECT_TRUE(list.parentDefinition().isUndefined());
    EXPECT_EQ(list.requestedListType(), 0);
    EXPECT_EQ(list.startID(), 0);
    EXPECT_FALSE(list.collocationModState.isNull());
    EXPECT_EQ(list.collocationModificationState(), 1);
    EXPECT_EQ(list.dataLayer(), 0);
    EXPECT_FALSE(list.isDataLayerSet());
    EXPECT_TRUE(list.listText1.isNull());
    EXPECT_TRUE(list.listText2.isNull());
    EXPECT_TRUE(list.listText3.isNull());
    EXPECT_TRUE(list.collocatedLocation() == LocationEntry());
}

TEST(ElementOverviewList, ResetLeavesAnEmptyFirstText)
{
    ElementOverviewList list = overviewtest::populatedTree();
    list.reset();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.subListCount(), 0);
    EXPECT_FALSE(list.listText1.isNull());
    EXPECT_EQ(list.listText1.getData(), "");
    EXPECT_TRUE(list.listText2.isNull());
    EXPECT_TRUE(list.listText3.isNull());
    EXPECT_EQ(list.listText2.getData(), "");
    EXPECT_EQ(list.collocationModificationState(), 1);
    EXPECT_FALSE(list.collocationModState.isNull());
    EXPECT_EQ(list.moreResultsAvailable(), 0u);
    EXPECT_EQ(list.requestedListType(), 0);
    EXPECT_EQ(list.dataLayer(), 0);
    EXPECT_TRUE(list.parentDefinition().isUndefined());
    EXPECT_TRUE(list.collocatedLocation() == LocationEntry());
    EXPECT_EQ(list.firstResult(), nullptr);

    // A reset list differs from a fresh one only in its first text.
    ElementOverviewList fresh;
    EXPECT_FALSE(list == fresh);
    fresh.listText1 = std::string();
    EXPECT_TRUE(list == fresh);
}

TEST(ElementOverviewList, SimpleAccessors)
{
    ElementOverviewList list;
    list.setMoreResultsAvailable(5);
    list.addMoreResultsAvailable(3);
    EXPECT_EQ(list.moreResultsAvailable(), 8u);
    list.setParentDefinition(element(24, 9));
    EXPECT_EQ(list.parentType(), 24);
    EXPECT_FALSE(list.isParentTIDundefined());
    list.parentDefinition().setTid(base::DbDataType<unsigned long long>());
    EXPECT_TRUE(list.isParentTIDundefined());
    list.setDataLayer(2);
    EXPECT_TRUE(list.isDataLayerSet());
    list.setRequestedListType(static_cast<ElementList_Type>(4));
    EXPECT_EQ(list.requestedListType(), 4);
    list.setCollocatedLocation(overviewtest::location(1.0, 2.0, "2020-01-01 00:00:00"));
    EXPECT_EQ(list.collocatedLocation().latitude.getData(), 1.0);
}

TEST(ElementOverviewList, CollocationStateKeepsUnchangedWhenAdding)
{
    ElementOverviewList list;
    list.addCollocationModificationState(CollocationMod_MembersChanged);
    EXPECT_EQ(list.collocationModificationState(), 5);
    EXPECT_TRUE(list.hasCollocationModificationState(CollocationMod_Unchanged));
    list.addCollocationModificationState(CollocationMod_MembersChanged);
    EXPECT_EQ(list.collocationModificationState(), 5);
    list.removeCollocationModificationState(CollocationMod_Unchanged);
    list.removeCollocationModificationState(CollocationMod_Unchanged);
    EXPECT_EQ(list.collocationModificationState(), 4);

    list.collocationModState.setNull(true);
    EXPECT_EQ(list.collocationModificationState(), 0);
    EXPECT_FALSE(list.hasCollocationModificationState(CollocationMod_MembersChanged));
    list.removeCollocationModificationState(CollocationMod_MembersChanged);
    EXPECT_TRUE(list.collocationModState.isNull());
    list.addCollocationModificationState(CollocationMod_Deleted);
    EXPECT_EQ(list.collocationModificationState(), 128);
    list.setCollocationModificationState(3);
    EXPECT_EQ(list.collocationModificationState(), 3);
}

TEST(ElementOverviewList, SetApproveReachesParentsButNotResults)
{
    ElementOverviewList inner = listOf(element(24, 3), {overviewOf(1, 30)});
    ElementOverviewList middle = listOf(element(24, 2), {overviewOf(1, 20)});
    middle.appendResultList(inner);
    ElementOverviewList top = listOf(element(24, 1), {overviewOf(1, 10)});
    top.appendResultList(middle);

    top.setApprove(true);
    EXPECT_EQ(top.parentDefinition().approvalType(), Approval_Accept);
    EXPECT_EQ(top.subLists()[0].parentDefinition().approvalType(), Approval_Accept);
    EXPECT_EQ(top.subLists()[0].subLists()[0].parentDefinition().approvalType(), Approval_Accept);
    EXPECT_EQ(top.results()[0].element.approvalType(), Approval_None);
    EXPECT_EQ(top.subLists()[0].results()[0].element.approvalType(), Approval_None);

    top.setApprove(false);
    EXPECT_EQ(top.subLists()[0].subLists()[0].parentDefinition().approvalType(), Approval_Reject);
}

// ---------------------------------------------------------------------------------------------
// Adding results

TEST(ElementOverviewList, AppendWithoutOrderingKeepsArrival)
{
    ElementOverviewList list;
    list.appendResult(numbered(1, 9), false);
    list.appendResult(numbered(2, 1), false);
    list.appendResult(overviewOf(1, 3), false);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{1, 2, 3}));
}

TEST(ElementOverviewList, OrderedAppendPutsUnnumberedResultsFirst)
{
    ElementOverviewList list;
    list.appendResult(numbered(5, 5), true);
    list.appendResult(numbered(7, 7), true);
    list.appendResult(overviewOf(1, 100), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{100, 5, 7}));
}

TEST(ElementOverviewList, OrderedAppendInsertsBeforeTheFirstGreaterNumber)
{
    ElementOverviewList list;
    list.appendResult(numbered(5, 5), true);
    list.appendResult(numbered(7, 7), true);
    list.appendResult(numbered(6, 6), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{5, 6, 7}));
    list.appendResult(numbered(70, 7), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{5, 6, 7, 70}));
    list.appendResult(numbered(4, 4), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{4, 5, 6, 7, 70}));
}

TEST(ElementOverviewList, OrderedAppendPassesOverUnnumberedResults)
{
    ElementOverviewList list;
    list.appendResult(overviewOf(1, 1), false);
    list.appendResult(numbered(5, 5), false);
    list.appendResult(overviewOf(1, 2), false);
    list.appendResult(numbered(9, 9), false);
    list.appendResult(numbered(7, 7), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{1, 5, 2, 7, 9}));
    list.appendResult(numbered(3, 3), true);
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{1, 3, 5, 2, 7, 9}));
    list.appendResult(numbered(99, 99), true);
    EXPECT_EQ(tids(list).back(), 99u);
}

TEST(ElementOverviewList, PrependPutsTheResultFirst)
{
    ElementOverviewList list;
    list.appendResult(overviewOf(1, 1), false);
    list.prependResult(overviewOf(1, 2));
    EXPECT_EQ(tids(list), (std::vector<unsigned long long>{2, 1}));
}

TEST(ElementOverviewList, NoDuplicateComparesOnlyTheElement)
{
    ElementOverviewList list;
    EXPECT_TRUE(list.appendResultNoDuplicate(overviewOf(1, 5)));
    ElementOverview sameElement = populatedOverview(5);
    sameElement.element = element(1, 5);
    EXPECT_TRUE(list.containsResult(sameElement));
    EXPECT_FALSE(list.appendResultNoDuplicate(sameElement));
    EXPECT_EQ(list.count(), 1);
    EXPECT_TRUE(list.results()[0].keyText1.isNull());

    EXPECT_FALSE(list.containsResult(overviewOf(2, 5)));
    EXPECT_TRUE(list.appendResultNoDuplicate(overviewOf(2, 5)));
    EXPECT_EQ(list.count(), 2);
}

TEST(ElementOverviewList, AppendResultListAddsASubList)
{
    ElementOverviewList list;
    const ElementOverviewList sub = listOf(element(24, 2), {overviewOf(1, 1)});
    list.appendResultList(sub);
    EXPECT_EQ(list.count(), 0);
    ASSERT_EQ(list.subListCount(), 1);
    EXPECT_TRUE(list.subLists()[0] == sub);
}

TEST(ElementOverviewList, DictionaryEntriesBecomeResults)
{
    DictionaryEntryList dictionary(5);
    dictionary.appendEntry(DictionaryEntry(11, "EX11", "Alpha"));
    dictionary.appendEntry(DictionaryEntry(12, "EX12", "Beta"));
    dictionary.appendEntry(DictionaryEntry());

    ElementOverviewList list;
    list.appendResult(overviewOf(1, 1), false);
    list.addDictionary(dictionary);
    ASSERT_EQ(list.count(), 4);
    const ElementOverview &alpha = list.results()[1];
    EXPECT_EQ(alpha.element.type(), 5);
    EXPECT_EQ(alpha.element.TID(), 11u);
    EXPECT_EQ(alpha.element.exchgId().getData(), "EX11");
    EXPECT_EQ(alpha.keyText1.getData(), "Alpha");
    EXPECT_FALSE(alpha.modificationState.isNull());
    EXPECT_EQ(alpha.modificationState(), Modification_Unchanged);
    EXPECT_TRUE(alpha.keyText2.isNull());
    EXPECT_EQ(list.results()[2].keyText1.getData(), "Beta");
    const ElementOverview &empty = list.results()[3];
    EXPECT_TRUE(empty.element.isTIDundefined());
    EXPECT_TRUE(empty.keyText1.isNull());
    EXPECT_EQ(empty.element.type(), 5);

    // A dictionary that was iterated before is read from its start again.
    ElementOverviewList again;
    again.addDictionary(dictionary);
    EXPECT_EQ(again.count(), 3);

    ElementOverviewList unchanged;
    DictionaryEntryList none(5);
    unchanged.addDictionary(none);
    EXPECT_EQ(unchanged.count(), 0);
}

// ---------------------------------------------------------------------------------------------
// Iteration

TEST(ElementOverviewList, ResultCursor)
{
    ElementOverviewList list;
    EXPECT_EQ(list.firstResult(), nullptr);
    EXPECT_EQ(list.getNextResult(), nullptr);
    for (unsigned long long tid : {1, 2, 3})
        list.appendResult(overviewOf(1, tid), false);

    const ElementOverview *first = list.firstResult();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->element.TID(), 1u);
    EXPECT_EQ(list.getNextResult()->element.TID(), 2u);
    list.setIteratorToStart();
    EXPECT_EQ(list.getNextResult()->element.TID(), 1u);
    EXPECT_EQ(list.getNextResult()->element.TID(), 2u);
    EXPECT_EQ(list.getNextResult()->element.TID(), 3u);
    EXPECT_EQ(list.getNextResult(), nullptr);
    EXPECT_EQ(list.getNextResult(), nullptr);
}

TEST(ElementOverviewList, ClearLeavesTheCursorWhereItWas)
{
    ElementOverviewList list;
    for (unsigned long long tid : {1, 2, 3})
        list.appendResult(overviewOf(1, tid), false);
    list.firstResult();
    list.getNextResult();
    list.clear();
    EXPECT_EQ(list.count(), 0);
    for (unsigned long long tid : {4, 5, 6})
        list.appendResult(overviewOf(1, tid), false);
    EXPECT_EQ(list.getNextResult()->element.TID(), 6u);
}

TEST(ElementOverviewList, SubListCursor)
{
    ElementOverviewList list;
    EXPECT_EQ(list.firstSubList(), nullptr);
    list.appendResultList(listOf(element(24, 1), {}));
    list.appendResultList(listOf(element(24, 2), {}));
    EXPECT_EQ(list.firstSubList()->parentDefinition().TID(), 1u);
    EXPECT_EQ(list.getNextSubList()->parentDefinition().TID(), 2u);
    EXPECT_EQ(list.getNextSubList(), nullptr);
    list.setSubListIteratorToStart();
    EXPECT_EQ(list.getNextSubList()->parentDefinition().TID(), 1u);
    list.clearSubLists();
    EXPECT_EQ(list.subListCount(), 0);
    list.appendResultList(listOf(element(24, 3), {}));
    list.appendResultList(listOf(element(24, 4), {}));
    EXPECT_EQ(list.getNextSubList()->parentDefinition().TID(), 4u);
}

// ---------------------------------------------------------------------------------------------
// Selection

TEST(ElementOverviewList, ParentTid)
{
    EXPECT_EQ(listOf(element(1, 5), {}).parentTID(), 5u);

    ElementOverviewList newGroup;
    SigdbElement group;
    group.setType(24);
    newGroup.setParentDefinition(group);
    EXPECT_EQ(newGroup.parentTID(), 0u);
    newGroup.appendResultList(listOf(element(24, 9), {}));
    newGroup.appendResultList(listOf(element(24, 10), {}));
    EXPECT_EQ(newGroup.parentTID(), 9u);

    ElementOverviewList zeroTid = listOf(element(24, 0), {});
    zeroTid.appendResultList(listOf(element(24, 9), {}));
    EXPECT_EQ(zeroTid.parentTID(), 9u);

    ElementOverviewList otherType;
    SigdbElement network;
    network.setType(4);
    otherType.setParentDefinition(network);
    otherType.appendResultList(listOf(element(24, 9), {}));
    EXPECT_EQ(otherType.parentTID(), 0u);
}

TEST(ElementOverviewList, SuperiorResultIsTheParentsOwnResult)
{
    ElementOverviewList list = listOf(element(1, 5), {overviewOf(1, 4), overviewOf(2, 5), overviewOf(1, 5)});
    EXPECT_EQ(indexOf(list, list.superiorResult()), 2);

    EXPECT_EQ(listOf(element(1, 6), {overviewOf(1, 4), overviewOf(1, 5)}).superiorResult(), nullptr);
    EXPECT_EQ(listOf(element(1, 6), {}).superiorResult(), nullptr);
}

TEST(ElementOverviewList, SuperiorResultNeedsAParentType)
{
    SigdbElement untyped;
    untyped.setTID(5);
    const ElementOverviewList list = listOf(untyped, {overviewOf(0, 5), overviewOf(1, 5)});
    EXPECT_EQ(list.superiorResult(), nullptr);
}

TEST(ElementOverviewList, SuperiorResultOfANewGroupIsItsFirstSubgroupsGroup)
{
    SigdbElement group;
    group.setType(24);
    ElementOverviewList list = listOf(group, {overviewOf(24, 8), overviewOf(24, 9)});
    list.appendResultList(listOf(element(24, 9), {}));
    EXPECT_EQ(indexOf(list, list.superiorResult()), 1);
}

TEST(ElementOverviewList, SelectedResult)
{
    struct Case
    {
        const char *name;
        SigdbElement parent;
        std::vector<ElementOverview> results;
        int selected;
    };
    const std::vector<Case> cases = {
        {"unit under a platform is passed over",
         element(2, 10), {overviewOf(1, 5), overviewOf(2, 10), overviewOf(2, 11)}, 2},
        {"platform equal to the parent is passed over",
         element(2, 10), {overviewOf(2, 10)}, -1},
        {"transceiver with the platform's TID is another element",
         element(2, 10), {overviewOf(2, 10), overviewOf(3, 10)}, 1},
        {"unit other than the parent unit",
         element(1, 5), {overviewOf(1, 5), overviewOf(1, 6)}, 1},
        {"the parent unit only", element(1, 5), {overviewOf(1, 5)}, -1},
        {"single unit without parent", SigdbElement(), {overviewOf(1, 5)}, 0},
        {"two units without parent", SigdbElement(), {overviewOf(1, 5), overviewOf(1, 6)}, -1},
        {"platform without parent", SigdbElement(), {overviewOf(1, 5), overviewOf(2, 6)}, 1},
        {"platform under a network", element(4, 1), {overviewOf(2, 6)}, -1},
        {"transceiver under a unit stops", element(1, 5), {overviewOf(3, 6), overviewOf(1, 7)}, -1},
        {"single unit under a network", element(4, 1), {overviewOf(1, 6)}, 0},
        {"other type stops at once", element(2, 10), {overviewOf(5, 1), overviewOf(2, 11)}, -1},
        {"other type after passed results", element(1, 5), {overviewOf(1, 5), overviewOf(6, 1), overviewOf(1, 7)}, -1},
        {"empty list", element(2, 10), {}, -1},
    };
    for (const Case &c : cases) {
        ElementOverviewList list;
        list.setParentDefinition(c.parent);
        for (const ElementOverview &result : c.results)
            list.appendResult(result, false);
        EXPECT_EQ(indexOf(list, list.selectedResult()), c.selected) << c.name;
    }
}

// ---------------------------------------------------------------------------------------------
// Numbering, equality and copies

TEST(ElementOverviewList, SetIdsNumbersResultsAndSubListsFromTheSameStart)
{
    ElementOverviewList list = overviewtest::populatedTree();
    EXPECT_EQ(list.setIDs(0), 12);
    EXPECT_EQ(list.parentDefinition().tid().getID(), 1);
    EXPECT_EQ(list.startID(), 3);
    EXPECT_EQ(list.collocationModState.getID(), 4);
    EXPECT_EQ(list.listText1.getID(), 5);
    EXPECT_EQ(list.listText2.getID(), 6);
    EXPECT_EQ(list.listText3.getID(), 7);
    EXPECT_EQ(list.collocatedLocation().latitude.getID(), 8);
    EXPECT_EQ(list.collocatedLocation().modification.getID(), 12);
    for (const ElementOverview &result : list.results()) {
        EXPECT_EQ(result.element.tid().getID(), 4);
        EXPECT_EQ(result.keyText1.getID(), 7);
        EXPECT_EQ(result.location.latitude.getID(), 29);
    }
    const ElementOverviewList &middle = list.subLists()[0];
    EXPECT_EQ(middle.parentDefinition().tid().getID(), 4);
    EXPECT_EQ(middle.startID(), 6);
    EXPECT_EQ(middle.collocationModState.getID(), 7);
    EXPECT_EQ(middle.results()[0].element.tid().getID(), 7);
    const ElementOverviewList &inner = middle.subLists()[0];
    EXPECT_EQ(inner.startID(), 9);
    EXPECT_EQ(inner.results()[0].element.tid().getID(), 10);
    EXPECT_EQ(list.subLists()[1].startID(), 6);

    ElementOverviewList empty;
    EXPECT_EQ(empty.setIDs(0), 12);
    EXPECT_EQ(empty.setIDs(10), 22);
}

TEST(ElementOverviewList, EqualityIgnoresStartIdDataLayerAndCursors)
{
    ElementOverviewList a = overviewtest::populatedTree();
    ElementOverviewList b = overviewtest::populatedTree();
    b.setDataLayer(7);
    b.setIDs(40);
    b.firstResult();
    b.firstSubList();
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
    EXPECT_TRUE(a.compareContent(b));
}

TEST(ElementOverviewList, EqualityReadsANullCollocationStateAsZero)
{
    ElementOverviewList a;
    ElementOverviewList b;
    a.collocationModState.setNull(true);
    b.setCollocationModificationState(0);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == ElementOverviewList());
}

TEST(ElementOverviewList, EveryComparedFieldMatters)
{
    overviewtest::expectEveryChangeMatters<ElementOverviewList>(overviewtest::populatedTree(), {
        {"moreResultsAvailable", [](ElementOverviewList &l) { l.addMoreResultsAvailable(1); }},
        {"parentDefinition", [](ElementOverviewList &l) { l.setParentDefinition(element(24, 101)); }},
        {"collocationModState", [](ElementOverviewList &l) { l.addCollocationModificationState(8); }},
        {"requestedListType", [](ElementOverviewList &l) { l.setRequestedListType(ElementList_Default); }},
        {"listText1", [](ElementOverviewList &l) { l.listText1.setNull(true); }},
        {"listText2", [](ElementOverviewList &l) { l.listText2 = std::string("2"); }},
        {"listText3", [](ElementOverviewList &l) { l.listText3.setNull(true); }},
        {"collocatedLocation", [](ElementOverviewList &l) { l.setCollocatedLocation(LocationEntry()); }},
        {"result count", [](ElementOverviewList &l) { l.appendResult(overviewOf(1, 1), false); }},
        {"sub-list count", [](ElementOverviewList &l) { l.appendResultList(ElementOverviewList()); }},
        {"result content", [](ElementOverviewList &l) {
             ElementOverview changed = l.results()[1];
             changed.keyText3 = std::string("changed");
             l.clear();
             l.appendResult(populatedOverview(11), false);
             l.appendResult(changed, false);
         }},
        {"result order", [](ElementOverviewList &l) {
             const std::vector<ElementOverview> results = l.results();
             l.clear();
             l.appendResult(results[1], false);
             l.appendResult(results[0], false);
         }},
        {"sub-list content", [](ElementOverviewList &l) {
             std::vector<ElementOverviewList> subLists = l.subLists();
             subLists[0].listText1 = std::string("changed");
             l.clearSubLists();
             for (const ElementOverviewList &subList : subLists)
                 l.appendResultList(subList);
         }},
        {"sub-sub-list content", [](ElementOverviewList &l) {
             std::vector<ElementOverviewList> subLists = l.subLists();
             ElementOverviewList inner = subLists[0].subLists()[0];
             inner.appendResult(overviewOf(1, 1), false);
             subLists[0].clearSubLists();
             subLists[0].appendResultList(inner);
             l.clearSubLists();
             for (const ElementOverviewList &subList : subLists)
                 l.appendResultList(subList);
         }},
    });
}

TEST(ElementOverviewList, CompareContentLooksOnlyAtResultsAndSubLists)
{
    ElementOverviewList a = listOf(element(24, 1), {overviewOf(1, 1)});
    ElementOverviewList b = listOf(element(24, 2), {overviewOf(1, 1)});
    b.listText1 = std::string("other");
    EXPECT_TRUE(a.compareContent(b));
    EXPECT_FALSE(a == b);
    b.appendResultList(ElementOverviewList());
    EXPECT_FALSE(a.compareContent(b));
    a.appendResultList(ElementOverviewList());
    EXPECT_TRUE(a.compareContent(b));
    b.appendResult(overviewOf(1, 2), false);
    EXPECT_FALSE(a.compareContent(b));
}

TEST(ElementOverviewList, CopiesAreDeepAndEqual)
{
    const ElementOverviewList original = overviewtest::populatedTree();
    ElementOverviewList copy(original);
    EXPECT_TRUE(copy == original);
    ElementOverviewList assigned;
    assigned = original;
    EXPECT_TRUE(assigned == original);
    EXPECT_EQ(assigned.dataLayer(), 2);

    ElementOverviewList unused;
    std::unique_ptr<base::DbBaseType> heap(unused.getCopy(&original));
    auto *heapList = dynamic_cast<ElementOverviewList *>(heap.get());
    ASSERT_NE(heapList, nullptr);
    EXPECT_TRUE(*heapList == original);
    EXPECT_EQ(heapList->subLists()[0].subLists()[0].results()[0].orderNumber.getData(), 7);
    EXPECT_EQ(unused.count(), 0);
}

TEST(ElementOverviewList, PrintDebugWritesNothingOfItsOwn)
{
    const ElementOverviewList list = overviewtest::populatedTree();
    EXPECT_EQ(sigdbtest::captureStdout([&] { list.printDebug(); }), "");
}
