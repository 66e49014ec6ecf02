#ifndef SIGDB_CORE_SIGDBELEMENTDETAILS_H
#define SIGDB_CORE_SIGDBELEMENTDETAILS_H

#include "sigdbcore_export.h"

#include "core/elementbase.h"
#include "core/locationentry.h"
#include "core/profileparametersettings.h"

#include <string>
#include <vector>

namespace sigdb {

/// The column values of one element, held as texts in the column order of the element type's
/// table, together with the rows of its included table (included details), its location
/// history and its profile parameter settings.
///
/// Details encoding (this record inside reference records):
///
///     element part | tag 4382 size 2 count, column texts | tag 4197 size 2 count, included
///     details (each numbered from 0, recursively) | profile flags under tag 4711 |
///     tag 4713 size 1 validity | parameter set column (id 4712)
///
/// Column texts that are not NULL travel under tag 0, NULL texts under their own id; the
/// values carry id 0, so both read back alike. At most 32,767 texts or included details fit
/// the 16-bit counts; more are not written.
class SIGDBCORE_EXPORT SigdbElementDetails : public ElementBaseName
{
public:
    static constexpr int ColumnTextsTag = 4382;
    static constexpr int IncludedDetailsTag = 4197;
    static constexpr int ProfileFlagsTag = 4711;
    static constexpr int ProfileValidTag = 4713;

    SigdbElementDetails();
    SigdbElementDetails(const SigdbElementDetails &other);
    SigdbElementDetails(SigdbElementDetails &&other) = default;
    explicit SigdbElementDetails(const SigdbElement &element);
    ~SigdbElementDetails() override;

    using SigdbElement::operator=;
    SigdbElementDetails &operator=(const SigdbElementDetails &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    /// Writes the details encoding, numbered from 0.
    void serialize(QByteArray &out) const override;
    /// Sets the type and lays the column store out for the new type's table: columns both
    /// tables have keep their values, the others start NULL.
    void setType(int type) override;
    /// Sets the layer of these details and of every included detail.
    void setLayer(int layer) override;

    void writeTo(ColumnWriter &writer) const;
    /// Reads the details encoding; included details nest at most ColumnReader::MaxNesting deep.
    bool readFrom(ColumnReader &reader);

    /// The text value of column \a columnId; \a ok (when given) tells whether the column
    /// exists. For a missing column a scratch value is returned.
    base::DbDataType<std::string> &str(int columnId, bool *ok = nullptr);
    const base::DbDataType<std::string> &str(int columnId, bool *ok = nullptr) const;
    /// The text of column \a columnId ("" for NULL or a missing column).
    const char *c_str(int columnId, bool *ok = nullptr) const;
    bool isNull(int columnId, bool *ok = nullptr) const;
    void setNull(int columnId, bool *ok = nullptr);
    /// A column read as a flag: "T" is true.
    bool getBool(int columnId, bool *ok = nullptr) const;
    /// Writes "T" or "F" into column \a columnId; false when the column does not exist.
    bool setBool(int columnId, bool value);

    /// All column values in table column order.
    const std::vector<base::DbDataType<std::string>> &allData() const { return m_columns; }
    void setAllData(std::vector<base::DbDataType<std::string>> data);

    const std::vector<SigdbElementDetails> &includedDetails() const { return m_included; }
    /// Included detail \a index; a scratch detail for a bad index.
    SigdbElementDetails &includedDetailsAt(int index);
    void setIncludedDetails(const std::vector<SigdbElementDetails> &details);
    /// Sorts the included details by the text of column \a columnId, read as a number.
    void sortIncludedDetailsByColumnId(int columnId);
    /// The largest value of column \a columnId over the included details; -1 when none has one.
    int getIncludedDetailsMaxValueForColumnId(int columnId);

    bool hasTableIncludeType() const;
    int tableIncludeType() const;

    /// Multi-valued texts are joined with ";"; this sorts the values of column \a columnId.
    void sortStrVector(int columnId, bool *ok = nullptr);

    LocationEntryList locationEntryList() const { return m_locations; }
    void setLocationEntryList(LocationEntryList &list) { m_locations = list; }

    ProfileParameterSettings &profileParameterSettings() { return m_profile; }
    const ProfileParameterSettings &profileParameterSettings() const { return m_profile; }

    /// Marks details that carry what the approval of a linked pair needs.
    bool hasApprovalData() const { return m_approvalData; }
    void setApprovalData(bool on) { m_approvalData = on; }

    /// The separator of multi-valued texts.
    static constexpr char ValueSeparator = ';';

private:
    bool readNested(ColumnReader &reader);
    int columnSlot(int columnId) const;

    std::vector<base::DbDataType<std::string>> m_columns;
    std::vector<SigdbElementDetails> m_included;
    LocationEntryList m_locations;
    ProfileParameterSettings m_profile;
    bool m_approvalData = false;
    base::DbDataType<std::string> m_scratch;
};

SIGDBCORE_EXPORT bool operator==(const SigdbElementDetails &a, const SigdbElementDetails &b);
SIGDBCORE_EXPORT bool operator!=(const SigdbElementDetails &a, const SigdbElementDetails &b);

} // namespace sigdb

#endif
