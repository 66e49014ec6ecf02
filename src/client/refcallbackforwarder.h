#ifndef SIGDB_CLIENT_REFCALLBACKFORWARDER_H
#define SIGDB_CLIENT_REFCALLBACKFORWARDER_H

#include "sigdbref_export.h"

#include "core/corecallback.h"

namespace sigdb {

class RefCallback;

/// changeLink() addresses its answer to a CoreCallback, while the decoding of that answer
/// (5009, callbackLinkChanged) belongs to RefCallback. This core callback hands every raw answer
/// it receives on to a RefCallback, so that one RefCallback can serve all reference orders:
///
///     sigdb::RefCallbackForwarder forwarder(myRefCallback);
///     requests.changeLink(change, &forwarder);
class SIGDBREF_EXPORT RefCallbackForwarder : public CoreCallback
{
public:
    /// A forwarder that hands every answer to \a target, which must outlive it.
    explicit RefCallbackForwarder(RefCallback &target);

    /// The RefCallback that receives the answers.
    RefCallback &target() const { return m_target; }

private:
    bool callbackRawData(int orderType, const QByteArray &data) override;

    RefCallback &m_target;
};

} // namespace sigdb

#endif
