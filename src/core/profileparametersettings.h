#ifndef SIGDB_CORE_PROFILEPARAMETERSETTINGS_H
#define SIGDB_CORE_PROFILEPARAMETERSETTINGS_H

#include "sigdbcore_export.h"

#include "base/dbdatatype.h"

#include <vector>

namespace sigdb {

/// Which parameters of a profile are set, whether the settings are valid, and the parameter
/// set they belong to.
class SIGDBCORE_EXPORT ProfileParameterSettings
{
public:
    /// Fixed column id of the parameter set column in the details encoding.
    static constexpr int ParameterSetColumnId = 4712;

    ProfileParameterSettings();

    /// Whether the settings are valid.
    bool isValid() const { return m_valid; }
    /// Marks the settings valid or not.
    void setValid(bool valid) { m_valid = valid; }
    /// One flag per parameter of the profile: whether it is set.
    const std::vector<bool> &boolVector() const { return m_flags; }
    /// Replaces the flags of the parameters.
    void setBoolVector(const std::vector<bool> &flags) { m_flags = flags; }
    /// The parameter set the settings belong to.
    base::DbDataType<unsigned long long> &parameterSet() { return m_parameterSet; }
    /// The parameter set, read-only.
    const base::DbDataType<unsigned long long> &parameterSet() const { return m_parameterSet; }

private:
    std::vector<bool> m_flags;
    bool m_valid = false;
    base::DbDataType<unsigned long long> m_parameterSet;
};

SIGDBCORE_EXPORT bool operator==(const ProfileParameterSettings &a, const ProfileParameterSettings &b);

} // namespace sigdb

#endif
