#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "api/host.h"
#include "base/result.h"
#include "project/message_panel.h"
#include "project/project.h"

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

  bool keepsTmp = false;  ///< the folder for the files of this run stays when it ends
};

/// The context of this process: share is ../share/vanzet beside the executable's folder, or where the
/// environment variable VANZET_SHARE says.
std::unique_ptr<Context> MakeContext();

/// The words of a command, the project apart from the others: when there is one word more than `count`, the
/// first is the project if it names a folder, else the last.
struct SplitWords {
  std::filesystem::path project = ".";
  std::vector<std::string> words;
};
SplitWords SplitOperands(const std::vector<std::string>& words, std::size_t count);

/// The same for any number of words: the project is the first when it names a folder and others follow.
SplitWords SplitProject(const std::vector<std::string>& words);

/// A project and the host that a module meets in it.
struct HostedProject {
  project::Project project;
  std::unique_ptr<api::Host> host;
};

/// Opens the project of a command line and makes its host; `traceFile` may be empty.
Result<std::unique_ptr<HostedProject>> HostProject(const std::filesystem::path& folder,
                                                   const std::string& traceFile, Context& context);

}  // namespace vanzet::cli
