#include "sheet/index.h"

#include "base/one_line.h"
#include "base/xml_text.h"
#include "sheet/address.h"
#include "sheet/elements.h"

namespace vanzet::sheet {
namespace {

/// The parts of a path, each as part of an address.
std::string LinkTo(const std::string& file) {
  std::string link;
  for (const auto& part : std::filesystem::path(file)) {
    link += (link.empty() ? "" : "/") + EscapedForAddress(part.string());
  }
  return link;
}

/// A count, which stands out when something was found.
std::string CountCell(int count, const std::string& severity) {
  return Element("td", std::to_string(count), count > 0 ? Attribute("class", severity) : "");
}

std::string RowOf(const IndexEntry& entry, std::size_t columns) {
  const std::string name = OneLine(entry.name);
  if (entry.file.empty()) {
    return "<tr>" + Element("th", name, " scope=\"row\"") +
           Element("td", OneLine(entry.fault), Attribute("colspan", std::to_string(columns - 1))) + "</tr>\n";
  }
  const auto& [project, machine, generation, time, spurs, errors, warnings, picture] = entry.summary;
  std::string row = "<tr><th scope=\"row\">" + Element("a", name, Attribute("href", LinkTo(entry.file))) +
                    "</th><td>" + (picture ? ImageOf(*picture) : "") + "</td>";
  for (const std::string& fact : {machine, generation, time, std::to_string(spurs)}) {
    row += Element("td", OneLine(fact));
  }
  return row + CountCell(errors, "error") + CountCell(warnings, "warning") + "</tr>\n";
}

}  // namespace

std::string IndexHtmlOf(const Index& index, const Assets& assets, const Words& words) {
  const std::string headings[] = {words(Translatable("Project")), words(Translatable("Picture")),
                                  words(Translatable("Machine")), words(Translatable("Generation")),
                                  words(Translatable("Time")),    words(Translatable("Spurs")),
                                  words(Translatable("Errors")),  words(Translatable("Warnings"))};
  const std::string title = words.With(Translatable("Set-up sheets: %1"), OneLine(index.folder));
  std::string html = PageHead(index.language, title, assets.style) + "<main class=\"index\">\n" +
                     Element("h1", title) + "\n<p><label>" +
                     EscapeXml(words(Translatable("Search by name"))) +
                     " <input type=\"search\" class=\"search\"></label> " +
                     "<output class=\"count\"></output></p>\n<div class=\"scroll\"><table>\n<thead><tr>";
  for (const std::string& heading : headings) html += Element("th", heading, " scope=\"col\"");
  html += "</tr></thead>\n<tbody>\n";
  for (const IndexEntry& entry : index.entries) html += RowOf(entry, std::size(headings));
  return html + "</tbody></table></div>\n</main>\n<script>\n" + assets.search +
         "</script>\n</body>\n</html>\n";
}

}  // namespace vanzet::sheet
