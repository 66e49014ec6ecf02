#ifndef SIGDB_ELEMENT_ELEMENTDETAILS_H
#define SIGDB_ELEMENT_ELEMENTDETAILS_H

#include "sigdbref_export.h"

#include "auxiliary/referencedocument.h"
#include "core/sigdbelementdetails.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "element/refiodata.h"
#include "network/callsigntable.h"

#include <memory>
#include <string>

namespace sigdb {

/// The full record of one element: all its column values by column id (the inherited
/// SigdbElementDetails) plus what a client needs around them: the element definition used for
/// requests, reference documents, the element's network (its overview list, callsign table
/// and network overview), its collocation group, the currently selected included detail, an
/// optional input/output data object and whether a new element gets an exchange id.
///
/// Column ids of the schema that this record reads: 503 (exchange id), 513, 550, 561
/// (multi-valued texts), 518 (locations), 567, 568, 573 (bookkeeping of the server), 582
/// (hierarchical network flag), 586 and 590 (included parameter rows), and 5, 7 to 9, 11 to
/// 13, 15, 16 (column groups that testCompare() compares only on request).
class SIGDBREF_EXPORT ElementDetails : public SigdbElementDetails
{
public:
    ElementDetails();
    /// A copy of \a other.
    ElementDetails(const ElementDetails &other);
    /// Takes over the contents of \a other without copying them.
    ElementDetails(ElementDetails &&other) = default;
    /// The inherited part copied from \a details; every added field takes its default.
    explicit ElementDetails(const SigdbElementDetails &details);
    ~ElementDetails() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElementDetails::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementDetails &operator=(const ElementDetails &other);
    /// Assigns the element part only (identity, type, states, layer); the column values and
    /// every other field stay as they are, also when the type changes (setType() lays the
    /// columns out for a new type).
    SigdbElement &operator=(const SigdbElement &element) override;

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Prepares the details for use as a new element: drops the ioData object, resets the
    /// element's identity and bookkeeping (type and column values stay), sets the columns 503,
    /// 567, 568 and 573 NULL and asks for an exchange id again.
    void reset() override;
    /// As reset(), but the ioData object is kept.
    void resetPartial();

    /// Numbers the record for the stream; returns m + 1, where m is one above the last id of
    /// the element definition (callers that chain details continue from this value).
    int setIDs(int start) override;

    // The definition sent with requests
    /// The element definition sent with requests for these details.
    SigdbElement elementDefinition() const { return m_elementDefinition; }
    /// Sets the element definition sent with requests.
    void setElementDefinition(const SigdbElement &element) { m_elementDefinition = element; }
    /// Resets the element definition.
    void resetDefinition() { m_elementDefinition.reset(); }
    /// A copy of the inherited column values.
    SigdbElementDetails sigdbElementDetails() const { return *this; }
    /// Whether the element has no type yet.
    bool isUndefinedType() const { return isTYPEundefined(); }

    // Carried records
    /// The number of these details within their list.
    base::DbDataType<int> &detailsNumber() { return m_detailsNumber; }
    /// The number of these details within their list, read-only.
    const base::DbDataType<int> &detailsNumber() const { return m_detailsNumber; }
    /// The documents the element refers to.
    ReferenceDocumentList &referenceDocuments() { return m_referenceDocuments; }
    /// The documents the element refers to, read-only.
    const ReferenceDocumentList &referenceDocuments() const { return m_referenceDocuments; }
    /// The overview list of the element's network.
    ElementOverviewList &networkList() { return m_networkList; }
    /// The overview list of the element's network, read-only.
    const ElementOverviewList &networkList() const { return m_networkList; }
    /// The callsign table of the element's network.
    CallsignTable &callsignTable() { return m_callsignTable; }
    /// The callsign table of the element's network, read-only.
    const CallsignTable &callsignTable() const { return m_callsignTable; }
    /// The overview of the element's network.
    ElementOverview &networkResult() { return m_networkResult; }
    /// The overview of the element's network, read-only.
    const ElementOverview &networkResult() const { return m_networkResult; }
    /// The TID of the collocation group the element belongs to; NULL when it belongs to none.
    base::DbDataType<unsigned long long> &collocationTID() { return m_collocationTID; }
    /// The TID of the collocation group, read-only.
    const base::DbDataType<unsigned long long> &collocationTID() const { return m_collocationTID; }
    /// The included detail currently selected for editing.
    SigdbElementDetails &currentSelectedIncludedDetails() { return m_currentSelectedIncludedDetails; }
    /// The included detail currently selected, read-only.
    const SigdbElementDetails &currentSelectedIncludedDetails() const { return m_currentSelectedIncludedDetails; }

