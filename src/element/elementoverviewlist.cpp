#include "element/elementoverviewlist.h"

#include "core/dictionaryentry.h"
#include "io/columnstream.h"
#include "io/listcodec.h"

#include <algorithm>

namespace sigdb {

namespace {

/// Element type of collocation groups: a group that is new has no TID yet and stands for the
/// group of its first subgroup.
constexpr int kCollocationGroupType = 24;

/// Element types that a selection of a parent can stand for.
constexpr int kUnitType = 1;
constexpr int kPlatformType = 2;
constexpr int kTransceiverType = 3;

/// The entry under \a cursor of \a entries, advancing the cursor; null after the last.
template <typename Entry>
const Entry *nextEntry(const std::vector<Entry> &entries, std::size_t &cursor)
{
    if (cursor >= entries.size())
        return nullptr;
    return &entries[cursor++];
}

} // namespace

ElementOverviewList::ElementOverviewList()
    : collocationModState(CollocationMod_Unchanged)
{
}

ElementOverviewList::ElementOverviewList(const ElementOverviewList &other) = default;
ElementOverviewList::~ElementOverviewList() = default;
ElementOverviewList &ElementOverviewList::operator=(const ElementOverviewList &other) = default;

base::DbBaseType *ElementOverviewList::getCopy(const base::DbBaseType *source)
{
    auto *copy = new ElementOverviewList;
    if (const auto *list = dynamic_cast<const ElementOverviewList *>(source))
        *copy = *list;
    return copy;
}

void ElementOverviewList::reset()
{
    m_results.clear();
    m_resultCursor = 0;
    m_subLists.clear();
    m_subListCursor = 0;
    collocationModState = CollocationMod_Unchanged;
    m_collocatedLocation = LocationEntry();
    m_requestedListType = ElementList_Default;
    m_moreResultsAvailable = 0;
    m_parentDefinition = SigdbElement();
    // The first text becomes an empty text, the other two NULL: a reset list differs from a
    // fresh one (all three NULL) on purpose.
    listText1 = std::string();
    for (base::DbDataType<std::string> *text : {&listText2, &listText3}) {
        text->getData().clear();
        text->setNull(true);
    }
    m_dataLayer = 0;
}

void ElementOverviewList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<ElementOverviewList *>(this)->setIDs(0);
    writeTo(writer);
}

int ElementOverviewList::setIDs(int start)
{
    const int n = m_parentDefinition.setIDs(start);
    m_startId = n;
    collocationModState.setID(static_cast<unsigned int>(n + 1));
    listText1.setID(static_cast<unsigned int>(n + 2));
    listText2.setID(static_cast<unsigned int>(n + 3));
    listText3.setID(static_cast<unsigned int>(n + 4));
    const int l = m_collocatedLocation.setIDs(n + 4);
    // Results and sub-lists all start from the same id: ids are positions within one record.
    for (ElementOverview &result : m_results)
        result.setIDs(n);
    for (ElementOverviewList &subList : m_subLists)
        subList.setIDs(n);
    return l;
}

void ElementOverviewList::writeTo(ColumnWriter &writer) const
{
    m_parentDefinition.writeTo(writer);
    writer.writeLongField(Tag_MoreResultsAvailable, static_cast<qint64>(m_moreResultsAvailable));
    writer.writeShortField(Tag_RequestedListType, static_cast<qint16>(m_requestedListType));
    writer.writeLongField(Tag_DataLayer, static_cast<qint64>(m_dataLayer));
    writer.writeLongField(Tag_ResultCount, static_cast<qint64>(m_results.size()));
    writer.writeLongField(Tag_SubListCount, static_cast<qint64>(m_subLists.size()));
    writer.write(collocationModState);
    writer.write(listText1);
    writer.write(listText2);
    writer.write(listText3);
    m_collocatedLocation.writeTo(writer);
    for (const ElementOverview &result : m_results)
        result.writeTo(writer);
    for (const ElementOverviewList &subList : m_subLists)
        subList.writeTo(writer);
}

bool ElementOverviewList::readFrom(ColumnReader &reader)
{
    const ColumnReader::Nesting nesting(reader);
    if (!nesting.ok())
        return false;

    qint64 moreResultsAvailable = 0;
    qint16 requestedListType = 0;
    qint64 dataLayer = 0;
    qint64 resultCount = 0;
    qint64 subListCount = 0;
    if (!m_parentDefinition.readFrom(reader)
        || !reader.readLongField(Tag_MoreResultsAvailable, moreResultsAvailable))
        return false;
    m_moreResultsAvailable = static_cast<unsigned int>(moreResultsAvailable);
    if (!reader.readShortField(Tag_RequestedListType, requestedListType))
        return false;
    m_requestedListType = static_cast<ElementList_Type>(requestedListType);
    if (!reader.readLongField(Tag_DataLayer, dataLayer))
        return false;
    m_dataLayer = static_cast<int>(dataLayer);
    if (!reader.readLongField(Tag_ResultCount, resultCount)
        || !reader.readLongField(Tag_SubListCount, subListCount)
        || !reader.read(collocationModState)
        || !reader.read(listText1)
        || !reader.read(listText2)
        || !reader.read(listText3)
        || !m_collocatedLocation.readFrom(reader))
        return false;

    reserveEntries(m_results, reader, resultCount, minimumEntrySize<ElementOverview>());
    if (!readCountedEntries(reader, resultCount, m_results, [this, &reader](ElementOverview &result) {
            result.setIDs(m_startId);
            return result.readFrom(reader);
        }))
        return false;
    // Sub-lists grow as they are read: reserving at every level of a deep nesting would add up
    // to more than the bytes could fill.
    return readCountedEntries(reader, subListCount, m_subLists, [this, &reader](ElementOverviewList &subList) {
        subList.setIDs(m_startId);
        return subList.readFrom(reader);
    });
}

