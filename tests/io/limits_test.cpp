// Hostile counts and lengths must never turn into allocations: every decoder below reads a
// count or length far beyond its input, and the test asserts that the bytes allocated while
// it decodes stay small. Allocations through operator new (std::string, std::vector, records)
// are counted by replacing the global operator new of this test program, which the libraries
// use as well; Qt's own buffers (malloc) are watched through the peak resident set size where
// the kernel lets a process reset it.

#include "auxiliary/plotentry.h"
#include "core/elementlist.h"
#include "core/sigdbelementdetails.h"
#include "element/elementdetailslist.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "middleware/inforecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"
#include "network/callsigntable.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<size_t> g_live{0};
std::atomic<size_t> g_peak{0};

void *countedAllocation(size_t size)
{
    // A header in front of each block remembers its size for the matching delete.
    void *block = std::malloc(size + alignof(std::max_align_t));
    if (!block)
        throw std::bad_alloc();
    *static_cast<size_t *>(block) = size;
    const size_t live = g_live += size;
    size_t peak = g_peak.load();
    while (live > peak && !g_peak.compare_exchange_weak(peak, live)) {
    }
    return static_cast<char *>(block) + alignof(std::max_align_t);
}

void countedRelease(void *pointer)
{
    if (!pointer)
        return;
    void *block = static_cast<char *>(pointer) - alignof(std::max_align_t);
    g_live -= *static_cast<size_t *>(block);
    std::free(block);
}

// The most that a decode of a few dozen bytes may allocate at once.
constexpr size_t kSmall = 256 * 1024;

long peakResidentKiB()
{
    FILE *status = std::fopen("/proc/self/status", "r");
    if (!status)
        return -1;
    char line[256];
    long kib = -1;
    while (std::fgets(line, sizeof line, status)) {
        if (std::sscanf(line, "VmHWM: %ld kB", &kib) == 1)
            break;
    }
    std::fclose(status);
    return kib;
}

// The peak resident set size in KiB, after resetting it; -1 where the kernel does not allow it.
long resetPeakResidentKiB()
{
    FILE *clear = std::fopen("/proc/self/clear_refs", "w");
    if (!clear)
        return -1;
    const bool reset = std::fputs("5", clear) >= 0;
    std::fclose(clear);
    return reset ? peakResidentKiB() : -1;
}

// The most that the peak resident set may grow while a few dozen bytes are decoded.
constexpr long kSmallResidentKiB = 16 * 1024;

template <typename Decode>
size_t peakWhile(Decode decode)
{
    g_peak = g_live.load();
    const size_t before = g_live.load();
    const long residentBefore = resetPeakResidentKiB();
    decode();
    if (residentBefore >= 0) {
        EXPECT_LT(peakResidentKiB() - residentBefore, kSmallResidentKiB) << "resident set grew";
    }
    return g_peak.load() - before;
}

template <typename Record>
bool decodeColumns(const QByteArray &data)
{
    Record record;
    record.setIDs(0);
    sigdb::ColumnReader reader(data);
    return record.readFrom(reader);
}

const char *const kDefaultElement =
    "0001 0002 0000  0002 0002 0000  0001 0000  0004 0002 0000  0005 0002 0000"
    "0006 0002 0000  0007 0002 0000  0002 0000  0003 0000";

} // namespace

void *operator new(size_t size)
{
    return countedAllocation(size);
}
void *operator new[](size_t size)
{
    return countedAllocation(size);
}
void operator delete(void *pointer) noexcept
{
    countedRelease(pointer);
}
void operator delete[](void *pointer) noexcept
{
    countedRelease(pointer);
}
void operator delete(void *pointer, size_t) noexcept
{
    countedRelease(pointer);
}
void operator delete[](void *pointer, size_t) noexcept
{
    countedRelease(pointer);
}

TEST(Limits, CountingWorks)
{
    const size_t peak = peakWhile([] {
        std::vector<char> big(4 * kSmall);
        big[0] = 1;
    });
    EXPECT_GE(peak, 4 * kSmall) << "the control: a real allocation is seen";
}

