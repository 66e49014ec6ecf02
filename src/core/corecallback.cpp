#include "core/corecallback.h"

#include <QByteArray>

namespace sigdb {

CoreCallback::CoreCallback() = default;
CoreCallback::CoreCallback(const CoreCallback &) = default;
CoreCallback &CoreCallback::operator=(const CoreCallback &) = default;
CoreCallback::~CoreCallback() = default;

void CoreCallback::callbackDbMaintenanceAnswer(const DbMaintenanceAnswer &) {}
void CoreCallback::callbackDictionary(DictionaryEntryList &) {}
void CoreCallback::callbackLockChange(const LockedElementData &) {}
void CoreCallback::callbackMessage(const CallbackMessage &) {}
void CoreCallback::callbackNearestAreas(IAreaOfInterestList &) {}
void CoreCallback::callbackSigdbAnswer(SigdbAnswer &) {}
void CoreCallback::callbackVersionInfoVector(const VersionInfoVector &) {}

bool CoreCallback::callbackRawData(int, const QByteArray &)
{
    // The core's own answers are decoded by the core library's transport, which this
    // substitute does not have.
    return false;
}

CoreInterface::CoreInterface() = default;
CoreInterface::~CoreInterface() = default;

} // namespace sigdb
