#include <gtest/gtest.h>

#include <algorithm>
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
using Folders = std::set<std::string>;

/// What each folder of the module may include besides itself. docs/architecture.md draws these arrows.
const std::map<std::string, Folders> kModule = {
    {"platform", {"base"}},
    {"devices", {"base"}},
    {"host", {"base", "platform"}},
    {"machine", {"base", "platform", "host"}},
    {"macro", {"base", "host", "devices"}},
    {"store", {"base", "platform", "host", "macro", "devices"}},
    {"simulation", {"base", "platform", "host", "macro", "devices", "store"}},
    {"catalogue", {"base", "platform", "host", "devices"}},
    {"view", {"base", "platform"}},
    {"view/shared", {"base", "platform", "devices", "view"}},
    {"view/qt", {"base", "platform", "devices", "view", "view/shared"}},
    {"dialog",
     {"base", "platform", "host", "macro", "devices", "store", "simulation", "machine", "catalogue", "view"}},
    {"door", {"base", "platform", "host", "machine", "store", "simulation", "view", "dialog", "geometry"}},
    {"geometry", {"base", "platform", "host"}},
};

/// The same of the workbench, which knows nothing of the module but its geometry and its tables of devices.
const std::map<std::string, Folders> kWorkbench = {
    {"devices", {}},
    {"process", {"base"}},
    {"vdm", {"base", "vdm/embedded"}},
    {"vdm/embedded", {"base", "vdm"}},
    {"vdm/postgres", {"base", "vdm"}},
    {"contour", {"base", "geometry"}},
    {"modeller", {"base", "geometry", "process"}},
    {"modeller/exchange", {"base", "geometry", "modeller"}},
    {"project", {"base", "vdm", "vdm/embedded", "vdm/postgres"}},
    {"drawing", {"base", "contour", "geometry"}},
    {"language", {"base", "vdm", "project", "drawing", "modeller", "geometry"}},
    {"api",
     {"base", "vdm", "project", "process", "drawing", "modeller", "language", "geometry", "catalogue"}},
    {"scene", {"base", "vdm", "project", "modeller", "geometry", "devices"}},
    {"section", {"base", "modeller", "geometry", "scene"}},
    {"results",
     {"base", "vdm", "project", "process", "drawing", "contour", "geometry", "modeller", "scene", "section"}},
    {"define", {"base", "devices", "scene"}},
    {"catalogue", {"base", "devices", "define", "modeller", "project", "vdm", "vdm/postgres"}},
    {"show", {"base", "project", "scene", "devices"}},
    {"check",
     {"base", "vdm", "devices", "geometry", "modeller", "project", "scene", "section", "show", "catalogue",
      "results"}},
    {"sheet",
     {"base", "vdm", "devices", "geometry", "modeller", "project", "scene", "section", "show", "catalogue",
      "check", "results", "process"}},
    {"history", {"base", "vdm", "project", "scene", "define"}},
    {"cli", {"base",     "vdm",   "project", "drawing", "language",     "api",         "contour", "geometry",
             "modeller", "scene", "section", "results", "define",       "catalogue",   "show",    "check",
             "history",  "sheet", "process", "devices", "vdm/embedded", "vdm/postgres"}},
    {"window", {"base",     "vdm",   "project", "drawing", "api",     "contour",      "geometry",
                "modeller", "scene", "section", "results", "define",  "catalogue",    "show",
                "check",    "sheet", "history", "devices", "process", "vdm/embedded", "vdm/postgres"}},
};

/// Headers of constants alone, which any folder may include.
const std::set<std::string> kPlainIds = {"view/ids.h", "host/message_ids.h"};

struct Include {
  fs::path file;
  std::string header;
  bool inBrackets;
};

std::vector<Include> IncludesBelow(const fs::path& root) {
  static const std::regex kInclude("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"]");
  std::vector<Include> includes;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    std::ifstream text(entry.path());
    for (std::string line; std::getline(text, line);) {
      std::smatch match;
      if (std::regex_search(line, match, kInclude)) {
        includes.push_back({fs::relative(entry.path(), root), match[2], match[1] == "<"});
      }
    }
  }
  return includes;
}

/// The folder of the table that a path lies in: the longest that fits.
std::string FolderOf(const fs::path& path, const std::map<std::string, Folders>& table) {
  for (fs::path folder = path.parent_path(); !folder.empty(); folder = folder.parent_path()) {
    if (table.contains(folder.string())) return folder.string();
  }
  return path.begin()->string();
}

