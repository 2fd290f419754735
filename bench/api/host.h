#pragma once

#include <memory>
#include <string>

#include "api/trace.h"
#include "language/interpreter.h"
#include "project/message_panel.h"
#include "project/project.h"
#include "project/run_folder.h"
#include "project/variables.h"
#include "vdm/store.h"

namespace vanzet::api {

/// All that the exported host functions work on: one project as a module sees it.
///
/// Owns     the store and the variables of this run; the project and the panel belong to the caller
/// Threads  one, the thread that calls the module
class Host {
 public:
  /// `trace` may be null: calls are then not written down.
  Host(const project::Project& project, project::MessagePanel& panel, std::unique_ptr<Trace> trace);

  /// Runs a line of the macro language; a fault is told on the panel, with the line.
  Result<void> Command(std::string_view line);

  /// A value of the environment; "TMP" leads to the folder of this run when the settings name none.
  std::string Environment(std::string_view key);

  const project::Project& project;
  project::MessagePanel& panel;
  const std::unique_ptr<Trace> trace;
  project::Variables variables;
  vdm::VdmStore store;
  project::RunFolder runFolder;

  /// The text that a function returned last. Callers copy it at once.
  std::string returnedText;
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
