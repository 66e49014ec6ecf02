#include "network/callsigntable.h"
#include "network/tableconversion_p.h"

#include "networktesting.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace sigdb;
using networktest::callsigns;
using networktest::connection;
using networktest::element;
using networktest::end;
using networktest::rcsEnd;
using networktest::relayEnd;
using networktest::set;
using networktest::show;
using networktest::table;
using networktest::text;
using networktest::undefinedElement;

namespace {

const SigdbElement A = element(5, 1);
const SigdbElement B = element(5, 2);
const SigdbElement C = element(6, 3);
const SigdbElement D = element(6, 4);

std::vector<std::string> shownEntries(const CallsignTable &t)
{
    std::vector<std::string> result;
    for (const CallsignEntry &e : t.sets.container().front().entries.container())
        result.push_back(show(e));
    return result;
}

/// Checks what every connection made by a conversion has in common.
void expectMemberConnection(const ConnectionEntry &c, int number)
{
    EXPECT_EQ(c.type(), 30);
    EXPECT_TRUE(c.isTIDundefined());
    EXPECT_TRUE(c.connectionFlag.getData());
    EXPECT_EQ(c.name().getData(), "no name");
    EXPECT_EQ(c.secondNumber.getData(), number);
    EXPECT_FALSE(c.secondNumber.isNull());
    EXPECT_TRUE(c.hasModificationState(ConnectionEntry::State_New));
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Star

TEST(CallsignTableStar, EmptyTableGivesOneEmptySet)
{
    CallsignTable t;
    t.overview.keyText1 = std::string("net");
    CallsignTable star;
    const std::string printed = sigdbtest::captureStdout([&] { star = t.asStar(); });
    EXPECT_EQ(printed, "");
    EXPECT_EQ(star.connections.count(), 0);
    ASSERT_EQ(star.sets.count(), 1);
    EXPECT_TRUE(star.sets.container()[0].firstValue.isNull());
    EXPECT_TRUE(star.sets.container()[0].secondValue.isNull());
    EXPECT_EQ(star.sets.container()[0].entries.count(), 0);
    EXPECT_EQ(star.overview.networkTypeWord.getData(), 2);
    EXPECT_FALSE(star.overview.networkTypeWord.isNull());
    EXPECT_EQ(star.overview.keyText1.getData(), "net");
}

TEST(CallsignTableStar, CommonElementGathersItsCallsigns)
{
    const CallsignTable t = table({connection(1, end(A, "a"), end(B, "b")), connection(2, end(A, "a"), end(C, "c"))},
                                  {set({callsigns("X", "x2", "B1", "b2"), callsigns("Y", "y2", "C1", "c2")})});
    const CallsignTable star = t.asStar();
    ASSERT_EQ(star.connections.count(), 3);
    const std::vector<ConnectionEntry> &made = star.connections.container();
    EXPECT_TRUE(made[0].fromDefinition == end(A, "a"));
    EXPECT_TRUE(made[1].fromDefinition == end(B, "b"));
    EXPECT_TRUE(made[2].fromDefinition == end(C, "c"));
    for (int i = 0; i < 3; ++i) {
        expectMemberConnection(made[static_cast<size_t>(i)], i + 1);
        EXPECT_TRUE(made[static_cast<size_t>(i)].toDefinition == ConnectionEntryDefinition()) << "only a from end";
    }
    EXPECT_EQ(shownEntries(star),
              (std::vector<std::string>{"X/Y,x2/y2,<null>,<null>", "B1,b2,<null>,<null>", "C1,c2,<null>,<null>"}));
}

TEST(CallsignTableStar, ElementAtToEndsOnlyTakesThirdAndFourthCallsigns)
{
    const CallsignTable t = table({connection(1, A, B), connection(2, C, B), connection(3, D, B)},
                                  {set({callsigns("a", "a2", "B1", "b1"), callsigns("c", "c2", "B2", "b2"),
                                        callsigns("d", "d2", "B1", "b3")})});
    const CallsignTable star = t.asStar();
    ASSERT_EQ(star.connections.count(), 4);
    EXPECT_TRUE(star.connections.container()[1].fromDefinition.element == B);
    EXPECT_EQ(shownEntries(star)[1], "B1/B2,b1/b2/b3,<null>,<null>");
}

TEST(CallsignTableStar, UndefinedEndsContributeNothingButUseTheirEntry)
{
    const CallsignTable t = table({connection(1, undefinedElement(), undefinedElement()), connection(2, A, B)},
                                  {set({callsigns("U1", "U2", "U3", "U4"), callsigns("X", "x", "Y", "y")})});
    const CallsignTable star = t.asStar();
    ASSERT_EQ(star.connections.count(), 2);
    EXPECT_TRUE(star.connections.container()[0].fromDefinition.element == A);
    EXPECT_EQ(star.connections.container()[0].secondNumber.getData(), 1);
    EXPECT_EQ(shownEntries(star), (std::vector<std::string>{"X,x,<null>,<null>", "Y,y,<null>,<null>"}));
}

TEST(CallsignTableStar, RelayMetAgainMarksTheStarConnection)
{
    const CallsignTable t = table({connection(1, end(A), end(B)), connection(2, end(C), relayEnd(B)),
                                   connection(3, relayEnd(A), end(D))},
                                  {set({callsigns("a"), callsigns("c"), callsigns("a")})});
    const CallsignTable star = t.asStar();
    ASSERT_EQ(star.connections.count(), 4);
    const ConnectionEntry &a = star.connections.container()[0];
    const ConnectionEntry &b = star.connections.container()[1];
    const ConnectionEntry &c = star.connections.container()[2];
    EXPECT_TRUE(b.fromDefinition.element == B);
    EXPECT_TRUE(b.fromDefinition.isRelay());
    EXPECT_TRUE(a.fromDefinition.isRelay());
    EXPECT_TRUE(c.fromDefinition.relay.isNull());
}

TEST(CallsignTableStar, MissingEntriesAreReportedAndLeaveCallsignsOut)
{
    const CallsignTable t = table({connection(1, A, B), connection(2, A, C)}, {set({callsigns("X", "x", "B", "b")})});
    CallsignTable star;
    const std::string printed = sigdbtest::captureStdout([&] { star = t.asStar(); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asStar::no call sign entry for connection\n");
    ASSERT_EQ(star.connections.count(), 3);
    EXPECT_EQ(shownEntries(star),
              (std::vector<std::string>{"X,x,<null>,<null>", "B,b,<null>,<null>", "<null>,<null>,<null>,<null>"}));

    const CallsignTable withoutSets = table({connection(1, A, B), connection(2, A, C)}, {});
    const std::string twice = sigdbtest::captureStdout([&] { star = withoutSets.asStar(); });
    EXPECT_EQ(twice, "___ERROR___ CallsignTable::asStar::no call sign entry for connection\n"
                     "___ERROR___ CallsignTable::asStar::no call sign entry for connection\n");
    EXPECT_EQ(star.connections.count(), 3);
}

TEST(CallsignTableStar, ResultReplacesTheNetworkWordAndDropsFurtherSets)
{
    CallsignTable t = table({connection(1, A, B)}, {set({callsigns("X")}), set({callsigns("Y")})});
    t.overview.addNetworkType(1);
    t.overview.setIsMemberOfNetworkInMdl();
    t.base::DbBaseType::setLayer(2);
    const CallsignTable before = t;
    const CallsignTable star = t.asStar();
    EXPECT_EQ(star.overview.networkTypeWord.getData(), 2);
    EXPECT_EQ(star.overview.networkType(), 2);
    EXPECT_EQ(star.sets.count(), 1);
    EXPECT_EQ(star.layer(), 2);
    EXPECT_TRUE(t == before) << "the table itself is unchanged";
    EXPECT_EQ(t.overview.networkTypeWord.getData(), 17);
}

// ---------------------------------------------------------------------------------------------
// Hierarchy

TEST(CallsignTableHierarchy, TriangleAroundTheCentre)
{
    const CallsignTable t =
        table({connection(1, end(C, "c"), end(A, "a")), connection(2, end(C, "c"), end(B, "b")),
               connection(3, end(A, "a"), end(B, "b"))},
              {set({callsigns("c1", "c2", "a1", "a2"), callsigns("c3", "c4", "b1", "b2"),
                    callsigns("a3", "a4", "b3", "b4")})});
    CallsignTable hierarchy;
    const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    EXPECT_EQ(printed, "AS HIERARCHICAL\n");
    ASSERT_EQ(hierarchy.connections.count(), 2);
    for (int i = 0; i < 2; ++i) {
        const ConnectionEntry &made = hierarchy.connections.container()[static_cast<size_t>(i)];
        expectMemberConnection(made, i + 1);
        EXPECT_TRUE(made.fromDefinition == end(C, "c"));
        EXPECT_FALSE(made.toDefinition.rcs.isNull());
        EXPECT_FALSE(made.toDefinition.rcs.getData());
    }
    EXPECT_TRUE(hierarchy.connections.container()[0].toDefinition.element == A);
    EXPECT_TRUE(hierarchy.connections.container()[1].toDefinition.element == B);
    EXPECT_EQ(shownEntries(hierarchy),
              (std::vector<std::string>{"c1/c3,c2/c4,a1/a3,a2/a4", "c1/c3,c2/c4,b1/b3,b2/b4"}));
    ASSERT_EQ(hierarchy.sets.count(), 1);
    EXPECT_TRUE(hierarchy.sets.container()[0].firstValue.isNull());
    EXPECT_EQ(hierarchy.overview.networkTypeWord.getData(), 3);
}

TEST(CallsignTableHierarchy, CentreAtAToEndGivesItsThirdAndFourthCallsigns)
{
    const CallsignTable t = table({connection(1, A, C), connection(2, C, B)},
                                  {set({callsigns("a1", "a2", "c1", "c2"), callsigns("c3", "c4", "b1", "b2")})});
    CallsignTable hierarchy;
    sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    EXPECT_EQ(shownEntries(hierarchy), (std::vector<std::string>{"c1/c3,c2/c4,a1,a2", "c1/c3,c2/c4,b1,b2"}));
}

TEST(CallsignTableHierarchy, UndefinedCentreIsTheRcs)
{
    const CallsignTable t = table({connection(1, end(A), end(B)), connection(2, end(D), rcsEnd(C))},
                                  {set({callsigns("a", "a2", "b", "b2"), callsigns("d", "d2", "c", "c2")})});
    CallsignTable hierarchy;
    sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(SigdbElement()); });
    ASSERT_EQ(hierarchy.connections.count(), 3);
    for (const ConnectionEntry &made : hierarchy.connections.container()) {
        EXPECT_TRUE(made.fromDefinition.element == C);
        EXPECT_TRUE(made.fromDefinition.isRCS());
    }
    EXPECT_TRUE(hierarchy.connections.container()[2].toDefinition.element == D);
    EXPECT_EQ(shownEntries(hierarchy), (std::vector<std::string>{"c,c2,a,a2", "c,c2,b,b2", "c,c2,d,d2"}));
}

TEST(CallsignTableHierarchy, CentreNotInTheTableReturnsItUnchanged)
{
    CallsignTable t = table({connection(1, A, B)}, {set({callsigns("a", "b", "c", "d")})});
    t.overview.networkTypeWord = 1;
    CallsignTable hierarchy;
    const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(D); });
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(hierarchy == t);
    EXPECT_EQ(hierarchy.overview.networkTypeWord.getData(), 1);
    EXPECT_EQ(hierarchy.connections.container()[0].TID(), 1u);
}

