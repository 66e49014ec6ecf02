#ifndef SIGDB_APP_DECODECOMMAND_H
#define SIGDB_APP_DECODECOMMAND_H

#include "recorddecoders.h"

#include <QStringList>

class QTextStream;

namespace sigdbtool {

/// Exit codes of the tool.
enum ExitCode { Exit_Ok = 0, Exit_DecodeFailure = 1, Exit_Usage = 2 };

/// `sigdbref inspect`: decodes bytes from a file or standard input and prints the record as
/// JSON. \a arguments starts with the command name.
int runInspect(const QStringList &arguments, QTextStream &out, QTextStream &err);

/// The bytes of the file at \a path, or of standard input for an empty path or "-".
bool readInput(const QString &path, QByteArray &data, QString &error);

/// The name of \a direction in the JSON documents: "request", "answer" or "middleware".
QString directionName(Direction direction);

/// Bytes from hex text as people paste it from logs: pairs of hex digits, separated or not by
/// white space; "0x" prefixes are ignored. False on anything else.
bool parseHex(const QByteArray &text, QByteArray &bytes);

} // namespace sigdbtool

#endif
