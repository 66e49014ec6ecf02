#ifndef SIGDB_APP_DEMOCOMMAND_H
#define SIGDB_APP_DEMOCOMMAND_H

#include <QStringList>

class QTextStream;

namespace sigdbtool {

/// `sigdbref demo`: runs the road of a client session and prints every order and answer.
int runDemo(const QStringList &arguments, QTextStream &out, QTextStream &err);

} // namespace sigdbtool

#endif
