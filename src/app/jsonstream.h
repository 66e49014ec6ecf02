#ifndef SIGDB_APP_JSONSTREAM_H
#define SIGDB_APP_JSONSTREAM_H

#include <QByteArray>
#include <QJsonValue>
#include <QLatin1String>

#include <vector>

class QIODevice;

namespace sigdbtool {

/// Writes one JSON document to a device while it is produced, so that a report of millions of
/// items never has to be held in memory as a whole. The layout is the indented one of
/// QJsonDocument; small values are serialised by QJsonDocument itself.
///
/// The stream can be muted: until it is unmuted, every new element is dropped, while the
/// containers open before are still closed properly. A report cut at a number of items stays
/// a valid document that way.
class JsonStream
{
public:
    enum Layout { Indented, Compact };

    /// Writes to \a device; a null device throws every byte away (the structure is still kept).
    /// Compact writes everything on one line, without blanks.
    explicit JsonStream(QIODevice *device, Layout layout = Indented);
    ~JsonStream();
    JsonStream(const JsonStream &) = delete;
    JsonStream &operator=(const JsonStream &) = delete;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    /// The key of the next member of the open object.
    void key(QLatin1String name);

    /// Any value; objects and arrays given this way are written on one line.
    void value(const QJsonValue &value);
    void number(qint64 number);
    /// Bytes as a string of hex pairs separated by blanks, written in bounded pieces.
    void hexValue(const char *data, qint64 size);

    /// Drops every element from now on (see above), until unmute().
    void mute() { m_muted = true; }
    void unmute() { m_muted = false; }
    bool isMuted() const { return m_muted; }

    /// Hands what is buffered to the device.
    void flush();

private:
    struct Container
    {
        bool empty = true;
        bool dropped = false;
    };

    /// Starts an element at the current level: separator and indentation. False when the
    /// element is dropped.
    bool beginElement();
    void open(char bracket);
    void close(char bracket);
    void write(const char *bytes, int size);
    void write(const QByteArray &bytes);
    void write(const char *text);
    void writeIndent();

    QIODevice *m_device;
    bool m_compact;
    QByteArray m_buffer;
    std::vector<Container> m_containers;
    bool m_afterKey = false;
    bool m_keyWritten = false;
    bool m_muted = false;
};

/// Counts the items (list entries, frames, blocks) written against the maximum asked for;
/// beyond it the stream is muted and the items are only counted. What follows the items is
/// written again once the budget is finished.
class ItemBudget
{
public:
    /// \a maxItems below 0: no maximum.
    ItemBudget(JsonStream &out, qint64 maxItems)
        : m_out(out)
        , m_left(maxItems)
    {
    }
    ItemBudget(const ItemBudget &) = delete;
    ItemBudget &operator=(const ItemBudget &) = delete;
    ~ItemBudget() { finish(); }

    /// Called before each item; whether it is written (an item left out need not be produced
    /// at all, as the stream would drop it).
    bool take()
    {
        if (m_left == 0)
            m_out.mute();
        if (m_out.isMuted()) {
            ++m_leftOut;
            return false;
        }
        if (m_left > 0)
            --m_left;
        return true;
    }
    /// The items are over: the stream writes again.
    void finish() { m_out.unmute(); }
    qint64 leftOut() const { return m_leftOut; }

private:
    JsonStream &m_out;
    qint64 m_left;
    qint64 m_leftOut = 0;
};

} // namespace sigdbtool

#endif
