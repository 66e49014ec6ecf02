#include "client/refinterface.h"

#include "auxiliary/plotentry.h"
#include "client/sigdbelementwithmaxcount.h"
#include "client/refcallback.h"
#include "core/elementlist.h"
#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "query/queryrequest.h"

namespace sigdb {

RefInterface::RefInterface() = default;
RefInterface::RefInterface(const RefInterface &other) = default;
RefInterface &RefInterface::operator=(const RefInterface &other) = default;
RefInterface::~RefInterface() = default;

int RefInterface::send(int orderType, const base::DbBaseType &record, const BaseCallback *callback)
{
    return addData(callback, orderType, &record);
}

int RefInterface::getElementOverview(SigdbElement &element, const RefCallback *callback)
{
    return send(OrderType_GetElementOverview, element, callback);
}

int RefInterface::getElementOverviewList(QueryRequestList &queries, const RefCallback *callback)
{
    return send(OrderType_GetElementOverviewList, queries, callback);
}

int RefInterface::getElementSubElementList(SigdbElementWithMaxCount &element, const RefCallback *callback)
{
    return send(OrderType_GetElementSubElementList, element, callback);
}

int RefInterface::getElementDetailList(ElementList &elements, const RefCallback *callback)
{
    return send(OrderType_GetElementDetailList, elements, callback);
}

int RefInterface::createElement(ElementDetailsList &details, const RefCallback *callback)
{
    return send(OrderType_CreateElement, details, callback);
}

int RefInterface::changeElement(ElementDetailsList &details, const RefCallback *callback)
{
    return send(OrderType_ChangeElement, details, callback);
}

int RefInterface::deleteElement(SigdbElement &element, const RefCallback *callback)
{
    return send(OrderType_DeleteElement, element, callback);
}

int RefInterface::approveElement(SigdbElement &element, const RefCallback *callback)
{
    return send(OrderType_ApproveElement, element, callback);
}

int RefInterface::changeLink(LinkChangeDefinition &change, const CoreCallback *callback)
{
    return send(OrderType_ChangeLink, change, callback);
}

int RefInterface::changeCollocation(ElementOverviewList &group, const RefCallback *callback)
{
    return send(OrderType_ChangeCollocation, group, callback);
}

int RefInterface::changePlotEntry(PlotEntryList &entries, const RefCallback *callback)
{
    return send(OrderType_ChangePlotEntry, entries, callback);
}

} // namespace sigdb
