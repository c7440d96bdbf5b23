// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CommandLine.h"

#include "commandline/Arguments.h"
#include "commandline/ConvertCommand.h"
#include "commandline/InterruptSignals.h"
#include "commandline/ListCommand.h"
#include "commandline/LogFile.h"
#include "commandline/StandardStreams.h"
#include "library/FileSystem.h"
#include "platform/foundation/OwnPrograms.h"
#include "platform/linux/bus/DesktopInhibitor.h"
#include "platform/linux/network/NetworkHTTPClient.h"
#include "platform/linux/network/NetworkServices.h"
#include "remote/ABTestManager.h"

#include <QCoreApplication>
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace reelsmith {

namespace {

using Command = Arguments::Command;

constexpr int exitWrongUsage = 2;

// The steps of a launch that a command without a window takes too: no fetch, and downloads stay.
void launch(const NetworkServices& services) {
    FileSystem::shared().createFolders();
    FileSystem::shared().removeLeftovers();
    Services::configure(services.backends());
    ABTestManager::shared().registerExperiments();
}

int convert(const Arguments& arguments) {
    const auto format = arguments.isJson ? ConversionReport::Format::Json : ConversionReport::Format::Text;
    const bool hasProgressLine = ::isatty(STDERR_FILENO) == 1 && !arguments.isVerbose;
    HTTPClient::setShared(std::make_shared<NetworkHTTPClient>());
    ConvertCommand command(arguments, ConversionReport(format, hasProgressLine));
    const InterruptSignals interrupt([&command] { command.interrupt(); });
    // After the signals were taken: the bus has a thread of its own.
    UIApplication::shared().setSleepInhibitor(std::make_unique<DesktopInhibitor>(
        std::vector{loginManagerLease(QDBusConnection::systemBus(), QStringLiteral("sleep"))}));
    command.start();
    const int status = QCoreApplication::exec();
    // What an interrupt has left on its way goes while there is an application object.
    HTTPClient::setShared(nullptr);
    UIApplication::shared().setSleepInhibitor(std::make_unique<Inhibitor>());
    return status;
}

int convertOrList(const Arguments& arguments) {
    const LogFile log(arguments.isVerbose ? LogFile::Copy::StandardError : LogFile::Copy::None);
    const NetworkServices services;
    launch(services);
    return arguments.command == Command::List ? listConvertedVideos(arguments) : convert(arguments);
}

// The window is a program of its own, so that commands need not load what draws it.
int openWindow(const Arguments& arguments) {
    const std::string program = ownProgram(QStringLiteral("reelsmith-window"));
    std::vector<const char*> words{program.c_str()};
    for (const std::string& source : arguments.sources)
        words.push_back(source.c_str());
    words.push_back(nullptr);
    ::execv(program.c_str(), const_cast<char* const*>(words.data()));
    printErrorLine(QStringLiteral("reelsmith: The window cannot be opened: %1: %2")
                       .arg(QString::fromStdString(program), qt_error_string(errno)));
    return exitWrongUsage;
}

int run(const Arguments& arguments) {
    switch (arguments.command) {
    case Command::Help:
        printLine(Arguments::help().trimmed().toStdString());
        return 0;
    case Command::Version:
        printLine("reelsmith " REELSMITH_VERSION);
        return 0;
    case Command::Convert:
    case Command::List:
        return convertOrList(arguments);
    case Command::Window:
        break;
    }
    return openWindow(arguments);
}

} // namespace

int runCommandLine(int argc, char** argv) {
    // A reader of standard output that has gone must not keep a conversion from being cleaned up.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> words(argv + 1, argv + argc);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(REELSMITH_VERSION));
    const auto arguments = Arguments::parse(words);
    if (!arguments) {
        printErrorLine(QStringLiteral("reelsmith: ") + arguments.error());
        printErrorLine(QStringLiteral("\"reelsmith --help\" tells how it is used."));
        return exitWrongUsage;
    }
    return run(*arguments);
}

} // namespace reelsmith
