#ifndef SIGDB_CORE_SIGDBENUMS_H
#define SIGDB_CORE_SIGDBENUMS_H

// Enumerations of the core library. Only their numbers travel on the wire; the numbers are
// the ones the server uses and must not change.

namespace sigdb {

/// The approval action that an element carries in an approval request.
enum Approval_Action_Type : int {
    Approval_None = 0,
    Approval_Accept = 1,
    Approval_Reject = 2,
};

/// Modification state of an element or of its links.
enum Modification_State : int {
    Modification_Unchanged = 0,          ///< approved and untouched
    Modification_Approved = 1,           ///< approved
    Modification_LinkApprovalPending = 2, ///< only the links wait for approval
    Modification_ChangedInMdl = 3,       ///< changed in the MDL, not yet approved
    Modification_NewInMdl = 4,           ///< created in the MDL
    Modification_DeletedInMdl = 5,       ///< deleted in the MDL, not yet approved
    Modification_DeletedApproved = 6,    ///< deletion approved
    Modification_Unknown = 7,            ///< what a NULL state reads as
    Modification_Reserved = 8,
    LinkModification_LocalData = 9,      ///< local data: links are never approved
    LinkModification_ToApprove = 10,     ///< all links approved, element itself not
    LinkModification_NotApproved = 11,   ///< links wait for approval
    LinkModification_NetworkMembers = 12,
    LinkModification_NetworkProfiles = 13,
    LinkModification_NetworkMembersAndProfiles = 14,
    LinkModification_NetworkMembersAndPartners = 15,
    LinkModification_Reserved16 = 16,
    LinkModification_NetworkAll = 17,
    LinkModification_NetworkRemoved = 18,
    LinkModification_NetworkAllRemoved = 19,
};

/// Kind of location of an element; 4 and above mean that the element is collocated.
enum Location_Indication_Type : int {
    LocationIndication_None = 0,
    LocationIndication_Own = 1,
    LocationIndication_Estimated = 2,
    LocationIndication_Inherited = 3,
    LocationIndication_Collocated = 4,
    LocationIndication_CollocatedLeader = 5,
};

/// How a location entry was changed.
enum Location_Modification_Type : int {
    LocationModification_None = 0,
    LocationModification_New = 1,
    LocationModification_Changed = 2,
    LocationModification_Removed = 3,
};

/// Bits of the collocation modification state of a group or of a group member.
enum Collocation_Modification_State : int {
    CollocationMod_Unchanged = 1,
    CollocationMod_Approved = 2,
    CollocationMod_MembersChanged = 4,
    CollocationMod_SubgroupsChanged = 8,
    CollocationMod_MovedIn = 16,
    CollocationMod_MovedOut = 32,
    CollocationMod_LocationChanged = 64,
    CollocationMod_Deleted = 128,
    CollocationMod_New = 256,
    CollocationMod_LeaderChanged = 512,
};

/// The kind of sub-element list that a request asks for; only the number travels.
enum ElementList_Type : int {
    ElementList_Default = 0,
};

} // namespace sigdb

#endif
