#ifndef SIGDB_LINK_LINKENTRYLIST_H
#define SIGDB_LINK_LINKENTRYLIST_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"

#include <vector>

namespace sigdb {

/// The shape that the in-memory link lists share: entries held by value in a sequence, a
/// cursor for iteration and a start id for numbering. \a Derived is the list class itself
/// (so that copies and comparisons keep its type), \a Entry the record it holds.
///
/// These lists are never encoded: their entries travel one by one inside other orders. That is
/// why serialize() writes nothing and reset() keeps the entries (clear() removes them).
template <typename Derived, typename Entry>
class SIGDBREF_EXPORT LinkEntryList : public base::DbBaseType
{
public:
    using EntryType = Entry;

    /// A new heap copy of \a source (an empty list when it is of another type).
    base::DbBaseType *getCopy(const base::DbBaseType *source) override
    {
        auto *copy = new Derived;
        if (const auto *list = dynamic_cast<const Derived *>(source))
            *copy = *list;
        return copy;
    }
    /// Does nothing: the entries stay (use clear()).
    void reset() override {}
    /// Writes nothing: the list has no stream form of its own.
    void serialize(QByteArray &) const override {}

    /// Stores \a startId and numbers every entry from it, so all entries carry the same ids;
    /// returns the last entry's result, or \a startId for an empty list.
    int setIDs(int startId)
    {
        m_startId = startId;
        int last = startId;
        for (Entry &entry : m_entries)
            last = entry.setIDs(m_startId);
        return last;
    }
    int startID() const { return m_startId; }

    /// Appends a copy of \a entry.
    void appendEntry(const Entry &entry) { m_entries.push_back(entry); }
    int count() const { return static_cast<int>(m_entries.size()); }
    const std::vector<Entry> &container() const { return m_entries; }
    /// Destroys all entries.
    void clear()
    {
        m_entries.clear();
        m_cursor = 0;
    }
    /// Removes the first entry, if any; the others move up by one. The cursor stays where it
    /// is, so an iteration under way skips one entry.
    void removeFirstEntry()
    {
        if (!m_entries.empty())
            m_entries.erase(m_entries.begin());
    }

    /// Starts an iteration: the first entry, with the cursor past it; null when empty.
    Entry *firstEntry()
    {
        setIteratorToStart();
        return getNextEntry();
    }
    /// The entry under the cursor, advancing it; null after the last.
    Entry *getNextEntry()
    {
        if (m_cursor >= m_entries.size())
            return nullptr;
        return &m_entries[m_cursor++];
    }
    void setIteratorToStart() { m_cursor = 0; }

    /// Equal counts and pairwise equal entries in the same order; two empty lists are equal.
    bool compareList(const Derived &other) const
    {
        const std::vector<Entry> &others = other.container();
        if (m_entries.size() != others.size())
            return false;
        for (size_t i = 0; i < m_entries.size(); ++i) {
            // The entries' equality may take non-const references; it does not modify them.
            if (!(const_cast<Entry &>(m_entries[i]) == const_cast<Entry &>(others[i])))
                return false;
        }
        return true;
    }
    friend bool operator==(const Derived &a, const Derived &b) { return a.compareList(b); }
    friend bool operator!=(const Derived &a, const Derived &b) { return !a.compareList(b); }

protected:
    LinkEntryList() = default;
    LinkEntryList(const LinkEntryList &other) = default;
    LinkEntryList &operator=(const LinkEntryList &other) = default;
    ~LinkEntryList() override = default;

    std::vector<Entry> m_entries;

private:
    size_t m_cursor = 0;
    int m_startId = 0;
};

} // namespace sigdb

#endif