TEST(CallsignTableHierarchy, OnlyUndefinedEndsNameNoCentre)
{
    // With no defined end there is no centre, so no definition of it: the table comes back
    // as it is.
    const CallsignTable t = table({connection(1, undefinedElement(), undefinedElement())}, {set({callsigns("a")})});
    CallsignTable hierarchy;
    const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(SigdbElement()); });
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(hierarchy == t);
}

TEST(CallsignTableHierarchy, CentreAloneGivesOneRcsConnection)
{
    const CallsignTable t = table({connection(1, end(C, "c"), end(undefinedElement())), connection(2, end(undefinedElement()), end(C, "c"))},
                                  {set({callsigns("c1", "c2", "u3", "u4"), callsigns("u1", "u2", "c3", "c4")})});
    for (const SigdbElement &centre : {C, SigdbElement()}) {
        CallsignTable hierarchy;
        const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(centre); });
        EXPECT_EQ(printed, "CallsignTable::asHierarchical:: only one member - create member A connection with RCS\n"
                           "AS HIERARCHICAL\n");
        ASSERT_EQ(hierarchy.connections.count(), 1);
        const ConnectionEntry &made = hierarchy.connections.container()[0];
        expectMemberConnection(made, 1);
        EXPECT_TRUE(made.fromDefinition.element == C);
        EXPECT_TRUE(made.fromDefinition.isRCS());
        EXPECT_TRUE(made.toDefinition == ConnectionEntryDefinition());
        EXPECT_EQ(shownEntries(hierarchy), (std::vector<std::string>{"c1,c2,<null>,<null>"}));
        EXPECT_EQ(hierarchy.overview.networkTypeWord.getData(), 3);
    }
}

