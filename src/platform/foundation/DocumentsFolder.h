// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace reelsmith {

/// This application's folder among the user's documents, made where it is missing; worked out anew at each
/// call. A system that has no place for documents is a fatal error. Any thread.
QUrl documentsFolder();

/// Whether a file URL names something inside the documents folder, judged by its path after "..": a link that
/// leads out of the folder is still inside it.
bool isInDocumentsFolder(const QUrl& url);

} // namespace reelsmith
