// The accessors that applications call: their names, types and the semantics of the nullable
// ones, and the entry cursor of the ...Vector records.

#include "middleware/inforecords.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

#define EXPECT_GETTER_TYPE(Record, call, Type)                                                     \
    static_assert(std::is_same<decltype(std::declval<Record &>().call), Type &>::value,           \
                  #Record "::" #call);                                                             \
    static_assert(std::is_same<decltype(std::declval<const Record &>().call), const Type &>::value, \
                  "const " #Record "::" #call)

// Plain properties return references to their type; the asymmetric connection states keep
// their documented types; UserName is nullable only in the vector.
EXPECT_GETTER_TYPE(sigdb::MInfoWarningLevel, getConnectionStateMiddleware(), int);
EXPECT_GETTER_TYPE(sigdb::MInfoWarningLevel, getConnectionStateMiddleware_T(), base::DbDataType<int>);
EXPECT_GETTER_TYPE(sigdb::MInfoWarningLevel, getConnectionStateClient(), sigdb::ConnectionState);
EXPECT_GETTER_TYPE(sigdb::MInfoWarningLevel, getConnectionStateClient_T(),
                   base::DbDataType<sigdb::ConnectionState>);
EXPECT_GETTER_TYPE(sigdb::LockedElementData, getUserName(), std::string);
EXPECT_GETTER_TYPE(sigdb::LockedElementDataVector, getUserName(), std::string);
EXPECT_GETTER_TYPE(sigdb::LockedElementDataVector, getUserName_T(), base::DbDataType<std::string>);
EXPECT_GETTER_TYPE(sigdb::LockedElementData, getTid_T(), base::DbDataType<unsigned long long>);
EXPECT_GETTER_TYPE(sigdb::MInfoClientLogin, getClientMessagingRequest(), unsigned int);
EXPECT_GETTER_TYPE(sigdb::MInfoClientLogin, getClientType_T(),
                   base::DbDataType<sigdb::ClientConnectionType>);
EXPECT_GETTER_TYPE(sigdb::VersionInfoVector, getVersionInfoVector(), std::vector<sigdb::VersionInfo>);
EXPECT_GETTER_TYPE(sigdb::CallbackMessage, getmessageType(), sigdb::CallbackMessageType);
EXPECT_GETTER_TYPE(sigdb::CallbackMessage, getstringValues(), std::vector<std::string>);
EXPECT_GETTER_TYPE(sigdb::CallbackMessage, getintValue(), int);
EXPECT_GETTER_TYPE(sigdb::VersionInfo, getRequiredInterfaceVersion(), sigdb::InterfaceVersion);
EXPECT_GETTER_TYPE(sigdb::DbMaintenanceAnswer, getRequest(), sigdb::DbMaintenanceRequest);
EXPECT_GETTER_TYPE(sigdb::NameValueDataForElement, getVector(), std::vector<sigdb::NameValuePair>);
EXPECT_GETTER_TYPE(sigdb::LockedElementData, getLockedByMe(), bool);

static_assert(std::is_base_of<base::DbBaseType, sigdb::CallbackMessage>::value, "record root");
static_assert(std::is_base_of<base::DbBaseType, sigdb::NameValueDataForElementVector>::value,
              "record root");

TEST(NullableAccessors, SettingAValueClearsTheNullFlag)
{
    sigdb::DbMaintenanceRequest request;
    EXPECT_TRUE(request.isOptionalDataNull());
    request.setOptionalData("x");
    EXPECT_FALSE(request.isOptionalDataNull());
    EXPECT_EQ(request.getOptionalData(), "x");
    EXPECT_FALSE(request.getOptionalData_T().isNull());
}

TEST(NullableAccessors, SetNullKeepsTheValue)
{
    sigdb::MInfoWarningLevel level;
    level.setWarningLevelClient(4);
    level.setWarningLevelClientNull(true);
    EXPECT_TRUE(level.isWarningLevelClientNull());
    EXPECT_EQ(level.getWarningLevelClient(), 4);
    level.setWarningLevelClientNull(false);
    EXPECT_EQ(level.getWarningLevelClient(), 4);
}

TEST(NullableAccessors, ColumnValueSetterCopiesValueAndFlag)
{
    sigdb::LockedElementData lock;
    lock.setExchgId(base::DbDataType<std::string>("E-1", false));
    EXPECT_FALSE(lock.isExchgIdNull());
    EXPECT_EQ(lock.getExchgId(), "E-1");
    lock.setExchgId(base::DbDataType<std::string>("E-2", true));
    EXPECT_TRUE(lock.isExchgIdNull());
    EXPECT_EQ(lock.getExchgId(), "E-2");

    sigdb::MInfoWarningLevel level;
    level.setConnectionStateMiddleware(base::DbDataType<int>(7));
    EXPECT_FALSE(level.isConnectionStateMiddlewareNull());
    EXPECT_EQ(level.getConnectionStateMiddleware(), 7);
}

TEST(PlainAccessors, GettersAreModifiableAndSettersCopy)
{
    sigdb::ProductVersion version;
    version.getMajor() = 3;
    EXPECT_EQ(version.getMajor(), 3);
    std::string origin = "server";
    version.setOrigin(origin);
    origin = "changed";
    EXPECT_EQ(version.getOrigin(), "server");

    sigdb::VersionInfoVector versions;
    versions.getVersionInfoVector().push_back(sigdb::VersionInfo());
    versions.setVersionInfoVector(std::vector<sigdb::VersionInfo>(3));
    EXPECT_EQ(versions.getVersionInfoVector().size(), 3u);
}

TEST(EntryCursor, WalksTheEntriesOnceAndStartsOver)
{
    sigdb::NameValuePair first;
    first.setName("a");
    sigdb::NameValuePair second;
    second.setName("b");
    sigdb::NameValuePairVector pairs;
    pairs.setVector({first, second});

    pairs.setIteratorToStart();
    sigdb::NameValuePair *entry = pairs.getNextEntry();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->getName(), "a");
    entry->setValue("changed in place");
    entry = pairs.getNextEntry();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->getName(), "b");
    EXPECT_EQ(pairs.getNextEntry(), nullptr);
    EXPECT_EQ(pairs.getNextEntry(), nullptr);

    pairs.setIteratorToStart();
    EXPECT_EQ(pairs.getNextEntry()->getValue(), "changed in place");
}

TEST(EntryCursor, EmptyVectorHasNoEntry)
{
    sigdb::VersionInfoVector versions;
    versions.setIteratorToStart();
    EXPECT_EQ(versions.getNextEntry(), nullptr);
}

} // namespace