    /// Never NULL: true when the element belongs to a collocation group (collocationTID set).
    base::DbDataType<bool> isCollocated() const;

    /// "Hierarchical" or "Star" from column 582; NULL while the column is NULL.
    base::DbDataType<std::string> networkTypeAsFullString() const;
    /// Sets column 582 from "Star" (false) or "Hierarchical" (true); anything else, NULL
    /// included, leaves it NULL. Details know only these two network types.
    void setNetworkTypeFromFullString(base::DbDataType<std::string> type);

    /// The ioData object, created first when there is none.
    RefIoData &ioData();
    /// Whether the ioData object exists.
    bool ioDataEnabled() const { return m_ioData != nullptr; }
    /// Creates the ioData object (on) or deletes it (off).
    void setIoDataEnabled(bool on);

    /// Asks (or not) that the server create an exchange id for the element when it is new.
    void setCreateExchgIdForNewElement(bool create) { m_createExchgIdForNewElement = create; }
    /// Whether the server is to create an exchange id for the element when it is new. A flag
    /// set false is overridden (with a diagnostic) when the element has no usable exchange id.
    bool createExchgIdForNewElement() const;

    /// Selects the first included detail, or a fresh one of the included type when there is
    /// none (only for types that include a table).
    void initCurrentSelectedIncludedDetails();
    /// Puts the multi-valued texts, the included parameter rows and the locations in order, so
    /// that two records can be compared column by column.
    void sortLists();
    /// A new record of \a type holding every column value that both types' tables share.
    ElementDetails convertToType(int type) const;

    /// Compares this record with \a other column by column and returns a readable report of
    /// every difference in a writable column; empty when there is none. Both records are
    /// sorted first (sortLists()).
    ///
    /// \a identity compares the identifier column 5. \a identity and \a strict together make
    /// NULL against a blank value ("", "F", "N_") count as a difference and enable the
    /// optional groups \a remarks (columns 7 to 9) and \a classification (15 and 16);
    /// \a validity enables columns 11 to 13 on its own; \a network adds the callsign table
    /// and the network overview.
    std::string testCompare(ElementDetails &other, bool identity, bool strict, bool network,
                            bool remarks, bool validity, bool classification);

private:
    void resetKeepingIoData();

    SigdbElement m_elementDefinition;
    base::DbDataType<int> m_detailsNumber;
    ReferenceDocumentList m_referenceDocuments;
    ElementOverviewList m_networkList;
    CallsignTable m_callsignTable;
    ElementOverview m_networkResult;
    base::DbDataType<unsigned long long> m_collocationTID;
    SigdbElementDetails m_currentSelectedIncludedDetails;
    std::unique_ptr<RefIoData> m_ioData;
    base::DbDataType<bool> m_createExchgIdForNewElement;
};

/// Equal when both or neither have ioData, the inherited column values, the definitions,
/// detail numbers, reference documents, callsign tables, collocation TIDs and network lists
/// are equal. The network overview, the selected included detail and the exchange-id flag
/// take no part.
SIGDBREF_EXPORT bool operator==(const ElementDetails &a, const ElementDetails &b);
SIGDBREF_EXPORT bool operator!=(const ElementDetails &a, const ElementDetails &b);

} // namespace sigdb

#endif
