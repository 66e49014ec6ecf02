#ifndef SIGDB_QUERY_QUERYCOLUMNS_H
#define SIGDB_QUERY_QUERYCOLUMNS_H

#include "query/refdatatypeorder.h"

#include <string>
#include <tuple>
#include <utility>

// The query columns of a query request, in the one order in which they travel.
//
// The server knows the columns by position only: what each one filters on is decided there,
// from where the column stands in this table. The names below are ours, chosen to say what a
// signal database is usually searched by; renaming a column is harmless, but moving, adding,
// removing or changing the kind of one breaks the wire. Each row is
//
//     COLUMN(position, kind of the filter value, accessor name)
//
// and QueryRequest generates from it the typed storage, one accessor per column and the
// numbering, encoding, decoding and comparison of all of them.
#define SIGDB_QUERY_COLUMNS(COLUMN)                                                             \
    /* what the element is called */                                                            \
    COLUMN(0, std::string, identifier)                                                          \
    COLUMN(1, std::string, name)                                                                \
    COLUMN(2, std::string, remarks)                                                             \
    COLUMN(3, bool, includeRemoved)                                                             \
    /* who changed it */                                                                        \
    COLUMN(4, std::string, exchangeId)                                                          \
    COLUMN(5, std::string, modificationUser)                                                    \
    COLUMN(6, std::string, callsign)                                                            \
    COLUMN(7, bool, pendingApprovalOnly)                                                        \
    /* where it comes from */                                                                   \
    COLUMN(8, std::string, country)                                                             \
    COLUMN(9, std::string, organisation)                                                        \
    COLUMN(10, std::string, classification)                                                     \
    COLUMN(11, std::string, sourceReference)                                                    \
    COLUMN(12, std::string, category)                                                           \
    /* one-letter codes */                                                                      \
    COLUMN(13, char, statusCode)                                                                \
    COLUMN(14, char, priorityCode)                                                              \
    COLUMN(15, char, reliabilityCode)                                                           \
    COLUMN(16, char, releasabilityCode)                                                         \
    COLUMN(17, std::string, platformType)                                                       \
    COLUMN(18, int, elementType)                                                                \
    COLUMN(19, int, dataLayer)                                                                  \
    /* the signal */                                                                            \
    COLUMN(20, std::string, modulation)                                                         \
    COLUMN(21, double, frequencyMin)                                                            \
    COLUMN(22, double, frequencyMax)                                                            \
    COLUMN(23, double, bandwidthMin)                                                            \
    COLUMN(24, double, bandwidthMax)                                                            \
    /* dates, as the texts the database stores */                                               \
    COLUMN(25, std::string, creationDateFrom)                                                   \
    COLUMN(26, std::string, creationDateTo)                                                     \
    COLUMN(27, std::string, modificationDateFrom)                                               \
    COLUMN(28, std::string, modificationDateTo)                                                 \
    COLUMN(29, std::string, validityDate)                                                       \
    /* relations */                                                                             \
    COLUMN(30, bool, hasLocation)                                                               \
    COLUMN(31, bool, isCollocated)                                                              \
    COLUMN(32, bool, hasLinks)                                                                  \
    COLUMN(33, std::string, networkName)                                                        \
    COLUMN(34, std::string, networkType)                                                        \
    COLUMN(35, std::string, memberRole)                                                         \
    COLUMN(36, bool, hasCallsignTable)                                                          \
    /* position and pulses */                                                                   \
    COLUMN(37, double, latitudeMin)                                                             \
    COLUMN(38, double, latitudeMax)                                                             \
    COLUMN(39, double, longitudeMin)                                                            \
    COLUMN(40, double, longitudeMax)                                                            \
    COLUMN(41, double, altitudeMin)                                                             \
    COLUMN(42, double, altitudeMax)                                                             \
    COLUMN(43, double, pulseWidthMin)                                                           \
    COLUMN(44, double, pulseWidthMax)                                                           \
    /* the emitter */                                                                           \
    COLUMN(45, std::string, polarisation)                                                       \
    COLUMN(46, std::string, antennaType)                                                        \
    COLUMN(47, std::string, scanType)                                                           \
    COLUMN(48, bool, isFrequencyHopping)                                                        \
    COLUMN(49, bool, isBurstTransmission)                                                       \
    COLUMN(50, bool, isEncrypted)                                                               \
    COLUMN(51, double, pulseRepetitionFrequencyMin)                                             \
    COLUMN(52, double, pulseRepetitionFrequencyMax)                                             \
    COLUMN(53, double, scanPeriodMin)                                                           \
    COLUMN(54, double, scanPeriodMax)                                                           \
    /* which layers of data */                                                                  \
    COLUMN(55, bool, includeApproved)                                                           \
    COLUMN(56, bool, includeLocalData)                                                          \
    COLUMN(57, bool, includeCollocationGroups)

namespace sigdb {

/// The number of query columns of a query request.
#define SIGDB_QUERY_COLUMN_COUNT_ONE(position, Kind, name) +1
constexpr int QueryColumnCount = 0 SIGDB_QUERY_COLUMNS(SIGDB_QUERY_COLUMN_COUNT_ONE);
#undef SIGDB_QUERY_COLUMN_COUNT_ONE

/// The kind of filter value of the query column at \a Position.
template <int Position>
struct QueryColumnKind;

// A position listed twice fails here, a missing one where the storage below is built.
#define SIGDB_QUERY_COLUMN_KIND(position, Kind, name)                                           \
    template <>                                                                                 \
    struct QueryColumnKind<position>                                                            \
    {                                                                                           \
        using type = Kind;                                                                      \
    };
SIGDB_QUERY_COLUMNS(SIGDB_QUERY_COLUMN_KIND)
#undef SIGDB_QUERY_COLUMN_KIND

/// The query column at \a Position.
template <int Position>
using QueryColumnAt = RefDatatypeOrder<typename QueryColumnKind<Position>::type>;

namespace detail {
template <typename Positions>
struct QueryColumnStorage;
template <int... Positions>
struct QueryColumnStorage<std::integer_sequence<int, Positions...>>
{
    using type = std::tuple<QueryColumnAt<Positions>...>;
};
} // namespace detail

/// All query columns of a request, in wire order.
using QueryColumns =
    typename detail::QueryColumnStorage<std::make_integer_sequence<int, QueryColumnCount>>::type;

} // namespace sigdb

#endif
