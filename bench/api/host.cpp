#include "api/host.h"

#include <utility>

#include "modeller/body_folder.h"

namespace vanzet::api {
namespace {

Host* hostInForce = nullptr;

/// The fault of a line, under the line's own name.
Result<void> Named(const Result<void>& run, const std::string& line) {
  if (run) return run;
  const std::string quoted = "'" + line + "'";
  const Fault& fault = run.fault();
  if (!fault.file.empty()) return Fault{fault.Message(), quoted};
  return Fault{fault.text, quoted, fault.line, fault.column};
}

}  // namespace

Host::Host(const project::Project& theProject, project::MessagePanel& thePanel,
           std::unique_ptr<CallLog> theTrace)
    : project(theProject),
      panel(thePanel),
      trace(std::move(theTrace)),
      variables(theProject.startVariables()),
      store(theProject.folder()),
      runFolder(theProject.folder()),
      board(theProject.folder()),
      mesh{theProject.settings().mesh.chord, theProject.settings().mesh.angle},
      settings_(theProject.folder()),
      figures_(theProject.folder() / "figures") {}

Host::~Host() {
  if (const auto kept = board.Save(); !kept) panel.Tell(kept.fault());
}

Result<void> Host::Command(std::string_view line) {
  language::Surroundings surroundings = Surroundings();
  return Named(language::Run(line, surroundings), std::string(line));
}

Result<void> Host::Macro(std::string_view name, std::string_view arguments) {
  language::Surroundings surroundings = Surroundings();
  const std::string line = std::string(name) + (arguments.empty() ? "" : " ") + std::string(arguments);
  return Named(language::RunMacro(name, arguments, surroundings), line);
}

Result<std::int32_t> Host::BodyNamed(std::string_view name) {
  return modeller::NumberOfNamed(name, bodies, project.folder() / "bodies", exchange);
}

Result<std::string> Host::Setting(std::string_view key) {
  if (!catalogue.empty() && key == "CLAMP_DB_PATH") return catalogue.string();
  return settings_.Value(key);
}

std::string Host::Environment(std::string_view key) {
  const std::string value = project.Environment(key);
  if (!value.empty() || key != "TMP") return value;
  const auto folder = runFolder.Path();
  if (!folder) panel.Tell(folder.fault());
  return folder ? folder->string() : "";
}

HostScope::HostScope(Host& host) : former_(std::exchange(hostInForce, &host)) {}

HostScope::~HostScope() {
  hostInForce = former_;
}

Host* HostInForce() {
  return hostInForce;
}

}  // namespace vanzet::api
