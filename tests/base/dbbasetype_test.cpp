#include "base/dbbasetype.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

// The smallest record: nothing but the base.
class PlainRecord : public base::DbBaseType
{
public:
    using base::DbBaseType::operator=;
    base::DbBaseType *getCopy(const base::DbBaseType *source) override
    {
        auto *copy = new PlainRecord;
        *copy = *source;
        return copy;
    }
    void reset() override { setStoreType(base::StoreType_NotSet); }
    void serialize(QByteArray &out) const override { out.append('x'); }
};

} // namespace

TEST(DbBaseType, DefaultStoreTypeIsNotSet)
{
    PlainRecord record;
    EXPECT_FALSE(record.hasStoreTypeSet());
    EXPECT_FALSE(record.isPersistent());
    EXPECT_FALSE(record.isTransient());
    EXPECT_EQ(record.getStoreType(), base::StoreType_NotSet);
    EXPECT_EQ(record.layer(), 0);
}

TEST(DbBaseType, StoreTypeAsColumnValueIsNeverNull)
{
    PlainRecord record;
    const base::DbDataType<int> storeType = record.getStoreType_T();
    EXPECT_FALSE(storeType.isNull());
    EXPECT_EQ(storeType.getData(), 0);
    EXPECT_EQ(storeType.getID(), 0);
}

TEST(DbBaseType, StoreTypeAndLayerAreOneValue)
{
    PlainRecord record;
    record.setStoreType(base::StoreType_Persistent);
    EXPECT_TRUE(record.isPersistent());
    EXPECT_EQ(record.layer(), 1);
    EXPECT_EQ(record.getLayerType(), 1);
    record.setLayer(2);
    EXPECT_TRUE(record.isTransient());
    EXPECT_EQ(record.getStoreType(), base::StoreType_Transient);
    EXPECT_EQ(record.getStoreType_T().getData(), 2);
}

TEST(DbBaseType, CopyAndAssignmentCopyTheStoreType)
{
    PlainRecord record;
    record.setLayer(2);
    PlainRecord copy(record);
    EXPECT_EQ(copy.layer(), 2);
    PlainRecord assigned;
    base::DbBaseType &base = assigned;
    base = record;
    EXPECT_EQ(assigned.layer(), 2);
    base = base;
    EXPECT_EQ(assigned.layer(), 2);
}

TEST(DbBaseType, GetCopyThroughTheBase)
{
    PlainRecord record;
    record.setLayer(1);
    base::DbBaseType *copy = record.getCopy(&record);
    EXPECT_EQ(copy->layer(), 1);
    delete copy;
}
