#include "core/sigdbtablespace.h"

#include "testsupport.h"

#include <gtest/gtest.h>

using sigdb::SigdbColumn;
using sigdb::SigdbTable;
using sigdb::SigdbTableSpace;

TEST(SigdbTableSpace, DefaultSchemaCoversTheElementTypesInUse)
{
    const SigdbTableSpace &space = SigdbTableSpace::instance();
    for (int type : {1, 2, 3, 4, 5, 6, 12, 24, 26, 27, 29, 30, 63, 65, 86, 87, 88, 90, 91, 92, 93,
                     105, 112, 113, 125})
        EXPECT_TRUE(space.hasTableForType(type)) << type;
    EXPECT_TRUE(space.isValidLinkType(4, 1));
    EXPECT_FALSE(space.isValidLinkType(1, 4));
    EXPECT_TRUE(space.isUniqueLinkType(2, 1));
    EXPECT_FALSE(space.isUniqueLinkType(4, 1));
    EXPECT_TRUE(space.tableForType(5).hasOrderedLinkType(26));
    EXPECT_EQ(space.tableForType(3).superiorType(), 1);
    EXPECT_FALSE(space.tableForType(12).hasColumnWithId(17));
    EXPECT_EQ(space.tableForType(12).columnReplace(17), 5);
    EXPECT_EQ(space.tableForType(4).columnReplace(17), -1);
}

TEST(SigdbTableSpace, UnknownTypeHasAnEmptyTable)
{
    const SigdbTable &table = SigdbTableSpace::instance().tableForType(4242);
    EXPECT_FALSE(table.isValid());
    EXPECT_EQ(table.allColumnCount(), 0);
    EXPECT_EQ(table.allColumnAt(0).id(), 0);
    EXPECT_EQ(table.superiorType(), 0);
}

TEST(SigdbTableSpace, ApplicationsLoadTheirOwnSchema)
{
    sigdbtest::DefaultSchemaGuard guard;
    SigdbTableSpace &space = SigdbTableSpace::instance();
    space.clear();
    EXPECT_TRUE(space.types().empty());

    SigdbTable table(7, "Antenna", "RF", "ANT");
    table.addColumn(SigdbColumn(5, "IDENT"));
    table.addColumn(SigdbColumn(9, "GAIN", false));
    table.addColumn(SigdbColumn(11, "IMPORTED", true, 40000));
    table.setSuperiorType(3);
    table.addOrderedLinkType(8);
    space.addTable(table);
    space.addLinkType(3, 7, true, "RF_TRX_ANT");

    const SigdbTable &loaded = space.tableForType(7);
    EXPECT_EQ(loaded.tableName(), "RFANTENNA");
    EXPECT_EQ(loaded.allColumnCount(), 3);
    EXPECT_EQ(loaded.allColumnAt(1).dbName(), "GAIN");
    EXPECT_FALSE(loaded.allColumnAt(1).isWrite());
    EXPECT_EQ(loaded.allColumnAt(2).createdByInterface(), 40000);
    EXPECT_EQ(loaded.columnIndex(11), 2);
    EXPECT_EQ(loaded.superiorType(), 3);
    EXPECT_TRUE(loaded.hasOrderedLinkType(8));
    EXPECT_TRUE(space.isUniqueLinkType(3, 7));
    EXPECT_EQ(space.linkTableName(3, 7), "RF_TRX_ANT");
    EXPECT_EQ(space.types(), std::vector<int>{7});
}

TEST(SigdbTableSpace, AddingAColumnTwiceReplacesIt)
{
    SigdbTable table(7, "Antenna", "RF", "ANT");
    table.addColumn(SigdbColumn(5, "A"));
    table.addColumn(SigdbColumn(5, "B"));
    EXPECT_EQ(table.allColumnCount(), 1);
    EXPECT_EQ(table.allColumnAt(0).dbName(), "B");
}
