// Encoding and decoding of the large records a client meets, each beside three references on
// the same bytes (framefloor.h): the floor (bare QDataStream calls, no record logic), the limit
// (a bounds-checked raw-pointer walk over the same frames) and a memcpy of the whole encoding.
// Compare a record's bytes_per_second with the others' in the same run.

#include "framefloor.h"

#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

#include <benchmark/benchmark.h>

#ifdef SIGDB_BENCH_PROTOBUF
#include "overviewmirror.pb.h"

#include <google/protobuf/arena.h>
#endif

#include <cstdlib>
#include <cstring>

namespace {

using namespace sigdb;
using sigdbbench::Block;

ElementOverview overview(int i)
{
    ElementOverview result;
    result.element.setType(1);
    result.element.setTID(100000 + static_cast<unsigned long long>(i));
    result.element.setExchgId(std::string("UNI-") + std::to_string(i));
    result.keyText1 = std::string("unit ") + std::to_string(i);
    result.keyText2 = std::string("K");
    result.modificationState = Modification_Approved;
    result.networkTypeWord = 16;
    result.auxiliaryTid = 7ULL;
    result.location.latitude = 52.5;
    result.location.longitude = 13.4;
    return result;
}

ElementOverviewList overviewList()
{
    ElementOverviewList list;
    for (int i = 0; i < 10000; ++i)
        list.appendResult(overview(i), false);
    return list;
}

ElementDetailsList detailsList()
{
    ElementDetailsList list;
    for (int d = 0; d < 1000; ++d) {
        ElementDetails details;
        details.setType(1);
        details.setTID(static_cast<unsigned long long>(d + 1));
        std::vector<base::DbDataType<std::string>> texts(200);
        for (int i = 0; i < 200; ++i) {
            if (i % 10 != 0)
                texts[static_cast<size_t>(i)] = std::string("column value ") + std::to_string(i);
        }
        details.setAllData(texts);
        list.appendDetails(details);
    }
    return list;
}

QueryRequestList queryList()
{
    QueryRequestList list;
    for (int i = 0; i < 100; ++i) {
        QueryRequest query;
        query.element().setType(1);
        query.name() = std::string("AL*");
        query.frequencyMin() = 30.0e6;
        query.frequencyMax() = 88.0e6;
        query.elementType() = 1;
        query.isEncrypted() = true;
        list.appendEntry(query);
    }
    return list;
}

VersionInfo versionInfo(int i)
{
    VersionInfo info;
    info.getProductVersion().setOrigin("product " + std::to_string(i));
    info.getProductVersion().setMajor(4);
    info.getProductVersion().setBuild(i);
    info.getProductVersion().setVersionDate("2026-11-21");
    info.getProductVersion().setBuildDate("2026-11-20");
    info.getInterfaceVersion().setMajor(1);
    info.getRequiredInterfaceVersion().setMajor(1);
    info.setInterfaceMatching(InterfaceMatching_Match);
    return info;
}

VersionInfoVector versionVector()
{
    std::vector<VersionInfo> entries;
    for (int i = 0; i < 10000; ++i)
        entries.push_back(versionInfo(i));
    VersionInfoVector vector;
    vector.setVersionInfoVector(entries);
    return vector;
}

Block int32Block(qint32 index, qint64 value)
{
    Block block;
    block.index = index;
    block.kind = Block::Int32;
    block.number = value;
    return block;
}

Block stringBlock(qint32 index, const std::string &text)
{
    Block block;
    block.index = index;
    block.kind = Block::String;
    block.text = text;
    return block;
}

Block nestedBlock(qint32 index, std::vector<Block> nested)
{
    Block block;
    block.index = index;
    block.kind = Block::Nested;
    block.nested = std::move(nested);
    return block;
}

// The blocks of a VersionInfoVector, as the floor writes them.
std::vector<Block> versionBlocks(const VersionInfoVector &vector)
{
    Block entries;
    entries.index = 1;
    entries.kind = Block::Vector;
    for (const VersionInfo &info : vector.getVersionInfoVector()) {
        const ProductVersion &product = info.getProductVersion();
        const auto interfaceBlocks = [](const InterfaceVersion &version) {
            return std::vector<Block>{int32Block(0, 0), int32Block(1, version.getMajor()),
                                      int32Block(2, version.getMinor())};
        };
        entries.items.push_back({
            int32Block(0, 0),
            nestedBlock(1, {int32Block(0, 0), stringBlock(1, product.getOrigin()), int32Block(2, product.getMajor()),
                            int32Block(3, product.getMinor()), int32Block(4, product.getBugfix()),
                            int32Block(5, product.getBuild()), stringBlock(6, product.getVersionDate()),
                            stringBlock(7, product.getBuildDate())}),
            nestedBlock(2, interfaceBlocks(info.getInterfaceVersion())),
            nestedBlock(3, interfaceBlocks(info.getRequiredInterfaceVersion())),
            int32Block(4, info.getInterfaceMatching()),
            int32Block(5, info.getInterfaceIdentifier()),
        });
    }
    return {int32Block(0, 0), entries};
}

template <typename Record>
QByteArray encoded(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

template <typename Record>
void encodeRecord(benchmark::State &state, const Record &record)
{
    qint64 size = 0;
    for (auto _ : state) {
        QByteArray out;
        record.serialize(out);
        size = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * size);
}

template <typename Record>
void decodeColumnRecord(benchmark::State &state, const QByteArray &data)
{
    for (auto _ : state) {
        Record record;
        record.setIDs(0);
        ColumnReader reader(data);
        if (!record.readFrom(reader))
            state.SkipWithError("did not decode");
        benchmark::DoNotOptimize(&record);
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

void floorWriteFrames(benchmark::State &state, const QByteArray &data)
{
    const std::vector<sigdbbench::Frame> frames = sigdbbench::columnFrames(data);
    if (sigdbbench::writeFrames(frames) != data)
        state.SkipWithError("the floor does not write the same bytes");
    for (auto _ : state) {
        const QByteArray out = sigdbbench::writeFrames(frames);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

void limitWriteFrames(benchmark::State &state, const QByteArray &data)
{
    const std::vector<sigdbbench::Frame> frames = sigdbbench::columnFrames(data);
    if (sigdbbench::writeFramesRaw(frames) != data)
        state.SkipWithError("the limit does not write the same bytes");
    for (auto _ : state) {
        const QByteArray out = sigdbbench::writeFramesRaw(frames);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

void limitReadFrames(benchmark::State &state, const QByteArray &data)
{
    const std::vector<sigdbbench::Frame> layout = sigdbbench::columnFrames(data);
    for (auto _ : state) {
        std::vector<sigdbbench::Frame> frames;
        sigdbbench::readFramesRaw(data, layout, frames);
        benchmark::DoNotOptimize(frames.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

/// A fresh array of the encoding's size with the encoding copied in: what moving the bytes costs.
void copyBytes(benchmark::State &state, const QByteArray &data)
{
    for (auto _ : state) {
        QByteArray out(data.size(), Qt::Uninitialized);
        std::memcpy(out.data(), data.constData(), static_cast<size_t>(data.size()));
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

void floorReadFrames(benchmark::State &state, const QByteArray &data)
{
    const std::vector<sigdbbench::Frame> layout = sigdbbench::columnFrames(data);
    for (auto _ : state) {
        std::vector<sigdbbench::Frame> frames;
        sigdbbench::readFrames(data, layout, frames);
        benchmark::DoNotOptimize(frames.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}

// The measurements of one column-stream record: the codec, the floor, the limit and memcpy.
#define SIGDB_COLUMN_CODEC_BENCHMARKS(Name, Record, make)                                       \
    void BM_##Name##_Encode(benchmark::State &state) { encodeRecord(state, make()); }            \
    void BM_##Name##_Decode(benchmark::State &state) { decodeColumnRecord<Record>(state, encoded(make())); } \
    void BM_##Name##_FloorWrite(benchmark::State &state) { floorWriteFrames(state, encoded(make())); } \
    void BM_##Name##_FloorRead(benchmark::State &state) { floorReadFrames(state, encoded(make())); } \
    void BM_##Name##_LimitWrite(benchmark::State &state) { limitWriteFrames(state, encoded(make())); } \
    void BM_##Name##_LimitRead(benchmark::State &state) { limitReadFrames(state, encoded(make())); } \
    void BM_##Name##_Memcpy(benchmark::State &state) { copyBytes(state, encoded(make())); }      \
    BENCHMARK(BM_##Name##_Encode)->Unit(benchmark::kMillisecond);                                \
    BENCHMARK(BM_##Name##_FloorWrite)->Unit(benchmark::kMillisecond);                            \
    BENCHMARK(BM_##Name##_LimitWrite)->Unit(benchmark::kMillisecond);                            \
    BENCHMARK(BM_##Name##_Decode)->Unit(benchmark::kMillisecond);                                \
    BENCHMARK(BM_##Name##_FloorRead)->Unit(benchmark::kMillisecond);                             \
    BENCHMARK(BM_##Name##_LimitRead)->Unit(benchmark::kMillisecond);                             \
    BENCHMARK(BM_##Name##_Memcpy)->Unit(benchmark::kMillisecond);

SIGDB_COLUMN_CODEC_BENCHMARKS(OverviewList10k, ElementOverviewList, overviewList)
SIGDB_COLUMN_CODEC_BENCHMARKS(DetailsList1kx200, ElementDetailsList, detailsList)
SIGDB_COLUMN_CODEC_BENCHMARKS(QueryList100, QueryRequestList, queryList)

void BM_VersionInfoVector10k_Encode(benchmark::State &state)
{
    encodeRecord(state, versionVector());
}
BENCHMARK(BM_VersionInfoVector10k_Encode)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_FloorWrite(benchmark::State &state)
{
    const VersionInfoVector vector = versionVector();
    const std::vector<Block> blocks = versionBlocks(vector);
    const QByteArray data = encoded(vector);
    if (sigdbbench::writeBlocks(blocks) != data)
        state.SkipWithError("the floor does not write the same bytes");
    for (auto _ : state) {
        const QByteArray out = sigdbbench::writeBlocks(blocks);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}
BENCHMARK(BM_VersionInfoVector10k_FloorWrite)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_Decode(benchmark::State &state)
{
    const QByteArray data = encoded(versionVector());
    for (auto _ : state) {
        VersionInfoVector vector = VersionInfoVector::deserialize(data);
        benchmark::DoNotOptimize(&vector);
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}
BENCHMARK(BM_VersionInfoVector10k_Decode)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_FloorRead(benchmark::State &state)
{
    const VersionInfoVector vector = versionVector();
    const std::vector<Block> layout = versionBlocks(vector);
    const QByteArray data = encoded(vector);
    for (auto _ : state) {
        std::vector<Block> blocks;
        sigdbbench::readBlocks(data, layout, blocks);
        benchmark::DoNotOptimize(blocks.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}
BENCHMARK(BM_VersionInfoVector10k_FloorRead)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_LimitWrite(benchmark::State &state)
{
    const VersionInfoVector vector = versionVector();
    const std::vector<Block> blocks = versionBlocks(vector);
    const QByteArray data = encoded(vector);
    if (sigdbbench::writeBlocksRaw(blocks) != data)
        state.SkipWithError("the limit does not write the same bytes");
    for (auto _ : state) {
        const QByteArray out = sigdbbench::writeBlocksRaw(blocks);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}
BENCHMARK(BM_VersionInfoVector10k_LimitWrite)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_LimitRead(benchmark::State &state)
{
    const VersionInfoVector vector = versionVector();
    const std::vector<Block> layout = versionBlocks(vector);
    const QByteArray data = encoded(vector);
    for (auto _ : state) {
        std::vector<Block> blocks;
        sigdbbench::readBlocksRaw(data, layout, blocks);
        benchmark::DoNotOptimize(blocks.data());
    }
    state.SetBytesProcessed(state.iterations() * data.size());
}
BENCHMARK(BM_VersionInfoVector10k_LimitRead)->Unit(benchmark::kMillisecond);

void BM_VersionInfoVector10k_Memcpy(benchmark::State &state)
{
    copyBytes(state, encoded(versionVector()));
}
BENCHMARK(BM_VersionInfoVector10k_Memcpy)->Unit(benchmark::kMillisecond);

#ifdef SIGDB_BENCH_PROTOBUF
// ---------------------------------------------------------------------------------------------
// The same 10k overviews as a protobuf message: serialize, and parse onto the heap and into an
// arena. Compare with OverviewList10k_Encode and _Decode of the same run.

template <typename Set>
void mirrorText(const base::DbDataType<std::string> &value, Set set)
{
    if (!value.isNull())
        set(value.getData());
}

template <typename Column, typename Set>
void mirrorNumber(const Column &value, Set set)
{
    if (!value.isNull())
        set(value.getData());
}

void mirrorElement(const SigdbElement &element, sigdbbench::Element &out)
{
    out.set_type(element.type());
    out.set_sub_type(element.subType());
    mirrorNumber(element.tid(), [&](unsigned long long tid) { out.set_tid(tid); });
    out.set_approval_type(element.approvalType());
    out.set_apv_state(element.apvState());
    out.set_change_type(element.changeType());
    out.set_layer(element.layer());
    mirrorText(element.exchgId(), [&](const std::string &text) { out.set_exchg_id(text); });
    mirrorText(element.modificationUser(), [&](const std::string &text) { out.set_modification_user(text); });
}

void mirrorLocation(const LocationEntry &location, sigdbbench::Location &out)
{
    mirrorNumber(location.latitude, [&](double value) { out.set_latitude(value); });
    mirrorNumber(location.longitude, [&](double value) { out.set_longitude(value); });
    mirrorText(location.validFrom, [&](const std::string &text) { out.set_valid_from(text); });
    mirrorNumber(location.indication, [&](int value) { out.set_indication(value); });
    mirrorNumber(location.modification, [&](int value) { out.set_modification(value); });
}

void mirrorOverview(const ElementOverview &overview, sigdbbench::Overview &out)
{
    mirrorElement(overview.element, *out.mutable_element());
    mirrorText(overview.keyText1, [&](const std::string &text) { out.set_key_text1(text); });
    mirrorText(overview.keyText2, [&](const std::string &text) { out.set_key_text2(text); });
    mirrorText(overview.keyText3, [&](const std::string &text) { out.set_key_text3(text); });
    mirrorNumber(overview.locationIndication, [&](int value) { out.set_location_indication(value); });
    mirrorNumber(overview.modificationState, [&](int value) { out.set_modification_state(value); });
    mirrorNumber(overview.collocationModState, [&](int value) { out.set_collocation_mod_state(value); });
    mirrorNumber(overview.orderNumber, [&](int value) { out.set_order_number(value); });
    mirrorNumber(overview.linkModificationState, [&](int value) { out.set_link_modification_state(value); });
    mirrorNumber(overview.networkTypeWord, [&](int value) { out.set_network_type_word(value); });
    mirrorNumber(overview.auxiliaryTid, [&](unsigned long long value) { out.set_auxiliary_tid(value); });
    for (const SigdbElement &link : overview.uniqueLinks.container())
        mirrorElement(link, *out.add_unique_links());
    mirrorNumber(overview.collocationGroupLeader, [&](bool value) { out.set_collocation_group_leader(value); });
    mirrorElement(overview.relatedElement, *out.mutable_related_element());
    mirrorText(overview.exchgIdText, [&](const std::string &text) { out.set_exchg_id_text(text); });
    mirrorText(overview.infoText2, [&](const std::string &text) { out.set_info_text2(text); });
    mirrorText(overview.infoText3, [&](const std::string &text) { out.set_info_text3(text); });
    mirrorText(overview.infoText4, [&](const std::string &text) { out.set_info_text4(text); });
    mirrorLocation(overview.location, *out.mutable_location());
    for (const LocationEntry &location : overview.locationList.container())
        mirrorLocation(location, *out.add_location_list());
}

sigdbbench::OverviewList mirrorList(const ElementOverviewList &list)
{
    sigdbbench::OverviewList out;
    mirrorElement(list.parentDefinition(), *out.mutable_parent());
    mirrorLocation(list.collocatedLocation(), *out.mutable_collocated_location());
    for (const ElementOverview &overview : list.results())
        mirrorOverview(overview, *out.add_results());
    return out;
}

void BM_OverviewList10k_ProtobufSerialize(benchmark::State &state)
{
    const sigdbbench::OverviewList mirror = mirrorList(overviewList());
    qint64 size = 0;
    for (auto _ : state) {
        std::string out;
        mirror.SerializeToString(&out);
        size = static_cast<qint64>(out.size());
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * size);
}
BENCHMARK(BM_OverviewList10k_ProtobufSerialize)->Unit(benchmark::kMillisecond);

void BM_OverviewList10k_ProtobufParse(benchmark::State &state)
{
    const std::string data = mirrorList(overviewList()).SerializeAsString();
    for (auto _ : state) {
        sigdbbench::OverviewList list;
        if (!list.ParseFromString(data))
            state.SkipWithError("did not parse");
        benchmark::DoNotOptimize(&list);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<qint64>(data.size()));
}
BENCHMARK(BM_OverviewList10k_ProtobufParse)->Unit(benchmark::kMillisecond);

void BM_OverviewList10k_ProtobufParseArena(benchmark::State &state)
{
    const std::string data = mirrorList(overviewList()).SerializeAsString();
    for (auto _ : state) {
        google::protobuf::Arena arena;
        auto *list = google::protobuf::Arena::CreateMessage<sigdbbench::OverviewList>(&arena);
        if (!list->ParseFromString(data))
            state.SkipWithError("did not parse");
        benchmark::DoNotOptimize(list);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<qint64>(data.size()));
}
BENCHMARK(BM_OverviewList10k_ProtobufParseArena)->Unit(benchmark::kMillisecond);
#endif

} // namespace