TEST(CallsignTableHierarchy, CentreAloneWithoutSetsTakesADefaultEntry)
{
    const CallsignTable t = table({connection(1, end(C), end(undefinedElement()))}, {});
    CallsignTable hierarchy;
    const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asHierarchical::no call sign entry for connection\n"
                       "CallsignTable::asHierarchical:: only one member - create member A connection with RCS\n"
                       "AS HIERARCHICAL\n");
    EXPECT_EQ(shownEntries(hierarchy), (std::vector<std::string>{"<null>,<null>,<null>,<null>"}));
}

TEST(CallsignTableHierarchy, ConnectionWithoutEntryContributesNothing)
{
    const CallsignTable t = table({connection(1, C, A), connection(2, C, B)}, {set({callsigns("c1", "c2", "a1", "a2")})});
    CallsignTable hierarchy;
    const std::string printed = sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asHierarchical::no call sign entry for connection\n"
                       "AS HIERARCHICAL\n");
    ASSERT_EQ(hierarchy.connections.count(), 1);
    EXPECT_TRUE(hierarchy.connections.container()[0].toDefinition.element == A);
    EXPECT_EQ(shownEntries(hierarchy), (std::vector<std::string>{"c1,c2,a1,a2"}));
}

TEST(CallsignTableHierarchy, RelayMetAgainMarksTheMemberEnd)
{
    const CallsignTable t =
        table({connection(1, end(C), rcsEnd(A)), connection(2, end(B), relayEnd(A)), connection(3, relayEnd(B), end(C))},
              {set({callsigns("c"), callsigns("b"), callsigns("b")})});
    CallsignTable hierarchy;
    sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    ASSERT_EQ(hierarchy.connections.count(), 2);
    const ConnectionEntry &toA = hierarchy.connections.container()[0];
    const ConnectionEntry &toB = hierarchy.connections.container()[1];
    EXPECT_TRUE(toA.toDefinition.element == A);
    EXPECT_TRUE(toA.toDefinition.isRelay());
    EXPECT_FALSE(toA.toDefinition.isRCS()) << "a member end is never an RCS";
    EXPECT_TRUE(toB.toDefinition.isRelay());
    EXPECT_TRUE(toB.fromDefinition.relay.isNull());
}

