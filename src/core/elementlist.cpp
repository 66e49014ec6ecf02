#include "core/elementlist.h"

#include "io/columnstream.h"
#include "io/listcodec.h"

#include <algorithm>

namespace sigdb {

ElementList::ElementList() = default;
ElementList::ElementList(const ElementList &other) = default;
ElementList::~ElementList() = default;

ElementList &ElementList::operator=(const ElementList &other)
{
    if (this == &other)
        return *this;
    RecordList<SigdbElement>::operator=(other);
    return *this;
}

base::DbBaseType *ElementList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ElementList>(source);
}

void ElementList::reset()
{
    clear();
    m_cursor = 0;
}

void ElementList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<ElementList *>(this)->setIDs(0);
    writeTo(writer, false);
}

int ElementList::setIDs(int startId)
{
    numberEntries(startId);
    return startId + SigdbElement::ColumnCount;
}

void ElementList::writeTo(ColumnWriter &writer, bool skipUndefined) const
{
    if (!skipUndefined)
        return writeEntries(writer, CountTag);
    std::vector<const SigdbElement *> defined;
    for (const SigdbElement &entry : m_entries) {
        if (!entry.isUndefined())
            defined.push_back(&entry);
    }
    writeListEntries(writer, CountTag, defined,
                     [&writer](const SigdbElement *entry) { entry->writeTo(writer); });
}

bool ElementList::readFrom(ColumnReader &reader)
{
    return readEntries(reader, CountTag);
}

bool ElementList::appendEntryNoDuplicate(const SigdbElement &element)
{
    if (containsEntry(element))
        return false;
    m_entries.push_back(element);
    return true;
}

bool ElementList::containsEntry(const SigdbElement &element) const
{
    return std::find(m_entries.begin(), m_entries.end(), element) != m_entries.end();
}

bool ElementList::containsElementOfType(int type) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [type](const SigdbElement &e) { return e.type() == type; });
}

void ElementList::removeFirstElementOfType(int type)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [type](const SigdbElement &e) { return e.type() == type; });
    if (found != m_entries.end())
        m_entries.erase(found);
}

bool operator==(const ElementList &a, const ElementList &b)
{
    return a.container() == b.container();
}

bool operator!=(const ElementList &a, const ElementList &b)
{
    return !(a == b);
}

} // namespace sigdb
