#include "element/elementdetails.h"

#include "core/sigdbtablespace.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::ElementDetails;
using sigdb::SigdbColumn;
using sigdb::SigdbTable;
using sigdb::SigdbTableSpace;

namespace {

// A small schema for the comparison: type 7 with a writable and a read-only text column, the
// identifier, a remark, a validity column, a classification column, the history column 550 and
// a column filled by the import interface.
class ComparisonSchema : public testing::Test
{
protected:
    ComparisonSchema()
    {
        SigdbTable table(7, "Antenna", "RF", "ANT");
        table.addColumn(SigdbColumn(5, "IDENT"));
        table.addColumn(SigdbColumn(8, "REMARK"));
        table.addColumn(SigdbColumn(12, "VALID_TO"));
        table.addColumn(SigdbColumn(15, "CLASS"));
        table.addColumn(SigdbColumn(20, "GAIN"));
        table.addColumn(SigdbColumn(21, "SERIAL", false));
        table.addColumn(SigdbColumn(550, "HISTORY"));
        table.addColumn(SigdbColumn(599, "IMPORTED", true, 40000));
        SigdbTableSpace::instance().addTable(table);
        a.setType(7);
        b.setType(7);
    }

    sigdbtest::DefaultSchemaGuard guard;
    ElementDetails a;
    ElementDetails b;
};

} // namespace

TEST(ElementDetails, FreshRecordAsksForAnExchangeIdSilently)
{
    const ElementDetails details;
    std::string printed = sigdbtest::captureStdout([&] { EXPECT_TRUE(details.createExchgIdForNewElement()); });
    EXPECT_EQ(printed, "");
}

TEST(ElementDetails, FalseFlagWithoutUsableExchangeIdIsOverridden)
{
    ElementDetails details;
    details.setType(1);
    details.setTID(12);
    details.setCreateExchgIdForNewElement(false);
    details.setExchgId(std::string("AB"));
    bool result = false;
    const std::string printed =
        sigdbtest::captureStdout([&] { result = details.createExchgIdForNewElement(); });
    EXPECT_TRUE(result);
    EXPECT_EQ(printed, "ERROR createExchgIdForNewElement is false, but there is no exchgID for element Unit 1:12:0\n");

    details.setExchgId(std::string("ABC"));
    const std::string silent = sigdbtest::captureStdout([&] { result = details.createExchgIdForNewElement(); });
    EXPECT_FALSE(result);
    EXPECT_EQ(silent, "");
}

TEST(ElementDetails, IsCollocatedIsNeverNull)
{
    ElementDetails details;
    EXPECT_FALSE(details.isCollocated().isNull());
    EXPECT_FALSE(details.isCollocated().getData());
    details.collocationTID() = 88ULL;
    EXPECT_TRUE(details.isCollocated().getData());
}

TEST(ElementDetails, IoDataOnDemand)
{
    ElementDetails details;
    EXPECT_FALSE(details.ioDataEnabled());
    details.setIoDataEnabled(false);
    EXPECT_FALSE(details.ioDataEnabled());
    details.ioData().setValue("source", "import.csv");
    EXPECT_TRUE(details.ioDataEnabled());
    ElementDetails copy(details);
    EXPECT_EQ(copy.ioData().value("source"), "import.csv");
    details.setIoDataEnabled(false);
    EXPECT_FALSE(details.ioDataEnabled());
    EXPECT_TRUE(details.ioData().values().empty()) << "a new object after it was deleted";

    details.ioData().setValue("x", "y");
    details.resetPartial();
    EXPECT_TRUE(details.ioDataEnabled());
    details.reset();
    EXPECT_FALSE(details.ioDataEnabled());
}

