// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/sharing/DesktopFileSharing.h"
#include "platform/linux/sharing/FileCopy.h"

#include <QClipboard>
#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <fcntl.h>

using namespace reelsmith;

namespace {

using Action = FileSharing::Action;
using Outcome = FileSharing::Outcome;

struct Ended {
    Outcome outcome;
    QString error;
};

class Sharing : public DesktopTest {
protected:
    void offerPortals(const QStringList& interfaces) {
        m_desktop.answer(QStringLiteral("org.freedesktop.DBus.Properties.Get"),
                         [interfaces](const QDBusMessage& call) -> std::optional<QVariantList> {
                             if (!interfaces.contains(call.arguments().value(0).toString().section('.', -1)))
                                 return std::nullopt;
                             return QVariantList{QVariant::fromValue(QDBusVariant(3U))};
                         });
        m_desktop.appear(portal);
    }

    Ended perform(Action action, const QUrl& file) {
        std::optional<Ended> end;
        m_sharing->perform(action, file, [&end](Outcome outcome, const QString& error) {
            end = {outcome, error};
        });
        EXPECT_FALSE(end);
        EXPECT_TRUE(runLoopUntil([&end] { return end.has_value(); }));
        return end.value_or(Ended{Outcome::Failed, QStringLiteral("never ended")});
    }

    bool isOffered(const QList<Action>& actions) {
        m_sharing = std::make_unique<DesktopFileSharing>(m_client);
        return runLoopUntil([&] { return m_sharing->availableActions() == actions; });
    }

    QVariantMap options(const char* method) {
        const QVariantList arguments = m_desktop.calls(QString::fromLatin1(method)).value(0).arguments();
        return arguments.isEmpty() ? QVariantMap() : qdbus_cast<QVariantMap>(arguments.constLast());
    }

    QByteArray contents(const QVariant& descriptor) {
        QFile file;
        file.open(descriptor.value<QDBusUnixFileDescriptor>().fileDescriptor(), QIODevice::ReadOnly);
        return file.readAll();
    }
    using DesktopTest::contents;

    void saveTo(const QString& path) {
        m_desktop.answerRequest(
            QStringLiteral("org.freedesktop.portal.FileChooser.SaveFile"), 0,
            {{QStringLiteral("uris"), QStringList{QUrl::fromLocalFile(path).toString()}}});
    }

    std::unique_ptr<DesktopFileSharing> m_sharing = std::make_unique<DesktopFileSharing>(m_client);
    const QUrl m_film = file(QStringLiteral("my film.mp4"));
};

} // namespace

TEST_F(Sharing, OffersWhatThereIsAServiceForInOrder) {
    EXPECT_TRUE(isOffered({Action::CopyFile}));
    m_desktop.appear(QStringLiteral("org.freedesktop.FileManager1"));
    EXPECT_TRUE(isOffered({Action::ShowInFolder, Action::CopyFile}));
    offerPortals({QStringLiteral("FileChooser")});
    EXPECT_TRUE(isOffered({Action::SaveCopy, Action::ShowInFolder, Action::CopyFile}));
    m_desktop.vanish(QStringLiteral("org.freedesktop.FileManager1"));
    offerPortals({QStringLiteral("OpenURI")});
    EXPECT_TRUE(isOffered({Action::OpenWith, Action::ShowInFolder, Action::CopyFile}));
}

TEST_F(Sharing, OtherProgramsGetTheFileItself) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(QStringLiteral("org.freedesktop.portal.OpenURI.OpenFile"), 1);
    EXPECT_EQ(perform(Action::OpenWith, m_film).outcome, Outcome::Cancelled);
    EXPECT_EQ(options("OpenFile").value(QStringLiteral("ask")), true);
    EXPECT_EQ(contents(m_desktop.calls(QStringLiteral("OpenFile"))[0].arguments().value(1)), "film");

    m_desktop.answerRequest(QStringLiteral("org.freedesktop.portal.Email.ComposeEmail"), 0);
    EXPECT_EQ(perform(Action::SendByMail, m_film).outcome, Outcome::Done);
    const QVariant attachments = options("ComposeEmail").value(QStringLiteral("attachment_fds"));
    EXPECT_EQ(attachments.value<QDBusArgument>().currentSignature(), QStringLiteral("ah"));
    const auto files = qdbus_cast<QList<QDBusUnixFileDescriptor>>(attachments);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(contents(QVariant::fromValue(files[0])), "film");

    QFile::remove(m_film.toLocalFile());
    EXPECT_EQ(perform(Action::OpenWith, m_film).outcome, Outcome::Failed);
    EXPECT_FALSE(perform(Action::SendByMail, m_film).error.isEmpty());
}

