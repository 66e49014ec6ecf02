#ifndef SIGDB_QUERY_QUERYREQUESTTYPE_H
#define SIGDB_QUERY_QUERYREQUESTTYPE_H

namespace sigdb {

/// The kind of search that a query request list asks for. Only the number travels (narrow:
/// one byte); the numbers beyond the default are the server's, and any of them can be sent by
/// casting it to this type.
enum QueryRequest_Type : int {
    QueryRequest_Default = 0,
};

} // namespace sigdb

#endif