TEST(ElementDetails, ResetKeepsTypeAndClearsIdentityAndBookkeeping)
{
    ElementDetails details;
    details.setType(1);
    details.setTID(5);
    details.str(503) = std::string("UNI-5");
    details.str(567) = std::string("2026-01-01");
    details.str(5) = std::string("kept");
    details.setCreateExchgIdForNewElement(false);
    details.reset();
    EXPECT_EQ(details.type(), 1);
    EXPECT_TRUE(details.isTIDundefined());
    EXPECT_TRUE(details.isNull(503));
    EXPECT_TRUE(details.isNull(567));
    EXPECT_EQ(details.str(5).getData(), "kept");
    EXPECT_TRUE(details.createExchgIdForNewElement());
}

TEST(ElementDetails, NetworkTypeKnowsOnlyStarAndHierarchical)
{
    ElementDetails network;
    network.setType(4);
    EXPECT_TRUE(network.networkTypeAsFullString().isNull());
    network.setNetworkTypeFromFullString(std::string("Hierarchical"));
    EXPECT_EQ(network.networkTypeAsFullString().getData(), "Hierarchical");
    network.setNetworkTypeFromFullString(std::string("Star"));
    EXPECT_EQ(network.networkTypeAsFullString().getData(), "Star");
    network.setNetworkTypeFromFullString(std::string("Unstructured"));
    EXPECT_TRUE(network.networkTypeAsFullString().isNull());
    network.setNetworkTypeFromFullString(std::string("star"));
    EXPECT_TRUE(network.isNull(582));
}

TEST(ElementDetails, SetIdsReturnsOneAboveTheDefinition)
{
    ElementDetails details;
    EXPECT_EQ(details.setIDs(0), 12);
    EXPECT_EQ(details.name().getID(), 7);
    EXPECT_EQ(details.elementDefinition().tid().getID(), 8);
    EXPECT_EQ(details.detailsNumber().getID(), 11);
    EXPECT_EQ(details.collocationTID().getID(), 12);
    EXPECT_EQ(details.referenceDocuments().startID(), 12);
    EXPECT_EQ(details.networkList().parentDefinition().tid().getID(), 13);
    EXPECT_EQ(details.setIDs(100), 112);
}

TEST(ElementDetails, EqualityAndWhatItIgnores)
{
    ElementDetails a;
    a.setType(1);
    a.str(5) = std::string("A");
    ElementDetails b = a;
    EXPECT_TRUE(a == b);
    b.networkResult().keyText1 = std::string("ignored");
    b.setCreateExchgIdForNewElement(false);
    b.currentSelectedIncludedDetails().setType(86);
    EXPECT_TRUE(a == b);
    b.ioData();
    EXPECT_FALSE(a == b) << "one has ioData, the other not";
    b = a;
    b.detailsNumber() = 3;
    EXPECT_TRUE(a != b);
    b = a;
    b.collocationTID() = 1ULL;
    EXPECT_TRUE(a != b);
    b = a;
    sigdb::ReferenceDocument document;
    document.documentText1 = std::string("doc");
    b.referenceDocuments().appendEntry(document);
    EXPECT_TRUE(a != b);
}

TEST(ElementDetails, AssigningAnElementAssignsTheElementPartOnly)
{
    sigdbtest::DefaultSchemaGuard guard;
    SigdbTable four(81, "Four", "RF", "FOUR");
    for (int id : {5, 20, 21, 22})
        four.addColumn(SigdbColumn(id, "C" + std::to_string(id)));
    SigdbTable three(82, "Three", "RF", "THREE");
    for (int id : {5, 20, 30})
        three.addColumn(SigdbColumn(id, "C" + std::to_string(id)));
    SigdbTableSpace::instance().addTable(four);
    SigdbTableSpace::instance().addTable(three);

    ElementDetails details;
    details.setType(81);
    details.str(5) = std::string("v5");
    details.str(20) = std::string("v20");
    details.str(21) = std::string("v21");
    details.str(22) = std::string("v22");
    details.detailsNumber() = 4;
    details.collocationTID() = 70ULL;
    const std::vector<base::DbDataType<std::string>> before = details.allData();
    ASSERT_EQ(before.size(), 4u);

    sigdb::SigdbElement element;
    element.setType(82);
    element.setTID(9);
    element.setLayer(2);
    sigdb::SigdbElement &asElement = details;
    asElement = element; // the virtual assignment, as the core library calls it

    EXPECT_EQ(details.type(), 82);
    EXPECT_EQ(details.TID(), 9u);
    EXPECT_EQ(details.layer(), 2);
    EXPECT_EQ(details.allData(), before) << "the column values stay exactly as they were";
    EXPECT_EQ(details.detailsNumber().getData(), 4);
    EXPECT_EQ(details.collocationTID().getData(), 70u);


    // A caller who wants the new layout says so with setType() before assigning.
    ElementDetails relaid;
    relaid.setType(81);
    relaid.str(20) = std::string("v20");
    relaid.setType(82);
    relaid = element;
    ASSERT_EQ(relaid.allData().size(), 3u);
    EXPECT_EQ(relaid.str(20).getData(), "v20");
    EXPECT_TRUE(relaid.isNull(30));
}

