#include "client/sigdbelementwithmaxcount.h"

#include "io/columnstream.h"

namespace sigdb {

namespace {

enum PagingTag : int {
    Tag_StartIndex = 3,
    Tag_MaxCount = 4,
    Tag_ListType = 5,
};

} // namespace

SigdbElementWithMaxCount::SigdbElementWithMaxCount()
{
    SigdbElement::reset();
}

SigdbElementWithMaxCount::SigdbElementWithMaxCount(const SigdbElement &element)
    : SigdbElement(element)
{
}

SigdbElementWithMaxCount::SigdbElementWithMaxCount(const SigdbElementWithMaxCount &other) = default;
SigdbElementWithMaxCount::~SigdbElementWithMaxCount() = default;

SigdbElementWithMaxCount &SigdbElementWithMaxCount::operator=(const SigdbElementWithMaxCount &other)
{
    if (this == &other)
        return *this;
    SigdbElement::operator=(other);
    m_startIndex = other.m_startIndex;
    m_maxCount = other.m_maxCount;
    m_listType = other.m_listType;
    return *this;
}

base::DbBaseType *SigdbElementWithMaxCount::getCopy(const base::DbBaseType *source)
{
    auto *copy = new SigdbElementWithMaxCount;
    if (const auto *record = dynamic_cast<const SigdbElementWithMaxCount *>(source))
        *copy = *record;
    return copy;
}

void SigdbElementWithMaxCount::reset()
{
    SigdbElement::reset();
    resetData();
}

void SigdbElementWithMaxCount::resetData()
{
    m_startIndex = 0;
    m_maxCount = DefaultMaxCount;
    m_listType = ElementList_Default;
}

void SigdbElementWithMaxCount::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<SigdbElementWithMaxCount *>(this)->setIDs(0);
    writeTo(writer);
}

void SigdbElementWithMaxCount::writeTo(ColumnWriter &writer) const
{
    SigdbElement::writeTo(writer);
    writer.writeLongField(Tag_StartIndex, static_cast<qint64>(m_startIndex));
    writer.writeLongField(Tag_MaxCount, static_cast<qint64>(m_maxCount));
    writer.writeShortField(Tag_ListType, static_cast<qint16>(m_listType));
}

bool SigdbElementWithMaxCount::readFrom(ColumnReader &reader)
{
    qint64 startIndex = 0;
    qint64 maxCount = 0;
    qint16 listType = 0;
    if (!SigdbElement::readFrom(reader) || !reader.readLongField(Tag_StartIndex, startIndex)
        || !reader.readLongField(Tag_MaxCount, maxCount)
        || !reader.readShortField(Tag_ListType, listType))
        return false;
    m_startIndex = static_cast<unsigned long long>(startIndex);
    m_maxCount = static_cast<unsigned long long>(maxCount);
    m_listType = static_cast<ElementList_Type>(listType);
    return true;
}

bool operator==(const SigdbElementWithMaxCount &a, const SigdbElementWithMaxCount &b)
{
    return static_cast<const SigdbElement &>(a) == static_cast<const SigdbElement &>(b)
        && a.startIndex() == b.startIndex() && a.resultListMaxCount() == b.resultListMaxCount();
}

} // namespace sigdb
