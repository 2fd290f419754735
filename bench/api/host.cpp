#include "api/host.h"

#include <utility>

namespace vanzet::api {
namespace {

Host* hostInForce = nullptr;

}  // namespace

Host::Host(const project::Project& theProject, project::MessagePanel& thePanel,
           std::unique_ptr<Trace> theTrace)
    : project(theProject),
      panel(thePanel),
      trace(std::move(theTrace)),
      variables(theProject.startVariables()),
      store(theProject.folder()),
      runFolder(theProject.folder()) {}

Result<void> Host::Command(std::string_view line) {
  language::Surroundings surroundings{variables, store, project.paths()};
  const auto run = language::Run(line, surroundings);
  if (run) return run;
  Fault fault = run.fault();
  if (fault.file.empty()) fault.file = "'" + std::string(line) + "'";
  panel.Tell(fault);
  return fault;
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
