#include <algorithm>
#include <limits>

#include "devices/formula.h"
#include "devices/kinds.h"
#include "devices/outline.h"
#include "devices/page_rules.h"
#include "view/ids.h"
#include "view/shared/device_words.h"
#include "view/shared/pictures/outline_check.h"
#include "view/shared/pictures/pictures.h"
#include "view/shared/sketch.h"
#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

using devices::Device;
using devices::Drawn;
using devices::Letter;

constexpr std::size_t kRow = 4;  // letters in a row are listed by the first and the last

constexpr const char* kExample = Translatable("Example: not drawn without %1");
constexpr const char* kSaveNeedsName = Translatable("Save needs a name.");
constexpr const char* kSaveNeeds = Translatable("Save needs a value of %1.");
constexpr const char* kMustBeLess = Translatable("%1 must be less than %2.");
constexpr const char* kMustBeAbove0 = Translatable("%1 must be above 0.");
constexpr const char* kNoOutline = Translatable("These values do not make a closed outline.");
constexpr const char* kUnseen = Translatable("%1, not seen from this side");
constexpr const char* kFromVdm = Translatable("The shape comes from the VDM file.");

/// A device with those values of a page that `isWanted`.
template <class Predicate>
DeviceParams ParamsOf(const Device& device, const PageValues& values, Predicate isWanted) {
  DeviceParams params;
  params.type = device.code;
  for (const Letter& each : device.letters) {
    if (!isWanted(each)) continue;
    params.*kDeviceReals.at(static_cast<std::size_t>(each.letter - 'A')) =
        values.NumberOf(control::EditOfLetter(each.letter));
  }
  return params;
}

/// A formula in the usual notation.
std::string Readable(std::string_view formula) {
  constexpr std::pair<std::string_view, std::string_view> kSigns[] = {
      {"*0.5", "/2"}, {"*", "\u00B7"}, {"-", " \u2212 "}};
  std::string text;
  while (!formula.empty()) {
    const auto* const sign =
        std::ranges::find_if(kSigns, [&](const auto& each) { return formula.starts_with(each.first); });
    const bool isSign = sign != std::end(kSigns);
    text += isSign ? sign->second : formula.substr(0, 1);
    formula.remove_prefix(isSign ? sign->first.size() : 1);
  }
  return Trimmed(text);
}

void AddEditsIn(std::string_view formula, std::vector<std::int32_t>& edits) {
  for (const char c : formula) {
    if (c >= 'A' && c <= 'J') edits.push_back(control::EditOfLetter(c));
  }
}

/// The letters of the outline whose edits are empty or 0, and that it cannot be drawn without.
std::string LettersNotDrawable(const Device& device, const DeviceParams& params) {
  std::string missing;
  for (const Letter& each : device.letters) {
    const bool mayBe0 = each.drawn != Drawn::kAbove0 && each.drawn != Drawn::kNot0;
    if (ValueOf(params, each.letter) != 0 || mayBe0) continue;
    missing += each.letter;
  }
  return missing;
}

std::string OutlineLetters(const Device& device) {
  std::string letters;
  for (const Letter& each : device.letters) {
    if (each.IsOfOutline()) letters += each.letter;
  }
  return letters;
}

void SetFault(Sketch& sketch, const std::string& text, std::string_view letters) {
  sketch.fault = text;
  AddEditsIn(letters, sketch.wrong);
}

void FindNoNumbers(Sketch& sketch, const Device& device, const PageValues& values) {
  for (const Letter& each : device.letters) {
    FindNoNumber(sketch, values, control::EditOfLetter(each.letter), std::string(1, each.letter));
  }
}

void FindBrokenRule(Sketch& sketch, const Device& device, const DeviceParams& params) {
  for (const Letter& each : device.letters) {
    const bool mayBeBelow0 = each.drawn != Drawn::kAbove0 && each.drawn != Drawn::kFrom0;
    if (ValueOf(params, each.letter) >= 0 || mayBeBelow0) continue;
    const std::string letter(1, each.letter);
    return SetFault(sketch, Filled(Translate(kMustBeAbove0), {letter}), letter);
  }
  for (const devices::Rule& rule : device.rules) {
    if (Evaluate(rule.less, params) < Evaluate(rule.greater, params)) continue;
    SetFault(sketch, Filled(Translate(kMustBeLess), {Readable(rule.less), Readable(rule.greater)}),
             rule.less);
    AddEditsIn(rule.greater, sketch.wrong);
    return;
  }
  const auto outline = OutlineOf(params);
  if (!IsSimple(outline)) SetFault(sketch, Translate(kNoOutline), OutlineLetters(device));
}

Path PathOf(const std::vector<OutlineVertex>& outline, double sign) {
  Ring ring;
  for (const OutlineVertex& vertex : outline) ring.points.push_back({vertex.x, sign * vertex.y});
  return {{ring}};
}

