#include "network/callsignset.h"

namespace sigdb {

CallsignSet::CallsignSet() = default;
CallsignSet::CallsignSet(const CallsignSet &other) = default;
CallsignSet::~CallsignSet() = default;

CallsignSet &CallsignSet::operator=(const CallsignSet &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    firstValue = other.firstValue;
    secondValue = other.secondValue;
    entries = other.entries;
    return *this;
}

base::DbBaseType *CallsignSet::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<CallsignSet>(source);
}

void CallsignSet::reset()
{
    firstValue = base::DbDataType<std::string>();
    secondValue = base::DbDataType<std::string>();
}

void CallsignSet::serialize(QByteArray &) const
{
}

int CallsignSet::setIDs(int start)
{
    firstValue.setID(static_cast<unsigned int>(start + 1));
    secondValue.setID(static_cast<unsigned int>(start + 2));
    return entries.setIDs(start + 3);
}

bool operator==(const CallsignSet &a, const CallsignSet &b)
{
    return a.firstValue == b.firstValue && a.secondValue == b.secondValue
        && a.entries.compareList(b.entries);
}

bool operator!=(const CallsignSet &a, const CallsignSet &b)
{
    return !(a == b);
}

CallsignSetList::CallsignSetList() = default;
CallsignSetList::CallsignSetList(const CallsignSetList &other) = default;
CallsignSetList::~CallsignSetList() = default;

CallsignSetList &CallsignSetList::operator=(const CallsignSetList &other) = default;

base::DbBaseType *CallsignSetList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<CallsignSetList>(source);
}

void CallsignSetList::setLayer(int layer)
{
    for (CallsignSet &set : m_entries)
        set.entries.setLayer(layer);
}

bool CallsignSetList::compareList(const CallsignSetList &other) const
{
    return m_entries == other.m_entries;
}

bool operator==(const CallsignSetList &a, const CallsignSetList &b)
{
    return a.compareList(b);
}

} // namespace sigdb
