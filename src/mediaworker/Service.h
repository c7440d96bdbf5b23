// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"

namespace reelsmith::mediaworker {

/// Answers the application's requests, one after another, until it closes its end.
class Service {
public:
    /// The channel outlives the service.
    explicit Service(Channel& channel) : m_channel(channel) {}

    void run();

private:
    void answer(const Letter& letter);
    AssetProperties inspect(int source) const;
    ThumbnailReply makeThumbnail(const ThumbnailRequest& request, int source, int output) const;
    ExportFinished exportFile(const ExportRequest& request, int source, int output);

    Channel& m_channel;
};

} // namespace reelsmith::mediaworker
