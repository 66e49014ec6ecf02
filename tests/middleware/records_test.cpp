// The common shape of every middleware record class, run over all of them: the property
// layout, the bytes of a default record, round trips, the missing-property messages, and the
// compatibility and robustness of decoding, all driven by the samples in recordsamples.h.

#include "recordtesting.h"
#include "recordsamples.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace {

using mwtest::Blocks;
using mwtest::Sample;
using mwtest::decodeError;
using mwtest::encode;
using sigdbtest::bytes;
using sigdbtest::hex;

template <typename Record>
int propertyCount()
{
    return static_cast<int>(std::string(Sample<Record>::kinds).size());
}

/// Whether \a error is empty (the stream decoded) or begins with \a prefix.
bool decodedOrFailedWith(const std::string &error, const std::string &prefix)
{
    return error.empty() || error.compare(0, prefix.size(), prefix) == 0;
}

template <typename Record>
QString missingMessage(int index)
{
    const QStringList names = QString::fromLatin1(Sample<Record>::names).split(QLatin1Char(' '));
    return QStringLiteral("Received incomplete structure %1: Missing property '%2'")
        .arg(QLatin1String(Record::ClassName), names.value(index));
}

template <typename Record>
class RecordTest : public ::testing::Test
{
protected:
    const Record populated = Sample<Record>::populated();
    const QByteArray populatedBytes = encode(populated);
    const Blocks populatedBlocks = mwtest::splitBlocks(populatedBytes);
    const Blocks defaultBlocks = mwtest::splitBlocks(Sample<Record>::defaultBytes());
    const int count = propertyCount<Record>();
};

using AllRecords = ::testing::Types<
    sigdb::ProductVersion, sigdb::InterfaceVersion, sigdb::VersionInfo, sigdb::ProductVersionVector,
    sigdb::InterfaceVersionVector, sigdb::VersionInfoVector, sigdb::DbMaintenanceRequest,
    sigdb::DbMaintenanceAnswer, sigdb::DbMaintenanceRequestVector, sigdb::DbMaintenanceAnswerVector,
    sigdb::Message, sigdb::MInfoAnswer, sigdb::MInfoClientLogin, sigdb::MInfoMessage,
    sigdb::MInfoWarningLevel, sigdb::CallbackMessage, sigdb::MessageVector, sigdb::MInfoAnswerVector,
    sigdb::MInfoClientLoginVector, sigdb::MInfoMessageVector, sigdb::MInfoWarningLevelVector,
    sigdb::CallbackMessageVector, sigdb::LockedElementData, sigdb::LockedElementDataVector,
    sigdb::NameValuePair, sigdb::NameValueDataForElement, sigdb::NameValuePairVector,
    sigdb::NameValueDataForElementVector>;

class RecordName
{
public:
    template <typename Record>
    static std::string GetName(int)
    {
        return Record::ClassName;
    }
};

TYPED_TEST_SUITE(RecordTest, AllRecords, RecordName);

TYPED_TEST(RecordTest, PropertyTableMatchesTheDocumentedLayout)
{
    const QString names = TypeParam::propertyNames().join(QLatin1Char(' '));
    EXPECT_EQ(names.toStdString(), Sample<TypeParam>::names);
    std::string kinds;
    for (int index = 0; index < this->count; ++index)
        kinds += TypeParam::isRequiredProperty(index) ? 'R' : 'O';
    EXPECT_EQ(kinds, Sample<TypeParam>::kinds);
    EXPECT_FALSE(TypeParam::isRequiredProperty(this->count));
    EXPECT_EQ(TypeParam::incompleteStructureMessage().toStdString(),
              std::string("Received incomplete structure ") + TypeParam::ClassName
                  + ": Missing property '%1'");
}

TYPED_TEST(RecordTest, DefaultRecordHasTheHandWorkedBytes)
{
    EXPECT_EQ(hex(encode(TypeParam())), hex(Sample<TypeParam>::defaultBytes()));
}

TYPED_TEST(RecordTest, DefaultBytesDecodeToADefaultRecord)
{
    const TypeParam decoded = TypeParam::deserialize(Sample<TypeParam>::defaultBytes());
    EXPECT_TRUE(decoded == TypeParam());
    EXPECT_EQ(hex(encode(decoded)), hex(Sample<TypeParam>::defaultBytes()));
}

TYPED_TEST(RecordTest, PopulatedSampleSetsEveryProperty)
{
    ASSERT_EQ(static_cast<int>(this->populatedBlocks.size()), this->count);
    for (int index = 0; index < this->count; ++index) {
        EXPECT_EQ(this->populatedBlocks[index].index, index);
        EXPECT_NE(hex(this->populatedBlocks[index].bytes),
                  hex(mwtest::blockOf(this->defaultBlocks, index)))
            << "property " << index;
    }
    EXPECT_FALSE(this->populated == TypeParam());
    EXPECT_TRUE(this->populated != TypeParam());
}

