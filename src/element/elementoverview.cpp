#include "element/elementoverview.h"

#include "core/diagnostics.h"
#include "core/sigdbtablespace.h"
#include "io/columnstream.h"

#include <QString>

#include <initializer_list>
#include <iterator>

namespace sigdb {

namespace {

/// Element type of networks, whose link states are refined from their link approval bits.
constexpr int kNetworkElementType = 4;
/// The key column; a table without it names a replacement column instead.
constexpr int kKeyColumnId = 17;

/// The names of the network types, in the order in which names are matched. The last row,
/// unstructured, also names every value that is neither star nor hierarchical.
struct NetworkTypeName
{
    int type;
    const char *shortName;
    const char *fullName;
};

const NetworkTypeName kNetworkTypeNames[] = {
    {ElementOverview::NetworkType_Star, "S", "Star"},
    {ElementOverview::NetworkType_Hierarchical, "H", "Hierarchical"},
    {ElementOverview::NetworkType_Unstructured, "U", "Unstructured"},
};

/// The name of \a type: NULL for no network, and the unstructured name for every value that is
/// neither star nor hierarchical.
base::DbDataType<std::string> networkTypeName(int type, const char *NetworkTypeName::*name)
{
    if (type == ElementOverview::NetworkType_None)
        return {};
    for (const NetworkTypeName &row : kNetworkTypeNames) {
        if (row.type == type)
            return std::string(row.*name);
    }
    return std::string(std::end(kNetworkTypeNames)[-1].*name);
}

/// The network type named \a text exactly, or no network.
int networkTypeNamed(const std::string &text, const char *NetworkTypeName::*name)
{
    for (const NetworkTypeName &row : kNetworkTypeNames) {
        if (text == row.*name)
            return row.type;
    }
    return ElementOverview::NetworkType_None;
}

/// The link state of a network from its link approval bits: the first row whose bits in
/// \a set are all set and whose bits in \a clear are all clear.
struct NetworkLinkStateRow
{
    int set;
    int clear;
    Modification_State state;
};

constexpr int kMembers = ElementOverview::Apv_NetworkMemberLinks;
constexpr int kPartners = ElementOverview::Apv_NetworkPartnerLinks;
constexpr int kProfiles = ElementOverview::Apv_NetworkProfileLinks;
constexpr int kRemoved = ElementOverview::Apv_NetworkLinksRemoved;

const NetworkLinkStateRow kNetworkLinkStates[] = {
    // member links alone (removal bit ignored)
    {kMembers, kProfiles | kPartners, LinkModification_NetworkMembers},
    // member and partner links (removal bit ignored)
    {kMembers | kPartners, kProfiles, LinkModification_NetworkMembersAndPartners},
    // member, partner and profile links
    {kMembers | kProfiles | kPartners, kRemoved, LinkModification_NetworkAll},
    // everything, removals included
    {kMembers | kProfiles | kPartners | kRemoved, 0, LinkModification_NetworkAllRemoved},
    // member and profile links
    {kMembers | kProfiles, kPartners | kRemoved, LinkModification_NetworkMembersAndProfiles},
    // member and profile links with removals
    {kMembers | kProfiles | kRemoved, kPartners, LinkModification_NetworkRemoved},
    // profile links without member links (partner bit ignored)
    {kProfiles, kMembers | kRemoved, LinkModification_NetworkProfiles},
    // removals without member links (partner and profile bits ignored)
    {kRemoved, kMembers, LinkModification_NetworkRemoved},
    // nothing that refines the state
    {0, kMembers | kProfiles | kRemoved, LinkModification_NotApproved},
};

Modification_State networkLinkState(const SigdbElement &element)
{
    const int bits = element.apvState();
    for (const NetworkLinkStateRow &row : kNetworkLinkStates) {
        if ((bits & row.set) == row.set && (bits & row.clear) == 0)
            return row.state;
    }
    return LinkModification_NotApproved;
}

bool isOneOf(const base::DbDataType<Modification_State> &state,
             std::initializer_list<Modification_State> values)
{
    if (state.isNull())
        return false;
    for (const Modification_State value : values) {
        if (state.getData() == value)
            return true;
    }
    return false;
}

unsigned int idAt(int id)
{
    return static_cast<unsigned int>(id);
}

} // namespace

ElementOverview::ElementOverview() = default;
ElementOverview::ElementOverview(const ElementOverview &other) = default;
ElementOverview::~ElementOverview() = default;
ElementOverview &ElementOverview::operator=(const ElementOverview &other) = default;

base::DbBaseType *ElementOverview::getCopy(const base::DbBaseType *source)
{
    auto *copy = new ElementOverview;
    if (const auto *overview = dynamic_cast<const ElementOverview *>(source))
        *copy = *overview;
    return copy;
}

void ElementOverview::reset()
{
    *this = ElementOverview();
}

void ElementOverview::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<ElementOverview *>(this)->setIDs(0);
    writeTo(writer);
}

