#include "modeller/exchange_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>

#include "base/files/system_fault.h"
#include "base/numbers.h"

namespace vanzet::modeller {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kParcel = 3;  // the descriptor of the parcel in the program
constexpr int kPoll = 50;   // milliseconds between looks at Ctrl-C and the clock
constexpr std::size_t kLongestLine = 4096;
constexpr off_t kMostBytes = off_t{1} << 30;  // that come back from the program

/// The program while it runs, and the reading end of its standard output.
class Process {
 public:
  static Result<Process> Start(const Exchange& exchange, const std::vector<std::string>& arguments,
                               int parcel);
  ~Process();
  Process(Process&& other) noexcept
      : process_(std::exchange(other.process_, 0)), output_(std::exchange(other.output_, -1)) {}
  Process& operator=(Process&&) = delete;

  /// Waits a moment for output and returns it: "" at its end, nothing when none came.
  std::optional<std::string> PollOutput();

  /// Waits for the end of the program and returns its status, 0 for success.
  int Wait();

 private:
  Process(pid_t process, int output) : process_(process), output_(output) {}

  pid_t process_;  ///< 0: has ended
  int output_;
};

Result<Process> Process::Start(const Exchange& exchange, const std::vector<std::string>& arguments,
                               int parcel) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return files::SystemFault("cannot make a pipe", errno);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, parcel, kParcel);
  std::string program = exchange.program.string();
  std::vector<std::string> words = arguments;
  std::vector<char*> argv = {program.data()};
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  pid_t process = 0;
  const int error = posix_spawn(&process, program.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  if (error == 0) return Process(process, ends[0]);
  close(ends[0]);
  return files::SystemFault(program + " cannot be run", error);
}

Process::~Process() {
  if (process_ != 0) {
    kill(process_, SIGKILL);
    Wait();
  }
  if (output_ >= 0) close(output_);
}

std::optional<std::string> Process::PollOutput() {
  pollfd watched = {output_, POLLIN, 0};
  if (poll(&watched, 1, kPoll) <= 0) return std::nullopt;
  std::array<char, 512> bytes;
  const ssize_t count = read(output_, bytes.data(), bytes.size());
  if (count < 0) return std::nullopt;
  return std::string(bytes.data(), static_cast<std::size_t>(count));
}

int Process::Wait() {
  int status = 0;
  while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = 0;
  return status;
}

/// Reads the reports of the program, one a line: "progress 0.5", "coarse", "fault TEXT", "missing TEXT".
class ReportReader {
 public:
  ReportReader(const Progress& progress, const std::function<void()>& onCoarse)
      : progress_(progress), onCoarse_(onCoarse) {}

  /// Adds output, which may be empty, and reports the progress to its receiver. Returns false when the
  /// receiver cancels the work.
  bool Add(std::string_view output) {
    for (const char c : output) {
      if (c != '\n' && line_.size() < kLongestLine) line_ += c;
      if (c == '\n') ReadLine(std::exchange(line_, {}));
    }
    return !progress_ || progress_(done_);
  }

  const std::optional<Fault>& fault() const { return fault_; }

 private:
  void ReadLine(const std::string& line) {
    constexpr std::string_view kFault = "fault ", kMissing = "missing ", kProgress = "progress ";
    if (line.starts_with(kFault)) fault_ = Fault{line.substr(kFault.size())};
    if (line.starts_with(kMissing)) {
      fault_ = Fault{.text = line.substr(kMissing.size()), .kind = FaultKind::kMissing};
    }
    if (line.starts_with(kProgress)) done_ = RealOrZero(line.substr(kProgress.size()));
    if (line == "coarse" && onCoarse_) onCoarse_();
  }

  const Progress& progress_;
  const std::function<void()>& onCoarse_;
  double done_ = 0;
  std::string line_;
  std::optional<Fault> fault_;
};

Fault TakesLonger(const ExchangeLimits& limits) {
  return {"takes longer than " + std::to_string(limits.seconds) + " seconds"};
}

