// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ConversionQuality.h"

#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace reelsmith {

/// What the user asks for on the command line.
struct Arguments {
    enum class Command { Window, Convert, List, Help, Version };

    Command command = Command::Window;
    ConversionQuality quality = ConversionQuality::medium;
    std::optional<QString> name;
    /// As given, byte by byte: a file name need not be valid UTF-8.
    std::vector<std::string> sources;
    bool isJson = false;
    bool isVerbose = false;

    /// The words after the program's name, or what is wrong with them.
    static tl::expected<Arguments, QString> parse(const std::vector<std::string>& words);

    /// The address, where `source` is one of the web rather than a file. It need not be a valid one.
    static std::optional<QUrl> webAddress(const std::string& source);

    /// The text of --help.
    static QString help();
};

} // namespace reelsmith
