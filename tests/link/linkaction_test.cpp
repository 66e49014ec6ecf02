#include "link/linkaction.h"

#include "core/linkdefinition.h"

#include "linktestutil.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using linktest::element;
using linktest::link;
using sigdb::LinkAction;

// ---------------------------------------------------------------------------------------------
// Construction, copying, reset

TEST(LinkAction, DefaultLinkIsUndefined)
{
    const LinkAction l;
    EXPECT_TRUE(l.isUndefined());
    EXPECT_EQ(l.actionType(), 0);
    EXPECT_TRUE(l.orderNumber().isNull());
    EXPECT_EQ(l.orderNumber().getData(), -1);
    EXPECT_FALSE(l.linkExists());
    EXPECT_TRUE(l.fromElement().isUndefined());
    EXPECT_TRUE(l.toElement().isUndefined());
    EXPECT_EQ(l.tableName(), "");
    EXPECT_EQ(l.tableAbbrevation(), "");
    EXPECT_EQ(l.fkTidName(), "");
    EXPECT_EQ(l.fieldNameFrom(), "");
    EXPECT_EQ(l.fieldNameTo(), "");
}

TEST(LinkAction, CopyAndAssignmentCopyEverything)
{
    LinkAction l = link(1, 3, 11);
    l.setOrderNumber(4);
    l.setLinkExists(true);
    l.setTID(77);
    l.setLayer(2);
    l.setTableNameAndAbbrevation(1, "_X");

    const LinkAction copy(l);
    LinkAction assigned;
    assigned = l;
    for (const LinkAction *c : {&copy, static_cast<const LinkAction *>(&assigned)}) {
        EXPECT_EQ(c->fromElement().type(), 1);
        EXPECT_EQ(c->toElement().TID(), 200u);
        EXPECT_EQ(c->actionType(), 11);
        EXPECT_EQ(c->orderNumber().getData(), 4);
        EXPECT_TRUE(c->linkExists());
        EXPECT_EQ(c->TID(), 77u);
        EXPECT_EQ(c->layer(), 2);
        EXPECT_EQ(c->tableName(), "CORETRANSCEIVER");
        EXPECT_EQ(c->tableAbbrevation(), "RMLUT");
        EXPECT_EQ(c->columnPrefix(), "UNI_X");
    }
}

TEST(LinkAction, GetCopyReturnsALinkAction)
{
    LinkAction l = link(1, 3, 11);
    l.setOrderNumber(4);
    base::DbBaseType *copy = l.getCopy(&l);
    auto *copiedLink = dynamic_cast<LinkAction *>(copy);
    ASSERT_NE(copiedLink, nullptr);
    EXPECT_EQ(*copiedLink, l);
    EXPECT_EQ(copiedLink->orderNumber().getData(), 4);
    delete copy;
}

TEST(LinkAction, ResetKeepsTheStoredNames)
{
    LinkAction l = link(1, 3, 11);
    l.setOrderNumber(4);
    l.setLinkExists(true);
    l.setTID(77);
    l.setTableNameAndAbbrevation(1, nullptr);
    l.reset();
    EXPECT_EQ(l.actionType(), 0);
    EXPECT_TRUE(l.orderNumber().isNull());
    EXPECT_EQ(l.orderNumber().getData(), -1);
    EXPECT_FALSE(l.linkExists());
    EXPECT_TRUE(l.isTIDundefined());
    EXPECT_EQ(l.fromElement().type(), 0);
    EXPECT_TRUE(l.toElement().isTIDundefined());
    EXPECT_EQ(l.tableName(), "CORETRANSCEIVER");
    EXPECT_EQ(l.tableAbbrevation(), "RMLUT");
    EXPECT_EQ(l.fkTidName(), "TID");
    EXPECT_EQ(l.fieldNameFrom(), "UNITID");
    EXPECT_EQ(l.fieldNameTo(), "TRXTID");
}

TEST(LinkAction, ClearedOrderNumberIsNullWithMinusOne)
{
    LinkAction l;
    l.setOrderNumber(9);
    EXPECT_FALSE(l.orderNumber().isNull());
    l.clearOrderNumber();
    EXPECT_TRUE(l.orderNumber().isNull());
    EXPECT_EQ(l.orderNumber().getData(), -1);
    l.setOrderNumber(base::DbDataType<int>());
    EXPECT_EQ(l.orderNumber().getData(), -1);
}

// ---------------------------------------------------------------------------------------------
// Action types

struct ActionEndsCase
{
    int actionType;
    int typeA;
    int typeB;
};

class ActionEnds : public testing::TestWithParam<ActionEndsCase>
{
};

