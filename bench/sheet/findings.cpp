#include "base/one_line.h"
#include "check/report.h"
#include "sheet/spur.h"

namespace vanzet::sheet {

std::vector<Block> FindingBlocks(const Spur& spur, const Words& words) {
  const check::Style style{words.texts, words.unit};
  Table table{.caption = words(Translatable("Findings of the check")),
              .headings = {words(Translatable("Rule")), words(Translatable("Severity")),
                           words(Translatable("Place")), words(Translatable("Finding"))},
              .rows = {}};
  for (const check::Finding& finding : spur.findings) {
    const auto severity = words.texts.Translate(check::kTextSection, WordOf(finding.severity));
    table.rows.push_back({std::string(finding.rule->id), std::string(severity),
                          std::string(PlaceText(finding.where, words.texts)),
                          OneLine(check::TextOf(finding, style))});
  }
  if (table.rows.empty()) return {Paragraph{words(Translatable("The check found nothing."))}};
  return {std::move(table), Paragraph{CountText(check::CountsOf(spur.findings), words.texts)}};
}

}  // namespace vanzet::sheet
