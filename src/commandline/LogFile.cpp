// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/LogFile.h"

#include "commandline/StandardStreams.h"
#include "platform/foundation/Console.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace reelsmith {

namespace {

constexpr off_t limitBytes = 256 * 1024;
constexpr mode_t privateMode = 0600;

LogFile* openLog = nullptr;

void writeMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    openLog->write(message);
}

// Qt 6.4 has no name for this folder. A relative path in the variable counts as none.
QString stateFolder() {
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base =
        QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/reelsmith");
}

} // namespace

LogFile::LogFile(Copy copy) : m_copy(copy) {
    open();
    openLog = this;
    qInstallMessageHandler(writeMessage);
    setConsoleSink([this](const QString& line) { write(line); });
}

LogFile::~LogFile() {
    setConsoleSink({});
    qInstallMessageHandler(nullptr);
    openLog = nullptr;
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void LogFile::open() {
    const QString folder = stateFolder();
    QDir().mkpath(folder);
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/reelsmith.log"));
    struct stat status {};
    if (::stat(path.constData(), &status) == 0 && status.st_size > limitBytes)
        ::rename(path.constData(), (path + ".1").constData());
    m_descriptor = ::open(path.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, privateMode);
}

void LogFile::write(const QString& line) {
    const QByteArray text = printable(line).toUtf8() + '\n';
    if (m_copy == Copy::StandardError)
        std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stderr);
    const QByteArray entry = QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toUtf8() + " [" +
                             QByteArray::number(QCoreApplication::applicationPid()) + "] " + text;
    // One call a line, so that the lines of two processes do not mix. A full disk costs the line.
    [[maybe_unused]] const ssize_t written =
        m_descriptor < 0 ? 0
                         : ::write(m_descriptor, entry.constData(), static_cast<std::size_t>(entry.size()));
}

} // namespace reelsmith
