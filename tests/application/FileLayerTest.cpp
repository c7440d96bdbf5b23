// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/SecurityScopedAccess.h"
#include "platform/foundation/URLs.h"

#include <sys/stat.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using FileLayer = ApplicationTest;

FileManager& files = FileManager::defaultManager();

} // namespace

TEST(URLs, AnyFileNameSurvivesTheWayToAUrlAndBack) {
    for (const std::string name :
         {"plain.mp4", "per%cent%20?#&.mp4", "h\xc3\xa9.mp4", "l\xe4tin1.mp4", "\xff", "a\nb", "a:b"}) {
        const std::filesystem::path path = "/some/" + name;
        EXPECT_EQ(filePath(fileUrl(path)), path);
    }
    EXPECT_EQ(fileUrl("/a/h\xc3\xa9 b%.mp4"), QUrl::fromLocalFile(u"/a/hé b%.mp4"_s));
}

TEST(URLs, PathsAreWorkedOutByNameAlone) {
    EXPECT_EQ(filePath(QUrl(u"file:///a/./b/../c//d/"_s)), "/a/c/d");
    EXPECT_EQ(filePath(QUrl(u"file:///.."_s)), "/");
    EXPECT_EQ(filePath(QUrl(u"file:///a%00b"_s)), "");
    EXPECT_EQ(filePath(QUrl(u"https://host/a"_s)), "");
    EXPECT_EQ(filePath(QUrl()), "");
}

TEST(URLs, ComponentsAreTakenAsTheyAre) {
    const QUrl folder(u"file:///a%20b"_s);
    EXPECT_EQ(filePath(appendingPathComponent(folder, u"50%25 ?#é.mp4"_s)), "/a b/50%25 ?#\xc3\xa9.mp4");
    EXPECT_EQ(filePath(appendingPathComponent(folder, u"../../x"_s)), "/x");
    EXPECT_EQ(filePath(appendingPathComponent(folder, u"x"_s + QChar(0))), "");
    EXPECT_EQ(pathComponents(QUrl(u"file:///a%20b/c.mp4"_s)), (QStringList{u"/"_s, u"a b"_s, u"c.mp4"_s}));
    EXPECT_EQ(pathComponents(QUrl(u"https://host"_s)), QStringList());
}

TEST_F(FileLayer, TheDocumentsFolderIsMadeWhereItIsMissing) {
    std::filesystem::remove_all(filePath(documentsFolder()));
    EXPECT_TRUE(std::filesystem::is_directory(filePath(documentsFolder())));
    EXPECT_EQ(filePath(documentsFolder()).filename(), "Reelsmith");
}

TEST(DocumentsFolderDeathTest, NoPlaceForDocumentsIsFatal) {
    EXPECT_DEATH((qputenv("HOME", "/dev/null"), documentsFolder()),
                 "platform/foundation/DocumentsFolder:[0-9]+: Fatal error: There is no documents folder");
}

TEST_F(FileLayer, OnlyWhatIsInTheDocumentsFolderByItsNameIsRemoved) {
    const QUrl outside = file(u"outside"_s);
    const std::filesystem::path documents = filePath(documentsFolder());
    std::filesystem::create_directory_symlink(m_folder.path().toStdString(), documents / "link");
    for (const QUrl& url :
         {outside, documentsFolder(), inOutputs(u"../.."_s), inOutputs(u"../../../outside"_s), QUrl(),
          QUrl(u"https://host/x"_s), fileUrl(documents.string() + "x")})
        EXPECT_FALSE(files.removeItem(url)) << url.toString().toStdString();
    EXPECT_TRUE(std::filesystem::exists(filePath(outside)));
    EXPECT_TRUE(files.removeItem(appendingPathComponent(documentsFolder(), u"link/outside"_s)));
    EXPECT_FALSE(std::filesystem::exists(filePath(outside)));
    EXPECT_TRUE(files.removeItem(inOutputs(u"../link"_s)));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.path().toStdString()));
}

TEST_F(FileLayer, AFileThatIsBeingReadIsNotRemovedByAnyName) {
    const QUrl source = inOutputs(u"source.mp4"_s);
    write(source, "kept");
    write(inOutputs(u"other.mp4"_s), {});
    std::filesystem::create_symlink(filePath(source), filePath(inOutputs(u"link.mp4"_s)));
    std::filesystem::create_hard_link(filePath(source), filePath(inOutputs(u"hard.mp4"_s)));
    SecurityScopedAccess access(inOutputs(u"link.mp4"_s));
    ASSERT_TRUE(access.start());
    for (const QString& name : {u"source.mp4"_s, u"link.mp4"_s, u"hard.mp4"_s, u""_s})
        EXPECT_FALSE(files.removeItem(inOutputs(name))) << name.toStdString();
    EXPECT_TRUE(files.removeItem(inOutputs(u"other.mp4"_s)));
    access.stop();
    EXPECT_TRUE(files.removeItem(source));
}

TEST_F(FileLayer, AccessToAFifoNeverWaitsAndToNothingIsRefused) {
    const std::string fifo = m_folder.filePath(u"fifo"_s).toStdString();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_TRUE(SecurityScopedAccess(fileUrl(fifo)).start());
    EXPECT_FALSE(SecurityScopedAccess(fileUrl("/nothing/here")).start());
}

TEST_F(FileLayer, ReplacingPutsOneFileInThePlaceOfAnother) {
    const QUrl target = inOutputs(u"a.mp4"_s);
    const QUrl replacement = inOutputs(u".new"_s);
    write(target, "old");
    write(replacement, "new");
    EXPECT_FALSE(files.replaceItem(file(u"outside"_s), filePath(replacement)));
    // Observers stay for good: this one must not outlive its test.
    const auto seen = std::make_shared<QList<QUrl>>();
    files.addChangeObserver([weak = std::weak_ptr(seen)](const QUrl& url) {
        if (const auto list = weak.lock())
            list->append(url);
    });
    EXPECT_TRUE(files.replaceItem(inOutputs(u"x/../a.mp4"_s), filePath(replacement)));
    EXPECT_EQ(contents(target), "new");
    EXPECT_EQ(*seen, QList<QUrl>{target});
    EXPECT_EQ(outputs(), QStringList{u"a.mp4"_s});
}