int ElementOverview::setIDs(int start)
{
    const int n = element.setIDs(start);
    keyText1.setID(idAt(n + 1));
    keyText2.setID(idAt(n + 2));
    keyText3.setID(idAt(n + 3));
    locationIndication.setID(idAt(n + 4));
    modificationState.setID(idAt(n + 5));
    collocationModState.setID(idAt(n + 6));
    orderNumber.setID(idAt(n + 7));
    linkModificationState.setID(idAt(n + 8));
    networkTypeWord.setID(idAt(n + 9));
    auxiliaryTid.setID(idAt(n + 10));
    const int m = uniqueLinks.setIDs(n + 10);
    collocationGroupLeader.setID(idAt(m + 1));
    const int k = relatedElement.setIDs(m + 1);
    exchgIdText.setID(idAt(k + 1));
    infoText2.setID(idAt(k + 2));
    infoText3.setID(idAt(k + 3));
    infoText4.setID(idAt(k + 4));
    // The location starts one id further on: the id k + 5 is left out on both sides of the
    // stream.
    const int l = location.setIDs(k + 5);
    locationList.setIDs(l);
    return l;
}

void ElementOverview::writeTo(ColumnWriter &writer) const
{
    element.writeTo(writer);
    writer.write(keyText1);
    writer.write(keyText2);
    writer.write(keyText3);
    writer.writeEnum(locationIndication);
    writer.writeEnum(modificationState);
    writer.writeEnum(linkModificationState);
    writer.write(networkTypeWord);
    uniqueLinks.writeTo(writer, true);
    writer.write(collocationGroupLeader);
    writer.write(auxiliaryTid);
    writer.write(collocationModState);
    writer.write(orderNumber);
    relatedElement.writeTo(writer);
    writer.write(exchgIdText);
    writer.write(infoText2);
    writer.write(infoText3);
    writer.write(infoText4);
    location.writeTo(writer);
    locationList.writeTo(writer);
}

bool ElementOverview::readFrom(ColumnReader &reader)
{
    return element.readFrom(reader)
        && reader.read(keyText1)
        && reader.read(keyText2)
        && reader.read(keyText3)
        && reader.readEnum(locationIndication)
        && reader.readEnum(modificationState)
        && reader.readEnum(linkModificationState)
        && reader.read(networkTypeWord)
        && uniqueLinks.readFrom(reader)
        && reader.read(collocationGroupLeader)
        && reader.read(auxiliaryTid)
        && reader.read(collocationModState)
        && reader.read(orderNumber)
        && relatedElement.readFrom(reader)
        && reader.read(exchgIdText)
        && reader.read(infoText2)
        && reader.read(infoText3)
        && reader.read(infoText4)
        && location.readFrom(reader)
        && locationList.readFrom(reader);
}

bool ElementOverview::hasCollocationModificationState(Collocation_Modification_State state) const
{
    return collocationModState.has(state);
}

