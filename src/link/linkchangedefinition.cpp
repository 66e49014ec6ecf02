#include "link/linkchangedefinition.h"

#include "io/columnstream.h"
#include "link/linktext_p.h"

namespace sigdb {

LinkChangeDefinition::LinkChangeDefinition() = default;
LinkChangeDefinition::LinkChangeDefinition(const LinkChangeDefinition &other) = default;
LinkChangeDefinition::~LinkChangeDefinition() = default;

LinkChangeDefinition &LinkChangeDefinition::operator=(const LinkChangeDefinition &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    m_link1 = other.m_link1;
    m_link2 = other.m_link2;
    m_modificationUser = other.m_modificationUser;
    return *this;
}

base::DbBaseType *LinkChangeDefinition::getCopy(const base::DbBaseType *source)
{
    auto *copy = new LinkChangeDefinition;
    if (const auto *definition = dynamic_cast<const LinkChangeDefinition *>(source))
        *copy = *definition;
    return copy;
}

void LinkChangeDefinition::reset() {}

void LinkChangeDefinition::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<LinkChangeDefinition *>(this)->setIDs(0);
    writeTo(writer);
}

void LinkChangeDefinition::setLayer(int layer)
{
    m_link1.setLayer(layer);
    m_link2.setLayer(layer);
    base::DbBaseType::setLayer(layer);
}

int LinkChangeDefinition::setIDs(int startId)
{
    m_modificationUser.setID(static_cast<unsigned int>(startId + 1));
    return m_link2.setIDs(m_link1.setIDs(startId + 1));
}

void LinkChangeDefinition::writeTo(ColumnWriter &writer) const
{
    writer.write(m_modificationUser);
    m_link1.writeLinkTo(writer);
    m_link2.writeLinkTo(writer);
}

bool LinkChangeDefinition::readFrom(ColumnReader &reader)
{
    base::DbDataType<std::string> user;
    user.setID(static_cast<unsigned int>(m_modificationUser.getID()));
    if (!reader.read(user) || !m_link1.readLinkFrom(reader) || !m_link2.readLinkFrom(reader))
        return false;
    setModificationUser(user);
    return true;
}

void LinkChangeDefinition::setModificationUser(const base::DbDataType<std::string> &user)
{
    m_modificationUser = user;
    for (LinkAction *link : {&m_link1, &m_link2})
        link->SigdbElement::setModificationUser(user);
    for (LinkAction *link : {&m_link1, &m_link2}) {
        link->fromElement().setModificationUser(user);
        link->toElement().setModificationUser(user);
    }
}

std::string LinkChangeDefinition::shortInfoAsString() const
{
    QString text = QStringLiteral("ModifiedUser: %1\n").arg(latin1Text(m_modificationUser.getData()));
    text += QStringLiteral("Link1: %1\n").arg(latin1Text(m_link1.shortInfoAsString()));
    text += QStringLiteral("Link2: %1\n").arg(latin1Text(m_link2.shortInfoAsString()));
    return latin1Bytes(text);
}

bool operator==(const LinkChangeDefinition &a, const LinkChangeDefinition &b)
{
    return a.modificationUser() == b.modificationUser() && a.link1() == b.link1()
        && a.link2() == b.link2();
}

bool operator!=(const LinkChangeDefinition &a, const LinkChangeDefinition &b)
{
    return !(a == b);
}

LinkChangeDefinitionList::LinkChangeDefinitionList() = default;
LinkChangeDefinitionList::LinkChangeDefinitionList(const LinkChangeDefinitionList &other) = default;
LinkChangeDefinitionList::~LinkChangeDefinitionList() = default;
LinkChangeDefinitionList &LinkChangeDefinitionList::operator=(const LinkChangeDefinitionList &other) = default;

} // namespace sigdb
