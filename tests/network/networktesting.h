#ifndef SIGDB_TESTS_NETWORK_NETWORKTESTING_H
#define SIGDB_TESTS_NETWORK_NETWORKTESTING_H

#include "network/callsigntable.h"

#include <initializer_list>
#include <string>

// Builders shared by the network tests.
namespace networktest {

using Text = base::DbDataType<std::string>;

inline Text text(const char *value)
{
    return value ? Text(std::string(value)) : Text();
}

inline sigdb::SigdbElement element(int type, unsigned long long tid, int layer = 0)
{
    sigdb::SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    e.setLayer(layer);
    return e;
}

/// An element of type 0 without TID: what an unused connection end holds.
inline sigdb::SigdbElement undefinedElement()
{
    return sigdb::SigdbElement();
}

/// A connection end naming \a e, with the overview keys \a name and flags as given (NULL when
/// not given).
inline sigdb::ConnectionEntryDefinition end(const sigdb::SigdbElement &e, const char *name = nullptr)
{
    sigdb::ConnectionEntryDefinition d;
    d.element = e;
    d.overview.element = e;
    d.overview.keyText1 = text(name);
    return d;
}

inline sigdb::ConnectionEntryDefinition rcsEnd(const sigdb::SigdbElement &e)
{
    sigdb::ConnectionEntryDefinition d = end(e);
    d.rcs = true;
    return d;
}

inline sigdb::ConnectionEntryDefinition relayEnd(const sigdb::SigdbElement &e)
{
    sigdb::ConnectionEntryDefinition d = end(e);
    d.relay = true;
    return d;
}

/// A connection with its own TID (none when \a tid is 0) between two ends.
inline sigdb::ConnectionEntry connection(unsigned long long tid, const sigdb::ConnectionEntryDefinition &from,
                                         const sigdb::ConnectionEntryDefinition &to)
{
    sigdb::ConnectionEntry c;
    if (tid != 0)
        c.setTID(tid);
    c.fromDefinition = from;
    c.toDefinition = to;
    return c;
}

inline sigdb::ConnectionEntry connection(unsigned long long tid, const sigdb::SigdbElement &from,
                                         const sigdb::SigdbElement &to)
{
    return connection(tid, end(from), end(to));
}

/// A callsign entry; a null pointer stands for a NULL callsign.
inline sigdb::CallsignEntry callsigns(const char *first, const char *second = nullptr,
                                      const char *third = nullptr, const char *fourth = nullptr)
{
    sigdb::CallsignEntry e;
    e.firstCallsign = text(first);
    e.secondCallsign = text(second);
    e.thirdCallsign = text(third);
    e.fourthCallsign = text(fourth);
    return e;
}

inline sigdb::CallsignSet set(std::initializer_list<sigdb::CallsignEntry> entries)
{
    sigdb::CallsignSet s;
    for (const sigdb::CallsignEntry &e : entries)
        s.entries.appendEntry(e);
    return s;
}

inline sigdb::CallsignTable table(std::initializer_list<sigdb::ConnectionEntry> connections,
                                  std::initializer_list<sigdb::CallsignSet> sets)
{
    sigdb::CallsignTable t;
    for (const sigdb::ConnectionEntry &c : connections)
        t.connections.appendEntry(c);
    for (const sigdb::CallsignSet &s : sets)
        t.sets.appendEntry(s);
    return t;
}

/// The four callsigns of \a e as one text, NULL shown as "<null>".
inline std::string show(const sigdb::CallsignEntry &e)
{
    std::string shown;
    const char *separator = "";
    for (const Text *t : {&e.firstCallsign, &e.secondCallsign, &e.thirdCallsign, &e.fourthCallsign}) {
        shown += separator;
        shown += t->isNull() ? std::string("<null>") : t->getData();
        separator = ",";
    }
    return shown;
}

} // namespace networktest

#endif
