#ifndef SIGDB_APP_TOOLINPUT_H
#define SIGDB_APP_TOOLINPUT_H

#include <QByteArray>
#include <QString>

class QTextStream;

namespace sigdbtool {

/// Reads the file at \a path (standard input for none or "-") in bounded pieces. Refuses, with
/// \a tooLarge set, an input larger than \a maxInput bytes once that much has been read, so an
/// endless input costs no more than the maximum. False with \a error on failure.
bool readInput(const QString &path, qint64 maxInput, QByteArray &data, QString &error, bool &tooLarge);

/// Reads a command's input as readInput() does. On failure writes "<command>: <error>" to \a err
/// and returns the exit status: 1 for an input beyond the maximum, 2 for one that cannot be
/// read; 0 when \a data holds the input.
int readCommandInput(const char *command, const QString &path, qint64 maxInput, QByteArray &data, QTextStream &err);

/// Bytes from hex text as people paste it from logs: pairs of hex digits, separated or not by
/// white space; "0x" prefixes are ignored. False on anything else.
bool parseHex(const QByteArray &text, QByteArray &bytes);

/// The input a command reads unless told otherwise (--max-input): 256 MiB.
constexpr qint64 kDefaultMaxInput = qint64(256) << 20;

/// The largest --max-input: a byte array holds at most 2 GiB, and hex text is read whole.
constexpr qint64 kLargestInput = qint64(1) << 30;

/// A size in bytes, optionally followed by K, M or G (powers of 1024); -1 when it is none.
qint64 parseSize(const QString &text);

} // namespace sigdbtool

#endif
