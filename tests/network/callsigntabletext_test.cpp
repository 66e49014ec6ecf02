#include "network/callsigntabletext.h"

#include "network/callsigntable.h"
#include "networktesting.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <QStringList>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace sigdb;
using networktest::callsigns;
using networktest::connection;
using networktest::element;
using networktest::end;
using networktest::set;
using networktest::table;
using networktest::text;

namespace {

// The overview of a default ElementOverview: two element references "0::0" (type 0, NULL
// TID, layer 0) and fifteen empty values, joined by "#~".
#define DEFAULT_OVERVIEW "0::0#~0::0" "#~#~#~#~#~" "#~#~#~#~#~" "#~#~#~#~#~"

// The replacement character U+FFFD, the separator of the set level, as UTF-8.
#define FFFD "\xEF\xBF\xBD"

QString fromUtf8(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// The table of the one-connection literal below.
CallsignTable oneConnectionTable()
{
    ConnectionEntry c;
    c.fromDefinition.firstText = std::string("F1");
    c.fromDefinition.element = element(5, 12, 1);
    c.fromDefinition.rcs = true;
    c.toDefinition.secondText = std::string("T2");
    c.toDefinition.element = element(6, 13);
    c.toDefinition.rcs = false;
    c.toDefinition.overview.keyText1 = std::string("K~1");
    c.setTID(77);
    c.modificationDate() = std::string("2024-01-02 10:00:00");
    c.modificationUser() = std::string("ann");
    c.name() = std::string("A|B");
    c.secondNumber = 3;

    CallsignSet s = set({callsigns("X|Y", nullptr, "Z")});
    s.firstValue = std::string("S$1");

    CallsignTable t = table({c}, {s});
    t.overview.keyText1 = std::string("Net%1");
    t.overview.networkTypeWord = 2;
    t.overview.collocationGroupLeader = true;
    return t;
}

// Worked out by hand from the layout: the connection's 20 values joined by "#|" (the name
// A|B escaped as A/|B; the to end's overview with keyText1 K~1 escaped as K/~1), the set list
// (first text S$1 escaped as S/$1 at the list level, second text empty, one entry X|Y, NULL,
// Z, NULL), and the network overview (keyText1 Net%1 escaped as Net/%1 at the table level,
// network word 2, group leader T).
const char *const kOneConnectionText =
    "F1#|#|5:12:1#|#|T2#|6:13:0#|T#|#|F#|#|T#|77#|#|2024-01-02 10:00:00#|#|ann#|A/|B#|3#|"
    DEFAULT_OVERVIEW "#|"
    "0::0#~0::0#~#~#~#~#~K/~1#~#~#~#~#~#~#~#~#~#~"
    "#%"
    "S/$1#" FFFD "#" FFFD "X/|Y#|#|Z#|"
    "#%"
    "0::0#~0::0#~#~#~#~#~Net/%1#~#~#~#~#~#~2#~#~T#~#~";

/// A table with every kind of value: flags NULL, true and false; callsigns holding every
/// separator, the escape character and the join character; several sets; a populated
/// overview.
CallsignTable populatedTable()
{
    const char *const tricky[] = {"a|b", "$x", "100%", "~~", "/|", "#", "a#", "/", "#|", "/$", "#%",
                                  "x/", "\xEF\xBF\xBD", "M\xC3\xBCller", "#" FFFD, "/~", "##", "a//|b"};
    CallsignTable t;
    const int connectionCount = 6;
    for (int i = 0; i < connectionCount; ++i) {
        ConnectionEntry c = connection(static_cast<unsigned long long>(i == 3 ? 0 : 900 + i),
                                       end(element(5, static_cast<unsigned long long>(i + 1), i % 3), "from"),
                                       end(element(6, static_cast<unsigned long long>(i + 50), 2), "to|~$%"));
        base::DbDataType<bool> flag;
        if (i % 3 == 1)
            flag = true;
        else if (i % 3 == 2)
            flag = false;
        c.fromDefinition.rcs = flag;
        c.fromDefinition.relay = flag;
        c.toDefinition.rcs = flag;
        c.toDefinition.relay = flag;
        c.connectionFlag = flag;
        c.fromDefinition.firstText = text(tricky[i]);
        c.fromDefinition.secondText = text(tricky[i + 6]);
        c.toDefinition.firstText = text(tricky[i + 12]);
        c.modificationState = i;
        c.modificationDate() = std::string("2024-02-0") + std::to_string(i + 1);
        if (i % 2 == 0)
            c.creationDate() = std::string("2020-01-01");
        c.modificationUser() = text(i == 2 ? nullptr : "user#|");
        c.name() = std::string("link ") + tricky[(i + 4) % 18];
        c.secondNumber = -i;
        c.toDefinition.overview.modificationState = Modification_ChangedInMdl;
        c.toDefinition.overview.auxiliaryTid = 18446744073709551615ULL;
        t.connections.appendEntry(c);
    }
    for (int s = 0; s < 3; ++s) {
        CallsignSet callsignSet;
        callsignSet.firstValue = std::string("set ") + tricky[s];
        if (s != 1)
            callsignSet.secondValue = text(tricky[17 - s]);
        for (int i = 0; i < connectionCount; ++i)
            callsignSet.entries.appendEntry(
                callsigns(tricky[(i + s) % 18], tricky[(i + s + 5) % 18], i == 2 ? nullptr : tricky[(i + s + 9) % 18],
                          tricky[(i * 7 + s) % 18]));
        t.sets.appendEntry(callsignSet);
    }
    ElementOverview &o = t.overview;
    o.element = element(4, 4711, 1);
    o.relatedElement = element(7, 8);
    o.exchgIdText = std::string("EX|1");
    o.infoText2 = std::string("i2~");
    o.infoText3 = std::string("i3%");
    o.infoText4 = std::string("i4$");
    o.keyText1 = std::string("key#");
    o.keyText2 = std::string("/key");
    o.keyText3 = std::string(FFFD);
    o.locationIndication = LocationIndication_Collocated;
    o.modificationState = Modification_NewInMdl;
    o.linkModificationState = LinkModification_NetworkAll;
    o.networkTypeWord = 18;
    o.auxiliaryTid = 0ULL;
    o.collocationGroupLeader = false;
    o.orderNumber = -12;
    o.collocationModState = 0;
    return t;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Exact texts

TEST(CallsignTableText, EmptyTable)
{
    const CallsignTable t;
    const QString expected = QStringLiteral("#%#%" DEFAULT_OVERVIEW);
    EXPECT_EQ(t.toText(), expected);
    EXPECT_EQ(CallsignTableText::write(t), expected);
    EXPECT_EQ(t.toUtf8Text(), QByteArray("#%#%" DEFAULT_OVERVIEW));

    CallsignTable read = populatedTable();
    ASSERT_TRUE(read.fromText(expected));
    EXPECT_EQ(read.connections.count(), 0);
    EXPECT_EQ(read.sets.count(), 0);
    EXPECT_TRUE(read.overview == ElementOverview());
}

TEST(CallsignTableText, OneConnectionTable)
{
    const CallsignTable t = oneConnectionTable();
    EXPECT_EQ(t.toText(), fromUtf8(kOneConnectionText));
    EXPECT_EQ(t.toUtf8Text(), QByteArray(kOneConnectionText));
    EXPECT_TRUE(t.toUtf8Text().contains(QByteArray("#\xEF\xBF\xBD"))) << "U+FFFD as the bytes EF BF BD";
}

TEST(CallsignTableText, OneConnectionTableReadsBack)
{
    CallsignTable read;
    ASSERT_TRUE(read.fromUtf8Text(QByteArray(kOneConnectionText)));
    EXPECT_TRUE(read == oneConnectionTable());

    ASSERT_EQ(read.connections.count(), 1);
    const ConnectionEntry &c = read.connections.container()[0];
    EXPECT_EQ(c.type(), 30);
    EXPECT_EQ(c.TID(), 77u);
    EXPECT_EQ(c.name().getData(), "A|B");
    EXPECT_EQ(c.fromDefinition.element.type(), 5);
    EXPECT_EQ(c.fromDefinition.element.TID(), 12u);
    EXPECT_EQ(c.fromDefinition.element.layer(), 1);
    EXPECT_TRUE(c.fromDefinition.secondText.isNull());
    EXPECT_TRUE(c.fromDefinition.rcs.getData());
    EXPECT_TRUE(c.fromDefinition.relay.isNull());
    EXPECT_FALSE(c.toDefinition.rcs.isNull());
    EXPECT_FALSE(c.toDefinition.rcs.getData());
    EXPECT_TRUE(c.modificationState.isNull());
    EXPECT_TRUE(c.creationDate().isNull());
    EXPECT_EQ(c.modificationDate().getData(), "2024-01-02 10:00:00");
    EXPECT_EQ(c.secondNumber.getData(), 3);
    EXPECT_EQ(c.toDefinition.overview.keyText1.getData(), "K~1");
    ASSERT_EQ(read.sets.count(), 1);
    const CallsignSet &s = read.sets.container()[0];
    EXPECT_EQ(s.firstValue.getData(), "S$1");
    EXPECT_TRUE(s.secondValue.isNull());
    ASSERT_EQ(s.entries.count(), 1);
    EXPECT_EQ(s.entries.container()[0].firstCallsign.getData(), "X|Y");
    EXPECT_EQ(s.entries.container()[0].thirdCallsign.getData(), "Z");
    EXPECT_TRUE(s.entries.container()[0].fourthCallsign.isNull());
    EXPECT_EQ(read.overview.keyText1.getData(), "Net%1");
    EXPECT_EQ(read.overview.networkTypeWord.getData(), 2);
}

TEST(CallsignTableText, CallsignWithBarIsEscapedAtTheEntryLevel)
{
    const CallsignTable t = table({}, {set({callsigns("A|B")})});
    EXPECT_EQ(t.toText(), fromUtf8("#%#" FFFD "#" FFFD "A/|B#|#|#|#%" DEFAULT_OVERVIEW));
    CallsignTable read;
    ASSERT_TRUE(read.fromText(t.toText()));
    EXPECT_EQ(read.sets.container()[0].entries.container()[0].firstCallsign.getData(), "A|B");
}

TEST(CallsignTableText, NullFlagIsAnEmptyPartNotF)
{
    ConnectionEntry c;
    c.connectionFlag = base::DbDataType<bool>();
    const QString connectionText = table({c}, {}).toText().section(QStringLiteral("#%"), 0, 0);
    // from end: texts, reference; to end: texts, reference; then the four flags and the
    // connection flag, all NULL.
    EXPECT_TRUE(connectionText.startsWith(QStringLiteral("#|#|0::0#|#|#|0::0#|#|#|#|#|#|")));
    const QStringList parts = connectionText.split(QStringLiteral("#|"));
    ASSERT_EQ(parts.size(), 20) << "an all-NULL connection still has 20 parts";
    EXPECT_EQ(parts.at(6), QString());
    EXPECT_EQ(parts.at(10), QString());
}

TEST(CallsignTableText, ElementReference)
{
    EXPECT_EQ(CallsignTableText::writeElementReference(element(5, 12, 1)), QStringLiteral("5:12:1"));
    EXPECT_EQ(CallsignTableText::writeElementReference(SigdbElement()), QStringLiteral("0::0"));

    SigdbElement read;
    ASSERT_TRUE(CallsignTableText::readElementReference(QStringLiteral("5:12:1"), read));
    EXPECT_EQ(read.type(), 5);
    EXPECT_EQ(read.TID(), 12u);
    EXPECT_EQ(read.layer(), 1);
    ASSERT_TRUE(CallsignTableText::readElementReference(QStringLiteral("7::2"), read));
    EXPECT_TRUE(read.isTIDundefined());
    EXPECT_EQ(read.type(), 7);
    EXPECT_EQ(read.layer(), 2);

    for (const char *bad : {"", "5", "5:12", "5:12:1:0", "x:12:1", "5:1x:1", "5:12:", ":12:1", "5:-1:1",
                            "-5:12:1", "2147483648:1:0", "5:18446744073709551616:0", "5: 12:1", "5:+12:1"}) {
        SigdbElement e = element(9, 9, 9);
        EXPECT_FALSE(CallsignTableText::readElementReference(QString::fromLatin1(bad), e)) << bad;
    }
}

TEST(CallsignTableText, OverviewCarriesItsValues)
{
    const ElementOverview o = populatedTable().overview;
    const QString written = CallsignTableText::writeOverview(o);
    EXPECT_EQ(written, fromUtf8("4:4711:1#~7:8:0#~EX|1#~i2/~#~i3%#~i4$#~key##~/key#~" FFFD "#~4#~4#~17#~18#~0#~F#~-12#~0"));
    ElementOverview read;
    ASSERT_TRUE(CallsignTableText::readOverview(written, read));
    EXPECT_TRUE(read == o);
    EXPECT_EQ(read.orderNumber.getData(), -12);
    EXPECT_EQ(read.element.layer(), 1);
    EXPECT_FALSE(read.collocationModState.isNull());
    EXPECT_EQ(read.modificationState(), Modification_NewInMdl);
}

// ---------------------------------------------------------------------------------------------
// Round trip

TEST(CallsignTableText, PopulatedTableRoundTrip)
{
    const CallsignTable original = populatedTable();
    const QString written = original.toText();
    CallsignTable read;
    ASSERT_TRUE(read.fromText(written));
    EXPECT_TRUE(read == original);
    EXPECT_EQ(read.toText(), written) << "every carried value survives";

    ASSERT_EQ(read.connections.count(), 6);
    ASSERT_EQ(read.sets.count(), 3);
    for (int i = 0; i < 6; ++i) {
        const ConnectionEntry &a = original.connections.container()[static_cast<size_t>(i)];
        const ConnectionEntry &b = read.connections.container()[static_cast<size_t>(i)];
        EXPECT_EQ(b.fromDefinition.element.layer(), a.fromDefinition.element.layer());
        EXPECT_EQ(b.connectionFlag.isNull(), a.connectionFlag.isNull());
        EXPECT_EQ(b.fromDefinition.relay.isNull(), a.fromDefinition.relay.isNull());
        EXPECT_EQ(b.fromDefinition.relay.getData(), a.fromDefinition.relay.getData());
        EXPECT_EQ(b.modificationUser().isNull(), a.modificationUser().isNull());
        EXPECT_EQ(b.toDefinition.overview.auxiliaryTid.getData(), 18446744073709551615ULL);
    }
    EXPECT_EQ(read.sets.container()[0].entries.container()[0].firstCallsign.getData(), "a|b");
    EXPECT_EQ(read.sets.container()[1].entries.container()[0].firstCallsign.getData(), "$x");
    EXPECT_EQ(read.sets.container()[2].entries.container()[0].firstCallsign.getData(), "100%");
    EXPECT_EQ(read.connections.container()[0].toDefinition.overview.keyText1.getData(), "to|~$%");

    CallsignTable fromBytes;
    ASSERT_TRUE(fromBytes.fromUtf8Text(original.toUtf8Text()));
    EXPECT_TRUE(fromBytes == original);
}

TEST(CallsignTableText, EmptyTextsComeBackAsNull)
{
    CallsignTable t = table({}, {set({callsigns("", "a")})});
    CallsignTable read;
    ASSERT_TRUE(read.fromText(t.toText()));
    EXPECT_TRUE(read.sets.container()[0].entries.container()[0].firstCallsign.isNull());
    EXPECT_EQ(read.sets.container()[0].entries.container()[0].secondCallsign.getData(), "a");
}

TEST(CallsignTableText, ReaderKeepsTheTableLayerAndAcceptsOtherBooleanSpellings)
{
    CallsignTable read;
    read.base::DbBaseType::setLayer(2);
    QString text = fromUtf8(kOneConnectionText);
    text.replace(QStringLiteral("#|T#|#|F#|#|T#|"), QStringLiteral("#|true#|#|0#|#|t#|"));
    ASSERT_TRUE(read.fromText(text));
    EXPECT_EQ(read.layer(), 2);
    EXPECT_TRUE(read == oneConnectionTable());
}

// ---------------------------------------------------------------------------------------------
// Malformed text

namespace {

struct MalformedCase
{
    const char *name;
    QString text;
    bool readable;
    int connections;
    int sets;
};

QString replaced(const QString &text, const char *from, const char *to)
{
    return QString(text).replace(fromUtf8(from), fromUtf8(to));
}

std::vector<MalformedCase> malformedCases()
{
    const QString valid = fromUtf8(kOneConnectionText);
    return {
        {"control: the valid text", valid, true, 1, 1},
        {"connection one value short, the from overview lands on the second number",
         replaced(valid, "#|3#|", "#|"), false, 1, 1},
        {"non-numeric TID", replaced(valid, "#|77#|", "#|7x#|"), false, 1, 1},
        {"TID out of range", replaced(valid, "#|77#|", "#|18446744073709551616#|"), false, 1, 1},
        {"negative TID", replaced(valid, "#|77#|", "#|-77#|"), false, 1, 1},
        {"TID with blank", replaced(valid, "#|77#|", "#| 77#|"), false, 1, 1},
        {"TID in other digits", replaced(valid, "#|77#|", "#|\xD9\xA3#|"), false, 1, 1},
        {"number with fraction", replaced(valid, "#|3#|", "#|3.5#|"), false, 1, 1},
        {"number out of range", replaced(valid, "#|3#|", "#|2147483648#|"), false, 1, 1},
        {"reference with two parts", replaced(valid, "5:12:1", "5:12"), false, 1, 1},
        {"reference with four parts", replaced(valid, "5:12:1", "5:12:1:0"), false, 1, 1},
        {"non-numeric reference", replaced(valid, "5:12:1", "five:12:1"), false, 1, 1},
        {"unknown boolean", replaced(valid, "#|T#|#|F#|", "#|Y#|#|F#|"), false, 1, 1},
        {"stray escape at the end", valid + QStringLiteral("/"), false, 1, 1},
        {"not a table", QStringLiteral("not#|a#|table"), false, 1, 0},
    };
}

} // namespace

TEST(CallsignTableText, MalformedTextsAreReportedAndReadAsFarAsPossible)
{
    for (const MalformedCase &row : malformedCases()) {
        CallsignTable read = populatedTable();
        EXPECT_EQ(read.fromText(row.text), row.readable) << row.name;
        EXPECT_EQ(read.connections.count(), row.connections) << row.name;
        EXPECT_EQ(read.sets.count(), row.sets) << row.name;
    }
}

// ---------------------------------------------------------------------------------------------
// Reading by position: one record per part, absent positions NULL, surplus parts ignored

TEST(CallsignTableText, AnEntryListGetsOneEntryPerPart)
{
    // The first entry is two values short, the third one value long.
    const QString entries = QStringLiteral("A#|B#~C#|D#|E#|F#~G#|H#|I#|J#|K");
    CallsignTable read;
    ASSERT_TRUE(read.fromText(QStringLiteral("#%#") + fromUtf8(FFFD "#" FFFD) + entries
                              + QStringLiteral("#%" DEFAULT_OVERVIEW)));
    ASSERT_EQ(read.sets.count(), 1);
    const CallsignEntryList &list = read.sets.container()[0].entries;
    ASSERT_EQ(list.count(), 3);
    EXPECT_TRUE(list.container()[0] == callsigns("A", "B")) << "absent positions read as NULL";
    EXPECT_TRUE(list.container()[0].thirdCallsign.isNull());
    EXPECT_TRUE(list.container()[0].fourthCallsign.isNull());
    EXPECT_TRUE(list.container()[1] == callsigns("C", "D", "E", "F"));
    EXPECT_TRUE(list.container()[2] == callsigns("G", "H", "I", "J")) << "K, beyond the fourth value, is ignored";
}

TEST(CallsignTableText, AShortConnectionKeepsItsPlace)
{
    const CallsignTable full = oneConnectionTable();
    const QString connectionText = full.toText().section(QStringLiteral("#%"), 0, 0);
    // A connection of two values and one of 21, around the full one.
    const QString connections = QStringLiteral("F1#|F2") + QStringLiteral("#$") + connectionText
        + QStringLiteral("#$") + connectionText + QStringLiteral("#|surplus");
    CallsignTable read;
    ASSERT_TRUE(read.fromText(connections + QStringLiteral("#%#%" DEFAULT_OVERVIEW)));
    ASSERT_EQ(read.connections.count(), 3);

    const ConnectionEntry &shortOne = read.connections.container()[0];
    EXPECT_EQ(shortOne.fromDefinition.firstText.getData(), "F1");
    EXPECT_EQ(shortOne.fromDefinition.secondText.getData(), "F2");
    EXPECT_TRUE(shortOne.fromDefinition.element == SigdbElement()) << "an absent reference is the undefined element";
    EXPECT_TRUE(shortOne.connectionFlag.isNull()) << "an absent position reads as NULL, not as the default";
    EXPECT_TRUE(shortOne.isTIDundefined());
    EXPECT_TRUE(shortOne.name().isNull());
    EXPECT_TRUE(shortOne.toDefinition.overview == ElementOverview());

    const ConnectionEntry &original = full.connections.container()[0];
    EXPECT_TRUE(read.connections.container()[1] == original) << "the full connection lands in its own place";
    EXPECT_TRUE(read.connections.container()[2] == original) << "a value beyond the twentieth is ignored";
}

TEST(CallsignTableText, ShortAndLongSetsAndTablesReadByPosition)
{
    struct Case
    {
        const char *name;
        QString text;
        int connections;
        int sets;
        int entriesOfTheLastSet;
    };
    const QString valid = fromUtf8(kOneConnectionText);
    const Case cases[] = {
        {"empty text", QString(), 0, 0, 0},
        {"no overview", QStringLiteral("#%"), 0, 0, 0},
        {"separators only", QStringLiteral("#%#%#%#%#$#|#~"), 0, 0, 0},
        {"fourth table part", valid + QStringLiteral("#%"), 1, 1, 1},
        {"stray list separator", QStringLiteral("#$") + valid, 2, 1, 1},
        {"set with only its first text", replaced(valid, "S/$1#" FFFD "#" FFFD "X/|Y#|#|Z#|", "S/$1"), 1, 1, 0},
        {"set with a fourth part", replaced(valid, "X/|Y", "X" FFFD "#" FFFD "Y"), 1, 1, 1},
        {"stray entry list separator", replaced(valid, "X/|Y#|#|Z#|", "X/|Y#|#|Z#|#~"), 1, 1, 2},
        {"two sets, the first empty", replaced(valid, "S/$1#", "#$S/$1#"), 1, 2, 1},
    };
    for (const Case &row : cases) {
        CallsignTable read = populatedTable();
        EXPECT_TRUE(read.fromText(row.text)) << row.name;
        EXPECT_EQ(read.connections.count(), row.connections) << row.name;
        ASSERT_EQ(read.sets.count(), row.sets) << row.name;
        if (row.sets > 0) {
            EXPECT_EQ(read.sets.container().back().entries.count(), row.entriesOfTheLastSet) << row.name;
        }
    }

    CallsignTable empty = populatedTable();
    ASSERT_TRUE(empty.fromText(QString()));
    EXPECT_TRUE(empty == CallsignTable()) << "the empty text is the empty table";
}

TEST(CallsignTableText, AShortOrLongOverviewReadsByPosition)
{
    const ElementOverview full = populatedTable().overview;
    const QString text = CallsignTableText::writeOverview(full);

    ElementOverview shortOne = full;
    ASSERT_TRUE(CallsignTableText::readOverview(text.section(QStringLiteral("#~"), 0, 13), shortOne));
    EXPECT_EQ(shortOne.auxiliaryTid.getData(), 0u) << "the fourteenth value is there";
    EXPECT_FALSE(shortOne.auxiliaryTid.isNull());
    EXPECT_TRUE(shortOne.collocationGroupLeader.isNull()) << "the values after it are absent";
    EXPECT_TRUE(shortOne.orderNumber.isNull());
    EXPECT_TRUE(shortOne.collocationModState.isNull());

    ElementOverview longOne;
    ASSERT_TRUE(CallsignTableText::readOverview(text + QStringLiteral("#~99#~x"), longOne));
    EXPECT_TRUE(longOne == full);
    EXPECT_EQ(longOne.orderNumber.getData(), -12);
}

/// Writes down what the streaming reader hands over, in order, and builds the table from it.
class RecordingVisitor : public CallsignTableText::Visitor
{
public:
    void connection(ConnectionEntry &&connection) override
    {
        events.push_back("connection");
        table.connections.appendEntry(std::move(connection));
    }
    void beginSet(CallsignSet &&set) override
    {
        events.push_back("set");
        EXPECT_EQ(set.entries.count(), 0) << "a set arrives before its entries";
        table.sets.appendEntry(std::move(set));
    }
    void entry(CallsignEntry &&entry) override
    {
        events.push_back("entry");
        table.sets.container().back().entries.appendEntry(std::move(entry));
    }
    void endSet() override { events.push_back("end"); }
    void overview(ElementOverview &&overview) override
    {
        events.push_back("overview");
        table.overview = std::move(overview);
    }

    std::vector<std::string> events;
    CallsignTable table;
};

TEST(CallsignTableText, TheVisitorGetsEveryRecordInTextOrder)
{
    const CallsignTable original = populatedTable();
    RecordingVisitor visitor;
    ASSERT_TRUE(CallsignTableText::read(original.toText(), visitor));
    EXPECT_TRUE(visitor.table == original);

    std::vector<std::string> expected(6, "connection");
    for (const CallsignSet &set : original.sets.container()) {
        expected.push_back("set");
        expected.insert(expected.end(), static_cast<size_t>(set.entries.count()), "entry");
        expected.push_back("end");
    }
    expected.push_back("overview");
    EXPECT_EQ(visitor.events, expected);

    RecordingVisitor fromBytes;
    ASSERT_TRUE(CallsignTableText::readUtf8(original.toUtf8Text(), fromBytes));
    EXPECT_TRUE(fromBytes.table == original);
}

TEST(CallsignTableText, TheVisitorGetsAShortTableByPosition)
{
    // No set list and no overview in the text: no set arrives, and the overview is read from
    // the empty text, so it arrives all NULL. A text without connections has none.
    RecordingVisitor visitor;
    ASSERT_TRUE(CallsignTableText::read(QStringLiteral("#$"), visitor));
    EXPECT_EQ(visitor.events, (std::vector<std::string>{"connection", "connection", "overview"}));
    EXPECT_TRUE(visitor.table.overview == ElementOverview());

    RecordingVisitor empty;
    ASSERT_TRUE(CallsignTableText::read(QString(), empty));
    EXPECT_EQ(empty.events, std::vector<std::string>{"overview"});
}

TEST(CallsignTableText, TheVisitorHearsOfMalformedValuesAndGetsTheRest)
{
    RecordingVisitor visitor;
    EXPECT_FALSE(CallsignTableText::read(QStringLiteral("#|#|x:1:1#$#%#%" DEFAULT_OVERVIEW), visitor));
    ASSERT_EQ(visitor.table.connections.count(), 2);
    EXPECT_EQ(visitor.events.back(), "overview");
}

TEST(CallsignTableText, ManyEmptyPartsCostOneRecordEach)
{
    // Every part is a record, however little it holds; the cost grows with the text.
    const QString sets = QStringLiteral("#%") + fromUtf8("#" FFFD "#" FFFD) + QStringLiteral("#~").repeated(5000)
        + QStringLiteral("#%" DEFAULT_OVERVIEW);
    CallsignTable read;
    ASSERT_TRUE(read.fromText(QStringLiteral("#$").repeated(5000) + sets));
    ASSERT_EQ(read.connections.count(), 5001);
    EXPECT_TRUE(read.connections.container()[5000].connectionFlag.isNull());
    ASSERT_EQ(read.sets.count(), 1);
    ASSERT_EQ(read.sets.container()[0].entries.count(), 5001);
    EXPECT_TRUE(read.sets.container()[0].entries.container()[5000] == CallsignEntry());

    CallsignTable wide;
    ASSERT_TRUE(wide.fromText(QStringLiteral("#|").repeated(500000) + sets));
    EXPECT_EQ(wide.connections.count(), 1) << "surplus values of one connection are ignored";
}

TEST(CallsignTableText, MalformedValuesStayNullAndTheRestIsRead)
{
    CallsignTable read;
    QString text = fromUtf8(kOneConnectionText);
    text.replace(QStringLiteral("#|77#|"), QStringLiteral("#|7x#|"));
    EXPECT_FALSE(read.fromText(text));
    ASSERT_EQ(read.connections.count(), 1);
    const ConnectionEntry &c = read.connections.container()[0];
    EXPECT_TRUE(c.isTIDundefined());
    EXPECT_EQ(c.name().getData(), "A|B");
    EXPECT_EQ(c.secondNumber.getData(), 3);
    EXPECT_EQ(read.overview.keyText1.getData(), "Net%1");
}

TEST(CallsignTableText, EveryTruncationIsSafe)
{
    const CallsignTable original = populatedTable();
    const QString full = original.toText();
    for (int length = 0; length < full.size(); ++length) {
        CallsignTable read;
        read.fromText(full.left(length));
        EXPECT_LE(read.connections.count(), original.connections.count()) << length;
        EXPECT_LE(read.sets.count(), original.sets.count()) << length;
    }

    // Cut right after the k-th connection: the k connections read back in their places.
    QString prefix;
    for (int k = 0; k < original.connections.count(); ++k) {
        const ConnectionEntry &c = original.connections.container()[static_cast<size_t>(k)];
        prefix += table({c}, {}).toText().section(QStringLiteral("#%"), 0, 0);
        ASSERT_TRUE(full.startsWith(prefix)) << k;
        CallsignTable read;
        read.fromText(prefix);
        ASSERT_EQ(read.connections.count(), k + 1) << k;
        for (int i = 0; i <= k; ++i)
            EXPECT_TRUE(read.connections.container()[static_cast<size_t>(i)]
                        == original.connections.container()[static_cast<size_t>(i)])
                << k << " " << i;
        prefix += QStringLiteral("#$");
    }

    const QByteArray bytes = original.toUtf8Text();
    for (int length = 0; length < bytes.size(); ++length) {
        CallsignTable read;
        read.fromUtf8Text(bytes.left(length));
    }
}

TEST(CallsignTableText, EmptyTableTextReadsAsTheFullReaderReadsIt)
{
    const QByteArray empty = sigdb::CallsignTable().toUtf8Text();
    sigdb::CallsignTable fast = populatedTable();
    ASSERT_TRUE(fast.fromUtf8Text(empty));
    sigdb::CallsignTable parsed = populatedTable();
    ASSERT_TRUE(sigdb::CallsignTableText::read(QString::fromUtf8(empty), parsed));
    EXPECT_TRUE(fast == parsed);
    EXPECT_TRUE(fast == sigdb::CallsignTable());
    EXPECT_EQ(fast.toUtf8Text(), parsed.toUtf8Text());
    EXPECT_EQ(fast.connections.count(), 0);
    EXPECT_EQ(fast.sets.count(), 0);
}

TEST(CallsignTableText, BlankTablesShareOneTextThatReadsBack)
{
    const QByteArray blank = CallsignTable().toUtf8Text();
    CallsignTable noNetwork;
    noNetwork.overview.setIDs(40); // column ids are not part of the text
    EXPECT_EQ(noNetwork.toUtf8Text(), blank);

    // Any value in the overview, any connection or any set makes the table write its own text.
    CallsignTable named;
    named.overview.keyText1 = std::string("NET");
    EXPECT_NE(named.toUtf8Text(), blank);
    EXPECT_NE(named.toUtf8Text().indexOf("NET"), -1);
    CallsignTable layered;
    layered.overview.element.setLayer(1);
    EXPECT_NE(layered.toUtf8Text(), blank);
    CallsignTable connected;
    connected.connections.appendEntry(ConnectionEntry());
    EXPECT_NE(connected.toUtf8Text(), blank);

    CallsignTable back;
    back.overview.keyText1 = std::string("stale");
    ASSERT_TRUE(back.fromUtf8Text(blank));
    EXPECT_TRUE(back == CallsignTable());
}
