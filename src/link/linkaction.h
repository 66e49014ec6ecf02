#ifndef SIGDB_LINK_LINKACTION_H
#define SIGDB_LINK_LINKACTION_H

#include "sigdbref_export.h"

#include "core/elementbase.h"
#include "core/linkdefinition.h"

#include <string>

namespace sigdb {

class ColumnReader;
class ColumnWriter;

/// One link between two elements of the signal database: the "from" element (A), the "to"
/// element (B), the kind of change requested for it (the action type), an optional order
/// number among ordered links, and the names under which the link is stored.
///
/// The link's own identity and bookkeeping (TID, approval state, layer, removed flag,
/// modification date and user, and the name value, which a link uses as its reserved1 value)
/// are those of its ElementBaseName part.
///
/// Link tables are classified by the element types at the two ends; a link stands in its
/// normalised direction when the schema (SigdbTableSpace) declares the pair (A type, B type)
/// a valid link type.
///
/// Inside a link change, a link travels as
///
///     tag 1 size 2 action type | element A | element B | order number (wide)
///
/// while its own serialize() is the element encoding inherited from SigdbElement.
class SIGDBREF_EXPORT LinkAction : public ElementBaseName
{
public:
    /// An undefined link: both ends default, action type 0, no order number, not existing.
    LinkAction();
    /// A copy of \a other.
    LinkAction(const LinkAction &other);
    /// Takes over the contents of \a other without copying them.
    LinkAction(LinkAction &&other) = default;
    ~LinkAction() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using ElementBaseName::operator=;
    /// Copies everything, the stored names included.
    LinkAction &operator=(const LinkAction &other);

    /// A new heap LinkAction copied from \a source (its element part when it is no link).
    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Resets the link's own element part, both ends, action type, order number and
    /// existence; the stored names are kept, since they depend on the link table only.
    void reset() override;
    /// Sets the layer of both ends and of the link itself.
    void setLayer(int layer) override;
    /// Numbers the order number (\a startId + 1), then B, then A (from B's last id); returns
    /// A's last id. The link's own element part takes no part in the link-change encoding and
    /// is not numbered.
    int setIDs(int startId) override;

    // Link-change encoding
    /// Writes the link as it travels inside a link change.
    void writeLinkTo(ColumnWriter &writer) const;
    /// Reads the link as written by writeLinkTo(); stops with false at the first field that
    /// does not fit (the fields read before it stay overwritten).
    bool readLinkFrom(ColumnReader &reader);

    // Ends, action and order
    /// Element A, the "from" end of the link.
    SigdbElement &fromElement() { return m_fromElement; }
    /// Element A, read-only.
    const SigdbElement &fromElement() const { return m_fromElement; }
    /// Sets element A.
    void setFromElement(const SigdbElement &element) { m_fromElement = element; }
    /// Element B, the "to" end of the link.
    SigdbElement &toElement() { return m_toElement; }
    /// Element B, read-only.
    const SigdbElement &toElement() const { return m_toElement; }
    /// Sets element B.
    void setToElement(const SigdbElement &element) { m_toElement = element; }

    /// The action type: the kind of change requested for the link (8 to 16 also imply the element types of both ends).
    int actionType() const { return m_actionType; }
    /// Sets the action type.
    void setActionType(int actionType) { m_actionType = actionType; }
    /// Gives both ends the element types that the action type implies (8 to 16); any other
    /// action type leaves them as they are.
    void setElementTypesFromLinkActionType();

    /// The position among ordered links; NULL (value -1) when the link has none.
    const base::DbDataType<int> &orderNumber() const { return m_orderNumber; }
    /// Sets the position among ordered links.
    void setOrderNumber(int orderNumber) { m_orderNumber = orderNumber; }
    /// Takes value and NULL flag of \a orderNumber (its id only while this one has none).
    void setOrderNumber(const base::DbDataType<int> &orderNumber);
    /// Removes the order number: NULL, value -1.
    void clearOrderNumber();

