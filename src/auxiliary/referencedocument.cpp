#include "auxiliary/referencedocument.h"

namespace sigdb {

// ---------------------------------------------------------------------------------------------
// ReferenceDocument

ReferenceDocument::ReferenceDocument() = default;
ReferenceDocument::ReferenceDocument(const ReferenceDocument &other) = default;
ReferenceDocument::~ReferenceDocument() = default;
ReferenceDocument &ReferenceDocument::operator=(const ReferenceDocument &other) = default;

base::DbBaseType *ReferenceDocument::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ReferenceDocument>(source);
}

void ReferenceDocument::reset()
{
    *this = ReferenceDocument();
}

void ReferenceDocument::serialize(QByteArray &) const {}

int ReferenceDocument::setIDs(int startId)
{
    documentText1.setID(static_cast<unsigned int>(startId + 1));
    documentText2.setID(static_cast<unsigned int>(startId + 2));
    documentText3.setID(static_cast<unsigned int>(startId + 3));
    documentText4.setID(static_cast<unsigned int>(startId + 4));
    return startId + ColumnCount;
}

void ReferenceDocument::writeTo(ColumnWriter &writer) const
{
    writer.write(documentText1);
    writer.write(documentText2);
    writer.write(documentText3);
    writer.write(documentText4);
}

bool ReferenceDocument::readFrom(ColumnReader &reader)
{
    return reader.read(documentText1) && reader.read(documentText2) && reader.read(documentText3)
        && reader.read(documentText4);
}

bool operator==(const ReferenceDocument &a, const ReferenceDocument &b)
{
    return a.documentText1 == b.documentText1 && a.documentText2 == b.documentText2
        && a.documentText3 == b.documentText3 && a.documentText4 == b.documentText4;
}

bool operator!=(const ReferenceDocument &a, const ReferenceDocument &b)
{
    return !(a == b);
}

// ---------------------------------------------------------------------------------------------
// ReferenceDocumentList

ReferenceDocumentList::ReferenceDocumentList() = default;
ReferenceDocumentList::ReferenceDocumentList(const ReferenceDocumentList &other) = default;
ReferenceDocumentList::~ReferenceDocumentList() = default;
ReferenceDocumentList &ReferenceDocumentList::operator=(const ReferenceDocumentList &other) = default;

base::DbBaseType *ReferenceDocumentList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ReferenceDocumentList>(source);
}

void ReferenceDocumentList::reset()
{
    *this = ReferenceDocumentList();
}

void ReferenceDocumentList::serialize(QByteArray &) const {}

int ReferenceDocumentList::setIDs(int startId)
{
    numberEntries(startId);
    return startId;
}

void ReferenceDocumentList::writeTo(ColumnWriter &writer) const
{
    writeEntries(writer, CountTag);
}

bool ReferenceDocumentList::readFrom(ColumnReader &reader)
{
    clear();
    return readEntries(reader, CountTag);
}

bool ReferenceDocumentList::compareList(const ReferenceDocumentList &other) const
{
    return sameEntries(other);
}

bool operator==(const ReferenceDocumentList &a, const ReferenceDocumentList &b)
{
    return a.compareList(b);
}

bool operator!=(const ReferenceDocumentList &a, const ReferenceDocumentList &b)
{
    return !(a == b);
}

} // namespace sigdb
