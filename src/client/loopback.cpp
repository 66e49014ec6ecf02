#include "client/loopback.h"

#include "auxiliary/plotentry.h"
#include "client/ordertype.h"
#include "client/sigdbelementwithmaxcount.h"
#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "link/linkchangedefinition.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

#include <QByteArray>

namespace sigdb {

namespace {

// Decodes an order's record as the server does: numbered from 0, read with its own decoder,
// with nothing left over.
template <typename Record>
bool decodeOrder(const QByteArray &data, Record &record)
{
    record.setIDs(0);
    ColumnReader reader(data);
    return record.readFrom(reader) && reader.atEnd();
}

template <typename Record>
Loopback::Answer encodeAnswer(int orderType, const Record &record)
{
    Loopback::Answer answer;
    answer.orderType = orderType;
    record.serialize(answer.data);
    return answer;
}

// A name filter of a query: NULL matches everything; a trailing '*' matches any rest.
bool nameMatches(const base::DbDataType<std::string> &filter, const ElementOverview &overview)
{
    if (filter.isNull())
        return true;
    const std::string &pattern = filter.getData();
    const std::string &name = overview.keyText1.getData();
    if (!pattern.empty() && pattern.back() == '*')
        return name.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
    return name == pattern;
}

} // namespace

Loopback::Loopback(OrderQueue &queue)
    : m_queue(queue)
{
}

int Loopback::processPendingOrders()
{
    const std::vector<Order> orders = m_queue.takeAll();
    for (const Order &order : orders) {
        const std::vector<Answer> answers = answer(order);
        if (m_observer)
            m_observer(order, answers);
        for (const Answer &reply : answers)
            OrderQueue::deliverAnswer(order, reply.orderType, reply.data);
    }
    return static_cast<int>(orders.size());
}

std::vector<Loopback::Answer> Loopback::answer(const Order &order)
{
    switch (order.orderType) {
    case OrderType_GetElementOverview:
        return answerOverview(order.data);
    case OrderType_GetElementOverviewList:
        return answerQuery(order.data);
    case OrderType_GetElementDetailList:
        return answerDetails(order.data);
    case OrderType_CreateElement:
    case OrderType_ChangeElement:
        return answerStoredDetails(order.data, order.orderType);
    case OrderType_GetElementSubElementList:
        return answerSubElements(order.data);
    case OrderType_DeleteElement:
        return answerStateChange(order.data, true);
    case OrderType_ApproveElement:
        return answerStateChange(order.data, false);
    case OrderType_ChangeLink:
        return answerLinkChange(order.data);
    case OrderType_ChangeCollocation:
        return answerCollocation(order.data);
    case OrderType_ChangePlotEntry:
        return answerPlotEntries(order.data);
    default:
        return {};
    }
}

QByteArray Loopback::answerVersionInfo(const QByteArray &request) const
{
    const VersionInfo client = VersionInfo::deserialize(request);

    VersionInfo server;
    server.getProductVersion().setOrigin("sigdbref loopback");
    server.getProductVersion().setMajor(0);
    server.getProductVersion().setMinor(1);
    server.getInterfaceVersion().setMajor(1);
    server.getInterfaceVersion().setMinor(0);
    server.setRequiredInterfaceVersion(client.getInterfaceVersion());
    server.setInterfaceIdentifier(client.getInterfaceIdentifier());

    const InterfaceVersion &served = server.getInterfaceVersion();
    const InterfaceVersion &required = client.getRequiredInterfaceVersion();
    if (served.getMajor() == client.getInterfaceVersion().getMajor()
        && served.getMinor() == client.getInterfaceVersion().getMinor())
        server.setInterfaceMatching(InterfaceMatching_Match);
    else if (served.getMajor() == required.getMajor() && served.getMinor() >= required.getMinor())
        server.setInterfaceMatching(InterfaceMatching_Compatible);
    else
        server.setInterfaceMatching(InterfaceMatching_Mismatch);

    VersionInfoVector answer;
    answer.setVersionInfoVector({server});
    QByteArray bytes;
    answer.serialize(bytes);
    return bytes;
}

Loopback::Key Loopback::keyOf(const SigdbElement &element)
{
    return {element.type(), element.TID()};
}

ElementOverview Loopback::storeElement(const ElementOverview &overview)
{
    ElementOverview stored = overview;
    if (stored.element.isTIDundefined())
        stored.element.setTID(m_nextTid++);
    else if (stored.element.TID() >= m_nextTid)
        m_nextTid = stored.element.TID() + 1;
    m_elements[keyOf(stored.element)] = stored;
    return stored;
}

const ElementOverview *Loopback::findElement(const SigdbElement &element) const
{
    const auto found = m_elements.find(keyOf(element));
    return found == m_elements.end() ? nullptr : &found->second;
}

const ElementDetails *Loopback::findDetails(const SigdbElement &element) const
{
    const auto found = m_details.find(keyOf(element));
    return found == m_details.end() ? nullptr : &found->second;
}

std::vector<Loopback::Answer> Loopback::answerDetails(const QByteArray &data)
{
    ElementList elements;
    if (!decodeOrder(data, elements))
        return rejectedOrder();
    ElementDetailsList result;
    for (const SigdbElement &element : elements.container()) {
        if (const ElementDetails *stored = findDetails(element)) {
            result.appendDetails(*stored);
            continue;
        }
        ElementDetails details;
        details = element;
        result.appendDetails(details);
    }
    return {encodeAnswer(OrderType_GetElementDetailList, result)};
}

std::vector<Loopback::Answer> Loopback::answerStoredDetails(const QByteArray &data, int orderType)
{
    ElementDetailsList list;
    if (!decodeOrder(data, list))
        return rejectedOrder();
    std::vector<Answer> answers;
    for (ElementDetails &details : list.container()) {
        ElementOverview overview;
        if (const ElementOverview *stored = findElement(details))
            overview = *stored;
        overview.element = details;
        overview.modificationState = orderType == OrderType_CreateElement ? Modification_NewInMdl
                                                                          : Modification_ChangedInMdl;
        overview.keyText1 = details.str(5);
        overview.collocationModState = base::DbDataType<int>();
        if (!details.collocationTID().isNull())
            overview.locationIndication = LocationIndication_Collocated;
        overview = storeElement(overview);
        // A new element without an exchange id gets one made from its table and TID.
        if (overview.element.exchgId().isNull()) {
            overview.element.setExchgId(overview.element.tableAbbrevation() + "-"
                                        + std::to_string(overview.element.TID()));
            overview = storeElement(overview);
        }
        details.setTid(overview.element.tid());
        details.setExchgId(overview.element.exchgId());
        m_details[keyOf(details)] = details;
        answers.push_back(encodeAnswer(orderType, overview));
    }
    return answers;
}

std::vector<Loopback::Answer> Loopback::rejectedOrder()
{
    ++m_rejected;
    return {};
}

std::vector<Loopback::Answer> Loopback::answerOverview(const QByteArray &data)
{
    SigdbElement element;
    if (!decodeOrder(data, element))
        return rejectedOrder();
    ElementOverview overview;
    if (const ElementOverview *stored = findElement(element))
        overview = *stored;
    else
        overview.element = element;
    return {encodeAnswer(OrderType_GetElementOverview, overview)};
}

std::vector<Loopback::Answer> Loopback::answerQuery(const QByteArray &data)
{
    QueryRequestList queries;
    if (!decodeOrder(data, queries))
        return rejectedOrder();
    ElementOverviewList result;
    for (const QueryRequest &query : queries.container()) {
        const SigdbElementWithMaxCount &paging = query.element();
        unsigned long long index = 0;
        unsigned int more = 0;
        for (const auto &entry : m_elements) {
            const ElementOverview &overview = entry.second;
            if ((paging.type() != 0 && overview.element.type() != paging.type())
                || !nameMatches(query.name(), overview))
                continue;
            if (index++ < paging.startIndex())
                continue;
            if (static_cast<unsigned long long>(result.count()) < paging.resultListMaxCount())
                result.appendResult(overview, false);
            else
                ++more;
        }
        result.addMoreResultsAvailable(more);
    }
    return {encodeAnswer(OrderType_GetElementOverviewList, result)};
}

std::vector<Loopback::Answer> Loopback::answerSubElements(const QByteArray &data)
{
    SigdbElementWithMaxCount parent;
    if (!decodeOrder(data, parent))
        return rejectedOrder();
    ElementOverviewList result;
    result.setParentDefinition(parent);
    result.setRequestedListType(parent.requestedListType());
    const auto linked = m_links.equal_range(keyOf(parent));
    for (auto link = linked.first; link != linked.second; ++link) {
        ElementOverview overview;
        if (const ElementOverview *stored = findElement(link->second))
            overview = *stored;
        else
            overview.element = link->second;
        result.appendResult(overview, false);
    }
    return {encodeAnswer(OrderType_GetElementOverviewList, result)};
}

std::vector<Loopback::Answer> Loopback::answerStateChange(const QByteArray &data, bool deleting)
{
    SigdbElement element;
    if (!decodeOrder(data, element))
        return rejectedOrder();
    ElementOverview overview;
    overview.element = element;
    if (const ElementOverview *stored = findElement(element))
        overview = *stored;
    if (deleting)
        overview.modificationState = Modification_DeletedInMdl;
    else if (element.approvalType() == Approval_Reject)
        overview.modificationState = Modification_Unchanged;
    else
        overview.modificationState = Modification_Approved;
    overview = storeElement(overview);
    return {encodeAnswer(OrderType_ChangeElement, overview)};
}

std::vector<Loopback::Answer> Loopback::answerLinkChange(const QByteArray &data)
{
    LinkChangeDefinition change;
    if (!decodeOrder(data, change))
        return rejectedOrder();
    for (LinkAction *link : {&change.link1(), &change.link2()}) {
        if (link->isUndefined())
            continue;
        m_links.emplace(keyOf(link->fromElement()), link->toElement());
        m_links.emplace(keyOf(link->toElement()), link->fromElement());
    }
    return {encodeAnswer(OrderType_ChangeLink, change)};
}

std::vector<Loopback::Answer> Loopback::answerCollocation(const QByteArray &data)
{
    ElementOverviewList group;
    if (!decodeOrder(data, group))
        return rejectedOrder();
    return {encodeAnswer(OrderType_GetElementOverviewList, group)};
}

std::vector<Loopback::Answer> Loopback::answerPlotEntries(const QByteArray &data)
{
    PlotEntryList entries;
    if (!decodeOrder(data, entries))
        return rejectedOrder();
    for (PlotEntry &entry : entries.container()) {
        if (entry.firstId.isNull())
            entry.firstId = m_nextPlotId++;
        entry.modificationState = Modification_Approved;
    }
    return {encodeAnswer(OrderType_ChangePlotEntry, entries)};
}

} // namespace sigdb