    /// Whether the link exists in the database.
    bool linkExists() const { return m_exists; }
    /// Records whether the link exists in the database.
    void setLinkExists(bool exists) { m_exists = exists; }

    /// The link's reserved1 value, held in the name value of its ElementBaseName part.
    base::DbDataType<std::string> getReserved1() const { return name(); }
    /// Stores text and NULL flag of \a value as reserved1; its id only while none is stored.
    void setReserved1(const base::DbDataType<std::string> &value) { name() = value; }

    // Naming
    /// The database table of links from \a typeA to \a typeB (the core library's name).
    static std::string tableName(int typeA, int typeB);
    /// The five-letter alias of the link table from \a typeA to \a typeB; empty for pairs
    /// without one. Directional: (2, 1) has no alias although (1, 2) has.
    static std::string linkTableAlias(int typeA, int typeB);
    /// The alias of this link's table.
    std::string tableAlias() const;
    /// The table that holds this link: B's own table for a unique link type (the link is a
    /// column of B), "CORECONNECTION" for a network connection, else the link table.
    std::string myTableName() const;
    /// A's table abbreviation for a unique link type (the link columns carry it), else empty.
    std::string myColumnPrefix() const;
    /// The column that holds A's TID. A network connection stores its ends in two columns, so
    /// the result is a condition "XYATID = %1 OR XYBTID" with "%1" left in it for the caller
    /// to fill in the TID.
    std::string myFieldNameFrom() const;
    /// The column that holds B's TID.
    std::string myFieldNameTo() const;
    /// The foreign-key column of the end of \a type: "TID", except for TSP and profile list
    /// links, whose ends are found by their field names.
    std::string myFkTidName(int type) const;
    /// The table prefix of the link's table space: A's, unless A lives in "CORE"; then B's.
    std::string linkPrefix() const;
    /// Computes and stores table name, alias, foreign-key name, field names and column prefix
    /// for the end of \a type; \a suffix, when not null, is appended to the column prefix.
    void setTableNameAndAbbrevation(int type, const char *suffix);

    /// The stored table name (see setTableNameAndAbbrevation()).
    const std::string &tableName() const override { return m_tableName; }
    /// The stored table alias.
    const std::string &tableAbbrevation() const override { return m_tableAbbrevation; }
    /// The stored foreign-key column name (see setTableNameAndAbbrevation()).
    const std::string &fkTidName() const { return m_fkTidName; }
    /// The stored column name that holds A's TID.
    const std::string &fieldNameFrom() const { return m_fieldNameFrom; }
    /// The stored column name that holds B's TID.
    const std::string &fieldNameTo() const { return m_fieldNameTo; }
    /// The stored column prefix; A's table abbreviation for a unique link type while none is
    /// stored.
    const std::string &columnPrefix() const override;
    /// \a name as a column of this link's table: prefixed (see columnPrefix()) for a unique
    /// link type, unchanged otherwise.
    std::string convertedColumnName(const char *name) const override;

