// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace reelsmith {

/// A file in the home folder of the test program's own, for as long as the object lives: "config/…" or
/// "data/…".
class UserFile {
public:
    UserFile(const QString& name, const QByteArray& contents) : m_file(QDir::home().filePath(name)) {
        QDir().mkpath(QFileInfo(m_file).path());
        EXPECT_TRUE(m_file.open(QIODevice::WriteOnly));
        m_file.write(contents);
        m_file.close();
    }
    ~UserFile() { m_file.remove(); }
    UserFile(const UserFile&) = delete;
    UserFile& operator=(const UserFile&) = delete;

private:
    QFile m_file;
};

} // namespace reelsmith
