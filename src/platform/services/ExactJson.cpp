// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/ExactJson.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace reelsmith {

namespace {

// Numbers become texts that begin with this character, which Unicode leaves to programs' inner use.
constexpr QChar mark(u'\uFFFF');

} // namespace

QJsonDocument ExactJson::parse(const QByteArray& json, QString& error) {
    // Texts are matched to be passed over. What is no JSON stays so.
    static const QRegularExpression textOrNumber(
        QStringLiteral(R"("[^"\\]*+(?:\\.[^"\\]*+)*+"|(-?(?:0|[1-9]\d*+)(?:\.\d++)?(?:[eE][+-]?\d++)?))"),
        QRegularExpression::DotMatchesEverythingOption);
    const QString written = QString::fromUtf8(json);
    QString marked;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch& match : textOrNumber.globalMatch(written)) {
        if (!match.hasCaptured(1))
            continue;
        marked += QStringView(written).sliced(copied, match.capturedStart() - copied);
        marked += QLatin1Char('"') + mark + match.captured(1) + QLatin1Char('"');
        copied = match.capturedEnd();
    }
    marked += QStringView(written).sliced(copied);
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(marked.toUtf8(), &problem);
    if (problem.error != QJsonParseError::NoError)
        error = problem.errorString();
    return document;
}

bool ExactJson::isString(const QJsonValue& value) {
    return value.isString() && !value.toString().startsWith(mark);
}

std::optional<QString> ExactJson::text(const QJsonValue& value) {
    switch (value.type()) {
    case QJsonValue::String: {
        const QString string = value.toString();
        return string.startsWith(mark) ? string.sliced(1) : string;
    }
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Array:
    case QJsonValue::Object: {
        static const QRegularExpression markedNumber(QLatin1Char('"') + mark +
                                                     QStringLiteral(R"x(([-+.0-9eE]+)")x"));
        const QJsonDocument document =
            value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
        return QString::fromUtf8(document.toJson(QJsonDocument::Compact))
            .replace(markedNumber, QStringLiteral("\\1"));
    }
    default:
        return std::nullopt;
    }
}

} // namespace reelsmith
