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

/// The name of \a direction in the JSON documents: "request", "answer" or "middleware".
QString directionName(Direction direction);

} // namespace sigdbtool

#endif
