#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "base/files/system_fault.h"
#include "cli/arguments.h"
#include "cli/commands.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  bool hasDialog = false;
};

/// What tells programs where windows can be opened.
constexpr const char* kDisplays[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

bool HasDisplay() {
  return std::ranges::any_of(kDisplays, [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

/// Goes on as the program of the window, which is beside this one; comes back only when it cannot be run.
Result<void> Open(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.share));
  if (!HasDisplay()) return Fault{"there is no display to open a window on"};
  const std::string program = (context.program.parent_path() / "vanzet-window").string();
  const std::string folder = project.folder().string();
  const char* const words[] = {program.c_str(), folder.c_str(), arguments.hasDialog ? "--dialog" : nullptr,
                               nullptr};
  execv(program.c_str(), const_cast<char* const*>(words));
  return files::SystemFault(program + " cannot be run", errno);
}

}  // namespace

void AddOpen(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("open", "Opens the project in the workbench's window.");
  AddProject(command, arguments->project);
  command.AddFlag("--dialog", "with the equipment dialog in front", arguments->hasDialog);
  command.examples = {"vanzet open lathe --dialog"};
  command.work = [=, &context] { return Open(*arguments, context); };
}

}  // namespace vanzet::cli
