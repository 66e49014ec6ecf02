#ifndef SIGDB_TESTS_LINK_LINKTESTUTIL_H
#define SIGDB_TESTS_LINK_LINKTESTUTIL_H

#include "core/sigdbtablespace.h"
#include "link/linkaction.h"

#include "testsupport.h"

namespace linktest {

/// An element of \a type with the TID \a tid.
inline sigdb::SigdbElement element(int type, unsigned long long tid)
{
    sigdb::SigdbElement e;
    e.setType(type);
    e.setTID(tid);
    return e;
}

/// A link from an element of \a typeA (TID \a tidA) to one of \a typeB (TID \a tidB).
inline sigdb::LinkAction link(int typeA, int typeB, int actionType = 0,
                              unsigned long long tidA = 100, unsigned long long tidB = 200)
{
    sigdb::LinkAction l;
    l.setFromElement(element(typeA, tidA));
    l.setToElement(element(typeB, tidB));
    l.setActionType(actionType);
    return l;
}

/// Loads a small schema of its own for the lifetime of a test and restores the default after.
///
///   types: 1 Unit CORE UNI, 2 Platform CORE PLA, 3 Transceiver CORE TRX (superior 1),
///          4 Network CORE NET, 5 Profile REF PRO (ordered links to 26),
///          7 Cell GEO CEL, 26 ProfileList REF PRL, 27 TspPartner REF TSP
///   links: 4->1 unique, 4->2, 1->3 unique, 7->7 unique, 2->2, 5->26, 3->5 (own table name
///          TRXPROFILES), 27->1
class SmallSchema : public testing::Test
{
protected:
    void SetUp() override
    {
        sigdb::SigdbTableSpace &space = sigdb::SigdbTableSpace::instance();
        space.clear();
        space.addTable(sigdb::SigdbTable(1, "Unit", "CORE", "UNI"));
        space.addTable(sigdb::SigdbTable(2, "Platform", "CORE", "PLA"));
        sigdb::SigdbTable transceiver(3, "Transceiver", "CORE", "TRX");
        transceiver.setSuperiorType(1);
        space.addTable(transceiver);
        space.addTable(sigdb::SigdbTable(4, "Network", "CORE", "NET"));
        sigdb::SigdbTable profile(5, "Profile", "REF", "PRO");
        profile.addOrderedLinkType(26);
        space.addTable(profile);
        space.addTable(sigdb::SigdbTable(7, "Cell", "GEO", "CEL"));
        space.addTable(sigdb::SigdbTable(26, "ProfileList", "REF", "PRL"));
        space.addTable(sigdb::SigdbTable(27, "TspPartner", "REF", "TSP"));
        space.addLinkType(4, 1, true);
        space.addLinkType(4, 2);
        space.addLinkType(1, 3, true);
        space.addLinkType(7, 7, true);
        space.addLinkType(2, 2);
        space.addLinkType(5, 26);
        space.addLinkType(3, 5, false, "TRXPROFILES");
        space.addLinkType(27, 1);
    }

    sigdbtest::DefaultSchemaGuard m_guard;
};

} // namespace linktest

#endif
