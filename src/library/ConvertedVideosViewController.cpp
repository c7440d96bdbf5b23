// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ConvertedVideosViewController.h"

#include "library/FileSystem.h"

namespace reelsmith {

void ConvertedVideosViewController::viewDidLoad() {
    setTitle(QStringLiteral("Converted Videos"));
}

void ConvertedVideosViewController::viewWillAppear() {
    m_names.clear();
    for (const ConvertedVideo& video :
         FileSystem::shared().convertedVideos().value_or(QList<ConvertedVideo>()))
        m_names.append(video.name());
    emit namesChanged();
}

} // namespace reelsmith
