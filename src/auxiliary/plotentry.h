#ifndef SIGDB_AUXILIARY_PLOTENTRY_H
#define SIGDB_AUXILIARY_PLOTENTRY_H

#include "sigdbref_export.h"

#include "core/recordlist.h"
#include "base/dbdatatype.h"
#include "core/sigdbenums.h"

#include <string>

namespace sigdb {

/// One row of a plot table: two numeric ids, a text and the row's modification state. What the
/// ids and the text stand for is the server's business; the library only carries them.
///
/// The modification state is the first member but takes the last column id, and it is the one
/// value that is not NULL by default (Modification_Unknown). Both are part of the layout that
/// the server expects. A row travels only inside a PlotEntryList:
///
///     firstId | secondId | text | modificationState (narrow: size 1, qint8)
class SIGDBREF_EXPORT PlotEntry : public base::DbBaseType
{
public:
    /// The number of column ids that setIDs() hands out.
    static constexpr int ColumnCount = 4;

    /// Whether the row is new, changed or to be deleted; Modification_Unknown until set.
    base::DbDataType<Modification_State> modificationState{Modification_Unknown};
    /// The first of the row's two ids.
    base::DbDataType<unsigned long long> firstId;
    /// The second of the row's two ids.
    base::DbDataType<unsigned long long> secondId;
    /// The row's text.
    base::DbDataType<std::string> text;

    PlotEntry();
    /// A copy of \a other.
    PlotEntry(const PlotEntry &other);
    /// Takes over the contents of \a other without copying them.
    PlotEntry(PlotEntry &&other) = default;
    ~PlotEntry() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    PlotEntry &operator=(const PlotEntry &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Back to the defaults (state Modification_Unknown, everything else NULL); ids are kept.
    void reset() override;
    /// Does nothing: a row is written only by its list.
    void serialize(QByteArray &out) const override;

    /// firstId, secondId and text get \a startId + 1 to + 3, modificationState + 4; returns
    /// \a startId + 4.
    int setIDs(int startId);

    /// Writes the row's four frames in stream order.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the row's four frames; false on a frame whose size or id does not fit.
    bool readFrom(ColumnReader &reader);
};

/// Equal modification states, first ids, second ids and texts (NULL equals NULL).
SIGDBREF_EXPORT bool operator==(const PlotEntry &a, const PlotEntry &b);
SIGDBREF_EXPORT bool operator!=(const PlotEntry &a, const PlotEntry &b);

/// The order record of RefInterface::changePlotEntry and the answer handed to
/// RefCallback::callbackPlotEntryList: plot table rows plus three list-level values.
///
///     listId | listText1 | listText2 | tag 4 size 8 count | rows
///
/// Every row is numbered from the list's start id, so all rows carry the same ids; setIDs()
/// does not count them in its result.
class SIGDBREF_EXPORT PlotEntryList : public RecordList<PlotEntry>
{
public:
    /// Tag of the count frame.
    static constexpr int CountTag = 4;

    /// The id of the plot table the rows belong to.
    base::DbDataType<unsigned long long> listId;
    /// The first text of the plot table.
    base::DbDataType<std::string> listText1;
    /// The second text of the plot table.
    base::DbDataType<std::string> listText2;

    PlotEntryList();
    /// A copy of \a other.
    PlotEntryList(const PlotEntryList &other);
    /// Takes over the contents of \a other without copying them.
    PlotEntryList(PlotEntryList &&other) = default;
    ~PlotEntryList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    PlotEntryList &operator=(const PlotEntryList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Back to an empty list with NULL list values; column ids are kept.
    void reset() override;
    /// Numbers the list from 0 (so it updates ids although const) and writes it into \a out.
    void serialize(QByteArray &out) const override;

    /// listId, listText1 and listText2 get \a startId + 1 to + 3; the start id becomes
    /// \a startId + 3 and every row is numbered from it. Returns \a startId + 3.
    int setIDs(int startId);

    /// Writes the list values, the count frame and every row.
    void writeTo(ColumnWriter &writer) const;
    /// Clears the list and reads it back; expects ids as setIDs(0) gives them. False on any
    /// frame that does not fit or on bytes that end early; rows read before stay.
    bool readFrom(ColumnReader &reader);

    /// Equal row counts, pairwise equal rows, then equal list values.
    bool compareList(const PlotEntryList &other) const;
};

/// compareList().
SIGDBREF_EXPORT bool operator==(const PlotEntryList &a, const PlotEntryList &b);
SIGDBREF_EXPORT bool operator!=(const PlotEntryList &a, const PlotEntryList &b);

} // namespace sigdb

#endif
