// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "conversion/VideoConversionViewController.h"
#include "platform/foundation/OngoingWork.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/uikit/UIAlertController.h"
#include "settings/UserSettings.h"

#include <QCoreApplication>
#include <random>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

const QByteArray goodScript = "export write result\n";
const QByteArray badScript = "export fail no video in it\n";
const QString failedTitle = u"Conversion Failed"_s;

class ConvertFlow : public WholeApplicationTest {
protected:
    ConvertFlow() {
        launch();
        AppFileOpener::setPendingURL(std::nullopt);
    }

    VideoConversionViewController& screen() {
        return *qobject_cast<VideoConversionViewController*>(stack(0).topViewController());
    }
    void enterAddress(const QString& address) {
        screen().videoURLTapped();
        auto& card = await<URLInputViewController>();
        card.textField()->setText(address);
        card.downloadTapped();
    }
    ProgressViewController& convert(const QString& name) {
        auto& card = await<ConversionQualityViewController>();
        card.filenameTextField()->setText(name);
        card.convertTapped();
        card.convertTapped(); // a double tap
        return await<ProgressViewController>();
    }
    QUrl waiting(const QString& name) {
        return file(name, "export progress 0.5\nexport await " + m_folder.filePath(u"mark"_s).toUtf8() +
                              "\nexport write result\n");
    }
    /// Presses the only button of the alert in front; answers its message.
    QString dismissAlert(const QString& title) {
        auto& alert = await<UIAlertController>();
        EXPECT_EQ(alert.title(), title);
        EXPECT_EQ(alert.actions().size(), 1);
        EXPECT_EQ(alert.actions().front().toMap().value(u"title"_s), u"ok"_s);
        const QString message = alert.message();
        alert.press(0);
        return message;
    }
};

} // namespace

TEST_F(ConvertFlow, AWebAddressEndsInTheShareSheet) {
    enterAddress(u"https://example.org/films/clip.mp4?x=1"_s);
    auto& downloading = await<ProgressViewController>();
    EXPECT_EQ(downloading.titleLabel()->text(), u"Downloading"_s);
    ASSERT_TRUE(runLoopUntil([this] { return m_web->isBusy(); }));
    m_delegate.open(file(u"other.mov"_s, goodScript)); // meanwhile, over the card
    convert(u"other"_s);
    await<UIActivityViewController>().cancelTapped();
    ASSERT_EQ(&await<ProgressViewController>(), &downloading);
    m_web->report(12'400'000, std::nullopt);
    EXPECT_TRUE(downloading.progressVIew()->isIndeterminate());
    EXPECT_EQ(downloading.progressLabel()->text(), QString());
    EXPECT_EQ(downloading.remainingLabel()->text(), u"12.4\u00A0MB"_s);
    m_web->report(12'400'000, 80'000'000);
    ASSERT_TRUE(runLoopUntil([&] { return downloading.progressLabel()->text() == u"15%"_s; }));
    EXPECT_EQ(downloading.remainingLabel()->text(), u"12.4\u00A0MB of 80.0\u00A0MB"_s);
    m_web->finish(goodScript);

    EXPECT_EQ(await<ConversionQualityViewController>().filenameTextField()->text(), u"clip"_s);
    convert(u"result"_s);
    await<UIActivityViewController>().cancelTapped();
    EXPECT_EQ(outputs(), (QStringList{u"other.mp4"_s, u"result.mp4"_s}));
    EXPECT_EQ(screen().converter(), nullptr);
    EXPECT_TRUE(isAtHome());
    EXPECT_TRUE(m_console.lines().contains(u"Download success... Converting Video"_s));
    EXPECT_TRUE(m_console.lines().contains(u"Shared"_s));
}

TEST_F(ConvertFlow, CancelTakesTheCardAwayAndTheSuccessStillOpensTheShareSheet) {
    m_delegate.open(waiting(u"clip.mov"_s));
    auto& card = convert(u"result"_s);
    ASSERT_TRUE(runLoopUntil([&card] { return card.progressLabel()->text() == u"50%"_s; }));
    EXPECT_TRUE(m_console.lines().contains(u"GOT VALUE: 0.5"_s));
    EXPECT_TRUE(screen().stillConvertingView()->isHidden());
    card.cancelTapped();
    ASSERT_TRUE(isAtHome());
    EXPECT_EQ(screen().progressController(), nullptr);
    EXPECT_NE(screen().converter(), nullptr);
    EXPECT_FALSE(screen().stillConvertingView()->isHidden());
    file(u"mark"_s);
    await<UIActivityViewController>();
    EXPECT_TRUE(screen().stillConvertingView()->isHidden());
    window().goBack();
    EXPECT_TRUE(isAtHome());
}

