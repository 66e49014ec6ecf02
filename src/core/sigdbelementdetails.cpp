#include "core/sigdbelementdetails.h"

#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <limits>

namespace sigdb {

namespace {

constexpr int kMaxCount16 = std::numeric_limits<qint16>::max();

const SigdbTable &tableOf(int type)
{
    return SigdbTableSpace::instance().tableForType(type);
}

int count16(size_t size)
{
    return static_cast<int>(std::min<size_t>(size, kMaxCount16));
}

} // namespace

SigdbElementDetails::SigdbElementDetails() = default;
SigdbElementDetails::SigdbElementDetails(const SigdbElementDetails &other) = default;
SigdbElementDetails::SigdbElementDetails(const SigdbElement &element)
    : ElementBaseName(element)
{
    SigdbElementDetails::setType(element.type());
}
SigdbElementDetails::~SigdbElementDetails() = default;

SigdbElementDetails &SigdbElementDetails::operator=(const SigdbElementDetails &other)
{
    if (this == &other)
        return *this;
    ElementBaseName::operator=(other);
    m_columns = other.m_columns;
    m_included = other.m_included;
    m_locations = other.m_locations;
    m_profile = other.m_profile;
    m_approvalData = other.m_approvalData;
    return *this;
}

base::DbBaseType *SigdbElementDetails::getCopy(const base::DbBaseType *source)
{
    auto *copy = new SigdbElementDetails;
    if (const auto *details = dynamic_cast<const SigdbElementDetails *>(source))
        *copy = *details;
    else if (const auto *element = dynamic_cast<const SigdbElement *>(source))
        *copy = SigdbElementDetails(*element);
    return copy;
}

void SigdbElementDetails::reset()
{
    *this = SigdbElementDetails();
}

void SigdbElementDetails::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<SigdbElementDetails *>(this)->setIDs(0);
    writeTo(writer);
}

void SigdbElementDetails::setType(int type)
{
    const SigdbTable &from = tableOf(this->type());
    const SigdbTable &to = tableOf(type);
    std::vector<base::DbDataType<std::string>> columns(static_cast<size_t>(to.allColumnCount()));
    for (int i = 0; i < to.allColumnCount(); ++i) {
        const int index = from.columnIndex(to.allColumnAt(i).id());
        if (index >= 0 && static_cast<size_t>(index) < m_columns.size())
            columns[static_cast<size_t>(i)] = m_columns[static_cast<size_t>(index)];
    }
    m_columns = std::move(columns);
    SigdbElement::setType(type);
}

void SigdbElementDetails::setLayer(int layer)
{
    ElementBaseName::setLayer(layer);
    for (SigdbElementDetails &included : m_included)
        included.setLayer(layer);
}

void SigdbElementDetails::writeTo(ColumnWriter &writer) const
{
    SigdbElement::writeTo(writer);

    const int textCount = count16(m_columns.size());
    writer.writeShortField(ColumnTextsTag, static_cast<qint16>(textCount));
    writer.writeUntagged(m_columns.data(), static_cast<size_t>(textCount));

    const int includedCount = count16(m_included.size());
    writer.writeShortField(IncludedDetailsTag, static_cast<qint16>(includedCount));
    for (int i = 0; i < includedCount; ++i) {
        SigdbElementDetails &included = const_cast<SigdbElementDetails &>(m_included[static_cast<size_t>(i)]);
        included.setIDs(0);
        included.writeTo(writer);
    }

    writer.writeFlags(ProfileFlagsTag, m_profile.boolVector());
    writer.writeByteField(ProfileValidTag, m_profile.isValid() ? 1 : 0);
    writer.write(m_profile.parameterSet());
}

bool SigdbElementDetails::readFrom(ColumnReader &reader)
{
    ColumnReader::Nesting nesting(reader);
    return nesting.ok() && readNested(reader);
}

bool SigdbElementDetails::readNested(ColumnReader &reader)
{
    if (!SigdbElement::readFrom(reader))
        return false;

    qint16 count = 0;
    if (!reader.readShortField(ColumnTextsTag, count))
        return false;
    // Column texts carry id 0, so one would read as NULL from an exhausted stream: every text
    // needs a frame that is really there.
    std::vector<base::DbDataType<std::string>> texts;
    // Every text takes a frame of at least four bytes: reserve no more than the bytes can hold.
    texts.reserve(static_cast<size_t>(std::max<qint64>(0, std::min<qint64>(count, reader.bytesLeft() / 4))));
    for (qint16 i = 0; i < count; ++i) {
        base::DbDataType<std::string> text;
        if (reader.atEnd() || !reader.readUntagged(text))
            return false;
        texts.push_back(std::move(text));
    }
    setAllData(std::move(texts));

    if (!reader.readShortField(IncludedDetailsTag, count))
        return false;
    std::vector<SigdbElementDetails> included;
    for (qint16 i = 0; i < count; ++i) {
        SigdbElementDetails detail;
        detail.setIDs(0);
        if (reader.atEnd() || !detail.readFrom(reader))
            return false;
        included.push_back(std::move(detail));
    }
    // Moved in rather than copied: the included details can be most of what the bytes hold.
    m_included = std::move(included);

    std::vector<bool> flags;
    if (!reader.readFlags(ProfileFlagsTag, flags))
        return false;
    m_profile.setBoolVector(flags);

    qint8 valid = 0;
    const bool validOk = reader.readByteField(ProfileValidTag, valid);
    m_profile.setValid(validOk && valid != 0);
    if (!validOk)
        return false;
    return reader.read(m_profile.parameterSet());
}

