#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "support/places.h"

namespace vanzet {
namespace {

namespace fs = std::filesystem;

const std::set<std::string> kHeaders = {"view/ids.h", "host/message_ids.h"};

/// Numbers that mean something else than the id of the same value.
const std::map<std::string, std::set<int>> kOtherMeanings = {
    {"dialog/pages/picks.cpp", {2048}},  // the host's filter mask of bodies
};

/// Shorter numbers are too common to be told apart from ids.
constexpr int kShortest = 100;

std::set<int> NumbersIn(const std::string& line) {
  static const std::regex kIgnored(R"re("(\\.|[^"\\])*"|//.*)re");
  static const std::regex kNumber(R"re(\b[0-9]+\b(?!\.[0-9]))re");
  const std::string code = std::regex_replace(line, kIgnored, "");
  std::set<int> numbers;
  for (std::sregex_iterator match(code.begin(), code.end(), kNumber), end; match != end; ++match) {
    if (match->length() <= 5) numbers.insert(std::stoi(match->str()));
  }
  return numbers;
}

std::set<int> NamedIds() {
  std::set<int> ids;
  for (const std::string& header : kHeaders) {
    std::ifstream text(fs::path(VANZET_SOURCE_DIR "/src") / header);
    for (std::string line; std::getline(text, line);) {
      for (const int number : NumbersIn(line)) {
        if (number >= kShortest) ids.insert(number);
      }
    }
  }
  return ids;
}

void ExpectNoIdIn(const fs::path& file, const std::string& name, const std::set<int>& ids) {
  const auto others = kOtherMeanings.find(name);
  std::ifstream text(file);
  int row = 0;
  for (std::string line; std::getline(text, line);) {
    ++row;
    for (const int number : NumbersIn(line)) {
      if (others != kOtherMeanings.end() && others->second.contains(number)) continue;
      EXPECT_FALSE(ids.contains(number)) << file << ":" << row << ": " << number << " has a name";
    }
  }
}

TEST(Ids, HaveHeadersThatIncludeTheStandardLibraryOnly) {
  for (const std::string& header : kHeaders) {
    std::ifstream text(fs::path(VANZET_SOURCE_DIR "/src") / header);
    for (std::string line; std::getline(text, line);) {
      EXPECT_FALSE(line.starts_with("#include \"")) << header << ": " << line;
    }
  }
}

TEST(Ids, AreWrittenByTheirNamesOutsideTheirHeaders) {
  const std::set<int> ids = NamedIds();
  ASSERT_GE(ids.size(), 200U);
  for (const char* root : {"/src", "/bench/define"}) {
    const fs::path folder = std::string(VANZET_SOURCE_DIR) + root;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      const std::string name = fs::relative(entry.path(), folder).string();
      if (!kHeaders.contains(name)) ExpectNoIdIn(entry.path(), name, ids);
    }
  }
}

}  // namespace
}  // namespace vanzet
