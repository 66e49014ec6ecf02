#include "io/bytecursor.h"

#include <algorithm>
#include <limits>

namespace sigdb {

ByteWriter::ByteWriter(QByteArray &target)
    : m_target(target)
    , m_keptSize(target.size())
{
    if (!target.isEmpty()) {
        m_begin = target.data();
        m_cursor = m_begin;
        m_end = m_begin + target.size();
    }
}

void ByteWriter::grow(qint64 size)
{
    // Doubling keeps the cost of a long record linear; the array's own size serves as the
    // capacity, and finish() cuts it back to what was written.
    constexpr qint64 maximumSize = std::numeric_limits<int>::max() - 64;
    const qint64 written = position();
    const qint64 needed = written + size;
    if (needed > maximumSize)
        qBadAlloc();
    const qint64 doubled = 2 * static_cast<qint64>(m_target.size());
    m_target.resize(static_cast<int>(std::min(maximumSize, std::max<qint64>({needed, doubled, 256}))));
    m_begin = m_target.data();
    m_cursor = m_begin + written;
    m_end = m_begin + m_target.size();
}

void ByteWriter::finish()
{
    const qint64 written = position();
    const qint64 size = std::max(written, m_keptSize);
    if (m_target.size() != size)
        m_target.resize(static_cast<int>(size));
    m_begin = size == 0 ? nullptr : m_target.data();
    m_cursor = m_begin + written;
    m_end = m_begin + size;
}

} // namespace sigdb
