#ifndef SIGDB_CLIENT_SIGDBELEMENTWITHMAXCOUNT_H
#define SIGDB_CLIENT_SIGDBELEMENTWITHMAXCOUNT_H

#include "sigdbref_export.h"

#include "core/sigdbelement.h"

namespace sigdb {

/// The order record of RefInterface::getElementSubElementList: the element whose sub-elements
/// are wanted, plus paging (start index, maximum count) and the kind of list requested.
///
/// Encoded as the element part followed by three bare fields whose tags 3, 4 and 5 repeat
/// numbers of the element part on purpose (readers check them by position):
///
///     element | tag 3 size 8 start index | tag 4 size 8 maximum count | tag 5 size 2 list type
class SIGDBREF_EXPORT SigdbElementWithMaxCount : public SigdbElement
{
public:
    /// The maximum count of a new request: at most this many sub-elements per answer.
    static constexpr unsigned long long DefaultMaxCount = 1000;

    SigdbElementWithMaxCount();
    /// The identity of \a element with default paging.
    explicit SigdbElementWithMaxCount(const SigdbElement &element);
    /// A copy of \a other.
    SigdbElementWithMaxCount(const SigdbElementWithMaxCount &other);
    /// Takes over the contents of \a other without copying them.
    SigdbElementWithMaxCount(SigdbElementWithMaxCount &&other) = default;
    ~SigdbElementWithMaxCount() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Replaces the contents with a copy of \a other.
    SigdbElementWithMaxCount &operator=(const SigdbElementWithMaxCount &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Resets the element part and the paging.
    void reset() override;
    /// Resets only the paging: start index 0, maximum count 1000, list type 0.
    void resetData();
    void serialize(QByteArray &out) const override;

    /// Writes the element part and the three paging fields.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the element part and the three paging fields; false on a frame that does not fit.
    bool readFrom(ColumnReader &reader);

    /// The position of the first sub-element wanted (paging).
    unsigned long long startIndex() const { return m_startIndex; }
    /// Sets the position of the first sub-element wanted.
    void setStartIndex(unsigned long long index) { m_startIndex = index; }
    /// The most sub-elements the answer may hold.
    unsigned long long resultListMaxCount() const { return m_maxCount; }
    /// Sets the most sub-elements the answer may hold.
    void setResultListMaxCount(unsigned long long count) { m_maxCount = count; }
    /// The kind of list requested.
    ElementList_Type requestedListType() const { return m_listType; }
    /// Sets the kind of list requested.
    void setRequestedListType(ElementList_Type type) { m_listType = type; }

private:
    unsigned long long m_startIndex = 0;
    unsigned long long m_maxCount = DefaultMaxCount;
    ElementList_Type m_listType = ElementList_Default;
};

/// Equal elements, start indexes and maximum counts; the list type takes no part.
SIGDBREF_EXPORT bool operator==(const SigdbElementWithMaxCount &a, const SigdbElementWithMaxCount &b);

} // namespace sigdb

#endif
