// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/LocalInstallations.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <future>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

QString token(Installations& installations, Installations::Refresh refresh) {
    std::promise<QString> told;
    installations.authTokenForcingRefresh(refresh, [&told](const auto& token, const auto&) {
        told.set_value(token ? token->authToken : QString());
    });
    return told.get_future().get();
}

} // namespace

TEST(LocalInstallations, ProgramsThatStartAtOnceAgreeOnTheId) {
    const QTemporaryDir folder;
    std::vector<std::unique_ptr<QProcess>> programs;
    for (int i = 0; i < 8; ++i) {
        programs.push_back(std::make_unique<QProcess>());
        programs.back()->start(QCoreApplication::applicationFilePath(),
                               {u"--installation"_s, folder.filePath(u"made/for/it"_s)});
    }
    QSet<QByteArray> ids;
    for (const auto& program : programs) {
        ASSERT_TRUE(program->waitForFinished());
        ids.insert(program->readAllStandardOutput());
    }
    ids.insert(LocalInstallations(folder.filePath(u"made/for/it"_s)).id().toLatin1());
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
    EXPECT_EQ(second.size(), 36);
    EXPECT_NE(second, first);
    EXPECT_EQ(LocalInstallations(folder.path()).id(), second);
    LocalInstallations homeless(u"/proc/nowhere"_s);
    EXPECT_EQ(homeless.id(), homeless.id());
}

TEST(LocalInstallations, TheTokenHas256BitsAndIsRenewedWhenForced) {
    using Refresh = Installations::Refresh;
    const QTemporaryDir folder;
    LocalInstallations before(folder.path());
    const QString first = token(before, Refresh::IfExpired);
    EXPECT_EQ(QByteArray::fromBase64(first.toLatin1(), QByteArray::Base64UrlEncoding).size(), 32);
    LocalInstallations after(folder.path());
    EXPECT_EQ(token(after, Refresh::IfExpired), first);
    const QString second = token(after, Refresh::Forced);
    EXPECT_NE(second, first);
    EXPECT_EQ(token(after, Refresh::IfExpired), second);
    LocalInstallations later(folder.path());
    EXPECT_EQ(token(later, Refresh::IfExpired), second);
}
