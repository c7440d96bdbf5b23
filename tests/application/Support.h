// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/ConsoleCapture.h"
#include "fakes/InMemoryServices.h"
#include "fakes/RunLoop.h"

#include "library/FileSystem.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace reelsmith {

/// A test with empty folders in the documents folder, a scripted worker, services in memory and a quiet
/// console.
class ApplicationTest : public testing::Test {
protected:
    ApplicationTest();

    /// Writes a file into a folder of the test's own.
    QUrl file(const QString& name, const QByteArray& contents = {}) const;

    static QUrl inOutputs(const QString& name);

    /// The names of all that is in the outputs folder, hidden files too.
    static QStringList outputs();

    static void write(const QUrl& url, const QByteArray& contents);
    static QByteArray contents(const QUrl& url);

    /// The thumbnail that the library makes or keeps of a video.
    static UIImage thumbnail(const QUrl& url);

    QTemporaryDir m_folder;
    ConsoleCapture m_console;
    InMemoryServices& m_services = InMemoryServices::fresh();
};

} // namespace reelsmith
