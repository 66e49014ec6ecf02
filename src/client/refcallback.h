#ifndef SIGDB_CLIENT_REFCALLBACK_H
#define SIGDB_CLIENT_REFCALLBACK_H

#include "sigdbref_export.h"

#include "core/basecallback.h"

namespace sigdb {

class ElementDetailsList;
class ElementOverview;
class ElementOverviewList;
class LinkChangeDefinition;
class PlotEntryList;

/// The answer side of the reference-data interface. Derive from it and override the
/// callbacks you need; the base class's callbacks do nothing.
///
/// Every answer arrives at callbackRawData() with its order type; the order type selects the
/// record, a fresh record is numbered with setIDs(0), decoded, and handed to one callback. The
/// record lives only for the duration of the callback: copy it to keep it. Decoding failures
/// and unknown order types are reported through callbackErrorMessage().
class SIGDBREF_EXPORT RefCallback : public BaseCallback
{
public:
    RefCallback();
    /// A copy of \a other.
    RefCallback(const RefCallback &other);
    /// Replaces the contents with a copy of \a other.
    RefCallback &operator=(const RefCallback &other);
    ~RefCallback() override;

    /// Answer 5002 (getElementOverviewList).
    virtual void callbackElementOverviewList(ElementOverviewList &list);
    /// Answer 5001 (getElementOverview).
    virtual void callbackElementOverview(ElementOverview &overview);
    /// Answer 5004 (getElementDetailList).
    virtual void callbackElementDetailList(ElementDetailsList &list);
    /// Answer 5005 (createElement): the overview of the new element.
    virtual void callbackElementCreated(ElementOverview &overview);
    /// Answer 5009 (changeLink).
    virtual void callbackLinkChanged(LinkChangeDefinition &change);
    /// Answer 5011 (changePlotEntry).
    virtual void callbackPlotEntryList(PlotEntryList &list);
    /// Answer 5012: a new element together with its link.
    virtual void callbackNewElementWithLink(ElementOverviewList &list);
    /// Answer 5006 (changeElement): the overview of the changed element.
    virtual void callbackElementChanged(ElementOverview &overview);

private:
    bool callbackRawData(int orderType, const QByteArray &data) override;
};

} // namespace sigdb

#endif
