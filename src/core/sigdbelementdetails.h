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
    /// Tag of the count frame of the column texts.
    static constexpr int ColumnTextsTag = 4382;
    /// Tag of the count frame of the included details.
    static constexpr int IncludedDetailsTag = 4197;
    /// Tag of the profile flags.
    static constexpr int ProfileFlagsTag = 4711;
    /// Tag of the profile validity.
    static constexpr int ProfileValidTag = 4713;

    SigdbElementDetails();
    /// A copy of \a other.
    SigdbElementDetails(const SigdbElementDetails &other);
    /// Takes over the contents of \a other without copying them.
    SigdbElementDetails(SigdbElementDetails &&other) = default;
    /// Details of \a element, with the columns of its type's table all NULL.
    explicit SigdbElementDetails(const SigdbElement &element);
    ~SigdbElementDetails() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Replaces the contents with a copy of \a other.
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

    /// Writes the details encoding.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the details encoding; included details nest at most ColumnReader::MaxNesting deep.
    bool readFrom(ColumnReader &reader);

    /// The text value of column \a columnId; \a ok (when given) tells whether the column
    /// exists. For a missing column a scratch value is returned.
    base::DbDataType<std::string> &str(int columnId, bool *ok = nullptr);
    /// The text value of column \a columnId, read-only.
    const base::DbDataType<std::string> &str(int columnId, bool *ok = nullptr) const;
    /// The text of column \a columnId ("" for NULL or a missing column).
    const char *c_str(int columnId, bool *ok = nullptr) const;
    /// Whether column \a columnId is NULL (true for a missing column).
    bool isNull(int columnId, bool *ok = nullptr) const;
    /// Makes column \a columnId NULL.
    void setNull(int columnId, bool *ok = nullptr);
    /// A column read as a flag: "T" is true.
    bool getBool(int columnId, bool *ok = nullptr) const;
    /// Writes "T" or "F" into column \a columnId; false when the column does not exist.
    bool setBool(int columnId, bool value);

    /// All column values in table column order.
    const std::vector<base::DbDataType<std::string>> &allData() const { return m_columns; }
    /// Replaces all column values, in table column order.
    void setAllData(std::vector<base::DbDataType<std::string>> data);

    /// The rows of the included table, each as details of their own.
    const std::vector<SigdbElementDetails> &includedDetails() const { return m_included; }
    /// Included detail \a index; a scratch detail for a bad index.
    SigdbElementDetails &includedDetailsAt(int index);
    /// Replaces the rows of the included table.
    void setIncludedDetails(const std::vector<SigdbElementDetails> &details);
    /// Sorts the included details by the text of column \a columnId, read as a number.
    void sortIncludedDetailsByColumnId(int columnId);
    /// The largest value of column \a columnId over the included details; -1 when none has one.
    int getIncludedDetailsMaxValueForColumnId(int columnId);

    /// Whether this element's type has an included table.
    bool hasTableIncludeType() const;
    /// The type of the included table; 0 for none.
    int tableIncludeType() const;

    /// Multi-valued texts are joined with ";"; this sorts the values of column \a columnId.
    void sortStrVector(int columnId, bool *ok = nullptr);

    /// The location history of the element.
    LocationEntryList locationEntryList() const { return m_locations; }
    /// Replaces the location history.
    void setLocationEntryList(LocationEntryList &list) { m_locations = list; }

    /// Which profile parameters are set.
    ProfileParameterSettings &profileParameterSettings() { return m_profile; }
    /// Which profile parameters are set, read-only.
    const ProfileParameterSettings &profileParameterSettings() const { return m_profile; }

    /// Marks details that carry what the approval of a linked pair needs.
    bool hasApprovalData() const { return m_approvalData; }
    /// Marks the details as carrying the approval data of a linked pair, or not.
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
