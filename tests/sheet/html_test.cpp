#include <gmock/gmock.h>

#include <regex>

#include "sheet/html.h"

namespace vanzet::sheet {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kHostile = "</script><script>alert(1)</script>\"'&<!--";

const Assets kAssets = {"p { }\n", "begin();\n", "library();", "search();\n"};

Sheet SheetWith(std::vector<Block> blocks) {
  Sheet sheet{.language = "de", .title = "Sheet", .footer = "Foot", .time = "", .blocks = std::move(blocks)};
  return sheet;
}

std::string HtmlOf(const Sheet& sheet) {
  const Translations english;
  return sheet::HtmlOf(sheet, kAssets, {english});
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(Html, EscapesTextsOfAllKinds) {
  const Picture picture{.bytes = "<svg/>", .alternative = kHostile, .width = 10, .height = 5};
  Sheet sheet =
      SheetWith({Heading{2, kHostile}, Paragraph{kHostile},
                 Table{kHostile, {kHostile, kHostile}, {{std::string(kHostile), {kHostile, kHostile}}}},
                 picture, Beside{picture, {}}});
  sheet.title = sheet.footer = sheet.language = kHostile;
  const std::string html = HtmlOf(sheet);
  EXPECT_THAT(html, Not(HasSubstr("<script")));
  EXPECT_THAT(html, Not(HasSubstr("alert(1)<")));
  EXPECT_THAT(html, Not(HasSubstr("<!--")));
  EXPECT_THAT(html, HasSubstr("&lt;/script&gt;&lt;script&gt;alert(1)&lt;/script&gt;&quot;'&amp;&lt;!--"));
}

TEST(Html, LetsNoTextOfTheModelEndItsScript) {
  Space space;
  space.model = R"json({"name":"</script><script>alert(1)<!--"})json";
  const std::string html = HtmlOf(SheetWith({space}));
  EXPECT_EQ(CountOf(html, "</script"), 3U) << "the model, the library and the script";
  EXPECT_THAT(html, Not(HasSubstr("<!--")));
  EXPECT_THAT(html, HasSubstr("\\u003c/script>\\u003cscript>alert(1)\\u003c!--"));
}

TEST(Html, HasAScriptOnlyWithSomethingToTurn) {
  EXPECT_THAT(HtmlOf(SheetWith({Paragraph{"a"}})), Not(HasSubstr("library()")));
  EXPECT_THAT(HtmlOf(SheetWith({Space{}})), HasSubstr("library()"));
}

TEST(Html, NamesItsLanguageAndTheHeadingsOfItsTables) {
  const std::string html =
      HtmlOf(SheetWith({Table{"Caption", {"A", "B"}, {{std::string("a"), std::string("b")}}}}));
  EXPECT_THAT(html, HasSubstr("<html lang=\"de\">"));
  EXPECT_THAT(html, HasSubstr("<caption>Caption</caption>"));
  EXPECT_THAT(html, HasSubstr("<th scope=\"col\">A</th><th scope=\"col\">B</th>"));
  EXPECT_THAT(html, HasSubstr("<th scope=\"row\">a</th><td>b</td>"));
}

TEST(Html, PutsPicturesIntoThePageInTheirSize) {
  const std::string html =
      HtmlOf(SheetWith({Picture{.bytes = "abc", .alternative = "what", .width = 78, .height = 58.5}}));
  EXPECT_THAT(html, HasSubstr("src=\"data:image/svg+xml;base64,YWJj\""));
  EXPECT_THAT(html, HasSubstr("alt=\"what\""));
  EXPECT_THAT(html, HasSubstr("width:78mm;aspect-ratio:78/58.5"));
}

TEST(Html, PrintsOnThePaperOfTheSheet) {
  Sheet sheet = SheetWith({});
  EXPECT_THAT(HtmlOf(sheet), HasSubstr("@page { size: A4;"));
  sheet.paper = Paper::kLetter;
  EXPECT_THAT(HtmlOf(sheet), HasSubstr("@page { size: letter;"));
}

}  // namespace
}  // namespace vanzet::sheet