/// A limit that the environment names wrongly.
Result<void> CheckLimits(const ExchangeLimits& limits) {
  if (limits.seconds == 0) {
    return Fault{"VANZET_EXCHANGE_SECONDS is a whole number from 1 to " + std::to_string(kMostSeconds)};
  }
  if (limits.bytes == 0) return Fault{"VANZET_EXCHANGE_MEMORY is a whole number of GiB from 1 to 1024"};
  return {};
}

Result<void> OutcomeOf(int status, const std::optional<Fault>& fault, const ExchangeLimits& limits) {
  if (fault) return *fault;
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU) return TakesLonger(limits);
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return Fault{"the exchange program was killed"};
  if (WIFSIGNALED(status)) {
    return Fault{"Open CASCADE crashed (signal " + std::to_string(WTERMSIG(status)) + ")"};
  }
  if (WEXITSTATUS(status) != 0) {
    return Fault{"the exchange program failed (status " + std::to_string(WEXITSTATUS(status)) + ")"};
  }
  return {};
}

volatile sig_atomic_t interrupted = 0;

void RecordInterrupt(int) {
  interrupted = 1;
}

/// While one exists, Ctrl-C does not end this process but is recorded. Where Ctrl-C was ignored it stays
/// ignored. The record is one for the process, and all watches of its threads share it.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  static bool Came();

 private:
  static std::mutex guard_;
  static int count_;
  static struct sigaction former_;
};

std::mutex InterruptWatch::guard_;
int InterruptWatch::count_ = 0;
struct sigaction InterruptWatch::former_ = {};

InterruptWatch::InterruptWatch() {
  const std::lock_guard lock(guard_);
  if (count_++ > 0) return;
  interrupted = 0;
  sigaction(SIGINT, nullptr, &former_);
  if (former_.sa_handler == SIG_IGN) return;
  struct sigaction noting = {};
  noting.sa_handler = RecordInterrupt;
  sigaction(SIGINT, &noting, nullptr);
}

InterruptWatch::~InterruptWatch() {
  const std::lock_guard lock(guard_);
  if (--count_ == 0) sigaction(SIGINT, &former_, nullptr);
}

bool InterruptWatch::Came() {
  return interrupted != 0;
}

}  // namespace

Result<MemoryFile> MemoryFile::Make() {
  const int descriptor = memfd_create("vanzet-exchange", MFD_CLOEXEC);
  if (descriptor < 0) return files::SystemFault("cannot make a file in memory", errno);
  return MemoryFile(descriptor);
}

MemoryFile::MemoryFile(MemoryFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

MemoryFile::~MemoryFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

std::string MemoryFile::Path() const {
  return "/proc/self/fd/" + std::to_string(descriptor_);
}

Result<void> RunExchange(const Exchange& exchange, const std::vector<std::string>& arguments,
                         const MemoryFile& parcel, const std::function<void()>& onCoarse) {
  const ExchangeLimits& limits = exchange.limits;
  VANZET_DO(CheckLimits(limits));
  const InterruptWatch watch;
  VANZET_TRY(auto process, Process::Start(exchange, arguments, parcel.descriptor()));
  const auto deadline = Clock::now() + std::chrono::seconds(limits.seconds) * limits.patience;
  ReportReader reports(exchange.progress, onCoarse);
  for (bool hasEnded = false; !hasEnded;) {
    const auto output = process.PollOutput();
    hasEnded = output && output->empty();
    if (!reports.Add(output.value_or("")) || InterruptWatch::Came()) {
      return Fault{.text = "cancelled", .kind = FaultKind::kSystem};
    }
    if (Clock::now() > deadline) return TakesLonger(limits);
  }
  VANZET_DO(OutcomeOf(process.Wait(), reports.fault(), limits));
  struct stat facts = {};
  if (fstat(parcel.descriptor(), &facts) == 0 && facts.st_size <= kMostBytes) return {};
  return Fault{"exceeds the memory limit"};
}

}  // namespace vanzet::modeller
