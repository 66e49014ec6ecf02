#ifndef SIGDB_ELEMENT_ELEMENTDETAILSLIST_H
#define SIGDB_ELEMENT_ELEMENTDETAILSLIST_H

#include "sigdbref_export.h"

#include "core/entrysequence.h"
#include "element/elementdetails.h"

#include <QByteArray>

#include <functional>

namespace sigdb {

/// One or more element details: the answer to getElementDetailList (5004) and the record that
/// createElement (5005) and changeElement (5006) send.
///
/// Stream form: the list number (int column), the detail count (tag 1, size 8), then per
/// detail its column values in the details encoding, its element definition, details number,
/// collocation TID, reference documents, network overview list and its callsign table as one
/// UTF-8 text under tag 1111. Unlike the overview lists, the column ids run on from one detail
/// to the next.
class SIGDBREF_EXPORT ElementDetailsList : public base::DbBaseType, public EntrySequence<ElementDetails>
{
public:
    /// Tag of the count frame.
    static constexpr int CountTag = 1;
    /// Tag of the callsign table text of each detail.
    static constexpr int CallsignTableTag = 1111;

    ElementDetailsList();
    /// A copy of \a other.
    ElementDetailsList(const ElementDetailsList &other);
    /// Takes over the contents of \a other without copying them.
    ElementDetailsList(ElementDetailsList &&other) = default;
    ~ElementDetailsList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementDetailsList &operator=(const ElementDetailsList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Empties the list; the list number becomes 0 again.
    void reset() override;
    /// Writes the stream form into \a out, numbered from 0; the cursor goes back to the first
    /// detail.
    void serialize(QByteArray &out) const override;
    /// The list number and the start id become \a start + 1; the details are numbered one
    /// after the other from there. Returns the last detail's result (\a start + 1 when empty).
    int setIDs(int start);

    /// Writes the list number, the count frame and every detail.
    void writeTo(ColumnWriter &writer) const;
    /// Clears the list and reads it back; false on a frame that does not fit or bytes that end early.
    bool readFrom(ColumnReader &reader);
    /// Reads the stream form one detail at a time without keeping the details, for a list too
    /// large to hold: a callsign table text of a few megabytes can stand for millions of
    /// connections. The list number is read into this list; every detail is read and numbered
    /// as readFrom() does it, except that its callsign table stays as it is and the table's
    /// text (UTF-8, as it travels) is handed over beside it to \a take(details, tableText),
    /// which returns whether reading goes on. False where readFrom() would fail, or when
    /// \a take returns false.
    bool readEach(ColumnReader &reader, const std::function<bool(ElementDetails &, const QByteArray &)> &take);

    /// Appends a copy of \a details.
    void appendDetails(const ElementDetails &details) { appendEntry(details); }
    /// Appends copies of all details of \a other (its list number is not taken).
    void appendDetailsList(const ElementDetailsList &other);

    /// Starts an iteration: the first detail (null when empty), with the cursor past it.
    ElementDetails *getFirstDetail() { return firstEntry(); }
    /// The detail under the cursor, advancing the cursor; null after the last.
    ElementDetails *getNextDetail() { return getNextEntry(); }
    /// The first detail in place; null for an empty list. The cursor stays.
    ElementDetails *firstDetailPointer() { return m_entries.empty() ? nullptr : &m_entries.front(); }
    /// A copy of the first detail; a default one for an empty list.
    ElementDetails firstDetail() const;
    /// The element type of detail \a index; 0 for an index out of range.
    int getTypeOfIndex(unsigned int index) const;

    /// The number of the list, which the server echoes in its answer.
    base::DbDataType<int> &listNumber() { return m_listNumber; }
    /// The number of the list, read-only.
    const base::DbDataType<int> &listNumber() const { return m_listNumber; }

    /// The largest order number of the parameter rows (column 586) over all details; -1 for
    /// an empty list.
    int getMaxOrderNumberOfParameterSets();
    /// Selects the current included detail of every detail (ElementDetails::initCurrentSelectedIncludedDetails()).
    void initMemberCurrentParameterSets();
    /// Sets the approval action of every detail to accept (true) or reject (false).
    void setApprove(bool approve);
    /// Puts the lists inside every detail in order (ElementDetails::sortLists()).
    void sortLists();
    /// Whether the list carries what the approval of a linked pair needs: a second detail of a
    /// known type that either carries no approval data or has the column standing in for the
    /// key column 17 filled.
    bool approveDataAvailable() const;
    /// Equal counts, pairwise equal details and equal list numbers.
    bool compareDetails(const ElementDetailsList &other) const;

private:
    static void writeDetail(ColumnWriter &writer, const ElementDetails &details);
    static bool readDetail(ColumnReader &reader, ElementDetails &details);
    /// readDetail() up to the callsign table, whose text is handed back in \a tableText.
    static bool readDetail(ColumnReader &reader, ElementDetails &details, QByteArray &tableText);
    /// Reads the list number; one that does not read is no reason to give up the details.
    void readListNumber(ColumnReader &reader);

    base::DbDataType<int> m_listNumber{0};
};

SIGDBREF_EXPORT bool operator==(const ElementDetailsList &a, const ElementDetailsList &b);

} // namespace sigdb

#endif
