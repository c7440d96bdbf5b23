// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestApplication.h"

#include "conversion/ProgressViewController.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/UIImagePickerController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIApplication.h"
#include "sources/ConversionQualityViewController.h"
#include "sources/URLInputViewController.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

const QByteArray goodScript = "export write result\n";

bool isInLibrary(const QString& name) {
    return QFile::exists(QDir::homePath() + "/Documents/Reelsmith/outputs/" + name);
}

TEST(Window, TwoTapsAtOnceGiveOneScreen) {
    for (const char* source : {"photoLibrary", "files", "webAddress"}) {
        TestApplication application;
        application.tapTwice(source);
        application.settle();
        EXPECT_EQ(application.screens().presentations().screens().size(), 1U) << source;
    }
    TestApplication application;
    application.open(homeFile("Videos/film.avi", awaitingEnd()));
    ASSERT_TRUE(application.await<ConversionQualityViewController>());
    application.tapTwice("convert");
    ASSERT_TRUE(application.await<ProgressViewController>());
    EXPECT_EQ(application.screens().presentations().screens().size(), 1U);
}

TEST(Window, WhatLiesBelowACardGetsNeitherTapsNorKeys) {
    TestApplication application;
    const QPointF below = sceneRectangle(application.control("tab2")).center();
    application.tap("webAddress");
    auto* const card = application.await<URLInputViewController>();
    ASSERT_NE(card, nullptr);
    EXPECT_FALSE(application.rootItem().isEnabled());
    application.type("http");
    EXPECT_EQ(card->textField()->text(), "http");
    application.tapAt(below);
    application.settle();
    EXPECT_EQ(application.root().property("selectedIndex"), 0);
}

/// Presses Tab until the control of that object name has the keyboard.
void tabTo(TestApplication& application, const QString& name) {
    const QQuickItem& control = application.control(name);
    for (int stops = 0; application.window().activeFocusItem() != &control; ++stops) {
        ASSERT_LT(stops, 20) << qPrintable(name);
        application.press(Qt::Key_Tab);
    }
}

TEST(Window, AVideoIsConvertedByKeysAlone) {
    TestApplication application;
    homeFile("Videos/film.avi", goodScript);
    tabTo(application, "photoLibrary");
    application.press(Qt::Key_Return);
    auto* const picker = application.await<UIImagePickerController>();
    ASSERT_NE(picker, nullptr);
    ASSERT_TRUE(runLoopUntil([picker] { return picker->collectionView()->cell(0) != nullptr; }));
    tabTo(application, "videos");
    application.press(Qt::Key_Right);
    application.press(Qt::Key_Return);
    auto* const card = application.await<ConversionQualityViewController>();
    ASSERT_NE(card, nullptr);
    tabTo(application, "quality");
    application.press(Qt::Key_Right);
    EXPECT_EQ(card->quality(), ConversionQuality::medium);
    tabTo(application, "name");
    application.type("by keys");
    application.press(Qt::Key_Return);
    ASSERT_TRUE(application.await<UIActivityViewController>());
    EXPECT_TRUE(isInLibrary("by keys.mp4"));
}

TEST(Window, AFileDroppedOnItIsTakenAndAnythingElseIsNot) {
    TestApplication application;
    const auto drop = [&application](const QString& address) {
        QMimeData data;
        data.setUrls({QUrl(address)});
        QDropEvent event({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&application.window(), &event);
        application.settle();
        return event.isAccepted();
    };
    EXPECT_FALSE(drop("https://example.org/film.mp4"));
    EXPECT_EQ(&application.frontScreen(), &application.root());
    EXPECT_TRUE(drop(QUrl::fromLocalFile(homeFile("Videos/film.mp4")).toString()));
    EXPECT_TRUE(application.await<ConversionQualityViewController>());
}

class ClosingWindow : public testing::Test {
protected:
    /// Closes the window in the middle of a conversion; presses the button of that name, once asked.
    void closeAndAnswer(const char* button) {
        m_application.open(homeFile("Videos/film.avi", "export progress 0.5\n" + awaitingEnd() + goodScript));
        ASSERT_TRUE(m_application.await<ConversionQualityViewController>());
        m_application.tap("convert");
        auto* const card = m_application.await<ProgressViewController>();
        ASSERT_TRUE(card && runLoopUntil([card] { return card->progressLabel()->text() == "50%"; }));
        m_application.window().close();
        auto* const question = m_application.await<UIAlertController>();
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->title(), "Stop converting?");
        m_application.tap(button);
    }

    TestApplication m_application;
};

TEST_F(ClosingWindow, DuringAConversionItAsksAndMayGoOn) {
    closeAndAnswer("keep converting");
    ASSERT_TRUE(m_application.await<ProgressViewController>());
    EXPECT_TRUE(m_application.window().isVisible());
    homeFile(endMark);
    ASSERT_TRUE(m_application.await<UIActivityViewController>());
    EXPECT_TRUE(isInLibrary("film.mp4"));
    EXPECT_TRUE(m_application.window().close());
}

TEST_F(ClosingWindow, DuringAConversionItClosesOnceThatIsToStop) {
    closeAndAnswer("stop");
    EXPECT_TRUE(runLoopUntil([this] { return !m_application.window().isVisible(); }));
}

} // namespace
} // namespace reelsmith
