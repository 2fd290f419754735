#include <fcntl.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include "base/exception_fault.h"
#include "base/fault_caret.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "process/last_words.h"

namespace vanzet::cli {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kFound = 3;  // done, and it found something

/// Writes each fault to standard error: a line, and the faulty line of a text file with a caret.
class StandardErrorPanel final : public project::MessagePanel {
 private:
  void Show(const Fault& fault) override try {
    std::cerr << "vanzet: " + fault.Message() + "\n" + CaretText(fault) << std::flush;
  } catch (const std::bad_alloc&) {
    process::WriteLastLine("out of memory");
  }
};

/// Occupies standard streams that the caller has closed, so that no other file gets their numbers and
/// writing to them fails.
void KeepStandardStreams() {
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) open("/dev/null", O_RDONLY | O_CLOEXEC);
  }
}

/// The texts of the language in the environment variable VANZET_LANGUAGE, or English. Other variables do not
/// count, so that scripts read the same output everywhere.
Translations WantedTexts(const std::filesystem::path& share) {
  const char* const language = std::getenv("VANZET_LANGUAGE");
  auto texts = LoadTranslations(share, language == nullptr ? "" : language);
  return texts ? std::move(*texts) : Translations();
}

int DoWork(const Work& work, Context& context) {
  try {
    const auto done = work();
    if (done) return context.hasFindings ? kFound : kDone;
    if (done.fault().kind != FaultKind::kReported) context.panel.Tell(done.fault());
  } catch (...) {
    process::DistrustLibraries();
    context.panel.Tell(FaultOfException());
  }
  return kFailed;
}

/// Runs the command line and returns the exit status.
int Run(int argc, const char* const* argv) {
  KeepStandardStreams();
  // A limit on the size of files is then a fault to be reported, like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  StandardErrorPanel panel;
  Context context{Places::OfProcess(), panel};
  context.texts = WantedTexts(context.places.share);
  Command program;
  DescribeProgram(program, context);
  TranslateHelp(program, context.texts);
  const Request request = ReadCommandLine(program, "vanzet " VANZET_VERSION, context.texts, argc, argv);
  return request.work ? DoWork(request.work, context) : request.status;
}

}  // namespace
}  // namespace vanzet::cli

int main(int argc, char** argv) try {
  vanzet::process::InstallLastWords();
  vanzet::process::End(vanzet::cli::Run(argc, argv));
} catch (...) {
  vanzet::process::EndByException();
}
