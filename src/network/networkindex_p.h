#ifndef SIGDB_NETWORK_NETWORKINDEX_P_H
#define SIGDB_NETWORK_NETWORKINDEX_P_H

#include "base/dbdatatype.h"
#include "core/sigdbelement.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

// Hash indexes for the callsign table algorithms. Networks with tens of thousands of
// connections are common, and the table algorithms look elements and connections up once per
// connection; these indexes keep that linear while giving exactly the answers of a walk over
// the list with the records' own equality.

namespace sigdb {

/// Mixes \a value into \a seed.
inline void hashCombine(std::size_t &seed, std::size_t value)
{
    seed ^= value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2);
}

/// A hash of a nullable column value that agrees with its equality: every NULL hashes alike,
/// whatever stale value it holds.
template <typename T>
std::size_t nullableHash(const base::DbDataType<T> &value)
{
    return value.isNull() ? 0x6e756c6cU : std::hash<T>()(value.getData()) + 1;
}

/// Zero of either sign is one value to the equality of doubles, so it is one to the hash too.
inline std::size_t nullableHash(const base::DbDataType<double> &value)
{
    return value.isNull() ? 0x6e756c6cU : std::hash<double>()(value.getData() + 0.0) + 1;
}

/// An element identity as a hashable key with exactly the equality of SigdbElement: equal
/// types and TIDs, and for two elements without TID equal exchange ids.
struct ElementKey
{
    explicit ElementKey(const SigdbElement &element)
        : type(element.type())
        , tid(element.tid())
        , exchgId(element.isTIDundefined() ? element.exchgId() : base::DbDataType<std::string>())
    {
    }

    bool operator==(const ElementKey &other) const
    {
        return type == other.type && tid == other.tid && exchgId == other.exchgId;
    }

    int type;
    base::DbDataType<unsigned long long> tid;
    /// Only consulted while the TID is NULL; NULL otherwise.
    base::DbDataType<std::string> exchgId;
};

struct ElementKeyHash
{
    std::size_t operator()(const ElementKey &key) const
    {
        std::size_t seed = std::hash<int>()(key.type);
        hashCombine(seed, nullableHash(key.tid));
        hashCombine(seed, nullableHash(key.exchgId));
        return seed;
    }
};

/// The first position of every element in a sequence that only grows at its end: what a walk
/// from the front with SigdbElement equality finds first.
class ElementPositions
{
public:
    /// The position recorded for \a element, -1 when none.
    int find(const SigdbElement &element) const
    {
        const auto found = m_positions.find(ElementKey(element));
        return found == m_positions.end() ? -1 : found->second;
    }

    /// Records \a position for \a element unless a position is known already; returns whether
    /// it was recorded now.
    bool insert(const SigdbElement &element, int position)
    {
        return m_positions.emplace(ElementKey(element), position).second;
    }

private:
    std::unordered_map<ElementKey, int, ElementKeyHash> m_positions;
};

/// A set of keys in one flat array (open addressing, linear probing) with each key's hash kept
/// beside it: a look-up touches one run of neighbouring slots instead of a chain of nodes
/// spread over the heap, which matters once the tables are larger than the caches.
template <typename Key, typename KeyHash, typename KeyEqual>
class FlatKeySet
{
public:
    FlatKeySet(std::size_t expected, KeyHash hash, KeyEqual equal)
        : m_hash(hash)
        , m_equal(equal)
    {
        rehash(capacityFor(expected));
    }

    void insert(const Key &key)
    {
        if (2 * (m_size + 1) > m_slots.size())
            rehash(2 * m_slots.size());
        const std::size_t hash = mixed(m_hash(key));
        std::size_t at = hash & m_mask;
        for (; m_slots[at].used; at = (at + 1) & m_mask) {
            if (m_slots[at].hash == hash && m_equal(m_slots[at].key, key))
                return;
        }
        m_slots[at] = Slot{hash, key, true};
        ++m_size;
    }

    bool contains(const Key &key) const
    {
        const std::size_t hash = mixed(m_hash(key));
        for (std::size_t at = hash & m_mask; m_slots[at].used; at = (at + 1) & m_mask) {
            if (m_slots[at].hash == hash && m_equal(m_slots[at].key, key))
                return true;
        }
        return false;
    }

private:
    struct Slot
    {
        std::size_t hash = 0;
        Key key{};
        bool used = false;
    };

    /// Spreads the bits of a hash over the low ones that pick the slot.
    static std::size_t mixed(std::size_t hash)
    {
        hash ^= hash >> 33;
        hash *= 0xff51afd7ed558ccdULL;
        hash ^= hash >> 33;
        return hash;
    }

    /// A power of two that keeps \a count keys at most half full.
    static std::size_t capacityFor(std::size_t count)
    {
        std::size_t capacity = 16;
        while (capacity < 2 * count)
            capacity *= 2;
        return capacity;
    }

    void rehash(std::size_t capacity)
    {
        std::vector<Slot> old(capacity);
        old.swap(m_slots);
        m_mask = capacity - 1;
        for (const Slot &slot : old) {
            if (!slot.used)
                continue;
            std::size_t at = slot.hash & m_mask;
            while (m_slots[at].used)
                at = (at + 1) & m_mask;
            m_slots[at] = slot;
        }
    }

    KeyHash m_hash;
    KeyEqual m_equal;
    std::vector<Slot> m_slots;
    std::size_t m_mask = 0;
    std::size_t m_size = 0;
};

/// Whether every entry of \a mine matches some entry of \a other, in time linear in the two
/// sizes however many entries are alike.
///
/// The match need not be an equivalence; it is expressed through keys on which equality is one.
/// \a storedKeys(entry, add) calls add with every key under which an entry of \a other is to be
/// found, \a wantedKeys(entry, find) calls find with keys of which any one that is stored marks a
/// match for an entry of \a mine. \a hash and \a equal are the hash and the equality of the keys.
/// Equal keys are stored once, so a thousand alike entries cost a thousand insertions into one
/// place rather than a million comparisons. A key that is not equal to itself (a NaN somewhere)
/// can match nothing and is not stored.
template <typename Key, typename Entry, typename KeyHash, typename KeyEqual, typename StoredKeys,
          typename WantedKeys>
bool everyEntryMatchedIn(const std::vector<Entry> &mine, const std::vector<Entry> &other, KeyHash hash,
                         KeyEqual equal, StoredKeys storedKeys, WantedKeys wantedKeys)
{
    FlatKeySet<Key, KeyHash, KeyEqual> stored(other.size(), hash, equal);
    for (const Entry &entry : other) {
        storedKeys(entry, [&stored, &equal](const Key &key) {
            if (equal(key, key))
                stored.insert(key);
        });
    }
    for (const Entry &entry : mine) {
        bool found = false;
        wantedKeys(entry, [&stored, &found](const Key &key) { found = found || stored.contains(key); });
        if (!found)
            return false;
    }
    return true;
}

/// Whether every entry of \a mine has an equal entry somewhere in \a other (order and repeats
/// do not matter), for entries whose equality is an equivalence; \a hash must give equal
/// entries equal hashes.
template <typename Entry, typename Hash>
bool everyEntryFoundIn(const std::vector<Entry> &mine, const std::vector<Entry> &other, Hash hash)
{
    const auto itself = [](const Entry &entry, auto &&use) { use(&entry); };
    return everyEntryMatchedIn<const Entry *>(
        mine, other, [hash](const Entry *entry) { return hash(*entry); },
        [](const Entry *a, const Entry *b) { return *a == *b; }, itself, itself);
}

} // namespace sigdb

#endif
