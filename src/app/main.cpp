// sigdbref: the command-line companion of the library.

#include "client/refinterface.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/orderqueue.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QTextStream>

namespace {

int runDemo(QTextStream &out)
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface interface;
    interface.setOrderQueue(queue);

    sigdb::SigdbElementWithMaxCount network;
    network.setType(4);
    network.setTID(4711);
    network.setResultListMaxCount(50);
    const int handle = interface.getElementSubElementList(network, nullptr);

    for (const sigdb::Order &order : queue.takeAll()) {
        out << "order " << order.handle << " type " << order.orderType << " ("
            << order.data.size() << " bytes)\n"
            << "  " << QString::fromLatin1(order.data.toHex(' ')) << '\n';
    }
    return handle > 0 ? 0 : 1;
}

void printUsage(QTextStream &out)
{
    out << "Usage: sigdbref <command>\n\n"
           "Commands:\n"
           "  demo       queue a sample request and print its bytes\n"
           "  --version  print the library version\n";
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QStringList args = QCoreApplication::arguments();
    const QString command = args.value(1);
    if (command == QLatin1String("demo"))
        return runDemo(out);
    if (command == QLatin1String("--version")) {
        out << "sigdbref " << SIGDBREF_VERSION << '\n';
        return 0;
    }
    printUsage(out);
    return command == QLatin1String("--help") ? 0 : 2;
}
