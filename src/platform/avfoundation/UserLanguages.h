// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <string>
#include <vector>

namespace reelsmith {

/// The languages of `localeNames` ("de-AT", "en") as ISO 639-2 codes, in the same order, each once. Where a
/// language has two codes both are there: media files use either.
std::vector<std::string> languageCodes(const QStringList& localeNames);

/// The same for the user's own languages, best first.
std::vector<std::string> userLanguages();

} // namespace reelsmith
