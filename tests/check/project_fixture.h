#pragma once

#include <nlohmann/json.hpp>

#include "../cli/run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {

/// A project whose definition and bodies a test makes, checked by the program.
class CheckedProject : public CommandLineTest {
 protected:
  using Json = nlohmann::json;

  CheckedProject() { MakeProject(); }

  /// Defines a spur from the "main", "datum" and so on of a form, which may have further members.
  void Define(const std::string& members, int spur = 0, const std::string& form = "") {
    WriteBytes(folder / "form.json", R"({"version": 1, )" + form + R"("spurs": [{"spur": )" +
                                         std::to_string(spur) + ", " + members + "}]}");
    const Outcome defined = Vanzet("define form.json lathe");
    ASSERT_EQ(defined.status, 0) << defined.err << defined.out;
  }

  Json Checked(int spur = 0) {
    const Outcome checked = Vanzet("check lathe --json --spur " + std::to_string(spur));
    EXPECT_THAT(checked.status, testing::AnyOf(0, 3)) << checked.err;
    return Json::parse(checked.out, nullptr, false);
  }

  /// "EQ-104 main", of each finding.
  std::vector<std::string> Rules(int spur = 0) {
    std::vector<std::string> rules;
    const Json checked = Checked(spur);
    for (const Json& finding : checked["findings"])
      rules.push_back(std::string(finding["rule"]) + " " + std::string(finding["where"]));
    return rules;
  }
};

}  // namespace vanzet::test
