// Callsign tables of networks with 1,000 to 100,000 connections: the merge of an edited table,
// the star and the hierarchical conversion, table equality, and the text form in which tables
// travel.

#include "network/callsigntable.h"

#include <QStringList>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

using sigdb::CallsignEntry;
using sigdb::CallsignSet;
using sigdb::CallsignTable;
using sigdb::ConnectionEntry;
using sigdb::ConnectionEntryDefinition;
using sigdb::SigdbElement;

/// Members of a network of \a connections connections: about one member per two connections,
/// so that every member occurs at several ends.
int memberCount(int connections)
{
    return connections / 2 + 2;
}

ConnectionEntryDefinition memberEnd(int member)
{
    ConnectionEntryDefinition end;
    end.element.setType(member == 0 ? 4 : 5);
    end.element.setTID(static_cast<unsigned long long>(1000000 + member));
    end.overview.element = end.element;
    end.overview.keyText1 = "member " + std::to_string(member);
    end.firstText = std::string("radio");
    if (member == 0)
        end.rcs = true;
    if (member % 11 == 3)
        end.relay = true;
    return end;
}

std::string callsignOf(int member, int kind)
{
    return std::string(kind == 0 ? "CS" : "AL") + std::to_string(member);
}

/// A stored network: connection i joins two members (every fifth one the centre, member 0);
/// each member uses the same callsigns at all its ends, as real networks do. Two sets.
CallsignTable network(int connections)
{
    const int members = memberCount(connections);
    CallsignTable table;
    table.overview.keyText1 = std::string("network");
    table.overview.networkTypeWord = 1;
    std::vector<ConnectionEntry> &list = table.connections.container();
    list.reserve(static_cast<size_t>(connections));
    CallsignSet first;
    CallsignSet second;
    for (int i = 0; i < connections; ++i) {
        const int from = i % 5 == 0 ? 0 : 1 + (i * 7) % (members - 1);
        const int to = 1 + (i * 13 + 5) % (members - 1);
        ConnectionEntry connection;
        connection.setTID(static_cast<unsigned long long>(i + 1));
        connection.fromDefinition = memberEnd(from);
        connection.toDefinition = memberEnd(to);
        connection.secondNumber = i;
        connection.modificationUser() = std::string("loader");
        list.push_back(connection);
        CallsignEntry entry;
        entry.firstCallsign = callsignOf(from, 0);
        entry.secondCallsign = callsignOf(from, 1);
        entry.thirdCallsign = callsignOf(to, 0);
        entry.fourthCallsign = callsignOf(to, 1);
        first.entries.appendEntry(entry);
        entry.firstCallsign = callsignOf(from, 0) + "B";
        second.entries.appendEntry(entry);
    }
    table.sets.appendEntry(first);
    table.sets.appendEntry(second);
    return table;
}

/// The stored network as a user edited it: in reverse order, every tenth to end moved, every
/// seventh callsign changed, every hundredth connection removed and one in fifty added new.
CallsignTable edited(const CallsignTable &stored)
{
    const int members = memberCount(stored.connections.count());
    CallsignTable table;
    table.overview = stored.overview;
    CallsignSet first;
    CallsignSet second;
    const std::vector<ConnectionEntry> &source = stored.connections.container();
    for (int i = static_cast<int>(source.size()) - 1; i >= 0; --i) {
        if (i % 100 == 42)
            continue;
        ConnectionEntry connection = source[static_cast<size_t>(i)];
        if (i % 10 == 0)
            connection.toDefinition = memberEnd(1 + (i * 3) % (members - 1));
        table.connections.appendEntry(connection);
        CallsignEntry entry = stored.sets.container()[0].entries.container()[static_cast<size_t>(i)];
        if (i % 7 == 0)
            entry.fourthCallsign = std::string("changed");
        first.entries.appendEntry(entry);
        second.entries.appendEntry(stored.sets.container()[1].entries.container()[static_cast<size_t>(i)]);
        if (i % 50 == 0) {
            ConnectionEntry added;
            added.fromDefinition = memberEnd(0);
            added.toDefinition = memberEnd(1 + i % (members - 1));
            table.connections.appendEntry(added);
            first.entries.appendEntry(entry);
            second.entries.appendEntry(entry);
        }
    }
    table.sets.appendEntry(first);
    table.sets.appendEntry(second);
    return table;
}

