#include "client/refcallback.h"

#include "auxiliary/plotentry.h"
#include "client/ordertype.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "link/linkchangedefinition.h"

#include <QString>

namespace sigdb {

namespace {

/// Decodes one answer record from the stream and hands it to its callback; false when the
/// record did not decode.
using Dispatch = bool (*)(RefCallback &callback, ColumnReader &reader);

/// Builds a fresh Record, numbers it as the sender did, decodes it and hands it to Callback;
/// the record lives only for the duration of the callback.
template <typename Record, void (RefCallback::*Callback)(Record &)>
bool decodeAndDeliver(RefCallback &callback, ColumnReader &reader)
{
    Record record;
    record.setIDs(0);
    if (!record.readFrom(reader))
        return false;
    (callback.*Callback)(record);
    return true;
}

struct Route
{
    int orderType;
    Dispatch dispatch;
    const char *failureText;
};

// The dispatch table. The double blanks before "failed" in three texts are part of the
// interface and are kept.
const Route kRoutes[] = {
    {OrderType_GetElementOverview,
     &decodeAndDeliver<ElementOverview, &RefCallback::callbackElementOverview>,
     "deserialize ElementOverview (callbackElementOverview) failed"},
    {OrderType_GetElementOverviewList,
     &decodeAndDeliver<ElementOverviewList, &RefCallback::callbackElementOverviewList>,
     "deserialize ElementOverviewList (callbackElementOverviewList)  failed"},
    {OrderType_GetElementDetailList,
     &decodeAndDeliver<ElementDetailsList, &RefCallback::callbackElementDetailList>,
     "deserialize ElementDetailsList  failed"},
    {OrderType_CreateElement, &decodeAndDeliver<ElementOverview, &RefCallback::callbackElementCreated>,
     "deserialize ElementOverview (callbackElementCreated) failed"},
    {OrderType_ChangeElement, &decodeAndDeliver<ElementOverview, &RefCallback::callbackElementChanged>,
     "deserialize ElementOverview (callbackElementChanged) failed"},
    {OrderType_ChangeLink, &decodeAndDeliver<LinkChangeDefinition, &RefCallback::callbackLinkChanged>,
     "deserialize LinkChangeDefinition failed"},
    {OrderType_ChangePlotEntry, &decodeAndDeliver<PlotEntryList, &RefCallback::callbackPlotEntryList>,
     "deserialize PlotEntryList  failed"},
    {OrderType_NewElementWithLink,
     &decodeAndDeliver<ElementOverviewList, &RefCallback::callbackNewElementWithLink>,
     "deserialize ElementOverviewList  failed"},
};

const Route *findRoute(int orderType)
{
    for (const Route &route : kRoutes) {
        if (route.orderType == orderType)
            return &route;
    }
    return nullptr;
}

} // namespace

RefCallback::RefCallback() = default;
RefCallback::RefCallback(const RefCallback &other) = default;
RefCallback &RefCallback::operator=(const RefCallback &other) = default;
RefCallback::~RefCallback() = default;

void RefCallback::callbackElementOverviewList(ElementOverviewList &) {}
void RefCallback::callbackElementOverview(ElementOverview &) {}
void RefCallback::callbackElementDetailList(ElementDetailsList &) {}
void RefCallback::callbackElementCreated(ElementOverview &) {}
void RefCallback::callbackLinkChanged(LinkChangeDefinition &) {}
void RefCallback::callbackPlotEntryList(PlotEntryList &) {}
void RefCallback::callbackNewElementWithLink(ElementOverviewList &) {}
void RefCallback::callbackElementChanged(ElementOverview &) {}

bool RefCallback::callbackRawData(int orderType, const QByteArray &data)
{
    if (orderType < OrderType_RangeFirst || orderType > OrderType_RangeLast)
        return false;

    const Route *route = findRoute(orderType);
    if (!route) {
        callbackErrorMessage(QStringLiteral("RefCallback::callbackRawData::unknown orderType %1 ")
                                 .arg(orderType)
                                 .toStdString());
        return false;
    }

    ColumnReader reader(data);
    if (!route->dispatch(*this, reader))
        callbackErrorMessage(route->failureText);
    return true;
}

} // namespace sigdb
