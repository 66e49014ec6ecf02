#ifndef SIGDB_APP_ENCODECOMMAND_H
#define SIGDB_APP_ENCODECOMMAND_H

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextStream;

namespace sigdbtool {

/// `sigdbref encode`: reads the JSON document that `inspect` prints (from a file or standard
/// input) and writes the bytes of the record it describes, binary or as hex text.
/// \a arguments starts with the command name.
int runEncode(const QStringList &arguments, QTextStream &out, QTextStream &err);

/// The bytes of the record that the inspect document \a document describes. False with
/// "<JSON path>: <problem>" in \a error on a document that does not describe one.
bool encodeDocument(const QByteArray &document, QByteArray &bytes, QString &error);

} // namespace sigdbtool

#endif