void setConnections(benchmark::State &state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["connections"] = static_cast<double>(state.range(0));
}

void BM_MergeTable(benchmark::State &state)
{
    const CallsignTable stored = network(static_cast<int>(state.range(0)));
    const CallsignTable edit = edited(stored);
    for (auto _ : state) {
        state.PauseTiming();
        CallsignTable target = stored;
        CallsignTable changes = edit;
        state.ResumeTiming();
        target.mergeTable(changes, std::string("editor"), true);
        benchmark::DoNotOptimize(target.connections.count());
    }
    setConnections(state);
}
BENCHMARK(BM_MergeTable)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_AsStar(benchmark::State &state)
{
    const CallsignTable stored = network(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const CallsignTable star = stored.asStar();
        benchmark::DoNotOptimize(star.connections.count());
    }
    setConnections(state);
}
BENCHMARK(BM_AsStar)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_AsHierarchical(benchmark::State &state)
{
    const CallsignTable stored = network(static_cast<int>(state.range(0)));
    const SigdbElement centre = memberEnd(0).element;
    // Every run prints one line on the diagnostic output (standard output); filter it out of
    // the report, e.g. with grep -v "AS HIERARCHICAL".
    for (auto _ : state) {
        const CallsignTable hierarchy = stored.asHierarchical(centre);
        benchmark::DoNotOptimize(hierarchy.connections.count());
    }
    setConnections(state);
}
BENCHMARK(BM_AsHierarchical)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Table equality on the two shapes that crowd equal keys together: sets whose entries are all
// alike (here all NULL, as in sets without callsigns), and connections between the same two
// elements that differ only in their TIDs and texts. Each table is compared with a copy whose
// connections run in the reverse order.
CallsignTable reversedCopy(const CallsignTable &table)
{
    CallsignTable copy = table;
    std::vector<ConnectionEntry> &list = copy.connections.container();
    std::reverse(list.begin(), list.end());
    return copy;
}

// The floor of table equality: every connection compared with the counterpart it is known to
// have (the reversed position) and every callsign entry with the one at its own position, so no
// index is built and nothing is looked up. Both tables are walked once, front to back and back
// to front, which is the least memory traffic any comparison of the two can have; at 100k
// connections the tables hold several hundred megabytes, and this floor shows what the memory
// hierarchy alone adds from one size to the next.
bool comparedInKnownPairs(const CallsignTable &table, const CallsignTable &reversed)
{
    const std::vector<ConnectionEntry> &mine = table.connections.container();
    const std::vector<ConnectionEntry> &theirs = reversed.connections.container();
    if (!std::equal(mine.begin(), mine.end(), theirs.rbegin(), theirs.rend()))
        return false;
    const std::vector<CallsignSet> &sets = table.sets.container();
    const std::vector<CallsignSet> &otherSets = reversed.sets.container();
    return std::equal(sets.begin(), sets.end(), otherSets.begin(), otherSets.end(),
                      [](const CallsignSet &a, const CallsignSet &b) {
                          return a.firstValue == b.firstValue && a.secondValue == b.secondValue
                              && a.entries.container() == b.entries.container();
                      })
        && table.overview == reversed.overview;
}

void compareTables(benchmark::State &state, const CallsignTable &table, bool inKnownPairs)
{
    const CallsignTable other = reversedCopy(table);
    for (auto _ : state)
        benchmark::DoNotOptimize(inKnownPairs ? comparedInKnownPairs(table, other) : table == other);
    if (!(table == other) || !comparedInKnownPairs(table, other))
        state.SkipWithError("the tables do not compare equal");
    setConnections(state);
}

