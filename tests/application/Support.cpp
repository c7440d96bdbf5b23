// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/avfoundation/AVPlayer.h"
#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/PlatformServices.h"
#include "settings/UserSettings.h"

#include <QDir>
#include <QFile>

namespace reelsmith {

using namespace Qt::StringLiterals;

ApplicationTest::ApplicationTest() {
    std::filesystem::remove_all(filePath(documentsFolder()));
    FileSystem::shared().createFolders();
}

QUrl ApplicationTest::file(const QString& name, const QByteArray& contents) const {
    const QUrl url = fileUrl(m_folder.filePath(name).toStdString());
    write(url, contents);
    return url;
}

QUrl ApplicationTest::inOutputs(const QString& name) {
    return appendingPathComponent(FileSystem::shared().outputsFolder(), name);
}

QStringList ApplicationTest::outputs() {
    return QDir(FileSystem::shared().outputsFolder().toLocalFile())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

void ApplicationTest::write(const QUrl& url, const QByteArray& contents) {
    QFile file(url.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << url.toString().toStdString();
    file.write(contents);
}

QByteArray ApplicationTest::contents(const QUrl& url) {
    QFile file(url.toLocalFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

UIImage ApplicationTest::thumbnail(const QUrl& url) {
    std::optional<UIImage> image;
    ConvertedVideo(url).thumbnail([&image](const UIImage& made) { image = made; });
    EXPECT_FALSE(image);
    EXPECT_TRUE(runLoopUntil([&image] { return image.has_value(); }));
    return image.value_or(UIImage());
}

QStringList ApplicationTest::events() const {
    QStringList names;
    for (const auto& event : m_services.analytics->state().events)
        names.append(event.name);
    return names;
}

WholeApplicationTest::WholeApplicationTest() {
    HTTPClient::setShared(m_web);
    UserSettings::shared().setSendUsageData(true);
    UserSettings::shared().setAchievedSuccess(false);
    UserSettings::shared().setDidShowOnboarding(true);
    UIApplication::shared().setKeyWindow(&window());
}

WholeApplicationTest::~WholeApplicationTest() {
    HTTPClient::setShared(nullptr);
    PlatformServices::install({});
    AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
    UIApplication::shared().setLinkOpener(std::make_shared<LinkOpener>());
    UIApplication::shared().setKeyWindow(nullptr);
}

void WholeApplicationTest::launch() {
    m_delegate.didFinishLaunchingWithOptions();
    EXPECT_TRUE(runLoopUntil([this] { return m_console.lines().contains(u"Fetched remote settings"_s); }));
}

bool WholeApplicationTest::isAtHome() {
    return runLoopUntil([this] { return isIdle() && window().frontmost() == &tabs(); });
}

} // namespace reelsmith
