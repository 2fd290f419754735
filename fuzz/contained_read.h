#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "fuzz/fuzz.h"
#include "modeller/body_size.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/read_file.h"
#include "modeller/exchange_process.h"
#include "modeller/facets.h"
#include "modeller/parcel.h"
#include "modeller/temporary_file.h"

/// For readers that are mostly Open CASCADE, which breaks on some inputs. What must hold is not that it never
/// breaks but that nothing else does: each input is read in a process of its own under the limits of the
/// exchange program, and this process then takes what came back as the workbench would.
namespace vanzet::fuzz {

using Bodies = std::vector<modeller::ParcelBody>;

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
  constexpr int kSeconds = 2;
  constexpr std::uint64_t kBytes = std::uint64_t{1} << 30U;
  LeaveTheFuzzer();
  modeller::LimitProcess(kSeconds, kBytes);
  modeller::CollectKernelMessages();
  const auto bodies = modeller::CatchKernelFailures([&]() -> Result<Bodies> { return read(); });
  if (!bodies) return false;
  std::ofstream bytes(parcel.Path(), std::ios::binary);
  modeller::PackParcel(*bodies, bytes);
  return bytes.flush().good();
}

/// The work of the workbench: bodies that were read can be taken, counted and shown.
inline Result<void> TakeBodies(const modeller::MemoryFile& parcel) {
  return modeller::CatchKernelFailures([&]() -> Result<void> {
    std::ifstream bytes(parcel.Path(), std::ios::binary);
    VANZET_TRY(const auto bodies, modeller::UnpackParcel(bytes));
    for (const auto& body : bodies) {
      VANZET_DO(modeller::CountFaces(body.shape));
      if (modeller::HasFacetsOnly(body.shape)) static_cast<void>(modeller::FacetsOf(body.shape));
    }
    return {};
  });
}

/// Runs `read`, which returns `Result<Bodies>`, on one input. Breaks when bodies come back that the workbench
/// cannot take.
template <class Read>
void ReadContained(Read read) {
  const auto parcel = modeller::MemoryFile::Make();
  if (!parcel) std::abort();
  const pid_t child = fork();
  if (child < 0) std::abort();
  if (child == 0) _exit(ReadInChild(read, *parcel) ? EXIT_SUCCESS : EXIT_FAILURE);
  int status = 0;
  if (waitpid(child, &status, 0) != child) std::abort();
  const bool wasRead = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
  if (wasRead && !TakeBodies(*parcel)) std::abort();
}

/// The same for a file with that ending.
inline void ReadContainedFile(const char* ending, const std::uint8_t* data, std::size_t size) {
  static const auto file = modeller::TemporaryFile::Make(ending);
  if (!file) std::abort();
  std::ofstream(file->path(), std::ios::binary) << TextOf(data, size);
  ReadContained([&]() -> Result<Bodies> {
    VANZET_TRY(const auto shape, modeller::ReadFile(file->path()));
    return Bodies{{"body", {}, shape}};
  });
}

}  // namespace vanzet::fuzz
