#include "core/dictionaryentry.h"

namespace sigdb {

DictionaryEntry::DictionaryEntry() = default;

DictionaryEntry::DictionaryEntry(unsigned long long tid, const std::string &exchgId,
                                 const std::string &text)
    : tid(tid)
    , exchgId(exchgId)
    , text(text)
{
}

DictionaryEntryList::DictionaryEntryList() = default;

DictionaryEntryList::DictionaryEntryList(int type)
    : m_type(type)
{
}

void DictionaryEntryList::appendEntry(const DictionaryEntry &entry)
{
    m_entries.push_back(entry);
}

const DictionaryEntry *DictionaryEntryList::getNextEntry()
{
    if (m_cursor >= m_entries.size())
        return nullptr;
    return &m_entries[m_cursor++];
}

} // namespace sigdb
