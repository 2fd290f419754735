#pragma once

#include <functional>
#include <memory>
#include <string>

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

/// All that the exported host functions work on: one project as a module sees it.
///
/// Owns     the store, the variables, the drawing board and the bodies of this run; the project and the panel
///          belong to the caller
/// Threads  one, the thread that calls the module
class Host final : public language::Workplace {
 public:
  /// `trace` may be null: calls are then not written down.
  Host(const project::Project& project, project::MessagePanel& panel, std::unique_ptr<CallLog> trace);

  /// Keeps the drawing, and tells on the panel when it cannot be kept.
  ~Host() override;
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Runs a line of the macro language. A fault names the line, and what it is about.
  Result<void> Command(std::string_view line);

  /// Runs a macro by its name. A fault names it with its arguments.
  Result<void> Macro(std::string_view name, std::string_view arguments);

  /// The number of the body with that name; one of the project's folder is read when it is first asked for.
  Result<std::int32_t> BodyNamed(std::string_view name);

  /// A value of the environment; "TMP" leads to the folder of this run when the settings name none.
  std::string Environment(std::string_view key) override;

  Result<std::string> Setting(std::string_view key) override;
  Result<void> SetSetting(std::string_view key, std::string_view value) override {
    return settings_.Set(key, value);
  }
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
  /// Who answers picks: at first nobody, and each is cancelled. Never null.
  std::unique_ptr<drawing::PickSource> picks = std::make_unique<drawing::Picks>();
  std::filesystem::path catalogue;  ///< stands in for the project's catalogue of devices unless it is empty
  modeller::BodyTable bodies;
  const modeller::MeshTolerance mesh;                             ///< of exported bodies
  modeller::Exchange exchange = modeller::Exchange::OfProcess();  ///< reads the bodies of the folder

  std::function<Result<void>(const std::string& topic)> help;  ///< shows help; empty: nobody can

  /// What modules are told of the host's main window, which boxes stand in front of; null: there is none.
  void* mainWindow = nullptr;

  /// The text that a function returned last. Callers copy it at once.
  std::string returnedText;

 private:
  language::Surroundings Surroundings() {
    return {variables, store, project.paths(), board, *picks, bodies, mesh, *this};
  }

  project::SettingsFile settings_;
  drawing::FigureFolder figures_;
};

/// Makes `host` the one that the exported functions work on while the scope lives. Without one they do
/// nothing.
class HostScope {
 public:
  explicit HostScope(Host& host);
  ~HostScope();
  HostScope(const HostScope&) = delete;
  HostScope& operator=(const HostScope&) = delete;

 private:
  Host* former_;
};

/// The host in force, or null.
Host* HostInForce();

}  // namespace vanzet::api
