#include "base/dbdatatype.h"
#include "core/areaofinterest.h"
#include "core/sigdbenums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using base::DbDataType;

TEST(DbDataType, DefaultIsNullWithZeroValueAndNoId)
{
    const DbDataType<int> number;
    EXPECT_TRUE(number.isNull());
    EXPECT_EQ(number.getData(), 0);
    EXPECT_EQ(number.getID(), 0);

    const DbDataType<double> real;
    EXPECT_EQ(real.getData(), 0.0);
    const DbDataType<bool> flag;
    EXPECT_FALSE(flag.getData());
    const DbDataType<char> character;
    EXPECT_EQ(character.getData(), '\0');
    const DbDataType<std::string> text;
    EXPECT_TRUE(text.getData().empty());
    const DbDataType<sigdb::Modification_State> state;
    EXPECT_EQ(state.getData(), sigdb::Modification_Unchanged);
    const DbDataType<sigdb::IAreaOfInterest::point> point;
    EXPECT_EQ(point.getData().x, 0);
    EXPECT_EQ(point.getData().y, 0);
}

TEST(DbDataType, ValueConstructorIsNotNull)
{
    const DbDataType<unsigned long long> tid(42ULL);
    EXPECT_FALSE(tid.isNull());
    EXPECT_EQ(tid.getData(), 42ULL);
    EXPECT_EQ(tid.getID(), 0);
}

TEST(DbDataType, TextConstructorTakesNullFlag)
{
    const DbDataType<std::string> nullText("stale", true);
    EXPECT_TRUE(nullText.isNull());
    EXPECT_EQ(nullText.getData(), "stale");
    const DbDataType<std::string> text("value", false);
    EXPECT_FALSE(text.isNull());
}

TEST(DbDataType, DefaultEqualsValueSetNullAfterHoldingFive)
{
    DbDataType<int> five(5);
    five.setNull(true);
    EXPECT_EQ(five.getData(), 5) << "setNull(true) keeps the value";
    EXPECT_TRUE(DbDataType<int>() == five);
    EXPECT_FALSE(DbDataType<int>() != five);
}

TEST(DbDataType, EqualityIgnoresColumnIds)
{
    DbDataType<int> a(5);
    DbDataType<int> b(5);
    a.setID(3);
    b.setID(7);
    EXPECT_TRUE(a == b);
}

TEST(DbDataType, NullAndValueAreUnequal)
{
    EXPECT_FALSE(DbDataType<int>() == DbDataType<int>(0));
    EXPECT_FALSE(DbDataType<int>(0) == DbDataType<int>());
    EXPECT_TRUE(DbDataType<int>(1) != DbDataType<int>(2));
}

TEST(DbDataType, AssignmentKeepsAnAssignedId)
{
    DbDataType<int> source(1);
    source.setID(9);

    DbDataType<int> numbered;
    numbered.setID(4);
    numbered = source;
    EXPECT_EQ(numbered.getID(), 4);
    EXPECT_EQ(numbered.getData(), 1);
    EXPECT_FALSE(numbered.isNull());

    DbDataType<int> unnumbered;
    unnumbered = source;
    EXPECT_EQ(unnumbered.getID(), 9);

    const DbDataType<int> copied(source);
    EXPECT_EQ(copied.getID(), 9) << "the copy constructor always copies the id";
}

TEST(DbDataType, MoveAssignmentFollowsTheIdRule)
{
    DbDataType<std::string> source(std::string("x"));
    source.setID(9);
    DbDataType<std::string> numbered;
    numbered.setID(4);
    numbered = std::move(source);
    EXPECT_EQ(numbered.getID(), 4);
    EXPECT_EQ(numbered.getData(), "x");
}

TEST(DbDataType, AssignmentCopiesNull)
{
    DbDataType<int> target(3);
    target = DbDataType<int>();
    EXPECT_TRUE(target.isNull());
}

TEST(DbDataType, ValueAssignmentClearsNullAndKeepsId)
{
    DbDataType<int> value;
    value.setID(12);
    value = 8;
    EXPECT_FALSE(value.isNull());
    EXPECT_EQ(value.getData(), 8);
    EXPECT_EQ(value.getID(), 12);
}

TEST(DbDataType, NanIsNeverEqualButTwoNullDoublesAre)
{
    const DbDataType<double> nan(std::numeric_limits<double>::quiet_NaN());
    const DbDataType<double> copy(nan);
    EXPECT_FALSE(nan == copy);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != copy);
    EXPECT_TRUE(DbDataType<double>() == DbDataType<double>());
}

TEST(DbDataType, StaleValueBehindNullTakesNoPart)
{
    DbDataType<std::string> a(std::string("one"));
    DbDataType<std::string> b(std::string("two"));
    a.setNull(true);
    b.setNull(true);
    EXPECT_TRUE(a == b);
}

TEST(DbDataType, GetDataIsWritable)
{
    DbDataType<std::string> text;
    text.getData() = "abc";
    EXPECT_TRUE(text.isNull()) << "writing through getData() leaves the NULL flag alone";
    EXPECT_EQ(text.getData(), "abc");
}

TEST(DbDataType, IdIsReadAsIntAndWrittenUnsigned)
{
    DbDataType<char> value;
    value.setID(70000u);
    EXPECT_EQ(value.getID(), 70000);
}
