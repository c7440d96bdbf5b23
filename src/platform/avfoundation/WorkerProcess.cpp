// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/WorkerProcess.h"

#include "platform/foundation/OwnPrograms.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <system_error>
#include <vector>

// This header of glibc 2.36 forgets that C++ is another language.
extern "C" {
#include <sys/pidfd.h>
}

namespace reelsmith {

namespace {

using mediaworker::Channel;
using mediaworker::Descriptor;

constexpr int channelDescriptor = 3;
// A process closes its descriptors a moment before it has ended.
constexpr std::chrono::milliseconds dyingTime{1000};

// Requests wait for answers, so that there is always room for one, unless a worker answers unasked.
constexpr std::chrono::milliseconds sendingTime{100};

std::string chosenProgram;

std::string workerProgram() {
    return chosenProgram.empty() ? ownProgram(QStringLiteral("reelsmith-media-worker")) : chosenProgram;
}

/// What a worker is told of this process's environment, in which an operator's secrets may stand: where
/// libraries are, and how a sanitizer is to watch.
std::vector<std::string> told() {
    std::vector<std::string> kept;
    for (char** entry = environ; *entry; ++entry) {
        const std::string_view variable(*entry);
        const std::string_view name = variable.substr(0, variable.find('='));
        if (name == "LD_LIBRARY_PATH" || name.ends_with("SAN_OPTIONS"))
            kept.emplace_back(variable);
    }
    return kept;
}

// Taken before there are threads, one of which may change the environment while another walks it.
const std::vector<std::string> toldFromTheStart = told();

std::vector<char*> workerEnvironment() {
    std::vector<char*> entries;
    for (const std::string& each : toldFromTheStart)
        entries.push_back(const_cast<char*>(each.c_str()));
    entries.push_back(nullptr);
    return entries;
}

/// The attributes and file actions of a spawn, freed with it.
class SpawnSetup {
public:
    explicit SpawnSetup(int channel) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, channel, channelDescriptor);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_adddup2(&m_actions, STDIN_FILENO, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, STDIN_FILENO, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, channelDescriptor + 1);

        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        sigset_t set;
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&m_attributes, &set);
        sigfillset(&set);
        posix_spawnattr_setsigdefault(&m_attributes, &set);
    }
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    /// An error number, 0 for none.
    int spawn(std::string program, std::string argument, pid_t& process) const {
        std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
        return ::posix_spawn(&process, program.c_str(), &m_actions, &m_attributes, arguments.data(),
                             workerEnvironment().data());
    }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

void WorkerProcess::setProgram(const std::string& path) {
    chosenProgram = path;
}

Result<std::unique_ptr<WorkerProcess>> WorkerProcess::start(Role role) {
    const std::string program = workerProgram();
    const QString what = QStringLiteral("cannot start the media worker ") + QString::fromStdString(program);
    try {
        auto [ours, theirs] = Channel::makePair();
        ours.limitSending(sendingTime);
        pid_t process = -1;
        const SpawnSetup setup(theirs.descriptor());
        const int error = setup.spawn(program, role == Role::Export ? "export" : "inspect", process);
        if (error != 0)
            return systemFailure(what, error);
        Descriptor handle(::pidfd_open(process, 0));
        if (!handle.isOpen()) {
            const int pidfdError = errno;
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
            return systemFailure(what, pidfdError);
        }
        return std::unique_ptr<WorkerProcess>(new WorkerProcess(std::move(ours), std::move(handle)));
    } catch (const std::system_error& error) {
        return systemFailure(what, error.code().value());
    }
}

WorkerProcess::~WorkerProcess() {
    kill();
    causeOfDeath();
}

void WorkerProcess::kill() {
    ::pidfd_send_signal(m_process.number(), SIGKILL, nullptr, 0);
}

QString WorkerProcess::causeOfDeath() {
    if (m_isReaped)
        return {};
    pollfd ended{m_process.number(), POLLIN, 0};
    if (::poll(&ended, 1, static_cast<int>(dyingTime.count())) <= 0)
        kill();
    siginfo_t end{};
    while (::waitid(P_PIDFD, static_cast<id_t>(m_process.number()), &end, WEXITED) != 0 && errno == EINTR)
        continue;
    m_isReaped = true;
    if (end.si_code == CLD_EXITED)
        return QStringLiteral("the media worker ended with status %1").arg(end.si_status);
    return QStringLiteral("the media worker was ended by signal %1").arg(end.si_status);
}

} // namespace reelsmith
