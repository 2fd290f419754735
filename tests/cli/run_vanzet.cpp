#include "run_vanzet.h"

#include <sys/wait.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/places.h"

namespace vanzet::test {

Outcome CommandLineTest::Vanzet(const std::string& arguments, const std::string& before,
                                const std::string& input) {
  const TemporaryFolder streams;
  WriteBytes(streams / "in", input);
  const std::string command = "cd '" + folder.path().string() + "' && { " + before +
                              " '" VANZET_PROGRAM "' " + arguments + "; } <'" + (streams / "in").string() +
                              "' >'" + (streams / "out").string() + "' 2>'" + (streams / "err").string() +
                              "'";
  WriteBytes(streams / "command", command);
  const int status = std::system(("exec bash " + (streams / "command").string()).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadBytes(streams / "out"),
          ReadBytes(streams / "err")};
}

std::vector<std::vector<std::string>> CommandLineTest::SectionsOf(int vdm, std::size_t operation,
                                                                  const std::string& project) {
  const Outcome items = Vanzet("items " + project + " --json --vdm " + std::to_string(vdm));
  const auto record = nlohmann::json::parse(items.out)["records"].at(operation);
  std::istringstream header(record[0].get<std::string>());
  std::size_t kind = 0, flag = 0, sections = 0, item = 1;
  header >> kind >> flag >> sections;
  std::vector<std::vector<std::string>> all;
  for (std::size_t count = 0; header >> count;) {
    auto& section = all.emplace_back();
    while (section.size() < count) section.push_back(record.at(item++));
  }
  EXPECT_EQ(all.size(), sections);
  return all;
}

void CommandLineTest::MakeProject() {
  const Outcome made = Vanzet("new lathe");
  ASSERT_EQ(made.status, 0) << made.err;
}

void CommandLineTest::MakeProjectWithoutDefinitions() {
  MakeProject();
  for (const char* const file : {"lathe/store.db", "lathe/store.lock"}) {
    std::filesystem::remove(folder / file);
  }
}

void CommandLineTest::MakeUpgradedProject() {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe");
  ASSERT_EQ(upgraded.status, 0) << upgraded.err;
}

}  // namespace vanzet::test