TEST_P(ActionEnds, ActionTypeGivesBothEndsTheirTypes)
{
    LinkAction l = link(99, 98, GetParam().actionType);
    l.setElementTypesFromLinkActionType();
    EXPECT_EQ(l.fromElement().type(), GetParam().typeA);
    EXPECT_EQ(l.toElement().type(), GetParam().typeB);
    EXPECT_EQ(l.fromElement().TID(), 100u);
    EXPECT_EQ(l.toElement().TID(), 200u);
}

INSTANTIATE_TEST_SUITE_P(LinkAction, ActionEnds,
                         testing::Values(ActionEndsCase{8, 5, 26}, ActionEndsCase{9, 3, 5},
                                         ActionEndsCase{10, 1, 2}, ActionEndsCase{11, 1, 3},
                                         ActionEndsCase{12, 1, 6}, ActionEndsCase{13, 1, 1},
                                         ActionEndsCase{14, 2, 2}, ActionEndsCase{15, 3, 2},
                                         ActionEndsCase{16, 5, 4},
                                         // other action types leave the ends alone
                                         ActionEndsCase{0, 99, 98}, ActionEndsCase{7, 99, 98},
                                         ActionEndsCase{17, 99, 98}, ActionEndsCase{-1, 99, 98}));

// ---------------------------------------------------------------------------------------------
// Link table aliases

struct AliasCase
{
    int typeA;
    int typeB;
    const char *alias;
};

class TableAlias : public testing::TestWithParam<AliasCase>
{
};

TEST_P(TableAlias, AliasOfThePairInThisDirection)
{
    const AliasCase &c = GetParam();
    EXPECT_EQ(LinkAction::linkTableAlias(c.typeA, c.typeB), c.alias);
    EXPECT_EQ(link(c.typeA, c.typeB).tableAlias(), c.alias);
}

INSTANTIATE_TEST_SUITE_P(
    LinkAction, TableAlias,
    testing::Values(AliasCase{1, 1, "COLUU"}, AliasCase{1, 2, "COLUI"}, AliasCase{1, 3, "RMLUT"},
                    AliasCase{1, 6, "COLUP"}, AliasCase{1, 63, "RALCT"}, AliasCase{3, 5, "RMLTP"},
                    AliasCase{63, 65, "RALTP"}, AliasCase{88, 87, "RALMP"},
                    AliasCase{90, 91, "RALCS"}, AliasCase{92, 93, "RALMS"},
                    AliasCase{87, 86, "RALPS"}, AliasCase{105, 88, "RALMM"},
                    AliasCase{125, 88, "RALPM"}, AliasCase{112, 113, "RALSS"},
                    // directional: the reversed pairs have none
                    AliasCase{2, 1, ""}, AliasCase{3, 1, ""}, AliasCase{5, 3, ""},
                    AliasCase{88, 105, ""},
                    // pairs answered empty on purpose
                    AliasCase{1, 4, ""}, AliasCase{1, 27, ""}, AliasCase{2, 2, ""},
                    AliasCase{2, 3, ""}, AliasCase{2, 4, ""}, AliasCase{2, 27, ""},
                    AliasCase{4, 1, ""}, AliasCase{5, 26, ""}, AliasCase{29, 3, ""},
                    AliasCase{30, 1, ""}, AliasCase{0, 0, ""}));

// ---------------------------------------------------------------------------------------------
// Naming with the built-in schema

TEST(LinkAction, TableNameIsTheCoreLibrarysLinkTableName)
{
    EXPECT_EQ(LinkAction::tableName(5, 26), sigdb::SigdbElement::linkTableNameforTypes(5, 26));
    EXPECT_EQ(LinkAction::tableName(5, 26), "REFPROPRLLINK");
    EXPECT_EQ(LinkAction::tableName(29, 3), "LOCPLTTRXLINK");
}

TEST(LinkAction, NetworkConnectionLivesInTheConnectionTable)
{
    const LinkAction l = link(4, 1);
    ASSERT_FALSE(l.isUniqueLink());
    EXPECT_EQ(l.myTableName(), "CORECONNECTION");
    EXPECT_EQ(link(2, 4).myTableName(), "CORECONNECTION");
}

TEST(LinkAction, NetworkConnectionFieldNameLeavesThePlaceholder)
{
    EXPECT_EQ(link(4, 1).myFieldNameFrom(), "NETATID = %1 OR NETBTID");
    EXPECT_EQ(link(1, 4).myFieldNameFrom(), "UNIATID = %1 OR UNIBTID");
    // the "to" field has no connection form
    EXPECT_EQ(link(4, 1).myFieldNameTo(), "UNITID");
}

TEST(LinkAction, PlainFieldNamesAreAbbreviationAndTid)
{
    const LinkAction l = link(5, 26);
    EXPECT_EQ(l.myFieldNameFrom(), "PROTID");
    EXPECT_EQ(l.myFieldNameTo(), "PRLTID");
}

