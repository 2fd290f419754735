#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {

using Json = nlohmann::ordered_json;

inline constexpr const char* kBarJob = VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt";

/// Projects in which forms are defined.
class DefineCommand : public CommandLineTest {
 protected:
  /// Makes the sample project under that name, on a machine that has these facts besides.
  void MakeLathe(const std::string& name, const std::string& facts = "") {
    ASSERT_EQ(Vanzet("new " + name).status, 0);
    const auto ini = folder / (name + "/bench.ini");
    std::string text = ReadBytes(ini);
    text.insert(text.find("[environment]\n") + 14, facts);
    WriteBytes(ini, text);
  }

  /// A file of an own device: its class, and its two values.
  void MakeOwnDevice(const std::string& name, const std::string& values) {
    WriteBytes(
        folder / name,
        "vdm 1\nrecord\n.1 1 1 1\n.Own device\nrecord\n.2 1 4 1 1 1 1\n.Own\n.#VRML V2.0 utf8\\n\n.3 " +
            values + "\n.1 0 0 0 0 0 0\nend 2\n");
  }

  Outcome Define(const Json& form, const std::string& project, const std::string& options = "") {
    return Vanzet("define - " + project + " " + options, "", form.dump());
  }

  Json Shown(const std::string& project) { return Json::parse(Vanzet("show " + project + " --json").out); }

  /// All that the definitions of both spurs hold.
  std::string Items(const std::string& project) {
    return Vanzet("items " + project + " --vdm 1000").out + Vanzet("items " + project + " --vdm 1001").out;
  }

  /// Defines in one project what another shows; both are the same then, item for item.
  void ExpectRoundTrip(const std::string& project, const std::string& other) {
    const Json shown = Shown(project);
    const Outcome defined = Define(shown, other);
    EXPECT_EQ(defined.status, 0) << defined.err;
    EXPECT_EQ(defined.err, "");
    EXPECT_EQ(Shown(other), shown);
    EXPECT_TRUE(Items(other) == Items(project)) << "item for item";
  }
};

}  // namespace vanzet::test
