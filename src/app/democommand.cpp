#include "democommand.h"

#include "decodecommand.h"
#include "jsonstream.h"
#include "recorddecoders.h"

#include "client/loopback.h"
#include "client/refcallback.h"
#include "client/refcallbackforwarder.h"
#include "client/refinterface.h"
#include "core/corecallback.h"
#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QTextStream>

#include <functional>

namespace sigdbtool {

namespace {

QString hexSummary(const QByteArray &data)
{
    constexpr int kShown = 24;
    QString text = QString::fromLatin1(data.left(kShown).toHex(' '));
    if (data.size() > kShown)
        text += QStringLiteral(" ...");
    return text;
}

QString compactJson(const DecodeResult &result)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        JsonStream json(&buffer, JsonStream::Compact);
        ItemBudget everything(json, -1);
        result.writeValue(json, everything);
    }
    return QString::fromUtf8(buffer.data());
}

void printBytes(QTextStream &out, const char *what, Direction direction, int orderType, const QString &record,
                const QByteArray &data)
{
    out << "  " << what << ' ';
    if (record.isEmpty())
        out << orderType;
    else
        out << record;
    out << " (" << data.size() << " bytes): " << hexSummary(data) << '\n';
    const RecordDecoder *decoder = record.isEmpty() ? findDecoder(direction, orderType) : findDecoder(record);
    if (decoder)
        out << "    " << decoder->name << ' ' << compactJson(decoder->decode(data)) << '\n';
}

// The demo's client: counts and prints what reaches its callbacks.
class DemoCallback : public sigdb::RefCallback
{
public:
    explicit DemoCallback(QTextStream &out)
        : m_out(out)
    {
    }

    int received = 0;
    int errors = 0;

    void callbackElementOverview(sigdb::ElementOverview &overview) override { reached("callbackElementOverview", overview.element); }
    void callbackElementCreated(sigdb::ElementOverview &overview) override { reached("callbackElementCreated", overview.element); }
    void callbackElementChanged(sigdb::ElementOverview &overview) override { reached("callbackElementChanged", overview.element); }
    void callbackElementOverviewList(sigdb::ElementOverviewList &list) override
    {
        ++received;
        m_out << "  -> callbackElementOverviewList: " << list.count() << " result(s)\n";
    }
    void callbackLinkChanged(sigdb::LinkChangeDefinition &change) override
    {
        ++received;
        m_out << "  -> callbackLinkChanged: action " << change.link1().actionType() << " by "
              << QString::fromStdString(change.modificationUser().getData()) << '\n';
    }
    void callbackErrorMessage(const std::string &text) override
    {
        ++errors;
        m_out << "  -> callbackErrorMessage: " << QString::fromStdString(text) << '\n';
    }

private:
    void reached(const char *callback, const sigdb::SigdbElement &element)
    {
        ++received;
        m_out << "  -> " << callback << ": " << QString::fromStdString(element.infoAsString()) << '\n';
    }

    QTextStream &m_out;
};

class VersionAnswers : public sigdb::CoreCallback
{
public:
    explicit VersionAnswers(QTextStream &out)
        : m_out(out)
    {
    }
    int received = 0;
    void callbackVersionInfoVector(const sigdb::VersionInfoVector &versions) override
    {
        ++received;
        for (const sigdb::VersionInfo &info : versions.getVersionInfoVector()) {
            m_out << "  -> callbackVersionInfoVector: " << QString::fromStdString(info.getProductVersion().getOrigin())
                  << " interface " << info.getInterfaceVersion().getMajor() << '.'
                  << info.getInterfaceVersion().getMinor() << ", matching " << static_cast<int>(info.getInterfaceMatching())
                  << '\n';
        }
    }

private:
    QTextStream &m_out;
};

sigdb::ElementOverview storedUnit(const char *name)
{
    sigdb::ElementOverview overview;
    overview.element.setType(1);
    overview.keyText1 = std::string(name);
    overview.modificationState = sigdb::Modification_Approved;
    return overview;
}

} // namespace

