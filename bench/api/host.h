#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "api/dry_run.h"
#include "api/raw_stores.h"
#include "api/trace.h"
#include "drawing/board.h"
#include "drawing/figure_folder.h"
#include "drawing/picks.h"
#include "language/interpreter.h"
#include "modeller/body_table.h"
#include "modeller/exchange.h"
#include "modeller/mesh.h"
#include "project/message_panel.h"
#include "project/project.h"
#include "project/run_folder.h"
#include "project/settings_file.h"
#include "project/variables.h"
#include "vdm/store.h"

namespace vanzet::api {

/// The state that the exported host functions work on: one project as a module sees it.
///
/// Owns     the store, the variables, the drawing board and the bodies of this run; the project and the panel
///          belong to the caller
/// Keeps    nothing until `Commit`: what a run that fails has changed is gone with the host
/// Threads  one, the thread that calls the module
class Host final : public language::Workplace {
 public:
  /// `trace` may be null: calls are then not recorded.
  Host(const project::Project& project, project::MessagePanel& panel, std::unique_ptr<CallLog> trace);

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Writes what was changed in VDMs and in the drawing, all or nothing. `occasion` is a word for the run;
  /// the last step fails before anything is kept.
  Result<void> Commit(const std::string& occasion, const vdm::LastStep& lastStep = {});

  /// From now on settings, catalogue and files stay as they are, by the rules of `DryRun`. The caller commits
  /// nothing.
  Result<void> BeginDryRun();

  /// Runs a line of the macro language. The fault names the line as its file, and quotes it as its source.
  Result<void> Command(std::string_view line);

  /// Runs a macro by its name. The fault names it with its arguments, which are also its source.
  Result<void> Macro(std::string_view name, std::string_view arguments);

  /// Returns the number of the body with that name; a body of the project's folder is read at its first use.
  Result<std::int32_t> FindBody(std::string_view name);

  /// A value of the environment; "TMP" is the folder of this run unless the settings name another one.
  std::string Environment(std::string_view key) override;

  Result<std::string> Setting(std::string_view key) override;
  Result<void> SetSetting(std::string_view key, std::string_view value) override;
  bool MayWrite(const std::filesystem::path& file) override { return !dryRun || dryRun->MayWrite(file); }
  bool IsPassing(const std::filesystem::path& file) override { return runFolder.Holds(file); }
  std::vector<std::string> FigureFiles() override { return figures_.Names(); }
  Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string& name) override {
    return figures_.Read(name);
  }
  Result<void> ShowHelp(const std::string& topic) override { return help ? help(topic) : Result<void>(); }

  const project::Project& project;
  project::MessagePanel& panel;
  const std::unique_ptr<CallLog> trace;
  project::Variables variables;
  vdm::VdmStore store;
  RawStores rawStores{store};
  project::RunFolder runFolder;
  drawing::Board board;
  /// The source of picks; at first every pick is cancelled. Never null.
  std::unique_ptr<drawing::PickSource> picks = std::make_unique<drawing::Picks>();
  std::filesystem::path catalogue;  ///< replaces the project's catalogue of devices unless it is empty
  std::optional<DryRun> dryRun;     ///< nothing in a run that writes its files
  modeller::BodyTable bodies;
  const modeller::MeshTolerance mesh;                             ///< of exported bodies
  modeller::Exchange exchange = modeller::Exchange::OfProcess();  ///< reads the bodies of the folder

  /// Keeps what an event of the dialog changed, and shows a failure; empty: the changes are kept, or given
  /// up, when the run ends.
  std::function<Result<void>()> keepEvent;

  /// Shows a person a sentence about the run; empty: nobody is there.
  std::function<void(const std::string& sentence)> announce;

  std::function<Result<void>(const std::string& topic)> help;  ///< shows help; empty: help cannot be shown

  /// The main window of the host for modules, the parent of their boxes; null without a window.
  void* mainWindow = nullptr;

  /// The text that a function returned last. The caller copies it at once.
  std::string returnedText;

 private:
  language::Surroundings Surroundings() {
    return {variables, store, project.paths(), board, *picks, bodies, mesh, *this};
  }

  project::SettingsFile settings_;
  drawing::FigureFolder figures_;
};

/// Makes `host` the current one, which the exported functions work on, while the scope exists. Without a
/// current host they do nothing.
class HostScope {
 public:
  explicit HostScope(Host& host);
  ~HostScope();
  HostScope(const HostScope&) = delete;
  HostScope& operator=(const HostScope&) = delete;

 private:
  Host* former_;
};

/// The current host, or null.
Host* CurrentHost();

}  // namespace vanzet::api
