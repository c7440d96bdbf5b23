// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/DocumentChooser.h"
#include "platform/screens/FileSharing.h"
#include "platform/screens/MailDrafts.h"
#include "platform/screens/NowPlaying.h"
#include "platform/screens/StorePage.h"

#include <memory>

namespace reelsmith {

/// The desktop's services that the platform's own screens stand on; none of them is there at first. Main
/// thread.
struct PlatformServices {
    std::unique_ptr<DocumentChooser> documentChooser = std::make_unique<DocumentChooser>();
    std::unique_ptr<FileSharing> fileSharing = std::make_unique<FileSharing>();
    std::unique_ptr<MailDrafts> mailDrafts = std::make_unique<MailDrafts>();
    std::unique_ptr<NowPlaying> nowPlaying = std::make_unique<NowPlaying>();
    std::unique_ptr<StorePage> storePage = std::make_unique<StorePage>();

    /// Those of this process.
    static PlatformServices& shared();

    /// Takes the place of those that there were; while no screen uses them.
    static void install(PlatformServices services) { shared() = std::move(services); }
};

} // namespace reelsmith
