#ifndef SIGDB_TESTS_NETWORK_NETWORKTESTING_H
#define SIGDB_TESTS_NETWORK_NETWORKTESTING_H

#include "network/callsigntable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <string>

// Builders shared by the network tests.
namespace networktest {

using Text = base::DbDataType<std::string>;

inline Text text(const char *value)
{
    return value ? Text(std::string(value)) : Text();
}

inline sigdb::SigdbElement element(int type, unsigned long long tid, int layer = 0)
{
    sigdb::SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    e.setLayer(layer);
    return e;
}

/// An element of type 0 without TID: what an unused connection end holds.
inline sigdb::SigdbElement undefinedElement()
{
    return sigdb::SigdbElement();
}

/// A connection end naming \a e, with the overview keys \a name and flags as given (NULL when
/// not given).
inline sigdb::ConnectionEntryDefinition end(const sigdb::SigdbElement &e, const char *name = nullptr)
{
    sigdb::ConnectionEntryDefinition d;
    d.element = e;
    d.overview.element = e;
    d.overview.keyText1 = text(name);
    return d;
}

inline sigdb::ConnectionEntryDefinition rcsEnd(const sigdb::SigdbElement &e)
{
    sigdb::ConnectionEntryDefinition d = end(e);
    d.rcs = true;
    return d;
}

inline sigdb::ConnectionEntryDefinition relayEnd(const sigdb::SigdbElement &e)
{
    sigdb::ConnectionEntryDefinition d = end(e);
    d.relay = true;
    return d;
}

/// A connection with its own TID (none when \a tid is 0) between two ends.
inline sigdb::ConnectionEntry connection(unsigned long long tid, const sigdb::ConnectionEntryDefinition &from,
                                         const sigdb::ConnectionEntryDefinition &to)
{
    sigdb::ConnectionEntry c;
    if (tid != 0)
        c.setTID(tid);
    c.fromDefinition = from;
    c.toDefinition = to;
    return c;
}

inline sigdb::ConnectionEntry connection(unsigned long long tid, const sigdb::SigdbElement &from,
                                         const sigdb::SigdbElement &to)
{
    return connection(tid, end(from), end(to));
}

/// A callsign entry; a null pointer stands for a NULL callsign.
inline sigdb::CallsignEntry callsigns(const char *first, const char *second = nullptr,
                                      const char *third = nullptr, const char *fourth = nullptr)
{
    sigdb::CallsignEntry e;
    e.firstCallsign = text(first);
    e.secondCallsign = text(second);
    e.thirdCallsign = text(third);
    e.fourthCallsign = text(fourth);
    return e;
}

inline sigdb::CallsignSet set(std::initializer_list<sigdb::CallsignEntry> entries)
{
    sigdb::CallsignSet s;
    for (const sigdb::CallsignEntry &e : entries)
        s.entries.appendEntry(e);
    return s;
}

inline sigdb::CallsignTable table(std::initializer_list<sigdb::ConnectionEntry> connections,
                                  std::initializer_list<sigdb::CallsignSet> sets)
{
    sigdb::CallsignTable t;
    for (const sigdb::ConnectionEntry &c : connections)
        t.connections.appendEntry(c);
    for (const sigdb::CallsignSet &s : sets)
        t.sets.appendEntry(s);
    return t;
}

/// The obvious, quadratic reading of the unordered list comparisons, kept as the oracle of
/// the hashed ones: equal counts, and every entry of \a mine equal to some entry of \a other.
template <typename List>
bool slowCompareList(const List &mine, const List &other)
{
    if (mine.count() != other.count())
        return false;
    for (const auto &entry : mine.container()) {
        bool found = false;
        for (const auto &candidate : other.container())
            found = found || candidate == entry;
        if (!found)
            return false;
    }
    return true;
}

/// Checks compareList() of \a List against slowCompareList() on \a trials pairs of small random
/// lists: the second list of a pair is the first shuffled, with about every third entry
/// altered by \a change(entry, random) and now and then one more entry. \a makeEntry(random)
/// makes an entry. Both answers must be common among the trials.
template <typename List, typename MakeEntry, typename Change>
void expectCompareListAgreesWithTheOracle(int trials, MakeEntry makeEntry, Change change)
{
    std::mt19937 random(14);
    int equal = 0;
    int unequal = 0;
    for (int trial = 0; trial < trials; ++trial) {
        List mine;
        const int count = static_cast<int>(random() % 6);
        for (int i = 0; i < count; ++i)
            mine.appendEntry(makeEntry(random));
        List other = mine;
        std::shuffle(other.container().begin(), other.container().end(), random);
        for (auto &entry : other.container()) {
            if (random() % 3 == 0)
                change(entry, random);
        }
        if (random() % 10 == 0)
            other.appendEntry(makeEntry(random));
        const bool expected = slowCompareList(mine, other);
        ASSERT_EQ(mine.compareList(other), expected) << "trial " << trial;
        (expected ? equal : unequal) += 1;
    }
    EXPECT_GT(equal, trials / 5);
    EXPECT_GT(unequal, trials / 5);
}

/// The four callsigns of \a e as one text, NULL shown as "<null>".
inline std::string show(const sigdb::CallsignEntry &e)
{
    std::string shown;
    const char *separator = "";
    for (const Text *t : {&e.firstCallsign, &e.secondCallsign, &e.thirdCallsign, &e.fourthCallsign}) {
        shown += separator;
        shown += t->isNull() ? std::string("<null>") : t->getData();
        separator = ",";
    }
    return shown;
}

} // namespace networktest

#endif
