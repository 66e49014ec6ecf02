// The reference program: the library's records on the QDataStream reference codec.
//
//     sigdbref_reference_codec write <directory>   writes <sample>.bin for every codec sample
//     sigdbref_reference_codec check <directory>   decodes every <sample>.bin written by the
//                                                  library's codec and compares it with the sample

#include "codecsamples.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstring>

namespace {

QString sampleFile(const QString &directory, const std::string &name)
{
    return directory + QLatin1Char('/') + QString::fromStdString(name) + QStringLiteral(".bin");
}

int writeSamples(const QString &directory)
{
    if (!QDir().mkpath(directory)) {
        std::fprintf(stderr, "cannot create %s\n", qPrintable(directory));
        return 1;
    }
    for (const sigdbreference::CodecSample &sample : sigdbreference::codecSamples()) {
        QFile file(sampleFile(directory, sample.name));
        const QByteArray bytes = sample.encode();
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    std::printf("%zu reference encodings written to %s\n", sigdbreference::codecSamples().size(),
                qPrintable(directory));
    return 0;
}

int checkSamples(const QString &directory)
{
    int failures = 0;
    for (const sigdbreference::CodecSample &sample : sigdbreference::codecSamples()) {
        QFile file(sampleFile(directory, sample.name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::printf("%s: no bytes from the library's codec\n", sample.name.c_str());
            ++failures;
            continue;
        }
        const QByteArray bytes = file.readAll();
        const std::string difference = sample.decodeAndCompare(bytes);
        if (bytes != sample.encode()) {
            std::printf("%s: the library's bytes differ from the reference bytes\n", sample.name.c_str());
            ++failures;
        } else if (!difference.empty()) {
            std::printf("%s: %s\n", sample.name.c_str(), difference.c_str());
            ++failures;
        }
    }
    std::printf("%zu samples checked against the reference codec, %d failed\n",
                sigdbreference::codecSamples().size(), failures);
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 3 && std::strcmp(argv[1], "write") == 0)
        return writeSamples(QString::fromLocal8Bit(argv[2]));
    if (argc == 3 && std::strcmp(argv[1], "check") == 0)
        return checkSamples(QString::fromLocal8Bit(argv[2]));
    std::fprintf(stderr, "usage: %s write|check <directory>\n", argv[0]);
    return 2;
}
