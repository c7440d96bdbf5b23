// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/PresentationList.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/uikit/TransitionDriver.h"
#include "platform/uikit/UIViewController.h"

#include <QPointer>
#include <algorithm>
#include <utility>

namespace reelsmith {

struct PresentationList::Entry {
    std::unique_ptr<UIViewController> screen;
    QPointer<UIViewController> presenter;
    bool isShown = false;   // its turn has come
    bool isLeaving = false; // it has been asked to go
};

namespace {

bool isAmong(const UIViewController* screen, const std::vector<UIViewController*>& screens) {
    return std::ranges::find(screens, screen) != screens.end();
}

} // namespace

PresentationList::PresentationList(TransitionDriver& driver) : m_driver(&driver) {}

PresentationList::~PresentationList() {
    clear();
}

void PresentationList::present(std::unique_ptr<UIViewController> screen, UIViewController& presenter,
                               Animated animated, Completion completion) {
    const QPointer<UIViewController> shown = screen.get();
    auto entry = std::make_unique<Entry>();
    entry->screen = std::move(screen);
    entry->presenter = lastingOwner(presenter);
    m_entries.push_back(std::move(entry));
    m_queue.add(
        [this, shown, animated, completion = std::move(completion)](const TransitionQueue::Done& done) {
            if (shown)
                show(*shown, animated, completion, done);
            else
                DispatchQueue::main().async(done);
        });
}

void PresentationList::show(UIViewController& screen, Animated animated, const Completion& completion,
                            const TransitionQueue::Done& done) {
    Entry* entry = entryOf(screen);
    entry->isShown = true;
    // The presenter's appearance is its own affair only while it is what the screen replaces.
    const QPointer<UIViewController> covered = screen.isFullScreen() ? entry->presenter : nullptr;
    screen.loadViewIfNeeded();
    screen.beginAppearanceTransition(true);
    if (covered)
        covered->beginAppearanceTransition(false);
    emit changed();
    m_driver->run({Transition::Kind::Present, {&screen}, nullptr, animated},
                  [self = QPointer(this), shown = QPointer(&screen), covered, completion, done] {
                      if (!self)
                          return;
                      if (shown)
                          shown->endAppearanceTransition();
                      if (covered)
                          covered->endAppearanceTransition();
                      if (completion)
                          completion();
                      done();
                      if (self)
                          emit self->changed();
                  });
}

void PresentationList::dismiss(UIViewController* target, Animated animated, Completion completion) {
    if (target == nullptr || isLeaving(*target)) {
        if (completion)
            DispatchQueue::main().async(std::move(completion));
        return;
    }
    markLeaving(*target);
    m_queue.add([this, going = QPointer(target), animated,
                 completion = std::move(completion)](const TransitionQueue::Done& done) {
        if (going) {
            remove(*going, animated, completion, done);
            return;
        }
        DispatchQueue::main().async(done);
        if (completion)
            DispatchQueue::main().async(completion);
    });
}

// What a screen that is going presents outlives it, and belongs to the screen that presented that one.
UIViewController* PresentationList::lastingOwner(UIViewController& presenter) const {
    UIViewController* owner = &presenter;
    while (isLeaving(*owner))
        owner = entryOf(*owner)->presenter;
    return owner;
}

void PresentationList::markLeaving(const UIViewController& screen) {
    entryOf(screen)->isLeaving = true;
    for (const auto& entry : m_entries) {
        if (entry->presenter == &screen && !entry->isLeaving)
            markLeaving(*entry->screen);
    }
}

void PresentationList::remove(UIViewController& target, Animated animated, const Completion& completion,
                              const TransitionQueue::Done& done) {
    const std::vector<UIViewController*> going = withPresented(target);
    std::vector<QPointer<UIViewController>> uncovered;
    for (UIViewController* screen : going) {
        screen->beginAppearanceTransition(false);
        if (!screen->isFullScreen())
            continue;
        const auto& presenter = entryOf(*screen)->presenter;
        if (presenter && !isCovered(*presenter, going)) {
            presenter->beginAppearanceTransition(true);
            uncovered.emplace_back(presenter);
        }
    }
    emit changed();
    m_driver->run({Transition::Kind::Dismiss, going, nullptr, animated},
                  [self = QPointer(this), going, uncovered, completion, done] {
                      if (!self)
                          return;
                      Entries released = self->takeOut(going);
                      for (const auto& entry : released)
                          entry->screen->endAppearanceTransition();
                      for (const auto& screen : uncovered) {
                          if (screen)
                              screen->endAppearanceTransition();
                      }
                      if (completion)
                          completion();
                      if (!self)
                          return;
                      self->release(std::move(released));
                      done();
                      if (self)
                          emit self->changed();
                  });
}

// Whether the screen is itself going or has another full-screen presentation left over it.
bool PresentationList::isCovered(const UIViewController& screen,
                                 const std::vector<UIViewController*>& going) const {
    return isAmong(&screen, going) || std::ranges::any_of(m_entries, [&](const auto& entry) {
               return entry->isShown && entry->presenter == &screen && entry->screen->isFullScreen() &&
                      !isAmong(entry->screen.get(), going);
           });
}

PresentationList::Entries PresentationList::takeOut(const std::vector<UIViewController*>& screens) {
    Entries taken;
    for (auto& entry : m_entries) {
        if (entry->isLeaving && isAmong(entry->screen.get(), screens))
            taken.push_back(std::move(entry));
    }
    std::erase(m_entries, nullptr);
    return taken;
}

void PresentationList::release(Entries entries) {
    while (!entries.empty()) {
        m_driver->willRelease(*entries.back()->screen);
        entries.pop_back();
    }
}

void PresentationList::clear() {
    release(std::exchange(m_entries, {}));
    emit changed();
}

std::vector<UIViewController*> PresentationList::withPresented(UIViewController& target) const {
    std::vector<UIViewController*> found{&target};
    for (const auto& entry : m_entries) {
        if (entry->isShown && isAmong(entry->presenter.get(), found))
            found.push_back(entry->screen.get());
    }
    return found;
}

PresentationList::Entry* PresentationList::entryOf(const UIViewController& screen) const {
    const auto found = std::ranges::find_if(
        m_entries, [&screen](const auto& entry) { return entry->screen.get() == &screen; });
    return found == m_entries.end() ? nullptr : found->get();
}

UIViewController* PresentationList::lastPresentedBy(const UIViewController& presenter) const {
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend(); ++entry) {
        if ((*entry)->presenter == &presenter && !(*entry)->isLeaving)
            return (*entry)->screen.get();
    }
    return nullptr;
}

bool PresentationList::isLeaving(const UIViewController& screen) const {
    const Entry* entry = entryOf(screen);
    return entry != nullptr && entry->isLeaving;
}

bool PresentationList::contains(const UIViewController& screen) const {
    return entryOf(screen) != nullptr;
}

std::vector<UIViewController*> PresentationList::screens() const {
    std::vector<UIViewController*> all;
    for (const auto& entry : m_entries) {
        if (!entry->isLeaving)
            all.push_back(entry->screen.get());
    }
    return all;
}

UIViewController* PresentationList::topmost() const {
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend(); ++entry) {
        if ((*entry)->isShown)
            return (*entry)->screen.get();
    }
    return nullptr;
}

} // namespace reelsmith