int ElementOverview::networkType() const
{
    if (networkTypeWord.isNull())
        return NetworkType_None;
    const int value = networkTypeWord.getData();
    return value >= NetworkType_None && value <= NetworkType_Hierarchical ? value : NetworkType_None;
}

bool ElementOverview::isCollocated() const
{
    return !locationIndication.isNull()
        && locationIndication.getData() >= LocationIndication_Collocated;
}

bool ElementOverview::isCollocationGroupLeader() const
{
    return !collocationGroupLeader.isNull() && collocationGroupLeader.getData();
}

bool ElementOverview::hasSuperior() const
{
    return uniqueLinks.containsElementOfType(element.superiorType());
}

bool ElementOverview::isDeleted() const
{
    return isOneOf(modificationState, {Modification_DeletedInMdl, Modification_DeletedApproved});
}

bool ElementOverview::isApproved() const
{
    return isOneOf(modificationState,
                   {Modification_Unchanged, Modification_Approved, Modification_DeletedApproved});
}

bool ElementOverview::isCompletelyApproved() const
{
    return isApproved() && element.hasApvState(Apv_AllLinksApproved)
        && !element.hasApvState(Apv_CollocationGroupNotApproved);
}

bool ElementOverview::isCurrentlyInMdlAndApl() const
{
    return !isOneOf(modificationState, {Modification_ChangedInMdl, Modification_DeletedInMdl,
                                        Modification_DeletedApproved});
}

void ElementOverview::addCollocationModificationState(Collocation_Modification_State state)
{
    if (!collocationModState.add(state))
        return;
    if (state != CollocationMod_Unchanged)
        collocationModState.remove(CollocationMod_Unchanged);
}

void ElementOverview::removeCollocationModificationState(Collocation_Modification_State state)
{
    collocationModState.remove(state);
}

void ElementOverview::addNetworkType(int type)
{
    networkTypeWord = networkTypeWord.isNull() ? type : networkTypeWord.getData() + type;
}

bool ElementOverview::hasNetworkWordFlag(int flag) const
{
    return !networkTypeWord.isNull() && (networkTypeWord.getData() & flag) != 0;
}

void ElementOverview::setNetworkWordFlag(int flag)
{
    if (networkTypeWord.isNull())
        networkTypeWord = flag;
    else if (!hasNetworkWordFlag(flag))
        networkTypeWord = networkTypeWord.getData() + flag;
}

void ElementOverview::setNetworkTypeFromString(base::DbDataType<std::string> name)
{
    networkTypeWord = networkTypeNamed(name.getData(), &NetworkTypeName::shortName);
}

void ElementOverview::setNetworkTypeFromFullString(base::DbDataType<std::string> name)
{
    networkTypeWord = networkTypeNamed(name.getData(), &NetworkTypeName::fullName);
}

void ElementOverview::removeSuperiorFromUniqueLinks()
{
    uniqueLinks.removeFirstElementOfType(element.superiorType());
}

void ElementOverview::setLinkModStateFromApvState()
{
    if (element.isLocalData()) {
        linkModificationState = LinkModification_LocalData;
        return;
    }
    if (element.hasApvState(Apv_CollocationMemberInMdl))
        setIsMemberOfCollocationGroupInMdl();
    if (element.hasApvState(Apv_CollocationMemberInApl))
        setIsMemberOfCollocationGroupInApl();
    if (element.hasApvState(Apv_CollocationGroupNotApproved))
        setHasNotApprovedCollocationGroup();
    if (element.isNetworkMemberType()) {
        if (element.hasApvState(Apv_NetworkMemberInMdl))
            setIsMemberOfNetworkInMdl();
        if (element.hasApvState(Apv_NetworkMemberInApl))
            setIsMemberOfNetworkInApl();
    }
    if (element.hasApvState(Apv_AllLinksApproved)) {
        // An approved element with approved links keeps whatever link state it has.
        if (!isApproved())
            linkModificationState = LinkModification_ToApprove;
        return;
    }
    linkModificationState = element.type() == kNetworkElementType ? networkLinkState(element)
                                                                   : LinkModification_NotApproved;
}