void ExpectArrowsOf(const fs::path& root, const std::map<std::string, Folders>& table) {
  for (const Include& include : IncludesBelow(root)) {
    if (include.inBrackets || kPlainIds.contains(include.header)) continue;
    const std::string from = FolderOf(include.file, table);
    const std::string to = FolderOf(include.header, table);
    ASSERT_TRUE(table.contains(from)) << from << " has no row in this test";
    EXPECT_TRUE(from == to || table.at(from).contains(to)) << include.file << " includes " << include.header;
  }
}

TEST(Arrows, OfTheModulePointOneWay) {
  ExpectArrowsOf(VANZET_SOURCE_DIR "/src", kModule);
}

TEST(Arrows, OfADialogAndItsViewsMeetInPlainHeaders) {
  const std::set<std::string> plain = {"view/dialog.h", "view/dialog_state.h", "view/dialog_view.h"};
  for (const Include& include : IncludesBelow(VANZET_SOURCE_DIR "/src")) {
    const bool isPlain = plain.contains(include.file.string());
    const bool isOfTheDialog =
        include.file.string().starts_with("dialog/") && include.header.starts_with("view/");
    if (include.inBrackets || kPlainIds.contains(include.header) || (!isPlain && !isOfTheDialog)) continue;
    EXPECT_TRUE(plain.contains(include.header)) << include.file << " includes " << include.header;
  }
}

TEST(Arrows, OfThePagesDoNotLeadBackToTheDialogAroundThem) {
  for (const Include& include : IncludesBelow(VANZET_SOURCE_DIR "/src/dialog/pages")) {
    EXPECT_NE(include.header, "dialog/dlg_main.h") << include.file;
  }
}

TEST(Arrows, OfTheViewOnADisplayMeetTheModuleInPlainHeaders) {
  // Of the module the tables of devices are linked into the view's library, what finds its own folder, and
  // the numbers and units of both sides.
  const std::set<std::string> plain = {
      "view/dialog.h",     "view/dialog_state.h",    "view/dialog_view.h",     "view/view.h",
      "view/view_entry.h", "platform/file_dialog.h", "platform/message_box.h", "platform/symbols.h",
      "base/places.h",     "base/result.h",          "base/translations.h",    "base/length_unit.h",
      "base/numbers.h",    "base/number_text.h"};
  for (const Include& include : IncludesBelow(VANZET_SOURCE_DIR "/src/view/qt")) {
    const bool isOwn = include.inBrackets || include.header.starts_with("view/qt/") ||
                       include.header.starts_with("view/shared/");
    if (isOwn || kPlainIds.contains(include.header) || include.header.starts_with("devices/")) continue;
    EXPECT_TRUE(plain.contains(include.header)) << include.file << " includes " << include.header;
  }
}

TEST(Arrows, OfTheWorkbenchPointOneWay) {
  ExpectArrowsOf(VANZET_SOURCE_DIR "/bench", kWorkbench);
}

TEST(Arrows, DoNotLeaveTheSharedFolder) {
  for (const Include& include : IncludesBelow(VANZET_SOURCE_DIR "/base")) {
    EXPECT_TRUE(include.inBrackets || include.header.starts_with("base/")) << include.file;
  }
}

TEST(Module, IncludesTheStandardLibraryOnlyOutsideItsPlatform) {
  // Headers of the standard library have no folder and no ending.
  static const std::regex kStandard("^[a-z_]+$");
  // The folders that ask the system: its symbols, its files, its display.
  const std::vector<std::string> ofTheSystem = {"src/platform/", "base/files/", "src/view/qt/"};
  for (const std::string root : {"src", "base"}) {
    for (const Include& include : IncludesBelow(VANZET_SOURCE_DIR "/" + root)) {
      const std::string file = (root / include.file).string();
      const bool mayAskTheSystem = std::ranges::any_of(
          ofTheSystem, [&](const std::string& folder) { return file.starts_with(folder); });
      if (!include.inBrackets || mayAskTheSystem) continue;
      EXPECT_TRUE(std::regex_match(include.header, kStandard)) << file << ": " << include.header;
    }
  }
}

}  // namespace
}  // namespace vanzet
