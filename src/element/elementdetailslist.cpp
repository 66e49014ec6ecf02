#include "element/elementdetailslist.h"

#include "core/sigdbtablespace.h"
#include "io/columnstream.h"
#include "io/listcodec.h"

#include <algorithm>

namespace sigdb {

namespace {

// The column of the parameter rows whose largest order number is asked for.
constexpr int kParameterSetsColumn = 586;
// The key column; a type without it names the column that stands in for it.
constexpr int kKeyColumn = 17;

} // namespace

ElementDetailsList::ElementDetailsList() = default;
ElementDetailsList::ElementDetailsList(const ElementDetailsList &other) = default;
ElementDetailsList::~ElementDetailsList() = default;

ElementDetailsList &ElementDetailsList::operator=(const ElementDetailsList &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    EntrySequence<ElementDetails>::operator=(other);
    m_listNumber = other.m_listNumber;
    return *this;
}

base::DbBaseType *ElementDetailsList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ElementDetailsList>(source);
}

void ElementDetailsList::reset()
{
    clear();
    setIteratorToStart();
    m_listNumber = 0;
}

void ElementDetailsList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    // Sending the list starts it afresh: it is numbered from 0, and an iteration begun before
    // starts again from the first detail.
    auto *self = const_cast<ElementDetailsList *>(this);
    self->setIDs(0);
    self->setIteratorToStart();
    writeTo(writer);
}

int ElementDetailsList::setIDs(int start)
{
    m_listNumber.setID(static_cast<unsigned int>(start + 1));
    m_startId = start + 1;
    int last = start + 1;
    for (ElementDetails &details : m_entries)
        last = details.setIDs(last);
    return last;
}

void ElementDetailsList::writeTo(ColumnWriter &writer) const
{
    writer.write(m_listNumber);
    writeListEntries(writer, CountTag, m_entries,
                     [&writer](const ElementDetails &details) { writeDetail(writer, details); });
}

void ElementDetailsList::readListNumber(ColumnReader &reader)
{
    base::DbDataType<int> number;
    number.setID(static_cast<unsigned int>(m_listNumber.getID()));
    if (reader.read(number))
        m_listNumber = number;
}

bool ElementDetailsList::readFrom(ColumnReader &reader)
{
    readListNumber(reader);
    int nextId = m_startId;
    return readListEntries(reader, CountTag, m_entries, minimumEntrySize<ElementDetails>(writeDetail),
                           [&reader, &nextId](ElementDetails &details) {
                               nextId = details.setIDs(nextId);
                               return readDetail(reader, details);
                           });
}

bool ElementDetailsList::readEach(ColumnReader &reader,
                                  const std::function<bool(ElementDetails &, const QByteArray &)> &take)
{
    // The list framing of readFrom() (readListEntries()), with one detail alive at a time.
    readListNumber(reader);
    qint64 count = 0;
    if (!reader.readLongField(CountTag, count))
        return false;
    int nextId = m_startId;
    QByteArray tableText;
    for (qint64 i = 0; i < count; ++i) {
        if (reader.atEnd())
            return false;
        ElementDetails details;
        nextId = details.setIDs(nextId);
        if (!readDetail(reader, details, tableText) || !take(details, tableText))
            return false;
    }
    return true;
}

void ElementDetailsList::writeDetail(ColumnWriter &writer, const ElementDetails &details)
{
    details.SigdbElementDetails::writeTo(writer);
    details.elementDefinition().writeTo(writer);
    writer.write(details.detailsNumber());
    writer.write(details.collocationTID());
    details.referenceDocuments().writeTo(writer);
    details.networkList().writeTo(writer);
    writer.writeTextField(CallsignTableTag, details.callsignTable().toUtf8Text());
}

bool ElementDetailsList::readDetail(ColumnReader &reader, ElementDetails &details)
{
    QByteArray callsignTable;
    return readDetail(reader, details, callsignTable) && details.callsignTable().fromUtf8Text(callsignTable);
}

bool ElementDetailsList::readDetail(ColumnReader &reader, ElementDetails &details, QByteArray &tableText)
{
    SigdbElement definition = details.elementDefinition();
    if (!details.SigdbElementDetails::readFrom(reader) || !definition.readFrom(reader))
        return false;
    details.setElementDefinition(definition);
    return reader.read(details.detailsNumber()) && reader.read(details.collocationTID())
        && details.referenceDocuments().readFrom(reader) && details.networkList().readFrom(reader)
        && reader.readTextField(CallsignTableTag, tableText);
}

void ElementDetailsList::appendDetailsList(const ElementDetailsList &other)
{
    for (const ElementDetails &details : other.container())
        appendEntry(details);
}

ElementDetails ElementDetailsList::firstDetail() const
{
    return m_entries.empty() ? ElementDetails() : m_entries.front();
}

int ElementDetailsList::getTypeOfIndex(unsigned int index) const
{
    return index < m_entries.size() ? m_entries[index].type() : 0;
}

int ElementDetailsList::getMaxOrderNumberOfParameterSets()
{
    int result = -1;
    for (ElementDetails &details : m_entries)
        result = std::max(result, details.getIncludedDetailsMaxValueForColumnId(kParameterSetsColumn));
    return result;
}

void ElementDetailsList::initMemberCurrentParameterSets()
{
    for (ElementDetails &details : m_entries)
        details.initCurrentSelectedIncludedDetails();
}

void ElementDetailsList::setApprove(bool approve)
{
    for (ElementDetails &details : m_entries)
        details.setApprove(approve);
}

void ElementDetailsList::sortLists()
{
    for (ElementDetails &details : m_entries)
        details.sortLists();
}

bool ElementDetailsList::approveDataAvailable() const
{
    if (m_entries.size() < 2 || m_entries[1].type() == 0)
        return false;
    const ElementDetails &second = m_entries[1];
    if (!second.hasApprovalData())
        return true;
    const int replacement = SigdbTableSpace::instance().tableForType(second.type()).columnReplace(kKeyColumn);
    if (replacement < 0)
        return false;
    return !second.isNull(replacement);
}

bool ElementDetailsList::compareDetails(const ElementDetailsList &other) const
{
    return m_entries == other.m_entries && m_listNumber == other.m_listNumber;
}

bool operator==(const ElementDetailsList &a, const ElementDetailsList &b)
{
    return a.compareDetails(b);
}

} // namespace sigdb
