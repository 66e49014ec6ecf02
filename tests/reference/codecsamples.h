#ifndef SIGDB_TESTS_REFERENCE_CODECSAMPLES_H
#define SIGDB_TESTS_REFERENCE_CODECSAMPLES_H

// Sample records of every kind that travels, for proving that the codec writes and reads the
// very bytes that a bare QDataStream (version 12, big-endian) writes and reads. The same table
// is compiled twice: into the unit tests, on top of the library's codec, and into the
// reference program, on top of the QDataStream codec kept in tests/reference/io. The reference
// program writes each sample's bytes; the unit tests compare them with their own, and each side
// decodes the other's bytes back into the sample.
//
// The samples reach into every corner of the formats: texts holding every byte value but zero,
// NULLs of every kind of column, the extreme and negative numbers, NaN and the infinities,
// empty lists and the largest counts a 16-bit count frame can carry.

#include <QByteArray>

#include <functional>
#include <string>
#include <vector>

namespace sigdbreference {

struct CodecSample
{
    std::string name;
    /// The sample's bytes, written by the codec this table is compiled with.
    std::function<QByteArray()> encode;
    /// Decodes \a bytes with the same codec and compares the result with the sample (and its
    /// encoding with \a bytes); returns what differs, or an empty text.
    std::function<std::string(const QByteArray &bytes)> decodeAndCompare;
};

/// Every sample, named for test and file names alike ("ElementOverview_Rich", ...).
const std::vector<CodecSample> &codecSamples();

} // namespace sigdbreference

#endif