TEST(LinkAction, UniqueLinkLivesInTheTableOfItsToElement)
{
    // 2 -> 1 and 1 -> 3 are unique in the built-in schema
    EXPECT_EQ(link(2, 1).myTableName(), "COREUNIT");
    EXPECT_EQ(link(1, 3).myTableName(), "CORETRANSCEIVER");
    EXPECT_EQ(link(2, 1).myColumnPrefix(), "PLA");
}

TEST(LinkAction, OtherLinksLiveInTheirLinkTable)
{
    EXPECT_EQ(link(5, 26).myTableName(), "REFPROPRLLINK");
    EXPECT_EQ(link(5, 26).myColumnPrefix(), "");
}

TEST(LinkAction, ForeignKeyNameOfOrdinaryLinksIsTid)
{
    EXPECT_EQ(link(4, 1).myFkTidName(4), "TID");
    EXPECT_EQ(link(1, 3).myFkTidName(3), "TID");
    EXPECT_EQ(link(29, 3).myFkTidName(29), "TID");
}

TEST(LinkAction, ForeignKeyNameOfTspAndProfileListLinksIsTheFieldName)
{
    const LinkAction tsp = link(27, 1);
    EXPECT_EQ(tsp.myFkTidName(27), "TSPTID");
    EXPECT_EQ(tsp.myFkTidName(1), "UNITID");
    const LinkAction profileList = link(5, 26);
    EXPECT_EQ(profileList.myFkTidName(5), "PROTID");
    EXPECT_EQ(profileList.myFkTidName(26), "PRLTID");
    // any type other than A's counts as the "to" end
    EXPECT_EQ(profileList.myFkTidName(3), "PRLTID");
    // a network and a TSP partner are no network connection: plain field names
    EXPECT_EQ(link(4, 27).myFkTidName(4), "NETTID");
    EXPECT_EQ(link(4, 27).myFkTidName(27), "TSPTID");
}

TEST(LinkAction, LinkPrefixSkipsTheCorePrefix)
{
    EXPECT_EQ(link(1, 5).linkPrefix(), "REF");
    EXPECT_EQ(link(5, 1).linkPrefix(), "REF");
    EXPECT_EQ(link(29, 3).linkPrefix(), "LOC");
    EXPECT_EQ(link(1, 3).linkPrefix(), "CORE");
}

struct StoredNamesCase
{
    const char *name;
    int typeA;
    int typeB;
    int endType;
    const char *suffix;
    const char *tableName;
    const char *tableAbbrevation;
    const char *fkTidName;
    const char *fieldNameFrom;
    const char *fieldNameTo;
    const char *columnPrefix;
    const char *convertedNAME; // convertedColumnName("NAME")
};

class StoredNames : public testing::TestWithParam<StoredNamesCase>
{
};

TEST_P(StoredNames, ComputedAndStoredInOneGo)
{
    const StoredNamesCase &c = GetParam();
    LinkAction l = link(c.typeA, c.typeB);
    l.setTableNameAndAbbrevation(c.endType, c.suffix);
    EXPECT_EQ(l.tableName(), c.tableName);
    EXPECT_EQ(l.tableAbbrevation(), c.tableAbbrevation);
    EXPECT_EQ(l.fkTidName(), c.fkTidName);
    EXPECT_EQ(l.fieldNameFrom(), c.fieldNameFrom);
    EXPECT_EQ(l.fieldNameTo(), c.fieldNameTo);
    EXPECT_EQ(l.columnPrefix(), c.columnPrefix);
    EXPECT_EQ(l.convertedColumnName("NAME"), c.convertedNAME);
}

INSTANTIATE_TEST_SUITE_P(
    LinkAction, StoredNames,
    testing::Values(
        // unique: stored in the transceiver table, columns prefixed with the unit's abbreviation
        StoredNamesCase{"UniqueWithoutSuffix", 1, 3, 3, nullptr, "CORETRANSCEIVER", "RMLUT",
                        "TID", "UNITID", "TRXTID", "UNI", "UNINAME"},
        StoredNamesCase{"UniqueWithSuffix", 1, 3, 3, "_X", "CORETRANSCEIVER", "RMLUT", "TID",
                        "UNITID", "TRXTID", "UNI_X", "UNI_XNAME"},
        // not unique: the stored prefix is the suffix alone, and names are not converted
        StoredNamesCase{"NetworkConnection", 4, 2, 4, "_X", "CORECONNECTION", "", "TID",
                        "NETATID = %1 OR NETBTID", "PLATID", "_X", "NAME"},
        StoredNamesCase{"ProfileList", 5, 26, 26, nullptr, "REFPROPRLLINK", "", "PRLTID",
                        "PROTID", "PRLTID", "", "NAME"},
        StoredNamesCase{"TspPartner", 27, 2, 27, nullptr, "REFTSPPLALINK", "", "TSPTID",
                        "TSPTID", "PLATID", "", "NAME"}),
    [](const testing::TestParamInfo<StoredNamesCase> &info) { return info.param.name; });

