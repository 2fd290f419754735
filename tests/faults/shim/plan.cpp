#include "faults/shim/plan.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// Called from within malloc and before main: nothing here allocates, throws, or has a constructor that runs.
namespace vanzet::faults {
namespace {

struct Word {
  const char* name;
  int value;
};

// clang-format off
constexpr Word kErrors[] = {
    {"EACCES", EACCES}, {"EINTR", EINTR},   {"EIO", EIO},       {"EMFILE", EMFILE},
    {"ENOLCK", ENOLCK}, {"ENOMEM", ENOMEM}, {"ENOSPC", ENOSPC}, {"EPERM", EPERM},
};
constexpr Word kSignals[] = {
    {"SIGHUP", SIGHUP}, {"SIGINT", SIGINT}, {"SIGKILL", SIGKILL}, {"SIGTERM", SIGTERM},
};
constexpr std::array<const char*, 8> kFamilies = {"open", "read", "write", "sync", "name", "lock", "map", "memory"};
// clang-format on

struct Plan {
  std::array<char, 16> family = {};
  std::array<char, 16> effect = {};
  long number = -1;  ///< below 0: no plan
  bool isLasting = false;
};

/// The calls so far, by family, and of the family that the plan names.
std::array<std::atomic<long>, kFamilies.size()> counts;
std::atomic<long> planned;

template <std::size_t size>
int ValueOf(const Word (&words)[size], const char* name) {
  for (const Word& word : words) {
    if (std::strcmp(word.name, name) == 0) return word.value;
  }
  return 0;
}

Plan ReadPlan() {
  Plan plan;
  const char* const text = std::getenv("VANZET_FAULT");
  std::array<char, 24> number = {};
  if (text == nullptr ||
      std::sscanf(text, "%15s %23s %15s", plan.family.data(), number.data(), plan.effect.data()) < 2) {
    return plan;
  }
  char* end = nullptr;
  plan.number = std::strtol(number.data(), &end, 10);
  plan.isLasting = *end == '+';
  return plan;
}

/// Read once, at the first call: `kReading` meanwhile, since reading it may make calls of its own.
const Plan* ThePlan() {
  enum State { kUnread, kReading, kRead };
  static std::atomic<int> state = kUnread;
  static Plan plan;
  int expected = kUnread;
  if (state.compare_exchange_strong(expected, kReading)) {
    plan = ReadPlan();
    state = kRead;
  }
  return state == kRead && plan.number >= 0 ? &plan : nullptr;
}

void Report(const char* family, long number) {
  const char* const file = std::getenv("VANZET_FAULT_REPORT");
  if (file == nullptr) return;
  std::array<char, 128> line;
  const int length =
      std::snprintf(line.data(), line.size(), "%s %s %ld\n", program_invocation_short_name, family, number);
  const long descriptor =
      syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0) return;
  syscall(SYS_write, descriptor, line.data(), length);
  syscall(SYS_close, descriptor);
}

/// The path of an open file or folder; empty when it has none.
std::array<char, PATH_MAX> PathOf(int descriptor) {
  std::array<char, PATH_MAX> path = {};
  std::array<char, 32> link;
  std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
  const long length = syscall(SYS_readlinkat, AT_FDCWD, link.data(), path.data(), path.size() - 1);
  path[length < 0 ? 0 : static_cast<std::size_t>(length)] = '\0';
  return path;
}

bool IsBelow(const char* folder, const char* path) {
  const std::size_t length = std::strlen(folder);
  return std::strncmp(folder, path, length) == 0 && (path[length] == '/' || path[length] == '\0');
}

bool Counts(Family family, Place place) {
  // Without standard error a fault could not be told.
  if (place.path == nullptr && place.descriptor == STDERR_FILENO) return false;
  const char* const folder = std::getenv("VANZET_FAULT_FOLDER");
  if (folder == nullptr || family == Family::kMemory) return true;
  if (place.path != nullptr && place.path[0] == '/') return IsBelow(folder, place.path);
  if (place.descriptor >= 0) return IsBelow(folder, PathOf(place.descriptor).data());
  std::array<char, PATH_MAX> current = {};
  return syscall(SYS_getcwd, current.data(), current.size()) > 0 && IsBelow(folder, current.data());
}

bool Means(const Plan& plan, Family family) {
  if (std::strcmp(plan.family.data(), "file") == 0) return family != Family::kMemory;
  return std::strcmp(plan.family.data(), kFamilies[static_cast<std::size_t>(family)]) == 0;
}

Verdict Strike(const Plan& plan, Family family, long number) {
  if (number == plan.number) Report(kFamilies[static_cast<std::size_t>(family)], number);
  if (const int signal = ValueOf(kSignals, plan.effect.data())) {
    syscall(SYS_kill, getpid(), signal);
    return {};
  }
  if (std::strcmp(plan.effect.data(), "short") == 0) return {.isShort = true};
  return {.error = ValueOf(kErrors, plan.effect.data())};
}

Verdict JudgeByPlan(const Plan& plan, Family family, Place place) {
  const bool onlyCounts = plan.number == 0;
  if ((!onlyCounts && !Means(plan, family)) || !Counts(family, place)) return {};
  ++counts[static_cast<std::size_t>(family)];
  if (onlyCounts) return {};
  const long number = ++planned;
  const bool strikes = number == plan.number || (plan.isLasting && number > plan.number);
  return strikes ? Strike(plan, family, number) : Verdict();
}

/// Runs at the end of the program.
__attribute__((destructor)) void ReportCounts() {
  const Plan* const plan = ThePlan();
  if (plan == nullptr || plan->number != 0) return;
  for (std::size_t i = 0; i < kFamilies.size(); ++i) Report(kFamilies[i], counts[i]);
}

}  // namespace

Verdict Judge(Family family, Place place) {
  const int kept = errno;
  const Plan* const plan = ThePlan();
  const Verdict verdict = plan == nullptr ? Verdict() : JudgeByPlan(*plan, family, place);
  errno = kept;
  return verdict;
}

}  // namespace vanzet::faults
