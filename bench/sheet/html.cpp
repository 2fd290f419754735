#include "sheet/html.h"

#include <algorithm>

#include "base/files/regular_file.h"
#include "base/number_text.h"
#include "base/xml_text.h"
#include "sheet/elements.h"

namespace vanzet::sheet {
namespace {

/// JSON within a script: no text of it ends the script or begins a comment there.
std::string EscapedForScript(const std::string& json) {
  std::string escaped;
  for (const char c : json) escaped += c == '<' ? "\\u003c" : std::string(1, c);
  return escaped;
}

/// Writes the blocks of a sheet.
class Writer {
 public:
  Writer(const Sheet& sheet, const Words& words) : sheet_(sheet), words_(words) {}

  std::string Body() {
    html_ = "<main>\n" + Element("h1", sheet_.title) + "\n";
    for (const Block& block : sheet_.blocks) {
      std::visit([this](const auto& each) { Write(each); }, block);
    }
    return html_ + "</main>\n<footer>" + EscapeXml(sheet_.footer) + "</footer>\n";
  }

 private:
  void Write(const Heading& heading) {
    html_ += Element("h" + std::to_string(heading.level), heading.text) + "\n";
  }
  void Write(const Paragraph& paragraph) { html_ += Element("p", paragraph.text) + "\n"; }
  void Write(const Picture& picture) { html_ += "<figure>" + ImageOf(picture) + "</figure>\n"; }

  void Write(const Table& table) {
    html_ += "<div class=\"scroll\"><table>\n" + Element("caption", table.caption) + "\n<thead><tr>";
    for (const std::string& heading : table.headings) html_ += Element("th", heading, " scope=\"col\"");
    html_ += "</tr></thead>\n<tbody>\n";
    for (const std::vector<Cell>& row : table.rows) {
      html_ += "<tr>";
      for (const Cell& cell : row) WriteCell(cell, &cell == &row.front());
      html_ += "</tr>\n";
    }
    html_ += "</tbody></table></div>\n";
  }

  void WriteCell(const Cell& cell, bool isFirst) {
    const std::string text =
        cell.link.empty() ? EscapeXml(cell.text) : Element("a", cell.text, Attribute("href", cell.link));
    html_ += isFirst ? "<th scope=\"row\">" + text + "</th>" : "<td>" + text + "</td>";
  }

  void Write(const Beside& beside) {
    html_ += "<div class=\"beside\">\n";
    if (beside.picture) html_ += "<figure>" + ImageOf(*beside.picture) + "</figure>\n";
    html_ += "<div>\n";
    for (const Table& table : beside.tables) Write(table);
    html_ += "</div>\n</div>\n";
  }

  void Write(const Space& space) {
    html_ += "<div class=\"space\">\n" + ImageOf(space.still, " class=\"still\"") +
             "\n<div class=\"live\" hidden>\n<div class=\"stage\" tabindex=\"0\" role=\"application\"" +
             Attribute("aria-label", words_(Translatable("Equipment in 3D. Arrow keys turn it, plus and "
                                                         "minus zoom, Home shows all of it."))) +
             "></div>\n<div class=\"tools\">\n";
    WriteViews();
    html_ += "<label><input type=\"checkbox\" class=\"cut\">" +
             Element("span", words_(Translatable("Cut open"))) + "</label>\n<label>" +
             Element("span", words_(Translatable("Plane"))) +
             "<input type=\"range\" class=\"plane\" min=\"-100\" max=\"100\" value=\"0\" disabled></label>\n"
             "<fieldset class=\"bodies\">" +
             Element("legend", words_(Translatable("Bodies"))) +
             "</fieldset>\n</div>\n</div>\n<script type=\"application/json\" class=\"model\">" +
             EscapedForScript(space.model) + "</script>\n</div>\n";
  }

  void WriteViews() {
    constexpr struct {
      const char *view, *name;
    } kViews[] = {{"iso", Translatable("Oblique")},
                  {"front", Translatable("Front")},
                  {"top", Translatable("Top")},
                  {"right", Translatable("Right")},
                  {"left", Translatable("Left")}};
    for (const auto& [view, name] : kViews) {
      html_ += Element("button", words_(name), " type=\"button\"" + Attribute("data-view", view)) + "\n";
    }
  }

  const Sheet& sheet_;
  const Words& words_;
  std::string html_;
};

std::string PageRule(Paper paper) {
  return "@page { size: " + std::string(FormatOf(paper).css) + "; margin: " + NumberText(kPaperMargin) +
         "mm; }\n";
}

}  // namespace

Result<Assets> Assets::Read(const std::filesystem::path& share) {
  Assets assets;
  VANZET_TRY(assets.style, files::ReadWholeFile(share / "sheet" / "sheet.css"));
  VANZET_TRY(assets.script, files::ReadWholeFile(share / "sheet" / "space.js"));
  VANZET_TRY(assets.search, files::ReadWholeFile(share / "sheet" / "search.js"));
  VANZET_TRY(assets.library, files::ReadWholeFile(share / "sheet" / "three.min.js"));
  return assets;
}

std::string HtmlOf(const Sheet& sheet, const Assets& assets, const Words& words) {
  const bool hasSpace = std::ranges::any_of(
      sheet.blocks, [](const Block& block) { return std::holds_alternative<Space>(block); });
  std::string html = PageHead(sheet.language, sheet.title, assets.style + PageRule(sheet.paper)) +
                     Writer(sheet, words).Body();
  if (hasSpace) html += "<script>" + assets.library + "</script>\n<script>\n" + assets.script + "</script>\n";
  return html + "</body>\n</html>\n";
}

}  // namespace vanzet::sheet
