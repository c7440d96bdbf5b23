// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/sharing/DesktopFileSharing.h"
#include "platform/linux/sharing/FileCopy.h"

#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <fcntl.h>

using namespace reelsmith;

namespace {

using Action = FileSharing::Action;
using Outcome = FileSharing::Outcome;

class Sharing : public DesktopTest {
protected:
    Sharing() { writeFile(m_film.toLocalFile(), "film"); }

    bool isOffered(const QList<Action>& actions) {
        const DesktopFileSharing sharing(m_client);
        return runLoopUntil([&] { return sharing.availableActions() == actions; });
    }

    // How an action ends that `begin` begins; a failure has to say why.
    static Outcome end(const std::function<void(FileSharing::Completion)>& begin) {
        return DesktopTest::end<Outcome>([&begin](auto completion) {
            begin([completion](Outcome outcome, const QString& error) {
                EXPECT_EQ(outcome == Outcome::Failed, !error.isEmpty());
                completion(outcome);
            });
        });
    }
    Outcome perform(Action action) {
        return end([&](auto completion) { m_sharing.perform(action, m_film, std::move(completion)); });
    }

    static QByteArray contents(const QVariant& descriptor) {
        return readFile(
            QString("/proc/self/fd/%1").arg(descriptor.value<QDBusUnixFileDescriptor>().fileDescriptor()));
    }

    const QUrl m_film = QUrl::fromLocalFile(m_home.filePath("my film.mp4"));
    DesktopFileSharing m_sharing{m_client};
};

} // namespace

TEST_F(Sharing, OffersWhatThereIsAServiceForInOrder) {
    QString interface;
    m_desktop.answer("org.freedesktop.DBus.Properties.Get", [&](const QDBusMessage& call) {
        const bool isThere = call.arguments().value(0) == "org.freedesktop.portal." + interface;
        return isThere ? std::optional(QVariantList{QVariant::fromValue(QDBusVariant(3U))}) : std::nullopt;
    });
    EXPECT_TRUE(isOffered({Action::CopyFile}));
    m_desktop.appear("org.freedesktop.FileManager1");
    EXPECT_TRUE(isOffered({Action::ShowInFolder, Action::CopyFile}));
    m_desktop.appear(portal);
    interface = "FileChooser";
    EXPECT_TRUE(isOffered({Action::SaveCopy, Action::ShowInFolder, Action::CopyFile}));
    m_desktop.vanish("org.freedesktop.FileManager1");
    interface = "OpenURI";
    EXPECT_TRUE(isOffered({Action::OpenWith, Action::CopyFile}));
    writeFile(m_home.filePath("DATA_HOME/applications/folders.desktop"), "");
    writeFile(m_home.filePath("DATA_HOME/applications/mimeinfo.cache"), "inode/directory=folders.desktop;");
    EXPECT_TRUE(isOffered({Action::OpenWith, Action::ShowInFolder, Action::CopyFile}));
}

TEST_F(Sharing, OtherProgramsGetTheFileItself) {
    m_desktop.appear(portal);
    m_desktop.answerRequest("org.freedesktop.portal.OpenURI.OpenFile", 1);
    EXPECT_EQ(perform(Action::OpenWith), Outcome::Cancelled);
    EXPECT_EQ(m_desktop.option("OpenFile", "ask"), true);
    EXPECT_EQ(contents(m_desktop.argument("OpenFile", 1)), "film");

    QFile::remove(m_film.toLocalFile());
    for (const Action action : {Action::OpenWith, Action::SendByMail, Action::SaveCopy})
        EXPECT_EQ(perform(action), Outcome::Failed);
}

TEST_F(Sharing, ACopyReplacesWhatWasThereOnlyWhenItIsWhole) {
    const QString target = m_home.filePath("copies/copy.mp4");
    writeFile(target, "earlier");
    const auto copy = [&target](const char* source, bool isGivenUp) {
        return end([&](auto completion) {
            const QDBusUnixFileDescriptor file(::open(source, O_RDONLY | O_CLOEXEC));
            const auto started = FileCopy::start(file, target, completion);
            if (isGivenUp)
                started->cancel();
        });
    };
    EXPECT_EQ(copy("/proc/self/mem", false), Outcome::Failed); // opens, and cannot be read
    EXPECT_EQ(copy("/dev/zero", true), Outcome::Cancelled);
    EXPECT_EQ(readFile(target), "earlier");
    EXPECT_EQ(QFileInfo(target).dir().entryList(QDir::Files | QDir::Hidden).size(), 1);

    const auto saveTo = [this](const QString& path) {
        m_desktop.answerRequest("org.freedesktop.portal.FileChooser.SaveFile", 0,
                                {{"uris", QStringList{QUrl::fromLocalFile(path).toString()}}});
        return perform(Action::SaveCopy);
    };
    m_desktop.appear(portal);
    EXPECT_EQ(saveTo(m_home.filePath("missing/copy.mp4")), Outcome::Failed);
    EXPECT_EQ(saveTo(target), Outcome::Done);
    EXPECT_EQ(readFile(target), "film");
    EXPECT_EQ(m_desktop.option("SaveFile", "current_name"), "my film.mp4");
}

TEST_F(Sharing, AFileIsShownByTheFileManagerOrElseInItsFolder) {
    m_desktop.appear(portal);
    m_desktop.answerRequest("org.freedesktop.portal.OpenURI.OpenDirectory", 0);
    EXPECT_EQ(perform(Action::ShowInFolder), Outcome::Done);
    EXPECT_EQ(contents(m_desktop.argument("OpenDirectory", 1)), "film");

    m_desktop.appear("org.freedesktop.FileManager1");
    m_desktop.answer("org.freedesktop.FileManager1.ShowItems",
                     [](const QDBusMessage&) { return QVariantList(); });
    EXPECT_EQ(perform(Action::ShowInFolder), Outcome::Done);
    EXPECT_EQ(m_desktop.argument("ShowItems", 0), QStringList{m_film.toString(QUrl::FullyEncoded)});
    EXPECT_EQ(m_desktop.calls("OpenDirectory").size(), 1);
}
