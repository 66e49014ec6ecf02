#ifndef SIGDB_CORE_SIGDBELEMENT_H
#define SIGDB_CORE_SIGDBELEMENT_H

#include "sigdbcore_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "core/sigdbenums.h"

#include <string>

namespace sigdb {

class ColumnReader;
class ColumnWriter;

/// The identity of one element of the signal database: its type, its id (TID), its exchange
/// id, its approval and change states and its layer, plus the user who changed it last.
///
/// The element encoding is shared by every record that embeds an element:
///
///     tag 1 size 2 type | tag 2 size 2 sub-type | TID column | tag 4 size 2 approval action |
///     tag 5 size 2 approval state | tag 6 size 2 change kind | tag 7 size 2 layer |
///     exchange id column | modification user column
class SIGDBCORE_EXPORT SigdbElement : public base::DbBaseType
{
public:
    /// The number of column values that setIDs() numbers.
    static constexpr int ColumnCount = 3;

    SigdbElement();
    /// A copy of \a other.
    SigdbElement(const SigdbElement &other);
    /// Takes over the contents of \a other without copying them.
    SigdbElement(SigdbElement &&other) = default;
    ~SigdbElement() override;

    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    virtual SigdbElement &operator=(const SigdbElement &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    /// Writes the element encoding into \a out, numbered from 0.
    void serialize(QByteArray &out) const override;

    /// Numbers the TID, the exchange id and the modification user from \a startId + 1 and
    /// returns the last id given.
    virtual int setIDs(int startId);

    /// Writes the element encoding.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the element encoding; false on a frame that does not fit.
    bool readFrom(ColumnReader &reader);

    // Identity
    /// The TID, the element's key in the database; meaningful only while the TID is defined.
    unsigned long long TID() const { return m_tid.getData(); }
    /// The TID as a column value, NULL while the element is not stored yet.
    base::DbDataType<unsigned long long> &tid() { return m_tid; }
    /// The TID as a column value, read-only.
    const base::DbDataType<unsigned long long> &tid() const { return m_tid; }
    /// Sets the TID.
    void setTID(unsigned long long tid) { m_tid = tid; }
    /// Sets the TID from a column value, NULL included.
    void setTid(const base::DbDataType<unsigned long long> &tid) { m_tid = tid; }
    /// Whether the element has no TID yet.
    bool isTIDundefined() const { return m_tid.isNull(); }

    /// The element type, which selects the element's table in the schema (0: undefined).
    int type() const { return m_type; }
    /// Sets the element type.
    virtual void setType(int type);
    /// Whether the element has no type yet.
    bool isTYPEundefined() const { return m_type == 0; }
    /// The type of the superior element of this element's type (0: none).
    int superiorType() const;
    /// A second number that qualifies the type.
    int subType() const { return m_subType; }
    /// Sets the number that qualifies the type.
    void setSubType(int subType) { m_subType = subType; }

    /// An element without type or without TID does not stand for a stored element.
    bool isUndefined() const { return isTYPEundefined() || isTIDundefined(); }

    // Approval
    /// The approval state flags of the element.
    int apvState() const { return m_apvState; }
    /// Sets the approval state flags.
    void setApvState(int state) { m_apvState = state; }
    /// Whether the approval state holds \a flag.
    bool hasApvState(int flag) const { return (m_apvState & flag) != 0; }
    /// The approval action requested for the element.
    Approval_Action_Type approvalType() const { return static_cast<Approval_Action_Type>(m_approvalType); }
    /// Sets the approval action requested for the element.
    void setApproveType(int type) { m_approvalType = type; }
    /// Chooses the approval action for an element in \a state: approved elements need none,
    /// every other element is accepted or rejected as \a approve says.
    void setApprovalTypeFromModState(Modification_State state, bool approve);
    /// The kind of change the element went through.
    int changeType() const { return m_changeType; }
    /// Sets the kind of change.
    void setChangeType(int type) { m_changeType = type; }
    /// Whether the approval action is "accept".
    virtual bool approve() const;
    /// Sets the approval action to accept (true) or reject (false).
    virtual void setApprove(bool approve);

    // Exchange id and last modification
    /// The exchange id, which names the element across databases.
    base::DbDataType<std::string> &exchgId() { return m_exchgId; }
    /// The exchange id, read-only.
    const base::DbDataType<std::string> &exchgId() const { return m_exchgId; }
    /// Sets the exchange id.
    void setExchgId(const base::DbDataType<std::string> &exchgId) { m_exchgId = exchgId; }
    /// The user who changed the element last.
    base::DbDataType<std::string> &modificationUser() { return m_modificationUser; }
    /// The user who changed the element last, read-only.
    const base::DbDataType<std::string> &modificationUser() const { return m_modificationUser; }
    /// Sets the user who changed the element last.
    void setModificationUser(const base::DbDataType<std::string> &user) { m_modificationUser = user; }

    // Type rules from the schema
    /// Whether elements of this type may join a collocation group.
    bool canBeCollocated() const;
    /// Whether elements of this type are local data.
    bool isLocalData() const;
    /// Whether elements of this type may be members of a network.
    bool isNetworkMemberType() const;
    /// Whether the table of this element's type has the column \a columnId.
    bool hasColumnWithId(int columnId) const;

    // Naming from the schema
    /// The database table of this element's type.
    virtual const std::string &tableName() const;
    /// The prefix of that table's name.
    virtual const std::string &tablePrefix() const;
    /// The short name of that table.
    virtual const std::string &tableAbbrevation() const;
    /// The prefix of that table's column names.
    virtual const std::string &columnPrefix() const;
    /// The name of this element's type.
    virtual const std::string &typeName() const;
    /// \a name with the column prefix of this element's table in front.
    virtual std::string convertedColumnName(const char *name) const;
    /// "<type name> <type>:<TID>:<layer>", the TID empty while undefined.
    virtual std::string infoAsString() const;
    /// The type name, or "type <n>" for a type without table.
    virtual std::string typeAsString() const;

    /// The database table of links from \a typeA to \a typeB.
    static std::string linkTableNameforTypes(int typeA, int typeB);

private:
    int m_type = 0;
    int m_subType = 0;
    base::DbDataType<unsigned long long> m_tid;
    int m_approvalType = Approval_None;
    int m_apvState = 0;
    int m_changeType = 0;
    base::DbDataType<std::string> m_exchgId;
    base::DbDataType<std::string> m_modificationUser;
};

/// Identity: equal types and TIDs; elements that have no TID yet are told apart by their
/// exchange ids.
SIGDBCORE_EXPORT bool operator==(const SigdbElement &a, const SigdbElement &b);
SIGDBCORE_EXPORT bool operator!=(const SigdbElement &a, const SigdbElement &b);

} // namespace sigdb

#endif
