#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {

/// The sheet as people get it from the program.
class SheetCommand : public CommandLineTest {
 protected:
  /// Makes the project "lathe" with a sample job.
  void MakeJob(const std::string& name) {
    ASSERT_EQ(Vanzet("new lathe").status, 0);
    for (const char* const body : {"flange-casting.step", "flange.step"}) {
      std::filesystem::copy(std::string(VANZET_SOURCE_DIR "/examples/bodies/") + body,
                            folder / "lathe/bodies");
    }
    const Outcome defined =
        Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/" + name + ".json' lathe");
    ASSERT_EQ(defined.status, 0) << defined.err;
  }

  void Define(const std::string& spur) {
    if (!std::filesystem::exists(folder / "lathe")) MakeProject();
    WriteBytes(folder / "form.json", R"({"version": 1, "spurs": [)" + spur + "]}");
    const Outcome defined = Vanzet("define form.json lathe");
    ASSERT_EQ(defined.status, 0) << defined.err;
  }

  /// The page, without its scripts and the bytes of its pictures.
  std::string Page(const std::string& options = "") {
    const Outcome written = Vanzet("sheet lathe --out sheet.html " + options);
    EXPECT_EQ(written.status, 0) << written.err;
    EXPECT_EQ(written.out, "sheet.html\n");
    const std::string page = Without(ReadBytes(folder / "sheet.html"), "<script", "</script>");
    return Without(page, ";base64,", "\"");
  }

  /// A text without the parts that begin and end like this.
  static std::string Without(std::string text, const std::string& begin, const std::string& end) {
    for (auto at = text.find(begin); at != std::string::npos; at = text.find(begin, at))
      text.erase(at, text.find(end, at) + end.size() - at);
    return text;
  }

  /// The cells behind the heading of a row, of the first such row.
  static std::vector<std::string> Row(const std::string& page, const std::string& heading) {
    std::vector<std::string> cells;
    auto at = page.find("<th scope=\"row\">" + heading + "</th>");
    if (at == std::string::npos) return cells;
    const auto end = page.find("</tr>", at);
    while ((at = page.find("<td>", at)) < end) {
      at += 4;
      cells.push_back(page.substr(at, page.find("</td>", at) - at));
    }
    return cells;
  }
};

}  // namespace vanzet::test
