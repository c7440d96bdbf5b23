// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/HTTPClient.h"
#include "platform/services/Services.h"

namespace reelsmith {

/// The services of an installation for which no operator has configured any.
Services::Backends unconfiguredBackends();

/// The client of a program that has not been given any.
std::shared_ptr<HTTPClient> unconfiguredHTTPClient();

} // namespace reelsmith
