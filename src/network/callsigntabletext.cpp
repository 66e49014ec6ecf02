#include "network/callsigntabletext.h"

#include "network/callsigntable.h"

#include <QStringList>

#include <limits>
#include <optional>
#include <type_traits>

namespace sigdb {

namespace {

using Text = base::DbDataType<std::string>;

/// One level of the text form: its parts are joined by "#" + separator, and the separator is
/// escaped inside a part as "/" + separator.
class Level
{
public:
    explicit Level(QChar separator)
        : m_separator(separator)
        , m_separatorText(separator)
        , m_join(QString(QLatin1Char('#')) + separator)
        , m_escaped(QString(QLatin1Char('/')) + separator)
    {
    }

    QString join(const QStringList &parts) const
    {
        QString joined;
        for (int i = 0; i < parts.size(); ++i) {
            if (i > 0)
                joined += m_join;
            const QString &part = parts.at(i);
            if (part.contains(m_separator))
                joined += QString(part).replace(m_separator, m_escaped);
            else
                joined += part;
        }
        return joined;
    }

    /// Hands every part of \a text, unescaped, to \a take(part) in order, one at a time (a
    /// list can have millions of parts, so they are never all held); stops early when \a take
    /// returns false. The parts are those of split().
    template <typename Take>
    void forEachPart(const QString &text, Take take) const
    {
        int from = 0;
        for (;;) {
            const int at = text.indexOf(m_join, from);
            QString part = text.mid(from, at < 0 ? -1 : at - from);
            if (part.contains(QLatin1Char('/')))
                part.replace(m_escaped, m_separatorText);
            if (!take(part) || at < 0)
                return;
            from = at + m_join.size();
        }
    }

    QStringList split(const QString &text) const
    {
        QStringList parts = text.split(m_join, Qt::KeepEmptyParts);
        // Most parts hold no escape at all; looking for the slash is far cheaper than a replace.
        for (QString &part : parts) {
            if (part.contains(QLatin1Char('/')))
                part.replace(m_escaped, m_separatorText);
        }
        return parts;
    }

private:
    QChar m_separator;
    QString m_separatorText;
    QString m_join;
    QString m_escaped;
};

const Level kTableLevel{QLatin1Char('%')};
const Level kListLevel{QLatin1Char('$')};
const Level kValueLevel{QLatin1Char('|')};
const Level kSetLevel{QChar(0xFFFD)};
const Level kEntryListLevel{QLatin1Char('~')};

// ---------------------------------------------------------------------------------------------
// The layouts: which values a record gives, in which order, at which level. One visitor per
// record serves the writer (on a const record) and the reader (on a mutable one).

template <typename Record>
struct Layout;

template <>
struct Layout<ConnectionEntry>
{
    static const Level &level() { return kValueLevel; }
    static const Level &listLevel() { return kListLevel; }

    template <typename Connection, typename Visit>
    static void visit(Connection &c, Visit &&value)
    {
        value(c.fromDefinition.firstText);
        value(c.fromDefinition.secondText);
        value(c.fromDefinition.element);
        value(c.toDefinition.firstText);
        value(c.toDefinition.secondText);
        value(c.toDefinition.element);
        value(c.fromDefinition.rcs);
        value(c.fromDefinition.relay);
        value(c.toDefinition.rcs);
        value(c.toDefinition.relay);
        value(c.connectionFlag);
        value(c.tid());
        value(c.modificationState);
        value(c.modificationDate());
        value(c.creationDate());
        value(c.modificationUser());
        value(c.name());
        value(c.secondNumber);
        value(c.fromDefinition.overview);
        value(c.toDefinition.overview);
    }
};

template <>
struct Layout<CallsignSet>
{
    static const Level &level() { return kSetLevel; }
    static const Level &listLevel() { return kListLevel; }

    template <typename Set, typename Visit>
    static void visit(Set &s, Visit &&value)
    {
        value(s.firstValue);
        value(s.secondValue);
        value(s.entries);
    }
};

template <>
struct Layout<CallsignEntry>
{
    static const Level &level() { return kValueLevel; }
    static const Level &listLevel() { return kEntryListLevel; }

    template <typename Entry, typename Visit>
    static void visit(Entry &e, Visit &&value)
    {
        value(e.firstCallsign);
        value(e.secondCallsign);
        value(e.thirdCallsign);
        value(e.fourthCallsign);
    }
};

template <>
struct Layout<ElementOverview>
{
    static const Level &level() { return kEntryListLevel; }

