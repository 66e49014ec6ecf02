#include "link/linkaction.h"

#include "core/diagnostics.h"
#include "core/linkdefinition.h"
#include "core/sigdbtablespace.h"
#include "io/columnstream.h"
#include "link/linktext_p.h"

#include <QString>

namespace sigdb {

namespace {

// Element types whose links this class treats specially. The numbers are the core library's.
enum LinkEndType : int {
    Type_Unit = 1,
    Type_Platform = 2,
    Type_Transceiver = 3,
    Type_Network = 4,
    Type_Profile = 5,
    Type_Function = 6,
    Type_ProfileList = 26,
    Type_TspPartner = 27,
    Type_Plot = 29,
};

// Fixed tag of the action type inside a link change.
constexpr int Tag_ActionType = 1;

// The one action type whose stored form keeps the link's own direction.
constexpr int Action_ProfileToNetwork = 16;

// Approval state flags that the link predicates look at.
enum LinkApprovalFlag : int {
    Approval_InRelatedLayer = 16,
    Approval_InRelatedLayerPending = 1024,
    Approval_ToBeRemoved = 128,
    Approval_Approved = 256,
};

// The order number of a link that has none.
constexpr int kNoOrderNumber = -1;

struct ActionEnds
{
    int actionType;
    int typeA;
    int typeB;
};

// The element types that an action type implies for its two ends.
const ActionEnds kActionEnds[] = {
    {8, Type_Profile, Type_ProfileList},      // entries of a profile list
    {9, Type_Transceiver, Type_Profile},      // profile of a transceiver (carries reserved1)
    {10, Type_Unit, Type_Platform},           // unit on a platform
    {11, Type_Unit, Type_Transceiver},        // transceiver of a unit
    {12, Type_Unit, Type_Function},           // function of a unit
    {13, Type_Unit, Type_Unit},               // unit hierarchy
    {14, Type_Platform, Type_Platform},       // platform hierarchy
    {15, Type_Transceiver, Type_Platform},    // transceiver on a platform
    {Action_ProfileToNetwork, Type_Profile, Type_Network}, // profile of a network
};

struct TableAlias
{
    int typeA;
    int typeB;
    const char *alias;
};

// Aliases of the link tables, by direction. Pairs not listed here have none.
const TableAlias kTableAliases[] = {
    {1, 1, "COLUU"},
    {1, 2, "COLUI"},
    {1, 3, "RMLUT"},
    {1, 6, "COLUP"},
    {1, 63, "RALCT"},
    {3, 5, "RMLTP"},
    {63, 65, "RALTP"},
    {88, 87, "RALMP"},
    {90, 91, "RALCS"},
    {92, 93, "RALMS"},
    {87, 86, "RALPS"},
    {105, 88, "RALMM"},
    {125, 88, "RALPM"},
    {112, 113, "RALSS"},
};

const SigdbTableSpace &schema()
{
    return SigdbTableSpace::instance();
}

bool isNetworkMember(int type)
{
    return type == Type_Unit || type == Type_Platform;
}

bool isTspPartnerOf(int partner, int other)
{
    return partner == Type_TspPartner
        && (isNetworkMember(other) || other == Type_Transceiver || other == Type_Network);
}

// Exchanges two ends by assignment, so that each end keeps the column ids of its position.
void exchangeEnds(SigdbElement &a, SigdbElement &b)
{
    const SigdbElement formerA(a);
    a = b;
    b = formerA;
}

QString flag(bool on)
{
    return QString::number(on ? 1 : 0);
}

} // namespace

LinkAction::LinkAction()
{
    m_fromElement.reset();
    m_toElement.reset();
    m_orderNumber.getData() = kNoOrderNumber;
}

LinkAction::LinkAction(const LinkAction &other) = default;
LinkAction::~LinkAction() = default;

LinkAction &LinkAction::operator=(const LinkAction &other)
{
    if (this == &other)
        return *this;
    ElementBaseName::operator=(other);
    m_fromElement = other.m_fromElement;
    m_toElement = other.m_toElement;
    m_actionType = other.m_actionType;
    m_orderNumber = other.m_orderNumber;
    m_exists = other.m_exists;
    m_tableName = other.m_tableName;
    m_tableAbbrevation = other.m_tableAbbrevation;
    m_fkTidName = other.m_fkTidName;
    m_fieldNameFrom = other.m_fieldNameFrom;
    m_fieldNameTo = other.m_fieldNameTo;
    m_columnPrefix = other.m_columnPrefix;
    return *this;
}

base::DbBaseType *LinkAction::getCopy(const base::DbBaseType *source)
{
    auto *copy = new LinkAction;
    if (const auto *link = dynamic_cast<const LinkAction *>(source))
        *copy = *link;
    else if (const auto *element = dynamic_cast<const SigdbElement *>(source))
        copy->SigdbElement::operator=(*element);
    return copy;
}

void LinkAction::reset()
{
    ElementBaseName::reset();
    m_fromElement.reset();
    m_toElement.reset();
    m_actionType = 0;
    clearOrderNumber();
    m_exists = false;
}

void LinkAction::setLayer(int layer)
{
    m_fromElement.setLayer(layer);
    m_toElement.setLayer(layer);
    ElementBaseName::setLayer(layer);
}

int LinkAction::setIDs(int startId)
{
    m_orderNumber.setID(static_cast<unsigned int>(startId + 1));
    return m_fromElement.setIDs(m_toElement.setIDs(startId + 1));
}

void LinkAction::writeLinkTo(ColumnWriter &writer) const
{
    writer.writeShortField(Tag_ActionType, static_cast<qint16>(m_actionType));
    m_fromElement.writeTo(writer);
    m_toElement.writeTo(writer);
    writer.writeWide(m_orderNumber);
}

bool LinkAction::readLinkFrom(ColumnReader &reader)
{
    qint16 actionType = 0;
    if (!reader.readShortField(Tag_ActionType, actionType))
        return false;
    m_actionType = actionType;
    if (!m_fromElement.readFrom(reader) || !m_toElement.readFrom(reader))
        return false;
    const bool ok = reader.readWide(m_orderNumber);
    if (m_orderNumber.isNull())
        m_orderNumber.getData() = kNoOrderNumber;
    return ok;
}

void LinkAction::setElementTypesFromLinkActionType()
{
    for (const ActionEnds &ends : kActionEnds) {
        if (ends.actionType == m_actionType) {
            m_fromElement.setType(ends.typeA);
            m_toElement.setType(ends.typeB);
            return;
        }
    }
}

void LinkAction::setOrderNumber(const base::DbDataType<int> &orderNumber)
{
    m_orderNumber = orderNumber;
    if (m_orderNumber.isNull())
        m_orderNumber.getData() = kNoOrderNumber;
}

void LinkAction::clearOrderNumber()
{
    m_orderNumber.setNull(true);
    m_orderNumber.getData() = kNoOrderNumber;
}

// ---------------------------------------------------------------------------------------------
// Naming

std::string LinkAction::tableName(int typeA, int typeB)
{
    return SigdbElement::linkTableNameforTypes(typeA, typeB);
}

std::string LinkAction::linkTableAlias(int typeA, int typeB)
{
    for (const TableAlias &row : kTableAliases) {
        if (row.typeA == typeA && row.typeB == typeB)
            return row.alias;
    }
    return {};
}

std::string LinkAction::tableAlias() const
{
    return linkTableAlias(m_fromElement.type(), m_toElement.type());
}

std::string LinkAction::myTableName() const
{
    if (isUniqueLink())
        return m_toElement.tableName();
    if (isNetworkConnection())
        return "CORECONNECTION";
    return tableName(m_fromElement.type(), m_toElement.type());
}

std::string LinkAction::myColumnPrefix() const
{
    return isUniqueLink() ? m_fromElement.tableAbbrevation() : std::string();
}

std::string LinkAction::myFieldNameFrom() const
{
    const std::string &abbreviation = m_fromElement.tableAbbrevation();
    if (isNetworkConnection()) {
        // Both ends of a connection are candidates; "%1" stays for the caller's TID.
        return latin1Bytes(QStringLiteral("%1ATID = %2 OR %1BTID")
                         .arg(latin1Text(abbreviation), QStringLiteral("%1")));
    }
    return abbreviation + "TID";
}

std::string LinkAction::myFieldNameTo() const
{
    return m_toElement.tableAbbrevation() + "TID";
}

std::string LinkAction::myFkTidName(int type) const
{
    if (!isTspLink() && !isProfileListLink())
        return "TID";
    return type == m_fromElement.type() ? myFieldNameFrom() : myFieldNameTo();
}

std::string LinkAction::linkPrefix() const
{
    const std::string &prefix = m_fromElement.tablePrefix();
    return prefix == "CORE" ? m_toElement.tablePrefix() : prefix;
}

void LinkAction::setTableNameAndAbbrevation(int type, const char *suffix)
{
    m_tableName = myTableName();
    m_tableAbbrevation = tableAlias();
    m_fkTidName = myFkTidName(type);
    m_fieldNameFrom = myFieldNameFrom();
    m_fieldNameTo = myFieldNameTo();
    m_columnPrefix = myColumnPrefix();
    if (suffix)
        m_columnPrefix += suffix;
}

const std::string &LinkAction::columnPrefix() const
{
    if (isUniqueLink() && m_columnPrefix.empty())
        return m_fromElement.tableAbbrevation();
    return m_columnPrefix;
}

std::string LinkAction::convertedColumnName(const char *name) const
{
    const std::string column = name ? name : "";
    if (!isUniqueLink())
        return column;
    return columnPrefix() + column;
}

// ---------------------------------------------------------------------------------------------
// Classification

bool LinkAction::isPair(int typeA, int typeB) const
{
    return m_fromElement.type() == typeA && m_toElement.type() == typeB;
}

bool LinkAction::isEitherPair(int typeA, int typeB) const
{
    return isPair(typeA, typeB) || isPair(typeB, typeA);
}

bool LinkAction::isUniqueLink() const
{
    return isUniqueLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isUniqueLinkType(int typeA, int typeB)
{
    return schema().isUniqueLinkType(typeA, typeB);
}

bool LinkAction::isNormalized() const
{
    return isValidLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isValidLinkType(int typeA, int typeB)
{
    return schema().isValidLinkType(typeA, typeB);
}

bool LinkAction::isValidLink(const SigdbElement &a, const SigdbElement &b)
{
    return isValidLinkType(a.type(), b.type());
}

bool LinkAction::isHierarchicalLink() const
{
    return isHierarchicalLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isHierarchicalLinkType(int typeA, int typeB)
{
    return isUniqueLinkType(typeA, typeB) && typeA == typeB;
}

bool LinkAction::isNetworkConnection() const
{
    return isNetworkLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isNetworkLinkType(int typeA, int typeB)
{
    return (typeA == Type_Network && isNetworkMember(typeB))
        || (typeB == Type_Network && isNetworkMember(typeA));
}

bool LinkAction::isNetworkProfileLink() const
{
    return isNetworkProfileLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isNetworkProfileLinkType(int typeA, int typeB)
{
    return (typeA == Type_Network && typeB == Type_Profile)
        || (typeA == Type_Profile && typeB == Type_Network);
}

bool LinkAction::isFunction() const
{
    return isPair(Type_Unit, Type_Function);
}

bool LinkAction::isPlotTransceiverLink() const
{
    return isPair(Type_Plot, Type_Transceiver);
}

bool LinkAction::isProfileListLink() const
{
    return isEitherPair(Type_ProfileList, Type_Profile);
}

bool LinkAction::isProfileListImportLink() const
{
    return isProfileListLink() || isEitherPair(Type_Transceiver, Type_Profile);
}

bool LinkAction::isTspLink() const
{
    const int a = m_fromElement.type();
    const int b = m_toElement.type();
    return isTspPartnerOf(a, b) || isTspPartnerOf(b, a);
}

bool LinkAction::isApproveAbleLink() const
{
    return !isNotApproveAbleLink();
}

bool LinkAction::isNotApproveAbleLink() const
{
    return isTspLink() || isProfileListLink();
}

bool LinkAction::isOrderedLink() const
{
    return schema().tableForType(m_fromElement.type()).hasOrderedLinkType(m_toElement.type());
}

bool LinkAction::isSuperiorLink() const
{
    return isSuperiorLinkType(m_fromElement.type(), m_toElement.type());
}

bool LinkAction::isSuperiorLinkType(int typeA, int typeB)
{
    return schema().tableForType(typeB).superiorType() == typeA;
}

bool LinkAction::hasReserved1() const
{
    return isPair(Type_Transceiver, Type_Profile);
}

bool LinkAction::linkExistsInRelatedLayer() const
{
    return m_exists
        && (hasApvState(Approval_InRelatedLayer) || hasApvState(Approval_InRelatedLayerPending));
}

bool LinkAction::linkIsApproved() const
{
    return hasApvState(Approval_Approved);
}

bool LinkAction::linkIsToBeRemoved() const
{
    return hasApvState(Approval_ToBeRemoved);
}

// ---------------------------------------------------------------------------------------------
// Direction and conversion

SigdbElement LinkAction::getNetwork() const
{
    if (m_fromElement.type() == Type_Network)
        return m_fromElement;
    if (m_toElement.type() == Type_Network)
        return m_toElement;
    return SigdbElement();
}

LinkDefinition LinkAction::asLinkDefinition() const
{
    LinkDefinition definition;
    static_cast<ElementBaseName &>(definition) = static_cast<const ElementBaseName &>(*this);
    // A stored link runs from B to A, except the profile of a network, which is stored as it
    // stands.
    const bool keepDirection = m_actionType == Action_ProfileToNetwork;
    definition.setElementA(keepDirection ? m_fromElement : m_toElement);
    definition.setElementB(keepDirection ? m_toElement : m_fromElement);
    return definition;
}

void LinkAction::setFromLinkDefinition(const LinkDefinition &definition)
{
    static_cast<ElementBaseName &>(*this) = static_cast<const ElementBaseName &>(definition);
    m_fromElement = definition.elementB();
    m_toElement = definition.elementA();
    setIsRemoved(definition.isRemoved(), false);
    normalize();
}

LinkAction LinkAction::getSwappedAction() const
{
    LinkAction swapped(*this);
    exchangeEnds(swapped.m_fromElement, swapped.m_toElement);
    return swapped;
}

LinkAction LinkAction::getNormalizedAction() const
{
    return isNormalized() ? LinkAction(*this) : getSwappedAction();
}

bool LinkAction::normalize()
{
    return normalizeLink(m_fromElement, m_toElement);
}

bool LinkAction::normalizeLink(SigdbElement &a, SigdbElement &b)
{
    if (isValidLink(a, b))
        return true;
    exchangeEnds(a, b);
    return isValidLink(a, b);
}

// ---------------------------------------------------------------------------------------------
// Diagnostics

std::string LinkAction::shortInfoAsString() const
{
    if (m_fromElement.isUndefined() && m_toElement.isUndefined())
        return "not defined";
    QString text = QStringLiteral(">>>Link from Type: %1\n").arg(latin1Text(m_fromElement.infoAsString()));
    text += QStringLiteral("   Link to Type:   %1\n").arg(latin1Text(m_toElement.infoAsString()));
    text += QStringLiteral("   Layer: %1 --- ").arg(layer());
    text += QStringLiteral("ActionType: %1  ").arg(m_actionType);
    text += QStringLiteral("ModDate: %1 --- ").arg(latin1Text(modificationDate().getData()));
    text += QStringLiteral("ModUser: %1 -- ").arg(latin1Text(modificationUser().getData()));
    if (m_orderNumber.isNull())
        text += QStringLiteral("OrderNumber is null \n");
    else
        text += QStringLiteral("OrderNumber is: %1\n").arg(m_orderNumber.getData());
    return latin1Bytes(text);
}

std::string LinkAction::infoAsString() const
{
    QString text = latin1Text(shortInfoAsString());
    text += QStringLiteral("   Link TID: %1 --- ").arg(TID());
    text += QStringLiteral("Exists: %1 --- ").arg(flag(m_exists));
    text += QStringLiteral("Approve State: %1 --- ").arg(apvState());
    text += QStringLiteral("IsApproved: %1 --- ").arg(flag(linkIsApproved()));
    text += QStringLiteral("IsToBeRemoved: %1 --- ").arg(flag(linkIsToBeRemoved()));
    text += QStringLiteral("Is In related layer: %1\n").arg(flag(linkExistsInRelatedLayer()));
    return latin1Bytes(text);
}

void LinkAction::printDebug() const
{
    diagnostic("%s", infoAsString().c_str());
}

bool operator==(const LinkAction &a, const LinkAction &b)
{
    return a.fromElement() == b.fromElement() && a.toElement() == b.toElement()
        && a.actionType() == b.actionType();
}

bool operator!=(const LinkAction &a, const LinkAction &b)
{
    return !(a == b);
}

} // namespace sigdb
