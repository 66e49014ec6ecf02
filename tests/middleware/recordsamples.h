#ifndef SIGDB_TESTS_MIDDLEWARE_RECORDSAMPLES_H
#define SIGDB_TESTS_MIDDLEWARE_RECORDSAMPLES_H

// One sample per middleware record class, written from the documented record layouts and
// independent of the library's property tables:
//
// - names: every property name in index order;
// - kinds: one letter per property, R required or O optional on reading;
// - defaultBytes(): the stream of a default-constructed record, worked out by hand;
// - populated(): a record in which every property differs from its default.

#include "middleware/inforecords.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"

#include "testsupport.h"

namespace mwtest {

using sigdbtest::bytes;

template <typename Record>
struct Sample;

// ---------------------------------------------------------------------------------------------
// Version records

template <>
struct Sample<sigdb::ProductVersion>
{
    static constexpr const char *names = "StoreType Origin Major Minor Bugfix Build VersionDate BuildDate";
    static constexpr const char *kinds = "RRRRRRRR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000005 00000001 00"
                     "00000002 00000004 00000000"
                     "00000003 00000004 00000000"
                     "00000004 00000004 00000000"
                     "00000005 00000004 00000000"
                     "00000006 00000005 00000001 00"
                     "00000007 00000005 00000001 00");
    }
    static sigdb::ProductVersion populated()
    {
        sigdb::ProductVersion version;
        version.setLayer(1);
        version.setOrigin("sigdb-server");
        version.setMajor(4);
        version.setMinor(12);
        version.setBugfix(3);
        version.setBuild(20871);
        version.setVersionDate("2024-03-01");
        version.setBuildDate("2024-03-02 17:45");
        return version;
    }
};

template <>
struct Sample<sigdb::InterfaceVersion>
{
    static constexpr const char *names = "StoreType Major Minor";
    static constexpr const char *kinds = "RRR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000");
    }
    static sigdb::InterfaceVersion populated() { return make(7, 1); }
    static sigdb::InterfaceVersion make(int major, int minor)
    {
        sigdb::InterfaceVersion version;
        version.setLayer(2);
        version.setMajor(major);
        version.setMinor(minor);
        return version;
    }
};

template <>
struct Sample<sigdb::VersionInfo>
{
    static constexpr const char *names = "StoreType ProductVersion InterfaceVersion "
                                         "RequiredInterfaceVersion InterfaceMatching InterfaceIdentifier";
    static constexpr const char *kinds = "RRRRRR";
    static QByteArray defaultBytes()
    {
        // Nested records: block size = 4 (array length) + the nested stream (99 and 36 bytes).
        return bytes("00000000 00000004 00000000")
            + bytes("00000001 00000067 00000063") + Sample<sigdb::ProductVersion>::defaultBytes()
            + bytes("00000002 00000028 00000024") + Sample<sigdb::InterfaceVersion>::defaultBytes()
            + bytes("00000003 00000028 00000024") + Sample<sigdb::InterfaceVersion>::defaultBytes()
            + bytes("00000004 00000004 00000000"
                    "00000005 00000004 00000000");
    }
    static sigdb::VersionInfo populated()
    {
        sigdb::VersionInfo info;
        info.setLayer(1);
        info.setProductVersion(Sample<sigdb::ProductVersion>::populated());
        info.setInterfaceVersion(Sample<sigdb::InterfaceVersion>::populated());
        info.setRequiredInterfaceVersion(Sample<sigdb::InterfaceVersion>::make(3, 9));
        info.setInterfaceMatching(sigdb::InterfaceMatching_Compatible);
        info.setInterfaceIdentifier(sigdb::InterfaceIdentifier_Reference);
        return info;
    }
};

// Every ...Vector has StoreType and its entries, and a default one is StoreType 0 and an empty
// vector (count 0). Its populated sample holds the element's populated sample and \a second.
struct EntryVectorSample
{
    static constexpr const char *names = "StoreType Vector";
    static constexpr const char *kinds = "RO";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000");
    }
};

template <typename VectorRecord, typename Element>
VectorRecord entriesOf(int layer, const Element &second)
{
    VectorRecord vector;
    vector.setLayer(layer);
    vector.setVector({Sample<Element>::populated(), second});
    return vector;
}