/// Adds the ends of a bore, which are seen between the two halves.
void AddBore(Sketch& sketch, const std::vector<OutlineVertex>& outline) {
  const auto [low, high] = std::ranges::minmax(outline, {}, &OutlineVertex::x);
  for (const double x : {low.x, high.x}) {
    double bore = std::numeric_limits<double>::max();
    for (const OutlineVertex& vertex : outline) {
      if (vertex.x == x) bore = std::min(bore, vertex.y);
    }
    if (bore > 0) Add(sketch, Ink::kGhost, Stroke({x, -bore}, {x, bore}));
  }
}

/// A body of revolution is cut above its axis and seen from outside below it.
void AddShapes(Sketch& sketch, const DeviceParams& params) {
  const auto outline = OutlineOf(params);
  const bool isSpun = !devices::IsJaw(params.type);
  if (isSpun) AddBore(sketch, outline);
  if (isSpun) Add(sketch, Ink::kBody, PathOf(outline, -1));
  Add(sketch, Ink::kMaterial, PathOf(outline, 1));
  if (!isSpun) return;
  const Box box = BoundsOf(sketch.shapes.back().path);
  const double beyond = box.Width() * 0.08;
  Add(sketch, Ink::kAxis, Stroke({box.left - beyond, 0}, {box.right + beyond, 0}));
}

void AddMeasures(Sketch& sketch, const Device& device, const DeviceParams& params) {
  for (const devices::Measure& row : device.measures) {
    Measure measure;
    measure.kind = row.kind;
    measure.where = row.where;
    measure.lane = row.lane;
    measure.letter = row.letter;
    if (row.kind == Measure::Kind::kAngle && row.letter == 'E') measure.letter += "/2";
    measure.control = control::EditOfLetter(row.letter);
    measure.from = {Evaluate(row.fromX, params), Evaluate(row.fromY, params)};
    measure.to = {Evaluate(row.toX, params), Evaluate(row.toY, params)};
    measure.at = row.at;
    if (row.kind == Measure::Kind::kCorner || measure.from != measure.to) sketch.measures.push_back(measure);
  }
}

/// Adds a note on the thickness, which a side view cannot show.
void NoteThickness(Sketch& sketch, const Device& device) {
  for (const Letter& each : device.letters) {
    if (each.drawn != Drawn::kThickness) continue;
    sketch.notes.push_back(each.letter + ("  " + Filled(Translate(kUnseen), {Translate(each.name)})));
  }
}

/// "A, B"; "A–H".
std::string Listed(const std::string& letters) {
  const bool isRow = letters.size() >= kRow &&
                     static_cast<std::size_t>(letters.back() - letters.front()) + 1 == letters.size();
  if (isRow) return letters.front() + std::string("\u2013") + letters.back();
  std::vector<std::string> list;
  for (const char letter : letters) list.emplace_back(1, letter);
  return Joined(list, ", ");
}

/// On the page of a new device: adds what keeps its Save button from saving.
void NoteWhatSaveNeeds(Sketch& sketch, const Device& device, const PageValues& values) {
  if (values.Find(control::kSaveDevice) == nullptr) return;
  const DeviceParams params = ParamsOf(device, values, [](const Letter&) { return true; });
  const std::string missing = devices::MissingLetters(params);
  if (!missing.empty()) sketch.notes.push_back(Filled(Translate(kSaveNeeds), {Listed(missing)}));
  if (values.TextOf(control::kNameList).empty()) sketch.notes.push_back(Translate(kSaveNeedsName));
}

}  // namespace

Sketch DeviceSketch(const Device& device, const PageValues& values) {
  DeviceParams params = ParamsOf(device, values, [](const Letter& each) { return each.IsOfOutline(); });
  Sketch sketch;
  const std::string missing = LettersNotDrawable(device, params);
  FindNoNumbers(sketch, device, values);
  if (sketch.fault.empty() && missing.empty()) FindBrokenRule(sketch, device, params);
  sketch.isExample = !sketch.fault.empty() || !missing.empty();
  if (sketch.isExample) params = device.example;
  AddShapes(sketch, params);
  AddMeasures(sketch, device, params);
  NoteThickness(sketch, device);
  NoteWhatSaveNeeds(sketch, device, values);
  if (sketch.fault.empty() && !missing.empty())
    sketch.notes.push_back(Filled(Translate(kExample), {Listed(missing)}));
  return sketch;
}

Sketch OwnDeviceSketch(const Device& device, const PageValues& values) {
  Sketch sketch;
  // A device of the same kind shows what it is.
  AddShapes(sketch, devices::KindOf(device.code)->devices.front().example);
  sketch.isExample = true;
  sketch.notes.push_back(Translate(kFromVdm));
  FindNoNumbers(sketch, device, values);
  return sketch;
}

}  // namespace vanzet::view