TEST(Limits, ElementListCountOf2To63)
{
    const QByteArray data = sigdbtest::bytes("0001 0008 7fffffffffffffff") + sigdbtest::bytes(kDefaultElement);
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::ElementList>(data); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, ElementListCountOf2To31)
{
    const QByteArray data = sigdbtest::bytes("0001 0008 0000000080000000");
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::ElementList>(data); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, PlotEntryCountOf2To63)
{
    const QByteArray data = sigdbtest::bytes("0001 0000 0002 0000 0003 0000  0004 0008 7fffffffffffffff");
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::PlotEntryList>(data); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, OverviewListCountsOf2To63)
{
    QByteArray list;
    sigdb::ElementOverviewList().serialize(list);
    // The result count is the third bare 64-bit frame after the parent (tag 3).
    const int at = list.indexOf(sigdbtest::bytes("0003 0008 0000000000000000"));
    ASSERT_GT(at, 0);
    list.replace(at, 12, sigdbtest::bytes("0003 0008 7fffffffffffffff"));
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::ElementOverviewList>(list); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, DetailListCountOf2To63)
{
    const QByteArray data = sigdbtest::bytes("0001 0001 00  0001 0008 7fffffffffffffff");
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::ElementDetailsList>(data); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, TextLengthOf2To31)
{
    const QByteArray data = sigdbtest::bytes("0001 0001 80000000 41 42 43");
    base::DbDataType<std::string> text;
    text.setID(1);
    bool ok = true;
    EXPECT_LT(peakWhile([&] {
                  sigdb::ColumnReader reader(data);
                  ok = reader.read(text);
              }),
              kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, IncludedDetailsAndColumnTextCounts)
{
    const QByteArray data = sigdbtest::bytes(kDefaultElement) + sigdbtest::bytes("111e 0002 7fff");
    bool ok = true;
    EXPECT_LT(peakWhile([&] { ok = decodeColumns<sigdb::SigdbElementDetails>(data); }), kSmall);
    EXPECT_FALSE(ok);
}

TEST(Limits, MiddlewareVectorCountOf2To31)
{
    // MInfoAnswer: StoreType, RequestType, then InfoStrings announcing 2^31 - 1 strings.
    const QByteArray data = sigdbtest::bytes("00000000 00000004 00000000  00000001 00000004 00000007"
                                             "00000002 00000008 7fffffff 00000001");
    QString error;
    EXPECT_LT(peakWhile([&] {
                  try {
                      sigdb::MInfoAnswer::deserialize(data);
                  } catch (const QString &thrown) {
                      error = thrown;
                  }
              }),
              kSmall);
    EXPECT_EQ(error, QStringLiteral("Received corrupt structure MInfoAnswer: Invalid count 2147483647 in property 'InfoStrings'"));
}

TEST(Limits, MiddlewareStringLengthOf2To31)
{
    // NameValuePair whose Name announces 2^31 bytes.
    const QByteArray data = sigdbtest::bytes("00000000 00000004 00000000  00000001 00000008 80000000 41424344");
    EXPECT_LT(peakWhile([&] {
                  try {
                      sigdb::NameValuePair::deserialize(data);
                  } catch (const QString &) {
                  }
              }),
              kSmall);
}

TEST(Limits, CallsignTextOfManySeparators)
{
    // A text that is nothing but join strings still allocates in proportion to its length:
    // every part is one connection, however little it holds (a few KiB for two characters).
    QByteArray text;
    for (int i = 0; i < 2000; ++i)
        text += "#$";
    sigdb::CallsignTable table;
    const size_t peak = peakWhile([&] { table.fromUtf8Text(text); });
    EXPECT_EQ(table.connections.count(), 2001);
    EXPECT_LT(peak, static_cast<size_t>(text.size()) * 2000) << "bounded by the text's size";
}

TEST(Limits, NestingBeyondTheLimitFails)
{
    sigdb::ElementOverviewList list;
    for (int level = 0; level < sigdb::ColumnReader::MaxNesting + 5; ++level) {
        sigdb::ElementOverviewList outer;
        outer.appendResultList(list);
        list = outer;
    }
    QByteArray data;
    list.serialize(data);
    EXPECT_FALSE(decodeColumns<sigdb::ElementOverviewList>(data));
}
