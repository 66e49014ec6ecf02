#ifndef SIGDB_AUXILIARY_REFERENCEDOCUMENT_H
#define SIGDB_AUXILIARY_REFERENCEDOCUMENT_H

#include "sigdbref_export.h"

#include "core/recordlist.h"
#include "base/dbdatatype.h"

#include <string>

namespace sigdb {

/// One document that an element refers to, described by four texts (what they hold is the
/// server's business). Travels only inside a ReferenceDocumentList, as its four text frames.
class SIGDBREF_EXPORT ReferenceDocument : public base::DbBaseType
{
public:
    /// The number of column ids that setIDs() hands out.
    static constexpr int ColumnCount = 4;

    /// The first text describing the document.
    base::DbDataType<std::string> documentText1;
    /// The second text describing the document.
    base::DbDataType<std::string> documentText2;
    /// The third text describing the document.
    base::DbDataType<std::string> documentText3;
    /// The fourth text describing the document.
    base::DbDataType<std::string> documentText4;

    ReferenceDocument();
    /// A copy of \a other.
    ReferenceDocument(const ReferenceDocument &other);
    /// Takes over the contents of \a other without copying them.
    ReferenceDocument(ReferenceDocument &&other) = default;
    ~ReferenceDocument() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    ReferenceDocument &operator=(const ReferenceDocument &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// All four texts NULL again; ids are kept.
    void reset() override;
    /// Does nothing: a document is written only by its list.
    void serialize(QByteArray &out) const override;

    /// The four texts get \a startId + 1 to + 4; returns \a startId + 4.
    int setIDs(int startId);

    /// Writes the four texts in order.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the four texts; false on a frame whose id does not fit or a broken text.
    bool readFrom(ColumnReader &reader);
};

/// Equal texts in order (NULL equals NULL).
SIGDBREF_EXPORT bool operator==(const ReferenceDocument &a, const ReferenceDocument &b);
SIGDBREF_EXPORT bool operator!=(const ReferenceDocument &a, const ReferenceDocument &b);

/// The reference documents of one element. It travels inside the element details record, which
/// numbers it and places it in its stream:
///
///     tag 1 size 8 count | per document its four texts
///
/// Every document is numbered from the start id, so all carry the same ids, and setIDs()
/// returns its argument unchanged: columns numbered after the list reuse the documents' ids.
class SIGDBREF_EXPORT ReferenceDocumentList : public RecordList<ReferenceDocument>
{
public:
    /// Tag of the count frame.
    static constexpr int CountTag = 1;

    ReferenceDocumentList();
    /// A copy of \a other.
    ReferenceDocumentList(const ReferenceDocumentList &other);
    /// Takes over the contents of \a other without copying them.
    ReferenceDocumentList(ReferenceDocumentList &&other) = default;
    ~ReferenceDocumentList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    ReferenceDocumentList &operator=(const ReferenceDocumentList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Back to the default-constructed state: no documents, the cursor at the start, start id
    /// 0 and no store type.
    void reset() override;
    /// Does nothing: the list is written by the element details that hold it (writeTo()).
    void serialize(QByteArray &out) const override;

    /// The start id becomes \a startId and every document gets \a startId + 1 to + 4; returns
    /// \a startId.
    int setIDs(int startId);

    /// Writes the count frame and every document, with the ids that setIDs() gave.
    void writeTo(ColumnWriter &writer) const;
    /// Clears the list and reads it back, numbering each document from startID(). False on a
    /// count frame with another tag or size, a document that does not fit, or bytes that end
    /// early; documents read before stay.
    bool readFrom(ColumnReader &reader);

    /// Equal counts and pairwise equal documents.
    bool compareList(const ReferenceDocumentList &other) const;
};

/// compareList().
SIGDBREF_EXPORT bool operator==(const ReferenceDocumentList &a, const ReferenceDocumentList &b);
SIGDBREF_EXPORT bool operator!=(const ReferenceDocumentList &a, const ReferenceDocumentList &b);

} // namespace sigdb

#endif
