// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"
#include "platform/foundation/Error.h"

#include <memory>
#include <string>
#include <sys/types.h>

namespace reelsmith {

/// A running media worker, which ends with this object at the latest.
///
/// It inherits its end of the channel as descriptor 3 and nothing else that is open here or stands in the
/// environment, and is in a session of its own, so that the terminal's Ctrl-C does not reach it. It ends with
/// the thread that has started it, too.
class WorkerProcess {
public:
    /// What a worker is for; it asks for its limits accordingly. The program's only argument: "inspect" or
    /// "export".
    enum class Role { Inspect, Export };

    static Result<std::unique_ptr<WorkerProcess>> start(Role role);

    /// The program to start in the place of the installed worker. Before any worker is started.
    static void setProgram(const std::string& path);

    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    mediaworker::Channel& channel() { return m_channel; }

    /// Ends the worker at once, whatever it does; whoever waits for its next message learns that the channel
    /// is closed. Any thread.
    void kill();

    /// For a worker that has closed its channel: how it ended, for the log. Ends it where it has not.
    QString causeOfDeath();

private:
    WorkerProcess(mediaworker::Channel channel, mediaworker::Descriptor process)
        : m_channel(std::move(channel)), m_process(std::move(process)) {}

    mediaworker::Channel m_channel;
    // A process descriptor: unlike a process number it never comes to mean another process.
    mediaworker::Descriptor m_process;
    bool m_isReaped = false;
};

} // namespace reelsmith