TYPED_TEST(RecordTest, PopulatedRecordRoundTrips)
{
    const TypeParam decoded = TypeParam::deserialize(this->populatedBytes);
    EXPECT_TRUE(decoded == this->populated);
    EXPECT_EQ(decoded.layer(), this->populated.layer());
    EXPECT_EQ(hex(encode(decoded)), hex(this->populatedBytes));

    const TypeParam constructed(this->populatedBytes);
    EXPECT_TRUE(constructed == this->populated);

    TypeParam into;
    TypeParam::deserialize(this->populatedBytes, into);
    EXPECT_TRUE(into == this->populated);
}

TYPED_TEST(RecordTest, BlockSizesLeadExactlyToTheEnd)
{
    // splitBlocks fails the test if a size does not land on the next header or the end.
    EXPECT_EQ(hex(mwtest::joinBlocks(this->populatedBlocks)), hex(this->populatedBytes));
}

TYPED_TEST(RecordTest, EmptyArrayKeepsEveryValue)
{
    TypeParam record = this->populated;
    TypeParam::deserialize(QByteArray(), record);
    EXPECT_TRUE(record == this->populated);
    EXPECT_TRUE(TypeParam::deserialize(QByteArray()) == TypeParam());
}

TYPED_TEST(RecordTest, MissingRequiredPropertyIsNamed)
{
    for (int index = 0; index < this->count; ++index) {
        if (Sample<TypeParam>::kinds[index] != 'R')
            continue;
        // Without its block, and with a block of a later (unknown) property behind it, so
        // that the reader sees that the property is missing rather than cut off.
        const QByteArray stream = mwtest::joinBlocks(mwtest::withoutBlock(this->populatedBlocks, index))
            + mwtest::block(this->count, bytes("00000001"));
        TypeParam record;
        EXPECT_EQ(decodeError(stream, record),
                  missingMessage<TypeParam>(index).toStdString());
        // The properties before the missing one were read and stay; the rest kept theirs.
        const QByteArray expected = mwtest::mixBlocks(this->populatedBlocks, this->defaultBlocks,
                                                      this->count,
                                                      [&](int other) { return other < index; });
        EXPECT_EQ(hex(encode(record)), hex(expected)) << "missing property " << index;

        EXPECT_THROW(TypeParam::deserialize(stream), QString);
        EXPECT_THROW(TypeParam{stream}, QString);
    }
}

TYPED_TEST(RecordTest, AbsentOptionalPropertyKeepsItsValue)
{
    for (int index = 0; index < this->count; ++index) {
        if (Sample<TypeParam>::kinds[index] != 'O')
            continue;
        const QByteArray stream =
            mwtest::joinBlocks(mwtest::withoutBlock(this->populatedBlocks, index));
        TypeParam fresh;
        ASSERT_TRUE(decodeError(stream, fresh).empty());
        const QByteArray expected = mwtest::mixBlocks(this->populatedBlocks, this->defaultBlocks,
                                                      this->count,
                                                      [&](int other) { return other != index; });
        EXPECT_EQ(hex(encode(fresh)), hex(expected)) << "absent property " << index;

        TypeParam full = this->populated;
        TypeParam::deserialize(stream, full);
        EXPECT_TRUE(full == this->populated) << "absent property " << index;
    }
}

TYPED_TEST(RecordTest, StreamEndingEarlyKeepsTheLaterValues)
{
    for (int end = 0; end <= this->count; ++end) {
        Blocks prefix(this->populatedBlocks.begin(), this->populatedBlocks.begin() + end);
        TypeParam record;
        ASSERT_TRUE(decodeError(mwtest::joinBlocks(prefix), record).empty());
        const QByteArray expected = mwtest::mixBlocks(this->populatedBlocks, this->defaultBlocks,
                                                      this->count,
                                                      [&](int index) { return index < end; });
        EXPECT_EQ(hex(encode(record)), hex(expected)) << "blocks before " << end;
    }
}

TYPED_TEST(RecordTest, BlocksOfLaterPropertiesAreIgnored)
{
    // A newer writer's properties behind the known ones, of any content.
    const QByteArray stream = this->populatedBytes
        + mwtest::block(this->count, bytes("FFFFFFFF"))
        + mwtest::block(this->count + 1, QByteArray())
        + mwtest::block(1000, bytes("00000000 00 01 02 03 04 05"));
    TypeParam record;
    ASSERT_TRUE(decodeError(stream, record).empty());
    EXPECT_TRUE(record == this->populated);
}

