#ifndef SIGDB_NETWORK_CALLSIGNTABLETEXT_H
#define SIGDB_NETWORK_CALLSIGNTABLETEXT_H

#include "sigdbref_export.h"

#include <QByteArray>
#include <QString>

namespace sigdb {

class CallsignEntry;
class CallsignSet;
class CallsignTable;
class ConnectionEntry;
class ElementOverview;
class SigdbElement;

/// The text form in which a callsign table travels inside element details (as one UTF-8 text
/// under tag 1111).
///
/// Every value of the table becomes a text and the texts are joined level by level. Each level
/// joins its parts with "#" followed by its separator and escapes the separator inside a part
/// as "/" followed by it; "/" and "#" themselves are never escaped, and empty parts keep their
/// place. From the outside in:
///
/// | Level                                | Separator | Parts                                   |
/// |--------------------------------------|-----------|-----------------------------------------|
/// | table                                | %         | connection list, set list, overview     |
/// | connection list, set list            | $         | one text per connection or set          |
/// | connection                           | \|        | the 20 values below                     |
/// | callsign set                         | U+FFFD    | first text, second text, entry list     |
/// | callsign entry list, overview        | ~         | one text per entry; the overview values |
/// | callsign entry                       | \|        | the four callsigns                      |
///
/// U+FFFD is the separator itself (the UTF-8 bytes EF BF BD), not a damaged character.
///
/// Values: NULL is the empty text; numbers are decimal; booleans are "T" and "F" (the reader
/// also takes "1"/"0" and "true"/"false" in any case); texts are their characters (the 8-bit
/// texts of the records are taken as UTF-8); an element is the reference "type:TID:layer"
/// (the TID empty while NULL), which carries nothing else of the element.
///
/// A connection gives: 1-3 the from end's first text, second text and element; 4-6 the same
/// of the to end; 7-10 the RCS and relay flags of the from end, then of the to end; 11 the
/// connection flag; 12 the connection's TID; 13 its modification state; 14 its modification
/// date; 15 its creation date; 16 its modification user; 17 its name; 18 its second number;
/// 19 and 20 the overviews of the from and the to end. The connection's own layer and element
/// attributes other than the TID are not carried (a caller that knows the layer sets it with
/// CallsignTable::setLayer()).
///
/// An overview gives 17 values in the overview's field order: element, relatedElement (both
/// as references), exchgIdText, infoText2, infoText3, infoText4, keyText1, keyText2, keyText3,
/// locationIndication, modificationState, linkModificationState, networkTypeWord, auxiliaryTid,
/// collocationGroupLeader, orderNumber, collocationModState. The location, the location list
/// and the uniquely linked elements are not part of the text form.
///
/// An empty list is the empty text. A NULL text and an empty text both become the empty text
/// and are read back as NULL.
///
/// Reading goes by position. Every part of a list becomes one record (entry i of every set
/// belongs to connection i, so no part may be left out); a position that a record's text does
/// not reach reads as the empty text, so NULL (an element reference as the undefined element),
/// and parts beyond a record's last value are ignored. Reading never trusts the text: a value
/// that does not read stays NULL (of an element reference only the numbers that read are set)
/// and the reader reports false; everything readable is rebuilt.
class SIGDBREF_EXPORT CallsignTableText
{
public:
    /// The text form of \a table.
    static QString write(const CallsignTable &table);
    /// Replaces the contents of \a table (connections, sets, overview) by what \a text holds;
    /// false when \a text is malformed. \a table's own layer is kept.
    static bool read(const QString &text, CallsignTable &table);

    /// Receives the records of a text form one at a time, in the order of the text, so that a
    /// table can be looked at without holding it: a text of a few megabytes can stand for
    /// millions of records (an empty part is a whole record of NULL values). Every record
    /// arrives freshly read and is the receiver's to keep or drop.
    class SIGDBREF_EXPORT Visitor
    {
    public:
        virtual ~Visitor();
        /// The next connection of the connection list.
        virtual void connection(ConnectionEntry &&connection) = 0;
        /// The next callsign set, with its two texts and still without entries; its entries
        /// follow through entry(), then endSet().
        virtual void beginSet(CallsignSet &&set) = 0;
        /// The next entry of the set begun last.
        virtual void entry(CallsignEntry &&entry) = 0;
        /// The set begun last has no more entries.
        virtual void endSet() = 0;
        /// The network overview, after all connections and sets.
        virtual void overview(ElementOverview &&overview) = 0;
    };

    /// Reads \a text record by record into \a visitor, by the rules of read(); false when
    /// \a text is malformed (everything readable has been handed over all the same).
    static bool read(const QString &text, Visitor &visitor);
    /// read() of UTF-8 bytes into \a visitor.
    static bool readUtf8(const QByteArray &text, Visitor &visitor);

    /// write() as UTF-8, as element details carry it.
    static QByteArray writeUtf8(const CallsignTable &table);
    /// read() of UTF-8 bytes (malformed UTF-8 reads as U+FFFD).
    static bool readUtf8(const QByteArray &text, CallsignTable &table);

    /// The overview values of \a overview joined at the overview level.
    static QString writeOverview(const ElementOverview &overview);
    /// Replaces the carried values of \a overview by those of \a text; false when malformed.
    static bool readOverview(const QString &text, ElementOverview &overview);

    /// "type:TID:layer" of \a element.
    static QString writeElementReference(const SigdbElement &element);
    /// Resets \a element and sets type, TID and layer from \a text; false when \a text is not
    /// three unsigned decimal numbers (the TID may be empty for NULL), in which case the
    /// numbers that did read are set.
    static bool readElementReference(const QString &text, SigdbElement &element);
};

} // namespace sigdb

#endif