TEST(LinkAction, UniqueLinkWithoutStoredPrefixUsesTheFromAbbreviation)
{
    const LinkAction l = link(2, 1);
    EXPECT_EQ(l.columnPrefix(), "PLA");
    EXPECT_EQ(l.convertedColumnName("NAME"), "PLANAME");
    EXPECT_EQ(l.convertedColumnName(nullptr), "PLA");
}

TEST(LinkAction, ColumnNamesOfOtherLinksAreUnchanged)
{
    const LinkAction l = link(5, 26);
    EXPECT_EQ(l.columnPrefix(), "");
    EXPECT_EQ(l.convertedColumnName("NAME"), "NAME");
    EXPECT_EQ(l.convertedColumnName(nullptr), "");
}

// ---------------------------------------------------------------------------------------------
// Naming and classification with a schema of the test's own

using LinkActionSchema = linktest::SmallSchema;

TEST_F(LinkActionSchema, NetworkConnectionDeclaredUniqueLivesInTheMemberTable)
{
    const LinkAction unique = link(4, 1);
    ASSERT_TRUE(unique.isUniqueLink());
    EXPECT_TRUE(unique.isNetworkConnection());
    EXPECT_EQ(unique.myTableName(), "COREUNIT");
    EXPECT_EQ(unique.myColumnPrefix(), "NET");
    EXPECT_EQ(link(4, 2).myTableName(), "CORECONNECTION");
}

TEST_F(LinkActionSchema, LinkTableNameFromTheSchema)
{
    EXPECT_EQ(link(3, 5).myTableName(), "TRXPROFILES");
    EXPECT_EQ(link(5, 26).myTableName(), "REFPROPRLLINK");
}

TEST_F(LinkActionSchema, UniqueAndValidFollowTheSchema)
{
    EXPECT_TRUE(LinkAction::isUniqueLinkType(4, 1));
    EXPECT_FALSE(LinkAction::isUniqueLinkType(1, 4));
    EXPECT_FALSE(LinkAction::isUniqueLinkType(4, 2));
    EXPECT_FALSE(LinkAction::isUniqueLinkType(2, 1)); // unique only in the built-in schema
    EXPECT_TRUE(link(1, 3).isUniqueLink());

    EXPECT_TRUE(LinkAction::isValidLinkType(4, 2));
    EXPECT_FALSE(LinkAction::isValidLinkType(2, 4));
    EXPECT_TRUE(LinkAction::isValidLink(element(5, 1), element(26, 2)));
    EXPECT_FALSE(LinkAction::isValidLink(element(26, 1), element(5, 2)));
    EXPECT_TRUE(link(7, 7).isNormalized());
    EXPECT_FALSE(link(26, 5).isNormalized());
}

TEST_F(LinkActionSchema, HierarchicalLinksAreUniqueBetweenOneType)
{
    EXPECT_TRUE(link(7, 7).isHierarchicalLink());
    EXPECT_TRUE(LinkAction::isHierarchicalLinkType(7, 7));
    EXPECT_FALSE(LinkAction::isHierarchicalLinkType(1, 1)); // not declared here
    EXPECT_FALSE(LinkAction::isHierarchicalLinkType(2, 2)); // valid, not unique
    EXPECT_FALSE(LinkAction::isHierarchicalLinkType(4, 1)); // unique, two types
}

TEST_F(LinkActionSchema, OrderedLinksFollowTheFromTable)
{
    EXPECT_TRUE(link(5, 26).isOrderedLink());
    EXPECT_FALSE(link(26, 5).isOrderedLink());
    EXPECT_FALSE(link(5, 4).isOrderedLink());
    EXPECT_FALSE(link(99, 26).isOrderedLink()); // unknown type
}

TEST_F(LinkActionSchema, SuperiorLinksFollowTheToTable)
{
    EXPECT_TRUE(link(1, 3).isSuperiorLink());
    EXPECT_TRUE(LinkAction::isSuperiorLinkType(1, 3));
    EXPECT_FALSE(LinkAction::isSuperiorLinkType(3, 1));
    EXPECT_FALSE(LinkAction::isSuperiorLinkType(2, 3));
    EXPECT_FALSE(LinkAction::isSuperiorLinkType(2, 1)); // units have no superior here
}

TEST(LinkAction, SuperiorLinksOfTheBuiltInSchema)
{
    EXPECT_TRUE(LinkAction::isSuperiorLinkType(2, 1));
    EXPECT_TRUE(LinkAction::isSuperiorLinkType(1, 3));
    EXPECT_TRUE(LinkAction::isSuperiorLinkType(4, 30));
    EXPECT_FALSE(LinkAction::isSuperiorLinkType(1, 2));
}

TEST(LinkAction, OrderedLinksOfTheBuiltInSchema)
{
    EXPECT_TRUE(link(5, 26).isOrderedLink());
    EXPECT_FALSE(link(4, 1).isOrderedLink());
}

