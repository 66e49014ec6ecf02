#ifndef SIGDB_NETWORK_CALLSIGNTABLE_H
#define SIGDB_NETWORK_CALLSIGNTABLE_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "element/elementoverview.h"
#include "network/callsignset.h"
#include "network/connectionentry.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace sigdb {

/// The callsign table of one network: its connections, its callsign sets (entry i of every set
/// holds the callsigns of connection i) and the overview of the network element.
///
/// Besides the record operations the table knows how to merge an edited copy into itself
/// (marking every connection with what changed), how to turn itself into a star or into a
/// hierarchy around a centre element, and its text form, in which it travels inside element
/// details. Its own serialize() writes nothing.
///
/// The table algorithms print their diagnostics on the library's diagnostic output.
class SIGDBREF_EXPORT CallsignTable : public base::DbBaseType
{
public:
    CallsignTable();
    /// A copy of \a other.
    CallsignTable(const CallsignTable &other);
    /// Takes over the contents of \a other without copying them.
    CallsignTable(CallsignTable &&other) = default;
    ~CallsignTable() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    CallsignTable &operator=(const CallsignTable &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// No connections, no sets, a default overview.
    void reset() override;
    /// Writes nothing: the table travels as text inside element details (toText()).
    void serialize(QByteArray &out) const override;
    /// Passes \a layer to every connection and to every entry of every set; the table keeps
    /// its own layer.
    void setLayer(int layer) override;
    /// The connections chained from \a start + 1 (the list's start id), then the sets from the
    /// connections' result; returns the sets' result.
    int setIDs(int start);

    /// Marks every connection new (state 5) by \a user and clears its TID, so that the server
    /// stores the whole table afresh.
    void setAllNew(base::DbDataType<std::string> user);
    /// A copy of this table with setAllNew(\a user) done on it; this table is unchanged.
    CallsignTable cloneAsNew(base::DbDataType<std::string> user) const;

    /// Merges \a edited into this stored table: every stored connection gets a modification
    /// state (0 unchanged, 1 changed, 2 only the to element changed, 3 both, 4 removed) and,
    /// when changed, \a user as its modification user; connections of \a edited without TID
    /// (and, with \a addNew, those whose TID this table does not know) are appended as new
    /// (5). The sets are rebuilt from those of \a edited in the connection order of the merged
    /// table; their texts are not carried over. A stored table whose connection has no TID is
    /// replaced by \a edited with every connection new. \a edited is changed as well (states
    /// and positions of its connections).
    void mergeTable(CallsignTable &edited, base::DbDataType<std::string> user, bool addNew);

    /// Joins \a callsign into \a target with "/" unless it is empty or already present. Presence
    /// is a plain text search for callsign + "/" or "/" + callsign, so AB counts as present in
    /// CAB/X; this is intended. An empty or NULL \a target simply takes \a callsign.
    static void addCallsign(base::DbDataType<std::string> &target, base::DbDataType<std::string> callsign);

    /// The RCS ends of the network: per connection the from end, then the to end, when its
    /// element is defined, it is an RCS, and its element was not taken before.
    std::vector<ConnectionEntryDefinition> mainEntryList() const;

    /// The network as a star: one new connection per distinct element found at any end, with
    /// that element as its from end and the "/"-joined callsigns of all its occurrences; one
    /// set with the gathered callsigns; network type star. Callsigns come from the first set
    /// only. This table is unchanged.
    CallsignTable asStar() const;
    /// The network as a hierarchy around \a centre (when undefined, the centre chosen by
    /// ConnectionEntryList::getFirstElementdefinitionOrRCS()): one new connection from the
    /// centre to every other element, whose callsign entry carries the centre's gathered
    /// callsigns as first and second and the member's own as third and fourth; network type
    /// hierarchical. A centre that the table does not name yields a plain copy. A connection
    /// for which the first set holds no entry contributes nothing. This table is unchanged.
    CallsignTable asHierarchical(const SigdbElement &centre) const;

    /// The escaped, level-joined text form of the table (see CallsignTableText).
    QString toText() const;
    /// Rebuilds the table from its text form; false when the text is malformed (the table then
    /// holds what could be read).
    bool fromText(const QString &text);
    /// toText() as UTF-8, as element details carry it.
    QByteArray toUtf8Text() const;
    /// fromText() from UTF-8 bytes.
    bool fromUtf8Text(const QByteArray &text);

    /// The connections of the network, in table order.
    ConnectionEntryList connections;
    /// Entry i of every set belongs to connection i.
    CallsignSetList sets;
    /// The overview of the network element.
    ElementOverview overview;
};

/// Connections equal regardless of order, sets equal in order, overviews equal.
SIGDBREF_EXPORT bool operator==(const CallsignTable &a, const CallsignTable &b);
SIGDBREF_EXPORT bool operator!=(const CallsignTable &a, const CallsignTable &b);

} // namespace sigdb

#endif
