#include "network/connectionentrydefinition.h"

namespace sigdb {

namespace {

bool isTrue(const base::DbDataType<bool> &flag)
{
    return !flag.isNull() && flag.getData();
}

unsigned int idAt(int id)
{
    return static_cast<unsigned int>(id);
}

} // namespace

ConnectionEntryDefinition::ConnectionEntryDefinition() = default;
ConnectionEntryDefinition::ConnectionEntryDefinition(const ConnectionEntryDefinition &other) = default;
ConnectionEntryDefinition::~ConnectionEntryDefinition() = default;

ConnectionEntryDefinition &ConnectionEntryDefinition::operator=(const ConnectionEntryDefinition &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    overview = other.overview;
    firstText = other.firstText;
    secondText = other.secondText;
    element = other.element;
    rcs = other.rcs;
    relay = other.relay;
    return *this;
}

base::DbBaseType *ConnectionEntryDefinition::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ConnectionEntryDefinition>(source);
}

void ConnectionEntryDefinition::reset()
{
    ConnectionEntryDefinition::operator=(ConnectionEntryDefinition());
}

void ConnectionEntryDefinition::serialize(QByteArray &) const
{
}

int ConnectionEntryDefinition::setIDs(int start)
{
    firstText.setID(idAt(start + 1));
    secondText.setID(idAt(start + 2));
    rcs.setID(idAt(start + 3));
    relay.setID(idAt(start + 4));
    const int overviewEnd = overview.setIDs(start + 5);
    return element.setIDs(overviewEnd + 1);
}

bool ConnectionEntryDefinition::isRCS() const
{
    return isTrue(rcs);
}

bool ConnectionEntryDefinition::isRelay() const
{
    return isTrue(relay);
}

bool ConnectionEntryDefinition::isUndefined() const
{
    return element.isUndefined();
}

std::string ConnectionEntryDefinition::name() const
{
    std::string result = overview.keyText1.getData();
    const std::string &second = overview.keyText2.getData();
    if (!second.empty())
        result += " (" + second + ")";
    return result;
}

ElementOverview ConnectionEntryDefinition::toResult() const
{
    ElementOverview result = overview;
    result.element = element;
    return result;
}

bool operator==(const ConnectionEntryDefinition &a, const ConnectionEntryDefinition &b)
{
    return a.overview == b.overview && a.firstText == b.firstText && a.secondText == b.secondText
        && a.element == b.element && a.rcs == b.rcs && a.relay == b.relay;
}

bool operator!=(const ConnectionEntryDefinition &a, const ConnectionEntryDefinition &b)
{
    return !(a == b);
}

} // namespace sigdb
