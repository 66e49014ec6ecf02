#ifndef SIGDB_CORE_ENTRYSEQUENCE_H
#define SIGDB_CORE_ENTRYSEQUENCE_H

#include <cstddef>
#include <utility>
#include <vector>

namespace sigdb {

/// The common shape of the record lists: entries held by value in list order, one cursor for
/// iteration, and the start id from which the entries were numbered. Lists derive from it
/// (next to base::DbBaseType) and add their own fields, numbering and encoding.
///
/// The cursor is part of the list, so two interleaved iterations over one list are not
/// possible; operations that change the entries leave the cursor where it is.
template <typename Entry>
class EntrySequence
{
public:
    /// Appends a copy at the end.
    void appendEntry(const Entry &entry) { m_entries.push_back(entry); }
    /// Appends \a entry at the end, moved in.
    void appendEntry(Entry &&entry) { m_entries.push_back(std::move(entry)); }
    /// Inserts a copy before the first entry.
    void prependEntry(const Entry &entry) { m_entries.insert(m_entries.begin(), entry); }
    /// Destroys all entries.
    void clear() { m_entries.clear(); }
    /// Removes the first entry, if any; the others move up by one. The cursor stays where it
    /// is, so an iteration under way skips one entry.
    void removeFirstEntry()
    {
        if (!m_entries.empty())
            m_entries.erase(m_entries.begin());
    }
    /// The number of entries.
    int count() const { return static_cast<int>(m_entries.size()); }

    /// Puts the cursor on the first entry.
    void setIteratorToStart() { m_cursor = 0; }
    /// The entry under the cursor, advancing the cursor; null after the last.
    Entry *getNextEntry() { return m_cursor < m_entries.size() ? &m_entries[m_cursor++] : nullptr; }
    /// Puts the cursor on the first entry and returns it, advancing the cursor past it; null
    /// for an empty list.
    Entry *firstEntry()
    {
        setIteratorToStart();
        return getNextEntry();
    }

    /// The start id of the last numbering.
    int startID() const { return m_startId; }

    /// The entries in list order, for direct access.
    const std::vector<Entry> &container() const { return m_entries; }
    /// The entries in list order, writable.
    std::vector<Entry> &container() { return m_entries; }

protected:
    /// The entries in list order.
    std::vector<Entry> m_entries;
    /// The position of the next entry getNextEntry() returns.
    std::size_t m_cursor = 0;
    /// The start id of the last numbering.
    int m_startId = 0;
};

} // namespace sigdb

#endif
