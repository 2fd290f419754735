#include "cli/catalogue/assignments.h"

#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"
#include "cli/catalogue/print.h"
#include "devices/kinds.h"

namespace vanzet::cli {
namespace {

Result<void> SetLetter(DeviceParams& params, const Assignment& letter, LengthUnit unit) {
  const char sign = letter.key.front();
  const devices::Letter* const row = devices::FindLetter(params.type, sign);
  if (row == nullptr) {
    std::string known;
    for (const devices::Letter& each : devices::LettersOf(params.type)) known += each.letter;
    return Fault{"a " + std::string(catalogue::KindWord(params.type)) + " does not have the letter " +
                 letter.key + "; it has " + known};
  }
  const auto value = WholeReal(letter.text);
  if (!value) return Fault{letter.key + ": expected a number, found " + Quoted(letter.text)};
  const bool isLength = row->unit == devices::Unit::kMillimetre;
  catalogue::LetterOf(params, sign) = isLength ? InMillimetres(*value, unit) : *value;
  return {};
}

}  // namespace

Assignment AssignmentOf(const std::string& name, const std::string& word) {
  const std::size_t sign = word.find('=');
  if (sign == std::string::npos || sign == 0)
    throw WrongUsage{name, "expected KEY=VALUE, found " + Quoted(word)};
  return {word.substr(0, sign), word.substr(sign + 1)};
}

TakeWord StoreLetter(std::vector<Assignment>& assignments) {
  return [&assignments](const std::string& name, const std::string& word) {
    const Assignment assignment = AssignmentOf(name, word);
    const bool isLetter = assignment.IsLetter() && assignment.key >= "A" && assignment.key <= "J";
    if (!isLetter || !WholeReal(assignment.text))
      throw WrongUsage{name, "expected a letter and its value, such as A=80, found " + Quoted(word)};
    assignments.push_back(assignment);
  };
}

std::string Edit::LineOf(const catalogue::Entry& entry) const {
  catalogue::Entry shown = entry;
  shown.params = catalogue::ShownIn(entry.params, unit);
  return cli::LineOf(shown);
}

Result<void> SetLetters(DeviceParams& params, const std::vector<Assignment>& letters, LengthUnit unit) {
  for (const Assignment& letter : letters) VANZET_DO(SetLetter(params, letter, unit));
  return {};
}

Result<void> PutDevice(const Edit& edit, const std::string& name, DeviceParams params,
                       const std::vector<Assignment>& letters) {
  VANZET_DO(SetLetters(params, letters, edit.unit));
  params = catalogue::Rounded(params);
  std::string refusal = catalogue::NameRefusal(name);
  if (refusal.empty()) refusal = catalogue::ValuesRefusal(params, edit.unit);
  if (!refusal.empty()) return Fault{refusal};
  return edit.shop.catalogue.Put(name, params);
}

Result<void> SetFigures(const Edit& edit, const std::string& name, const std::vector<Assignment>& figures) {
  for (const Assignment& figure : figures)
    VANZET_DO(edit.shop.maker.Set(name, figure.key, figure.text, edit.unit));
  return {};
}

}  // namespace vanzet::cli
