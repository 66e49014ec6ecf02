#include "auxiliary/referencedocument.h"

#include "testsupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using sigdb::ColumnReader;
using sigdb::ColumnWriter;
using sigdb::ReferenceDocument;
using sigdb::ReferenceDocumentList;
using sigdbtest::bytes;
using sigdbtest::hex;

namespace {

ReferenceDocument document(const char *t1, const char *t2, const char *t3, const char *t4)
{
    ReferenceDocument doc;
    for (auto pair : {std::make_pair(&doc.documentText1, t1), std::make_pair(&doc.documentText2, t2),
                      std::make_pair(&doc.documentText3, t3), std::make_pair(&doc.documentText4, t4)}) {
        if (pair.second)
            *pair.first = std::string(pair.second);
    }
    return doc;
}

ReferenceDocumentList twoDocuments()
{
    ReferenceDocumentList list;
    list.appendEntry(document("R1", nullptr, "", "Z"));
    list.appendEntry(ReferenceDocument());
    return list;
}

// Two documents numbered from 30: every document has the ids 31 to 34.
const char *const kTwoDocumentsFrom30 = "00 01 00 08 00 00 00 00 00 00 00 02"  // count 2
                                        // document 1
                                        "00 1F 00 03 00 00 00 03 52 31 00"     // "R1"
                                        "00 20 00 00"                          // NULL
                                        "00 21 00 01 00 00 00 01 00"           // ""
                                        "00 22 00 02 00 00 00 02 5A 00"        // "Z"
                                        // document 2, all NULL
                                        "00 1F 00 00 00 20 00 00 00 21 00 00 00 22 00 00";

QByteArray written(const ReferenceDocumentList &list)
{
    QByteArray out;
    ColumnWriter writer(out);
    list.writeTo(writer);
    writer.finish();
    return out;
}

// ---------------------------------------------------------------------------------------------
// ReferenceDocument

TEST(ReferenceDocument, DefaultsAreNullAndEqual)
{
    const ReferenceDocument doc;
    EXPECT_TRUE(doc.documentText1.isNull());
    EXPECT_TRUE(doc.documentText2.isNull());
    EXPECT_TRUE(doc.documentText3.isNull());
    EXPECT_TRUE(doc.documentText4.isNull());
    EXPECT_TRUE(doc == ReferenceDocument());
}

TEST(ReferenceDocument, EveryTextIsCompared)
{
    const ReferenceDocument reference;
    const ReferenceDocument others[] = {document("a", nullptr, nullptr, nullptr),
                                        document(nullptr, "a", nullptr, nullptr),
                                        document(nullptr, nullptr, "a", nullptr),
                                        document(nullptr, nullptr, nullptr, "a")};
    for (const ReferenceDocument &other : others) {
        EXPECT_FALSE(reference == other);
        EXPECT_TRUE(reference != other);
    }
    EXPECT_FALSE(document("a", "b", "c", "d") == document("a", "b", "c", "e"));
    EXPECT_TRUE(document("a", "b", "c", "d") == document("a", "b", "c", "d"));
}

TEST(ReferenceDocument, SetIds)
{
    ReferenceDocument doc;
    EXPECT_EQ(doc.setIDs(7), 11);
    EXPECT_EQ(doc.documentText1.getID(), 8);
    EXPECT_EQ(doc.documentText2.getID(), 9);
    EXPECT_EQ(doc.documentText3.getID(), 10);
    EXPECT_EQ(doc.documentText4.getID(), 11);
}

TEST(ReferenceDocument, ResetKeepsIds)
{
    ReferenceDocument doc = document("a", "b", "c", "d");
    doc.setIDs(0);
    doc.reset();
    EXPECT_TRUE(doc == ReferenceDocument());
    EXPECT_EQ(doc.documentText4.getID(), 4);
}

TEST(ReferenceDocument, SerializeLeavesTheArrayUnchanged)
{
    const ReferenceDocument doc = document("a", "b", "c", "d");
    QByteArray out("keep");
    doc.serialize(out);
    EXPECT_EQ(out, QByteArray("keep"));
}

TEST(ReferenceDocument, GetCopy)
{
    const ReferenceDocument doc = document("a", nullptr, "c", nullptr);
    std::unique_ptr<base::DbBaseType> heap(ReferenceDocument().getCopy(&doc));
    auto *typed = dynamic_cast<ReferenceDocument *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == doc);
}

// ---------------------------------------------------------------------------------------------
// ReferenceDocumentList

TEST(ReferenceDocumentList, SetIdsReturnsItsArgument)
{
    ReferenceDocumentList list = twoDocuments();
    EXPECT_EQ(list.setIDs(20), 20);
    EXPECT_EQ(list.startID(), 20);
    list.setIteratorToStart();
    while (ReferenceDocument *doc = list.getNextEntry()) {
        EXPECT_EQ(doc->documentText1.getID(), 21);
        EXPECT_EQ(doc->documentText4.getID(), 24);
    }
    EXPECT_EQ(ReferenceDocumentList().setIDs(20), 20);
}

TEST(ReferenceDocumentList, SerializeLeavesTheArrayUnchanged)
{
    const ReferenceDocumentList list = twoDocuments();
    QByteArray out;
    list.serialize(out);
    EXPECT_TRUE(out.isEmpty());
}

TEST(ReferenceDocumentList, ByteLayout)
{
    ReferenceDocumentList list = twoDocuments();
    list.setIDs(30);
    EXPECT_EQ(hex(written(list)), hex(bytes(kTwoDocumentsFrom30)));
}