TYPED_TEST(RecordTest, BlocksOfEarlierPropertiesAreSkippedBySize)
{
    // Before every block, a repeated block of the property before it with a value of another
    // size: the reader skips it by its size.
    const QByteArray junk[] = {QByteArray(), bytes("7FFFFFFF"), bytes("00 01 02 03 04 05 06 07 08 09 0A")};
    QByteArray stream;
    for (const mwtest::Block &block : this->populatedBlocks) {
        if (block.index > 0)
            stream += mwtest::block(block.index - 1, junk[block.index % 3]);
        stream += block.bytes;
    }
    TypeParam record;
    ASSERT_TRUE(decodeError(stream, record).empty());
    EXPECT_TRUE(record == this->populated);
}

TYPED_TEST(RecordTest, StreamCutAtAnyByteDecodesOrReportsACorruptCount)
{
    for (int size = 0; size <= this->populatedBytes.size(); ++size) {
        TypeParam record;
        const std::string error = decodeError(this->populatedBytes.left(size), record);
        EXPECT_TRUE(decodedOrFailedWith(error, "Received corrupt structure "))
            << "cut at " << size << ": " << error;
    }
}

TYPED_TEST(RecordTest, HostileNumbersAnywhereNeverCrash)
{
    // Every 4-byte position of the stream (headers, lengths, counts, values) replaced by
    // numbers that a reader must not believe; then single bytes flipped everywhere.
    const char *hostile[] = {"7FFFFFFF", "FFFFFFFF", "80000000", "FFFFFFF8", "00100000"};
    for (int offset = 0; offset + 4 <= this->populatedBytes.size(); ++offset) {
        for (const char *number : hostile) {
            QByteArray stream = this->populatedBytes;
            stream.replace(offset, 4, bytes(number));
            TypeParam record;
            const std::string error = decodeError(stream, record);
            EXPECT_TRUE(decodedOrFailedWith(error, "Received "))
                << error;
        }
    }
    std::uint32_t seed = 12345;
    for (int round = 0; round < 2000; ++round) {
        seed = seed * 1103515245u + 12345u;
        QByteArray stream = this->populatedBytes;
        const int offset = static_cast<int>((seed >> 8) % static_cast<std::uint32_t>(stream.size()));
        stream[offset] = static_cast<char>(seed >> 24);
        TypeParam record;
        const std::string error = decodeError(stream, record);
        EXPECT_TRUE(decodedOrFailedWith(error, "Received "))
            << error;
    }
}

TYPED_TEST(RecordTest, CopiesAreEqualAndIndependent)
{
    TypeParam copy(this->populated);
    EXPECT_TRUE(copy == this->populated);
    TypeParam assigned;
    assigned = this->populated;
    EXPECT_TRUE(assigned == this->populated);

    TypeParam source = this->populated;
    std::unique_ptr<base::DbBaseType> heap(TypeParam().getCopy(&source));
    ASSERT_NE(dynamic_cast<TypeParam *>(heap.get()), nullptr);
    EXPECT_TRUE(*dynamic_cast<TypeParam *>(heap.get()) == this->populated);
    source.reset();
    EXPECT_TRUE(*dynamic_cast<TypeParam *>(heap.get()) == this->populated);
}

TYPED_TEST(RecordTest, GetCopyOfAnotherClassIsNull)
{
    sigdb::NameValuePair pair;
    sigdb::Message message;
    base::DbBaseType *other = std::is_same<TypeParam, sigdb::NameValuePair>::value
        ? static_cast<base::DbBaseType *>(&message)
        : static_cast<base::DbBaseType *>(&pair);
    EXPECT_EQ(TypeParam().getCopy(other), nullptr);
    EXPECT_EQ(TypeParam().getCopy(nullptr), nullptr);
}

TYPED_TEST(RecordTest, ResetRestoresTheDefault)
{
    TypeParam record = this->populated;
    record.reset();
    EXPECT_EQ(record.layer(), 0);
    EXPECT_TRUE(record == TypeParam());
    EXPECT_EQ(hex(encode(record)), hex(Sample<TypeParam>::defaultBytes()));
}

TYPED_TEST(RecordTest, StoreTypeIsPropertyZero)
{
    TypeParam record;
    record.setStoreType(base::StoreType_Transient);
    EXPECT_EQ(hex(mwtest::splitBlocks(encode(record)).front().bytes), "00 00 00 00 00 00 00 04 00 00 00 02");
    TypeParam decoded = TypeParam::deserialize(encode(record));
    EXPECT_TRUE(decoded.isTransient());
}

} // namespace
