#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "api/host.h"
#include "results/definitions.h"
#include "scene/scene.h"

namespace vanzet::window {

/// Where the program finds its own files.
struct Places {
  std::filesystem::path program;  ///< the executable
  std::filesystem::path share;    ///< the workbench's own files

  /// The places of this process.
  static Places OfProcess();
};

/// The project that the window shows, without any widget.
///
/// Runs    each call of the module has a host of its own, so that variables begin anew and nothing of a call
///         that broke down is left
/// Errors  a fault, and the project is as it was
class Session {
 public:
  static Result<std::unique_ptr<Session>> Open(const std::filesystem::path& folder, const Places& places);

  const project::Project& project() const { return project_; }

  /// Reads the settings again, which may have been changed. Requires: no call is at work.
  Result<void> Reload();

  Result<std::vector<results::SpurDefinition>> Definitions() const;

  /// What is drawn: while the module is at work its own drawing, else what the file holds.
  Result<drawing::Drawing> Drawing() const;

  /// The equipment of a spur; none without a definition, an empty scene when it holds nothing.
  Result<std::shared_ptr<const scene::Scene>> Equipment(std::int32_t spur,
                                                        const modeller::Progress& progress) const;

  /// The numbers of the definitions that another process has open.
  Result<std::vector<std::uint32_t>> OpenElsewhere() const;

  /// What a call is given.
  struct Surroundings {
    project::MessagePanel& panel;
    std::unique_ptr<drawing::PickSource> picks;
    std::unique_ptr<api::CallLog> log;
    void* mainWindow;
    modeller::Progress progress;
    std::function<Result<void>(const std::string& topic)> help;
  };
  /// Calls an export of the module, "mstart" or "ReOrgVdm". Refused while one is at work.
  Result<void> Call(const char* function, Surroundings surroundings);
  bool isAtWork() const { return host_ != nullptr; }

  /// Tells the files of the project as they are now; another text: one of them was changed.
  std::string Signs() const;

 private:
  Session(project::Project project, Places places)
      : project_(std::move(project)), places_(std::move(places)) {}

  project::Project project_;
  Places places_;
  std::unique_ptr<api::Host> host_;  ///< while a call is at work
};

}  // namespace vanzet::window