// ---------------------------------------------------------------------------------------------
// Classification by element types

struct TypePredicateCase
{
    const char *name;
    bool (LinkAction::*predicate)() const;
    std::vector<std::pair<int, int>> yes;
    std::vector<std::pair<int, int>> no;
};

class TypePredicate : public testing::TestWithParam<TypePredicateCase>
{
};

TEST_P(TypePredicate, HoldsExactlyForItsPairs)
{
    const TypePredicateCase &c = GetParam();
    for (const auto &pair : c.yes)
        EXPECT_TRUE((link(pair.first, pair.second).*c.predicate)())
            << c.name << " (" << pair.first << ", " << pair.second << ")";
    for (const auto &pair : c.no)
        EXPECT_FALSE((link(pair.first, pair.second).*c.predicate)())
            << c.name << " (" << pair.first << ", " << pair.second << ")";
}

INSTANTIATE_TEST_SUITE_P(
    LinkAction, TypePredicate,
    testing::Values(
        TypePredicateCase{"isNetworkConnection", &LinkAction::isNetworkConnection,
                          {{4, 1}, {4, 2}, {1, 4}, {2, 4}},
                          {{4, 3}, {3, 4}, {4, 4}, {1, 2}, {4, 5}}},
        TypePredicateCase{"isNetworkProfileLink", &LinkAction::isNetworkProfileLink,
                          {{4, 5}, {5, 4}},
                          {{4, 26}, {5, 5}, {4, 1}}},
        TypePredicateCase{"isFunction", &LinkAction::isFunction, {{1, 6}}, {{6, 1}, {2, 6}}},
        TypePredicateCase{"isPlotTransceiverLink", &LinkAction::isPlotTransceiverLink,
                          {{29, 3}},
                          {{3, 29}, {29, 1}}},
        TypePredicateCase{"isProfileListLink", &LinkAction::isProfileListLink,
                          {{26, 5}, {5, 26}},
                          {{26, 3}, {3, 5}, {26, 26}}},
        TypePredicateCase{"isProfileListImportLink", &LinkAction::isProfileListImportLink,
                          {{26, 5}, {5, 26}, {3, 5}, {5, 3}},
                          {{3, 26}, {26, 3}, {1, 5}}},
        TypePredicateCase{"isTspLink", &LinkAction::isTspLink,
                          {{27, 1}, {27, 2}, {27, 3}, {27, 4}, {1, 27}, {2, 27}, {3, 27}, {4, 27}},
                          {{27, 5}, {5, 27}, {27, 27}, {27, 6}, {1, 4}}},
        TypePredicateCase{"isNotApproveAbleLink", &LinkAction::isNotApproveAbleLink,
                          {{27, 1}, {4, 27}, {5, 26}, {26, 5}},
                          {{1, 3}, {4, 1}, {3, 5}}},
        TypePredicateCase{"isApproveAbleLink", &LinkAction::isApproveAbleLink,
                          {{1, 3}, {4, 1}, {3, 5}},
                          {{27, 1}, {4, 27}, {5, 26}, {26, 5}}},
        TypePredicateCase{"hasReserved1", &LinkAction::hasReserved1, {{3, 5}}, {{5, 3}, {3, 2}}}),
    [](const testing::TestParamInfo<TypePredicateCase> &info) { return info.param.name; });

TEST(LinkAction, StaticNetworkPredicatesTakeEitherDirection)
{
    EXPECT_TRUE(LinkAction::isNetworkLinkType(4, 2));
    EXPECT_TRUE(LinkAction::isNetworkLinkType(2, 4));
    EXPECT_FALSE(LinkAction::isNetworkLinkType(4, 27));
    EXPECT_TRUE(LinkAction::isNetworkProfileLinkType(5, 4));
    EXPECT_FALSE(LinkAction::isNetworkProfileLinkType(5, 2));
}

TEST(LinkAction, UndefinedMeansNoActionType)
{
    LinkAction l = link(1, 3);
    EXPECT_TRUE(l.isUndefined());
    l.setActionType(11);
    EXPECT_FALSE(l.isUndefined());
}

TEST(LinkAction, ExistenceInRelatedLayerNeedsExistenceAndAFlag)
{
    LinkAction l;
    l.setApvState(16);
    EXPECT_FALSE(l.linkExistsInRelatedLayer());
    l.setLinkExists(true);
    EXPECT_TRUE(l.linkExists());
    EXPECT_TRUE(l.linkExistsInRelatedLayer());
    l.setApvState(1024);
    EXPECT_TRUE(l.linkExistsInRelatedLayer());
    l.setApvState(256 | 128);
    EXPECT_FALSE(l.linkExistsInRelatedLayer());
}

