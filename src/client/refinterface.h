#ifndef SIGDB_CLIENT_REFINTERFACE_H
#define SIGDB_CLIENT_REFINTERFACE_H

#include "sigdbref_export.h"

#include "client/ordertype.h"
#include "core/baseinterface.h"
#include "core/corecallback.h"

namespace sigdb {

class ElementDetailsList;
class ElementList;
class ElementOverviewList;
class LinkChangeDefinition;
class PlotEntryList;
class QueryRequestList;
class RefCallback;
class SigdbElement;
class SigdbElementWithMaxCount;

/// The request side of the reference-data interface: one method per kind of order. Each
/// method hands its record, its fixed order type and the callback that is to receive the
/// answer to BaseInterface::addData() and returns what addData() returned.
class SIGDBREF_EXPORT RefInterface : public BaseInterface
{
public:
    RefInterface();
    /// A copy of \a other.
    RefInterface(const RefInterface &other);
    /// Replaces the contents with a copy of \a other.
    RefInterface &operator=(const RefInterface &other);
    ~RefInterface() override;

    /// Order 5001: the overview of one element.
    int getElementOverview(SigdbElement &element, const RefCallback *callback);
    /// Order 5002: the overviews of the elements that the query requests select.
    int getElementOverviewList(QueryRequestList &queries, const RefCallback *callback);
    /// Order 5003: the sub-elements of an element, paged.
    int getElementSubElementList(SigdbElementWithMaxCount &element, const RefCallback *callback);
    /// Order 5004: the details of every element of the list.
    int getElementDetailList(ElementList &elements, const RefCallback *callback);
    /// Order 5005: creates the elements of the list with their full details.
    int createElement(ElementDetailsList &details, const RefCallback *callback);
    /// Order 5006: changes the elements of the list to the details given.
    int changeElement(ElementDetailsList &details, const RefCallback *callback);
    /// Order 5007: deletes an element.
    int deleteElement(SigdbElement &element, const RefCallback *callback);
    /// Order 5008: approves (or rejects) the changes of an element.
    int approveElement(SigdbElement &element, const RefCallback *callback);
    /// Order 5009: changes links. The answer reaches a RefCallback's callbackLinkChanged(),
    /// yet this order alone is addressed to a CoreCallback; the signature is kept as it is.
    int changeLink(LinkChangeDefinition &change, const CoreCallback *callback);
    /// Order 5010: sends a changed collocation group (repaired and marked beforehand).
    int changeCollocation(ElementOverviewList &group, const RefCallback *callback);
    /// Order 5011: changes rows of a plot table.
    int changePlotEntry(PlotEntryList &entries, const RefCallback *callback);

private:
    int send(int orderType, const base::DbBaseType &record, const BaseCallback *callback);
};

} // namespace sigdb

#endif
