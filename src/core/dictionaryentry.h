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
    DictionaryEntry(unsigned long long tid, const std::string &exchgId, const std::string &text);

    base::DbDataType<unsigned long long> tid;
    base::DbDataType<std::string> exchgId;
    base::DbDataType<std::string> text;
};

/// The dictionary of one element type, as the core library delivers it.
class SIGDBCORE_EXPORT DictionaryEntryList
{
public:
    DictionaryEntryList();
    explicit DictionaryEntryList(int type);

    int type() const { return m_type; }
    void setType(int type) { m_type = type; }
    void appendEntry(const DictionaryEntry &entry);
    int count() const { return static_cast<int>(m_entries.size()); }
    void clear() { m_entries.clear(); }

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
