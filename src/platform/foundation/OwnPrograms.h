// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>

namespace reelsmith {

/// The path of another program of this application: beside the running one, or where such programs are
/// installed. It need not exist. Needs an application object.
std::string ownProgram(const QString& name);

} // namespace reelsmith
