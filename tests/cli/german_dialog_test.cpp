#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;

class GermanDialog : public CommandLineTest {
 protected:
  /// The texts of a catalogue.
  static std::set<std::string> TextsOf(const std::string& language) {
    std::set<std::string> texts;
    std::istringstream lines(ReadBytes(VANZET_SOURCE_DIR "/share/messages/" + language + ".txt"));
    for (std::string line; std::getline(lines, line);) {
      const std::size_t text = line.find_first_not_of("0123456789 =");
      if (text != std::string::npos && text > 0) texts.insert(line.substr(text));
    }
    return texts;
  }

  /// All texts that a state shows a person.
  static std::set<std::string> ShownIn(const Json& state) {
    std::set<std::string> shown = {state["caption"]};
    for (const Json& node : state["tree"]) shown.insert(node["text"]);
    for (const char* const window : {"dialog", "controls"}) {
      for (const auto& [id, control] : state[window].items()) {
        if (control["kind"] != "edit" && control["kind"] != "combo" && control.contains("text")) {
          shown.insert(control["text"]);
        }
      }
    }
    return shown;
  }
};

TEST_F(GermanDialog, ShowsNoEnglishTextOnAnyPage) {
  MakeUpgradedProject();
  std::string ini = ReadBytes(folder / "lathe/bench.ini");
  ini.replace(ini.find("messages = en"), 13, "messages = de");
  WriteBytes(folder / "lathe/bench.ini", ini);
  std::string script;
  for (const int node : {1, 3, 4, 16, 19, 20, 21, 23, 28, 29, 34, 36, 41, 51}) {
    script += "select " + std::to_string(node) + "\nstate\n";
  }
  WriteBytes(folder / "pages.txt", script);
  const Outcome played = Vanzet("script lathe pages.txt");
  ASSERT_EQ(played.status, 0) << played.err;

  const auto german = TextsOf("de"), english = TextsOf("en");
  ASSERT_TRUE(german.contains("Spannmitteldefinition") && english.contains("Equipment Definition"));
  std::istringstream lines(played.out);
  for (std::string line; std::getline(lines, line);) {
    const Json event = Json::parse(line);
    if (event["event"] != "state") continue;
    for (const std::string& text : ShownIn(event)) {
      EXPECT_FALSE(english.contains(text) && !german.contains(text)) << event["page"] << ": " << text;
      EXPECT_FALSE(text.starts_with('*')) << event["page"] << ": " << text;
    }
  }
}

}  // namespace
}  // namespace vanzet::test
