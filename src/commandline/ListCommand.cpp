// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ListCommand.h"

#include "commandline/StandardStreams.h"
#include "library/FileSystem.h"
#include "platform/foundation/URLs.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace reelsmith {

namespace {

std::string textLine(const ConvertedVideo& video) {
    return QStringList{printable(video.name()), video.durationText(),
                       video.resolutionText().value_or(QString())}
        .join(QLatin1Char('\t'))
        .toStdString();
}

std::string jsonLine(const ConvertedVideo& video) {
    const std::optional<QString> resolution = video.resolutionText();
    const QJsonObject object{
        {QStringLiteral("name"), video.name()},
        {QStringLiteral("path"), QString::fromStdString(filePath(video.url()).string())},
        {QStringLiteral("duration"), video.durationText()},
        {QStringLiteral("resolution"), resolution ? QJsonValue(*resolution) : QJsonValue()},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace

int listConvertedVideos(const Arguments& arguments) {
    const std::optional<QList<ConvertedVideo>> videos = FileSystem::shared().convertedVideos();
    if (!videos) {
        printErrorLine(QStringLiteral("The outputs folder cannot be read"));
        return 1;
    }
    for (const ConvertedVideo& video : *videos)
        printLine(arguments.isJson ? jsonLine(video) : textLine(video));
    return 0;
}

} // namespace reelsmith
