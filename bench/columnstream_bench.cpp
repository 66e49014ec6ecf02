// Encoding and decoding of element details with many column texts, beside a floor: the same
// bytes written and read with bare QDataStream calls and no record logic.

#include "core/sigdbelementdetails.h"
#include "io/columnstream.h"

#include <QDataStream>

#include <benchmark/benchmark.h>

namespace {

constexpr int kTexts = 200;

sigdb::SigdbElementDetails detailsWithTexts()
{
    sigdb::SigdbElementDetails details;
    details.setType(4);
    details.setTID(4711);
    std::vector<base::DbDataType<std::string>> texts(kTexts);
    for (int i = 0; i < kTexts; ++i) {
        if (i % 10 != 0)
            texts[static_cast<size_t>(i)] = std::string("column value ") + std::to_string(i);
    }
    details.setAllData(texts);
    return details;
}

void setBytes(benchmark::State &state, qint64 bytesPerIteration)
{
    state.SetBytesProcessed(state.iterations() * bytesPerIteration);
}

void BM_DetailsEncode(benchmark::State &state)
{
    const sigdb::SigdbElementDetails details = detailsWithTexts();
    qint64 size = 0;
    for (auto _ : state) {
        QByteArray out;
        details.serialize(out);
        size = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    setBytes(state, size);
}
BENCHMARK(BM_DetailsEncode);

void BM_DetailsDecode(benchmark::State &state)
{
    QByteArray data;
    detailsWithTexts().serialize(data);
    for (auto _ : state) {
        sigdb::SigdbElementDetails details;
        details.setIDs(0);
        sigdb::ColumnReader reader(data);
        benchmark::DoNotOptimize(details.readFrom(reader));
    }
    setBytes(state, data.size());
}
BENCHMARK(BM_DetailsDecode);

// The floor: the same frames with bare stream calls.
void BM_DetailsFloorWrite(benchmark::State &state)
{
    const sigdb::SigdbElementDetails details = detailsWithTexts();
    qint64 size = 0;
    for (auto _ : state) {
        QByteArray out;
        QDataStream stream(&out, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_4_8);
        for (int tag : {1, 2})
            stream << qint16(tag) << qint16(2) << qint16(0);
        stream << qint16(1) << qint16(8) << qint64(4711);
        for (int tag : {4, 5, 6, 7})
            stream << qint16(tag) << qint16(2) << qint16(0);
        stream << qint16(2) << qint16(0) << qint16(3) << qint16(0);
        stream << qint16(4382) << qint16(2) << qint16(kTexts);
        for (const base::DbDataType<std::string> &text : details.allData()) {
            if (text.isNull()) {
                stream << qint16(0) << qint16(0);
                continue;
            }
            const std::string &value = text.getData();
            stream << qint16(0) << qint16(value.size() + 1);
            stream.writeBytes(value.c_str(), static_cast<uint>(value.size() + 1));
        }
        stream << qint16(4197) << qint16(2) << qint16(0) << qint16(4711) << qint16(2) << qint16(0)
               << qint16(4713) << qint16(1) << qint8(0) << qint16(4712) << qint16(0);
        size = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    setBytes(state, size);
}
BENCHMARK(BM_DetailsFloorWrite);

void BM_DetailsFloorRead(benchmark::State &state)
{
    QByteArray data;
    detailsWithTexts().serialize(data);
    for (auto _ : state) {
        QDataStream stream(data);
        stream.setVersion(QDataStream::Qt_4_8);
        qint16 tag = 0;
        qint16 size = 0;
        qint16 small = 0;
        qint64 wide = 0;
        for (int i = 0; i < 2; ++i)
            stream >> tag >> size >> small;
        stream >> tag >> size >> wide;
        for (int i = 0; i < 4; ++i)
            stream >> tag >> size >> small;
        stream >> tag >> size >> tag >> size;
        qint16 count = 0;
        stream >> tag >> size >> count;
        std::vector<std::string> texts;
        for (int i = 0; i < count; ++i) {
            stream >> tag >> size;
            if (size == 0) {
                texts.emplace_back();
                continue;
            }
            quint32 length = 0;
            stream >> length;
            std::string text(length, '\0');
            stream.readRawData(&text[0], static_cast<int>(length));
            text.resize(length - 1);
            texts.push_back(std::move(text));
        }
        qint8 valid = 0;
        stream >> tag >> size >> small >> tag >> size >> small >> tag >> size >> valid >> tag >> size;
        benchmark::DoNotOptimize(texts.data());
    }
    setBytes(state, data.size());
}
BENCHMARK(BM_DetailsFloorRead);

} // namespace
