// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/URLs.h"

#include <QDir>
#include <QFile>

namespace reelsmith {

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

} // namespace reelsmith