    template <typename Overview, typename Visit>
    static void visit(Overview &o, Visit &&value)
    {
        value(o.element);
        value(o.relatedElement);
        value(o.exchgIdText);
        value(o.infoText2);
        value(o.infoText3);
        value(o.infoText4);
        value(o.keyText1);
        value(o.keyText2);
        value(o.keyText3);
        value(o.locationIndication);
        value(o.modificationState);
        value(o.linkModificationState);
        value(o.networkTypeWord);
        value(o.auxiliaryTid);
        value(o.collocationGroupLeader);
        value(o.orderNumber);
        value(o.collocationModState);
    }
};

template <>
struct Layout<CallsignTable>
{
    static const Level &level() { return kTableLevel; }

    template <typename Table, typename Visit>
    static void visit(Table &t, Visit &&value)
    {
        value(t.connections);
        value(t.sets);
        value(t.overview);
    }
};

// ---------------------------------------------------------------------------------------------
// Value texts: each writer beside its reader.

/// Digits only, with a leading "-" where \a signedNumber allows it.
bool isDecimal(const QString &text, bool signedNumber)
{
    const int start = signedNumber && text.startsWith(QLatin1Char('-')) ? 1 : 0;
    if (text.size() <= start)
        return false;
    for (int i = start; i < text.size(); ++i)
        if (text.at(i) < QLatin1Char('0') || text.at(i) > QLatin1Char('9'))
            return false;
    return true;
}

bool readUnsigned(const QString &text, unsigned long long &number)
{
    bool ok = false;
    number = isDecimal(text, false) ? text.toULongLong(&ok, 10) : 0;
    return ok;
}

bool readSignedInt(const QString &text, int &number)
{
    bool ok = false;
    number = isDecimal(text, true) ? text.toInt(&ok, 10) : 0;
    return ok;
}

/// A NULL column from an empty text; otherwise \a parse decides the value.
template <typename T, typename Parse>
bool readColumn(const QString &text, base::DbDataType<T> &column, Parse parse)
{
    column = base::DbDataType<T>();
    if (text.isEmpty())
        return true;
    T value{};
    if (!parse(text, value))
        return false;
    column = value;
    return true;
}

QString valueText(const Text &value)
{
    return value.isNull() ? QString() : QString::fromStdString(value.getData());
}

bool readValue(const QString &text, Text &value)
{
    return readColumn(text, value, [](const QString &t, std::string &v) {
        v = t.toStdString();
        return true;
    });
}

QString valueText(const base::DbDataType<int> &value)
{
    return value.isNull() ? QString() : QString::number(value.getData());
}

bool readValue(const QString &text, base::DbDataType<int> &value)
{
    return readColumn(text, value, readSignedInt);
}

template <typename E, std::enable_if_t<std::is_enum<E>::value, int> = 0>
QString valueText(const base::DbDataType<E> &value)
{
    return value.isNull() ? QString() : QString::number(static_cast<int>(value.getData()));
}

template <typename E, std::enable_if_t<std::is_enum<E>::value, int> = 0>
bool readValue(const QString &text, base::DbDataType<E> &value)
{
    return readColumn(text, value, [](const QString &t, E &v) {
        int number = 0;
        if (!readSignedInt(t, number))
            return false;
        v = static_cast<E>(number);
        return true;
    });
}

QString valueText(const base::DbDataType<unsigned long long> &value)
{
    return value.isNull() ? QString() : QString::number(value.getData());
}

bool readValue(const QString &text, base::DbDataType<unsigned long long> &value)
{
    return readColumn(text, value, readUnsigned);
}

QString valueText(const base::DbDataType<bool> &value)
{
    if (value.isNull())
        return QString();
    return value.getData() ? QStringLiteral("T") : QStringLiteral("F");
}

bool readValue(const QString &text, base::DbDataType<bool> &value)
{
    return readColumn(text, value, [](const QString &t, bool &v) {
        const QString lower = t.toLower();
        v = lower == QLatin1String("t") || lower == QLatin1String("1") || lower == QLatin1String("true");
        return v || lower == QLatin1String("f") || lower == QLatin1String("0")
            || lower == QLatin1String("false");
    });
}

QString valueText(const SigdbElement &element)
{
    return CallsignTableText::writeElementReference(element);
}

/// The empty text is the element's NULL, as for every other value: an undefined element.
bool readValue(const QString &text, SigdbElement &element)
{
    if (text.isEmpty()) {
        element.reset();
        return true;
    }
    return CallsignTableText::readElementReference(text, element);
}

// Records and lists (defined below, after the generic record walk).
QString valueText(const ElementOverview &overview);
bool readValue(const QString &text, ElementOverview &overview);
template <typename Entry>
QString valueText(const EntrySequence<Entry> &list);

/// The values of \a record joined at its level.
template <typename Record>
QString writeRecord(const Record &record)
{
    QStringList parts;
    Layout<Record>::visit(record, [&parts](const auto &value) { parts.append(valueText(value)); });
    return Layout<Record>::level().join(parts);
}

/// Hands the parts of \a text at \a level to \a readPart(position, part) by position, for
/// the positions below \a count: a position that the text does not reach reads as the empty
/// text (NULL), and parts beyond the last position are ignored, so a record written with fewer
/// or more values still lands in its own place.
template <typename ReadPart>
void readPositions(const Level &level, const QString &text, int count, ReadPart readPart)
{
    int position = 0;
    level.forEachPart(text, [&](const QString &part) {
        readPart(position, part);
        return ++position < count;
    });
    for (; position < count; ++position)
        readPart(position, QString());
}

/// Reads the values of \a record by position from \a text (see readPositions()). False when a
/// value that is there does not read; it stays NULL and the others are read all the same.
template <typename Record>
bool readRecord(const QString &text, Record &record)
{
    const QStringList parts = Layout<Record>::level().split(text);
    bool valuesRead = true;
    int position = 0;
    Layout<Record>::visit(record, [&](auto &value) {
        valuesRead = readValue(parts.value(position), value) && valuesRead;
        ++position;
    });
    return valuesRead;
}

/// Reads one new entry per part of \a text and hands each to \a take, whatever the part holds:
/// entry i of every callsign set belongs to connection i, so a part left out would move every
/// later one onto the wrong connection. An empty list is the empty text.
template <typename Entry, typename Take>
bool readEntries(const QString &text, Take take)
{
    if (text.isEmpty())
        return true;
    bool allRead = true;
    // An empty part is a record of NULL values, and a text can hold millions of them: it is
    // read once and copied from then on.
    std::optional<Entry> emptyPart;
    Layout<Entry>::listLevel().forEachPart(text, [&](const QString &part) {
        if (part.isEmpty()) {
            if (!emptyPart)
                allRead = readRecord(part, emptyPart.emplace()) && allRead;
            take(Entry(*emptyPart));
            return true;
        }
        Entry entry;
        allRead = readRecord(part, entry) && allRead;
        take(std::move(entry));
        return true;
    });
    return allRead;
}

QString valueText(const ElementOverview &overview)
{
    return writeRecord(overview);
}

bool readValue(const QString &text, ElementOverview &overview)
{
    return readRecord(text, overview);
}

/// One text per entry, joined at the list's level; an empty list is the empty text.
template <typename Entry>
QString valueText(const EntrySequence<Entry> &list)
{
    QStringList parts;
    for (const Entry &entry : list.container())
        parts.append(writeRecord(entry));
    return Layout<Entry>::listLevel().join(parts);
}

/// A set: its two texts and its entry list, by position as the set's layout gives them.
bool readSet(const QString &text, CallsignTableText::Visitor &visitor)
{
    CallsignSet set;
    bool allRead = true;
    readPositions(Layout<CallsignSet>::level(), text, 3, [&](int position, const QString &part) {
        if (position == 0) {
            allRead = readValue(part, set.firstValue) && allRead;
        } else if (position == 1) {
            allRead = readValue(part, set.secondValue) && allRead;
        } else {
            visitor.beginSet(std::move(set));
            allRead = readEntries<CallsignEntry>(part, [&visitor](CallsignEntry &&entry) {
                          visitor.entry(std::move(entry));
                      })
                && allRead;
            visitor.endSet();
        }
    });
    return allRead;
}

/// A table: its connection list, its set list and its overview, by position as the table's
/// layout gives them. Only one record is held at a time.
bool readTable(const QString &text, CallsignTableText::Visitor &visitor)
{
    bool allRead = true;
    readPositions(Layout<CallsignTable>::level(), text, 3, [&](int position, const QString &part) {
        if (position == 0) {
            allRead = readEntries<ConnectionEntry>(part, [&visitor](ConnectionEntry &&connection) {
                          visitor.connection(std::move(connection));
                      })
                && allRead;
        } else if (position == 1) {
            if (!part.isEmpty()) {
                Layout<CallsignSet>::listLevel().forEachPart(part, [&](const QString &set) {
                    allRead = readSet(set, visitor) && allRead;
                    return true;
                });
            }
        } else {
            ElementOverview overview;
            allRead = readRecord(part, overview) && allRead;
            visitor.overview(std::move(overview));
        }
    });
    return allRead;
}

/// Rebuilds a table from what the reader hands over.
class TableBuilder : public CallsignTableText::Visitor
{
public:
    explicit TableBuilder(CallsignTable &table)
        : m_table(table)
    {
    }

