#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/path_map.h"
#include "base/result.h"
#include "project/bench_ini.h"
#include "project/idle_session.h"
#include "project/message_catalogue.h"
#include "project/variables.h"

namespace vanzet::project {

/// Fails when the name of a folder is not fit for a project: an empty one, and one with a backslash, which
/// every path that a module builds would take for a separator.
Result<void> CheckFolderName(const std::filesystem::path& folder);

/// True for a folder that has one of the files which mark a project.
bool IsMarkedAsProject(const std::filesystem::path& folder);

/// A project folder and its settings; docs/formats/project.md lists its files.
///
/// An empty folder is a project with defaults only; a folder that has files, but none of a project's own, is
/// not a project.
class Project {
 public:
  /// Opens the project in `folder`; `share` is the folder of the workbench's own files. Reads and checks all
  /// settings. Writes only what a process that died has left to write.
  static Result<Project> Open(const std::filesystem::path& folder, const std::filesystem::path& share);

  const std::filesystem::path& folder() const { return folder_; }
  const BenchIni& settings() const { return settings_; }
  const PathMap& paths() const { return paths_; }

  /// The macro variables at their start values.
  const Variables& startVariables() const { return startVariables_; }

  /// A value of the host's environment, or the empty text. Keys that the settings leave out have defaults:
  /// "-d" the project's folder, "ppdefini" its machine.ini, "clampmdb" its clampdevice.cld. The default of
  /// "TMP" belongs to a run, not to the project.
  std::string Environment(std::string_view key) const;

  /// The user's text of a message, or nothing.
  std::optional<std::string> Message(std::int32_t id) const;

  /// The name of the catalogue of texts; without a setting "en", the language of the module's own texts.
  std::string Language() const;

  /// The number of spindle spurs of the machine.
  Result<std::int32_t> SpindleSpurs() const;

  /// The connection to the project's server, for a store; null where the store is a file.
  std::shared_ptr<vdm::PostgresSession> LendSession() const { return idle_->Lend(); }

  /// The number of the VDM that holds the definition of a spur.
  std::uint32_t DefinitionOf(std::int32_t spur) const;

 private:
  Project() = default;

  Result<void> ReadSettings(const std::filesystem::path& share);
  /// Puts a text file in its place that a process could not write any more.
  void FinishFormerCommit();
  /// Completes the place of the store by the environment and the folder's name.
  Result<void> SettleStore();
  Result<void> ReadMessages(const std::filesystem::path& share);

  std::filesystem::path folder_;
  BenchIni settings_;
  PathMap paths_;
  Variables startVariables_;
  MessageCatalogue messages_;
  std::shared_ptr<IdleSession> idle_;
};

}  // namespace vanzet::project
