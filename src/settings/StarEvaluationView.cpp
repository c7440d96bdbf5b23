// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StarEvaluationView.h"

#include <algorithm>
#include <utility>

namespace reelsmith {

StarEvaluationView::StarEvaluationView() : InstantiatiableXib(staticMetaObject) {
    constexpr int starCount = 5; // as many as the interface file draws
    std::vector<std::unique_ptr<ImageView>> stars;
    for (int i = 0; i < starCount; ++i) {
        stars.push_back(std::make_unique<ImageView>());
        stars.back()->setImage(m_deselectedStarImage);
    }
    setStarImageViews(std::move(stars));
}

void StarEvaluationView::setStarImageViews(std::vector<std::unique_ptr<ImageView>> stars) {
    m_starImageViews = std::move(stars);
    emit changed();
}

int StarEvaluationView::litStarCount() const {
    return static_cast<int>(std::ranges::count_if(m_starImageViews, [this](const auto& star) {
        return star->image().name() == m_selectedStarImage.name();
    }));
}

void StarEvaluationView::starSelected(int tag) {
    for (int i = 0; i < static_cast<int>(m_starImageViews.size()); ++i) {
        m_starImageViews[static_cast<std::size_t>(i)]->setImage(tag >= i ? m_selectedStarImage
                                                                         : m_deselectedStarImage);
        emit changed();
        if (StarEvaluationViewDelegate* delegate = m_delegate.get())
            delegate->starsChanged(qint64{tag} + 1);
    }
}

} // namespace reelsmith
