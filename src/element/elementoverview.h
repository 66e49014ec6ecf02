#ifndef SIGDB_ELEMENT_ELEMENTOVERVIEW_H
#define SIGDB_ELEMENT_ELEMENTOVERVIEW_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelement.h"
#include "core/sigdbenums.h"

#include <string>

namespace sigdb {

class ColumnReader;
class ColumnWriter;

/// A column whose value the element logic reads through a fixed reading for NULL: calling the
/// column, `column()`, gives the stored value, or \a NullReading while the column is NULL.
/// Everything else (assignment, NULL flag, column id, equality) is the plain column value.
template <typename T, T NullReading>
class StateColumn : public base::DbDataType<T>
{
public:
    using base::DbDataType<T>::DbDataType;
    using base::DbDataType<T>::operator=;

    /// The stored value, or NullReading while NULL.
    T operator()() const { return this->isNull() ? NullReading : this->getData(); }
};

/// A collocation modification state: a bit set of Collocation_Modification_State values that
/// reads as 0 while NULL.
class CollocationStateColumn : public StateColumn<int, 0>
{
public:
    using StateColumn<int, 0>::StateColumn;
    using StateColumn<int, 0>::operator=;

    /// Whether bit \a state is set; false while NULL.
    bool has(int state) const { return ((*this)() & state) != 0; }
    /// Sets bit \a state when it is absent (NULL reads as 0); the column is not NULL afterwards.
    /// Returns whether the bit was added.
    bool add(int state)
    {
        if (has(state))
            return false;
        *this = (*this)() + state;
        return true;
    }
    /// Clears bit \a state when it is present; a NULL column stays NULL.
    void remove(int state)
    {
        if (has(state))
            *this = this->getData() - state;
    }
};

/// The short record of one element as the server returns it for lists and searches, and as
/// the answer to getElementOverview, createElement and changeElement: the element's identity
/// with a few text columns, its modification states, its network type and memberships, its
/// location, its uniquely linked elements and its collocation data.
///
/// The fields are public column values. The three state columns can be called to read them
/// with the reading for NULL: `overview.modificationState()` is Modification_Unknown (7) while
/// the column is NULL, `overview.locationIndication()` is 0.
///
/// The network type and the membership flags share one word on purpose (networkTypeWord): the
/// type is the value 0..3 and the flags are the bits 16 to 256, so an element that carries any
/// flag reports network type 0.
class SIGDBREF_EXPORT ElementOverview : public base::DbBaseType
{
public:
    /// Membership flags of networkTypeWord.
    enum NetworkWordFlag : int {
        MemberOfNetworkInMdl = 16,
        MemberOfNetworkInApl = 32,
        MemberOfCollocationGroupInMdl = 64,
        MemberOfCollocationGroupInApl = 128,
        NotApprovedCollocationGroup = 256,
    };

    /// Network types held in the values 0..3 of networkTypeWord.
    enum NetworkType : int {
        NetworkType_None = 0,
        NetworkType_Unstructured = 1,
        NetworkType_Star = 2,
        NetworkType_Hierarchical = 3,
    };

    /// Approval-state bits of the element that the overview logic reads.
    enum ApprovalBit : int {
        Apv_NetworkMemberInMdl = 1,
        Apv_NetworkMemberInApl = 2,
        Apv_CollocationMemberInMdl = 4,
        Apv_CollocationMemberInApl = 8,
        Apv_AllLinksApproved = 1024,
        Apv_CollocationGroupNotApproved = 2048,
        // Link approval bits of networks (element type 4):
        Apv_NetworkMemberLinks = 4096,
        Apv_NetworkPartnerLinks = 8192,
        Apv_NetworkProfileLinks = 16384,
        Apv_NetworkLinksRemoved = 32768,
    };

    ElementOverview();
    /// A copy of \a other.
    ElementOverview(const ElementOverview &other);
    /// Takes over the contents of \a other without copying them.
    ElementOverview(ElementOverview &&other) = default;
    ~ElementOverview() override;
    using base::DbBaseType::operator=;
    /// Copies all twenty fields and the store type.
    ElementOverview &operator=(const ElementOverview &other);

    /// A new heap copy of \a source (an ElementOverview); the caller owns it.
    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Back to the default-constructed state (column ids already given are kept).
    void reset() override;
    /// Writes the stream form into \a out, numbered from 0.
    void serialize(QByteArray &out) const override;

    /// Numbers the column ids depth-first from \a start and returns the last id of the
    /// location; one id is left out before the location, and the location list continues
    /// after the location's ids.
    int setIDs(int start);

