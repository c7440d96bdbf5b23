// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/LocalInstallations.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <future>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

QString token(const QTemporaryDir& folder, Installations::Refresh refresh) {
    // Whoever tells may not be done with it when the value is there.
    const auto told = std::make_shared<std::promise<QString>>();
    std::make_shared<LocalInstallations>(folder.path())
        ->authTokenForcingRefresh(
            refresh, [told](const auto& token, const auto&) { told->set_value(token->authToken); });
    return told->get_future().get();
}

} // namespace

TEST(LocalInstallations, ProgramsThatStartAtOnceAgreeOnTheId) {
    const QTemporaryDir folder;
    std::array<QProcess, 8> programs;
    for (QProcess& program : programs)
        program.start(QCoreApplication::applicationFilePath(),
                      {u"--installation"_s, folder.filePath(u"made/for/it"_s)});
    QSet<QByteArray> ids{LocalInstallations(folder.filePath(u"made/for/it"_s)).id().toLatin1()};
    for (QProcess& program : programs) {
        ASSERT_TRUE(program.waitForFinished());
        ids.insert(program.readAllStandardOutput());
    }
    EXPECT_EQ(ids.size(), 1);
    EXPECT_EQ(ids.constBegin()->size(), 36);
}

TEST(LocalInstallations, ADamagedIdIsReplacedAndOneThatCannotBeKeptHoldsForTheProgram) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"installation-id"_s);
    const QString first = LocalInstallations(folder.path()).id();
    EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    ASSERT_TRUE(StateFile(path).replace("0123"));
    const QString second = LocalInstallations(folder.path()).id();
    EXPECT_TRUE(second.size() == 36 && second != first);
    EXPECT_EQ(LocalInstallations(folder.path()).id(), second);
    LocalInstallations homeless(u"/proc/nowhere"_s);
    EXPECT_EQ(homeless.id(), homeless.id());
}

TEST(LocalInstallations, TheTokenHas256BitsAndIsRenewedWhenForced) {
    using Refresh = Installations::Refresh;
    const QTemporaryDir folder;
    const QString first = token(folder, Refresh::IfExpired);
    EXPECT_EQ(QByteArray::fromBase64(first.toLatin1(), QByteArray::Base64UrlEncoding).size(), 32);
    EXPECT_EQ(token(folder, Refresh::IfExpired), first);
    const QString second = token(folder, Refresh::Forced);
    EXPECT_NE(second, first);
    EXPECT_EQ(token(folder, Refresh::IfExpired), second);
}
