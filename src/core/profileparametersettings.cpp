#include "core/profileparametersettings.h"

namespace sigdb {

ProfileParameterSettings::ProfileParameterSettings()
{
    m_parameterSet.setID(ParameterSetColumnId);
}

bool operator==(const ProfileParameterSettings &a, const ProfileParameterSettings &b)
{
    return a.isValid() == b.isValid() && a.boolVector() == b.boolVector()
        && a.parameterSet() == b.parameterSet();
}

} // namespace sigdb
