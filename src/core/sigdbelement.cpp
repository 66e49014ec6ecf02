#include "core/sigdbelement.h"

#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include <QString>

namespace sigdb {

namespace {

// Fixed tags of the element encoding.
enum ElementTag : int {
    Tag_Type = 1,
    Tag_SubType = 2,
    Tag_ApprovalType = 4,
    Tag_ApvState = 5,
    Tag_ChangeType = 6,
    Tag_Layer = 7,
};

const SigdbTable &tableOf(int type)
{
    return SigdbTableSpace::instance().tableForType(type);
}

} // namespace

SigdbElement::SigdbElement() = default;
SigdbElement::SigdbElement(const SigdbElement &other) = default;
SigdbElement::~SigdbElement() = default;

SigdbElement &SigdbElement::operator=(const SigdbElement &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    m_type = other.m_type;
    m_subType = other.m_subType;
    m_tid = other.m_tid;
    m_approvalType = other.m_approvalType;
    m_apvState = other.m_apvState;
    m_changeType = other.m_changeType;
    m_exchgId = other.m_exchgId;
    m_modificationUser = other.m_modificationUser;
    return *this;
}

base::DbBaseType *SigdbElement::getCopy(const base::DbBaseType *source)
{
    auto *copy = new SigdbElement;
    if (const auto *element = dynamic_cast<const SigdbElement *>(source))
        *copy = *element;
    return copy;
}

void SigdbElement::reset()
{
    SigdbElement::operator=(SigdbElement());
}

void SigdbElement::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<SigdbElement *>(this)->setIDs(0);
    writeTo(writer);
}

int SigdbElement::setIDs(int startId)
{
    m_tid.setID(static_cast<unsigned int>(startId + 1));
    m_exchgId.setID(static_cast<unsigned int>(startId + 2));
    m_modificationUser.setID(static_cast<unsigned int>(startId + 3));
    return startId + ColumnCount;
}

void SigdbElement::writeTo(ColumnWriter &writer) const
{
    writer.writeShortField(Tag_Type, static_cast<qint16>(m_type));
    writer.writeShortField(Tag_SubType, static_cast<qint16>(m_subType));
    writer.write(m_tid);
    writer.writeShortField(Tag_ApprovalType, static_cast<qint16>(m_approvalType));
    writer.writeShortField(Tag_ApvState, static_cast<qint16>(m_apvState));
    writer.writeShortField(Tag_ChangeType, static_cast<qint16>(m_changeType));
    writer.writeShortField(Tag_Layer, static_cast<qint16>(layer()));
    writer.write(m_exchgId);
    writer.write(m_modificationUser);
}

bool SigdbElement::readFrom(ColumnReader &reader)
{
    qint16 value = 0;
    if (!reader.readShortField(Tag_Type, value))
        return false;
    setType(value);
    if (!reader.readShortField(Tag_SubType, value))
        return false;
    m_subType = value;
    if (!reader.read(m_tid))
        return false;
    if (!reader.readShortField(Tag_ApprovalType, value))
        return false;
    setApproveType(value);
    if (!reader.readShortField(Tag_ApvState, value))
        return false;
    setApvState(value);
    if (!reader.readShortField(Tag_ChangeType, value))
        return false;
    setChangeType(value);
    if (!reader.readShortField(Tag_Layer, value))
        return false;
    setLayer(value);
    return reader.read(m_exchgId) && reader.read(m_modificationUser);
}

void SigdbElement::setType(int type)
{
    m_type = type;
}

int SigdbElement::superiorType() const
{
    return tableOf(m_type).superiorType();
}

void SigdbElement::setApprovalTypeFromModState(Modification_State state, bool approve)
{
    switch (state) {
    case Modification_Unchanged:
    case Modification_Approved:
    case Modification_DeletedApproved:
        m_approvalType = Approval_None;
        break;
    default:
        m_approvalType = approve ? Approval_Accept : Approval_Reject;
        break;
    }
}

bool SigdbElement::approve() const
{
    return m_approvalType == Approval_Accept;
}

void SigdbElement::setApprove(bool approve)
{
    m_approvalType = approve ? Approval_Accept : Approval_Reject;
}

bool SigdbElement::canBeCollocated() const
{
    return tableOf(m_type).canBeCollocated();
}

bool SigdbElement::isLocalData() const
{
    return tableOf(m_type).isLocalData();
}

bool SigdbElement::isNetworkMemberType() const
{
    return tableOf(m_type).isNetworkMemberType();
}

bool SigdbElement::hasColumnWithId(int columnId) const
{
    return tableOf(m_type).hasColumnWithId(columnId);
}

const std::string &SigdbElement::tableName() const
{
    return tableOf(m_type).tableName();
}

const std::string &SigdbElement::tablePrefix() const
{
    return tableOf(m_type).tablePrefix();
}

const std::string &SigdbElement::tableAbbrevation() const
{
    return tableOf(m_type).tableAbbrevation();
}

const std::string &SigdbElement::columnPrefix() const
{
    return tableOf(m_type).columnPrefix();
}

const std::string &SigdbElement::typeName() const
{
    return tableOf(m_type).typeName();
}

std::string SigdbElement::convertedColumnName(const char *name) const
{
    return columnPrefix() + (name ? name : "");
}

std::string SigdbElement::infoAsString() const
{
    const QString tid = m_tid.isNull() ? QString() : QString::number(m_tid.getData());
    return QStringLiteral("%1 %2:%3:%4")
        .arg(QString::fromStdString(typeAsString()))
        .arg(m_type)
        .arg(tid)
        .arg(layer())
        .toStdString();
}

std::string SigdbElement::typeAsString() const
{
    const std::string &name = typeName();
    if (!name.empty())
        return name;
    return QStringLiteral("type %1").arg(m_type).toStdString();
}

std::string SigdbElement::linkTableNameforTypes(int typeA, int typeB)
{
    return SigdbTableSpace::instance().linkTableName(typeA, typeB);
}

bool operator==(const SigdbElement &a, const SigdbElement &b)
{
    if (a.type() != b.type() || !(a.tid() == b.tid()))
        return false;
    if (a.isTIDundefined())
        return a.exchgId() == b.exchgId();
    return true;
}

bool operator!=(const SigdbElement &a, const SigdbElement &b)
{
    return !(a == b);
}

} // namespace sigdb
