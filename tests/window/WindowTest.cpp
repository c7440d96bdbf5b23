// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestApplication.h"

#include "conversion/ProgressViewController.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/UIImagePickerController.h"
#include "platform/uikit/UIAlertController.h"
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
}

TEST(Window, WhatLiesBelowACardGetsNeitherTapsNorKeys) {
    TestApplication application;
    const QPointF below = sceneRectangle(application.control("tab2")).center();
    application.tap("webAddress");
    auto& card = application.await<URLInputViewController>();
    EXPECT_FALSE(application.rootItem().isEnabled());
    application.type("http");
    EXPECT_EQ(card.textField()->text(), "http");
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
    auto& picker = application.await<UIImagePickerController>();
    ASSERT_TRUE(runLoopUntil([&picker] { return picker.collectionView()->cell(0) != nullptr; }));
    tabTo(application, "videos");
    application.press(Qt::Key_Right);
    application.press(Qt::Key_Return);
    auto& card = application.await<ConversionQualityViewController>();
    tabTo(application, "quality");
    application.press(Qt::Key_Right);
    EXPECT_EQ(card.quality(), ConversionQuality::medium);
    tabTo(application, "name");
    application.type("by keys");
    application.press(Qt::Key_Return);
    application.await<UIActivityViewController>();
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
    application.await<ConversionQualityViewController>();
}

TEST(Window, ClosingItDuringAConversionAsksAndMayGoOn) {
    TestApplication application;
    application.open(homeFile("Videos/film.avi", "export progress 0.5\n" + awaitingEnd() + goodScript));
    application.await<ConversionQualityViewController>();
    application.tap("convert");
    auto& card = application.await<ProgressViewController>();
    ASSERT_TRUE(runLoopUntil([&card] { return card.progressLabel()->text() == "50%"; }));
    application.window().close();
    application.window().close();
    EXPECT_EQ(application.await<UIAlertController>().title(), "Stop converting?");
    application.tap("keep converting");
    application.await<ProgressViewController>();
    EXPECT_TRUE(application.window().isVisible());
    application.window().close();
    const QPointer question = &application.await<UIAlertController>();
    homeFile(endMark);
    application.await<UIActivityViewController>();
    EXPECT_TRUE(runLoopUntil([&question] { return question.isNull(); })); // nothing is left to stop
    EXPECT_TRUE(isInLibrary("film.mp4"));
    EXPECT_TRUE(application.window().close());
}

} // namespace
} // namespace reelsmith
