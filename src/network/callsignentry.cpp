#include "network/callsignentry.h"

#include "network/networkindex_p.h"

#include <algorithm>
#include <stdexcept>

namespace sigdb {

CallsignEntry::CallsignEntry()
{
    CallsignEntry::reset();
}

CallsignEntry::CallsignEntry(const CallsignEntry &other) = default;
CallsignEntry::~CallsignEntry() = default;

CallsignEntry &CallsignEntry::operator=(const CallsignEntry &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    entryNumber = other.entryNumber;
    firstCallsign = other.firstCallsign;
    secondCallsign = other.secondCallsign;
    thirdCallsign = other.thirdCallsign;
    fourthCallsign = other.fourthCallsign;
    return *this;
}

base::DbBaseType *CallsignEntry::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<CallsignEntry>(source);
}

void CallsignEntry::reset()
{
    entryNumber = base::DbDataType<unsigned long long>();
    for (base::DbDataType<std::string> *text :
         {&firstCallsign, &secondCallsign, &thirdCallsign, &fourthCallsign})
        *text = base::DbDataType<std::string>();
}

void CallsignEntry::serialize(QByteArray &) const
{
}

int CallsignEntry::setIDs(int start)
{
    firstCallsign.setID(static_cast<unsigned int>(start + 1));
    secondCallsign.setID(static_cast<unsigned int>(start + 2));
    thirdCallsign.setID(static_cast<unsigned int>(start + 3));
    fourthCallsign.setID(static_cast<unsigned int>(start + 4));
    return start + 4;
}

bool operator==(const CallsignEntry &a, const CallsignEntry &b)
{
    return a.firstCallsign == b.firstCallsign && a.secondCallsign == b.secondCallsign
        && a.thirdCallsign == b.thirdCallsign && a.fourthCallsign == b.fourthCallsign;
}

bool operator!=(const CallsignEntry &a, const CallsignEntry &b)
{
    return !(a == b);
}

CallsignEntryList::CallsignEntryList() = default;
CallsignEntryList::CallsignEntryList(const CallsignEntryList &other) = default;
CallsignEntryList::~CallsignEntryList() = default;

CallsignEntryList &CallsignEntryList::operator=(const CallsignEntryList &other) = default;

base::DbBaseType *CallsignEntryList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<CallsignEntryList>(source);
}

CallsignEntry *CallsignEntryList::entryAt(int index)
{
    if (index < 0)
        throw std::out_of_range("invalid vector<T> subscript");
    if (index >= count())
        return nullptr;
    return &m_entries[static_cast<size_t>(index)];
}

void CallsignEntryList::changeEntryAt(int index, const CallsignEntry &entry)
{
    if (CallsignEntry *target = entryAt(index))
        *target = entry;
}

bool CallsignEntryList::contains(const CallsignEntry &entry) const
{
    return std::find(m_entries.begin(), m_entries.end(), entry) != m_entries.end();
}

bool CallsignEntryList::compareList(const CallsignEntryList &other) const
{
    const auto callsignHash = [](const CallsignEntry &entry) {
        std::size_t seed = nullableHash(entry.firstCallsign);
        for (const base::DbDataType<std::string> *text : {&entry.secondCallsign, &entry.thirdCallsign, &entry.fourthCallsign})
            hashCombine(seed, nullableHash(*text));
        return seed;
    };
    return count() == other.count() && everyEntryFoundIn(m_entries, other.m_entries, callsignHash);
}

bool operator==(const CallsignEntryList &a, const CallsignEntryList &b)
{
    return a.compareList(b);
}

} // namespace sigdb