TEST(LinkAction, ApprovalFlags)
{
    LinkAction l;
    EXPECT_FALSE(l.linkIsApproved());
    EXPECT_FALSE(l.linkIsToBeRemoved());
    l.setApvState(256);
    EXPECT_TRUE(l.linkIsApproved());
    EXPECT_FALSE(l.linkIsToBeRemoved());
    l.setApvState(128 | 16);
    EXPECT_FALSE(l.linkIsApproved());
    EXPECT_TRUE(l.linkIsToBeRemoved());
}

// ---------------------------------------------------------------------------------------------
// Normalisation, swapping, link definitions

TEST(LinkAction, NormalizeKeepsAValidDirection)
{
    LinkAction l = link(4, 1);
    EXPECT_TRUE(l.normalize());
    EXPECT_EQ(l.fromElement().type(), 4);
    EXPECT_EQ(l.toElement().type(), 1);
}

TEST(LinkAction, NormalizeSwapsAnInvalidDirection)
{
    LinkAction l = link(1, 4, 0, 11, 44);
    EXPECT_TRUE(l.normalize());
    EXPECT_EQ(l.fromElement().type(), 4);
    EXPECT_EQ(l.fromElement().TID(), 44u);
    EXPECT_EQ(l.toElement().type(), 1);
    EXPECT_EQ(l.toElement().TID(), 11u);
}

TEST(LinkAction, NormalizeOfAPairInvalidBothWaysLeavesItSwapped)
{
    LinkAction l = link(6, 29, 0, 66, 29);
    EXPECT_FALSE(l.normalize());
    EXPECT_EQ(l.fromElement().type(), 29);
    EXPECT_EQ(l.toElement().type(), 6);
    EXPECT_FALSE(l.normalize());
    EXPECT_EQ(l.fromElement().type(), 6);
}

TEST(LinkAction, NormalizeLinkOnFreeElements)
{
    sigdb::SigdbElement a = element(1, 11);
    sigdb::SigdbElement b = element(2, 22);
    EXPECT_TRUE(LinkAction::normalizeLink(a, b)); // 1 -> 2 is valid
    EXPECT_EQ(a.type(), 1);
    sigdb::SigdbElement c = element(5, 55);
    sigdb::SigdbElement d = element(4, 44);
    EXPECT_TRUE(LinkAction::normalizeLink(c, d));
    EXPECT_EQ(c.type(), 4);
    EXPECT_EQ(c.TID(), 44u);
    EXPECT_EQ(d.type(), 5);
    EXPECT_EQ(d.TID(), 55u);
}

TEST(LinkAction, SwappedActionExchangesOnlyTheEnds)
{
    LinkAction l = link(1, 3, 11);
    l.setOrderNumber(2);
    l.setTableNameAndAbbrevation(1, nullptr);
    const LinkAction swapped = l.getSwappedAction();
    EXPECT_EQ(swapped.fromElement().type(), 3);
    EXPECT_EQ(swapped.fromElement().TID(), 200u);
    EXPECT_EQ(swapped.toElement().type(), 1);
    EXPECT_EQ(swapped.toElement().TID(), 100u);
    EXPECT_EQ(swapped.actionType(), 11);
    EXPECT_EQ(swapped.orderNumber().getData(), 2);
    EXPECT_EQ(swapped.tableAbbrevation(), "RMLUT"); // not recomputed
    EXPECT_EQ(l.fromElement().type(), 1);            // the original stays
}

TEST(LinkAction, NormalizedActionIsACopyOrTheSwappedAction)
{
    const LinkAction valid = link(4, 5, 16);
    EXPECT_EQ(valid.getNormalizedAction(), valid);
    const LinkAction invalid = link(5, 4, 16);
    const LinkAction normalized = invalid.getNormalizedAction();
    EXPECT_EQ(normalized.fromElement().type(), 4);
    EXPECT_EQ(normalized.toElement().type(), 5);
    EXPECT_EQ(normalized, invalid.getSwappedAction());
}

TEST(LinkAction, LinkDefinitionIsStoredSwapped)
{
    LinkAction l = link(4, 1, 10);
    l.setTID(77);
    l.setName(base::DbDataType<std::string>("reserved"));
    l.setModificationDate(base::DbDataType<std::string>("2024-01-02"));
    const sigdb::LinkDefinition definition = l.asLinkDefinition();
    EXPECT_EQ(definition.elementA(), l.toElement());
    EXPECT_EQ(definition.elementB(), l.fromElement());
    EXPECT_EQ(definition.TID(), 77u);
    EXPECT_EQ(definition.name().getData(), "reserved");
    EXPECT_EQ(definition.modificationDate().getData(), "2024-01-02");
}

TEST(LinkAction, LinkDefinitionOfAProfileNetworkLinkKeepsTheDirection)
{
    const LinkAction l = link(5, 4, 16);
    const sigdb::LinkDefinition definition = l.asLinkDefinition();
    EXPECT_EQ(definition.elementA(), l.fromElement());
    EXPECT_EQ(definition.elementB(), l.toElement());
}

