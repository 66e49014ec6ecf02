#ifndef SIGDB_APP_RECORDDECODERS_H
#define SIGDB_APP_RECORDDECODERS_H

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace sigdbtool {

class ItemBudget;
class JsonStream;

/// What decoding bytes as one record gave: whether it worked and, on failure, where and why it
/// stopped; and the writer of the record's JSON (as far as it was decoded), which writes it
/// while it is produced.
struct DecodeResult
{
    bool ok = false;
    qint64 offset = -1;
    QString error;
    std::function<void(JsonStream &out, ItemBudget &budget)> writeValue;
};

/// Which side of the interface a record travels on under an order type.
enum class Direction { Request, Answer, Middleware };

class JsonReader;

/// One record the tool can decode, and encode back from the JSON value that decoding gave.
struct RecordDecoder
{
    QString name;
    Direction direction;
    std::vector<int> orderTypes;
    std::function<DecodeResult(const QByteArray &)> decode;
    /// The record's bytes from its JSON value; on a value that does not fit, \a reader has
    /// failed and the bytes are not touched.
    std::function<void(JsonReader &reader, const QJsonValue &value, QByteArray &bytes)> encode;
};

/// Every record the tool knows.
const std::vector<RecordDecoder> &recordDecoders();
/// The record travelling on \a direction under \a orderType; null when there is none.
const RecordDecoder *findDecoder(Direction direction, int orderType);
/// The record called \a name (case-sensitive); null when there is none.
const RecordDecoder *findDecoder(const QString &name);
/// Names of all records, for the help text.
QStringList decoderNames(Direction direction);

} // namespace sigdbtool

#endif
