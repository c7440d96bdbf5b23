// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceTransport.h"
#include "platform/services/measurement/MeasuredEvent.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace reelsmith {

/// Who logs.
struct OtlpService {
    QString name;
    QString version;
    QString instanceId; ///< of this installation; empty where it has none
};

/// A bundle as the OpenTelemetry protocol wants logs over HTTP, in JSON: one record an event, one resource
/// for neighbours with the same properties. docs/services.md names every field.
QByteArray otlpLogs(const QList<StoredEvent>& bundle, const OtlpService& service);

/// What a collector has said to a bundle.
struct OtlpAnswer {
    enum class Verdict {
        Accepted,   ///< the bundle is not to be sent again
        RetryLater, ///< it is, after a while
        Refused,    ///< it must not be sent again, and is lost
    };

    Verdict verdict = Verdict::RetryLater;
    qint64 rejectedRecords = 0; ///< how many of an accepted bundle are lost all the same
    QString message;            ///< for people; often empty

    /// What the outcome of an exchange means.
    static OtlpAnswer of(const ServiceResult& result);
};

} // namespace reelsmith
