#ifndef SIGDB_CLIENT_LOOPBACK_H
#define SIGDB_CLIENT_LOOPBACK_H

#include "sigdbref_export.h"

#include "core/orderqueue.h"
#include "element/elementdetails.h"
#include "element/elementoverview.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace sigdb {

/// An in-process stand-in for the signal-database server, for demos and for tests of client
/// code. It takes the orders that the request interface put into an OrderQueue, decodes them
/// as the server would, keeps the elements it is told about in a small in-memory store, and
/// answers every order with plausible records that travel back through the order's callback
/// (callbackRawData) exactly as answers from a server do.
///
///     sigdb::OrderQueue queue;
///     sigdb::RefInterface requests;
///     requests.setOrderQueue(queue);
///     sigdb::Loopback server(queue);
///     requests.getElementOverview(element, &myCallback);
///     server.processPendingOrders();   // myCallback.callbackElementOverview(...) runs here
///
/// Orders it answers: 5001 (the stored overview), 5004 (the stored details), 5005 and 5006
/// (the details are stored, new elements get a TID and an exchange id, and each is answered
/// with its overview under the same order type), 5002 (the stored elements that the query's
/// element type and name select, paged), 5003 (the elements linked to the element), 5007 and
/// 5008 (the changed overview as 5006), 5009 (the link change, stored and echoed), 5010 (the
/// collocation group echoed as 5002) and 5011 (the plot entries, numbered and echoed). Orders
/// whose bytes do not decode are answered with nothing; rejected() counts them.
class SIGDBREF_EXPORT Loopback
{
public:
    /// One answer: its order type and bytes.
    struct Answer
    {
        /// The order type the answer is sent under.
        int orderType = 0;
        /// The answer's bytes, as a server would send them.
        QByteArray data;
    };
    /// Sees every order and its answers (for printing or checking).
    using Observer = std::function<void(const Order &order, const std::vector<Answer> &answers)>;

    /// A server that answers the orders put into \a queue; the queue must outlive it.
    explicit Loopback(OrderQueue &queue);
    Loopback(const Loopback &) = delete;
    Loopback &operator=(const Loopback &) = delete;

    /// Answers every order queued so far, oldest first; returns how many were taken.
    int processPendingOrders();
    /// The answers to one order, without delivering them.
    std::vector<Answer> answer(const Order &order);

    /// Lets \a observer see every order and its answers from now on.
    void setObserver(Observer observer) { m_observer = std::move(observer); }

    /// The server's side of the version handshake: decodes the client's VersionInfo record
    /// from \a request and answers with a VersionInfoVector holding the server's version of the
    /// same interface, its InterfaceMatching set from the two sides' interface versions
    /// (equal: match; the server serves at least what the client requires: compatible; else
    /// mismatch). Throws the decoder's QString when \a request does not decode.
    QByteArray answerVersionInfo(const QByteArray &request) const;

    /// Puts an element into the store (as if it had been created before); a NULL TID is given
    /// the next free one. Returns the stored overview.
    ElementOverview storeElement(const ElementOverview &overview);
    /// The stored overview of \a element; null when the store does not hold it.
    const ElementOverview *findElement(const SigdbElement &element) const;
    /// The stored details of \a element; null when the store holds none.
    const ElementDetails *findDetails(const SigdbElement &element) const;
    /// How many elements the store holds.
    int storedElementCount() const { return static_cast<int>(m_elements.size()); }
    /// Orders whose bytes did not decode.
    int rejected() const { return m_rejected; }

private:
    using Key = std::pair<int, unsigned long long>;
    static Key keyOf(const SigdbElement &element);

    std::vector<Answer> answerOverview(const QByteArray &data);
    std::vector<Answer> answerDetails(const QByteArray &data);
    std::vector<Answer> answerStoredDetails(const QByteArray &data, int orderType);
    std::vector<Answer> answerQuery(const QByteArray &data);
    std::vector<Answer> answerSubElements(const QByteArray &data);
    std::vector<Answer> answerStateChange(const QByteArray &data, bool deleting);
    std::vector<Answer> answerLinkChange(const QByteArray &data);
    std::vector<Answer> answerCollocation(const QByteArray &data);
    std::vector<Answer> answerPlotEntries(const QByteArray &data);
    std::vector<Answer> rejectedOrder();

    OrderQueue &m_queue;
    Observer m_observer;
    std::map<Key, ElementOverview> m_elements;
    std::map<Key, ElementDetails> m_details;
    std::multimap<Key, SigdbElement> m_links;
    unsigned long long m_nextTid = 1000;
    unsigned long long m_nextPlotId = 1;
    int m_rejected = 0;
};

} // namespace sigdb

#endif