template <>
struct Sample<sigdb::ProductVersionVector> : EntryVectorSample
{
    static sigdb::ProductVersionVector populated()
    {
        sigdb::ProductVersion client;
        client.setOrigin("client");
        client.setMajor(1);
        return entriesOf<sigdb::ProductVersionVector>(2, client);
    }
};

template <>
struct Sample<sigdb::InterfaceVersionVector> : EntryVectorSample
{
    static sigdb::InterfaceVersionVector populated()
    {
        return entriesOf<sigdb::InterfaceVersionVector>(1, Sample<sigdb::InterfaceVersion>::make(2, 0));
    }
};

template <>
struct Sample<sigdb::VersionInfoVector> : EntryVectorSample
{
    static constexpr const char *names = "StoreType VersionInfoVector";
    static sigdb::VersionInfoVector populated()
    {
        sigdb::VersionInfo other;
        other.setInterfaceMatching(sigdb::InterfaceMatching_Mismatch);
        sigdb::VersionInfoVector vector;
        vector.setLayer(2);
        vector.setVersionInfoVector({Sample<sigdb::VersionInfo>::populated(), other});
        return vector;
    }
};

// ---------------------------------------------------------------------------------------------
// Maintenance records

template <>
struct Sample<sigdb::DbMaintenanceRequest>
{
    static constexpr const char *names = "StoreType Interface Action OptionalData";
    static constexpr const char *kinds = "RRRO";
    static QByteArray defaultBytes()
    {
        // OptionalData is NULL: no block.
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000");
    }
    static sigdb::DbMaintenanceRequest populated()
    {
        sigdb::DbMaintenanceRequest request;
        request.setLayer(1);
        request.setInterface(sigdb::InterfaceIdentifier_Core);
        request.setAction(sigdb::DbMaintenanceAction_Backup);
        request.setOptionalData("target=/srv/backup");
        return request;
    }
};

template <>
struct Sample<sigdb::DbMaintenanceAnswer>
{
    static constexpr const char *names = "StoreType Request Result";
    static constexpr const char *kinds = "RRR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000")
            + bytes("00000001 00000028 00000024") + Sample<sigdb::DbMaintenanceRequest>::defaultBytes()
            + bytes("00000002 00000004 00000000");
    }
    static sigdb::DbMaintenanceAnswer populated()
    {
        sigdb::DbMaintenanceAnswer answer;
        answer.setLayer(2);
        answer.setRequest(Sample<sigdb::DbMaintenanceRequest>::populated());
        answer.setResult(sigdb::DbMaintenanceResult_Failed);
        return answer;
    }
};

template <>
struct Sample<sigdb::DbMaintenanceRequestVector> : EntryVectorSample
{
    static sigdb::DbMaintenanceRequestVector populated()
    {
        sigdb::DbMaintenanceRequest check;
        check.setAction(sigdb::DbMaintenanceAction_Check);
        return entriesOf<sigdb::DbMaintenanceRequestVector>(1, check);
    }
};

template <>
struct Sample<sigdb::DbMaintenanceAnswerVector> : EntryVectorSample
{
    static sigdb::DbMaintenanceAnswerVector populated()
    {
        sigdb::DbMaintenanceAnswer success;
        success.setResult(sigdb::DbMaintenanceResult_Success);
        return entriesOf<sigdb::DbMaintenanceAnswerVector>(2, success);
    }
};

// ---------------------------------------------------------------------------------------------
// Information records

template <>
struct Sample<sigdb::Message>
{
    static constexpr const char *names = "StoreType Message";
    static constexpr const char *kinds = "RR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000");
    }
    static sigdb::Message populated()
    {
        sigdb::Message message;
        message.setLayer(2);
        message.setMessage(sigdb::MessageType_Shutdown);
        return message;
    }
};

template <>
struct Sample<sigdb::MInfoAnswer>
{
    static constexpr const char *names = "StoreType RequestType InfoStrings";
    static constexpr const char *kinds = "RRO";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000");
    }
    static sigdb::MInfoAnswer populated()
    {
        sigdb::MInfoAnswer answer;
        answer.setLayer(1);
        answer.setRequestType(17);
        answer.setInfoStrings({"users: 4", "", "\xC3\xA4rger"});
        return answer;
    }
};

