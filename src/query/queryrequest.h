#ifndef SIGDB_QUERY_QUERYREQUEST_H
#define SIGDB_QUERY_QUERYREQUEST_H

#include "sigdbref_export.h"

#include "core/recordlist.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/sigdbelementdetails.h"
#include "query/querycolumns.h"
#include "query/queryrequesttype.h"

#include <string>
#include <tuple>

namespace sigdb {

/// One search for elements: an element identity with paging (start index and maximum count of
/// the result list), a template of element details, a flag column and the query columns of
/// querycolumns.h, each a filter value with its sort flags. A NULL query column does not
/// filter. The server interprets the columns by their position.
///
/// A request travels only as an entry of a QueryRequestList:
///
///     element with paging (element, tags 3, 4, 5) | details template | flag column |
///     per query column: value frame, flag character frame
class SIGDBREF_EXPORT QueryRequest : public base::DbBaseType
{
public:
    QueryRequest();
    /// A copy of \a other.
    QueryRequest(const QueryRequest &other);
    /// Takes over the contents of \a other without copying them.
    QueryRequest(QueryRequest &&other) = default;
    ~QueryRequest() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    QueryRequest &operator=(const QueryRequest &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Does nothing: a request is reset by building a new one.
    void reset() override;
    /// Does nothing: a request is written only as an entry of its list.
    void serialize(QByteArray &out) const override;

    /// Numbers the element part from \a startId, the details template after it, then the flag
    /// column and the query columns one after another; returns the last id given.
    int setIDs(int startId);

    /// Writes the request in stream order.
    void writeTo(ColumnWriter &writer) const;
    /// Reads a request written by writeTo(); expects the ids that setIDs() gives.
    bool readFrom(ColumnReader &reader);

    /// The element searched from, with the paging of the result list.
    SigdbElementWithMaxCount &element() { return m_element; }
    /// The element searched from, read-only.
    const SigdbElementWithMaxCount &element() const { return m_element; }
    /// Element details whose column values serve as a template for the search.
    SigdbElementDetails &detailsTemplate() { return m_details; }
    /// The template details, read-only.
    const SigdbElementDetails &detailsTemplate() const { return m_details; }
    /// The request's flag column, written before the query columns.
    base::DbDataType<bool> &exactMatch() { return m_exactMatch; }
    /// The flag column, read-only.
    const base::DbDataType<bool> &exactMatch() const { return m_exactMatch; }

    /// All query columns, in wire order (for code that walks them generically).
    QueryColumns &columns() { return m_columns; }
    /// All query columns, read-only.
    const QueryColumns &columns() const { return m_columns; }
    /// The query column at \a Position.
    template <int Position>
    QueryColumnAt<Position> &column() { return std::get<Position>(m_columns); }
    template <int Position>
    /// The query column at \a Position, read-only.
    const QueryColumnAt<Position> &column() const { return std::get<Position>(m_columns); }
    /// The name of the query column at \a position (null outside 0 to QueryColumnCount - 1).
    static const char *columnName(int position);

    // One accessor per query column, named as in querycolumns.h.
#define SIGDB_QUERY_COLUMN_ACCESSORS(position, Kind, name)                                      \
    RefDatatypeOrder<Kind> &name() { return std::get<position>(m_columns); }                    \
    const RefDatatypeOrder<Kind> &name() const { return std::get<position>(m_columns); }
    SIGDB_QUERY_COLUMNS(SIGDB_QUERY_COLUMN_ACCESSORS)
#undef SIGDB_QUERY_COLUMN_ACCESSORS

private:
    SigdbElementDetails m_details;
    SigdbElementWithMaxCount m_element;
    base::DbDataType<bool> m_exactMatch;
    QueryColumns m_columns;
};

/// Equal elements, start indexes, maximum counts, flag columns and query columns (values and
/// sort flags). The details template and the requested list type take no part, deliberately.
SIGDBREF_EXPORT bool operator==(const QueryRequest &a, const QueryRequest &b);
SIGDBREF_EXPORT bool operator!=(const QueryRequest &a, const QueryRequest &b);

/// The order record of RefInterface::getElementOverviewList: one or more query requests plus
/// a few list-level columns. The answer is an element overview list (order type 5002).
///
///     queryId (tag 4) | requestType (tag 1, narrow) | queryName (tag 2) | queryOwner (tag 3) |
///     tag 8 size 8 client reference | tag 5 size 8 count | requests
///
/// Every request is numbered from the list's start id, so all carry the same ids.
class SIGDBREF_EXPORT QueryRequestList : public RecordList<QueryRequest>
{
public:
    /// Tag of the bare client reference frame.
    static constexpr int ClientReferenceTag = 8;
    /// Tag of the count frame.
    static constexpr int CountTag = 5;

    QueryRequestList();
    /// A copy of \a other.
    QueryRequestList(const QueryRequestList &other);
    /// Takes over the contents of \a other without copying them.
    QueryRequestList(QueryRequestList &&other) = default;
    ~QueryRequestList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    QueryRequestList &operator=(const QueryRequestList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Does nothing: a list is emptied with clear().
    void reset() override;
    /// Numbers the list from 0 (so it updates ids although const) and writes it into \a out.
    void serialize(QByteArray &out) const override;

    /// requestType, queryName and queryOwner get \a startId + 1 to + 3, queryId \a startId + 4,
    /// which is also the start id from which every request is numbered. Returns
    /// \a startId + 4: the requests' ids are not counted.
    int setIDs(int startId);

    /// Writes the list columns, the client reference, the count frame and every request.
    void writeTo(ColumnWriter &writer) const;
    /// Clears the list and reads it back; expects ids as setIDs(0) gives them. False on any
    /// frame that does not fit or on bytes that end early; requests read before stay.
    bool readFrom(ColumnReader &reader);

    /// Equal counts, pairwise equal requests, then equal requestType, queryId, queryName and
    /// queryOwner. The client reference takes no part.
    bool compareList(const QueryRequestList &other) const;

    /// A number the server may use to tell queries apart.
    base::DbDataType<unsigned long long> &queryId() { return m_queryId; }
    /// The query number, read-only.
    const base::DbDataType<unsigned long long> &queryId() const { return m_queryId; }
    /// The kind of search.
    base::DbDataType<QueryRequest_Type> &requestType() { return m_requestType; }
    /// The kind of search, read-only.
    const base::DbDataType<QueryRequest_Type> &requestType() const { return m_requestType; }
    /// A name of the query, for example of a stored search.
    base::DbDataType<std::string> &queryName() { return m_queryName; }
    /// The query's name, read-only.
    const base::DbDataType<std::string> &queryName() const { return m_queryName; }
    /// Whose query it is.
    base::DbDataType<std::string> &queryOwner() { return m_queryOwner; }
    /// The query's owner, read-only.
    const base::DbDataType<std::string> &queryOwner() const { return m_queryOwner; }
    /// A number of the client's own that travels with the query and is not compared.
    qint64 clientReference() const { return m_clientReference; }
    /// Sets the client's own number that travels with the query.
    void setClientReference(qint64 reference) { m_clientReference = reference; }

private:
    base::DbDataType<unsigned long long> m_queryId;
    base::DbDataType<QueryRequest_Type> m_requestType;
    base::DbDataType<std::string> m_queryName;
    base::DbDataType<std::string> m_queryOwner;
    qint64 m_clientReference = 0;
};

/// compareList().
SIGDBREF_EXPORT bool operator==(const QueryRequestList &a, const QueryRequestList &b);
SIGDBREF_EXPORT bool operator!=(const QueryRequestList &a, const QueryRequestList &b);

} // namespace sigdb

#endif