int runDemo(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Runs the road of a client session against an in-process loopback of the server and prints "
        "each order and answer as hex and as JSON."));
    parser.addHelpOption();
    if (!parser.parse(arguments)) {
        err << parser.errorText() << '\n';
        return Exit_Usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        out << parser.helpText();
        return Exit_Ok;
    }

    sigdb::OrderQueue queue;
    sigdb::RefInterface requests;
    requests.setOrderQueue(queue);
    sigdb::Loopback server(queue);
    server.setObserver([&out](const sigdb::Order &order, const std::vector<sigdb::Loopback::Answer> &answers) {
        printBytes(out, "order", Direction::Request, order.orderType, QString(), order.data);
        for (const sigdb::Loopback::Answer &answer : answers)
            printBytes(out, "answer", Direction::Answer, answer.orderType, QString(), answer.data);
    });
    DemoCallback callback(out);
    int expectedAnswers = 0; // answers that are to reach the demo's RefCallback
    bool handshakeDone = false;

    out << "== 1. version handshake\n";
    {
        sigdb::VersionInfo client;
        client.getProductVersion().setOrigin("sigdbref demo");
        client.getInterfaceVersion().setMajor(1);
        client.getRequiredInterfaceVersion().setMajor(1);
        client.setInterfaceIdentifier(sigdb::InterfaceIdentifier_Reference);
        QByteArray request;
        client.serialize(request);
        printBytes(out, "client sends", Direction::Middleware, 0, QStringLiteral("VersionInfo"), request);
        const QByteArray answer = server.answerVersionInfo(request);
        printBytes(out, "server answers", Direction::Middleware, 0, QStringLiteral("VersionInfoVector"), answer);
        VersionAnswers versions(out);
        versions.callbackVersionInfoVector(sigdb::VersionInfoVector::deserialize(answer));
        handshakeDone = versions.received == 1;
    }

    out << "== 2. create a unit with full details\n";
    {
        sigdb::ElementDetails unit;
        unit.setType(1);
        unit.str(5) = std::string("ALPHA");
        unit.str(17) = std::string("alpha unit");
        unit.str(513) = std::string("A1;A2");
        unit.collocationTID() = 7000ULL;
        sigdb::ReferenceDocument manual;
        manual.documentText1 = std::string("operator manual");
        unit.referenceDocuments().appendEntry(manual);
        sigdb::CallsignSet callsigns;
        sigdb::CallsignEntry entry;
        entry.firstCallsign = std::string("ALPHA/A1");
        entry.secondCallsign = std::string("A|2");
        callsigns.entries.appendEntry(entry);
        unit.callsignTable().sets.appendEntry(callsigns);
        sigdb::ElementDetailsList details;
        details.appendDetails(unit);
        requests.createElement(details, &callback);
        server.processPendingOrders();
        ++expectedAnswers;
    }

    out << "== 3. list unit overviews with a query\n";
    for (const char *name : {"ALBERT", "BRAVO"})
        server.storeElement(storedUnit(name));
    {
        sigdb::QueryRequest query;
        query.element().setType(1);
        query.name() = std::string("AL*");
        sigdb::QueryRequestList queries;
        queries.appendEntry(query);
        requests.getElementOverviewList(queries, &callback);
        server.processPendingOrders();
        ++expectedAnswers;
    }

    out << "== 4. link a unit into a network\n";
    {
        sigdb::ElementOverview network;
        network.element.setType(4);
        network.keyText1 = std::string("NET-1");
        network = server.storeElement(network);
        sigdb::ElementOverview member = server.storeElement(storedUnit("CHARLIE"));

        sigdb::LinkChangeDefinition change;
        change.link1().setActionType(10);
        change.link1().setFromElement(network.element);
        change.link1().setToElement(member.element);
        change.setModificationUser(std::string("demo"));
        sigdb::RefCallbackForwarder linkAnswers(callback);
        requests.changeLink(change, &linkAnswers);
        server.processPendingOrders();
        ++expectedAnswers;
    }

    out << "== done: " << callback.received << " answer(s) received, " << callback.errors << " error(s)\n";
    out.flush();
    const bool complete = handshakeDone && callback.errors == 0 && callback.received == expectedAnswers
        && server.rejected() == 0;
    return complete ? Exit_Ok : Exit_DecodeFailure;
}

} // namespace sigdbtool
