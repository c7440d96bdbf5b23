// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/DispatchQueue.h"

#include <QCoreApplication>
#include <QThreadPool>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

// Work here mostly waits for a worker process: with one thread a core, two thumbnails would hold up an
// export.
constexpr int leastThreadCount = 16;

void postToMain(DispatchQueue::Work work) {
    if (QCoreApplication* application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, std::move(work), Qt::QueuedConnection);
}

// The pool that the application object waits for when it ends, so that no work outlives it.
QThreadPool& globalPool() {
    static QThreadPool& pool = []() -> QThreadPool& {
        QThreadPool& global = *QThreadPool::globalInstance();
        global.setMaxThreadCount(std::max(leastThreadCount, global.maxThreadCount()));
        return global;
    }();
    return pool;
}

void postToGlobal(DispatchQueue::Work work) {
    globalPool().start(std::move(work));
}

} // namespace

DispatchQueue DispatchQueue::main() {
    return DispatchQueue(postToMain);
}

DispatchQueue DispatchQueue::global(QualityOfService) {
    return DispatchQueue(postToGlobal);
}

} // namespace reelsmith
