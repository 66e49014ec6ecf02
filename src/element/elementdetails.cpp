#include "element/elementdetails.h"

#include "core/diagnostics.h"
#include "core/sigdbtablespace.h"

#include <QString>

namespace sigdb {

namespace {

// Column ids of the schema that the details logic knows.
enum DetailsColumn : int {
    Column_Identifier = 5,
    Column_ExchangeId = 503,
    Column_Aliases = 513,
    Column_Locations = 518,
    Column_History = 550,
    Column_Teams = 561,
    Column_CreatedAt = 567,
    Column_ModifiedAt = 568,
    Column_ModifiedBy = 573,
    Column_Hierarchical = 582,
    Column_ParameterSets = 586,
    Column_Modes = 590,
};

// Columns filled by an import interface are never compared.
constexpr int kCreatedByImportInterface = 40000;
// The shortest exchange id that the server accepts.
constexpr size_t kMinimumExchangeIdLength = 3;

bool isBlankText(const std::string &text)
{
    return text.empty() || text == "F" || text == "N_";
}

} // namespace

ElementDetails::ElementDetails()
{
    ElementDetails::reset();
}

ElementDetails::ElementDetails(const ElementDetails &other)
    : SigdbElementDetails(other)
    , m_elementDefinition(other.m_elementDefinition)
    , m_detailsNumber(other.m_detailsNumber)
    , m_referenceDocuments(other.m_referenceDocuments)
    , m_networkList(other.m_networkList)
    , m_callsignTable(other.m_callsignTable)
    , m_networkResult(other.m_networkResult)
    , m_collocationTID(other.m_collocationTID)
    , m_currentSelectedIncludedDetails(other.m_currentSelectedIncludedDetails)
    , m_ioData(other.m_ioData ? std::make_unique<RefIoData>(*other.m_ioData) : nullptr)
    , m_createExchgIdForNewElement(other.m_createExchgIdForNewElement)
{
}

ElementDetails::ElementDetails(const SigdbElementDetails &details)
    : SigdbElementDetails(details)
{
    m_createExchgIdForNewElement = true;
}

ElementDetails::~ElementDetails() = default;

ElementDetails &ElementDetails::operator=(const ElementDetails &other)
{
    if (this == &other)
        return *this;
    SigdbElementDetails::operator=(other);
    m_elementDefinition = other.m_elementDefinition;
    m_detailsNumber = other.m_detailsNumber;
    m_referenceDocuments = other.m_referenceDocuments;
    m_networkList = other.m_networkList;
    m_callsignTable = other.m_callsignTable;
    m_networkResult = other.m_networkResult;
    m_collocationTID = other.m_collocationTID;
    m_currentSelectedIncludedDetails = other.m_currentSelectedIncludedDetails;
    m_ioData = other.m_ioData ? std::make_unique<RefIoData>(*other.m_ioData) : nullptr;
    m_createExchgIdForNewElement = other.m_createExchgIdForNewElement;
    return *this;
}

SigdbElement &ElementDetails::operator=(const SigdbElement &element)
{
    // The identity only: the column values stay exactly as they are, even when the type
    // changes. A caller who wants them laid out for the new type's table calls setType().
    SigdbElement::operator=(element);
    return *this;
}

base::DbBaseType *ElementDetails::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ElementDetails>(source);
}

void ElementDetails::reset()
{
    m_ioData.reset();
    resetKeepingIoData();
}

void ElementDetails::resetPartial()
{
    resetKeepingIoData();
}

void ElementDetails::resetKeepingIoData()
{
    const int keptType = type();
    ElementBaseName::reset();
    SigdbElement::setType(keptType);
    for (int column : {Column_ExchangeId, Column_CreatedAt, Column_ModifiedAt, Column_ModifiedBy})
        setNull(column);
    m_createExchgIdForNewElement = true;
}

int ElementDetails::setIDs(int start)
{
    const int n = ElementBaseName::setIDs(start);
    const int m = m_elementDefinition.setIDs(n) + 1;
    m_detailsNumber.setID(static_cast<unsigned int>(m));
    m_collocationTID.setID(static_cast<unsigned int>(m + 1));
    m_referenceDocuments.setIDs(m + 1);
    m_callsignTable.setIDs(m + 1);
    m_networkList.setIDs(m + 1);
    return m + 1;
}

base::DbDataType<bool> ElementDetails::isCollocated() const
{
    return base::DbDataType<bool>(!m_collocationTID.isNull());
}

base::DbDataType<std::string> ElementDetails::networkTypeAsFullString() const
{
    if (isNull(Column_Hierarchical))
        return base::DbDataType<std::string>();
    return base::DbDataType<std::string>(std::string(getBool(Column_Hierarchical) ? "Hierarchical" : "Star"));
}

void ElementDetails::setNetworkTypeFromFullString(base::DbDataType<std::string> type)
{
    setNull(Column_Hierarchical);
    if (type.isNull())
        return;
    if (type.getData() == "Star")
        setBool(Column_Hierarchical, false);
    else if (type.getData() == "Hierarchical")
        setBool(Column_Hierarchical, true);
}

RefIoData &ElementDetails::ioData()
{
    if (!m_ioData)
        m_ioData = std::make_unique<RefIoData>();
    return *m_ioData;
}

