#ifndef SIGDB_IO_BYTECURSOR_H
#define SIGDB_IO_BYTECURSOR_H

#include "sigdbcore_export.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace sigdb {

// The two wire formats are sequences of fixed-width big-endian numbers and length-prefixed
// bytes, laid out exactly as QDataStream (version 12, big-endian) lays them out. The cursors
// below move over one contiguous QByteArray through a raw pointer: a value is one bounds check
// and one byte-swapping load or store, with no device, buffer or virtual call in between.

/// Appends big-endian values to a byte array, growing it geometrically.
///
/// Writing starts at the array's first byte and overwrites what is there, as a write-only
/// QDataStream on the array does; bytes beyond the written ones are kept. The array holds the
/// written bytes once the cursor is destroyed (or after finish()): until then it may be longer.
class SIGDBCORE_EXPORT ByteWriter
{
public:
    /// Writes into \a target, which must outlive the writer.
    explicit ByteWriter(QByteArray &target);
    ~ByteWriter() { finish(); }
    ByteWriter(const ByteWriter &) = delete;
    ByteWriter &operator=(const ByteWriter &) = delete;

    /// The bytes written so far.
    qint64 position() const { return m_cursor - m_begin; }

    /// Room for \a size more bytes at the write position, which moves past them.
    char *claim(qint64 size)
    {
        if (Q_UNLIKELY(m_end - m_cursor < size))
            grow(size);
        char *at = m_cursor;
        m_cursor += size;
        return at;
    }

    /// Gives back the last \a size bytes claimed and not needed after all.
    void unclaim(qint64 size) { m_cursor -= size; }

    /// Stores \a value big-endian at \a at and returns the position after it.
    template <typename T>
    static char *store(char *at, T value)
    {
        static_assert(std::is_integral<T>::value, "integers only; doubles travel as their bits");
        if constexpr (sizeof(T) == 1)
            *at = static_cast<char>(value);
        else
            qToBigEndian(value, at);
        return at + sizeof(T);
    }
    /// Stores the bits of \a value big-endian at \a at, as QDataStream writes a double.
    static char *store(char *at, double value)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return store(at, bits);
    }

    template <typename T>
    /// Appends \a value big-endian.
    void put(T value)
    {
        store(claim(sizeof(T)), value);
    }
    /// Appends \a size bytes from \a data as they are.
    void putRaw(const char *data, qint64 size)
    {
        if (size > 0)
            std::memcpy(claim(size), data, static_cast<size_t>(size));
    }
    /// Overwrites the 32-bit value at \a position (already written) in place.
    void patch(qint64 position, qint32 value) { store(m_begin + position, value); }

    /// Gives the array its final size: the bytes written, or its old size if that was longer.
    void finish();

private:
    void grow(qint64 size);

    QByteArray &m_target;
    qint64 m_keptSize; // the array's size before writing began
    char *m_begin = nullptr;
    char *m_cursor = nullptr;
    char *m_end = nullptr;
};

/// Reads big-endian values from contiguous bytes. Every read is checked against the bytes left;
/// the cursor never moves outside its range. The bytes are not owned: the reader that hands
/// out a cursor keeps them alive.
class ByteReader
{
public:
    ByteReader() = default;
    /// Reads the bytes from \a begin up to \a end, which the caller keeps alive.
    ByteReader(const char *begin, const char *end)
        : m_begin(begin)
        , m_cursor(begin)
        , m_end(end)
    {
    }

    /// The read position in bytes from the beginning.
    qint64 position() const { return m_cursor - m_begin; }
    /// The bytes not yet read.
    qint64 bytesLeft() const { return m_end - m_cursor; }
    /// Whether \a size more bytes are there to read.
    bool has(qint64 size) const { return m_end - m_cursor >= size; }
    /// The next byte to read, for reading a run of bytes in place.
    const char *cursor() const { return m_cursor; }

    /// The next value; the caller has checked has(sizeof(T)).
    template <typename T>
    T take()
    {
        T value;
        if constexpr (std::is_same<T, double>::value) {
            const quint64 bits = qFromBigEndian<quint64>(m_cursor);
            std::memcpy(&value, &bits, sizeof value);
        } else if constexpr (sizeof(T) == 1) {
            value = static_cast<T>(*m_cursor);
        } else {
            value = qFromBigEndian<T>(m_cursor);
        }
        m_cursor += sizeof(T);
        return value;
    }
    /// The next value, or 0 when it is cut short by the end of the bytes, which are then
    /// consumed: what QDataStream gives for a read past the end.
    template <typename T>
    T takeOrZero()
    {
        if (Q_LIKELY(has(sizeof(T))))
            return take<T>();
        skipToEnd();
        return T(0);
    }

    /// Moves over \a size bytes, or to the end if fewer are left; never backwards.
    void skip(qint64 size) { m_cursor += std::clamp<qint64>(size, 0, bytesLeft()); }
    /// Moves to the end: nothing more is read.
    void skipToEnd() { m_cursor = m_end; }
    /// Moves back to \a position (one already passed).
    void rewind(qint64 position) { m_cursor = m_begin + position; }

private:
    const char *m_begin = nullptr;
    const char *m_cursor = nullptr;
    const char *m_end = nullptr;
};

} // namespace sigdb

#endif
