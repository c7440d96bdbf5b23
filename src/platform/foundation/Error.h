// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <tl/expected.hpp>

namespace reelsmith {

/// Why an operation of the platform failed, in words for the log.
struct Error {
    QString localizedDescription;

    bool operator==(const Error&) const = default;
};

template<typename T>
using Result = tl::expected<T, Error>;

/// An error as a value to return from a function that yields a Result.
tl::unexpected<Error> failure(const QString& text);

/// The same for a failed system call: "WHAT: what the system says of `errorNumber`".
tl::unexpected<Error> systemFailure(const QString& what, int errorNumber);

} // namespace reelsmith
