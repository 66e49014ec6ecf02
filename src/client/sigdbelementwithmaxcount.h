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
    static constexpr unsigned long long DefaultMaxCount = 1000;

    SigdbElementWithMaxCount();
    /// The identity of \a element with default paging.
    explicit SigdbElementWithMaxCount(const SigdbElement &element);
    SigdbElementWithMaxCount(const SigdbElementWithMaxCount &other);
    SigdbElementWithMaxCount(SigdbElementWithMaxCount &&other) = default;
    ~SigdbElementWithMaxCount() override;

    using SigdbElement::operator=;
    SigdbElementWithMaxCount &operator=(const SigdbElementWithMaxCount &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Resets the element part and the paging.
    void reset() override;
    /// Resets only the paging: start index 0, maximum count 1000, list type 0.
    void resetData();
    void serialize(QByteArray &out) const override;

    void writeTo(ColumnWriter &writer) const;
    bool readFrom(ColumnReader &reader);

    unsigned long long startIndex() const { return m_startIndex; }
    void setStartIndex(unsigned long long index) { m_startIndex = index; }
    unsigned long long resultListMaxCount() const { return m_maxCount; }
    void setResultListMaxCount(unsigned long long count) { m_maxCount = count; }
    ElementList_Type requestedListType() const { return m_listType; }
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
