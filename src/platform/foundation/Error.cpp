// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/Error.h"

#include <system_error>

namespace reelsmith {

tl::unexpected<Error> failure(const QString& text) {
    return tl::unexpected<Error>(Error{text});
}

tl::unexpected<Error> systemFailure(const QString& what, int errorNumber) {
    return failure(what + QStringLiteral(": ") +
                   QString::fromStdString(std::generic_category().message(errorNumber)));
}

} // namespace reelsmith