    /// Writes the stream form (no header).
    void writeTo(ColumnWriter &writer) const;
    /// Reads the stream form into this overview (numbered before); false at the first field
    /// that does not fit, or when the bytes end before the record does. Fields read before a
    /// failure keep their new values.
    bool readFrom(ColumnReader &reader);

    // State readings (locationIndication(), modificationState() and linkModificationState()
    // are the calls of the state columns below)
    /// The collocation modification bit set; 0 while NULL.
    int collocationModificationState() const { return collocationModState(); }
    /// Whether bit \a state is in the collocation modification state; false while NULL.
    bool hasCollocationModificationState(Collocation_Modification_State state) const;

    /// The network type 0..3; 0 while NULL and whenever a membership flag is set.
    int networkType() const;
    /// A location indication of 4 or more means that the element stands in a collocation group.
    bool isCollocated() const;
    /// Whether the element leads its collocation group; false while NULL.
    bool isCollocationGroupLeader() const;
    /// Whether elements of this type can stand in a collocation group at all.
    bool canBeCollocated() const { return element.canBeCollocated(); }
    /// Whether one of the uniquely linked elements is of the superior type of the element.
    bool hasSuperior() const;
    /// Whether any element is linked uniquely to this one.
    bool hasUniqueLink() const { return uniqueLinks.count() > 0; }
    /// Whether every link of the element is approved (approval bit 1024).
    bool allLinksAreApproved() const { return element.hasApvState(Apv_AllLinksApproved); }
    /// Modification state 5 or 6.
    bool isDeleted() const;
    /// Modification state 0, 1 or 6.
    bool isApproved() const;
    /// Approved, with all links approved and no unapproved collocation group.
    bool isCompletelyApproved() const;
    /// True unless the element is changed (3) or deleted (5, 6) in the MDL; true while NULL.
    bool isCurrentlyInMdlAndApl() const;

    // Membership flags of networkTypeWord; all false while the word is NULL.
    /// Whether the element is a network member in the MDL.
    bool isMemberOfNetworkInMdl() const { return hasNetworkWordFlag(MemberOfNetworkInMdl); }
    /// Whether the element is a network member in the APL.
    bool isMemberOfNetworkInApl() const { return hasNetworkWordFlag(MemberOfNetworkInApl); }
    /// Whether the element is a collocation group member in the MDL.
    bool isMemberOfCollocationGroupInMdl() const { return hasNetworkWordFlag(MemberOfCollocationGroupInMdl); }
    /// Whether the element is a collocation group member in the APL.
    bool isMemberOfCollocationGroupInApl() const { return hasNetworkWordFlag(MemberOfCollocationGroupInApl); }
    /// Whether the element's collocation group is not approved.
    bool hasNotApprovedCollocationGroup() const { return hasNetworkWordFlag(NotApprovedCollocationGroup); }

    // Modifiers
    /// Makes the element lead its group (or not); the column is not NULL afterwards.
    void setCollocationGroupLeader(bool leader) { collocationGroupLeader = leader; }
    /// Replaces the collocation modification bit set; not NULL afterwards.
    void setCollocationModificationState(int state) { collocationModState = state; }
    /// Adds bit \a state; adding any other state drops state 1 (unchanged), which holds only
    /// alone.
    void addCollocationModificationState(Collocation_Modification_State state);
    /// Removes bit \a state when present.
    void removeCollocationModificationState(Collocation_Modification_State state);

    /// Adds \a type arithmetically to the word (sets it while NULL).
    void addNetworkType(int type);
    // Membership flag setters: a NULL word becomes the flag alone, a flag already set stays
    // as it is, otherwise the flag is added to the word.
    /// Marks the element a network member in the MDL.
    void setIsMemberOfNetworkInMdl() { setNetworkWordFlag(MemberOfNetworkInMdl); }
    /// Marks the element a network member in the APL.
    void setIsMemberOfNetworkInApl() { setNetworkWordFlag(MemberOfNetworkInApl); }
    /// Marks the element a collocation group member in the MDL.
    void setIsMemberOfCollocationGroupInMdl() { setNetworkWordFlag(MemberOfCollocationGroupInMdl); }
    /// Marks the element a collocation group member in the APL.
    void setIsMemberOfCollocationGroupInApl() { setNetworkWordFlag(MemberOfCollocationGroupInApl); }
    /// Marks the element's collocation group as not approved.
    void setHasNotApprovedCollocationGroup() { setNetworkWordFlag(NotApprovedCollocationGroup); }
    /// Sets the word from "S", "H" or "U" (exact); any other text leaves type 0. Either way
    /// every membership flag is cleared.
    void setNetworkTypeFromString(base::DbDataType<std::string> name);
    /// As setNetworkTypeFromString() for "Star", "Hierarchical" and "Unstructured".
    void setNetworkTypeFromFullString(base::DbDataType<std::string> name);

