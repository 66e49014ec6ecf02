#ifndef SIGDB_APP_RAWDISSECTOR_H
#define SIGDB_APP_RAWDISSECTOR_H

#include <QByteArray>
#include <QJsonArray>
#include <QString>

namespace sigdbtool {

/// The result of taking bytes apart without knowing the record they hold.
struct Dissection
{
    QJsonArray items;      ///< every frame or block found, in stream order
    bool complete = true;  ///< false when the bytes ended or broke inside an item
    qint64 errorOffset = -1;
    QString error;
};

/// Splits a column-value stream into its frames (tag, size, value). Texts are recognised by
/// their C-string layout; other values are shown by their size (1, 2 or 8 bytes) or as hex.
Dissection dissectColumnFrames(const QByteArray &data);

/// Splits a tagged property stream into its blocks (index, size, value). Values that look like
/// nested record streams, strings or vectors are taken apart further, at most 64 levels deep.
Dissection dissectPropertyBlocks(const QByteArray &data);

} // namespace sigdbtool

#endif