base::DbDataType<std::string> ElementOverview::networkTypeAsString() const
{
    return networkTypeAsString(networkType());
}

base::DbDataType<std::string> ElementOverview::networkTypeAsFullString() const
{
    return networkTypeAsFullString(networkType());
}

base::DbDataType<std::string> ElementOverview::networkTypeAsString(int type)
{
    return networkTypeName(type, &NetworkTypeName::shortName);
}

base::DbDataType<std::string> ElementOverview::networkTypeAsFullString(int type)
{
    return networkTypeName(type, &NetworkTypeName::fullName);
}

bool ElementOverview::decidedAsLocalData(bool &possible) const
{
    if (linkModificationState.isNull() || linkModificationState.getData() != LinkModification_LocalData)
        return false;
    possible = element.type() != kNetworkElementType
        && isOneOf(modificationState, {Modification_LinkApprovalPending});
    return true;
}

bool ElementOverview::approveAcceptPossible() const
{
    bool possible = false;
    if (decidedAsLocalData(possible))
        return possible;
    if (!isOneOf(modificationState, {Modification_DeletedInMdl}))
        return true;
    // A deleted element that is still a member of a network or of a collocation group in the
    // APL cannot be accepted on its own.
    if (networkTypeWord.isNull())
        return true;
    if (isMemberOfNetworkInApl())
        return false;
    return !isMemberOfCollocationGroupInApl();
}

bool ElementOverview::approveRejectPossible() const
{
    bool possible = false;
    if (decidedAsLocalData(possible))
        return possible;
    if (!isOneOf(modificationState, {Modification_ChangedInMdl}))
        return true;
    // A changed element that is a member of a network or of a collocation group in the MDL
    // cannot be rejected on its own.
    if (networkTypeWord.isNull())
        return true;
    if (isMemberOfNetworkInMdl()) {
        diagnostic("isMemberOfNetworkInMdl\n");
        return false;
    }
    return !isMemberOfCollocationGroupInMdl();
}

SigdbElement ElementOverview::approveDefinition(bool approve) const
{
    SigdbElement request;
    request.setType(element.type());
    request.setTID(element.TID());
    request.setExchgId(exchgIdText);
    request.setApprovalTypeFromModState(modificationState(), approve);
    return request;
}

std::string ElementOverview::getKey() const
{
    return getKey(keyText1.getData(), keyText2.getData(), element.type());
}

std::string ElementOverview::getKey(const std::string &a, const std::string &b, int type)
{
    const SigdbTable &table = SigdbTableSpace::instance().tableForType(type);
    if (table.hasColumnWithId(kKeyColumnId))
        return a + b;
    return QStringLiteral("type %1-r%2").arg(type).arg(table.columnReplace(kKeyColumnId)).toStdString();
}

bool operator==(const ElementOverview &a, const ElementOverview &b)
{
    return a.element == b.element
        && a.keyText1 == b.keyText1
        && a.keyText2 == b.keyText2
        && a.keyText3 == b.keyText3
        && a.locationIndication == b.locationIndication
        && a.modificationState == b.modificationState
        && a.collocationModificationState() == b.collocationModificationState()
        && a.linkModificationState == b.linkModificationState
        && a.networkTypeWord == b.networkTypeWord
        && a.auxiliaryTid == b.auxiliaryTid
        && a.location == b.location
        && a.locationList == b.locationList
        && a.uniqueLinks == b.uniqueLinks
        && a.relatedElement == b.relatedElement
        && a.exchgIdText == b.exchgIdText
        && a.infoText2 == b.infoText2
        && a.infoText3 == b.infoText3
        && a.infoText4 == b.infoText4
        && a.collocationGroupLeader == b.collocationGroupLeader;
}

bool operator!=(const ElementOverview &a, const ElementOverview &b)
{
    return !(a == b);
}

} // namespace sigdb
