// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/UIImagePickerCell.h"

#include <utility>

namespace reelsmith {

void UIImagePickerCell::showVideo(const QUrl& url, const VideoPreview::Facts* known,
                                  VideoPreview::Completion learned) {
    m_nameLabel.setText(url.fileName());
    m_preview.reset();
    showFacts(known == nullptr ? VideoPreview::Facts() : *known);
    if (known != nullptr)
        return;
    m_preview = std::make_unique<VideoPreview>(
        url, [this, learned = std::move(learned)](const VideoPreview::Facts& facts) {
            showFacts(facts);
            learned(facts);
        });
}

void UIImagePickerCell::showFacts(const VideoPreview::Facts& facts) {
    m_thumbnailImageView.setImage(facts.picture);
    m_durationLabel.setText(VideoPreview::durationText(facts.seconds));
}

} // namespace reelsmith
