#ifndef SIGDB_LINK_LINKTEXT_P_H
#define SIGDB_LINK_LINKTEXT_P_H

#include <QString>

#include <string>

namespace sigdb {

// The texts of links are 8-bit. The info texts are formatted with QString, so every text passes
// into and out of it as Latin-1, which keeps each byte as it is.

inline QString latin1Text(const std::string &text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

inline std::string latin1Bytes(const QString &text)
{
    return text.toLatin1().toStdString();
}

} // namespace sigdb

#endif
