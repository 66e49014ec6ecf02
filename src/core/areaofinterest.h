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
        qint64 x = 0;
        qint64 y = 0;
    };

    IAreaOfInterest();
    virtual ~IAreaOfInterest();
    IAreaOfInterest(const IAreaOfInterest &other);
    IAreaOfInterest &operator=(const IAreaOfInterest &other);

    std::string name;
    std::vector<point> points;
};

SIGDBCORE_EXPORT bool operator==(const IAreaOfInterest::point &a, const IAreaOfInterest::point &b);
SIGDBCORE_EXPORT bool operator==(const IAreaOfInterest &a, const IAreaOfInterest &b);

/// The areas of interest nearest to a position, as the core library answers them.
class SIGDBCORE_EXPORT IAreaOfInterestList
{
public:
    std::vector<IAreaOfInterest> areas;
};

/// A generic answer of the core library: a result code and a text.
class SIGDBCORE_EXPORT SigdbAnswer
{
public:
    int result = 0;
    std::string text;
};

} // namespace sigdb

#endif
