#ifndef SIGDB_TESTS_APP_TOOLRUN_H
#define SIGDB_TESTS_APP_TOOLRUN_H

// Runs the sigdbref tool as a user would, in a process of its own.

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include <initializer_list>

namespace {

struct ToolRun
{
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
    QJsonObject json() const { return QJsonDocument::fromJson(out).object(); }
};

inline ToolRun runTool(const QStringList &arguments, const QByteArray &input = QByteArray())
{
    QProcess process;
    process.start(QStringLiteral(SIGDBREF_TOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60000);
    ToolRun run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

template <typename Record>
QByteArray encoded(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

inline QStringList args(std::initializer_list<const char *> words)
{
    QStringList list;
    for (const char *word : words)
        list.append(QString::fromLatin1(word));
    return list;
}

} // namespace

#endif
