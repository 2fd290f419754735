#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "api/host.h"
#include "cli/commands.h"
#include "define/check.h"
#include "project/project.h"

namespace vanzet::cli {

/// Says something beside the result, on standard error.
void Announce(const std::string& sentence);

/// A project and the host that a module meets in it.
struct HostedProject {
  project::Project project;
  std::unique_ptr<api::Host> host;
};

/// Opens a project and makes its host. The calls of the module are written to `traceFile`, unless its name is
/// empty.
/// Nothing of the run is in the project before its host commits.
Result<std::unique_ptr<HostedProject>> HostProject(const std::filesystem::path& folder,
                                                   const std::string& traceFile, Context& context);

/// Keeps other processes from changing the project until the host commits or ends. Waits for one that is
/// changing it, as long as the command line says.
Result<void> HoldProject(api::Host& host, const Context& context);

/// Has the module create definitions that are missing and upgrade older ones, as a part of the run, and says
/// so on standard error.
Result<void> UpgradeFirst(api::Host& host, const Context& context);

/// Keeps the work of a run by `commit`. From then on the line of a signal that ends the program says so.
Result<void> KeepRun(const std::function<Result<void>()>& commit);

/// A script of the module's dialog. Formats: docs/formats/script.md
struct DialogScript {
  std::filesystem::path file;
  std::filesystem::path transcript = {};  ///< empty: standard output
  std::string name = {};                  ///< of the script in faults; empty: the name of its file
  std::string mode = {};                  ///< as VANZET_SCRIPT_MODE has it
};

/// Has the module play its dialog from a script. What fails in the script is reported on the panel.
Result<void> PlayScript(const DialogScript& script, api::Host& host, const Context& context);

/// The same; the transcript is written to the file and returned. Lines of the script that fail are in the
/// transcript alone.
Result<std::string> PlayDialog(const std::filesystem::path& script, const std::filesystem::path& transcript,
                               api::Host& host, const Context& context);

/// The facts of a project that a form is checked against: its machine, its catalogue, its figures and bodies,
/// and the files of own devices, as a module would find them through the host. Project and host have to
/// outlive the result. A catalogue that does not exist has no devices.
Result<define::Surroundings> SurroundingsOf(const project::Project& project, api::Host& host);

}  // namespace vanzet::cli
