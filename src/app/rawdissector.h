#ifndef SIGDB_APP_RAWDISSECTOR_H
#define SIGDB_APP_RAWDISSECTOR_H

#include <QByteArray>
#include <QString>

namespace sigdbtool {

class JsonStream;

/// How taking bytes apart without knowing their record ended.
struct Dissection
{
    bool complete = true;  ///< false when the bytes ended or broke inside an item
    qint64 errorOffset = -1;
    QString error;
    qint64 itemsLeftOut = 0; ///< items found but not written, beyond the maximum asked for
};

/// Splits a column-value stream into its frames (tag, size, value) and writes them to \a items
/// as one JSON array, in stream order. Texts are recognised by their C-string layout; other
/// values are shown by their size (1, 2 or 8 bytes) or as hex. At most \a maxItems frames are
/// written (all when negative); the others are only counted.
Dissection dissectColumnFrames(const QByteArray &data, JsonStream &items, qint64 maxItems = -1);

/// Splits a tagged property stream into its blocks (index, size, value) and writes them to
/// \a items as one JSON array. Values that look like nested record streams, strings or vectors
/// are taken apart further, at most 64 levels deep (a record nested deeper is marked "tooDeep"
/// and shown as bytes). Every value is read as one thing only, so
/// the work grows with the input, whatever its shape. At most \a maxItems items (blocks and
/// vector elements, at any depth) are written (all when negative); the others are only counted.
Dissection dissectPropertyBlocks(const QByteArray &data, JsonStream &items, qint64 maxItems = -1);

/// Follows the block headers of a property stream at its top level only: whether every block
/// fits, and where the first that does not starts.
Dissection checkPropertyBlocks(const QByteArray &data);

} // namespace sigdbtool

#endif
