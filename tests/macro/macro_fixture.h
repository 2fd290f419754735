#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/fake_host.h"
#include "support/golden.h"

namespace vanzet::test {

/// A host in memory that writes down what it is sent.
class MacroTest : public testing::Test {
 protected:
  /// The lines sent so far, and none is kept.
  std::vector<std::string> TakeLines() {
    const std::string before = "OrvoCommand('", after = "')";
    std::vector<std::string> lines;
    for (const std::string& call : host.TakeCalls("OrvoCommand")) {
      lines.push_back(call.substr(before.size(), call.size() - before.size() - after.size()));
    }
    return lines;
  }

  FakeHost host;
};

}  // namespace vanzet::test