TEST_F(ConvertFlow, AFileHandedOverComesUpOverTheURLCardWhichKeepsItsText) {
    screen().videoURLTapped();
    auto& address = await<URLInputViewController>();
    address.textField()->setText(u"https://example.org/"_s);
    EXPECT_TRUE(m_delegate.open(file(u"Clip.MOV"_s, goodScript)));
    EXPECT_FALSE(m_delegate.open(file(u"movie.webm"_s)));
    convert(u"handed"_s);
    await<UIActivityViewController>().cancelTapped();
    EXPECT_EQ(&await<URLInputViewController>(), &address);
    EXPECT_EQ(address.textField()->text(), u"https://example.org/"_s);
    address.downloadTapped();
    EXPECT_EQ(dismissAlert(u"Invalid URL"_s),
              u"The URL should be valid and link directly to a video asset"_s);
    ASSERT_EQ(&await<URLInputViewController>(), &address);
    address.cancelTapped();
    EXPECT_TRUE(isAtHome());
}

TEST_F(ConvertFlow, AFailedConversionSaysWhyInTwoLines) {
    m_delegate.open(file(u"clip.mov"_s, badScript));
    convert(u"result"_s);
    EXPECT_EQ(dismissAlert(failedTitle),
              u"Reelsmith could not convert the selected video.\nReason: Invalid file"_s);
    EXPECT_TRUE(isAtHome());
    EXPECT_EQ(screen().converter(), nullptr);
}

TEST_F(ConvertFlow, AFailedDownloadSaysSoWhetherItsCardIsThereOrNot) {
    for (const bool isCancelled : {false, true}) {
        enterAddress(u"clip.mp4"_s);
        auto& card = await<ProgressViewController>();
        ASSERT_TRUE(runLoopUntil([this] { return m_web->isBusy(); }));
        if (isCancelled) {
            card.cancelTapped();
            card.cancelTapped();
            ASSERT_TRUE(isAtHome());
        }
        m_web->fail();
        EXPECT_EQ(dismissAlert(failedTitle), u"Reelsmith could not download the selected video."_s);
        EXPECT_TRUE(isAtHome());
    }
    EXPECT_TRUE(m_console.lines().contains(
        u"Error: The operation couldn’t be completed. (VideoDownloader.DownloadError error 0.)"_s));
}

TEST_F(ConvertFlow, ASecondConversionTakesThePlaceOfTheFirstWhoseFileStillAppears) {
    m_delegate.open(waiting(u"first.mov"_s));
    auto& first = convert(u"first"_s);
    ASSERT_TRUE(runLoopUntil([&first] { return first.progressLabel()->text() == u"50%"_s; }));
    m_delegate.open(file(u"second.mov"_s, goodScript)); // while the first one's card is up
    convert(u"second"_s);
    await<UIActivityViewController>().cancelTapped();
    ASSERT_TRUE(isAtHome());
    const qint64 before = UserSettings::shared().conversionCount();
    file(u"mark"_s);
    EXPECT_TRUE(runLoopUntil([] { return outputs() == QStringList{u"first.mp4"_s, u"second.mp4"_s}; }));
    EXPECT_EQ(m_console.lines().count(u"ENDED"_s), 1);
    EXPECT_EQ(UserSettings::shared().conversionCount(), before);
}

TEST_F(ConvertFlow, AScreenThatIsGoneIsNotCalledBack) {
    m_delegate.open(waiting(u"clip.mov"_s));
    convert(u"result"_s);
    enterAddress(u"https://example.org/clip.mp4"_s);
    ASSERT_TRUE(runLoopUntil([this] { return m_web->isBusy(); }));
    window().setRootViewController(std::make_unique<UIViewController>());
    m_web->finish(goodScript);
    file(u"mark"_s);
    ASSERT_TRUE(runLoopUntil([] { return !OngoingWork::isAny(); }));
    EXPECT_TRUE(window().presentations().screens().empty());
}

