#include "core/elementbase.h"

#include <gtest/gtest.h>

using sigdb::ElementBase;
using sigdb::ElementBaseName;

TEST(ElementBase, RemovedFlag)
{
    ElementBase element;
    EXPECT_FALSE(element.isRemoved());
    EXPECT_TRUE(element.getIsRemoved().isNull());
    element.setIsRemoved(true, false);
    EXPECT_TRUE(element.isRemoved());
    EXPECT_EQ(element.changeType(), 0);
    element.setIsRemoved(true, true);
    EXPECT_EQ(element.changeType(), ElementBase::ChangeType_Removed);
    element.setIsRemoved(false, true);
    EXPECT_FALSE(element.isRemoved());
    EXPECT_FALSE(element.getIsRemoved().isNull());
}

TEST(ElementBaseName, SetIdsContinuesAfterTheElement)
{
    ElementBaseName element;
    EXPECT_EQ(element.setIDs(0), 7);
    EXPECT_EQ(element.tid().getID(), 1);
    EXPECT_EQ(element.getIsRemoved().getID(), 4);
    EXPECT_EQ(element.creationDate().getID(), 5);
    EXPECT_EQ(element.modificationDate().getID(), 6);
    EXPECT_EQ(element.name().getID(), 7);
}

TEST(ElementBaseName, EqualityLooksAtBookkeepingAndName)
{
    ElementBaseName a;
    a.setType(30);
    a.setTID(5);
    a.setName(std::string("link"));
    ElementBaseName b = a;
    EXPECT_TRUE(a == b);
    b.setModificationDate(std::string("2026-01-01"));
    EXPECT_FALSE(a == b);
    b = a;
    b.setName(std::string("other"));
    EXPECT_FALSE(a == b);
}

TEST(ElementBaseName, ResetAndCopy)
{
    ElementBaseName element;
    element.setType(1);
    element.setName(std::string("n"));
    base::DbBaseType *copy = element.getCopy(&element);
    auto *typed = dynamic_cast<ElementBaseName *>(copy);
    ASSERT_NE(typed, nullptr);
    EXPECT_EQ(typed->name().getData(), "n");
    EXPECT_EQ(typed->type(), 1);
    delete copy;
    element.reset();
    EXPECT_TRUE(element.name().isNull());
    EXPECT_EQ(element.type(), 0);
}
