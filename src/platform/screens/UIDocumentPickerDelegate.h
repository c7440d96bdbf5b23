// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QUrl>

namespace reelsmith {

class UIDocumentPickerViewController;

/// Hears which documents the user has picked, and takes the picker away.
class UIDocumentPickerDelegate {
public:
    virtual ~UIDocumentPickerDelegate() = default;

    virtual void documentPickerDidPickDocumentsAt(UIDocumentPickerViewController& picker,
                                                  const QList<QUrl>& urls) = 0;
};

} // namespace reelsmith
