#include "query/queryrequest.h"

namespace sigdb {

namespace {

// List-level tags of a query request list (the column ids that setIDs(0) gives).
enum QueryListTag : int {
    Tag_RequestType = 1,
    Tag_QueryName = 2,
    Tag_QueryOwner = 3,
    Tag_QueryId = 4,
};

/// Calls \a visit on every query column in wire order.
template <typename Columns, typename Visit>
void forEachColumn(Columns &columns, Visit visit)
{
    std::apply([&visit](auto &...column) { (visit(column), ...); }, columns);
}

/// Calls \a visit on the query columns in wire order while it returns true; whether all did.
template <typename Visit>
bool allColumns(QueryColumns &columns, Visit visit)
{
    return std::apply([&visit](auto &...column) { return (visit(column) && ...); }, columns);
}

#define SIGDB_QUERY_COLUMN_NAME(position, Kind, name) #name,
const char *const kColumnNames[] = {SIGDB_QUERY_COLUMNS(SIGDB_QUERY_COLUMN_NAME)};
#undef SIGDB_QUERY_COLUMN_NAME
static_assert(sizeof(kColumnNames) / sizeof(kColumnNames[0]) == QueryColumnCount,
              "one name per query column");

} // namespace

// ---------------------------------------------------------------------------------------------
// QueryRequest

QueryRequest::QueryRequest() = default;
QueryRequest::QueryRequest(const QueryRequest &other) = default;
QueryRequest::~QueryRequest() = default;
QueryRequest &QueryRequest::operator=(const QueryRequest &other) = default;

base::DbBaseType *QueryRequest::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<QueryRequest>(source);
}

void QueryRequest::reset() {}

void QueryRequest::serialize(QByteArray &) const {}

int QueryRequest::setIDs(int startId)
{
    const int elementEnd = m_element.setIDs(startId);
    int id = m_details.setIDs(elementEnd);
    m_exactMatch.setID(static_cast<unsigned int>(++id));
    forEachColumn(m_columns, [&id](auto &column) { column.setID(static_cast<unsigned int>(++id)); });
    return id;
}

void QueryRequest::writeTo(ColumnWriter &writer) const
{
    m_element.writeTo(writer);
    m_details.writeTo(writer);
    writer.write(m_exactMatch);
    forEachColumn(m_columns, [&writer](const auto &column) { column.writeTo(writer); });
}

bool QueryRequest::readFrom(ColumnReader &reader)
{
    return m_element.readFrom(reader) && m_details.readFrom(reader) && reader.read(m_exactMatch)
        && allColumns(m_columns, [&reader](auto &column) { return column.readFrom(reader); });
}

const char *QueryRequest::columnName(int position)
{
    return position >= 0 && position < QueryColumnCount ? kColumnNames[position] : nullptr;
}

bool operator==(const QueryRequest &a, const QueryRequest &b)
{
    return a.element() == b.element() && a.exactMatch() == b.exactMatch()
        && a.columns() == b.columns();
}

bool operator!=(const QueryRequest &a, const QueryRequest &b)
{
    return !(a == b);
}

// ---------------------------------------------------------------------------------------------
// QueryRequestList

QueryRequestList::QueryRequestList() = default;
QueryRequestList::QueryRequestList(const QueryRequestList &other) = default;
QueryRequestList::~QueryRequestList() = default;
QueryRequestList &QueryRequestList::operator=(const QueryRequestList &other) = default;

base::DbBaseType *QueryRequestList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<QueryRequestList>(source);
}

void QueryRequestList::reset() {}

void QueryRequestList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<QueryRequestList *>(this)->setIDs(0);
    writeTo(writer);
}

int QueryRequestList::setIDs(int startId)
{
    m_requestType.setID(static_cast<unsigned int>(startId + Tag_RequestType));
    m_queryName.setID(static_cast<unsigned int>(startId + Tag_QueryName));
    m_queryOwner.setID(static_cast<unsigned int>(startId + Tag_QueryOwner));
    m_queryId.setID(static_cast<unsigned int>(startId + Tag_QueryId));
    numberEntries(startId + Tag_QueryId);
    return startId + Tag_QueryId;
}

void QueryRequestList::writeTo(ColumnWriter &writer) const
{
    writer.write(m_queryId);
    writer.writeEnum(m_requestType);
    writer.write(m_queryName);
    writer.write(m_queryOwner);
    writer.writeLongField(ClientReferenceTag, m_clientReference);
    writeEntries(writer, CountTag);
}

bool QueryRequestList::readFrom(ColumnReader &reader)
{
    clear();
    return reader.read(m_queryId) && reader.readEnum(m_requestType) && reader.read(m_queryName)
        && reader.read(m_queryOwner) && reader.readLongField(ClientReferenceTag, m_clientReference)
        && readEntries(reader, CountTag);
}

bool QueryRequestList::compareList(const QueryRequestList &other) const
{
    return sameEntries(other) && m_requestType == other.m_requestType
        && m_queryId == other.m_queryId && m_queryName == other.m_queryName
        && m_queryOwner == other.m_queryOwner;
}

bool operator==(const QueryRequestList &a, const QueryRequestList &b)
{
    return a.compareList(b);
}

bool operator!=(const QueryRequestList &a, const QueryRequestList &b)
{
    return !(a == b);
}

} // namespace sigdb
