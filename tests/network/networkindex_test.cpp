// The hash set behind the table equality: exact answers whatever the hashes look like, and room
// that grows with what is put in.

#include "network/networkindex_p.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

namespace {

using IntSet = sigdb::FlatKeySet<int, std::function<std::size_t(int)>, std::equal_to<int>>;

TEST(FlatKeySet, FindsWhatWasPutInAndNothingElse)
{
    IntSet set(4, [](int key) { return std::hash<int>()(key); }, std::equal_to<int>());
    for (int key = 0; key < 1000; key += 2)
        set.insert(key);
    for (int key = 0; key < 1000; ++key)
        EXPECT_EQ(set.contains(key), key % 2 == 0) << key;
}

TEST(FlatKeySet, KeysThatShareOneHashAreToldApartByTheirEquality)
{
    IntSet set(1, [](int) { return std::size_t(7); }, std::equal_to<int>());
    for (int key = 0; key < 300; ++key) {
        set.insert(key);
        set.insert(key);
    }
    for (int key = 0; key < 300; ++key)
        EXPECT_TRUE(set.contains(key));
    EXPECT_FALSE(set.contains(300));
    EXPECT_FALSE(set.contains(-1));
}

TEST(FlatKeySet, AnEmptySetHoldsNothing)
{
    const IntSet set(0, [](int key) { return std::hash<int>()(key); }, std::equal_to<int>());
    EXPECT_FALSE(set.contains(0));
}

} // namespace