    void connection(ConnectionEntry &&connection) override { m_table.connections.appendEntry(std::move(connection)); }
    void beginSet(CallsignSet &&set) override { m_table.sets.appendEntry(std::move(set)); }
    void entry(CallsignEntry &&entry) override
    {
        m_table.sets.container().back().entries.appendEntry(std::move(entry));
    }
    void endSet() override {}
    void overview(ElementOverview &&overview) override { m_table.overview = std::move(overview); }

private:
    CallsignTable &m_table;
};

} // namespace

QString CallsignTableText::write(const CallsignTable &table)
{
    return writeRecord(table);
}

CallsignTableText::Visitor::~Visitor() = default;

bool CallsignTableText::read(const QString &text, CallsignTable &table)
{
    table.reset();
    // Room for the connections at once, rather than in steps that each move all of them: no
    // more than the text has list join strings (those of the set list included).
    table.connections.container().reserve(static_cast<size_t>(text.count(QStringLiteral("#$"))) + 1);
    TableBuilder builder(table);
    return readTable(text, builder);
}

bool CallsignTableText::read(const QString &text, Visitor &visitor)
{
    return readTable(text, visitor);
}

bool CallsignTableText::readUtf8(const QByteArray &text, Visitor &visitor)
{
    return readTable(QString::fromUtf8(text), visitor);
}

namespace {

// A blank table: no connections, no sets, and an overview whose columns are all NULL and whose
// elements are all undefined. Its text is the same whatever else the records hold.
bool isBlank(const SigdbElement &element)
{
    return element.type() == 0 && element.tid().isNull() && element.layer() == 0;
}

template <typename T>
bool isBlank(const base::DbDataType<T> &value)
{
    return value.isNull();
}

bool isBlankTable(const CallsignTable &table)
{
    if (table.connections.count() != 0 || table.sets.count() != 0)
        return false;
    bool blank = true;
    Layout<ElementOverview>::visit(table.overview, [&blank](const auto &value) { blank = blank && isBlank(value); });
    return blank;
}

} // namespace

QByteArray CallsignTableText::writeUtf8(const CallsignTable &table)
{
    // Most elements belong to no network, so most details carry a blank table: its text is
    // written once and handed out again (when a default table is blank, as it is).
    static const bool defaultIsBlank = isBlankTable(CallsignTable());
    static const QByteArray blankText = write(CallsignTable()).toUtf8();
    if (defaultIsBlank && isBlankTable(table))
        return blankText;
    return write(table).toUtf8();
}

bool CallsignTableText::readUtf8(const QByteArray &text, CallsignTable &table)
{
    // Most elements belong to no network, so their details carry the text of an empty table;
    // it reads back as a reset table without being taken apart.
    static const QByteArray emptyTable = writeUtf8(CallsignTable());
    if (text == emptyTable) {
        table.reset();
        return true;
    }
    return read(QString::fromUtf8(text), table);
}

QString CallsignTableText::writeOverview(const ElementOverview &overview)
{
    return writeRecord(overview);
}

bool CallsignTableText::readOverview(const QString &text, ElementOverview &overview)
{
    return readRecord(text, overview);
}

QString CallsignTableText::writeElementReference(const SigdbElement &element)
{
    const QLatin1Char colon(':');
    return QString::number(element.type()) + colon + valueText(element.tid()) + colon
        + QString::number(element.layer());
}

bool CallsignTableText::readElementReference(const QString &text, SigdbElement &element)
{
    element.reset();
    const QStringList parts = text.split(QLatin1Char(':'), Qt::KeepEmptyParts);
    if (parts.size() != 3)
        return false;
    const auto readSmall = [](const QString &part, int &number) {
        unsigned long long value = 0;
        if (!readUnsigned(part, value) || value > static_cast<unsigned long long>(std::numeric_limits<int>::max()))
            return false;
        number = static_cast<int>(value);
        return true;
    };
    int type = 0;
    int layer = 0;
    const bool typeRead = readSmall(parts.at(0), type);
    const bool tidRead = readValue(parts.at(1), element.tid());
    const bool layerRead = readSmall(parts.at(2), layer);
    element.setType(type);
    element.setLayer(layer);
    return typeRead && tidRead && layerRead;
}

} // namespace sigdb
