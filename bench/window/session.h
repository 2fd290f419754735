#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "api/host.h"
#include "base/places.h"
#include "history/history.h"
#include "results/definitions.h"
#include "results/equipment.h"
#include "scene/equipment.h"
#include "scene/scene.h"

namespace vanzet::window {

/// The project that the window shows, without any widget.
///
/// Runs    each call of the module has a host of its own, so that variables start again and nothing of a call
///         that failed is left
/// Errors  a fault, and the project stays as it was
class Session {
 public:
  static Result<std::unique_ptr<Session>> Open(const std::filesystem::path& folder, const Places& places);

  /// Has the module create the definitions of a project that is being made, and keeps them.
  static Result<void> MakeDefinitions(const std::filesystem::path& folder, const Places& places,
                                      project::MessagePanel& panel);

  const project::Project& project() const { return project_; }

  /// Reads the settings again, which can have changed. Requires: no call is at work.
  Result<void> Reload();

  Result<std::vector<results::SpurDefinition>> Definitions() const;

  /// The drawing: that of the module while it is at work, else that of the file.
  Result<drawing::Drawing> Drawing() const;

  /// The equipment of a spur: null without a definition, an empty scene for a definition that holds nothing.
  Result<std::shared_ptr<const scene::Scene>> Equipment(std::int32_t spur, const modeller::Progress& progress,
                                                        results::FindBody body) const;

  /// The records that the module's dialog has stored for a spur so far.
  /// Requires, as the next one: a call is at work.
  struct Live {
    project::Definition definition;
    scene::Equipment equipment;
  };
  Result<Live> LiveEquipment(std::int32_t spur) const;

  /// The equipment of such a state, which may have other values than are stored. Bodies that the module has
  /// not asked for yet come from `body`.
  Result<scene::Scene> LiveScene(const Live& live, const results::FindBody& body) const;

  /// The equipment of a definition of any time.
  Result<scene::Scene> SceneOf(const project::Definition& definition, results::FindBody body) const;

  /// The definition of a spur after a generation; nothing where it had none then.
  Result<std::optional<project::Definition>> DefinitionAt(std::int64_t generation, std::int32_t spur) const;

  /// The changes of the project that are kept, the latest first.
  Result<std::vector<history::Entry>> History() const;
  /// The number of the last one; 0 without any.
  Result<std::int64_t> LastGeneration() const;
  /// Makes the state after that generation that of the project, as a new generation: nothing is lost.
  Result<void> Restore(std::int64_t generation);

  /// The numbers of the definitions that another process has open.
  Result<std::vector<std::uint32_t>> OpenElsewhere() const;

  /// The things that a call works with.
  struct Surroundings {
    project::MessagePanel& panel;
    std::unique_ptr<drawing::PickSource> picks;
    std::unique_ptr<api::CallLog> log;
    void* mainWindow;
    modeller::Progress progress;
    std::function<Result<void>(const std::string& topic)> help;
    /// Is given the outcome of keeping what an event of the dialog changed, and returns it.
    std::function<Result<void>(const Result<void>& kept)> keepEvent = {};
    /// Is given a sentence when definitions are created or upgraded before the dialog begins.
    std::function<void(const std::string& sentence)> announce = {};
  };
  /// Calls an export of the module, "mstart" or "ReOrgVdm". Before "mstart", definitions that are missing or
  /// of an older version are created or upgraded. Each event that its dialog has handled is
  /// written to the project at once, all or nothing; what cannot be written stays with the call, and its
  /// last attempt fails with it. Fails while another call is at work.
  Result<void> Call(const char* function, Surroundings surroundings);
  bool isAtWork() const { return host_ != nullptr; }

  /// The files and folders whose changes are changes of the project.
  std::vector<std::filesystem::path> WatchedFiles() const;
  /// Their times and sizes: another text means that one of them was changed.
  std::string FileStamps() const;

 private:
  Session(project::Project project, Places places)
      : project_(std::move(project)), places_(std::move(places)) {}

  project::Project project_;
  Places places_;
  std::unique_ptr<api::Host> host_;  ///< while a call is at work
};

}  // namespace vanzet::window
