#include "process/last_words.h"

#include <gtest/gtest.h>

#include <csignal>
#include <exception>
#include <functional>
#include <new>
#include <stdexcept>

namespace vanzet::process {
namespace {

const testing::ExitedWithCode failed(1);

class LastWords : public testing::Test {
 protected:
  void SetUp() override {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    hasFaults = false;
#endif
  }
  bool hasFaults = true;
};

/// Recurses until the stack is exhausted; the result keeps it from being a loop.
int Recurse(int depth) {  // NOLINT(misc-no-recursion)
  volatile char frame[4096] = {};
  frame[0] = static_cast<char>(depth);
  return depth < 0 ? 0 : Recurse(depth + 1) + frame[0];
}

template <class Exception>
void Throw(const Exception& exception) {
  throw exception;
}

/// Asks for more memory than there can be.
void LoseTheException() {
  volatile std::size_t bytes = static_cast<std::size_t>(-1) / 2;
  try {
    ::operator delete(::operator new(bytes));
  } catch (const std::bad_alloc&) {
    return;
  }
}

struct ThrowsAtItsEnd {
  ~ThrowsAtItsEnd() { Throw(std::bad_alloc()); }
};

TEST_F(LastWords, NameTheSignalOfAFaultOfTheProgram) {
  if (!hasFaults) GTEST_SKIP() << "a sanitizer handles faults";
  EXPECT_EXIT((InstallLastWords(), raise(SIGFPE)), failed, "^vanzet: internal error \\(signal 8\\)\n$");
  EXPECT_EXIT((InstallLastWords(), std::abort()), failed, "^vanzet: internal error \\(signal 6\\)\n$");
  // Libraries from outside end by it where they run out of memory.
  EXPECT_EXIT((InstallLastWords(), raise(SIGTRAP)), failed, "^vanzet: internal error \\(signal 5\\)\n$");
}

TEST_F(LastWords, NameTheLibraryThatIsBeingLoaded) {
  if (!hasFaults) GTEST_SKIP() << "a sanitizer handles faults";
  EXPECT_EXIT((InstallLastWords(), SetLoading("libx.so"), std::abort()), failed,
              "^vanzet: libx.so: its libraries cannot be loaded \\(signal 6\\)\n$");
  EXPECT_EXIT((InstallLastWords(), SetLoading("libx.so"), SetLoading(nullptr), std::abort()), failed,
              "^vanzet: internal error \\(signal 6\\)\n$");
}

[[noreturn]] void EndWithAHandler(bool hasMemory) {
  std::atexit([] { std::_Exit(9); });
  if (!hasMemory) LoseTheException();
  End(7);
}

TEST_F(LastWords, AreNotFollowedByHandlersWhereMemoryRanOut) {
  if (!hasFaults) GTEST_SKIP() << "a sanitizer ends the program where memory runs out";
  EXPECT_EXIT(EndWithAHandler(false), testing::ExitedWithCode(7), "^$");
  EXPECT_EXIT(EndWithAHandler(true), testing::ExitedWithCode(9), "^$");
}

TEST_F(LastWords, AreWrittenWhenTheStackIsExhausted) {
  if (!hasFaults) GTEST_SKIP() << "a sanitizer handles faults";
  EXPECT_EXIT((InstallLastWords(), Recurse(0)), failed, "^vanzet: internal error \\(signal 11\\)\n$");
}

TEST_F(LastWords, SayThatMemoryRanOutWhereTheExceptionIsNotKnownAnyMore) {
  if (!hasFaults) GTEST_SKIP() << "a sanitizer ends the program where memory runs out";
  EXPECT_EXIT(std::terminate(), failed, "^vanzet: internal error\n$");
  EXPECT_EXIT((LoseTheException(), std::terminate()), failed, "^vanzet: out of memory\n$");
}

TEST_F(LastWords, TellAnInterruptionAndLeaveTheRestToTheSignal) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EXIT((InstallLastWords(), raise(signal)), testing::KilledBySignal(signal),
                "^vanzet: interrupted\n$");
  }
}

TEST_F(LastWords, TellWhatIsKept) {
  EXPECT_EXIT((InstallLastWords(), SetKept(Kept::kNothing), raise(SIGTERM)), testing::KilledBySignal(SIGTERM),
              "^vanzet: interrupted; nothing of this run was stored\n$");
  EXPECT_EXIT((InstallLastWords(), SetKept(Kept::kAll), raise(SIGTERM)), testing::KilledBySignal(SIGTERM),
              "^vanzet: interrupted; the work of this run is stored\n$");
}

TEST_F(LastWords, LeaveAnIgnoredSignalIgnored) {
  EXPECT_EXIT((std::signal(SIGHUP, SIG_IGN), InstallLastWords(), raise(SIGHUP), std::_Exit(0)),
              testing::ExitedWithCode(0), "^$");
}

TEST_F(LastWords, AreThoseOfAnExceptionThatNobodyCaught) {
  EXPECT_EXIT(std::invoke([]() noexcept { Throw(std::bad_alloc()); }), failed, "^vanzet: out of memory\n$");
  EXPECT_EXIT(ThrowsAtItsEnd(), failed, "^vanzet: out of memory\n$");
  EXPECT_EXIT(std::invoke([]() noexcept { Throw(std::runtime_error("the table is odd")); }), failed,
              "^vanzet: the table is odd\n$");
}

}  // namespace
}  // namespace vanzet::process