int SigdbElementDetails::columnSlot(int columnId) const
{
    const int index = tableOf(type()).columnIndex(columnId);
    return index >= 0 && static_cast<size_t>(index) < m_columns.size() ? index : -1;
}

base::DbDataType<std::string> &SigdbElementDetails::str(int columnId, bool *ok)
{
    const int slot = columnSlot(columnId);
    if (ok)
        *ok = slot >= 0;
    if (slot < 0) {
        m_scratch = base::DbDataType<std::string>();
        return m_scratch;
    }
    return m_columns[static_cast<size_t>(slot)];
}

const base::DbDataType<std::string> &SigdbElementDetails::str(int columnId, bool *ok) const
{
    static const base::DbDataType<std::string> missing;
    const int slot = columnSlot(columnId);
    if (ok)
        *ok = slot >= 0;
    return slot < 0 ? missing : m_columns[static_cast<size_t>(slot)];
}

const char *SigdbElementDetails::c_str(int columnId, bool *ok) const
{
    return str(columnId, ok).getData().c_str();
}

bool SigdbElementDetails::isNull(int columnId, bool *ok) const
{
    return str(columnId, ok).isNull();
}

void SigdbElementDetails::setNull(int columnId, bool *ok)
{
    str(columnId, ok).setNull(true);
}

bool SigdbElementDetails::getBool(int columnId, bool *ok) const
{
    const base::DbDataType<std::string> &value = str(columnId, ok);
    return !value.isNull() && value.getData() == "T";
}

bool SigdbElementDetails::setBool(int columnId, bool value)
{
    bool ok = false;
    base::DbDataType<std::string> &column = str(columnId, &ok);
    if (ok)
        column = std::string(value ? "T" : "F");
    return ok;
}

void SigdbElementDetails::setAllData(std::vector<base::DbDataType<std::string>> data)
{
    m_columns = std::move(data);
}

SigdbElementDetails &SigdbElementDetails::includedDetailsAt(int index)
{
    if (index < 0 || static_cast<size_t>(index) >= m_included.size()) {
        static thread_local SigdbElementDetails scratch;
        scratch = SigdbElementDetails();
        return scratch;
    }
    return m_included[static_cast<size_t>(index)];
}

void SigdbElementDetails::setIncludedDetails(const std::vector<SigdbElementDetails> &details)
{
    m_included = details;
}

void SigdbElementDetails::sortIncludedDetailsByColumnId(int columnId)
{
    std::stable_sort(m_included.begin(), m_included.end(),
                     [columnId](const SigdbElementDetails &a, const SigdbElementDetails &b) {
                         return QString::fromStdString(a.str(columnId).getData()).toLongLong()
                             < QString::fromStdString(b.str(columnId).getData()).toLongLong();
                     });
}

int SigdbElementDetails::getIncludedDetailsMaxValueForColumnId(int columnId)
{
    int result = -1;
    for (const SigdbElementDetails &included : m_included) {
        const base::DbDataType<std::string> &value = included.str(columnId);
        bool ok = false;
        const int number = QString::fromStdString(value.getData()).toInt(&ok);
        if (!value.isNull() && ok)
            result = std::max(result, number);
    }
    return result;
}

bool SigdbElementDetails::hasTableIncludeType() const
{
    return tableIncludeType() != 0;
}

int SigdbElementDetails::tableIncludeType() const
{
    return tableOf(type()).tableIncludeType();
}

void SigdbElementDetails::sortStrVector(int columnId, bool *ok)
{
    base::DbDataType<std::string> &value = str(columnId, ok);
    if (value.isNull())
        return;
    QStringList parts = QString::fromStdString(value.getData()).split(QLatin1Char(ValueSeparator));
    parts.sort();
    value = parts.join(QLatin1Char(ValueSeparator)).toStdString();
}

bool operator==(const SigdbElementDetails &a, const SigdbElementDetails &b)
{
    return static_cast<const ElementBaseName &>(a) == static_cast<const ElementBaseName &>(b)
        && a.allData() == b.allData() && a.includedDetails() == b.includedDetails()
        && a.locationEntryList() == b.locationEntryList()
        && a.profileParameterSettings() == b.profileParameterSettings();
}

bool operator!=(const SigdbElementDetails &a, const SigdbElementDetails &b)
{
    return !(a == b);
}

} // namespace sigdb
