#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <exception>
#include <iostream>

#include "cli/commands.h"

namespace vanzet::cli {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;

/// Writes each fault to standard error.
class StandardErrorPanel final : public project::MessagePanel {
 private:
  void Show(const std::string& line) override { std::cerr << "vanzet: " + line + "\n" << std::flush; }
};

constexpr void (*kCommands[])(Command&, Context&) = {
    AddNew,     AddOpen,    AddUpgrade, AddScript, AddShow,    AddDefine,     AddItems,  AddVdm,
    AddCommand, AddPicture, AddExport,  AddDevice, AddContour, AddCompletion, AddManual,
};

/// Occupies standard streams that the caller has closed, so that no other file gets their numbers and
/// writing to them fails.
void KeepStandardStreams() {
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) open("/dev/null", O_RDONLY | O_CLOEXEC);
  }
}

/// Describes the program and its commands. They keep references to `program`.
void Describe(Command& program, Context& context) {
  program.name = "vanzet";
  program.help =
      "Defines, checks and exports the equipment that holds the work on a turning or mill-turn machine.";
  program.notes =
      "Without PROJECT the current folder is used. Results go to standard output, everything else to "
      "standard\nerror. Exit status: 0 success, 1 the work failed, 2 wrong usage.";
  program.examples = {"vanzet new lathe && vanzet upgrade lathe && vanzet show lathe"};
  for (const auto add : kCommands) add(program, context);
}

/// True when the first word is meant to be a command, but no command has this name.
bool IsUnknownCommand(const std::string& word, const Command& program) {
  return !word.starts_with('-') &&
         std::ranges::find(program.commands, word, &Command::name) == program.commands.end();
}

int DoWork(const Work& work, Context& context) {
  try {
    const auto done = work();
    if (done) return kDone;
    context.panel.Tell(done.fault());
  } catch (const std::exception& error) {
    context.panel.Tell(Fault{error.what()});
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
  Command program;
  Describe(program, context);
  if (argc > 1 && IsUnknownCommand(argv[1], program)) {
    panel.Tell(Fault{"no such command: '" + std::string(argv[1]) + "'; 'vanzet --help' lists the commands"});
    return kWrongUsageStatus;
  }
  const Request request = ReadCommandLine(program, "vanzet " VANZET_VERSION, argc, argv);
  return request.work ? DoWork(request.work, context) : request.status;
}

}  // namespace
}  // namespace vanzet::cli

int main(int argc, char** argv) {
  return vanzet::cli::Run(argc, argv);
}
