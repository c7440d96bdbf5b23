// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/Console.h"
#include "platform/foundation/DispatchQueue.h"

#include "fakes/ConsoleCapture.h"

#include <QCoreApplication>
#include <QThread>
#include <future>
#include <gtest/gtest.h>

using namespace reelsmith;

TEST(Console, PrintsUtf8LinesToStandardOutputUnlessASinkTakesThem) {
    testing::internal::CaptureStdout();
    console(QStringLiteral("Zoë"));
    {
        const ConsoleCapture capture;
        console(QStringLiteral("caught"));
        EXPECT_EQ(capture.lines(), QStringList{QStringLiteral("caught")});
    }
    console(QString());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Zo\xC3\xAB\n\n");
}

TEST(DispatchQueue, MainRunsTheWorkOfAnyThreadLaterOnTheApplicationsThread) {
    QThread* ranOn = nullptr;
    std::thread([&] { DispatchQueue::main().async([&] { ranOn = QThread::currentThread(); }); }).join();
    EXPECT_EQ(ranOn, nullptr);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ranOn, QThread::currentThread());
}

TEST(DispatchQueue, GlobalRunsWorkElsewhereThoughManyAreWaiting) {
    const auto global = DispatchQueue::global(QualityOfService::UserInitiated);
    std::promise<void> release;
    const auto released = release.get_future().share();
    for (int i = 0; i < QThread::idealThreadCount(); ++i)
        global.async([released] { released.wait(); });
    std::promise<QThread*> ran;
    global.async([&ran] { ran.set_value(QThread::currentThread()); });
    EXPECT_NE(ran.get_future().get(), QThread::currentThread());
    release.set_value();
}
