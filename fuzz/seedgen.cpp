// Writes the seed corpora of the fuzzers, made by the library's own encoders, into
// <directory>/<harness>/. Run at build time; nothing of it is checked in.

#include "fuzztargets.h"
#include "recorddecoders.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool writeSeed(const QString &directory, const QString &name, const QByteArray &bytes)
{
    QFile file(directory + QLatin1Char('/') + name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray prefixed(quint8 selector, const QByteArray &bytes)
{
    return QByteArray(1, static_cast<char>(selector)) + bytes;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <corpus directory>\n", argv[0]);
        return 2;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    for (const char *harness : {"dispatch", "middleware", "requests", "callsigntext", "records", "tool"}) {
        if (!QDir().mkpath(root + QLatin1Char('/') + QLatin1String(harness)))
            return 1;
    }

    int written = 0;
    for (const auto &answer : sigdbfuzz::answerSamples()) {
        int n = 0;
        for (const QByteArray &bytes : answer.second()) {
            QByteArray seed;
            seed.append(static_cast<char>((answer.first >> 8) & 0xff));
            seed.append(static_cast<char>(answer.first & 0xff));
            seed.append(bytes);
            written += writeSeed(root + QStringLiteral("/dispatch"),
                                 QStringLiteral("%1-%2").arg(answer.first).arg(n++), seed);
        }
    }
    const auto writeTargets = [&](const char *harness, const std::vector<sigdbfuzz::Target> &targets) {
        for (size_t index = 0; index < targets.size(); ++index) {
            int n = 0;
            for (const QByteArray &bytes : targets[index].samples()) {
                written += writeSeed(root + QLatin1Char('/') + QLatin1String(harness),
                                     QStringLiteral("%1-%2").arg(targets[index].name).arg(n++),
                                     prefixed(static_cast<quint8>(index), bytes));
            }
        }
    };
    writeTargets("middleware", sigdbfuzz::middlewareTargets());
    writeTargets("requests", sigdbfuzz::requestTargets());
    writeTargets("records", sigdbfuzz::recordTargets());
    int n = 0;
    for (const QByteArray &bytes : sigdbfuzz::callsignTextTarget().samples())
        written += writeSeed(root + QStringLiteral("/callsigntext"), QStringLiteral("table-%1").arg(n++), bytes);

    // The tool: hex text of column and property streams (0), column streams (1), property
    // streams (2).
    n = 0;
    const auto writeToolSeeds = [&](const std::vector<sigdbfuzz::Target> &targets, quint8 dissector) {
        for (const sigdbfuzz::Target &target : targets) {
            for (const QByteArray &bytes : target.samples()) {
                for (const QByteArray &seed : {prefixed(dissector, bytes), prefixed(0, bytes.toHex(' '))})
                    written += writeSeed(root + QStringLiteral("/tool"), QStringLiteral("tool-%1").arg(n++), seed);
            }
        }
    };
    writeToolSeeds(sigdbfuzz::requestTargets(), 1);
    writeToolSeeds(sigdbfuzz::middlewareTargets(), 2);
    // Records (3): every record of the tool with the samples of the fuzz target of its name.
    const auto &decoders = sigdbtool::recordDecoders();
    for (size_t index = 0; index < decoders.size(); ++index) {
        for (const auto *targets : {&sigdbfuzz::requestTargets(), &sigdbfuzz::middlewareTargets()}) {
            for (const sigdbfuzz::Target &target : *targets) {
                if (target.name != decoders[index].name)
                    continue;
                for (const QByteArray &bytes : target.samples()) {
                    written += writeSeed(root + QStringLiteral("/tool"), QStringLiteral("tool-%1").arg(n++),
                                         prefixed(3, prefixed(static_cast<quint8>(index), bytes)));
                }
            }
        }
    }
    std::printf("%d seeds written to %s\n", written, argv[1]);
    return written > 0 ? 0 : 1;
}
