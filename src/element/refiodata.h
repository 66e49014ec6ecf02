#ifndef SIGDB_ELEMENT_REFIODATA_H
#define SIGDB_ELEMENT_REFIODATA_H

#include "sigdbref_export.h"

#include <QByteArray>

#include <map>
#include <string>

namespace sigdb {

/// Input/output data that an application attaches to element details while it imports or
/// exports them: named texts and one raw payload. It is created on demand
/// (ElementDetails::ioData()), copied with the details, and never sent to the server.
class SIGDBREF_EXPORT RefIoData
{
public:
    RefIoData();

    /// The text stored under \a name; empty when there is none.
    std::string value(const std::string &name) const;
    /// Stores \a value under \a name, replacing what was there.
    void setValue(const std::string &name, const std::string &value);
    /// Whether a text is stored under \a name.
    bool hasValue(const std::string &name) const { return m_values.count(name) != 0; }
    /// All named texts, by name.
    const std::map<std::string, std::string> &values() const { return m_values; }

    /// The raw payload.
    const QByteArray &payload() const { return m_payload; }
    /// Replaces the raw payload.
    void setPayload(const QByteArray &payload) { m_payload = payload; }

    /// Forgets every text and the payload.
    void clear();

private:
    std::map<std::string, std::string> m_values;
    QByteArray m_payload;
};

SIGDBREF_EXPORT bool operator==(const RefIoData &a, const RefIoData &b);

} // namespace sigdb

#endif
