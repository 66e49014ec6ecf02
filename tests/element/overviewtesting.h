#ifndef SIGDB_TESTS_ELEMENT_OVERVIEWTESTING_H
#define SIGDB_TESTS_ELEMENT_OVERVIEWTESTING_H

#include "core/locationentry.h"
#include "core/sigdbelement.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// Builders and stream helpers shared by the element tests.
namespace overviewtest {

/// The stream form of \a record, numbered from 0 as serialize() does.
template <typename Record>
QByteArray encode(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

/// Decodes \a bytes into \a record after numbering it from 0, as the answer dispatch does.
template <typename Record>
bool decode(const QByteArray &bytes, Record &record)
{
    sigdb::ColumnReader reader(bytes);
    record.setIDs(0);
    return record.readFrom(reader);
}

inline sigdb::SigdbElement element(int type, unsigned long long tid)
{
    sigdb::SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    return e;
}

inline sigdb::LocationEntry location(double latitude, double longitude, const char *validFrom)
{
    sigdb::LocationEntry entry;
    entry.latitude = latitude;
    entry.longitude = longitude;
    entry.validFrom = std::string(validFrom);
    entry.indication = sigdb::LocationIndication_Own;
    entry.modification = sigdb::LocationModification_Changed;
    return entry;
}

/// The element encoding of a default element whose TID, exchange id and modification user
/// carry the ids given (as hex bytes), followed by a blank.
inline std::string defaultElementHex(const char *tidId, const char *exchgId, const char *userId)
{
    return std::string("00 01 00 02 00 00 " // type 0
                       "00 02 00 02 00 00 " // sub-type 0
                       "00 ") + tidId + " 00 00 " // TID NULL
        + "00 04 00 02 00 00 "                     // approval action
          "00 05 00 02 00 00 "                     // approval state
          "00 06 00 02 00 00 "                     // change kind
          "00 07 00 02 00 00 "                     // layer
          "00 " + exchgId + " 00 00 "              // exchange id NULL
        + "00 " + userId + " 00 00 ";              // modification user NULL
}

/// An overview of element (type, tid) with nothing else set.
inline sigdb::ElementOverview overviewOf(int type, unsigned long long tid)
{
    sigdb::ElementOverview overview;
    overview.element = element(type, tid);
    return overview;
}

/// An overview with every field set to a value that survives the stream (int and enumeration
/// columns travel in one byte).
inline sigdb::ElementOverview populatedOverview(unsigned long long tid = 1001)
{
    sigdb::ElementOverview o;
    o.element = element(1, tid);
    o.element.setApvState(1024 + 4);
    o.element.setApproveType(sigdb::Approval_Accept);
    o.element.setChangeType(3);
    o.element.setSubType(9);
    o.element.setLayer(1);
    o.element.setExchgId(std::string("EX-") + std::to_string(tid));
    o.element.setModificationUser(std::string("alice"));
    o.relatedElement = element(2, 2002);
    o.exchgIdText = std::string("X-TEXT");
    o.infoText2 = std::string("info two");
    o.infoText3 = std::string("");
    o.infoText4 = std::string("info four");
    o.keyText1 = std::string("KEY-");
    o.keyText2 = std::string("ONE");
    o.keyText3 = std::string("third");
    o.locationIndication = sigdb::LocationIndication_Collocated;
    o.modificationState = sigdb::Modification_ChangedInMdl;
    o.linkModificationState = sigdb::LinkModification_NotApproved;
    o.networkTypeWord = 18;
    o.auxiliaryTid = 0x0102030405060708ULL;
    o.location = location(48.5, 9.25, "2024-01-02 03:04:05");
    o.locationList.appendEntry(location(1.0, 2.0, "2020-01-01 00:00:00"));
    o.locationList.appendEntry(location(-3.5, 4.75, "2021-06-30 12:00:00"));
    o.uniqueLinks.appendEntry(element(2, 2002));
    o.uniqueLinks.appendEntry(element(3, 3003));
    o.collocationGroupLeader = true;
    o.orderNumber = 7;
    o.collocationModState = 20;
    return o;
}

/// A list with results, sub-lists and sub-sub-lists, every list field set.
inline sigdb::ElementOverviewList populatedTree()
{
    sigdb::ElementOverviewList inner;
    inner.setParentDefinition(element(24, 300));
    inner.appendResult(populatedOverview(31), false);
    inner.setCollocationModificationState(16);
    inner.listText2 = std::string("inner");

    sigdb::ElementOverviewList middle;
    middle.setParentDefinition(element(24, 200));
    middle.appendResult(populatedOverview(21), false);
    middle.appendResult(overviewOf(3, 22), false);
    middle.appendResultList(inner);
    middle.setCollocatedLocation(location(7.0, 8.0, "2022-02-02 02:02:02"));

    sigdb::ElementOverviewList top;
    top.setParentDefinition(element(24, 100));
    top.setMoreResultsAvailable(12);
    top.setRequestedListType(static_cast<sigdb::ElementList_Type>(3));
    top.setDataLayer(2);
    top.setCollocationModificationState(5);
    top.listText1 = std::string("one");
    top.listText2 = std::string("two");
    top.listText3 = std::string("three");
    top.setCollocatedLocation(location(50.0, 8.5, "2023-03-03 03:03:03"));
    top.appendResult(populatedOverview(11), false);
    top.appendResult(overviewOf(2, 12), false);
    top.appendResultList(middle);
    top.appendResultList(sigdb::ElementOverviewList());
    return top;
}

/// One named change of a record, for equality tests.
template <typename Record>
using Change = std::pair<const char *, std::function<void(Record &)>>;

/// Expects every change of \a changes, applied alone to a copy of \a original, to make the
/// copy unequal to the original.
template <typename Record>
void expectEveryChangeMatters(const Record &original, const std::vector<Change<Record>> &changes)
{
    for (const Change<Record> &change : changes) {
        Record changed = original;
        change.second(changed);
        EXPECT_FALSE(original == changed) << change.first;
        EXPECT_TRUE(original != changed) << change.first;
    }
}

} // namespace overviewtest

#endif
