#include "toolinput.h"

#include <QTextStream>

#include <QFile>

#include <cctype>
#include <limits>

namespace sigdbtool {

namespace {

// Input is read in pieces of this size, so that an endless input is refused after reading no
// more than the maximum.
constexpr qint64 kReadPiece = 1024 * 1024;

} // namespace

bool readInput(const QString &path, qint64 maxInput, QByteArray &data, QString &error, bool &tooLarge)
{
    tooLarge = false;
    QFile file;
    const bool ok = path.isEmpty() || path == QLatin1String("-")
        ? file.open(stdin, QIODevice::ReadOnly)
        : (file.setFileName(path), file.open(QIODevice::ReadOnly));
    if (!ok) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    const auto refuse = [&] {
        tooLarge = true;
        data.clear();
        error = QStringLiteral("the input is larger than the maximum of %1 bytes (--max-input changes it)")
                    .arg(maxInput);
        return false;
    };
    // A regular file tells its size; devices and pipes do not and are read until they end.
    if (!file.isSequential() && file.size() > maxInput)
        return refuse();
    if (!file.isSequential())
        data.reserve(static_cast<int>(file.size()));
    for (;;) {
        const qint64 piece = qMin(kReadPiece, maxInput + 1 - data.size());
        const QByteArray bytes = file.read(piece);
        if (bytes.isEmpty())
            break;
        data.append(bytes);
        if (data.size() > maxInput)
            return refuse();
    }
    if (file.error() != QFileDevice::NoError) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

int readCommandInput(const char *command, const QString &path, qint64 maxInput, QByteArray &data, QTextStream &err)
{
    QString error;
    bool tooLarge = false;
    if (readInput(path, maxInput, data, error, tooLarge))
        return 0;
    err << command << ": " << error << '\n';
    return tooLarge ? 1 : 2;
}

bool parseHex(const QByteArray &text, QByteArray &bytes)
{
    // One pass over the text gathers the digits; QByteArray turns them into bytes.
    QByteArray digits(text.size(), Qt::Uninitialized);
    char *const gathered = digits.data();
    int count = 0;
    const char *at = text.constData();
    const char *const end = at + text.size();
    while (at < end) {
        if (std::isspace(static_cast<unsigned char>(*at))) {
            ++at;
            continue;
        }
        // A word: an optional "0x" prefix, then hex digits up to the next blank.
        if (end - at >= 2 && at[0] == '0' && (at[1] == 'x' || at[1] == 'X'))
            at += 2;
        for (; at < end && !std::isspace(static_cast<unsigned char>(*at)); ++at) {
            if (!std::isxdigit(static_cast<unsigned char>(*at)))
                return false;
            gathered[count++] = *at;
        }
    }
    if (count % 2 != 0)
        return false;
    digits.truncate(count);
    bytes = QByteArray::fromHex(digits);
    return true;
}

// A size in bytes, optionally followed by K, M or G (powers of 1024). -1 when it is none.
qint64 parseSize(const QString &text)
{
    static const QString units = QStringLiteral("KMG");
    const int unit = text.isEmpty() ? -1 : units.indexOf(text.back().toUpper());
    bool ok = false;
    const qint64 number = (unit < 0 ? text : text.chopped(1)).toLongLong(&ok);
    const int shift = unit < 0 ? 0 : 10 * (unit + 1);
    if (!ok || number < 0 || number > (std::numeric_limits<qint64>::max() >> shift))
        return -1;
    return number << shift;
}

} // namespace sigdbtool
