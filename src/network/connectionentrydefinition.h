#ifndef SIGDB_NETWORK_CONNECTIONENTRYDEFINITION_H
#define SIGDB_NETWORK_CONNECTIONENTRYDEFINITION_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "core/sigdbelement.h"
#include "element/elementoverview.h"

#include <string>

namespace sigdb {

/// One end of a network connection: the end element with its overview, two texts and whether
/// the end is an RCS or a relay. Travels only inside its callsign table, so serialize() writes
/// nothing.
class SIGDBREF_EXPORT ConnectionEntryDefinition : public base::DbBaseType
{
public:
    ConnectionEntryDefinition();
    /// A copy of \a other.
    ConnectionEntryDefinition(const ConnectionEntryDefinition &other);
    /// Takes over the contents of \a other without copying them.
    ConnectionEntryDefinition(ConnectionEntryDefinition &&other) = default;
    ~ConnectionEntryDefinition() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    ConnectionEntryDefinition &operator=(const ConnectionEntryDefinition &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Every field back to its default: overview and element reset, texts and flags NULL.
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// firstText \a start + 1, secondText + 2, rcs + 3, relay + 4; the overview from
    /// \a start + 5 and the element from one above the overview's result. Returns the
    /// element's result.
    int setIDs(int start);

    /// The end is an RCS (flag set and true).
    bool isRCS() const;
    /// The end is a relay (flag set and true).
    bool isRelay() const;
    /// The end names no stored element: its element has no type or no TID.
    bool isUndefined() const;
    /// The display name of the end: the overview's keyText1, followed by " (keyText2)" when
    /// keyText2 is not empty.
    std::string name() const;
    /// The overview of the end element as a result record: a copy of the overview whose
    /// element identity is the definition's element (the definition names the end; the
    /// overview describes it).
    ElementOverview toResult() const;

    /// The overview of the end element.
    ElementOverview overview;
    /// The first text of the end.
    base::DbDataType<std::string> firstText;
    /// The second text of the end.
    base::DbDataType<std::string> secondText;
    /// The end element.
    SigdbElement element;
    /// Whether the end is an RCS.
    base::DbDataType<bool> rcs;
    /// Whether the end is a relay.
    base::DbDataType<bool> relay;
};

/// Equal overviews, texts, elements (identity) and flags (NULL only equals NULL).
SIGDBREF_EXPORT bool operator==(const ConnectionEntryDefinition &a, const ConnectionEntryDefinition &b);
SIGDBREF_EXPORT bool operator!=(const ConnectionEntryDefinition &a, const ConnectionEntryDefinition &b);

} // namespace sigdb

#endif
