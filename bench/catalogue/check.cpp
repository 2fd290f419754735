#include "catalogue/check.h"

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

/// The fields of a line, separated by white space.
std::vector<std::string_view> FieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  for (std::size_t at = 0; at < line.size();) {
    std::size_t end = at;
    while (end < line.size() && !IsWhiteSpace(line[end])) ++end;
    if (end > at) fields.push_back(line.substr(at, end - at));
    at = end + 1;
  }
  return fields;
}

class Checker {
 public:
  explicit Checker(const Shop& shop) : shop_(shop) {}

  std::vector<Finding> Check() {
    for (const Entry& entry : shop_.catalogue.entries()) CheckEntry(entry);
    for (const std::string& device : shop_.maker.Devices()) {
      if (shop_.catalogue.Find(device) == nullptr)
        Add(shop_.MakerFile().string(), 0, device,
            "the catalogue does not have the device " + Quoted(device));
    }
    return std::move(findings_);
  }

 private:
  void CheckEntry(const Entry& entry) {
    const Entry& first = *shop_.catalogue.Find(entry.name);
    const std::string refusal = NameRefusal(entry.name);
    if (!refusal.empty()) AddName(entry, refusal);
    if (&first != &entry) {
      AddName(entry, "the name " + Quoted(entry.name) + " is also in line " + std::to_string(first.line) +
                         "; only the first device of a name is used");
    }
    if (const std::string fault = FormFaultOf(entry); !fault.empty()) return AddValues(entry, fault);
    CheckValues(entry);
  }

  void CheckValues(const Entry& entry) {
    const auto fields = FieldsOf(entry.Values());
    const std::size_t before = findings_.size();
    for (std::size_t i = 1; i < fields.size(); ++i) CheckField(entry, i, fields[i]);
    if (findings_.size() > before) return;
    if (const std::string refusal = ValuesRefusal(entry.params); !refusal.empty()) AddValues(entry, refusal);
  }

  void CheckField(const Entry& entry, std::size_t number, std::string_view field) {
    const auto value = WholeReal(field);
    if (!value)
      return AddValues(entry, "field " + std::to_string(number + 1) + " is not a number: " + Quoted(field));
    if (number > kDeviceReals.size())
      return AddValues(entry, "field " + std::to_string(number + 1) + " is one too many");
    const auto letter = static_cast<char>('A' + number - 1);
    if (*value == 0 || devices::FindLetter(entry.params.type, letter) != nullptr) return;
    AddValues(entry, "a " + std::string(KindWord(entry.params.type)) + " does not have the letter " +
                         std::string(1, letter) + " (" + NumberText(*value, 10) + ")");
  }

  void AddName(const Entry& entry, const std::string& text) {
    Add(shop_.file.string(), entry.line, entry.name, text);
  }
  void AddValues(const Entry& entry, const std::string& text) {
    Add(shop_.file.string(), entry.ValuesLine(), entry.name, text);
  }
  void Add(const std::string& file, int line, const std::string& device, const std::string& text) {
    findings_.push_back({file, line, device, text});
  }

  const Shop& shop_;
  std::vector<Finding> findings_;
};

}  // namespace

std::string FormFaultOf(const Entry& entry) {
  if (!entry.hasValues) return "the device " + Quoted(entry.name) + " has no value line";
  const auto fields = FieldsOf(entry.Values());
  const auto type = WholeInteger(fields.empty() ? "" : fields.front());
  if (type && devices::KindOf(*type) != nullptr) return "";
  return "the value line does not begin with the type of a device: " + Quoted(entry.Values());
}

std::vector<Finding> FindingsOf(const Shop& shop) {
  return Checker(shop).Check();
}

}  // namespace vanzet::catalogue