TEST(ElementDetails, ConvertToTypeTakesSharedColumns)
{
    ElementDetails network;
    network.setType(4);
    network.str(5) = std::string("N1");
    network.str(582) = std::string("T");
    const ElementDetails unit = network.convertToType(1);
    EXPECT_EQ(unit.type(), 1);
    EXPECT_EQ(unit.str(5).getData(), "N1");
    bool ok = true;
    unit.str(582, &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(network.type(), 4) << "the source is unchanged";
}

TEST(ElementDetails, InitCurrentSelectedIncludedDetails)
{
    ElementDetails unit;
    unit.setType(1);
    unit.initCurrentSelectedIncludedDetails();
    EXPECT_EQ(unit.currentSelectedIncludedDetails().type(), 0) << "no include type: nothing happens";

    ElementDetails profile;
    profile.setType(5);
    profile.initCurrentSelectedIncludedDetails();
    EXPECT_EQ(profile.currentSelectedIncludedDetails().type(), 86);
    sigdb::SigdbElementDetails row;
    row.setType(86);
    row.str(5) = std::string("first");
    profile.setIncludedDetails({row});
    profile.initCurrentSelectedIncludedDetails();
    EXPECT_EQ(profile.currentSelectedIncludedDetails().str(5).getData(), "first");
}

TEST(ElementDetails, SortListsSortsMultiValuedTextsAndLocations)
{
    ElementDetails unit;
    unit.setType(1);
    unit.str(561) = std::string("b;a");
    unit.str(513) = std::string("z;y");
    sigdb::LocationEntryList locations;
    sigdb::LocationEntry late;
    late.validFrom = std::string("2026-02");
    sigdb::LocationEntry early;
    early.validFrom = std::string("2026-01");
    locations.appendEntry(late);
    locations.appendEntry(early);
    unit.setLocationEntryList(locations);
    unit.sortLists();
    EXPECT_EQ(unit.str(561).getData(), "a;b");
    EXPECT_EQ(unit.str(513).getData(), "y;z");
    EXPECT_EQ(unit.locationEntryList().container()[0].validFrom.getData(), "2026-01");
}

TEST_F(ComparisonSchema, ARecordEqualsItself)
{
    a.str(20) = std::string("12 dB");
    EXPECT_EQ(a.testCompare(a, true, true, true, true, true, true), "");
}

TEST_F(ComparisonSchema, DifferenceInAWritableColumn)
{
    a.str(20) = std::string("12 dB");
    b.str(20) = std::string("13 dB");
    EXPECT_EQ(a.testCompare(b, true, true, false, false, false, false),
              "\nCOMPARING FAILED (isNull 0-0) for column (id: 20) GAIN:\n12 dB---\n13 dB---");
}

TEST_F(ComparisonSchema, NullFlagsInTheReport)
{
    b.str(20) = std::string("13 dB");
    EXPECT_EQ(a.testCompare(b, true, true, false, false, false, false),
              "\nCOMPARING FAILED (isNull 1-0) for column (id: 20) GAIN:\n---\n13 dB---");
    EXPECT_EQ(b.testCompare(a, true, true, false, false, false, false),
              "\nCOMPARING FAILED (isNull 0-1) for column (id: 20) GAIN:\n13 dB---\n---");
}

TEST_F(ComparisonSchema, ReadOnlyHistoryAndImportedColumnsAreNeverReported)
{
    a.str(21) = std::string("S1");
    b.str(21) = std::string("S2");
    a.str(550) = std::string("h1");
    b.str(550) = std::string("h2");
    a.str(599) = std::string("i1");
    b.str(599) = std::string("i2");
    EXPECT_EQ(a.testCompare(b, true, true, true, true, true, true), "");
}

TEST_F(ComparisonSchema, LenientNullsSkipBlankValues)
{
    for (const char *blank : {"", "F", "N_"}) {
        b.str(20) = std::string(blank);
        EXPECT_EQ(a.testCompare(b, false, true, false, false, false, false), "") << blank;
        EXPECT_EQ(a.testCompare(b, true, false, false, false, false, false), "") << blank;
        EXPECT_NE(a.testCompare(b, true, true, false, false, false, false), "") << blank;
    }
    b.str(20) = std::string("X");
    EXPECT_NE(a.testCompare(b, false, true, false, false, false, false), "");
}

TEST_F(ComparisonSchema, ColumnGroupsAreComparedOnRequest)
{
    a.str(5) = std::string("I1");
    b.str(5) = std::string("I2");
    a.str(8) = std::string("R1");
    b.str(8) = std::string("R2");
    a.str(12) = std::string("V1");
    b.str(12) = std::string("V2");
    a.str(15) = std::string("C1");
    b.str(15) = std::string("C2");

    EXPECT_EQ(a.testCompare(b, false, true, false, true, false, true), "") << "identity off";
    const std::string identityOnly = a.testCompare(b, true, true, false, false, false, false);
    EXPECT_EQ(identityOnly, "\nCOMPARING FAILED (isNull 0-0) for column (id: 5) IDENT:\nI1---\nI2---");
    const std::string all = a.testCompare(b, true, true, false, true, true, true);
    EXPECT_EQ(all, "\nCOMPARING FAILED (isNull 0-0) for column (id: 5) IDENT:\nI1---\nI2---"
                   "\nCOMPARING FAILED (isNull 0-0) for column (id: 8) REMARK:\nR1---\nR2---"
                   "\nCOMPARING FAILED (isNull 0-0) for column (id: 12) VALID_TO:\nV1---\nV2---"
                   "\nCOMPARING FAILED (isNull 0-0) for column (id: 15) CLASS:\nC1---\nC2---");
    EXPECT_EQ(a.testCompare(b, false, false, false, false, true, false),
              "\nCOMPARING FAILED (isNull 0-0) for column (id: 12) VALID_TO:\nV1---\nV2---")
        << "the validity group needs no strictness";
}

TEST_F(ComparisonSchema, CallsignTableAndCollocationLines)
{
    sigdb::ConnectionEntry connection;
    connection.fromDefinition.element.setType(1);
    connection.fromDefinition.element.setTID(3);
    b.callsignTable().connections.appendEntry(connection);
    EXPECT_EQ(a.testCompare(b, true, true, false, false, false, false), "") << "network not asked for";
    EXPECT_EQ(a.testCompare(b, true, true, true, false, false, false), "\nCOMPARING FAILED: Callsign Table  \n");

    b.callsignTable() = a.callsignTable();
    b.networkResult().keyText1 = std::string("NET");
    EXPECT_EQ(a.testCompare(b, true, true, true, false, false, false), "\nCOMPARING FAILED: Callsign Table  \n");

    b.networkResult() = a.networkResult();
    b.collocationTID() = 9ULL;
    EXPECT_EQ(a.testCompare(b, false, false, false, false, false, false), "\nCOMPARING FAILED: collocationTID  \n");
}
