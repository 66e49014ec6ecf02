#ifndef SIGDB_CORE_ELEMENTLIST_H
#define SIGDB_CORE_ELEMENTLIST_H

#include "sigdbcore_export.h"

#include "core/recordlist.h"
#include "core/sigdbelement.h"

#include <vector>

namespace sigdb {

/// A list of element identities (for example the elements whose details are requested, or
/// the elements linked uniquely to an overview). Every entry is numbered from the list's start
/// id, so all entries carry the same column ids.
class SIGDBCORE_EXPORT ElementList : public RecordList<SigdbElement>
{
public:
    /// Tag of the count frame.
    static constexpr int CountTag = 1;

    ElementList();
    /// A copy of \a other.
    ElementList(const ElementList &other);
    /// Takes over the contents of \a other without copying them.
    ElementList(ElementList &&other) = default;
    ~ElementList() override;
    using RecordList<SigdbElement>::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementList &operator=(const ElementList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    /// Writes the list numbered from 0, undefined elements included.
    void serialize(QByteArray &out) const override;
    /// Numbers every entry from \a startId; returns the last id an entry gets (also when the
    /// list is empty, so that what follows the list is numbered alike on both sides).
    int setIDs(int startId);

    /// Writes the count frame and the entries; with \a skipUndefined, undefined elements are
    /// left out (and not counted).
    void writeTo(ColumnWriter &writer, bool skipUndefined) const;
    /// Clears the list and reads it back; false on a frame that does not fit or bytes that end early.
    bool readFrom(ColumnReader &reader);

    /// Appends unless an equal element is present; returns whether it was appended.
    bool appendEntryNoDuplicate(const SigdbElement &element);
    /// Whether an equal element is in the list.
    bool containsEntry(const SigdbElement &element) const;
    /// Whether the list holds an element of \a type.
    bool containsElementOfType(int type) const;
    /// Removes the first element of \a type, if any.
    void removeFirstElementOfType(int type);
};

/// Equal elements in the same order.
SIGDBCORE_EXPORT bool operator==(const ElementList &a, const ElementList &b);
SIGDBCORE_EXPORT bool operator!=(const ElementList &a, const ElementList &b);

} // namespace sigdb

#endif
