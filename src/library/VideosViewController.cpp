// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideosViewController.h"

#include "library/FileSystem.h"

namespace reelsmith {

void VideosViewController::viewDidLoad() {
    setTitle(QStringLiteral("Converted Videos"));
}

void VideosViewController::viewWillAppear() {
    m_names.clear();
    for (const ConvertedVideo& video :
         FileSystem::shared().convertedVideos().value_or(QList<ConvertedVideo>()))
        m_names.append(video.name());
    emit namesChanged();
}

} // namespace reelsmith
