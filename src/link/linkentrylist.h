#ifndef SIGDB_LINK_LINKENTRYLIST_H
#define SIGDB_LINK_LINKENTRYLIST_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "core/entrysequence.h"

#include <vector>

namespace sigdb {

/// The shape that the in-memory link lists share: entries held by value in a sequence, a
/// cursor for iteration and a start id for numbering. \a Derived is the list class itself
/// (so that copies and comparisons keep its type), \a Entry the record it holds.
///
/// These lists are never encoded: their entries travel one by one inside other orders. That is
/// why serialize() writes nothing and reset() keeps the entries (clear() removes them).
template <typename Derived, typename Entry>
class SIGDBREF_EXPORT LinkEntryList : public base::DbBaseType, public EntrySequence<Entry>
{
public:
    /// The record the list holds.
    using EntryType = Entry;

    /// A new heap copy of \a source (an empty list when it is of another type).
    base::DbBaseType *getCopy(const base::DbBaseType *source) override
    {
        return base::copyRecord<Derived>(source);
    }
    /// Does nothing: the entries stay (use clear()).
    void reset() override {}
    /// Writes nothing: the list has no stream form of its own.
    void serialize(QByteArray &) const override {}

    /// Stores \a startId and numbers every entry from it, so all entries carry the same ids;
    /// returns the last entry's result, or \a startId for an empty list.
    int setIDs(int startId)
    {
        this->m_startId = startId;
        int last = startId;
        for (Entry &entry : this->m_entries)
            last = entry.setIDs(startId);
        return last;
    }

    /// Equal counts and pairwise equal entries in the same order; two empty lists are equal.
    bool compareList(const Derived &other) const
    {
        const std::vector<Entry> &mine = this->m_entries;
        const std::vector<Entry> &others = other.container();
        if (mine.size() != others.size())
            return false;
        for (size_t i = 0; i < mine.size(); ++i) {
            // The entries' equality may take non-const references; it does not modify them.
            if (!(const_cast<Entry &>(mine[i]) == const_cast<Entry &>(others[i])))
                return false;
        }
        return true;
    }
    /// Lists are equal as compareList() says.
    friend bool operator==(const Derived &a, const Derived &b) { return a.compareList(b); }
    /// The opposite of operator==.
    friend bool operator!=(const Derived &a, const Derived &b) { return !a.compareList(b); }

protected:
    LinkEntryList() = default;
    /// A copy of \a other.
    LinkEntryList(const LinkEntryList &other) = default;
    /// Takes over the contents of \a other without copying them.
    LinkEntryList(LinkEntryList &&other) = default;
    /// Replaces the contents with a copy of \a other.
    LinkEntryList &operator=(const LinkEntryList &other) = default;
    ~LinkEntryList() override = default;
};

} // namespace sigdb

#endif
