// The library's codec against the reference codec (tests/reference): for every codec sample,
// the library writes the very bytes that the bare-QDataStream reference wrote, and decoding
// the reference bytes gives the sample back. The library's own bytes are left for the
// reference program, which decodes them in turn (the test codec_reference_check).

#include "codecsamples.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <ostream>

namespace sigdbreference {

// Test names and failure messages show a sample by its name.
void PrintTo(const CodecSample &sample, std::ostream *out)
{
    *out << sample.name;
}

} // namespace sigdbreference

namespace {

using sigdbreference::CodecSample;

QString sampleFile(const char *side, const std::string &name)
{
    return QStringLiteral(SIGDB_CODEC_BYTES "/") + QLatin1String(side) + QLatin1Char('/')
        + QString::fromStdString(name) + QStringLiteral(".bin");
}

class CodecReferenceTest : public ::testing::TestWithParam<CodecSample>
{
};

TEST_P(CodecReferenceTest, WritesTheReferenceBytesAndReadsThemBack)
{
    const CodecSample &sample = GetParam();
    QFile reference(sampleFile("reference", sample.name));
    ASSERT_TRUE(reference.open(QIODevice::ReadOnly)) << "no reference bytes; run codec_reference_write";
    const QByteArray expected = reference.readAll();

    const QByteArray written = sample.encode();
    EXPECT_EQ(written.size(), expected.size());
    EXPECT_TRUE(written == expected) << "the library's bytes differ from the reference bytes";
    EXPECT_EQ(sample.decodeAndCompare(expected), "");

    ASSERT_TRUE(QDir().mkpath(QStringLiteral(SIGDB_CODEC_BYTES "/library")));
    QFile library(sampleFile("library", sample.name));
    ASSERT_TRUE(library.open(QIODevice::WriteOnly));
    EXPECT_EQ(library.write(written), written.size());
}

INSTANTIATE_TEST_SUITE_P(Samples, CodecReferenceTest, ::testing::ValuesIn(sigdbreference::codecSamples()),
                         [](const ::testing::TestParamInfo<CodecSample> &info) { return info.param.name; });

} // namespace
