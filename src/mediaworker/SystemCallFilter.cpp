// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/SystemCallFilter.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <linux/sched.h>
#include <memory>
#include <seccomp.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace reelsmith::mediaworker {

namespace {

// Calls younger than Debian 12's libseccomp; their numbers are the same on every machine this runs on.
constexpr int fchmodat2Call = 452;
constexpr int setxattratCall = 463;
constexpr int removexattratCall = 466;
constexpr int openTreeAttrCall = 467;

constexpr std::initializer_list<int> pathCalls = {
    SCMP_SYS(open),      SCMP_SYS(openat),      SCMP_SYS(openat2),
    SCMP_SYS(creat),     SCMP_SYS(truncate),    SCMP_SYS(truncate64),
    SCMP_SYS(unlink),    SCMP_SYS(unlinkat),    SCMP_SYS(rename),
    SCMP_SYS(renameat),  SCMP_SYS(renameat2),   SCMP_SYS(link),
    SCMP_SYS(linkat),    SCMP_SYS(symlink),     SCMP_SYS(symlinkat),
    SCMP_SYS(mkdir),     SCMP_SYS(mkdirat),     SCMP_SYS(rmdir),
    SCMP_SYS(mknod),     SCMP_SYS(mknodat),     SCMP_SYS(chmod),
    SCMP_SYS(fchmodat),  SCMP_SYS(chown),       SCMP_SYS(lchown),
    SCMP_SYS(fchownat),  SCMP_SYS(utime),       SCMP_SYS(utimes),
    SCMP_SYS(utimensat), SCMP_SYS(futimesat),   SCMP_SYS(setxattr),
    SCMP_SYS(lsetxattr), SCMP_SYS(removexattr), SCMP_SYS(lremovexattr),
    fchmodat2Call,       setxattratCall,        removexattratCall,
    SCMP_SYS(chdir),     SCMP_SYS(chroot),      SCMP_SYS(open_by_handle_at),
    SCMP_SYS(stat),      SCMP_SYS(lstat),       SCMP_SYS(name_to_handle_at),
    SCMP_SYS(access),    SCMP_SYS(faccessat),   SCMP_SYS(faccessat2),
    SCMP_SYS(readlink),  SCMP_SYS(readlinkat),  SCMP_SYS(statfs),
    SCMP_SYS(getxattr),  SCMP_SYS(lgetxattr),   SCMP_SYS(listxattr),
};

/// What changes more of an open file than its bytes, or makes one that no limit on memory counts. No ioctl()
/// is needed, and some act on files open for reading alone.
constexpr std::initializer_list<int> fileCalls = {
    SCMP_SYS(fchmod), SCMP_SYS(fchown), SCMP_SYS(fsetxattr),    SCMP_SYS(fremovexattr),
    SCMP_SYS(flock),  SCMP_SYS(ioctl),  SCMP_SYS(memfd_create), SCMP_SYS(memfd_secret),
};

/// Uses of fcntl() that other processes feel: locks, leases, and signals to whomever it names.
constexpr std::initializer_list<int> sharedControls = {
    F_SETLK, F_SETLKW, F_OFD_SETLK, F_OFD_SETLKW, F_SETOWN, F_SETSIG, F_NOTIFY, F_SETOWN_EX, F_SETLEASE,
};

/// Memory and messages that all processes of the user share.
constexpr std::initializer_list<int> sharingCalls = {
    SCMP_SYS(shmget), SCMP_SYS(shmat),   SCMP_SYS(shmctl),    SCMP_SYS(msgget), SCMP_SYS(msgsnd),
    SCMP_SYS(msgrcv), SCMP_SYS(msgctl),  SCMP_SYS(semget),    SCMP_SYS(semop),  SCMP_SYS(semtimedop),
    SCMP_SYS(semctl), SCMP_SYS(mq_open), SCMP_SYS(mq_unlink),
};

constexpr std::initializer_list<int> socketCalls = {
    SCMP_SYS(socket), SCMP_SYS(socketpair), SCMP_SYS(connect), SCMP_SYS(bind),
    SCMP_SYS(listen), SCMP_SYS(accept),     SCMP_SYS(accept4),
};

constexpr std::initializer_list<int> processCalls = {
    SCMP_SYS(execve),
    SCMP_SYS(execveat),
    SCMP_SYS(fork),
    SCMP_SYS(vfork),
    SCMP_SYS(ptrace),
    SCMP_SYS(process_vm_readv),
    SCMP_SYS(process_vm_writev),
    SCMP_SYS(process_madvise),
    SCMP_SYS(process_mrelease),
    SCMP_SYS(kcmp),
    SCMP_SYS(pidfd_open),
    SCMP_SYS(pidfd_getfd),
    SCMP_SYS(pidfd_send_signal),
    SCMP_SYS(tkill),
    SCMP_SYS(migrate_pages),
    SCMP_SYS(move_pages),
    SCMP_SYS(get_robust_list),
    SCMP_SYS(setpriority),
    SCMP_SYS(ioprio_set),
    SCMP_SYS(sched_setscheduler),
    SCMP_SYS(sched_setparam),
    SCMP_SYS(sched_setattr),
    SCMP_SYS(sched_setaffinity),
};

constexpr std::initializer_list<int> kernelCalls = {
    SCMP_SYS(mount),
    SCMP_SYS(umount),
    SCMP_SYS(umount2),
    SCMP_SYS(pivot_root),
    SCMP_SYS(fsopen),
    SCMP_SYS(fsconfig),
    SCMP_SYS(fsmount),
    SCMP_SYS(fspick),
    SCMP_SYS(move_mount),
    SCMP_SYS(open_tree),
    SCMP_SYS(mount_setattr),
    openTreeAttrCall,
    SCMP_SYS(unshare),
    SCMP_SYS(setns),
    SCMP_SYS(bpf),
    SCMP_SYS(perf_event_open),
    SCMP_SYS(userfaultfd),
    SCMP_SYS(io_uring_setup),
    SCMP_SYS(io_uring_enter),
    SCMP_SYS(io_uring_register),
    SCMP_SYS(add_key),
    SCMP_SYS(request_key),
    SCMP_SYS(keyctl),
    SCMP_SYS(kexec_load),
    SCMP_SYS(kexec_file_load),
    SCMP_SYS(init_module),
    SCMP_SYS(finit_module),
    SCMP_SYS(delete_module),
    SCMP_SYS(inotify_add_watch),
    SCMP_SYS(fanotify_mark),
    SCMP_SYS(fanotify_init),
    SCMP_SYS(swapon),
    SCMP_SYS(swapoff),
    SCMP_SYS(reboot),
    SCMP_SYS(acct),
    SCMP_SYS(quotactl),
    SCMP_SYS(quotactl_fd),
    SCMP_SYS(syslog),
};

/// Calls that take a process: refused unless that is this one, which abort() needs.
constexpr std::initializer_list<int> signalCalls = {
    SCMP_SYS(kill),
    SCMP_SYS(tgkill),
    SCMP_SYS(rt_sigqueueinfo),
    SCMP_SYS(rt_tgsigqueueinfo),
};

/// Collects rules; after the first failure it adds no more and keeps its code.
class FilterBuilder {
public:
    FilterBuilder() : m_filter(seccomp_init(SCMP_ACT_ALLOW)), m_result(m_filter ? 0 : -ENOMEM) {
        // Nobody here has numbers of another machine's calls; the library would end the calling thread alone.
        if (m_result == 0)
            m_result = seccomp_attr_set(m_filter.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_KILL_PROCESS);
    }

