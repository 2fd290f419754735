#include "view/shared/page_model.h"

#include <algorithm>

#include "base/letter_case.h"
#include "devices/kinds.h"
#include "view/ids.h"
#include "view/shared/lengths.h"
#include "view/shared/page_values.h"

namespace vanzet::view {
namespace {

constexpr const char* kPick = Translatable("Pick in the drawing: %1");
constexpr const char* kBrowse = Translatable("Choose a file: %1");
constexpr const char* kNeeded = Translatable("Needed");

/// The page as its rows see it.
struct Page {
  PageValues values;
  std::int32_t type;  ///< of the device in the picture, 0 for none
};

std::string SmallLetters(std::string text) {
  std::ranges::transform(text, text.begin(), SmallLetter);
  return text;
}

bool IsNeeded(const FieldRow& field, const Page& page) {
  const bool isNewDevice = page.values.Find(control::kSaveDevice) != nullptr;
  const devices::Letter* const letter =
      isNewDevice && field.letter != 0 ? devices::FindLetter(page.type, field.letter) : nullptr;
  return field.isNeeded || (letter != nullptr && letter->entry == devices::Entry::kNeeded);
}

/// Adds the names for readers of the screen: "A: Outer diameter (mm), needed".
void AddSpoken(RowModel& row, const Control& control, const Page& page) {
  const FieldRow& field = *row.field;
  std::string about = field.label != 0 ? page.values.TextOf(field.label) : control.caption;
  if (!row.name.empty()) about += (about.empty() ? "" : ": ") + row.name;
  if (about.empty()) return;
  row.spoken = row.unit.empty() ? about : about + " (" + row.unit + ')';
  if (row.isNeeded) row.spoken += ", " + SmallLetters(Translate(kNeeded));
  if (const Control* const button = page.values.Find(field.button))
    row.spokenButton = Filled(Translate(button->text == "..." ? kBrowse : kPick), {about});
}

RowModel RowOf(const FieldRow& field, const Page& page) {
  const devices::Letter* const letter =
      field.letter == 0 ? nullptr : FindNamedLetter(page.type, field.letter);
  const Control* const control = page.values.Find(field.control);
  const Unit unit = letter != nullptr ? letter->unit : field.unit;
  RowModel row = {.field = &field};
  row.letter = control != nullptr && !control->caption.empty() ? control->caption : field.sign;
  row.name = Translate(letter != nullptr ? letter->name : field.name);
  row.unit = UnitText(unit);
  row.lengthUnit = unit == Unit::kMillimetre ? ShownUnit() : LengthUnit::kMillimetre;
  row.isNeeded = IsNeeded(field, page);
  row.isHidden = field.letter != 0 && letter == nullptr && control != nullptr && !control->isEnabled;
  if (control != nullptr) AddSpoken(row, *control, page);
  return row;
}

/// The letter of a value, or the name of another control.
std::string NameOf(const FieldRow& row, const PageValues& values) {
  const Control* const control = values.Find(row.control);
  if (row.label != 0) return values.TextOf(row.label);
  if (control != nullptr && !control->caption.empty()) return control->caption;
  return row.name[0] != '\0' ? Translate(row.name) : values.TextOf(row.control);
}

}  // namespace

std::int32_t TypeOfPicture(std::int32_t bitmap) {
  const devices::Device* const device = devices::FindByPicture(bitmap);
  return device == nullptr ? 0 : device->code;
}

std::vector<RowModel> RowsOf(const PageLayout& layout, const std::vector<Control>& controls) {
  const PageValues values(controls);
  const Control* const picture = values.Find(layout.picture);
  const Page page = {values, picture == nullptr ? 0 : TypeOfPicture(picture->bitmap)};
  std::vector<RowModel> rows;
  for (const FieldGroup& group : layout.groups) {
    for (const FieldRow& field : group.rows) rows.push_back(RowOf(field, page));
  }
  return rows;
}

std::string NamesOf(const PageLayout& layout, const std::vector<std::int32_t>& ids,
                    const std::vector<Control>& controls) {
  const PageValues values(controls);
  std::vector<std::string> names;
  for (const FieldGroup& group : layout.groups) {
    for (const FieldRow& row : group.rows) {
      if (std::ranges::find(ids, row.control) != ids.end()) names.push_back(NameOf(row, values));
    }
  }
  return Joined(names, ", ");
}

std::vector<std::int32_t> LeftOversOf(const PageLayout& layout, const std::vector<Control>& controls) {
  const std::vector<std::int32_t> placed = ControlsOf(layout);
  std::vector<std::int32_t> left;
  for (const Control& control : controls) {
    const bool isPlaced = std::ranges::find(placed, control.id) != placed.end();
    if (!isPlaced && control.kind != ControlKind::kPicture) left.push_back(control.id);
  }
  return left;
}

}  // namespace vanzet::view
