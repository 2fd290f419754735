#include "modeller/exchange/call_filter.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/sched.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <vector>

namespace vanzet::modeller {
namespace {

#if defined(__x86_64__)
constexpr unsigned kProcessor = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned kProcessor = AUDIT_ARCH_AARCH64;
#else
constexpr unsigned kProcessor = 0;
#endif

// clang-format off
constexpr int kAllowed[] = {
    // reading and writing
    SYS_read, SYS_write, SYS_readv, SYS_writev, SYS_pread64, SYS_pwrite64, SYS_lseek, SYS_ftruncate,
    SYS_fallocate, SYS_fsync, SYS_fdatasync, SYS_close, SYS_dup, SYS_dup3, SYS_fcntl, SYS_ppoll,
    // files by their names, which Landlock guards
    SYS_openat, SYS_newfstatat, SYS_statx, SYS_fstat, SYS_statfs, SYS_fstatfs, SYS_faccessat,
    SYS_readlinkat, SYS_getdents64, SYS_getcwd, SYS_unlinkat, SYS_umask,
#if defined(__x86_64__)
    SYS_open, SYS_stat, SYS_lstat, SYS_access, SYS_readlink, SYS_unlink, SYS_dup2, SYS_poll, SYS_time,
    SYS_arch_prctl,
#endif
#if defined(SYS_faccessat2)
    SYS_faccessat2,
#endif
    // memory
    SYS_brk, SYS_mmap, SYS_munmap, SYS_mremap, SYS_mprotect, SYS_madvise,
    // threads, signals, time
    SYS_futex, SYS_set_robust_list, SYS_set_tid_address, SYS_sched_yield, SYS_sched_getaffinity,
    SYS_rt_sigaction, SYS_rt_sigprocmask, SYS_rt_sigreturn, SYS_sigaltstack, SYS_restart_syscall,
    SYS_nanosleep, SYS_clock_nanosleep, SYS_clock_gettime, SYS_clock_getres, SYS_gettimeofday, SYS_times,
    SYS_getrusage, SYS_getrlimit,
#if defined(SYS_rseq)
    SYS_rseq,
#endif
    // who and where this is
    SYS_getpid, SYS_gettid, SYS_getppid, SYS_getuid, SYS_geteuid, SYS_getgid, SYS_getegid, SYS_uname,
    SYS_sysinfo, SYS_getrandom,
    SYS_exit, SYS_exit_group,
};
// clang-format on

constexpr unsigned kFirstArgument = offsetof(seccomp_data, args);
constexpr unsigned kRefuse = SECCOMP_RET_ERRNO | ENOSYS;

/// The lines of a filter, which the kernel runs for each call.
class Filter {
 public:
  Filter() {
    Load(offsetof(seccomp_data, arch));
    Add(BPF_JMP | BPF_JEQ | BPF_K, kProcessor, 1, 0);
    Return(SECCOMP_RET_KILL_PROCESS);
    Load(offsetof(seccomp_data, nr));
  }

  void AllowCall(int call) {
    Add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 1);
    Return(SECCOMP_RET_ALLOW);
  }

  /// Allows a call whose first argument is a number, or has a bit.
  void AllowCallWith(int call, unsigned short test, unsigned value) {
    constexpr unsigned char kLinesOfTest = 4;
    Add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, kLinesOfTest);
    Load(kFirstArgument);
    Add(static_cast<unsigned short>(BPF_JMP | test | BPF_K), value, 0, 1);
    Return(SECCOMP_RET_ALLOW);
    Return(kRefuse);
  }

  bool Install() {
    Return(kRefuse);
    const sock_fprog program = {static_cast<unsigned short>(lines_.size()), lines_.data()};
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
  }

 private:
  void Load(unsigned offset) { Add(BPF_LD | BPF_W | BPF_ABS, offset); }
  void Return(unsigned value) { Add(BPF_RET | BPF_K, value); }
  void Add(unsigned short code, unsigned value, unsigned char ifSo = 0, unsigned char ifNot = 0) {
    lines_.push_back({code, ifSo, ifNot, value});
  }

  std::vector<sock_filter> lines_;
};

}  // namespace

bool FilterCalls() {
  if (kProcessor == 0) return false;
  Filter filter;
  for (const int call : kAllowed) filter.AllowCall(call);
  // A thread, and not a process. The newer call hides its arguments; the C library then uses this one.
  filter.AllowCallWith(SYS_clone, BPF_JSET, CLONE_THREAD);
  // abort() sends itself a signal.
  filter.AllowCallWith(SYS_tgkill, BPF_JEQ, static_cast<unsigned>(getpid()));
  return filter.Install();
}

}  // namespace vanzet::modeller
