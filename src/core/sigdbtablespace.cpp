#include "core/sigdbtablespace.h"

namespace sigdb {

namespace {

// Columns that every element table of the default schema has, in table order.
struct DefaultColumn
{
    int id;
    const char *dbName;
    bool write;
    int createdByInterface;
};

const DefaultColumn kCommonColumns[] = {
    {5, "IDENT", true, 0},            // identifier shown to users
    {7, "REMARK_A", true, 0},         // remarks compared only on request
    {8, "REMARK_B", true, 0},
    {9, "REMARK_C", true, 0},
    {11, "VALID_FROM", true, 0},      // validity period
    {12, "VALID_TO", true, 0},
    {13, "VALIDITY_SOURCE", true, 0},
    {15, "CLASSIFICATION", true, 0},  // classification marks
    {16, "RELEASABILITY", true, 0},
    {503, "EXCHGID", false, 0},       // exchange id, given by the server
    {513, "ALIASES", true, 0},        // multi-valued text
    {518, "LOCATIONS", true, 0},      // location history
    {550, "HISTORY", true, 0},        // change history, never compared
    {561, "TEAMS", true, 0},          // multi-valued text
    {567, "CREATED_AT", false, 0},    // bookkeeping of the server
    {568, "MODIFIED_AT", false, 0},
    {573, "MODIFIED_BY", false, 0},
    {599, "INTERFACE_INFO", true, 40000}, // filled by the import interface
};

struct DefaultTable
{
    int type;
    const char *typeName;
    const char *prefix;
    const char *abbreviation;
    int superiorType;
    bool keyColumn;      // has the key column 17
    bool collocatable;
    bool networkMember;
    bool localData;
};

const DefaultTable kTables[] = {
    {1, "Unit", "CORE", "UNI", 2, true, true, true, false},
    {2, "Platform", "CORE", "PLA", 0, true, true, true, false},
    {3, "Transceiver", "CORE", "TRX", 1, true, true, false, false},
    {4, "Network", "CORE", "NET", 0, true, false, false, false},
    {5, "Profile", "REF", "PRO", 0, true, false, false, false},
    {6, "Function", "REF", "FCT", 0, true, false, false, false},
    {12, "Sensor", "REF", "SEN", 0, false, false, false, false},
    {24, "CollocationGroup", "CORE", "CGR", 0, true, false, false, false},
    {26, "ProfileList", "REF", "PRL", 0, true, false, false, false},
    {27, "TspPartner", "REF", "TSP", 0, true, false, false, false},
    {29, "Plot", "LOC", "PLT", 0, true, false, false, true},
    {30, "Connection", "CORE", "CON", 4, false, false, false, false},
    {63, "Carrier", "AUX", "CAR", 0, true, false, false, false},
    {65, "CarrierProfile", "AUX", "CAP", 0, true, false, false, false},
    {86, "ModeSet", "AUX", "MOS", 0, true, false, false, false},
    {87, "ModeProfile", "AUX", "MOP", 0, true, false, false, false},
    {88, "Mode", "AUX", "MOD", 0, true, false, false, false},
    {90, "Channel", "AUX", "CHA", 0, true, false, false, false},
    {91, "ChannelSet", "AUX", "CHS", 0, true, false, false, false},
    {92, "Medium", "AUX", "MED", 0, true, false, false, false},
    {93, "MediumSet", "AUX", "MES", 0, true, false, false, false},
    {105, "ModeMaster", "AUX", "MOM", 0, true, false, false, false},
    {112, "Scheme", "AUX", "SCH", 0, true, false, false, false},
    {113, "SchemeSet", "AUX", "SCS", 0, true, false, false, false},
    {125, "ModePattern", "AUX", "MPA", 0, true, false, false, false},
};

struct DefaultLink
{
    int typeA;
    int typeB;
    bool unique;
};

const DefaultLink kLinks[] = {
    {4, 1, false},   {4, 2, false},   // network members
    {4, 5, false},                    // network profile
    {5, 26, false},                   // profile list entries
    {3, 5, false},                    // transceiver profile (reserved1)
    {29, 3, false},                   // plot transceiver target
    {1, 6, false},                    // function of a unit
    {2, 1, true},    {1, 3, true},    // superior links
    {1, 1, true},                     // hierarchy of units
    {1, 2, false},   {2, 2, false},   {3, 2, false},
    {27, 1, false},  {27, 2, false},  {27, 3, false}, {27, 4, false}, // TSP partners
    {1, 63, false},  {63, 65, false}, {88, 87, false}, {90, 91, false},
    {92, 93, false}, {87, 86, false}, {105, 88, false}, {125, 88, false},
    {112, 113, false},
};

} // namespace

SigdbTableSpace &SigdbTableSpace::instance()
{
    static SigdbTableSpace space;
    return space;
}

SigdbTableSpace::SigdbTableSpace()
{
    loadDefaultSchema();
}

const SigdbTable &SigdbTableSpace::tableForType(int type) const
{
    static const SigdbTable unknown;
    const auto found = m_tables.find(type);
    return found == m_tables.end() ? unknown : found->second;
}

bool SigdbTableSpace::hasTableForType(int type) const
{
    return m_tables.count(type) != 0;
}

std::vector<int> SigdbTableSpace::types() const
{
    std::vector<int> result;
    result.reserve(m_tables.size());
    for (const auto &entry : m_tables)
        result.push_back(entry.first);
    return result;
}

bool SigdbTableSpace::isValidLinkType(int typeA, int typeB) const
{
    return m_linkTypes.count({typeA, typeB}) != 0;
}

bool SigdbTableSpace::isUniqueLinkType(int typeA, int typeB) const
{
    const auto found = m_linkTypes.find({typeA, typeB});
    return found != m_linkTypes.end() && found->second.unique;
}

std::string SigdbTableSpace::linkTableName(int typeA, int typeB) const
{
    const auto found = m_linkTypes.find({typeA, typeB});
    if (found != m_linkTypes.end() && !found->second.tableName.empty())
        return found->second.tableName;
    const SigdbTable &a = tableForType(typeA);
    const SigdbTable &b = tableForType(typeB);
    return a.tablePrefix() + a.tableAbbrevation() + b.tableAbbrevation() + "LINK";
}

void SigdbTableSpace::clear()
{
    m_tables.clear();
    m_linkTypes.clear();
}

void SigdbTableSpace::loadDefaultSchema()
{
    clear();
    for (const DefaultTable &t : kTables) {
        SigdbTable table(t.type, t.typeName, t.prefix, t.abbreviation);
        for (const DefaultColumn &c : kCommonColumns) {
            table.addColumn(SigdbColumn(c.id, c.dbName, c.write, c.createdByInterface));
            if (c.id == 16 && t.keyColumn)
                table.addColumn(SigdbColumn(17, "KEYNAME"));
        }
        if (!t.keyColumn)
            table.setColumnReplace(17, 5); // the identifier stands in for the missing key
        table.setSuperiorType(t.superiorType);
        table.setCanBeCollocated(t.collocatable);
        table.setNetworkMemberType(t.networkMember);
        table.setLocalData(t.localData);
        if (t.type == 4)
            table.addColumn(SigdbColumn(582, "HIERARCHICAL"));
        if (t.type == 5) {
            table.addColumn(SigdbColumn(586, "PARAMETER_SETS"));
            table.addColumn(SigdbColumn(590, "MODES"));
            table.setTableIncludeType(86);
            table.addOrderedLinkType(26);
        }
        addTable(table);
    }
    for (const DefaultLink &l : kLinks)
        addLinkType(l.typeA, l.typeB, l.unique);
}

void SigdbTableSpace::addTable(const SigdbTable &table)
{
    m_tables[table.type()] = table;
}

void SigdbTableSpace::addLinkType(int typeA, int typeB, bool unique, const std::string &tableName)
{
    LinkType &link = m_linkTypes[{typeA, typeB}];
    link.unique = unique;
    link.tableName = tableName;
}

} // namespace sigdb
