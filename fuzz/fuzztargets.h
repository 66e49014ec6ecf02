#ifndef SIGDB_FUZZ_FUZZTARGETS_H
#define SIGDB_FUZZ_FUZZTARGETS_H

// The decoder entry points that the fuzzers drive, and sample records to seed them, in one
// place: the harnesses and the seed generator both walk these tables, so a seed always
// addresses the decoder it was made for.
//
// Input layouts:
//   dispatch    qint16 order type (big-endian), then the answer bytes
//   middleware  one byte choosing the record class, then the record stream
//   requests    one byte choosing the request record, then its column stream
//   callsigntext  the UTF-8 text form of a callsign table
//   records     one byte choosing a target of recordTargets(), then its input
//   tool        one byte choosing the tool's hex reader (0), column (1) or property (2)
//               dissector, then its input

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <functional>
#include <vector>

namespace sigdbfuzz {

struct Target
{
    QString name;
    std::function<void(const QByteArray &)> decode;   // must never crash
    std::function<std::vector<QByteArray>()> samples; // encodings made by the library
};

/// Decodes \a size - 1 bytes after the first with the target that the first byte chooses.
void decodeWithChosenTarget(const std::vector<Target> &targets, const unsigned char *data, std::size_t size);

/// The answer order types of the dispatch, with samples of their records.
const std::vector<std::pair<int, std::function<std::vector<QByteArray>()>>> &answerSamples();
/// Hands \a data to a RefCallback as an answer of \a orderType.
void dispatchAnswer(int orderType, const QByteArray &data);

/// One target per middleware record class.
const std::vector<Target> &middlewareTargets();
/// One target per request record that the library writes.
const std::vector<Target> &requestTargets();
/// The reader of the callsign table's text form.
const Target &callsignTextTarget();
/// The entry points beside the plain decoders: every middleware record decoded every way,
/// column records decoded into records that hold a value already, the callsign table's text
/// reader on any QString, the loopback's answers and RefCallbackForwarder.
const std::vector<Target> &recordTargets();

} // namespace sigdbfuzz

#endif
