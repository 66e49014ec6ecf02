#ifndef SIGDB_APP_RAWENCODER_H
#define SIGDB_APP_RAWENCODER_H

#include <QByteArray>
#include <QJsonValue>

namespace sigdbtool {

class JsonReader;

// The way back from the raw dissections that `inspect --raw` prints. Headers are written from
// the items' tags and indexes; sizes and offsets follow from the values, so an edited value
// needs no other change. A value's bytes come from its "text" or "string", "record" or
// "vector" view, else from its "hex"; the number views are there to be read, not written.

/// The column frames of the array \a items.
void encodeColumnFrames(JsonReader &reader, const QJsonValue &items, QByteArray &bytes);

/// The property blocks of the array \a items.
void encodePropertyBlocks(JsonReader &reader, const QJsonValue &items, QByteArray &bytes);

} // namespace sigdbtool

#endif
