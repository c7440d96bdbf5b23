// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/RunLoop.h"

#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace reelsmith {

bool runLoopUntil(const std::function<bool()>& isSo) {
    QEventLoop loop;
    QTimer look, limit;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isSo())
            loop.quit();
    });
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    look.start(1);
    limit.start(std::chrono::seconds(30));
    loop.exec();
    return isSo();
}

} // namespace reelsmith