template <>
struct Sample<sigdb::MInfoClientLogin>
{
    static constexpr const char *names =
        "StoreType ClientUserName ClientMessagingRequest ClientType ClientTeams";
    static constexpr const char *kinds = "ROOOO";
    static QByteArray defaultBytes()
    {
        // The three nullable values are NULL: blocks 1 to 3 are absent.
        return bytes("00000000 00000004 00000000"
                     "00000004 00000004 00000000");
    }
    static sigdb::MInfoClientLogin populated()
    {
        sigdb::MInfoClientLogin login;
        login.setLayer(2);
        login.setClientUserName("mueller");
        login.setClientMessagingRequest(0xFFFFFFFFu);
        login.setClientType(sigdb::ClientConnectionType_Service);
        login.setClientTeams({"red", "blue"});
        return login;
    }
};

template <>
struct Sample<sigdb::MInfoMessage>
{
    static constexpr const char *names = "StoreType MessageType MessageStrings";
    static constexpr const char *kinds = "RRO";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000");
    }
    static sigdb::MInfoMessage populated()
    {
        sigdb::MInfoMessage message;
        message.setLayer(1);
        message.setMessageType(sigdb::MIMessageType_Warning);
        message.setMessageStrings({"disk full", "retry later"});
        return message;
    }
};

template <>
struct Sample<sigdb::MInfoWarningLevel>
{
    static constexpr const char *names = "StoreType WarningLevelClient WarningLevelMiddleware "
                                         "ConnectionStateClient ConnectionStateMiddleware";
    static constexpr const char *kinds = "ROOOO";
    static QByteArray defaultBytes() { return bytes("00000000 00000004 00000000"); }
    static sigdb::MInfoWarningLevel populated()
    {
        sigdb::MInfoWarningLevel level;
        level.setLayer(2);
        level.setWarningLevelClient(2);
        level.setWarningLevelMiddleware(3);
        level.setConnectionStateClient(sigdb::ConnectionState_Degraded);
        level.setConnectionStateMiddleware(9);
        return level;
    }
};

template <>
struct Sample<sigdb::CallbackMessage>
{
    static constexpr const char *names = "StoreType messageType stringValues intValue";
    static constexpr const char *kinds = "RROR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000"
                     "00000003 00000004 00000000");
    }
    static sigdb::CallbackMessage populated()
    {
        sigdb::CallbackMessage message;
        message.setLayer(1);
        message.setmessageType(sigdb::CallbackMessageType_Progress);
        message.setstringValues({"import", "75%"});
        message.setintValue(-42);
        return message;
    }
};

template <>
struct Sample<sigdb::MessageVector> : EntryVectorSample
{
    static sigdb::MessageVector populated()
    {
        sigdb::Message ping;
        ping.setMessage(sigdb::MessageType_Ping);
        return entriesOf<sigdb::MessageVector>(1, ping);
    }
};

template <>
struct Sample<sigdb::MInfoAnswerVector> : EntryVectorSample
{
    static sigdb::MInfoAnswerVector populated()
    {
        return entriesOf<sigdb::MInfoAnswerVector>(2, sigdb::MInfoAnswer());
    }
};

template <>
struct Sample<sigdb::MInfoClientLoginVector> : EntryVectorSample
{
    static sigdb::MInfoClientLoginVector populated()
    {
        sigdb::MInfoClientLogin anonymous;
        anonymous.setClientType(sigdb::ClientConnectionType_Interactive);
        return entriesOf<sigdb::MInfoClientLoginVector>(1, anonymous);
    }
};

template <>
struct Sample<sigdb::MInfoMessageVector> : EntryVectorSample
{
    static sigdb::MInfoMessageVector populated()
    {
        sigdb::MInfoMessage error;
        error.setMessageType(sigdb::MIMessageType_Error);
        return entriesOf<sigdb::MInfoMessageVector>(2, error);
    }
};

template <>
struct Sample<sigdb::MInfoWarningLevelVector> : EntryVectorSample
{
    static sigdb::MInfoWarningLevelVector populated()
    {
        sigdb::MInfoWarningLevel clientOnly;
        clientOnly.setWarningLevelClient(1);
        return entriesOf<sigdb::MInfoWarningLevelVector>(1, clientOnly);
    }
};

