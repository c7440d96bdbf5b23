// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Animated.h"
#include "platform/uikit/TransitionQueue.h"

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace reelsmith {

class TransitionDriver;
class UIViewController;

/// The screens presented over a window's root, the lowest first. Owns them. What is asked for happens in that
/// order; nothing is dropped. Main thread.
class PresentationList : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void()>;

    explicit PresentationList(TransitionDriver& driver);
    ~PresentationList() override;

    void setDriver(TransitionDriver& driver) { m_driver = &driver; }

    /// Puts `screen` on top. `presenter`, a root or a presented screen, owns it from now on: it goes when its
    /// presenter goes.
    void present(std::unique_ptr<UIViewController> screen, UIViewController& presenter, Animated animated,
                 Completion completion);

    /// Takes `target` and all that it presents away; each is released after `completion` has returned. Null,
    /// or one that is going already: only the completion runs, later.
    void dismiss(UIViewController* target, Animated animated, Completion completion);

    /// The last screen that `presenter` presents and that has not been asked to go; null for none.
    UIViewController* lastPresentedBy(const UIViewController& presenter) const;
    bool isLeaving(const UIViewController& screen) const;
    bool contains(const UIViewController& screen) const;

    /// Those that stand or are about to stand, the lowest first, without those asked to go.
    std::vector<UIViewController*> screens() const;
    /// The uppermost that is on the screen, going or not; null for none.
    UIViewController* topmost() const;
    bool isIdle() const { return m_queue.isIdle(); }

    /// Releases all at once, unseen, running no completion.
    void clear();

signals:
    /// What is on the screen, or a running change, is another.
    void changed();

private:
    struct Entry;
    using Entries = std::vector<std::unique_ptr<Entry>>;

    Entry* entryOf(const UIViewController& screen) const;
    UIViewController* lastingOwner(UIViewController& presenter) const;
    bool isCovered(const UIViewController& screen, const std::vector<UIViewController*>& going) const;
    void markLeaving(const UIViewController& screen);
    std::vector<UIViewController*> withPresented(UIViewController& target) const;
    void show(UIViewController& screen, Animated animated, const Completion& completion,
              const TransitionQueue::Done& done);
    void remove(UIViewController& target, Animated animated, const Completion& completion,
                const TransitionQueue::Done& done);
    Entries takeOut(const std::vector<UIViewController*>& screens);
    void release(Entries entries);

    TransitionDriver* m_driver;
    Entries m_entries;
    TransitionQueue m_queue;
};

} // namespace reelsmith