CallsignTable tableOfIdenticalCallsignEntries(int connections)
{
    CallsignTable table = network(connections);
    for (CallsignSet &set : table.sets.container()) {
        for (CallsignEntry &entry : set.entries.container())
            entry = CallsignEntry();
    }
    return table;
}

void BM_EqualityOfIdenticalCallsignEntries(benchmark::State &state)
{
    compareTables(state, tableOfIdenticalCallsignEntries(static_cast<int>(state.range(0))), false);
}
BENCHMARK(BM_EqualityOfIdenticalCallsignEntries)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_KnownPairsOfIdenticalCallsignEntries(benchmark::State &state)
{
    compareTables(state, tableOfIdenticalCallsignEntries(static_cast<int>(state.range(0))), true);
}
BENCHMARK(BM_KnownPairsOfIdenticalCallsignEntries)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

CallsignTable tableOfConnectionsBetweenTheSameEnds(int connections)
{
    CallsignTable table;
    std::vector<ConnectionEntry> &list = table.connections.container();
    list.reserve(static_cast<size_t>(connections));
    for (int i = 0; i < connections; ++i) {
        ConnectionEntry connection;
        connection.fromDefinition = memberEnd(1);
        connection.toDefinition = memberEnd(2);
        connection.setTID(static_cast<unsigned long long>(i + 1));
        connection.fromDefinition.secondText = "note " + std::to_string(i);
        connection.modificationDate() = "2024-03-" + std::to_string(i);
        list.push_back(connection);
    }
    return table;
}

