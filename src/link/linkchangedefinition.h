#ifndef SIGDB_LINK_LINKCHANGEDEFINITION_H
#define SIGDB_LINK_LINKCHANGEDEFINITION_H

#include "sigdbref_export.h"

#include "link/linkaction.h"
#include "link/linkentrylist.h"

#include <string>

namespace sigdb {

class ColumnReader;
class ColumnWriter;

/// A change of links between elements, as a client sends it with RefInterface::changeLink()
/// and as the server's answer carries it back to RefCallback::callbackLinkChanged(): two link
/// actions and the user who made the change.
///
/// Encoded, after setIDs(0), as
///
///     modification user (id 1) | link 1 | link 2
///
/// with each link in its link-change form (see LinkAction).
class SIGDBREF_EXPORT LinkChangeDefinition : public base::DbBaseType
{
public:
    /// Two undefined links, no modification user.
    LinkChangeDefinition();
    /// A copy of \a other.
    LinkChangeDefinition(const LinkChangeDefinition &other);
    /// Takes over the contents of \a other without copying them.
    LinkChangeDefinition(LinkChangeDefinition &&other) = default;
    ~LinkChangeDefinition() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    LinkChangeDefinition &operator=(const LinkChangeDefinition &other);

    /// A new heap copy of \a source (a default definition when it is of another type).
    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Does nothing: a link change is filled once and sent, never reused.
    void reset() override;
    /// Writes the record numbered from 0.
    void serialize(QByteArray &out) const override;
    /// Sets the layer of both links (and so of their ends) and of the definition itself.
    void setLayer(int layer) override;

    /// Numbers the modification user (\a startId + 1), then link 1 from there and link 2 from
    /// link 1's result; returns link 2's result.
    int setIDs(int startId);

    /// Writes user, link 1 and link 2.
    void writeTo(ColumnWriter &writer) const;
    /// Reads user, link 1 and link 2; only a complete record hands the user to all its places
    /// (see setModificationUser()). On failure the links may be partly overwritten and the
    /// user is unchanged.
    bool readFrom(ColumnReader &reader);

    /// The first link action of the change.
    LinkAction &link1() { return m_link1; }
    /// The first link action, read-only.
    const LinkAction &link1() const { return m_link1; }
    /// Replaces the first link action.
    void setLink1(const LinkAction &link) { m_link1 = link; }
    /// The second link action of the change.
    LinkAction &link2() { return m_link2; }
    /// The second link action, read-only.
    const LinkAction &link2() const { return m_link2; }
    /// Replaces the second link action.
    void setLink2(const LinkAction &link) { m_link2 = link; }

    /// The user who made the change.
    const base::DbDataType<std::string> &modificationUser() const { return m_modificationUser; }
    /// Records \a user as the one who changed the links: in the definition, in both links and
    /// in all four ends. Each place takes text and NULL flag, and the id only while it has none.
    void setModificationUser(const base::DbDataType<std::string> &user);

    /// The user and both links' short info texts.
    std::string shortInfoAsString() const;

private:
    LinkAction m_link1;
    LinkAction m_link2;
    base::DbDataType<std::string> m_modificationUser;
};

/// Equal modification users (NULL equals only NULL) and equal links (see LinkAction).
SIGDBREF_EXPORT bool operator==(const LinkChangeDefinition &a, const LinkChangeDefinition &b);
SIGDBREF_EXPORT bool operator!=(const LinkChangeDefinition &a, const LinkChangeDefinition &b);

/// An in-memory list of link changes. Every entry is numbered from the list's start id.
class SIGDBREF_EXPORT LinkChangeDefinitionList
    : public LinkEntryList<LinkChangeDefinitionList, LinkChangeDefinition>
{
public:
    LinkChangeDefinitionList();
    /// A copy of \a other.
    LinkChangeDefinitionList(const LinkChangeDefinitionList &other);
    /// Takes over the contents of \a other without copying them.
    LinkChangeDefinitionList(LinkChangeDefinitionList &&other) = default;
    ~LinkChangeDefinitionList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    LinkChangeDefinitionList &operator=(const LinkChangeDefinitionList &other);
};

} // namespace sigdb

#endif