unsigned long long ElementOverviewList::parentTID() const
{
    if (m_parentDefinition.TID() != 0 || m_parentDefinition.type() != kCollocationGroupType
        || m_subLists.empty())
        return m_parentDefinition.TID();
    return m_subLists.front().m_parentDefinition.TID();
}

void ElementOverviewList::setApprove(bool approve)
{
    m_parentDefinition.setApprove(approve);
    for (ElementOverviewList &subList : m_subLists)
        subList.setApprove(approve);
}

void ElementOverviewList::appendResult(const ElementOverview &result, bool ordered)
{
    if (!ordered) {
        m_results.push_back(result);
        return;
    }
    if (result.orderNumber.isNull()) {
        m_results.insert(m_results.begin(), result);
        return;
    }
    const int number = result.orderNumber.getData();
    const auto before = std::find_if(m_results.begin(), m_results.end(),
                                     [number](const ElementOverview &present) {
                                         return !present.orderNumber.isNull()
                                             && present.orderNumber.getData() > number;
                                     });
    m_results.insert(before, result);
}

void ElementOverviewList::prependResult(const ElementOverview &result)
{
    m_results.insert(m_results.begin(), result);
}

bool ElementOverviewList::appendResultNoDuplicate(const ElementOverview &result)
{
    if (containsResult(result))
        return false;
    m_results.push_back(result);
    return true;
}

bool ElementOverviewList::containsResult(const ElementOverview &result) const
{
    return std::any_of(m_results.begin(), m_results.end(),
                       [&result](const ElementOverview &present) {
                           return present.element == result.element;
                       });
}

void ElementOverviewList::addDictionary(DictionaryEntryList &dictionary)
{
    dictionary.setIteratorToStart();
    while (const DictionaryEntry *entry = dictionary.getNextEntry()) {
        ElementOverview result;
        result.modificationState = Modification_Unchanged;
        result.element.setTid(entry->tid);
        result.element.setType(dictionary.type());
        result.element.setExchgId(entry->exchgId);
        result.keyText1 = entry->text;
        m_results.push_back(std::move(result));
    }
}

void ElementOverviewList::clear()
{
    m_results.clear();
}

const ElementOverview *ElementOverviewList::firstResult()
{
    setIteratorToStart();
    return getNextResult();
}

const ElementOverview *ElementOverviewList::getNextResult()
{
    return nextEntry(m_results, m_resultCursor);
}

const ElementOverview *ElementOverviewList::superiorResult() const
{
    if (m_parentDefinition.type() == 0 || m_results.empty())
        return nullptr;
    const int type = m_parentDefinition.type();
    const unsigned long long tid = parentTID();
    for (const ElementOverview &result : m_results) {
        if (result.element.type() == type && result.element.TID() == tid)
            return &result;
    }
    return nullptr;
}

const ElementOverview *ElementOverviewList::selectedResult() const
{
    const SigdbElement &parent = m_parentDefinition;
    for (const ElementOverview &result : m_results) {
        const SigdbElement &element = result.element;
        switch (element.type()) {
        case kUnitType:
            // Under a platform a unit is passed over; under a unit the result is a unit other
            // than the parent; under anything else a unit counts only as the list's one result.
            if (parent.type() == kPlatformType)
                break;
            if (parent.type() == kUnitType) {
                if (parentTID() != element.TID())
                    return &result;
                break;
            }
            if (m_results.size() == 1)
                return &result;
            break;
        case kPlatformType:
        case kTransceiverType:
            if (parent.type() != kPlatformType)
                return parent.type() == 0 ? &result : nullptr;
            if (parent.TID() != element.TID() || parent.type() != element.type())
                return &result;
            break;
        default:
            return nullptr;
        }
    }
    return nullptr;
}

void ElementOverviewList::appendResultList(const ElementOverviewList &list)
{
    m_subLists.push_back(list);
}

void ElementOverviewList::clearSubLists()
{
    m_subLists.clear();
}

const ElementOverviewList *ElementOverviewList::firstSubList()
{
    setSubListIteratorToStart();
    return getNextSubList();
}

const ElementOverviewList *ElementOverviewList::getNextSubList()
{
    return nextEntry(m_subLists, m_subListCursor);
}

bool ElementOverviewList::compareContent(const ElementOverviewList &other) const
{
    return m_results == other.m_results && m_subLists == other.m_subLists;
}

void ElementOverviewList::printDebug() const
{
    for (const ElementOverviewList &subList : m_subLists)
        subList.printDebug();
}

bool operator==(const ElementOverviewList &a, const ElementOverviewList &b)
{
    if (a.moreResultsAvailable() != b.moreResultsAvailable()
        || a.parentDefinition() != b.parentDefinition()
        || a.collocationModificationState() != b.collocationModificationState()
        || a.requestedListType() != b.requestedListType()
        || a.listText1 != b.listText1
        || a.listText2 != b.listText2
        || a.listText3 != b.listText3
        || a.collocatedLocation() != b.collocatedLocation()
        || a.count() != b.count()
        || a.subListCount() != b.subListCount())
        return false;
    if (a.count() == 0 && a.subListCount() == 0)
        return true;
    return a.compareContent(b);
}

bool operator!=(const ElementOverviewList &a, const ElementOverviewList &b)
{
    return !(a == b);
}

} // namespace sigdb