TEST_F(Sharing, ACopyReplacesWhatWasThereOnlyWhenItIsWhole) {
    m_desktop.appear(portal);
    const QString target = m_folder.filePath(QStringLiteral("copies/copy.mp4"));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("copies")));
    file(QStringLiteral("copies/copy.mp4"), "earlier");
    saveTo(target);
    EXPECT_EQ(perform(Action::SaveCopy, m_film).outcome, Outcome::Done);
    EXPECT_EQ(contents(target), "film");
    EXPECT_EQ(options("SaveFile").value(QStringLiteral("current_name")), QStringLiteral("my film.mp4"));

    saveTo(m_folder.filePath(QStringLiteral("missing/copy.mp4")));
    const Ended failed = perform(Action::SaveCopy, m_film);
    EXPECT_EQ(failed.outcome, Outcome::Failed);
    EXPECT_FALSE(failed.error.isEmpty());

    // A source that cannot be read, and one that is given up.
    std::optional<Ended> end;
    const auto keep = [&end](Outcome outcome, const QString& error) { end = {outcome, error}; };
    const QDBusUnixFileDescriptor unreadable(::open(m_folder.path().toLocal8Bit(), O_RDONLY | O_DIRECTORY));
    FileCopy::start(unreadable, target, keep);
    EXPECT_TRUE(runLoopUntil([&end] { return end.has_value(); }));
    EXPECT_EQ(end->outcome, Outcome::Failed);
    end.reset();
    const QDBusUnixFileDescriptor endless(::open("/dev/zero", O_RDONLY));
    FileCopy::start(endless, target, keep)->cancel();
    EXPECT_TRUE(runLoopUntil([&end] { return end.has_value(); }));
    EXPECT_EQ(end->outcome, Outcome::Cancelled);
    EXPECT_EQ(contents(target), "film");
    EXPECT_EQ(QDir(m_folder.filePath(QStringLiteral("copies"))).entryList(QDir::Files | QDir::Hidden).size(),
              1);
}

TEST_F(Sharing, AFileIsShownByTheFileManagerOrElseInItsFolder) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(QStringLiteral("org.freedesktop.portal.OpenURI.OpenDirectory"), 0);
    EXPECT_EQ(perform(Action::ShowInFolder, m_film).outcome, Outcome::Done);
    EXPECT_EQ(contents(m_desktop.calls(QStringLiteral("OpenDirectory")).value(0).arguments().value(1)),
              "film");

    m_desktop.appear(QStringLiteral("org.freedesktop.FileManager1"));
    m_desktop.answer(QStringLiteral("org.freedesktop.FileManager1.ShowItems"),
                     [](const QDBusMessage&) { return QVariantList(); });
    EXPECT_EQ(perform(Action::ShowInFolder, m_film).outcome, Outcome::Done);
    EXPECT_EQ(m_desktop.calls(QStringLiteral("ShowItems"))[0].arguments(),
              (QVariantList{QStringList{m_film.toString(QUrl::FullyEncoded)}, QString()}));
    EXPECT_EQ(m_desktop.calls(QStringLiteral("OpenDirectory")).size(), 1);
}

TEST_F(Sharing, ACopiedFileCanBePastedIntoAFolder) {
    EXPECT_EQ(perform(Action::CopyFile, m_film).outcome, Outcome::Done);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->urls(), QList<QUrl>{m_film});
    EXPECT_EQ(data->data(QStringLiteral("x-special/gnome-copied-files")), "copy\n" + m_film.toEncoded());
}
