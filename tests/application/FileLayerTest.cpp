// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/foundation/DocumentsFolder.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/SecurityScopedAccess.h"
#include "platform/foundation/URLs.h"

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

TEST(URLs, PathsAndComponentsAreWorkedOutByNameAlone) {
    const QUrl folder(u"file:///a%20b"_s);
    const std::pair<QUrl, std::filesystem::path> cases[] = {
        {QUrl(u"file:///a/./b/../c//d/"_s), "/a/c/d"},
        {QUrl(u"file:///.."_s), "/"},
        {QUrl(u"file:///a%00b"_s), ""},
        {QUrl(u"https://host/a"_s), ""},
        {QUrl(), ""},
        {appendingPathComponent(folder, u"50%25 ?#é.mp4"_s), "/a b/50%25 ?#\xc3\xa9.mp4"},
        {appendingPathComponent(folder, u"../../x"_s), "/x"},
        {appendingPathComponent(folder, u"x"_s + QChar(0)), ""},
    };
    for (const auto& [url, path] : cases)
        EXPECT_EQ(filePath(url), path);
    for (const auto& [url, last] : {std::pair{u"file:///a/b%20c.mp4"_s, u"b c.mp4"_s},
                                    {u"file:///a/b/"_s, u"b"_s},
                                    {u"file:///"_s, u"/"_s},
                                    {u"https://host"_s, QString()}})
        EXPECT_EQ(lastPathComponent(QUrl(url)), last);
    const auto root = files.contentsOfDirectory(QUrl(u"file:///"_s));
    EXPECT_EQ(std::ranges::count(*root, QUrl(u"file:///usr"_s), &FileManager::Entry::url), 1);
}

TEST(DocumentsFolderDeathTest, NoPlaceForDocumentsIsFatal) {
    EXPECT_DEATH((qputenv("HOME", "/dev/null"), documentsFolder()),
                 "platform/foundation/DocumentsFolder:[0-9]+: Fatal error: There is no documents folder");
}

TEST_F(FileLayer, OnlyWhatIsInTheDocumentsFolderByItsNameIsRemovedOrReplaced) {
    const QUrl outside = file(u"outside"_s);
    const std::filesystem::path documents = filePath(documentsFolder());
    std::filesystem::create_directory_symlink(m_folder.path().toStdString(), documents / "link");
    for (const QUrl& url :
         {outside, documentsFolder(), inOutputs(u"../.."_s), inOutputs(u"../../../outside"_s), QUrl(),
          QUrl(u"https://host/x"_s), fileUrl(documents.string() + "x")})
        EXPECT_FALSE(files.removeItem(url)) << url.toString().toStdString();
    EXPECT_FALSE(files.replaceItem(outside, filePath(file(u"new"_s))));
    EXPECT_TRUE(std::filesystem::exists(filePath(outside)));
    EXPECT_TRUE(files.removeItem(appendingPathComponent(documentsFolder(), u"link/outside"_s)));
    EXPECT_FALSE(std::filesystem::exists(filePath(outside)));
    EXPECT_TRUE(files.removeItem(inOutputs(u"../link"_s)));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.path().toStdString()));
}

TEST_F(FileLayer, AFileThatIsBeingReadIsKnownByAnyName) {
    const QUrl source = inOutputs(u"source.mp4"_s);
    write(source, "kept");
    write(inOutputs(u"other.mp4"_s), {});
    std::filesystem::create_symlink(filePath(source), filePath(inOutputs(u"link.mp4"_s)));
    std::filesystem::create_hard_link(filePath(source), filePath(inOutputs(u"hard.mp4"_s)));
    SecurityScopedAccess access(inOutputs(u"link.mp4"_s));
    ASSERT_TRUE(access.start());
    for (const QString& name : {u"source.mp4"_s, u"link.mp4"_s, u"hard.mp4"_s, u""_s})
        EXPECT_TRUE(SecurityScopedAccess::isOpenOn(filePath(inOutputs(name)))) << name.toStdString();
    EXPECT_FALSE(SecurityScopedAccess::isOpenOn(filePath(inOutputs(u"other.mp4"_s))));
    access.stop();
    EXPECT_FALSE(SecurityScopedAccess::isOpenOn(filePath(source)));
}

TEST(URLs, AreTakenFromTextByTheLetterOfTheGrammar) {
    for (const char* good : {"clip.mp4", "https://example.org/a%20b.mov?x=1&y=/#top",
                             "http://[::1]:8080/a.mp4", "a.mov/b", "//user:pw@host/x", "?q", "mailto:a@b.c"})
        EXPECT_TRUE(urlFromString(QString::fromUtf8(good))) << good;
    for (const char* bad : {"", " ", "my clip.mp4", "clip.mp4\n", "a|b.mp4", "100%.mp4", "a%2.mp4",
                            "a%zz.mp4", "schön.mp4", "a\\b", "http://a b/", "<a>", "\"x\"", "a{b}", "a^b",
                            "a`b", "x?y=[", "http://host:port/", "http://[::1/"})
        EXPECT_FALSE(urlFromString(QString::fromUtf8(bad))) << bad;
}
