#include "base/dbconnect.h"

#include <gtest/gtest.h>

TEST(DbConnect, Defaults)
{
    const base::DbConnect connect;
    EXPECT_EQ(connect.connectionKind, 2);
    EXPECT_TRUE(connect.serverName.empty());
    EXPECT_TRUE(connect.databaseName.empty());
    EXPECT_TRUE(connect.userName.empty());
    EXPECT_TRUE(connect.password.empty());
    EXPECT_TRUE(connect.applicationName.empty());
    EXPECT_EQ(connect.port, 0);
    EXPECT_EQ(connect.connectTimeout, 5000);
    EXPECT_TRUE(connect.clientName.empty());
    EXPECT_EQ(connect.clientId, 0);
    EXPECT_EQ(connect.sessionId, 0);
    EXPECT_FALSE(connect.readOnly);
    EXPECT_TRUE(connect.options.empty());
    EXPECT_EQ(connect.requestTimeout, 1000);
}

TEST(DbConnect, CopyCopiesEveryField)
{
    base::DbConnect connect;
    connect.connectionKind = 3;
    connect.serverName = "server";
    connect.databaseName = "db";
    connect.userName = "user";
    connect.password = "secret";
    connect.applicationName = "app";
    connect.port = 7;
    connect.connectTimeout = 9;
    connect.clientName = "client";
    connect.clientId = 11;
    connect.sessionId = 12;
    connect.readOnly = true;
    connect.options = {"a", "b"};
    connect.requestTimeout = 13;

    base::DbConnect assigned;
    assigned = connect;
    for (const base::DbConnect &c : {base::DbConnect(connect), assigned}) {
        EXPECT_EQ(c.connectionKind, 3);
        EXPECT_EQ(c.serverName, "server");
        EXPECT_EQ(c.databaseName, "db");
        EXPECT_EQ(c.userName, "user");
        EXPECT_EQ(c.password, "secret");
        EXPECT_EQ(c.applicationName, "app");
        EXPECT_EQ(c.port, 7);
        EXPECT_EQ(c.connectTimeout, 9);
        EXPECT_EQ(c.clientName, "client");
        EXPECT_EQ(c.clientId, 11);
        EXPECT_EQ(c.sessionId, 12);
        EXPECT_TRUE(c.readOnly);
        EXPECT_EQ(c.options.size(), 2u);
        EXPECT_EQ(c.requestTimeout, 13);
    }
}
