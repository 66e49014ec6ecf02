// sigdbref: the command-line companion of the library. `inspect` decodes captured bytes of
// any record and `encode` turns that JSON back into the bytes; `demo` runs the road of a client session.

#include "democommand.h"
#include "decodecommand.h"
#include "encodecommand.h"

#include <QCoreApplication>
#include <QString>
#include <QTextStream>

#include <cstdio>

namespace {

void printUsage(QTextStream &out)
{
    out << "Usage: sigdbref <command> [options]\n\n"
           "Commands:\n"
           "  inspect    decode the bytes of a record and print it as JSON\n"
           "  encode     read the JSON that inspect prints and write the record's bytes\n"
           "  demo       run a client session against an in-process loopback\n\n"
           "Options:\n"
           "  --help     this text; 'sigdbref <command> --help' tells more\n"
           "  --version  the library version\n";
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("sigdbref"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SIGDBREF_VERSION));
    QTextStream out(stdout);
    QTextStream err(stderr);

    QStringList arguments = QCoreApplication::arguments();
    const QString command = arguments.value(1);
    arguments.removeAt(0); // the subcommand stands where a program name would
    if (command == QLatin1String("inspect"))
        return sigdbtool::runInspect(arguments, out, err);
    if (command == QLatin1String("encode"))
        return sigdbtool::runEncode(arguments, out, err);
    if (command == QLatin1String("demo"))
        return sigdbtool::runDemo(arguments, out, err);
    if (command == QLatin1String("--version")) {
        out << "sigdbref " << SIGDBREF_VERSION << '\n';
        return sigdbtool::Exit_Ok;
    }
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        printUsage(out);
        return sigdbtool::Exit_Ok;
    }
    printUsage(err);
    return sigdbtool::Exit_Usage;
}
