#ifndef SIGDB_CLIENT_ORDERTYPE_H
#define SIGDB_CLIENT_ORDERTYPE_H

namespace sigdb {

/// Order types of the reference-data interface. The range 5000 to 9999 belongs to it; the
/// request methods of RefInterface send 5001 to 5011, and 5012 only arrives as an answer.
enum RefOrderType : int {
    OrderType_RangeFirst = 5000,
    OrderType_GetElementOverview = 5001,
    OrderType_GetElementOverviewList = 5002,
    OrderType_GetElementSubElementList = 5003,
    OrderType_GetElementDetailList = 5004,
    OrderType_CreateElement = 5005,
    OrderType_ChangeElement = 5006,
    OrderType_DeleteElement = 5007,
    OrderType_ApproveElement = 5008,
    OrderType_ChangeLink = 5009,
    OrderType_ChangeCollocation = 5010,
    OrderType_ChangePlotEntry = 5011,
    OrderType_NewElementWithLink = 5012,
    OrderType_RangeLast = 9999,
};

} // namespace sigdb

#endif