TEST(CallsignTableHierarchy, ResultReplacesTheNetworkWord)
{
    CallsignTable t = table({connection(1, C, A)}, {set({callsigns("c", "c", "a", "a")})});
    t.overview.networkTypeWord = 2 + 32;
    const CallsignTable before = t;
    CallsignTable hierarchy;
    sigdbtest::captureStdout([&] { hierarchy = t.asHierarchical(C); });
    EXPECT_EQ(hierarchy.overview.networkTypeWord.getData(), 3);
    EXPECT_TRUE(t == before);
}

// ---------------------------------------------------------------------------------------------
// Safeguards of the conversions that consistent tables never reach

TEST(TableConversion, CountTextsDifferByTheBlankBeforeTheLineEnd)
{
    using namespace tableconversion;
    GatheredMembers members(&CallsignEntry::firstCallsign, &CallsignEntry::secondCallsign,
                            &ConnectionEntry::fromDefinition);
    const std::string printed = sigdbtest::captureStdout([&] {
        members.addOccurrence(3, {}, false, kStarTexts.fromEndCount);
        members.addOccurrence(4, {}, false, kStarTexts.toEndCount);
        members.addOccurrence(5, {}, false, kHierarchicalTexts.fromEndCount);
        members.addOccurrence(6, {}, false, kHierarchicalTexts.toEndCount);
        members.addOccurrence(-1, {}, true, kStarTexts.fromEndCount);
    });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asStar:: callsignEntryList.count() 0 < index 3\n"
                       "___ERROR___ CallsignTable::asStar:: callsignEntryList.count() 0 < index 4 \n"
                       "___ERROR___ CallsignTable::asHierarchical:: callsignEntryList.count() 0 < index 5\n"
                       "___ERROR___ CallsignTable::asHierarchical:: callsignEntryList.count() 0 < index 6 \n");
}

