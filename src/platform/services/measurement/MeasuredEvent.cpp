// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasuredEvent.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>
#include <chrono>

namespace reelsmith {

MeasuredEvent MeasuredEvent::now(const QString& name, const AnalyticsParameters& parameters) {
    using namespace std::chrono;
    const nanoseconds sinceEpoch = system_clock::now().time_since_epoch();
    return {QUuid::createUuid().toString(QUuid::WithoutBraces), sinceEpoch.count(), name, parameters};
}

QString textOfParameters(const AnalyticsParameters& parameters) {
    QJsonObject object;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
        object.insert(parameter.key(),
                      std::visit([](const auto& value) { return QJsonValue(value); }, parameter.value()));
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

AnalyticsParameters parametersOfText(const QString& text) {
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    AnalyticsParameters parameters;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        parameters.insert(entry.key(), entry->isString() ? AnalyticsValue(entry->toString())
                                                         : AnalyticsValue(entry->toInteger()));
    }
    return parameters;
}

} // namespace reelsmith
