#include "core/areaofinterest.h"

namespace sigdb {

IAreaOfInterest::IAreaOfInterest() = default;
IAreaOfInterest::~IAreaOfInterest() = default;
IAreaOfInterest::IAreaOfInterest(const IAreaOfInterest &other) = default;
IAreaOfInterest &IAreaOfInterest::operator=(const IAreaOfInterest &other) = default;

bool operator==(const IAreaOfInterest::point &a, const IAreaOfInterest::point &b)
{
    return a.x == b.x && a.y == b.y;
}

bool operator==(const IAreaOfInterest &a, const IAreaOfInterest &b)
{
    return a.name == b.name && a.points == b.points;
}

} // namespace sigdb
