// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QString>
#include <optional>

namespace reelsmith {

/// JSON whose numbers keep every digit that was written, which Qt's would round to what a double holds. Pure.
namespace ExactJson {

/// The document in `json`, for `text` to read values of. Null with an `error` for what is no JSON.
QJsonDocument parse(const QByteArray& json, QString& error);

/// Whether a value of such a document is a text.
bool isString(const QJsonValue& value);

/// A value of such a document as text: texts as they are, truth values and numbers as written, arrays and
/// objects as compact JSON; none for null and for what is not there.
std::optional<QString> text(const QJsonValue& value);

} // namespace ExactJson

} // namespace reelsmith
