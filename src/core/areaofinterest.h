#ifndef SIGDB_CORE_AREAOFINTEREST_H
#define SIGDB_CORE_AREAOFINTEREST_H

#include "sigdbcore_export.h"

#include <QtGlobal>

#include <string>
#include <vector>

namespace sigdb {

/// An area of interest of the core library: a named polygon of points.
class SIGDBCORE_EXPORT IAreaOfInterest
{
public:
    /// One corner: two 64-bit values, copied as one 16-byte block.
    struct point
    {
        /// The first coordinate.
        qint64 x = 0;
        /// The second coordinate.
        qint64 y = 0;
    };

    IAreaOfInterest();
    virtual ~IAreaOfInterest();
    /// A copy of \a other.
    IAreaOfInterest(const IAreaOfInterest &other);
    /// Replaces the contents with a copy of \a other.
    IAreaOfInterest &operator=(const IAreaOfInterest &other);

    /// The name of the area.
    std::string name;
    /// The corners of the polygon, in order.
    std::vector<point> points;
};

SIGDBCORE_EXPORT bool operator==(const IAreaOfInterest::point &a, const IAreaOfInterest::point &b);
SIGDBCORE_EXPORT bool operator==(const IAreaOfInterest &a, const IAreaOfInterest &b);

/// The areas of interest nearest to a position, as the core library answers them.
class SIGDBCORE_EXPORT IAreaOfInterestList
{
public:
    /// The areas, nearest first as the core library orders them.
    std::vector<IAreaOfInterest> areas;
};

/// A generic answer of the core library: a result code and a text.
class SIGDBCORE_EXPORT SigdbAnswer
{
public:
    /// The core library's result code.
    int result = 0;
    /// The text that comes with the result.
    std::string text;
};

} // namespace sigdb

#endif
