// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Installations.h"
#include "platform/services/StateFile.h"

#include <memory>
#include <mutex>

namespace reelsmith {

/// Tells this installation apart by random numbers of its own making, kept in the data folder. Programs that
/// run at once agree on them. What cannot be kept holds for this program alone. Any thread.
class LocalInstallations : public Installations, public std::enable_shared_from_this<LocalInstallations> {
public:
    explicit LocalInstallations(const QString& folder = StateFile::folder());

    /// The installation's UUID, in lower case without braces. The first call of all makes it.
    QString id();

    /// The token: 256 random bits as base64url. Found or made, and completed, on a global queue, without an
    /// error; the object must be a shared one.
    void authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) override;

private:
    QString token(Refresh refresh);
    template<typename IsGood, typename Make>
    QString keptOrNew(const StateFile& file, IsGood isGood, Make make) const;

    const QString m_folder;
    const StateFile m_idFile, m_tokenFile;
    std::mutex m_mutex;
    QString m_id, m_token; // empty until known
};

} // namespace reelsmith