TEST(TableConversion, RelayReachesAConnectionEvenWithoutItsEntry)
{
    using namespace tableconversion;
    GatheredMembers members(&CallsignEntry::thirdCallsign, &CallsignEntry::fourthCallsign,
                            &ConnectionEntry::toDefinition);
    members.connections.appendEntry(ConnectionEntry());
    const std::string printed =
        sigdbtest::captureStdout([&] { members.addOccurrence(0, {}, true, kHierarchicalTexts.toEndCount); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asHierarchical:: callsignEntryList.count() 0 < index 0 \n");
    EXPECT_TRUE(members.connections.container()[0].toDefinition.isRelay());
}

TEST(TableConversion, EntriesWithoutAMemberAreEmptied)
{
    using namespace tableconversion;
    GatheredMembers members(&CallsignEntry::thirdCallsign, &CallsignEntry::fourthCallsign,
                            &ConnectionEntry::toDefinition);
    members.connections.appendEntry(connection(0, C, A));
    members.connections.appendEntry(connection(0, C, undefinedElement()));
    for (int i = 0; i < 3; ++i)
        members.entries.appendEntry(callsigns("n/a", "n/a", "x", "y"));
    const std::string printed = sigdbtest::captureStdout([&] { members.nameCentre(text("c1"), text("c2")); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asHierarchical:: member A connection\n"
                       "___ERROR___ CallsignTable::asHierarchical:: no connection entry\n");
    const std::vector<CallsignEntry> &entries = members.entries.container();
    EXPECT_EQ(show(entries[0]), "c1,c2,x,y");
    EXPECT_EQ(show(entries[1]), ",,,");
    EXPECT_FALSE(entries[1].firstCallsign.isNull());
    EXPECT_EQ(show(entries[2]), ",,,");
    EXPECT_FALSE(entries[2].fourthCallsign.isNull());
}

TEST(TableConversion, NothingToConvertWithoutConnections)
{
    using namespace tableconversion;
    GatheredMembers members(&CallsignEntry::thirdCallsign, &CallsignEntry::fourthCallsign,
                            &ConnectionEntry::toDefinition);
    const std::string printed = sigdbtest::captureStdout([&] { addLoneCentre(CallsignTable(), members); });
    EXPECT_EQ(printed, "___ERROR___ CallsignTable::asHierarchical:: no connection entry converted\n");
    EXPECT_EQ(members.connections.count(), 0);
}