    /// Removes the first uniquely linked element of the superior type of the element.
    void removeSuperiorFromUniqueLinks();
    /// Derives the link modification state (and the membership flags) from the approval bits
    /// of the element.
    void setLinkModStateFromApvState();

    // Network type names
    /// "U", "S" or "H" for the network type; NULL for type 0 and whenever a flag is set.
    base::DbDataType<std::string> networkTypeAsString() const;
    /// "Unstructured", "Star" or "Hierarchical"; NULL as for networkTypeAsString().
    base::DbDataType<std::string> networkTypeAsFullString() const;
    /// NULL for 0, "S" for 2, "H" for 3 and "U" for every other value.
    static base::DbDataType<std::string> networkTypeAsString(int type);
    /// NULL for 0, "Star" for 2, "Hierarchical" for 3 and "Unstructured" for every other value.
    static base::DbDataType<std::string> networkTypeAsFullString(int type);

    // Approval
    /// Whether an accept of the element's pending changes can be offered.
    bool approveAcceptPossible() const;
    /// Whether a reject of the element's pending changes can be offered; an element that is a
    /// network member in the MDL cannot be rejected alone (reported on the diagnostic output).
    bool approveRejectPossible() const;
    /// The element of an approval request (approveElement) for this overview.
    SigdbElement approveDefinition(bool approve) const;

    // Key
    /// The element key from keyText1, keyText2 and the element type.
    std::string getKey() const;
    /// \a a followed by \a b when the table of \a type has the key column 17; otherwise
    /// "type <type>-r<replacement column of 17>".
    static std::string getKey(const std::string &a, const std::string &b, int type);

    // Fields, in declaration order
    /// The element's identity.
    SigdbElement element;
    /// An element related to this one, for example the "from" end of a connection.
    SigdbElement relatedElement;
    /// Handed on as the exchange id of an approval request.
    base::DbDataType<std::string> exchgIdText;
    /// The second information text.
    base::DbDataType<std::string> infoText2;
    /// The third information text.
    base::DbDataType<std::string> infoText3;
    /// The fourth information text.
    base::DbDataType<std::string> infoText4;
    /// First part of the element key.
    base::DbDataType<std::string> keyText1;
    /// Second part of the element key.
    base::DbDataType<std::string> keyText2;
    /// Third part of the element key.
    base::DbDataType<std::string> keyText3;
    /// The kind of location; locationIndication() reads 0 while NULL.
    StateColumn<Location_Indication_Type, LocationIndication_None> locationIndication;
    /// The element's own modification state; modificationState() reads 7 while NULL.
    StateColumn<Modification_State, Modification_Unknown> modificationState;
    /// The state of the element's links; linkModificationState() reads 7 while NULL.
    StateColumn<Modification_State, Modification_Unknown> linkModificationState;
    /// Network type (0..3) and membership flags (NetworkWordFlag) in one word.
    base::DbDataType<int> networkTypeWord;
    /// A 64-bit id the server sends with the overview; carried, compared and streamed only.
    base::DbDataType<unsigned long long> auxiliaryTid;
    /// The element's location; for a collocation group the group's location.
    LocationEntry location;
    /// The element's location history.
    LocationEntryList locationList;
    /// Elements linked to this one by a unique link, the superior element among them.
    ElementList uniqueLinks;
    /// Whether the element leads its collocation group; setCollocationGroupLeader() sets it.
    base::DbDataType<bool> collocationGroupLeader;
    /// Position for ordered insertion into a list; not compared.
    base::DbDataType<int> orderNumber;
    /// The collocation modification bit set of the element.
    CollocationStateColumn collocationModState;

private:
    bool hasNetworkWordFlag(int flag) const;
    void setNetworkWordFlag(int flag);
    /// For local data (link state 9) the approval answer depends only on the element's type and
    /// state: returns true and sets \a possible then; false when the other rules decide.
    bool decidedAsLocalData(bool &possible) const;
};

/// Equal identities, columns, locations and linked elements; the collocation state compares
/// with NULL read as 0. The order number and the column ids take no part.
SIGDBREF_EXPORT bool operator==(const ElementOverview &a, const ElementOverview &b);
SIGDBREF_EXPORT bool operator!=(const ElementOverview &a, const ElementOverview &b);

} // namespace sigdb

#endif
