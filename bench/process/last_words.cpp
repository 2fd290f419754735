#include "process/last_words.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VANZET_SANITIZER_HANDLES_FAULTS
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VANZET_SANITIZER_HANDLES_FAULTS
#endif

namespace vanzet::process {
namespace {

#if defined(VANZET_SANITIZER_HANDLES_FAULTS)
constexpr bool handlesFaults = false;
#else
constexpr bool handlesFaults = true;
#endif

constexpr int kFailed = 1;
constexpr int kFaults[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP};
constexpr int kInterruptions[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t keptNow = static_cast<std::sig_atomic_t>(Kept::kUnknown);

/// Where a function that may not throw meets an exception, nobody knows afterwards which one it was. Those of
/// the standard library that read folders are such functions, and memory is what they can lack.
volatile std::sig_atomic_t memoryRanOut = 0;

/// Whether each library was initialised as a whole.
std::atomic<bool> areLibrariesSound = true;

/// The library that is being loaded, if one is.
std::atomic<const char*> loadedNow = nullptr;
static_assert(decltype(loadedNow)::is_always_lock_free, "it is read in handlers of signals");

/// A handler runs on this memory, since the stack itself may be what is exhausted.
constexpr std::size_t kStackSize = std::size_t{1} << 16U;
std::array<char, kStackSize> stackOfHandlers;

/// A line put together without memory of the heap; what does not fit is cut.
class Line {
 public:
  Line& Add(std::string_view text) {
    const std::size_t count = std::min(text.size(), bytes_.size() - 1 - size_);
    std::copy_n(text.begin(), count, bytes_.begin() + static_cast<std::ptrdiff_t>(size_));
    size_ += count;
    return *this;
  }

  Line& AddNumber(int number) {
    if (number > 9) AddNumber(number / 10);
    const char digit = static_cast<char>('0' + number % 10);
    return Add({&digit, 1});
  }

  Line& AddKept() {
    switch (static_cast<Kept>(keptNow)) {
      case Kept::kNothing: return Add("; nothing of this run was stored");
      case Kept::kAll: return Add("; the work of this run is stored");
      case Kept::kUnknown: break;
    }
    return *this;
  }

  void Write() {
    bytes_[size_++] = '\n';
    // Nobody is left to hear that the line cannot be written.
    static_cast<void>(!write(STDERR_FILENO, bytes_.data(), size_));
  }

 private:
  std::array<char, 512> bytes_{};
  std::size_t size_ = 0;
};

void EndByFault(int signal) {
  Line line;
  line.Add("vanzet: ");
  if (const char* const library = loadedNow) {
    line.Add(library).Add(": its libraries cannot be loaded");
  } else {
    line.Add("internal error");
  }
  line.Add(" (signal ").AddNumber(signal).Add(")").AddKept().Write();
  _exit(kFailed);
}

/// The action is the default one again when this runs.
void EndByInterruption(int signal) {
  Line().Add("vanzet: interrupted").AddKept().Write();
  raise(signal);
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction former = {};
  if (sigaction(signal, nullptr, &former) != 0 || former.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_ONSTACK | SA_RESETHAND);
  sigaction(signal, &action, nullptr);
}

[[noreturn]] void NoteThatMemoryRanOut() {
  memoryRanOut = 1;
  throw std::bad_alloc();
}

void HandleLostExceptions() {
  std::set_terminate(EndByException);
  std::set_new_handler(NoteThatMemoryRanOut);
}

/// Runs before the variables of the program and of its libraries are set up, so that an exception there has
/// its line, too.
[[gnu::used, gnu::section(".preinit_array")]] void (*const beforeAllElse)() = HandleLostExceptions;

}  // namespace

void InstallLastWords() {
  stack_t stack = {};
  stack.ss_sp = stackOfHandlers.data();
  stack.ss_size = stackOfHandlers.size();
  sigaltstack(&stack, nullptr);
  if (handlesFaults) std::ranges::for_each(kFaults, [](int signal) { Handle(signal, EndByFault); });
  std::ranges::for_each(kInterruptions, [](int signal) { Handle(signal, EndByInterruption); });
}

void SetKept(Kept kept) {
  keptNow = static_cast<std::sig_atomic_t>(kept);
}

void SetLoading(const char* library) {
  loadedNow = library;
}

void DistrustLibraries() {
  areLibrariesSound = false;
}

void End(int status) {
  if (areLibrariesSound && memoryRanOut == 0) std::exit(status);
  std::cout.flush();
  std::fflush(nullptr);
  _exit(status);
}

void WriteLastLine(std::string_view text) {
  Line().Add("vanzet: ").Add(text).Write();
}

void EndByException() {
  try {
    if (std::current_exception()) throw;
    WriteLastLine(memoryRanOut != 0 ? "out of memory" : "internal error");
  } catch (const std::bad_alloc&) {
    WriteLastLine("out of memory");
  } catch (const std::exception& error) {
    WriteLastLine(error.what());
  } catch (...) {
    WriteLastLine("internal error (unknown exception)");
  }
  _exit(kFailed);
}

}  // namespace vanzet::process
