// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/RemoteValues.h"
#include "platform/services/ServiceTransport.h"

namespace reelsmith {

/// The OpenFeature Remote Evaluation Protocol, as far as it takes to have all flags evaluated at once. Pure.
namespace Ofrep {

/// The body that asks for all flags as they are for this version of the application in an installation.
QByteArray requestBody(const QString& installationId);

/// The flags of an answer "200". Truth values and numbers are texts as they were written, objects compact
/// JSON; a flag that could not be evaluated is left out, and one without a value has no text.
tl::expected<RemoteValues, ServiceError> flags(const QByteArray& body);

/// What an answer says that is no success.
ServiceError error(const ServiceAnswer& answer);

} // namespace Ofrep

} // namespace reelsmith
