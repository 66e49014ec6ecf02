#include "element/elementoverview.h"

#include "core/sigdbtablespace.h"
#include "overviewtesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <memory>

using namespace sigdb;
using overviewtest::element;
using overviewtest::overviewOf;
using overviewtest::populatedOverview;

namespace {

base::DbDataType<std::string> text(const char *value)
{
    return base::DbDataType<std::string>(std::string(value));
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Defaults and simple readings

TEST(ElementOverview, DefaultOverviewReadsAsUnsetElement)
{
    const ElementOverview o;
    EXPECT_EQ(o.networkType(), 0);
    EXPECT_TRUE(o.networkTypeAsString().isNull());
    EXPECT_TRUE(o.networkTypeAsFullString().isNull());
    EXPECT_EQ(o.modificationState(), Modification_Unknown);
    EXPECT_EQ(o.linkModificationState(), Modification_Unknown);
    EXPECT_EQ(o.locationIndication(), LocationIndication_None);
    EXPECT_EQ(o.collocationModificationState(), 0);
    EXPECT_FALSE(o.isApproved());
    EXPECT_FALSE(o.isDeleted());
    EXPECT_FALSE(o.isCompletelyApproved());
    EXPECT_TRUE(o.isCurrentlyInMdlAndApl());
    EXPECT_TRUE(o.approveAcceptPossible());
    EXPECT_TRUE(o.approveRejectPossible());
    EXPECT_FALSE(o.isCollocated());
    EXPECT_FALSE(o.isCollocationGroupLeader());
    EXPECT_FALSE(o.hasUniqueLink());
    EXPECT_FALSE(o.allLinksAreApproved());
    EXPECT_FALSE(o.isMemberOfNetworkInMdl());
    EXPECT_FALSE(o.isMemberOfNetworkInApl());
    EXPECT_FALSE(o.isMemberOfCollocationGroupInMdl());
    EXPECT_FALSE(o.isMemberOfCollocationGroupInApl());
    EXPECT_FALSE(o.hasNotApprovedCollocationGroup());
    EXPECT_FALSE(o.hasCollocationModificationState(CollocationMod_Unchanged));
    EXPECT_TRUE(o.networkTypeWord.isNull());
    EXPECT_TRUE(o.keyText1.isNull());
    EXPECT_TRUE(o.orderNumber.isNull());
    EXPECT_EQ(o.keyText1.getID(), 0);
}

TEST(ElementOverview, ModificationStatePredicates)
{
    struct Case
    {
        Modification_State state;
        bool approved;
        bool deleted;
        bool currentlyInMdlAndApl;
    };
    const Case cases[] = {
        {Modification_Unchanged, true, false, true},
        {Modification_Approved, true, false, true},
        {Modification_LinkApprovalPending, false, false, true},
        {Modification_ChangedInMdl, false, false, false},
        {Modification_NewInMdl, false, false, true},
        {Modification_DeletedInMdl, false, true, false},
        {Modification_DeletedApproved, true, true, false},
        {Modification_Unknown, false, false, true},
    };
    for (const Case &c : cases) {
        ElementOverview o;
        o.modificationState = c.state;
        EXPECT_EQ(o.modificationState(), c.state);
        EXPECT_EQ(o.isApproved(), c.approved) << c.state;
        EXPECT_EQ(o.isDeleted(), c.deleted) << c.state;
        EXPECT_EQ(o.isCurrentlyInMdlAndApl(), c.currentlyInMdlAndApl) << c.state;
    }
}

TEST(ElementOverview, NullStateColumnsReadTheirNullReadingEvenWithAStaleValue)
{
    ElementOverview o;
    o.modificationState = Modification_DeletedInMdl;
    o.linkModificationState = LinkModification_NetworkAll;
    o.locationIndication = LocationIndication_CollocatedLeader;
    o.modificationState.setNull(true);
    o.linkModificationState.setNull(true);
    o.locationIndication.setNull(true);
    EXPECT_EQ(o.modificationState(), Modification_Unknown);
    EXPECT_EQ(o.linkModificationState(), Modification_Unknown);
    EXPECT_EQ(o.locationIndication(), LocationIndication_None);
    EXPECT_FALSE(o.isDeleted());
    EXPECT_FALSE(o.isCollocated());
}

TEST(ElementOverview, CompletelyApprovedNeedsApprovedLinksAndNoOpenCollocationGroup)
{
    ElementOverview o = overviewOf(1, 5);
    o.modificationState = Modification_Approved;
    EXPECT_FALSE(o.isCompletelyApproved());
    o.element.setApvState(1024);
    EXPECT_TRUE(o.allLinksAreApproved());
    EXPECT_TRUE(o.isCompletelyApproved());
    o.element.setApvState(1024 + 2048);
    EXPECT_FALSE(o.isCompletelyApproved());
    o.element.setApvState(1024);
    o.modificationState = Modification_ChangedInMdl;
    EXPECT_FALSE(o.isCompletelyApproved());
}

TEST(ElementOverview, CollocatedFromLocationIndicationFourOn)
{
    ElementOverview o;
    o.locationIndication = LocationIndication_Inherited;
    EXPECT_FALSE(o.isCollocated());
    o.locationIndication = LocationIndication_Collocated;
    EXPECT_TRUE(o.isCollocated());
    o.locationIndication = LocationIndication_CollocatedLeader;
    EXPECT_TRUE(o.isCollocated());
    EXPECT_EQ(o.locationIndication(), LocationIndication_CollocatedLeader);
}

TEST(ElementOverview, GroupLeaderAndCollocationCapability)
{
    ElementOverview o = overviewOf(1, 5);
    o.setCollocationGroupLeader(false);
    EXPECT_FALSE(o.collocationGroupLeader.isNull());
    EXPECT_FALSE(o.isCollocationGroupLeader());
    o.setCollocationGroupLeader(true);
    EXPECT_TRUE(o.isCollocationGroupLeader());
    EXPECT_TRUE(o.canBeCollocated());
    EXPECT_FALSE(overviewOf(4, 5).canBeCollocated());
}

TEST(ElementOverview, SuperiorAmongUniqueLinks)
{
    // A unit's superior element is a platform.
    ElementOverview o = overviewOf(1, 5);
    o.uniqueLinks.appendEntry(element(3, 30));
    EXPECT_TRUE(o.hasUniqueLink());
    EXPECT_FALSE(o.hasSuperior());
    o.uniqueLinks.appendEntry(element(2, 20));
    o.uniqueLinks.appendEntry(element(2, 21));
    EXPECT_TRUE(o.hasSuperior());

    o.removeSuperiorFromUniqueLinks();
    ASSERT_EQ(o.uniqueLinks.count(), 2);
    EXPECT_EQ(o.uniqueLinks.container()[0], element(3, 30));
    EXPECT_EQ(o.uniqueLinks.container()[1], element(2, 21));
    o.removeSuperiorFromUniqueLinks();
    EXPECT_FALSE(o.hasSuperior());
    EXPECT_EQ(o.uniqueLinks.count(), 1);
}

// ---------------------------------------------------------------------------------------------
// Network type word

TEST(ElementOverview, FlagOnTopOfNetworkTypeHidesTheType)
{
    ElementOverview o;
    o.addNetworkType(2);
    EXPECT_EQ(o.networkType(), 2);
    EXPECT_EQ(o.networkTypeAsFullString().getData(), "Star");
    o.setIsMemberOfNetworkInMdl();
    EXPECT_EQ(o.networkTypeWord.getData(), 18);
    EXPECT_EQ(o.networkType(), 0);
    EXPECT_TRUE(o.networkTypeAsFullString().isNull());
    EXPECT_TRUE(o.networkTypeAsString().isNull());
    EXPECT_TRUE(o.isMemberOfNetworkInMdl());
}

TEST(ElementOverview, FlagSetTwiceIsAddedOnce)
{
    ElementOverview o;
    o.setIsMemberOfNetworkInMdl();
    o.setIsMemberOfNetworkInMdl();
    EXPECT_FALSE(o.networkTypeWord.isNull());
    EXPECT_EQ(o.networkTypeWord.getData(), 16);
}

TEST(ElementOverview, EachFlagSetterSetsItsBitAndItsReaderSeesOnlyIt)
{
    struct Flag
    {
        int bit;
        void (ElementOverview::*set)();
        bool (ElementOverview::*has)() const;
    };
    const Flag flags[] = {
        {16, &ElementOverview::setIsMemberOfNetworkInMdl, &ElementOverview::isMemberOfNetworkInMdl},
        {32, &ElementOverview::setIsMemberOfNetworkInApl, &ElementOverview::isMemberOfNetworkInApl},
        {64, &ElementOverview::setIsMemberOfCollocationGroupInMdl,
         &ElementOverview::isMemberOfCollocationGroupInMdl},
        {128, &ElementOverview::setIsMemberOfCollocationGroupInApl,
         &ElementOverview::isMemberOfCollocationGroupInApl},
        {256, &ElementOverview::setHasNotApprovedCollocationGroup,
         &ElementOverview::hasNotApprovedCollocationGroup},
    };
    for (const Flag &flag : flags) {
        ElementOverview o;
        (o.*flag.set)();
        EXPECT_EQ(o.networkTypeWord.getData(), flag.bit);
        for (const Flag &other : flags)
            EXPECT_EQ((o.*other.has)(), other.bit == flag.bit) << flag.bit << " " << other.bit;
    }

    ElementOverview all;
    all.addNetworkType(3);
    for (const Flag &flag : flags)
        (all.*flag.set)();
    EXPECT_EQ(all.networkTypeWord.getData(), 3 + 16 + 32 + 64 + 128 + 256);
}

TEST(ElementOverview, AddNetworkTypeAddsArithmetically)
{
    ElementOverview o;
    o.addNetworkType(1);
    EXPECT_EQ(o.networkTypeWord.getData(), 1);
    o.addNetworkType(2);
    EXPECT_EQ(o.networkTypeWord.getData(), 3);
    EXPECT_EQ(o.networkType(), 3);
    EXPECT_EQ(o.networkTypeAsString().getData(), "H");
    o.addNetworkType(2);
    EXPECT_EQ(o.networkType(), 0);
}

TEST(ElementOverview, NetworkTypeOutsideItsRangeReadsAsNone)
{
    ElementOverview o;
    o.networkTypeWord = -1;
    EXPECT_EQ(o.networkType(), 0);
    o.networkTypeWord = 4;
    EXPECT_EQ(o.networkType(), 0);
    o.networkTypeWord = 1;
    EXPECT_EQ(o.networkType(), 1);
    o.networkTypeWord.setNull(true);
    EXPECT_EQ(o.networkType(), 0);
}

TEST(ElementOverview, StaticNetworkTypeNamesFallThroughToUnstructured)
{
    struct Case
    {
        int type;
        const char *shortName; // null: NULL text
        const char *fullName;
    };
    const Case cases[] = {
        {0, nullptr, nullptr},           {1, "U", "Unstructured"}, {2, "S", "Star"},
        {3, "H", "Hierarchical"},        {-1, "U", "Unstructured"}, {4, "U", "Unstructured"},
        {18, "U", "Unstructured"},
    };
    for (const Case &c : cases) {
        const base::DbDataType<std::string> shortName = ElementOverview::networkTypeAsString(c.type);
        const base::DbDataType<std::string> fullName = ElementOverview::networkTypeAsFullString(c.type);
        EXPECT_EQ(shortName.isNull(), c.shortName == nullptr) << c.type;
        EXPECT_EQ(fullName.isNull(), c.fullName == nullptr) << c.type;
        if (c.shortName) {
            EXPECT_EQ(shortName.getData(), c.shortName);
            EXPECT_EQ(fullName.getData(), c.fullName);
        }
    }
}

TEST(ElementOverview, NetworkTypeFromExactNamesOnly)
{
    struct Case
    {
        const char *name;
        bool full;
        int type;
    };
    const Case cases[] = {
        {"S", false, 2},           {"H", false, 3},        {"U", false, 1},
        {"Star", true, 2},         {"Hierarchical", true, 3}, {"Unstructured", true, 1},
        {"star", true, 0},         {"Star ", true, 0},      {"s", false, 0},
        {"S", true, 0},            {"Star", false, 0},      {"", false, 0},
    };
    for (const Case &c : cases) {
        ElementOverview o;
        o.setIsMemberOfNetworkInApl();
        o.setIsMemberOfCollocationGroupInMdl();
        if (c.full)
            o.setNetworkTypeFromFullString(text(c.name));
        else
            o.setNetworkTypeFromString(text(c.name));
        EXPECT_FALSE(o.networkTypeWord.isNull()) << c.name;
        EXPECT_EQ(o.networkTypeWord.getData(), c.type) << c.name;
        EXPECT_FALSE(o.isMemberOfNetworkInApl());
    }
}

TEST(ElementOverview, NetworkTypeFromStringIgnoresTheNullFlag)
{
    ElementOverview o;
    base::DbDataType<std::string> name = text("Hierarchical");
    name.setNull(true);
    o.setNetworkTypeFromFullString(name);
    EXPECT_EQ(o.networkType(), 3);

    // A NULL word becomes 0, not NULL, when nothing matches.
    ElementOverview unmatched;
    unmatched.setNetworkTypeFromString(base::DbDataType<std::string>());
    EXPECT_FALSE(unmatched.networkTypeWord.isNull());
    EXPECT_EQ(unmatched.networkTypeWord.getData(), 0);
}

// ---------------------------------------------------------------------------------------------
// Collocation modification state

TEST(ElementOverview, AddingAnotherStateDropsUnchanged)
{
    ElementOverview o;
    o.addCollocationModificationState(CollocationMod_Unchanged);
    o.addCollocationModificationState(CollocationMod_MembersChanged);
    EXPECT_EQ(o.collocationModificationState(), 4);

    ElementOverview reversed;
    reversed.addCollocationModificationState(CollocationMod_MembersChanged);
    reversed.addCollocationModificationState(CollocationMod_Unchanged);
    EXPECT_EQ(reversed.collocationModificationState(), 5);
}

TEST(ElementOverview, AddingAPresentStateChangesNothing)
{
    ElementOverview o;
    o.setCollocationModificationState(5);
    o.addCollocationModificationState(CollocationMod_MembersChanged);
    // Bit 4 is present, so not even state 1 is dropped.
    EXPECT_EQ(o.collocationModificationState(), 5);
    o.addCollocationModificationState(CollocationMod_LeaderChanged);
    EXPECT_EQ(o.collocationModificationState(), 4 + 512);
    EXPECT_TRUE(o.hasCollocationModificationState(CollocationMod_LeaderChanged));
    EXPECT_FALSE(o.hasCollocationModificationState(CollocationMod_Unchanged));
}

TEST(ElementOverview, RemovingAnAbsentStateChangesNothing)
{
    ElementOverview o;
    o.removeCollocationModificationState(CollocationMod_Approved);
    EXPECT_TRUE(o.collocationModState.isNull());

    o.setCollocationModificationState(5);
    o.removeCollocationModificationState(CollocationMod_Approved);
    EXPECT_EQ(o.collocationModificationState(), 5);
    o.removeCollocationModificationState(CollocationMod_MembersChanged);
    EXPECT_EQ(o.collocationModificationState(), 1);
    o.removeCollocationModificationState(CollocationMod_Unchanged);
    EXPECT_FALSE(o.collocationModState.isNull());
    EXPECT_EQ(o.collocationModificationState(), 0);
}

// ---------------------------------------------------------------------------------------------
// Link modification state

TEST(ElementOverview, NetworkLinkStateFromItsLinkApprovalBits)
{
    // Bits: members 4096, partners 8192, profiles 16384, removed 32768.
    struct Case
    {
        int bits;
        int state;
    };
    const Case cases[] = {
        {0, 11},
        {32768, 18},
        {8192, 11},
        {8192 + 32768, 18},
        {16384, 13},
        {16384 + 32768, 18},
        {16384 + 8192, 13},
        {16384 + 8192 + 32768, 18},
        {4096, 12},
        {4096 + 32768, 12},
        {4096 + 8192, 15},
        {4096 + 8192 + 32768, 15},
        {4096 + 16384, 14},
        {4096 + 16384 + 32768, 18},
        {4096 + 16384 + 8192, 17},
        {4096 + 16384 + 8192 + 32768, 19},
    };
    for (const Case &c : cases) {
        ElementOverview o = overviewOf(4, 77);
        o.element.setApvState(c.bits);
        o.setLinkModStateFromApvState();
        EXPECT_FALSE(o.linkModificationState.isNull());
        EXPECT_EQ(o.linkModificationState(), c.state) << c.bits;
        // A network is no network member: no flags.
        EXPECT_TRUE(o.networkTypeWord.isNull()) << c.bits;
    }
}

TEST(ElementOverview, LinkBitsOfOtherTypesAreNotRefined)
{
    ElementOverview o = overviewOf(1, 5);
    o.element.setApvState(4096 + 16384 + 8192);
    o.setLinkModStateFromApvState();
    EXPECT_EQ(o.linkModificationState(), LinkModification_NotApproved);
}

TEST(ElementOverview, LocalDataGetsItsLinkStateAndNothingElse)
{
    // Plots (type 29) are local data.
    ElementOverview o = overviewOf(29, 5);
    o.element.setApvState(1 + 2 + 4 + 8 + 1024 + 2048);
    o.setLinkModStateFromApvState();
    EXPECT_EQ(o.linkModificationState(), LinkModification_LocalData);
    EXPECT_TRUE(o.networkTypeWord.isNull());
}

TEST(ElementOverview, ApprovalBitsSetMembershipFlags)
{
    ElementOverview member = overviewOf(1, 5); // units are network members
    member.element.setApvState(1 + 2 + 4 + 8 + 2048);
    member.setLinkModStateFromApvState();
    EXPECT_EQ(member.networkTypeWord.getData(), 16 + 32 + 64 + 128 + 256);
    EXPECT_EQ(member.linkModificationState(), LinkModification_NotApproved);

    ElementOverview other = overviewOf(3, 5); // transceivers are not
    other.element.setApvState(1 + 2 + 8);
    other.setLinkModStateFromApvState();
    EXPECT_EQ(other.networkTypeWord.getData(), 128);
    EXPECT_FALSE(other.isMemberOfNetworkInMdl());

    // Flags already present are not added twice.
    ElementOverview twice = overviewOf(1, 5);
    twice.networkTypeWord = 16 + 2;
    twice.element.setApvState(1 + 4);
    twice.setLinkModStateFromApvState();
    EXPECT_EQ(twice.networkTypeWord.getData(), 2 + 16 + 64);
}

TEST(ElementOverview, AllLinksApprovedLeavesApprovedElementsAlone)
{
    ElementOverview approved = overviewOf(4, 5);
    approved.element.setApvState(1024 + 4096);
    approved.modificationState = Modification_Approved;
    approved.setLinkModStateFromApvState();
    EXPECT_TRUE(approved.linkModificationState.isNull());

    approved.linkModificationState = LinkModification_NetworkAll;
    approved.modificationState = Modification_DeletedApproved;
    approved.setLinkModStateFromApvState();
    EXPECT_EQ(approved.linkModificationState(), LinkModification_NetworkAll);

    ElementOverview changed = overviewOf(4, 5);
    changed.element.setApvState(1024 + 4096);
    changed.modificationState = Modification_ChangedInMdl;
    changed.setLinkModStateFromApvState();
    EXPECT_EQ(changed.linkModificationState(), LinkModification_ToApprove);

    ElementOverview unknown = overviewOf(1, 5);
    unknown.element.setApvState(1024);
    unknown.setLinkModStateFromApvState();
    EXPECT_EQ(unknown.linkModificationState(), LinkModification_ToApprove);
}

// ---------------------------------------------------------------------------------------------
// Approval

TEST(ElementOverview, LocalDataLinksDecideBothApprovals)
{
    struct Case
    {
        int type;
        bool stateSet;
        Modification_State state;
        bool possible;
    };
    const Case cases[] = {
        {1, true, Modification_LinkApprovalPending, true},
        {1, true, Modification_ChangedInMdl, false},
        {1, true, Modification_DeletedInMdl, false},
        {1, false, Modification_LinkApprovalPending, false},
        {4, true, Modification_LinkApprovalPending, false},
    };
    for (const Case &c : cases) {
        ElementOverview o = overviewOf(c.type, 5);
        o.linkModificationState = LinkModification_LocalData;
        if (c.stateSet)
            o.modificationState = c.state;
        EXPECT_EQ(o.approveAcceptPossible(), c.possible) << c.type << " " << c.state;
        EXPECT_EQ(o.approveRejectPossible(), c.possible) << c.type << " " << c.state;
    }
}

TEST(ElementOverview, AcceptOfADeletionLooksAtTheAplFlags)
{
    ElementOverview o = overviewOf(1, 5);
    o.modificationState = Modification_DeletedInMdl;
    EXPECT_TRUE(o.approveAcceptPossible());
    o.networkTypeWord = 0;
    EXPECT_TRUE(o.approveAcceptPossible());
    o.networkTypeWord = 32;
    EXPECT_FALSE(o.approveAcceptPossible());
    o.networkTypeWord = 128;
    EXPECT_FALSE(o.approveAcceptPossible());
    o.networkTypeWord = 16 + 64 + 256 + 3;
    EXPECT_TRUE(o.approveAcceptPossible());

    // Any other state can be accepted whatever the flags.
    o.networkTypeWord = 32 + 128;
    for (Modification_State state : {Modification_ChangedInMdl, Modification_DeletedApproved,
                                     Modification_NewInMdl}) {
        o.modificationState = state;
        EXPECT_TRUE(o.approveAcceptPossible()) << state;
    }
}

TEST(ElementOverview, RejectOfAChangeLooksAtTheMdlFlagsAndReportsNetworkMembers)
{
    ElementOverview o = overviewOf(1, 5);
    o.modificationState = Modification_ChangedInMdl;
    EXPECT_TRUE(o.approveRejectPossible());

    o.networkTypeWord = 16;
    bool possible = true;
    const std::string printed = sigdbtest::captureStdout([&] { possible = o.approveRejectPossible(); });
    EXPECT_FALSE(possible);
    EXPECT_EQ(printed, "isMemberOfNetworkInMdl\n");

    o.networkTypeWord = 64;
    EXPECT_EQ(sigdbtest::captureStdout([&] { possible = o.approveRejectPossible(); }), "");
    EXPECT_FALSE(possible);

    o.networkTypeWord = 32 + 128 + 256;
    EXPECT_TRUE(o.approveRejectPossible());
}

TEST(ElementOverview, AcceptAndRejectAreDeliberatelyAsymmetric)
{
    // A changed network member can be accepted but not rejected...
    ElementOverview changed = overviewOf(1, 5);
    changed.modificationState = Modification_ChangedInMdl;
    changed.networkTypeWord = 16 + 32;
    std::string printed = sigdbtest::captureStdout([&] { EXPECT_TRUE(changed.approveAcceptPossible()); });
    EXPECT_EQ(printed, "");
    printed = sigdbtest::captureStdout([&] { EXPECT_FALSE(changed.approveRejectPossible()); });
    EXPECT_EQ(printed, "isMemberOfNetworkInMdl\n");

    // ...and a deleted one rejected but not accepted, without any diagnostic.
    ElementOverview deleted = changed;
    deleted.modificationState = Modification_DeletedInMdl;
    printed = sigdbtest::captureStdout([&] {
        EXPECT_FALSE(deleted.approveAcceptPossible());
        EXPECT_TRUE(deleted.approveRejectPossible());
    });
    EXPECT_EQ(printed, "");
}

TEST(ElementOverview, ApproveDefinitionDescribesTheApprovalRequest)
{
    ElementOverview o = overviewOf(1, 42);
    o.element.setApvState(1024);
    o.element.setExchgId(text("element's own"));
    o.exchgIdText = std::string("X-1");
    o.modificationState = Modification_ChangedInMdl;
    o.setIDs(0);

    const SigdbElement accept = o.approveDefinition(true);
    EXPECT_EQ(accept.type(), 1);
    EXPECT_EQ(accept.TID(), 42u);
    EXPECT_FALSE(accept.tid().isNull());
    EXPECT_EQ(accept.exchgId().getData(), "X-1");
    EXPECT_FALSE(accept.exchgId().isNull());
    EXPECT_EQ(accept.exchgId().getID(), o.exchgIdText.getID());
    EXPECT_EQ(accept.approvalType(), Approval_Accept);
    EXPECT_EQ(accept.apvState(), 0);

    EXPECT_EQ(o.approveDefinition(false).approvalType(), Approval_Reject);

    o.modificationState = Modification_Approved;
    EXPECT_EQ(o.approveDefinition(true).approvalType(), Approval_None);

    // A NULL state reads as 7, which is neither approved nor unchanged.
    o.modificationState.setNull(true);
    EXPECT_EQ(o.approveDefinition(false).approvalType(), Approval_Reject);

    o.exchgIdText.setNull(true);
    EXPECT_TRUE(o.approveDefinition(true).exchgId().isNull());
}

// ---------------------------------------------------------------------------------------------
// Key

TEST(ElementOverview, KeyJoinsTheKeyTextsWhenTheTableHasTheKeyColumn)
{
    EXPECT_EQ(ElementOverview::getKey("AB", "CD", 1), "ABCD");
    EXPECT_EQ(ElementOverview::getKey("", "", 1), "");

    ElementOverview o = overviewOf(2, 5);
    o.keyText1 = std::string("PL-");
    o.keyText2 = std::string("7");
    EXPECT_EQ(o.getKey(), "PL-7");
}

TEST(ElementOverview, KeyNamesTheReplacementColumnOtherwise)
{
    EXPECT_EQ(ElementOverview::getKey("AB", "CD", 12), "type 12-r5");

    ElementOverview o = overviewOf(30, 5);
    o.keyText1 = std::string("ignored");
    EXPECT_EQ(o.getKey(), "type 30-r5");

    // A type without table has no replacement either.
    EXPECT_EQ(ElementOverview::getKey("AB", "CD", 999), "type 999-r-1");
}

TEST(ElementOverview, KeyFollowsTheLoadedSchema)
{
    sigdbtest::DefaultSchemaGuard guard;
    SigdbTable table(50, "Custom", "X", "CUS");
    table.setColumnReplace(17, 4711);
    SigdbTableSpace::instance().addTable(table);
    EXPECT_EQ(ElementOverview::getKey("A", "B", 50), "type 50-r4711");
    table.addColumn(SigdbColumn(17, "KEYNAME"));
    SigdbTableSpace::instance().addTable(table);
    EXPECT_EQ(ElementOverview::getKey("A", "B", 50), "AB");
}

// ---------------------------------------------------------------------------------------------
// Numbering

TEST(ElementOverview, SetIdsNumbersDepthFirstSkippingOneIdBeforeTheLocation)
{
    ElementOverview o = populatedOverview();
    EXPECT_EQ(o.setIDs(0), 30);

    EXPECT_EQ(o.element.tid().getID(), 1);
    EXPECT_EQ(o.element.exchgId().getID(), 2);
    EXPECT_EQ(o.element.modificationUser().getID(), 3);
    EXPECT_EQ(o.keyText1.getID(), 4);
    EXPECT_EQ(o.keyText2.getID(), 5);
    EXPECT_EQ(o.keyText3.getID(), 6);
    EXPECT_EQ(o.locationIndication.getID(), 7);
    EXPECT_EQ(o.modificationState.getID(), 8);
    EXPECT_EQ(o.collocationModState.getID(), 9);
    EXPECT_EQ(o.orderNumber.getID(), 10);
    EXPECT_EQ(o.linkModificationState.getID(), 11);
    EXPECT_EQ(o.networkTypeWord.getID(), 12);
    EXPECT_EQ(o.auxiliaryTid.getID(), 13);
    EXPECT_EQ(o.uniqueLinks.startID(), 13);
    for (const SigdbElement &linked : o.uniqueLinks.container()) {
        EXPECT_EQ(linked.tid().getID(), 14);
        EXPECT_EQ(linked.modificationUser().getID(), 16);
    }
    EXPECT_EQ(o.collocationGroupLeader.getID(), 17);
    EXPECT_EQ(o.relatedElement.tid().getID(), 18);
    EXPECT_EQ(o.relatedElement.modificationUser().getID(), 20);
    EXPECT_EQ(o.exchgIdText.getID(), 21);
    EXPECT_EQ(o.infoText2.getID(), 22);
    EXPECT_EQ(o.infoText3.getID(), 23);
    EXPECT_EQ(o.infoText4.getID(), 24);
    EXPECT_EQ(o.location.latitude.getID(), 26); // 25 is left out
    EXPECT_EQ(o.location.modification.getID(), 30);
    EXPECT_EQ(o.locationList.startID(), 30);
    for (const LocationEntry &entry : o.locationList.container())
        EXPECT_EQ(entry.latitude.getID(), 31);
}

TEST(ElementOverview, SetIdsResultDoesNotDependOnListContents)
{
    ElementOverview empty;
    ElementOverview full = populatedOverview();
    EXPECT_EQ(empty.setIDs(100), 130);
    EXPECT_EQ(full.setIDs(100), 130);
    EXPECT_EQ(full.keyText1.getID(), 104);
}

// ---------------------------------------------------------------------------------------------
// Equality, copy and reset

TEST(ElementOverview, EqualityIgnoresOrderNumberAndColumnIds)
{
    ElementOverview a = populatedOverview();
    ElementOverview b = populatedOverview();
    b.orderNumber = 99;
    b.setIDs(500);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);

    b.orderNumber.setNull(true);
    EXPECT_TRUE(a == b);
}

TEST(ElementOverview, EqualityReadsANullCollocationStateAsZero)
{
    ElementOverview a;
    ElementOverview b;
    b.collocationModState = 0;
    EXPECT_TRUE(a == b);
    b.collocationModState = 1;
    EXPECT_FALSE(a == b);
}

TEST(ElementOverview, EveryComparedFieldMatters)
{
    overviewtest::expectEveryChangeMatters<ElementOverview>(populatedOverview(), {
        {"element", [](ElementOverview &o) { o.element.setTID(1); }},
        {"keyText1", [](ElementOverview &o) { o.keyText1 = std::string("other"); }},
        {"keyText2", [](ElementOverview &o) { o.keyText2.setNull(true); }},
        {"keyText3", [](ElementOverview &o) { o.keyText3 = std::string("other"); }},
        {"locationIndication", [](ElementOverview &o) { o.locationIndication = LocationIndication_Own; }},
        {"modificationState", [](ElementOverview &o) { o.modificationState.setNull(true); }},
        {"collocationModState", [](ElementOverview &o) { o.collocationModState = 21; }},
        {"linkModificationState", [](ElementOverview &o) { o.linkModificationState = LinkModification_LocalData; }},
        {"networkTypeWord", [](ElementOverview &o) { o.networkTypeWord = 2; }},
        {"auxiliaryTid", [](ElementOverview &o) { o.auxiliaryTid = 5ULL; }},
        {"location", [](ElementOverview &o) { o.location.latitude = 0.0; }},
        {"locationList", [](ElementOverview &o) { o.locationList.clear(); }},
        {"uniqueLinks", [](ElementOverview &o) { o.uniqueLinks.appendEntry(element(5, 5)); }},
        {"relatedElement", [](ElementOverview &o) { o.relatedElement.setType(3); }},
        {"exchgIdText", [](ElementOverview &o) { o.exchgIdText = std::string("Y"); }},
        {"infoText2", [](ElementOverview &o) { o.infoText2.setNull(true); }},
        {"infoText3", [](ElementOverview &o) { o.infoText3.setNull(true); }},
        {"infoText4", [](ElementOverview &o) { o.infoText4 = std::string("x"); }},
        {"collocationGroupLeader", [](ElementOverview &o) { o.collocationGroupLeader = false; }},
    });
}

TEST(ElementOverview, CopiesAreEqualAndIndependent)
{
    const ElementOverview original = populatedOverview();
    ElementOverview copy(original);
    EXPECT_EQ(copy, original);
    EXPECT_EQ(copy.orderNumber.getData(), 7);
    copy.keyText1 = std::string("changed");
    EXPECT_EQ(original.keyText1.getData(), "KEY-");

    ElementOverview assigned;
    assigned = original;
    EXPECT_EQ(assigned, original);
    EXPECT_EQ(assigned.orderNumber.getData(), 7);

    ElementOverview source = populatedOverview();
    source.setStoreType(base::StoreType_Transient);
    ElementOverview unused;
    std::unique_ptr<base::DbBaseType> heap(unused.getCopy(&source));
    auto *heapOverview = dynamic_cast<ElementOverview *>(heap.get());
    ASSERT_NE(heapOverview, nullptr);
    EXPECT_EQ(*heapOverview, source);
    EXPECT_TRUE(heapOverview->isTransient());
    EXPECT_TRUE(unused == ElementOverview());
}

TEST(ElementOverview, ResetReturnsToDefaultsAndKeepsColumnIds)
{
    ElementOverview o = populatedOverview();
    o.setIDs(0);
    o.reset();
    EXPECT_EQ(o, ElementOverview());
    EXPECT_TRUE(o.orderNumber.isNull());
    EXPECT_TRUE(o.keyText1.isNull());
    EXPECT_EQ(o.uniqueLinks.count(), 0);
    EXPECT_EQ(o.locationList.count(), 0);
    EXPECT_EQ(o.keyText1.getID(), 4);
    EXPECT_EQ(o.networkTypeWord.getID(), 12);
}