    // Classification
    /// Whether no action is set (action type 0). Unlike an element's isUndefined(), the ends
    /// take no part.
    bool isUndefined() const { return m_actionType == 0; }
    /// Whether B can have only this one link from an element of A's type.
    bool isUniqueLink() const;
    /// Whether an element of \a typeB has at most one link from an element of \a typeA.
    static bool isUniqueLinkType(int typeA, int typeB);
    /// Whether the link stands in its stored direction.
    bool isNormalized() const;
    /// Whether the schema declares links from \a typeA to \a typeB.
    static bool isValidLinkType(int typeA, int typeB);
    /// Whether a link from \a a to \a b is valid in this direction.
    static bool isValidLink(const SigdbElement &a, const SigdbElement &b);
    /// A unique link between elements of one type.
    bool isHierarchicalLink() const;
    /// Whether links from \a typeA to \a typeB are unique links between elements of one type.
    static bool isHierarchicalLinkType(int typeA, int typeB);
    /// A link between a network and one of its members, in either direction.
    bool isNetworkConnection() const;
    /// Whether \a typeA and \a typeB are a network and a possible member, in either order.
    static bool isNetworkLinkType(int typeA, int typeB);
    /// A link between a network and a profile, in either direction.
    bool isNetworkProfileLink() const;
    /// Whether \a typeA and \a typeB are a network and a profile, in either order.
    static bool isNetworkProfileLinkType(int typeA, int typeB);
    /// Whether the link leads from a unit to one of its functions.
    bool isFunction() const;
    /// Whether the link leads from a plot to a transceiver.
    bool isPlotTransceiverLink() const;
    /// Whether the link joins a profile list and a profile, in either direction.
    bool isProfileListLink() const;
    /// A profile list link, or a link between a transceiver and a profile in either direction.
    bool isProfileListImportLink() const;
    /// Whether one end is a TSP partner and the other a network, a network member or a transceiver.
    bool isTspLink() const;
    /// TSP and profile list links are never approved.
    bool isApproveAbleLink() const;
    /// The opposite of isApproveAbleLink().
    bool isNotApproveAbleLink() const;
    /// Whether links from A's type to B's type keep an order number.
    bool isOrderedLink() const;
    /// Whether A's type is the superior type of B's type.
    bool isSuperiorLink() const;
    /// Whether \a typeA is the superior type of \a typeB.
    static bool isSuperiorLinkType(int typeA, int typeB);
    /// Only links from a transceiver to a profile carry a reserved1 value.
    bool hasReserved1() const;
    /// Exists, and exists in a related layer according to the approval state.
    bool linkExistsInRelatedLayer() const;
    /// Whether the link's approval state says it is approved.
    bool linkIsApproved() const;
    /// Whether the link's approval state says it is to be removed.
    bool linkIsToBeRemoved() const;

    // Direction and conversion
    /// The network at one end (A before B); a default element when neither end is one.
    SigdbElement getNetwork() const;
    /// The core library's stored form of this link.
    LinkDefinition asLinkDefinition() const;
    /// Takes over a stored link: identity, bookkeeping, ends (swapped) and removed flag, and
    /// normalises the direction.
    void setFromLinkDefinition(const LinkDefinition &definition);
    /// A copy with A and B exchanged; the stored names are copied, not recomputed.
    LinkAction getSwappedAction() const;
    /// A copy in the stored direction (swapped when this direction is not a valid link type).
    LinkAction getNormalizedAction() const;
    /// Brings the link into its stored direction; false when neither direction is valid (the
    /// link is then left swapped).
    bool normalize();
    /// normalize() on two free elements.
    static bool normalizeLink(SigdbElement &a, SigdbElement &b);

    // Diagnostics
    /// Both ends, layer, action type, modification date and user and the order number; "not
    /// defined" when both ends are undefined.
    std::string shortInfoAsString() const;
    /// The short text followed by the link's TID, existence and approval state.
    std::string infoAsString() const override;
    /// Writes infoAsString() to the diagnostic output.
    void printDebug() const;

private:
    bool isPair(int typeA, int typeB) const;
    bool isEitherPair(int typeA, int typeB) const;

    SigdbElement m_fromElement;
    SigdbElement m_toElement;
    int m_actionType = 0;
    base::DbDataType<int> m_orderNumber;
    bool m_exists = false;
    std::string m_tableName;
    std::string m_tableAbbrevation;
    std::string m_fkTidName;
    std::string m_fieldNameFrom;
    std::string m_fieldNameTo;
    std::string m_columnPrefix;
};

/// Equal ends and equal action types. TID, order number, existence and stored names take no
/// part: two actions on the same link are the same action.
SIGDBREF_EXPORT bool operator==(const LinkAction &a, const LinkAction &b);
SIGDBREF_EXPORT bool operator!=(const LinkAction &a, const LinkAction &b);

} // namespace sigdb

#endif
