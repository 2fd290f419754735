#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>

#include "fuzz/fuzz.h"
#include "modeller/answers.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange_process.h"
#include "modeller/kernel.h"
#include "modeller/temporary_file.h"

/// For readers that are mostly Open CASCADE, which breaks on some inputs. What must hold is not that it never
/// breaks but that nothing else does: each input is read in a process of its own under the limits of the
/// exchange program, and this process then takes what came back as the workbench would.
namespace vanzet::fuzz {

/// Neither the fuzzer nor a sanitizer takes the end of this process for a finding, and nothing is printed.
inline void LeaveTheFuzzer() {
  for (const int number : {SIGSEGV, SIGBUS, SIGABRT, SIGILL, SIGFPE, SIGALRM, SIGXCPU}) {
    std::signal(number, SIG_DFL);
  }
  const int nothing = open("/dev/null", O_WRONLY);
  dup2(nothing, STDOUT_FILENO);
  dup2(nothing, STDERR_FILENO);
}

/// The work of the exchange program. Returns whether bodies were read and returned.
template <class Read>
bool ReadInChild(Read read, const modeller::MemoryFile& parcel) {
  // On a busy machine too, the end comes before the fuzzer would give up this input.
  constexpr int kSeconds = 1, kSecondsOfTheClock = 5;
  constexpr std::uint64_t kBytes = std::uint64_t{1} << 30U;
  LeaveTheFuzzer();
  alarm(kSecondsOfTheClock);
  modeller::LimitProcess(kSeconds, kBytes);
  modeller::CollectKernelMessages();
  const auto answer = modeller::CatchKernelFailures(read);
  if (!answer) return false;
  std::ofstream bytes(parcel.Path(), std::ios::binary);
  modeller::Pack(*answer, bytes);
  return bytes.flush().good();
}

/// The status of a child that has ended. The fuzzer's clock interrupts the waiting.
inline int StatusOf(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) != child) {
    if (errno != EINTR) std::abort();
  }
  return status;
}

/// Runs `read` on one input, and has the workbench `take` the answer. Breaks when it was read and cannot be
/// taken.
template <class Read, class Take>
void ReadContained(Read read, Take take) {
  const auto parcel = modeller::MemoryFile::Make();
  if (!parcel) std::abort();
  const pid_t child = fork();
  if (child < 0) std::abort();
  if (child == 0) _exit(ReadInChild(read, *parcel) ? EXIT_SUCCESS : EXIT_FAILURE);
  const int status = StatusOf(child);
  const bool wasRead = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
  if (!wasRead) return;
  std::ifstream answer(parcel->Path(), std::ios::binary);
  if (!take(answer)) std::abort();
}

/// The same for a file with that ending.
inline void ReadContainedFile(const char* ending, const std::uint8_t* data, std::size_t size) {
  static const auto file = modeller::TemporaryFile::Make(ending);
  if (!file) std::abort();
  std::ofstream(file->path(), std::ios::binary) << TextOf(data, size);
  const auto read = [&]() -> Result<modeller::ReadBody> {
    VANZET_TRY(const auto shape, modeller::ReadFile(file->path()));
    return modeller::AnswerOf(shape);
  };
  ReadContained(read, modeller::UnpackReadBody);
}

}  // namespace vanzet::fuzz
