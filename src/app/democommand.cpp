#include "democommand.h"

#include "inspectcommand.h"
#include "recordinspector.h"

#include "client/refinterface.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/orderqueue.h"

#include <QCommandLineParser>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace sigdbtool {

namespace {

QString hexSummary(const QByteArray &data)
{
    constexpr int kShown = 24;
    QString text = QString::fromLatin1(data.left(kShown).toHex(' '));
    if (data.size() > kShown)
        text += QStringLiteral(" ... (%1 bytes)").arg(data.size());
    return text;
}

void printOrder(QTextStream &out, const sigdb::Order &order)
{
    out << "order " << order.handle << ": type " << order.orderType << ", " << order.data.size()
        << " bytes\n  " << hexSummary(order.data) << '\n';
    if (const RecordInspector *inspector = findInspector(Direction::Request, order.orderType)) {
        const DecodeResult decoded = inspector->decode(order.data);
        out << "  " << inspector->name << ' '
            << QString::fromUtf8(QJsonDocument(decoded.value.toObject()).toJson(QJsonDocument::Compact))
            << '\n';
    }
}

} // namespace

int runDemo(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Runs the road of a client session and prints each order and answer."));
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
    sigdb::RefInterface interface;
    interface.setOrderQueue(queue);

    out << "== the sub-elements of network 4711\n";
    sigdb::SigdbElementWithMaxCount network;
    network.setType(4);
    network.setTID(4711);
    network.setResultListMaxCount(50);
    const int handle = interface.getElementSubElementList(network, nullptr);
    for (const sigdb::Order &order : queue.takeAll())
        printOrder(out, order);
    out.flush();
    return handle > 0 ? Exit_Ok : Exit_DecodeFailure;
}

} // namespace sigdbtool
