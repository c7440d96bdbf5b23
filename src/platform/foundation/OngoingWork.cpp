// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/OngoingWork.h"

#include "platform/foundation/DispatchQueue.h"

#include <mutex>

namespace reelsmith {

namespace {

std::mutex workMutex;
int workCount = 0;
std::function<void()> workObserver;

void callObserver() {
    std::function<void()> observer;
    {
        const std::lock_guard lock(workMutex);
        observer = workObserver;
    }
    if (observer)
        observer();
}

void count(int change) {
    bool isTurn = false;
    {
        const std::lock_guard lock(workMutex);
        const bool wasAny = workCount > 0;
        workCount += change;
        isTurn = wasAny != (workCount > 0);
    }
    if (isTurn)
        DispatchQueue::main().async(callObserver);
}

} // namespace

OngoingWork::OngoingWork() {
    count(1);
}

OngoingWork::~OngoingWork() {
    count(-1);
}

bool OngoingWork::isAny() {
    const std::lock_guard lock(workMutex);
    return workCount > 0;
}

void OngoingWork::setObserver(std::function<void()> observer) {
    const std::lock_guard lock(workMutex);
    workObserver = std::move(observer);
}

} // namespace reelsmith
