// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/CopyFileAction.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <utility>

namespace reelsmith {

void CopyFileAction::perform(const QUrl& file, Completion completion) {
    auto* data = new QMimeData;
    data->setUrls({file});
    // Several file managers paste nothing that is not said this way.
    data->setData(QStringLiteral("x-special/gnome-copied-files"), "copy\n" + file.toEncoded());
    QGuiApplication::clipboard()->setMimeData(data);
    complete(std::move(completion), Outcome::Done);
}

} // namespace reelsmith