void ElementDetails::setIoDataEnabled(bool on)
{
    if (on)
        ioData();
    else
        m_ioData.reset();
}

bool ElementDetails::createExchgIdForNewElement() const
{
    if (m_createExchgIdForNewElement.isNull())
        return true;
    if (!exchgId().isNull() && exchgId().getData().size() >= kMinimumExchangeIdLength)
        return m_createExchgIdForNewElement.getData();
    if (m_createExchgIdForNewElement.getData())
        return true;
    diagnostic("ERROR createExchgIdForNewElement is false, but there is no exchgID for element %s\n",
               infoAsString().c_str());
    return true;
}

void ElementDetails::initCurrentSelectedIncludedDetails()
{
    if (!hasTableIncludeType())
        return;
    if (!includedDetails().empty()) {
        m_currentSelectedIncludedDetails = includedDetailsAt(0);
        return;
    }
    m_currentSelectedIncludedDetails = SigdbElementDetails();
    m_currentSelectedIncludedDetails.setType(tableIncludeType());
}

void ElementDetails::sortLists()
{
    for (int column : {Column_Teams, Column_Aliases, Column_History})
        sortStrVector(column);
    for (int column : {Column_ParameterSets, Column_Modes})
        sortIncludedDetailsByColumnId(column);
    if (hasColumnWithId(Column_Locations)) {
        LocationEntryList locations = locationEntryList();
        locations.sortByTime();
        setLocationEntryList(locations);
    }
}

ElementDetails ElementDetails::convertToType(int type) const
{
    ElementDetails result(*this);
    result.setType(type);
    const SigdbTable &from = SigdbTableSpace::instance().tableForType(this->type());
    const SigdbTable &to = SigdbTableSpace::instance().tableForType(type);
    for (int i = 0; i < from.allColumnCount(); ++i) {
        const int column = from.allColumnAt(i).id();
        if (to.hasColumnWithId(column))
            result.str(column) = str(column);
    }
    return result;
}

std::string ElementDetails::testCompare(ElementDetails &other, bool identity, bool strict, bool network,
                                        bool remarks, bool validity, bool classification)
{
    sortLists();
    other.sortLists();
    const bool lenientNulls = !identity || !strict;
    const bool compareRemarks = identity && strict && remarks;
    const bool compareClassification = identity && strict && classification;

    QString report;
    const SigdbTable &table = SigdbTableSpace::instance().tableForType(type());
    for (int i = 0; i < table.allColumnCount(); ++i) {
        const SigdbColumn &column = table.allColumnAt(i);
        const int id = column.id();
        const base::DbDataType<std::string> &mine = str(id);
        const base::DbDataType<std::string> &theirs = other.str(id);

        if (column.createdByInterface() == kCreatedByImportInterface)
            continue;
        if (id == Column_Identifier && !identity)
            continue;
        if (lenientNulls && mine.isNull() && !theirs.isNull() && isBlankText(theirs.getData()))
            continue;
        if ((id >= 7 && id <= 9 && !compareRemarks) || (id >= 11 && id <= 13 && !validity)
            || ((id == 15 || id == 16) && !compareClassification))
            continue;
        if (id == Column_Locations && locationEntryList().testCompare(other.locationEntryList()))
            continue;
        if (id == Column_History)
            continue;

        const bool matches = mine.isNull() ? theirs.isNull()
                                           : !theirs.isNull() && mine.getData() == theirs.getData();
        if (matches || !column.isWrite())
            continue;
        report += QStringLiteral("\nCOMPARING FAILED (isNull %2-%3) for column (id: %4) %1:\n")
                      .arg(QString::fromStdString(column.dbName()), QString::number(mine.isNull() ? 1 : 0),
                           QString::number(theirs.isNull() ? 1 : 0), QString::number(id));
        report += QString::fromStdString(mine.getData()) + QStringLiteral("---\n")
            + QString::fromStdString(theirs.getData()) + QStringLiteral("---");
    }

    if (network
        && (!m_callsignTable.connections.compareList(other.m_callsignTable.connections)
            || !m_callsignTable.sets.compareList(other.m_callsignTable.sets)
            || !(m_networkResult == other.m_networkResult)))
        report += QStringLiteral("\nCOMPARING FAILED: Callsign Table  \n");
    if (!(m_collocationTID == other.m_collocationTID))
        report += QStringLiteral("\nCOMPARING FAILED: collocationTID  \n");
    return report.toStdString();
}

bool operator==(const ElementDetails &a, const ElementDetails &b)
{
    return a.ioDataEnabled() == b.ioDataEnabled()
        && static_cast<const SigdbElementDetails &>(a) == static_cast<const SigdbElementDetails &>(b)
        && a.elementDefinition() == b.elementDefinition() && a.detailsNumber() == b.detailsNumber()
        && a.referenceDocuments().compareList(b.referenceDocuments())
        && a.callsignTable() == b.callsignTable() && a.collocationTID() == b.collocationTID()
        && a.networkList() == b.networkList();
}

bool operator!=(const ElementDetails &a, const ElementDetails &b)
{
    return !(a == b);
}

} // namespace sigdb
