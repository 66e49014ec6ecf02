#ifndef SIGDB_CORE_DICTIONARYENTRY_H
#define SIGDB_CORE_DICTIONARYENTRY_H

#include "sigdbcore_export.h"

#include "base/dbdatatype.h"

#include <string>
#include <vector>

namespace sigdb {

/// One entry of a dictionary of elements of one type: the element's TID, exchange id and the
/// text it is listed under.
class SIGDBCORE_EXPORT DictionaryEntry
{
public:
    DictionaryEntry();
    /// An entry for the element with \a tid and \a exchgId, listed as \a text.
    DictionaryEntry(unsigned long long tid, const std::string &exchgId, const std::string &text);

    /// The element's TID.
    base::DbDataType<unsigned long long> tid;
    /// The element's exchange id.
    base::DbDataType<std::string> exchgId;
    /// The text the element is listed under.
    base::DbDataType<std::string> text;
};

/// The dictionary of one element type, as the core library delivers it.
class SIGDBCORE_EXPORT DictionaryEntryList
{
public:
    DictionaryEntryList();
    /// An empty dictionary of element type \a type.
    explicit DictionaryEntryList(int type);

    /// The element type of the dictionary.
    int type() const { return m_type; }
    /// Sets the element type of the dictionary.
    void setType(int type) { m_type = type; }
    /// Appends a copy of \a entry.
    void appendEntry(const DictionaryEntry &entry);
    /// The number of entries.
    int count() const { return static_cast<int>(m_entries.size()); }
    /// Removes every entry.
    void clear() { m_entries.clear(); }

    /// Puts the cursor on the first entry.
    void setIteratorToStart() { m_cursor = 0; }
    /// The entry under the cursor, advancing it; null after the last.
    const DictionaryEntry *getNextEntry();

private:
    int m_type = 0;
    std::vector<DictionaryEntry> m_entries;
    size_t m_cursor = 0;
};

} // namespace sigdb

#endif
