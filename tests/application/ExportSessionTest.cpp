// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "platform/avfoundation/AVAssetExportSession.h"
#include "platform/foundation/URLs.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Status = AVAssetExportSessionStatus;

class ExportSession : public ApplicationTest {
protected:
    std::shared_ptr<AVAssetExportSession> session(const QByteArray& script, const QUrl& output) {
        return session(file(u"source"_s, script), output);
    }

    static std::shared_ptr<AVAssetExportSession> session(const QUrl& source, const QUrl& output) {
        auto session = AVAssetExportSession::initWithAsset(AVAsset(source), AVAssetExportPresetLowQuality);
        session->setOutputURL(output);
        session->setOutputFileType(AVFileType::MPEG4);
        return session;
    }

    /// Runs an export and returns the status that its completion saw.
    static Status exported(AVAssetExportSession& session) {
        Status status = Status::Unknown;
        session.exportAsynchronously([&] { status = session.status(); });
        session.waitUntilEnded();
        return status;
    }
};

const QByteArray goodExport = "export write result\n";

} // namespace

TEST_F(ExportSession, AFailureLeavesTheOldFileAndSaysWhy) {
    const QUrl output = inOutputs(u"a.mp4"_s);
    write(output, "old");
    const QUrl folder = inOutputs(u"folder.mp4"_s);
    std::filesystem::create_directory(filePath(folder));
    struct Case {
        const char* name;
        QUrl source, output;
        const char* error;
    };
    const QUrl good = file(u"good"_s, goodExport);
    for (const Case& bad : {
             Case{"refused", file(u"1"_s, "export write half\nexport fail no video in it\n"), output,
                  "no video in it"},
             Case{"killed worker", file(u"2"_s, "export write half\nexport die\n"), output, "signal 9"},
             Case{"no source", fileUrl(m_folder.filePath(u"gone.mov"_s).toStdString()), output,
                  "No such file"},
             Case{"source is a folder", fileUrl(m_folder.path().toStdString()), output, "no regular file"},
             Case{"outside the documents", good, fileUrl(m_folder.filePath(u"x"_s).toStdString()), "outside"},
             Case{"climbs out", good, inOutputs(u"../../../x.mp4"_s), "outside"},
             Case{"no folder", good, inOutputs(u"none/x.mp4"_s), "No such file"},
             Case{"output is a folder", good, folder, "Is a directory"},
             Case{"a NUL", good, inOutputs(u"x"_s + QChar(0)), "outside"},
             Case{"name too long", good, inOutputs(QString(256, u'x')), "too long"},
         }) {
        const auto session = this->session(bad.source, bad.output);
        EXPECT_EQ(exported(*session), Status::Failed) << bad.name;
        ASSERT_TRUE(session->error()) << bad.name;
        EXPECT_TRUE(session->error()->localizedDescription.contains(QLatin1StringView(bad.error)))
            << bad.name << ": " << session->error()->localizedDescription.toStdString();
        // It is counted as usage data, which says nothing of whose video it was.
        EXPECT_FALSE(session->error()->localizedDescription.contains(m_folder.path())) << bad.name;
        EXPECT_LT(session->progress(), 1) << bad.name;
    }
    EXPECT_EQ(contents(output), "old");
    EXPECT_EQ(outputs(), (QStringList{u"a.mp4"_s, u"folder.mp4"_s}));
}

TEST_F(ExportSession, CancellingEndsItUntilTheResultStandsInPlaceOfTheOldFile) {
    const QUrl output = inOutputs(u"a.mp4"_s);
    const auto early = session(goodExport, output);
    early->cancelExport();
    EXPECT_EQ(early->status(), Status::Cancelled);
    EXPECT_EQ(exported(*early), Status::Cancelled);

    const std::pair<QByteArray, float> scripts[] = {
        {"export hang\n", 0.0F},
        {"export write half\nexport progress 0.25\nexport hang\n", 0.25F},
        {"export flood\n", 0.5F},
    };
    for (const auto& [script, progress] : scripts) {
        SCOPED_TRACE(script.constData());
        const auto running = session(script, output);
        running->exportAsynchronously([] {});
        ASSERT_TRUE(runLoopUntil([&] { return running->progress() == progress; }));
        EXPECT_TRUE(progress == 0 || (running->status() == Status::Exporting && outputs().size() == 1));
        running->cancelExport();
        running->waitUntilEnded();
        EXPECT_EQ(running->status(), Status::Cancelled);
        EXPECT_FALSE(running->error());
        EXPECT_EQ(outputs(), QStringList());
    }

    write(output, "old");
    const auto completed = session(goodExport, output);
    ASSERT_EQ(exported(*completed), Status::Completed);
    completed->cancelExport();
    EXPECT_EQ(completed->status(), Status::Completed);
    EXPECT_EQ(completed->progress(), 1);
    EXPECT_FALSE(completed->error());
    EXPECT_EQ(contents(output), "result");
    EXPECT_EQ(outputs(), QStringList{u"a.mp4"_s});
}

TEST_F(ExportSession, NobodyWritesIntoAResultThatHasItsName) {
    const QUrl output = inOutputs(u"a.mp4"_s);
    const auto lingering = session("export linger\n", output);
    ASSERT_EQ(exported(*lingering), Status::Completed);
    const auto size = contents(output).size();
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(contents(output).size(), size);
}