template <>
struct Sample<sigdb::CallbackMessageVector> : EntryVectorSample
{
    static sigdb::CallbackMessageVector populated()
    {
        sigdb::CallbackMessage error;
        error.setmessageType(sigdb::CallbackMessageType_Error);
        error.setintValue(5);
        return entriesOf<sigdb::CallbackMessageVector>(2, error);
    }
};

// ---------------------------------------------------------------------------------------------
// Lock records

template <>
struct Sample<sigdb::LockedElementData>
{
    static constexpr const char *names = "StoreType Type ExchgId Tid UserName Ip Date LockState "
                                         "LockType ClientId LockedByMe";
    static constexpr const char *kinds = "RROORRRRRRR";
    static QByteArray defaultBytes()
    {
        // ExchgId and Tid are NULL: blocks 2 and 3 are absent.
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000004 00000005 00000001 00"
                     "00000005 00000005 00000001 00"
                     "00000006 00000005 00000001 00"
                     "00000007 00000004 00000000"
                     "00000008 00000004 00000000"
                     "00000009 00000004 00000000"
                     "0000000A 00000001 00");
    }
    static sigdb::LockedElementData populated()
    {
        sigdb::LockedElementData lock;
        lock.setLayer(1);
        lock.setType(4);
        lock.setExchgId("X-4711");
        lock.setTid(0xFFFFFFFFFFFFFFFFull);
        lock.setUserName("mueller");
        lock.setIp("10.0.0.7");
        lock.setDate("2024-03-01 08:00");
        lock.setLockState(sigdb::LockState_Locked);
        lock.setLockType(static_cast<sigdb::LockType>(77)); // a number without an enumerator
        lock.setClientId(12);
        lock.setLockedByMe(true);
        return lock;
    }
};

template <>
struct Sample<sigdb::LockedElementDataVector>
{
    static constexpr const char *names = "StoreType Vector ClientId UserName";
    static constexpr const char *kinds = "RORO";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000004 00000000");
    }
    static sigdb::LockedElementDataVector populated()
    {
        sigdb::LockedElementData other;
        other.setType(9);
        other.setUserName("schmidt");
        sigdb::LockedElementDataVector vector;
        vector.setLayer(2);
        vector.setVector({Sample<sigdb::LockedElementData>::populated(), other});
        vector.setClientId(12);
        vector.setUserName("mueller");
        return vector;
    }
};

// ---------------------------------------------------------------------------------------------
// Name-value records

template <>
struct Sample<sigdb::NameValuePair>
{
    static constexpr const char *names = "StoreType Name Value";
    static constexpr const char *kinds = "RRR";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000005 00000001 00"
                     "00000002 00000005 00000001 00");
    }
    static sigdb::NameValuePair populated() { return make("colour", "blue"); }
    static sigdb::NameValuePair make(const char *name, const char *value)
    {
        sigdb::NameValuePair pair;
        pair.setLayer(1);
        pair.setName(name);
        pair.setValue(value);
        return pair;
    }
};

template <>
struct Sample<sigdb::NameValueDataForElement>
{
    static constexpr const char *names = "StoreType ElementType ElementExchgId Vector";
    static constexpr const char *kinds = "RRRO";
    static QByteArray defaultBytes()
    {
        return bytes("00000000 00000004 00000000"
                     "00000001 00000004 00000000"
                     "00000002 00000005 00000001 00"
                     "00000003 00000004 00000000");
    }
    static sigdb::NameValueDataForElement populated()
    {
        sigdb::NameValueDataForElement data;
        data.setLayer(2);
        data.setElementType(4);
        data.setElementExchgId("X-4711");
        data.setVector({Sample<sigdb::NameValuePair>::populated(),
                        Sample<sigdb::NameValuePair>::make("height", "12 m")});
        return data;
    }
};

template <>
struct Sample<sigdb::NameValuePairVector> : EntryVectorSample
{
    static sigdb::NameValuePairVector populated()
    {
        return entriesOf<sigdb::NameValuePairVector>(1, Sample<sigdb::NameValuePair>::make("", ""));
    }
};

template <>
struct Sample<sigdb::NameValueDataForElementVector> : EntryVectorSample
{
    static sigdb::NameValueDataForElementVector populated()
    {
        sigdb::NameValueDataForElement empty;
        empty.setElementType(7);
        return entriesOf<sigdb::NameValueDataForElementVector>(2, empty);
    }
};

} // namespace mwtest

#endif