void BM_EqualityOfConnectionsBetweenTheSameEnds(benchmark::State &state)
{
    compareTables(state, tableOfConnectionsBetweenTheSameEnds(static_cast<int>(state.range(0))), false);
}
BENCHMARK(BM_EqualityOfConnectionsBetweenTheSameEnds)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_KnownPairsOfConnectionsBetweenTheSameEnds(benchmark::State &state)
{
    compareTables(state, tableOfConnectionsBetweenTheSameEnds(static_cast<int>(state.range(0))), true);
}
BENCHMARK(BM_KnownPairsOfConnectionsBetweenTheSameEnds)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_TextWrite(benchmark::State &state)
{
    const CallsignTable stored = network(static_cast<int>(state.range(0)));
    qint64 size = 0;
    for (auto _ : state) {
        const QByteArray text = stored.toUtf8Text();
        size = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * size);
    setConnections(state);
}
BENCHMARK(BM_TextWrite)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_TextRead(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    for (auto _ : state) {
        CallsignTable table;
        benchmark::DoNotOptimize(table.fromUtf8Text(text));
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextRead)->Arg(10000)->Unit(benchmark::kMillisecond);

// The floor of the text form: the same text split into its levels and joined again with bare
// QString calls, escapes included, but with no record behind it (every value stays a string).
struct TextTree
{
    QString leaf;
    std::vector<TextTree> parts;
};

const QString kFfd = QString(QChar(0xFFFD));

QString unescaped(const QString &part, const QString &separator)
{
    if (!part.contains(QLatin1Char('/')))
        return part;
    QString text = part;
    return text.replace(QLatin1Char('/') + separator, separator);
}

QString escaped(const QString &part, const QString &separator)
{
    QString text = part;
    return text.replace(separator, QLatin1Char('/') + separator);
}

// Splits \a text at the level of \a separator; \a below splits each part further (or not).
template <typename Below>
TextTree splitLevel(const QString &text, const QString &separator, Below below)
{
    TextTree tree;
    const QStringList parts = text.split(QLatin1Char('#') + separator, Qt::KeepEmptyParts);
    tree.parts.reserve(static_cast<size_t>(parts.size()));
    for (const QString &part : parts)
        tree.parts.push_back(below(unescaped(part, separator)));
    return tree;
}

TextTree leaf(const QString &text)
{
    TextTree tree;
    tree.leaf = text;
    return tree;
}

TextTree splitTable(const QString &text)
{
    const QString percent(QStringLiteral("%")), dollar(QStringLiteral("$")), bar(QStringLiteral("|")),
        tilde(QStringLiteral("~"));
    const auto values = [&](const QString &separator) {
        return [separator](const QString &part) { return splitLevel(part, separator, leaf); };
    };
    // Element references split at ":" and overview texts at "~", as the reader takes them.
    const auto reference = [](const QString &part) {
        TextTree tree;
        for (const QString &number : part.split(QLatin1Char(':'), Qt::KeepEmptyParts))
            tree.parts.push_back(leaf(number));
        return tree;
    };
    const auto overview = [&](const QString &part) {
        TextTree tree = splitLevel(part, tilde, leaf);
        for (size_t i = 0; i < 2 && i < tree.parts.size(); ++i)
            tree.parts[i].parts = reference(tree.parts[i].leaf).parts;
        return tree;
    };
    TextTree table;
    const QStringList parts = text.split(QStringLiteral("#%"), Qt::KeepEmptyParts);
    table.parts.push_back(splitLevel(unescaped(parts.value(0), percent), dollar, [&](const QString &connection) {
        TextTree tree = splitLevel(connection, bar, leaf);
        for (size_t i : {2, 5}) {
            if (i < tree.parts.size())
                tree.parts[i].parts = reference(tree.parts[i].leaf).parts;
        }
        for (size_t i : {18, 19}) {
            if (i < tree.parts.size())
                tree.parts[i].parts = overview(tree.parts[i].leaf).parts;
        }
        return tree;
    }));
    table.parts.push_back(splitLevel(unescaped(parts.value(1), percent), dollar, [&](const QString &set) {
        TextTree tree = splitLevel(set, kFfd, leaf);
        if (tree.parts.size() == 3)
            tree.parts[2] = splitLevel(tree.parts[2].leaf, tilde, values(bar));
        return tree;
    }));
    table.parts.push_back(overview(unescaped(parts.value(2), percent)));
    return table;
}

// Joins a tree again; \a separators gives the separator of each level, outermost first, and
// the set level's third part goes two levels deeper with its own separators.
QString joinTable(const TextTree &table)
{
    const auto join = [](const std::vector<QString> &parts, const QString &separator) {
        QString text;
        for (size_t i = 0; i < parts.size(); ++i) {
            if (i)
                text += QLatin1Char('#') + separator;
            text += escaped(parts[i], separator);
        }
        return text;
    };
    const auto leaves = [&](const TextTree &tree, const QString &separator) {
        std::vector<QString> parts;
        parts.reserve(tree.parts.size());
        for (const TextTree &part : tree.parts)
            parts.push_back(part.leaf);
        return join(parts, separator);
    };
    std::vector<QString> connections;
    for (const TextTree &connection : table.parts[0].parts)
        connections.push_back(leaves(connection, QStringLiteral("|")));
    std::vector<QString> sets;
    for (const TextTree &set : table.parts[1].parts) {
        std::vector<QString> entries;
        if (set.parts.size() == 3) {
            for (const TextTree &entry : set.parts[2].parts)
                entries.push_back(leaves(entry, QStringLiteral("|")));
        }
        sets.push_back(join({set.parts[0].leaf, set.parts[1].leaf, join(entries, QStringLiteral("~"))}, kFfd));
    }
    return join({join(connections, QStringLiteral("$")), join(sets, QStringLiteral("$")),
                 leaves(table.parts[2], QStringLiteral("~"))},
                QStringLiteral("%"));
}

void BM_TextFloorWrite(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    const TextTree tree = splitTable(QString::fromUtf8(text));
    if (joinTable(tree).toUtf8() != text)
        state.SkipWithError("the floor does not write the same text");
    for (auto _ : state) {
        const QByteArray out = joinTable(tree).toUtf8();
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextFloorWrite)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_TextFloorRead(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    for (auto _ : state) {
        const TextTree tree = splitTable(QString::fromUtf8(text));
        benchmark::DoNotOptimize(&tree);
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextFloorRead)->Arg(10000)->Unit(benchmark::kMillisecond);

// The limit of the text form: the UTF-8 bytes taken apart with one pointer walk at every "#" +
// separator of any level into their leaves (kept escaped, as they stand), and the leaves joined
// again into a buffer sized once. Beside it, memcpy of the whole text.

struct TextToken
{
    std::string leaf;
    int separator = -1; // the separator after the leaf (index into kSeparatorBytes), -1 at the end
};

const char *const kSeparatorBytes[] = {"%", "$", "|", "\xEF\xBF\xBD", "~"};

/// The separator starting at \a at (after a "#"), or -1.
int separatorAt(const char *at, const char *end)
{
    for (int i = 0; i < 5; ++i) {
        const size_t length = std::strlen(kSeparatorBytes[i]);
        if (static_cast<size_t>(end - at) >= length && std::memcmp(at, kSeparatorBytes[i], length) == 0)
            return i;
    }
    return -1;
}

std::vector<TextToken> scanText(const QByteArray &text)
{
    std::vector<TextToken> tokens;
    const char *at = text.constData();
    const char *end = at + text.size();
    const char *leafStart = at;
    while (at < end) {
        const char *hash = static_cast<const char *>(std::memchr(at, '#', static_cast<size_t>(end - at)));
        if (!hash)
            break;
        const int separator = separatorAt(hash + 1, end);
        if (separator < 0) {
            at = hash + 1;
            continue;
        }
        tokens.push_back({std::string(leafStart, hash), separator});
        at = hash + 1 + std::strlen(kSeparatorBytes[separator]);
        leafStart = at;
    }
    tokens.push_back({std::string(leafStart, end), -1});
    return tokens;
}

QByteArray joinTokens(const std::vector<TextToken> &tokens)
{
    qint64 size = 0;
    for (const TextToken &token : tokens)
        size += static_cast<qint64>(token.leaf.size())
            + (token.separator < 0 ? 0 : 1 + static_cast<qint64>(std::strlen(kSeparatorBytes[token.separator])));
    QByteArray out(static_cast<int>(size), Qt::Uninitialized);
    char *at = out.data();
    for (const TextToken &token : tokens) {
        std::memcpy(at, token.leaf.data(), token.leaf.size());
        at += token.leaf.size();
        if (token.separator >= 0) {
            *at++ = '#';
            const size_t length = std::strlen(kSeparatorBytes[token.separator]);
            std::memcpy(at, kSeparatorBytes[token.separator], length);
            at += length;
        }
    }
    return out;
}

void BM_TextLimitWrite(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    const std::vector<TextToken> tokens = scanText(text);
    if (joinTokens(tokens) != text)
        state.SkipWithError("the limit does not write the same text");
    for (auto _ : state) {
        const QByteArray out = joinTokens(tokens);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextLimitWrite)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_TextLimitRead(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    for (auto _ : state) {
        const std::vector<TextToken> tokens = scanText(text);
        benchmark::DoNotOptimize(tokens.data());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextLimitRead)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_TextMemcpy(benchmark::State &state)
{
    const QByteArray text = network(static_cast<int>(state.range(0))).toUtf8Text();
    for (auto _ : state) {
        QByteArray out(text.size(), Qt::Uninitialized);
        std::memcpy(out.data(), text.constData(), static_cast<size_t>(text.size()));
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    setConnections(state);
}
BENCHMARK(BM_TextMemcpy)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