TEST_F(ConvertFlow, TheNameCardProposesANameAndWantsOne) {
    const QString next = u"converted_%1"_s.arg(UserSettings::shared().conversionCount() + 1);
    const std::map<QString, QString> proposals{{u"trim.5D1A.MOV"_s, next},
                                               {u"Trim.MOV"_s, u"Trim"_s},
                                               {u"holiday.trip.mov"_s, u"holiday"_s},
                                               {u".hidden.mov"_s, QString()}};
    for (const auto& [source, name] : proposals) {
        m_delegate.open(file(source));
        auto& card = await<ConversionQualityViewController>();
        EXPECT_EQ(card.filenameTextField()->text(), name);
        EXPECT_EQ(card.quality(), ConversionQuality::low);
        card.qualitySegmentedView()->setSelectedSegmentIndex(2);
        card.qualityTapped();
        if (name.isEmpty()) {
            card.convertTapped();
            EXPECT_EQ(dismissAlert(u"Error"_s), u"You must enter a valid output name"_s);
            ASSERT_EQ(&await<ConversionQualityViewController>(), &card);
        }
        EXPECT_EQ(card.quality(), ConversionQuality::high);
        card.requestDismiss();
        ASSERT_TRUE(isAtHome());
    }
}

TEST_F(ConvertFlow, TheNameCardTellsSizesAndWhatItWouldReplace) {
    write(inOutputs(u"taken.mp4"_s), "old");
    m_delegate.open(file(u"clip.mov"_s, goodScript));
    auto& card = await<ConversionQualityViewController>();
    ASSERT_TRUE(runLoopUntil([&card] { return card.estimates().first() != u"–"_s; }));
    EXPECT_TRUE(card.sourceDetailsLabel()->text().startsWith(u"00:03 · "_s));
    EXPECT_TRUE(card.warningLabel()->isHidden());
    card.filenameTextField()->setText(u"taken"_s);
    EXPECT_FALSE(card.warningLabel()->isHidden());
    EXPECT_EQ(card.warningLabel()->text(), u"Replaces the video that has this name now"_s);
}

// Nothing hangs.
TEST_F(ConvertFlow, AnyOrderOfTapsHandOversAndEndsLeadsHome) {
    const QUrl good = file(u"good.mov"_s, goodScript);
    const QUrl bad = file(u"bad.mov"_s, badScript);
    for (unsigned seed = 0; seed < 12; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto tap = [&](UIViewController* front) {
            if (front->isBeingDismissed())
                return;
            if (auto* address = qobject_cast<URLInputViewController*>(front)) {
                address->textField()->setText(random() % 4 == 0 ? u"no"_s : u"https://example.org/a.mp4"_s);
                random() % 4 == 0 ? address->cancelTapped() : address->downloadTapped();
            } else if (auto* quality = qobject_cast<ConversionQualityViewController*>(front)) {
                random() % 5 == 0 ? quality->requestDismiss() : quality->convertTapped();
            } else if (front != &tabs()) {
                window().goBack();
            } else if (random() % 4 == 0) {
                tabs().setSelectedIndex(static_cast<int>(random() % 3));
            } else {
                screen().videoURLTapped();
            }
        };
        for (int step = 0; step < 120; ++step) {
            const auto choice = random() % 10;
            if (choice < 5)
                tap(window().frontmost());
            else if (choice == 5)
                m_delegate.open(random() % 2 == 0 ? good : bad);
            else if (choice == 6 && m_web->isBusy())
                random() % 3 == 0 ? m_web->fail() : m_web->finish(random() % 2 == 0 ? goodScript : badScript);
            else
                QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
        ASSERT_TRUE(runLoopUntil([&] {
            if (m_web->isBusy())
                m_web->fail();
            if (isIdle() && window().frontmost() != &tabs() && !window().goBack())
                ADD_FAILURE() << "there is no way back";
            return isIdle() && window().frontmost() == &tabs() && !m_web->isBusy() && !OngoingWork::isAny() &&
                   screen().converter() == nullptr;
        }));
        tabs().setSelectedIndex(0);
    }
}
