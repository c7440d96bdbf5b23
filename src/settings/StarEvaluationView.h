// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/ImageView.h"
#include "settings/InstantiatiableXib.h"
#include "settings/StarEvaluationViewDelegate.h"

#include <memory>
#include <vector>

namespace reelsmith {

/// A row of stars: a tap on one lights it and all before it. Main thread.
class StarEvaluationView : public reelsmith::InstantiatiableXib {
    Q_OBJECT
    Q_PROPERTY(int litStarCount READ litStarCount NOTIFY changed)

public:
    StarEvaluationView();

    void setDelegate(const WeakDelegate<StarEvaluationViewDelegate>& delegate) { m_delegate = delegate; }

    /// The stars from the first on; what they show is the picture of one that is chosen or is not.
    const std::vector<std::unique_ptr<ImageView>>& starImageViews() const { return m_starImageViews; }
    void setStarImageViews(std::vector<std::unique_ptr<ImageView>> stars);
    int litStarCount() const;

    /// The star with this tag, 0 for the first, was tapped.
    Q_INVOKABLE void starSelected(int tag);

private:
    const UIImage m_deselectedStarImage = UIImage::named(QStringLiteral("starDeselected"));
    const UIImage m_selectedStarImage = UIImage::named(QStringLiteral("starSelected"));
    std::vector<std::unique_ptr<ImageView>> m_starImageViews;
    WeakDelegate<StarEvaluationViewDelegate> m_delegate;
};

} // namespace reelsmith
