// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantMap>

namespace reelsmith {

class UIImagePickerController;

/// In a picker's info: the URL of the movie that was picked.
inline const QString UIImagePickerControllerMediaURL = QStringLiteral("UIImagePickerControllerMediaURL");

/// Hears what the user does with a photo picker, and takes it away.
class UIImagePickerControllerDelegate {
public:
    virtual ~UIImagePickerControllerDelegate() = default;

    virtual void imagePickerControllerDidFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                                                    const QVariantMap& info) = 0;
    virtual void imagePickerControllerDidCancel(UIImagePickerController& picker) = 0;
};

} // namespace reelsmith
