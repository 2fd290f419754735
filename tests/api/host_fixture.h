#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "api/exports.h"
#include "api/host.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {

/// Keeps the lines that are reported.
class PanelOfATest final : public project::MessagePanel {
 public:
  std::vector<std::string> lines;

 private:
  void Show(const Fault& fault) override { lines.push_back(fault.Message()); }
};

/// A host over a project in a folder of the test's own, in force.
class HostTest : public testing::Test {
 protected:
  static constexpr const char* kShare = VANZET_SOURCE_DIR "/share";

  explicit HostTest(const std::string& benchIni = "") {
    WriteBytes(folder / "bench.ini", benchIni);
    project = std::make_unique<project::Project>(*project::Project::Open(folder.path(), kShare));
    Restart();
  }

  /// Ends the run well, and begins another one.
  void Restart(std::unique_ptr<api::Trace> trace = nullptr) {
    if (const auto kept = host ? host->Commit("test") : Result<void>(); !kept) panel.Tell(kept.fault());
    scope.reset();
    host = std::make_unique<api::Host>(*project, panel, std::move(trace));
    scope = std::make_unique<api::HostScope>(*host);
  }

  const TemporaryFolder folder;
  PanelOfATest panel;
  std::unique_ptr<project::Project> project;
  std::unique_ptr<api::Host> host;
  std::unique_ptr<api::HostScope> scope;
};

}  // namespace vanzet::test