TEST(ReferenceDocumentList, EmptyListIsTheCountAlone)
{
    const ReferenceDocumentList list;
    EXPECT_EQ(hex(written(list)), hex(bytes("00 01 00 08 00 00 00 00 00 00 00 00")));
}

TEST(ReferenceDocumentList, RoundTripInsideALargerStream)
{
    ReferenceDocumentList list = twoDocuments();
    list.setIDs(30);
    QByteArray stream;
    {
        ColumnWriter writer(stream);
        list.writeTo(writer);
        writer.writeShortField(99, 5); // what the enclosing record writes next
    }

    ReferenceDocumentList decoded;
    decoded.appendEntry(document("stale", nullptr, nullptr, nullptr));
    decoded.setIDs(30);
    ColumnReader reader(stream);
    ASSERT_TRUE(decoded.readFrom(reader));
    EXPECT_TRUE(decoded == list);
    EXPECT_EQ(decoded.count(), 2);
    qint16 next = 0;
    EXPECT_TRUE(reader.readShortField(99, next));
    EXPECT_EQ(next, 5);
    EXPECT_TRUE(reader.atEnd());
}

TEST(ReferenceDocumentList, ReadingNeedsTheSameNumbering)
{
    ReferenceDocumentList decoded;
    decoded.setIDs(31);
    ColumnReader reader(bytes(kTwoDocumentsFrom30));
    EXPECT_FALSE(decoded.readFrom(reader));
    EXPECT_EQ(decoded.count(), 0);
}

TEST(ReferenceDocumentList, MalformedInput)
{
    struct Row
    {
        const char *name;
        const char *bytes;
        bool ok;
        int kept;
    };
    // Numbered from 0: documents carry the ids 1 to 4.
    const Row rows[] = {
        {"control", "00 01 00 08 00 00 00 00 00 00 00 01 00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00", true, 1},
        {"count of size 2", "00 01 00 02 00 01 00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00", false, 0},
        {"count under tag 2", "00 02 00 08 00 00 00 00 00 00 00 01 00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00", false, 0},
        {"zero count", "00 01 00 08 00 00 00 00 00 00 00 00", true, 0},
        {"negative count", "00 01 00 08 80 00 00 00 00 00 00 00", true, 0},
        {"text under wrong id", "00 01 00 08 00 00 00 00 00 00 00 01 00 01 00 00 00 02 00 00 00 05 00 00 00 04 00 00", false, 0},
        {"text longer than the bytes", "00 01 00 08 00 00 00 00 00 00 00 01 00 01 00 10 00 00 00 10 41", false, 0},
        {"huge count", "00 01 00 08 40 00 00 00 00 00 00 00 00 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00", false, 1},
        {"empty", "", false, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        ReferenceDocumentList decoded;
        decoded.setIDs(0);
        ColumnReader reader(bytes(row.bytes));
        EXPECT_EQ(decoded.readFrom(reader), row.ok);
        EXPECT_EQ(decoded.count(), row.kept);
    }
}

TEST(ReferenceDocumentList, EveryTruncationFails)
{
    const QByteArray full = bytes(kTwoDocumentsFrom30);
    for (int length = 0; length < full.size(); ++length) {
        SCOPED_TRACE(length);
        ReferenceDocumentList decoded;
        decoded.setIDs(30);
        ColumnReader reader(full.left(length));
        EXPECT_FALSE(decoded.readFrom(reader));
    }
}

TEST(ReferenceDocumentList, ResetReturnsTheDefaultConstructedState)
{
    ReferenceDocumentList list = twoDocuments();
    list.setIDs(20);
    list.setStoreType(base::StoreType_Persistent);
    ASSERT_NE(list.getNextEntry(), nullptr);

    list.reset();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.startID(), 0);
    EXPECT_EQ(list.getStoreType(), base::StoreType_NotSet);
    EXPECT_FALSE(list.hasStoreTypeSet());
    list.appendEntry(document("after", nullptr, nullptr, nullptr));
    const ReferenceDocument *first = list.getNextEntry();
    ASSERT_NE(first, nullptr) << "the cursor is back at the start";
    EXPECT_EQ(first->documentText1.getData(), "after");
}

TEST(ReferenceDocumentList, CompareListAndOperations)
{
    const ReferenceDocumentList reference = twoDocuments();
    EXPECT_TRUE(reference.compareList(twoDocuments()));
    EXPECT_TRUE(reference == twoDocuments());

    ReferenceDocumentList reversed;
    reversed.appendEntry(ReferenceDocument());
    reversed.prependEntry(document("R1", nullptr, "", "Z"));
    EXPECT_TRUE(reference == reversed) << "prepend puts the document first";

    ReferenceDocumentList longer = twoDocuments();
    longer.appendEntry(ReferenceDocument());
    ReferenceDocumentList changed;
    changed.appendEntry(document("R2", nullptr, "", "Z"));
    changed.appendEntry(ReferenceDocument());
    for (const ReferenceDocumentList *other : {&longer, &changed}) {
        EXPECT_FALSE(reference.compareList(*other));
        EXPECT_TRUE(reference != *other);
    }

    ReferenceDocumentList copy(reference);
    EXPECT_TRUE(copy == reference);
    copy.reset();
    EXPECT_EQ(copy.count(), 0);
    std::unique_ptr<base::DbBaseType> heap(ReferenceDocumentList().getCopy(&reference));
    auto *typed = dynamic_cast<ReferenceDocumentList *>(heap.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(*typed == reference);
}

} // namespace