class LinkDefinitionRoundTrip : public testing::TestWithParam<int>
{
};

TEST_P(LinkDefinitionRoundTrip, ThereAndBackRestoresTheDirection)
{
    // every pair is valid in the built-in schema, so normalize() keeps what it gets
    const int actionType = GetParam();
    LinkAction l = link(1, 3, actionType);
    l.setElementTypesFromLinkActionType();
    ASSERT_TRUE(l.isNormalized());
    LinkAction back;
    back.setFromLinkDefinition(l.asLinkDefinition());
    EXPECT_EQ(back.fromElement(), l.fromElement());
    EXPECT_EQ(back.toElement(), l.toElement());
}

INSTANTIATE_TEST_SUITE_P(LinkAction, LinkDefinitionRoundTrip,
                         testing::Values(0, 8, 9, 10, 11, 12, 13, 14, 15, 17));

TEST(LinkAction, ProfileNetworkLinkThereAndBackIsSwappedThenNormalized)
{
    // 5 -> 4 is invalid and 4 -> 5 valid: there and back swaps, and normalize() keeps it
    LinkAction profileFirst = link(5, 4, 16, 55, 44);
    LinkAction back;
    back.setFromLinkDefinition(profileFirst.asLinkDefinition());
    EXPECT_EQ(back.fromElement().type(), 4);
    EXPECT_EQ(back.fromElement().TID(), 44u);
    EXPECT_EQ(back.toElement().type(), 5);

    // 4 -> 5: there and back swaps to 5 -> 4, which normalize() swaps back
    LinkAction networkFirst = link(4, 5, 16, 44, 55);
    back.setFromLinkDefinition(networkFirst.asLinkDefinition());
    EXPECT_EQ(back.fromElement().type(), 4);
    EXPECT_EQ(back.toElement().type(), 5);

    // a pair valid both ways shows the plain swap
    sigdb::LinkDefinition definition;
    definition.setElementA(element(2, 21));
    definition.setElementB(element(2, 22));
    back.setFromLinkDefinition(definition);
    EXPECT_EQ(back.fromElement().TID(), 22u);
    EXPECT_EQ(back.toElement().TID(), 21u);
}

TEST(LinkAction, SetFromLinkDefinitionTakesIdentityAndRemovedFlag)
{
    sigdb::LinkDefinition definition;
    definition.setTID(5);
    definition.setIsRemoved(true, false);
    definition.setName(base::DbDataType<std::string>("r1"));
    definition.setElementA(element(1, 10));
    definition.setElementB(element(4, 40));
    LinkAction l;
    l.setActionType(10);
    l.setFromLinkDefinition(definition);
    EXPECT_EQ(l.TID(), 5u);
    EXPECT_TRUE(l.isRemoved());
    EXPECT_EQ(l.getReserved1().getData(), "r1");
    EXPECT_EQ(l.fromElement().TID(), 40u);
    EXPECT_EQ(l.toElement().TID(), 10u);
    EXPECT_EQ(l.changeType(), 0); // taken over without marking a change
    EXPECT_EQ(l.actionType(), 10);
}

// ---------------------------------------------------------------------------------------------
// Other operations

TEST(LinkAction, NetworkIsTheEndOfTypeFour)
{
    EXPECT_EQ(link(4, 1, 0, 44, 11).getNetwork().TID(), 44u);
    EXPECT_EQ(link(1, 4, 0, 11, 44).getNetwork().TID(), 44u);
    const sigdb::SigdbElement none = link(1, 3).getNetwork();
    EXPECT_EQ(none.type(), 0);
    EXPECT_TRUE(none.isTIDundefined());
}

TEST(LinkAction, Reserved1IsTheNameValue)
{
    LinkAction l;
    EXPECT_TRUE(l.getReserved1().isNull());
    base::DbDataType<std::string> value("profile A");
    value.setID(9);
    l.setReserved1(value);
    EXPECT_EQ(l.getReserved1().getData(), "profile A");
    EXPECT_FALSE(l.getReserved1().isNull());
    EXPECT_EQ(l.getReserved1().getID(), 9); // taken over while none was stored
    EXPECT_EQ(l.name().getData(), "profile A");

    base::DbDataType<std::string> other("", true);
    other.setID(12);
    l.setReserved1(other);
    EXPECT_TRUE(l.getReserved1().isNull());
    EXPECT_EQ(l.getReserved1().getID(), 9); // kept
}

TEST(LinkAction, LayerReachesBothEnds)
{
    LinkAction l = link(1, 3);
    l.setLayer(2);
    EXPECT_EQ(l.layer(), 2);
    EXPECT_EQ(l.fromElement().layer(), 2);
    EXPECT_EQ(l.toElement().layer(), 2);
}

