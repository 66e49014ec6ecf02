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
    SigdbElement(const SigdbElement &other);
    SigdbElement(SigdbElement &&other) = default;
    ~SigdbElement() override;

    using base::DbBaseType::operator=;
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
    unsigned long long TID() const { return m_tid.getData(); }
    base::DbDataType<unsigned long long> &tid() { return m_tid; }
    const base::DbDataType<unsigned long long> &tid() const { return m_tid; }
    void setTID(unsigned long long tid) { m_tid = tid; }
    void setTid(const base::DbDataType<unsigned long long> &tid) { m_tid = tid; }
    bool isTIDundefined() const { return m_tid.isNull(); }

    int type() const { return m_type; }
    virtual void setType(int type);
    bool isTYPEundefined() const { return m_type == 0; }
    /// The type of the superior element of this element's type (0: none).
    int superiorType() const;
    /// A second number that qualifies the type.
    int subType() const { return m_subType; }
    void setSubType(int subType) { m_subType = subType; }

    /// An element without type or without TID does not stand for a stored element.
    bool isUndefined() const { return isTYPEundefined() || isTIDundefined(); }

    // Approval
    int apvState() const { return m_apvState; }
    void setApvState(int state) { m_apvState = state; }
    bool hasApvState(int flag) const { return (m_apvState & flag) != 0; }
    Approval_Action_Type approvalType() const { return static_cast<Approval_Action_Type>(m_approvalType); }
    void setApproveType(int type) { m_approvalType = type; }
    /// Chooses the approval action for an element in \a state: approved elements need none,
    /// every other element is accepted or rejected as \a approve says.
    void setApprovalTypeFromModState(Modification_State state, bool approve);
    int changeType() const { return m_changeType; }
    void setChangeType(int type) { m_changeType = type; }
    /// Whether the approval action is "accept".
    virtual bool approve() const;
    /// Sets the approval action to accept (true) or reject (false).
    virtual void setApprove(bool approve);

    // Exchange id and last modification
    base::DbDataType<std::string> &exchgId() { return m_exchgId; }
    const base::DbDataType<std::string> &exchgId() const { return m_exchgId; }
    void setExchgId(const base::DbDataType<std::string> &exchgId) { m_exchgId = exchgId; }
    base::DbDataType<std::string> &modificationUser() { return m_modificationUser; }
    const base::DbDataType<std::string> &modificationUser() const { return m_modificationUser; }
    void setModificationUser(const base::DbDataType<std::string> &user) { m_modificationUser = user; }

    // Type rules from the schema
    bool canBeCollocated() const;
    bool isLocalData() const;
    bool isNetworkMemberType() const;
    bool hasColumnWithId(int columnId) const;

    // Naming from the schema
    virtual const std::string &tableName() const;
    virtual const std::string &tablePrefix() const;
    virtual const std::string &tableAbbrevation() const;
    virtual const std::string &columnPrefix() const;
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
