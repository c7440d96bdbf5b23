// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/DispatchQueue.h"

#include "platform/foundation/ThreadPool.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

// Work here mostly waits for a worker process: with one thread a core, two thumbnails would hold up an
// export.
constexpr std::size_t leastThreadCount = 16;

void postToMain(DispatchQueue::Work work) {
    if (QCoreApplication* application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, std::move(work), Qt::QueuedConnection);
}

ThreadPool& globalPool() {
    static ThreadPool pool(std::max<std::size_t>(leastThreadCount, std::thread::hardware_concurrency()));
    return pool;
}

// What is registered first comes last: whoever the work waits for has been told that the application ends.
void waitForTheGlobalQueuesAtTheEnd() {
    qAddPostRoutine([] { globalPool().waitForDone(); });
}
Q_COREAPP_STARTUP_FUNCTION(waitForTheGlobalQueuesAtTheEnd)

void postToGlobal(DispatchQueue::Work work) {
    if (!globalPool().start(work))
        postToMain(std::move(work));
}

} // namespace

DispatchQueue DispatchQueue::main() {
    return DispatchQueue(postToMain);
}

DispatchQueue DispatchQueue::global(QualityOfService) {
    return DispatchQueue(postToGlobal);
}

} // namespace reelsmith