TEST(LinkAction, SetIdsNumbersOrderNumberThenToThenFrom)
{
    LinkAction l = link(1, 3);
    EXPECT_EQ(l.setIDs(10), 17);
    EXPECT_EQ(l.orderNumber().getID(), 11);
    EXPECT_EQ(l.toElement().tid().getID(), 12);
    EXPECT_EQ(l.toElement().exchgId().getID(), 13);
    EXPECT_EQ(l.toElement().modificationUser().getID(), 14);
    EXPECT_EQ(l.fromElement().tid().getID(), 15);
    EXPECT_EQ(l.fromElement().exchgId().getID(), 16);
    EXPECT_EQ(l.fromElement().modificationUser().getID(), 17);
}

TEST(LinkAction, EqualityLooksAtEndsAndActionTypeOnly)
{
    LinkAction a = link(1, 3, 11);
    LinkAction b = link(1, 3, 11);
    a.setOrderNumber(1);
    b.setOrderNumber(2);
    EXPECT_TRUE(a == b);
    b.setTID(99);
    b.setLinkExists(true);
    b.setTableNameAndAbbrevation(1, "_Y");
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);

    b.setActionType(12);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_FALSE(link(1, 3, 11) == link(1, 3, 11, 100, 201));
    EXPECT_FALSE(link(1, 3, 11) == link(3, 1, 11, 200, 100));
}

// ---------------------------------------------------------------------------------------------
// Info texts

namespace {

LinkAction describedLink()
{
    LinkAction l = link(1, 2, 10);
    l.setLayer(2);
    l.setModificationDate(base::DbDataType<std::string>("2024-01-02"));
    l.setModificationUser(base::DbDataType<std::string>("KL"));
    l.setOrderNumber(5);
    l.setTID(77);
    l.setLinkExists(true);
    l.setApvState(256 | 16);
    return l;
}

} // namespace

TEST(LinkAction, ShortInfoText)
{
    EXPECT_EQ(describedLink().shortInfoAsString(),
              ">>>Link from Type: Unit 1:100:2\n"
              "   Link to Type:   Platform 2:200:2\n"
              "   Layer: 2 --- ActionType: 10  ModDate: 2024-01-02 --- ModUser: KL -- "
              "OrderNumber is: 5\n");
}

TEST(LinkAction, LongInfoText)
{
    EXPECT_EQ(describedLink().infoAsString(),
              ">>>Link from Type: Unit 1:100:2\n"
              "   Link to Type:   Platform 2:200:2\n"
              "   Layer: 2 --- ActionType: 10  ModDate: 2024-01-02 --- ModUser: KL -- "
              "OrderNumber is: 5\n"
              "   Link TID: 77 --- Exists: 1 --- Approve State: 272 --- IsApproved: 1 --- "
              "IsToBeRemoved: 0 --- Is In related layer: 1\n");
}

TEST(LinkAction, InfoTextWithoutOrderNumber)
{
    LinkAction l = link(4, 1, 0, 44, 11);
    l.setApvState(128);
    EXPECT_EQ(l.infoAsString(),
              ">>>Link from Type: Network 4:44:0\n"
              "   Link to Type:   Unit 1:11:0\n"
              "   Layer: 0 --- ActionType: 0  ModDate:  --- ModUser:  -- OrderNumber is null \n"
              "   Link TID: 0 --- Exists: 0 --- Approve State: 128 --- IsApproved: 0 --- "
              "IsToBeRemoved: 1 --- Is In related layer: 0\n");
}

TEST(LinkAction, InfoTextsOfALinkWithoutEnds)
{
    LinkAction l;
    l.setTID(3);
    EXPECT_EQ(l.shortInfoAsString(), "not defined");
    EXPECT_EQ(l.infoAsString(),
              "not defined"
              "   Link TID: 3 --- Exists: 0 --- Approve State: 0 --- IsApproved: 0 --- "
              "IsToBeRemoved: 0 --- Is In related layer: 0\n");
}

TEST(LinkAction, InfoTextWithOneEndDefined)
{
    LinkAction l;
    l.setFromElement(element(3, 9));
    EXPECT_EQ(l.shortInfoAsString(),
              ">>>Link from Type: Transceiver 3:9:0\n"
              "   Link to Type:   type 0 0::0\n"
              "   Layer: 0 --- ActionType: 0  ModDate:  --- ModUser:  -- OrderNumber is null \n");
}

TEST(LinkAction, InfoTextKeepsEightBitTexts)
{
    LinkAction l = link(1, 2);
    l.setModificationUser(base::DbDataType<std::string>("M\xFCller"));
    const std::string text = l.shortInfoAsString();
    EXPECT_NE(text.find("ModUser: M\xFCller -- "), std::string::npos);
}

TEST(LinkAction, PrintDebugWritesTheLongInfoText)
{
    const LinkAction l = describedLink();
    EXPECT_EQ(sigdbtest::captureStdout([&] { l.printDebug(); }), l.infoAsString());
}
