// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Lockdown.h"

#include "mediaworker/Channel.h"
#include "mediaworker/Landlock.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <poll.h>
#include <sched.h>
#include <string>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace reelsmith::mediaworker;

namespace {

constexpr std::uint64_t gibibyte = 1ULL << 30;
constexpr int notLockedDown = 200;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// Runs `body` in a child process: its return value, or minus the signal that ended it.
int inChild(const std::function<int()>& body) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body());
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int inLockedChild(const std::function<int()>& body) {
    return inChild([&body] { return lockDown({2 * gibibyte}).isFiltered ? body() : notLockedDown; });
}

/// 0 for a call that succeeded, else its errno.
int errorOf(long result) {
    return result < 0 ? errno : 0;
}

/// A file without a name that holds `text`. It lies on a real file system, which Landlock tells from memory.
Descriptor fileWith(const std::string& text) {
    std::string path = testing::TempDir() + "lockdownXXXXXX";
    Descriptor file(::mkstemp(path.data()));
    EXPECT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(::pwrite(file.number(), text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    return file;
}

bool holds(int descriptor, const std::string& text) {
    std::array<char, 64> bytes{};
    const ssize_t size = ::pread(descriptor, bytes.data(), bytes.size(), 0);
    return size == static_cast<ssize_t>(text.size()) &&
           std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

struct Attempt {
    std::string what;
    std::function<long()> call;
    int error = EPERM;
};

const Descriptor inherited = fileWith("source");
const std::string inheritedName = "/proc/self/fd/" + std::to_string(inherited.number());

const std::vector<Attempt> attemptsOnPaths = {
    {"open a file", [] { return ::open("/etc/passwd", O_RDONLY); }},
    {"open a folder", [] { return ::open("/", O_RDONLY | O_DIRECTORY); }},
    {"read an inherited descriptor by name", [] { return ::open(inheritedName.c_str(), O_RDONLY); }},
    {"write an inherited descriptor by name", [] { return ::open(inheritedName.c_str(), O_RDWR); }},
    {"create a file", [] { return ::open("/tmp/lockdown-test", O_WRONLY | O_CREAT, 0600); }},
    {"run a program", [] { return ::execl("/bin/true", "true", nullptr); }},
};

const std::vector<Attempt> otherAttempts = {
    {"remove a file", [] { return ::unlink("/tmp/lockdown-test-missing"); }},
    {"change a file's mode", [] { return ::chmod("/tmp", 01777); }},
    {"create an internet socket", [] { return ::socket(AF_INET, SOCK_STREAM, 0); }},
    {"create a local socket", [] { return ::socket(AF_UNIX, SOCK_STREAM, 0); }},
    {"create connected sockets",
     [] { return ::socketpair(AF_UNIX, SOCK_STREAM, 0, std::array<int, 2>().data()); }},
    {"run an inherited program",
     [] { return ::syscall(SYS_execveat, inherited.number(), "", 0, 0, 0x1000); }},
    {"start a process", [] { return ::fork(); }},
    {"let another trace it", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
    {"trace another", [] { return ::ptrace(PTRACE_SEIZE, ::getppid(), nullptr, nullptr); }},
    {"read another's memory",
     [] { return ::syscall(SYS_process_vm_readv, ::getppid(), nullptr, 0, nullptr, 0, 0); }},
    {"signal another", [] { return ::kill(::getppid(), 0); }},
    {"signal everyone", [] { return ::kill(-1, 0); }},
    {"limit another", [] { return ::syscall(SYS_prlimit64, ::getppid(), RLIMIT_CORE, nullptr, nullptr); }},
    {"enter a namespace of its own", [] { return ::unshare(CLONE_NEWUSER); }},
    {"submit calls past the filter", [] { return ::syscall(SYS_io_uring_setup, 1, nullptr); }},
    {"type on its terminal", [] { return ::syscall(SYS_ioctl, 0, 0x5412, "x"); }},
    {"ask what may be opened", [] { return ::access("/etc/passwd", R_OK); }},
    {"follow a link", [] { return ::syscall(SYS_readlink, inheritedName.c_str(), nullptr, 0); }},
    {"change the mode of an open file", [] { return ::fchmod(inherited.number(), 0666); }},
    {"change the flags of an open file",
     [] { return ::syscall(SYS_ioctl, inherited.number(), 0x40086602, ""); }},
    {"lock an open file", [] { return ::syscall(SYS_flock, inherited.number(), LOCK_SH); }},
    {"lock a part of it", [] { return ::fcntl(inherited.number(), F_OFD_SETLK, nullptr); }},
    {"lease it", [] { return ::fcntl(inherited.number(), F_SETLEASE, F_RDLCK); }},
    {"have another signalled", [] { return ::fcntl(inherited.number(), F_SETOWN, ::getppid()); }},
    {"with a signal that kills", [] { return ::fcntl(inherited.number(), F_SETSIG, SIGKILL); }},
    {"take memory that no limit counts", [] { return ::memfd_create("more", 0); }},
    {"share memory", [] { return ::shmget(IPC_PRIVATE, 4096, 0600); }},
    {"step forward again", [] { return ::setpriority(PRIO_PROCESS, 0, 10); }},
    {"hold another back", [] { return ::setpriority(PRIO_PROCESS, static_cast<id_t>(::getppid()), 19); }},
    {"outlive its parent", [] { return ::prctl(PR_SET_PDEATHSIG, 0); }},
    // Unknown to the kernel, as far as it sees: the C library then uses the older call.
    {"start a thread the new way", [] { return ::syscall(SYS_clone3, nullptr, 0); }, ENOSYS},
};

/// Starts a locked down process that would stay for ever. 0 once it is locked down.
int startWorkerThatStays() {
    std::array<int, 2> ready{};
    if (::pipe2(ready.data(), O_CLOEXEC) != 0)
        return 1;
    if (::fork() == 0) {
        lockDown({2 * gibibyte});
        while (::write(ready[1], "", 1) == 1)
            ::pause();
    }
    char byte = 0;
    return ::read(ready[0], &byte, 1) == 1 ? 0 : 1;
}

} // namespace

TEST(Lockdown, TheKernelRefusesWhatAWorkerHasNoBusinessWith) {
    for (const auto* attempts : {&attemptsOnPaths, &otherAttempts}) {
        for (const Attempt& each : *attempts)
            EXPECT_EQ(inLockedChild([&] { return errorOf(each.call()); }), each.error) << each.what;
    }
}

TEST(Lockdown, LandlockAloneRefusesPathsToo) {
    const auto refusing = [](const std::function<int(const PathRefusal&)>& body) {
        return inChild([&] {
            ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
            return body(refusePaths());
        });
    };
    if (refusing([](const PathRefusal& refusal) { return refusal.landlockVersion; }) == 0)
        GTEST_SKIP() << "This kernel has no Landlock: " << refusePaths().problem;
    for (const Attempt& each : attemptsOnPaths)
        EXPECT_EQ(refusing([&](const PathRefusal&) { return errorOf(each.call()); }), EACCES) << each.what;
}

TEST(Lockdown, DescriptorsStayBothInheritedAndSentLater) {
    auto [ours, theirs] = Channel::makePair();
    const Descriptor source = fileWith("sent later");
    const Descriptor output = fileWith("");
    ASSERT_TRUE(ours.send(ProbeRequest{}, {source.number()}));
    const int result = inLockedChild([&, &theirs = theirs] {
        Letter letter;
        if (theirs.receive(letter) != Channel::Status::Received || letter.descriptors.size() != 1)
            return 1;
        if (!holds(letter.descriptors[0].number(), "sent later") || !holds(inherited.number(), "source"))
            return 2;
        const bool isWritten = ::pwrite(output.number(), "result", 6, 0) == 6;
        return isWritten && ::ftruncate(output.number(), 6) == 0 && theirs.send(ExportProgress{0.5}) ? 0 : 3;
    });
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(holds(output.number(), "result"));
    Letter answer;
    EXPECT_EQ(ours.receive(answer), Channel::Status::Received);
    EXPECT_EQ(answer.message, Message(ExportProgress{0.5}));
}

TEST(Lockdown, ThreadsMemoryAndAbortStayAndTheWorkerStepsBack) {
    const auto useThreadAndMemory = [] {
        std::size_t sum = 0;
        std::thread([&sum] { sum = std::vector<char>(100'000'000, 1).size(); }).join();
        return sum == 100'000'000 ? 0 : 1;
    };
    EXPECT_EQ(inLockedChild(useThreadAndMemory), 0);
    const auto abort = [] {
        std::signal(SIGABRT, SIG_DFL);
        std::abort();
        return 0;
    };
    EXPECT_EQ(inLockedChild(abort), -SIGABRT);
    const auto stepsBack = [] {
        const bool isAtDisk = ::syscall(SYS_ioprio_get, 1, 0) == (2 << 13 | 7);
        const bool isAtCpu = ::getpriority(PRIO_PROCESS, 0) >= 10 && ::sched_getscheduler(0) == SCHED_BATCH;
        return isAtDisk && isAtCpu ? 0 : 1;
    };
    EXPECT_EQ(inLockedChild(stepsBack), 0);
    const auto allowsCore = [] {
        rlimit limit{};
        return ::getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_max == 0 ? 0 : 1;
    };
    EXPECT_EQ(inLockedChild(allowsCore), 0);
}

TEST(Lockdown, AWorkerEndsWithItsParentWhateverItWants) {
    std::array<int, 2> held{};
    ASSERT_EQ(::pipe2(held.data(), O_CLOEXEC), 0);
    EXPECT_EQ(inChild(startWorkerThatStays), 0);
    ::close(held[1]);
    pollfd closed{held[0], POLLIN, 0};
    EXPECT_EQ(::poll(&closed, 1, 10'000), 1) << "the worker still holds its end of the pipe";
    ::close(held[0]);
}

TEST(Lockdown, AnOtherCallingConventionEndsTheProcess) {
#ifdef __x86_64__
    constexpr long x32 = 0x40000000;
    EXPECT_EQ(inLockedChild([] { return errorOf(::syscall(x32 | SYS_getppid)); }), -SIGSYS);
#else
    GTEST_SKIP() << "This machine has one only";
#endif
}

TEST(Lockdown, TheLastOfADiskIsForOthers) {
    const Descriptor output = fileWith("");
    struct statvfs disk {};
    ASSERT_EQ(::fstatvfs(output.number(), &disk), 0);
    const auto freeBytes = static_cast<off_t>(disk.f_bavail * disk.f_frsize);
    const auto grow = [&output](off_t bytes) {
        leaveSpaceBeside(output.number());
        return errorOf(::ftruncate(output.number(), bytes));
    };
    EXPECT_EQ(inChild([&] { return grow(freeBytes / 2); }), 0);
    EXPECT_EQ(inChild([&] { return grow(freeBytes); }), EFBIG);
}

TEST(Lockdown, AddressSpaceIsLimited) {
    if (isSanitized)
        GTEST_SKIP() << "A sanitizer maps more than any limit";
    const auto map = [](std::uint64_t bytes) {
        void* memory = ::mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        return memory == MAP_FAILED ? errno : 0;
    };
    EXPECT_EQ(inLockedChild([&] { return map(gibibyte); }), 0);
    EXPECT_EQ(inLockedChild([&] { return map(2 * gibibyte); }), ENOMEM);
}
