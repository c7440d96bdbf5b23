// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/VideoConverter.h"

#include "Support.h"

#include "conversion/OutputName.h"
#include "platform/foundation/URLs.h"
#include "settings/UserSettings.h"

#include <atomic>
#include <thread>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// What a screen is to a converter.
class Owner : public QObject, public VideoConverterDelegate, public ProgressDisplay {
public:
    ProgressDisplay* progressDisplay() override { return this; }
    void updateProgress(double progress) override { shown.append(progress); }

    QList<double> shown;
};

class Converter : public ApplicationTest {
protected:
    Converter() { UserSettings::shared().setSendUsageData(true); }

    void make(const QUrl& source) {
        m_converter = VideoConverter::make(source, ConversionQuality::medium);
        m_converter->setOnFailure([this](const std::optional<QString>& reason) {
            m_failureThread = std::this_thread::get_id();
            m_failure = reason;
            m_hasFailed = true;
        });
        m_converter->setOnCancel([this] { m_isCancelCalled = true; });
    }
    void convert(const std::optional<QString>& name) {
        m_converter->convert(name, [this](const QUrl& output) { m_output = output; });
    }
    bool waitForEnd() {
        return runLoopUntil(
            [this] { return m_output || m_hasFailed || m_console.lines().contains(u"CANCELLED"_s); });
    }
    /// Lets the timer have its time again.
    bool waitForAnotherTimer() {
        int count = 0;
        const auto other = Timer::scheduledTimer(std::chrono::milliseconds(600), [&count] { ++count; });
        return runLoopUntil([&count] { return count > 0; });
    }

    std::shared_ptr<VideoConverter> m_converter;
    std::optional<QUrl> m_output;
    std::optional<QString> m_failure;
    std::thread::id m_failureThread;
    std::atomic<bool> m_hasFailed = false;
    bool m_isCancelCalled = false;
};

const QByteArray goodScript = "export write result\n";
const QString noVideo = u"no video in it"_s;

} // namespace

TEST(OutputName, IsTheGivenNameOrTheSourcesFirstPiece) {
    const QUrl folder(u"file:///tmp"_s);
    const std::map<QString, QString> cases{
        {u"IMG_0001.MOV"_s, u"IMG_0001"_s}, {u"a.b.c.mov"_s, u"a"_s},     {u".mov"_s, u"mov"_s},
        {u"plain"_s, u"plain"_s},           {u"..clip.mov"_s, u"clip"_s}, {u"My Film.mov"_s, u"My Film"_s}};
    for (const auto& [source, name] : cases)
        EXPECT_EQ(outputBaseName(std::nullopt, appendingPathComponent(folder, source)), name);
    EXPECT_EQ(outputBaseName(u" a.b "_s, folder), u" a.b "_s);
    EXPECT_EQ(outputBaseName(std::nullopt, QUrl()).size(), 36);
    EXPECT_EQ(outputBaseName(std::nullopt, fileUrl("/tmp/...")).size(), 36);
    EXPECT_EQ(filePath(outputUrl(u"My Video"_s)).filename(), "My Video.mp4");
}

TEST_F(Converter, ASuccessIsCountedReportedAndWithConsentLogged) {
    for (const bool consents : {true, false}) {
        UserSettings::shared().setSendUsageData(consents);
        m_services.analytics->reset();
        m_output.reset();
        const qint64 before = UserSettings::shared().conversionCount();
        write(inOutputs(u"My Video.mp4"_s), "old");
        make(file(u"clip.mov"_s, goodScript));
        convert(u"My Video"_s);
        EXPECT_EQ(m_converter->exportSession(), nullptr);
        ASSERT_TRUE(waitForEnd());
        EXPECT_EQ(m_output, inOutputs(u"My Video.mp4"_s));
        EXPECT_EQ(contents(*m_output), "result");
        EXPECT_EQ(m_console.lines().mid(consents ? 0 : 4),
                  (QStringList{u"Passthrough enabled: false"_s, u"Playable: true"_s, u"Exportable: true"_s,
                               u"ENDED"_s}));
        EXPECT_EQ(UserSettings::shared().conversionCount(), before + 1);
        EXPECT_EQ(events(), consents ? QStringList{u"converted_success"_s} : QStringList());
        EXPECT_FALSE(m_hasFailed || m_isCancelCalled);
    }
}

TEST_F(Converter, FailedExportReportsInvalidFile) {
    const qint64 before = UserSettings::shared().conversionCount();
    write(inOutputs(u"clip.mp4"_s), "old");
    make(file(u"clip.mov"_s, "export fail no video in it\n"));
    convert(std::nullopt);
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(m_failure, u"Invalid file"_s);
    EXPECT_NE(m_failureThread, std::this_thread::get_id());
    EXPECT_EQ(m_console.lines().mid(3), (QStringList{u"FAILED"_s, noVideo}));
    EXPECT_EQ(m_services.analytics->state().events,
              (QList<InMemoryAnalytics::Event>{
                  {u"converted_failure"_s, AnalyticsParameters{{u"reason"_s, noVideo}}}}));
    EXPECT_EQ(UserSettings::shared().conversionCount(), before);
    EXPECT_EQ(outputs(), QStringList());
    ASSERT_TRUE(waitForAnotherTimer());
    EXPECT_EQ(m_console.lines().size(), 5);
}

TEST_F(Converter, ProgressGoesToTheDelegatesDisplayUntilTheEnd) {
    auto owner = std::make_unique<Owner>();
    make(file(u"clip.mov"_s, "export progress 0.25\nexport hang\n"));
    m_converter->setDelegate(owner.get());
    convert(std::nullopt);
    ASSERT_TRUE(runLoopUntil([&owner] { return owner->shown.size() >= 2; }));
    EXPECT_EQ(owner->shown.last(), 0.25);
    EXPECT_EQ(m_console.lines().count(u"Sending value"_s), owner->shown.size());
    owner.reset();
    const qsizetype before = m_console.lines().size();
    ASSERT_TRUE(runLoopUntil([&] { return m_console.lines().size() > before; }));

    m_converter->exportSession()->cancelExport();
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(waitForAnotherTimer());
    EXPECT_EQ(m_console.lines().last(), u"CANCELLED"_s);
    EXPECT_FALSE(m_output || m_hasFailed || m_isCancelCalled);
}
