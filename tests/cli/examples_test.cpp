#include <algorithm>
#include <nlohmann/json.hpp>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::ordered_json;

/// A sample job: a script and the form that says the same, by its name.
struct Example {
  const char* name;
  const char* options = "";  ///< of the script

  friend void PrintTo(const Example& example, std::ostream* out) { *out << example.name; }
};

class Examples : public CommandLineTest, public testing::WithParamInterface<Example> {
 protected:
  static std::string FileOf(const std::string& folder, const std::string& ending) {
    return VANZET_SOURCE_DIR "/examples/" + folder + "/" + GetParam().name + ending;
  }

  /// The sample project with the bodies that the job needs.
  void MakeLathe(const std::string& name) {
    ASSERT_EQ(Vanzet("new " + name).status, 0);
    for (const char* const body : {"flange-casting.step", "flange.step"}) {
      std::filesystem::copy(std::string(VANZET_SOURCE_DIR "/examples/bodies/") + body,
                            folder / (name + "/bodies"));
    }
  }

  Json Shown(const std::string& name) { return Json::parse(Vanzet("show " + name + " --spur 0 --json").out); }
};

TEST_P(Examples, AreTheSameAsAScriptAndAsAForm) {
  const Json form = Json::parse(ReadBytes(FileOf("definitions", ".json")));
  MakeLathe("played");
  const Outcome played = Vanzet("script played '" + FileOf("scripts", ".txt") +
                                "' --strict --transcript run.jsonl " + GetParam().options);
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_THAT(ReadBytes(folder / "run.jsonl"), Not(HasSubstr("\"event\":\"box\"")));
  EXPECT_EQ(Shown("played"), form);

  MakeLathe("defined");
  const Outcome defined = Vanzet("define '" + FileOf("definitions", ".json") + "' defined");
  EXPECT_EQ(defined.status, 0) << defined.err;
  EXPECT_EQ(Shown("defined"), form);
  EXPECT_TRUE(Vanzet("items played").out == Vanzet("items defined").out) << "item for item";
}

constexpr Example kExamples[] = {
    {"bar-job"},
    {"chuck-transfer"},
    {"shaft-steady-rest"},
    {"flange-casting", "--picks '" VANZET_SOURCE_DIR "/examples/scripts/flange-casting-picks.txt'"},
};

INSTANTIATE_TEST_SUITE_P(Of, Examples, testing::ValuesIn(kExamples), [](const auto& example) {
  std::string name = example.param.name;
  std::ranges::replace(name, '-', '_');
  return name;
});

}  // namespace
}  // namespace vanzet::test
