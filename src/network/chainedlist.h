#ifndef SIGDB_NETWORK_CHAINEDLIST_H
#define SIGDB_NETWORK_CHAINEDLIST_H

#include "base/dbbasetype.h"
#include "core/entrysequence.h"

namespace sigdb {

/// The shape of the lists inside a callsign table: entries numbered one after the other, each
/// continuing from the id where the previous one ended, and no stream form of their own (they
/// travel inside the table's text form). The entry type provides int setIDs(int) and
/// setLayer(int).
template <typename Entry>
class ChainedList : public base::DbBaseType, public EntrySequence<Entry>
{
public:
    using base::DbBaseType::operator=;

    /// Empties the list.
    void reset() override
    {
        this->clear();
        this->setIteratorToStart();
    }

    /// Writes nothing: the list travels inside its table.
    void serialize(QByteArray &) const override {}

    /// Remembers \a start and numbers the entries one after the other from it; returns the last
    /// id given (\a start for an empty list).
    int setIDs(int start)
    {
        this->m_startId = start;
        int counter = start;
        for (Entry &entry : this->m_entries)
            counter = entry.setIDs(counter);
        return counter;
    }

    /// Sets the layer of every entry.
    void setLayer(int layer) override
    {
        for (Entry &entry : this->m_entries)
            entry.setLayer(layer);
    }

protected:
    ChainedList() = default;
    /// A copy of \a other.
    ChainedList(const ChainedList &other) = default;
    /// Takes over the contents of \a other without copying them.
    ChainedList(ChainedList &&other) = default;
    /// Replaces the contents with a copy of \a other.
    ChainedList &operator=(const ChainedList &other) = default;
    ~ChainedList() override = default;
};

} // namespace sigdb

#endif