    template<typename... Conditions>
    void answer(int errorNumber, int call, Conditions... conditions) {
        if (m_result == 0)
            m_result = seccomp_rule_add(m_filter.get(), SCMP_ACT_ERRNO(static_cast<unsigned>(errorNumber)),
                                        call, sizeof...(conditions), conditions...);
    }
    void refuse(std::initializer_list<int> calls) {
        for (const int call : calls)
            answer(EPERM, call);
    }
    /// Refuses a call whose second argument, an int, is `command`.
    void refuseCommand(int call, int command) {
        answer(EPERM, call, SCMP_A1_64(SCMP_CMP_MASKED_EQ, 0xffffffffU, static_cast<scmp_datum_t>(command)));
    }
    int load() { return m_result == 0 ? seccomp_load(m_filter.get()) : m_result; }

private:
    struct Release {
        void operator()(void* filter) const { seccomp_release(filter); }
    };
    std::unique_ptr<void, Release> m_filter;
    int m_result;
};

} // namespace

std::string refuseSystemCalls() {
    FilterBuilder filter;
    filter.refuse(pathCalls);
    filter.refuse(fileCalls);
    filter.refuse(sharingCalls);
    filter.refuse(socketCalls);
    filter.refuse(processCalls);
    filter.refuse(kernelCalls);

    const auto self = static_cast<scmp_datum_t>(::getpid());
    for (const int call : signalCalls)
        filter.answer(EPERM, call, SCMP_A0_64(SCMP_CMP_NE, self));
    filter.answer(EPERM, SCMP_SYS(prlimit64), SCMP_A0_64(SCMP_CMP_NE, 0));
    for (const int command : sharedControls)
        filter.refuseCommand(SCMP_SYS(fcntl), command);
    // It has been told to end with the application.
    filter.answer(EPERM, SCMP_SYS(prctl), SCMP_A0_64(SCMP_CMP_EQ, PR_SET_PDEATHSIG));

    // A thread is what clone() makes with CLONE_THREAD; clone3() hides its flags behind a pointer, and the C
    // library falls back to clone() where the kernel does not know it.
    filter.answer(EPERM, SCMP_SYS(clone), SCMP_A0_64(SCMP_CMP_MASKED_EQ, CLONE_THREAD, 0));
    filter.answer(ENOSYS, SCMP_SYS(clone3));

    const int result = filter.load();
    return result == 0 ? std::string() : std::strerror(-result);
}

} // namespace reelsmith::mediaworker
