#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "api/host.h"
#include "base/result.h"
#include "project/message_panel.h"
#include "project/project.h"

namespace CLI {
class App;
}

namespace vanzet::cli {

/// The panel of the command line: each fault is a line on standard error.
class StandardErrorPanel final : public project::MessagePanel {
 private:
  void Show(const std::string& line) override;
};

/// What every command finds around it.
struct Context {
  std::filesystem::path program;  ///< the executable
  std::filesystem::path share;    ///< the workbench's own files
  StandardErrorPanel panel;

  /// What the chosen command does; set while the arguments are read, run afterwards.
  std::function<Result<void>()> run;
};

/// The context of this process: share is ../share/vanzet beside the executable's folder, or where the
/// environment variable VANZET_SHARE says.
std::unique_ptr<Context> MakeContext();

/// Operands of a command with the project among them: when there is one word more than `count`, the first is
/// the project if it names a folder, else the last.
struct Operands {
  std::filesystem::path project = ".";
  std::vector<std::string> words;
};
Operands SplitOperands(const std::vector<std::string>& words, std::size_t count);

/// Opens the project of a command line and makes a host of it; `traceFile` may be empty.
struct Session {
  project::Project project;
  std::unique_ptr<api::Host> host;
};
Result<std::unique_ptr<Session>> OpenSession(const std::filesystem::path& folder,
                                             const std::string& traceFile, Context& context);

}  // namespace vanzet::cli
