// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <optional>

namespace reelsmith {

/// The files that come with the application, inside its program. Any thread.
class Bundle {
public:
    Bundle() = delete;

    /// Where the resource `name` with `extension` is; none if there is no such resource.
    static std::optional<QUrl> urlForResource(const QString& name, const QString& extension);
};

} // namespace reelsmith
