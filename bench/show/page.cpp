#include "show/page.h"

#include <algorithm>

#include "base/number_text.h"
#include "devices/kinds.h"
#include "scene/equipment.h"
#include "show/missing.h"
#include "show/simulation.h"

namespace vanzet::show {
namespace {

using devices::Letter;
using scene::Billet;
using scene::Device;
using scene::Equipment;
using scene::FinishPart;
using scene::Spindle;

/// The section of the translations that holds the names of letters.
constexpr const char* kLetterSection = "view";

constexpr int kDecimals = 6;  // as stored
/// People measure to a ten-thousandth of an inch; the form for programs has the exact values. Millimetres
/// are printed as they are stored.
constexpr int kDecimalsOfInch = 4;

struct KindTitle {
  const devices::Kind* kind;
  const char* title;
};

// clang-format off
constexpr KindTitle kTitles[] = {
    {&devices::kChuck,      Translatable("Chuck")},
    {&devices::kCollet,     Translatable("Collet")},
    {&devices::kMandrel,    Translatable("Mandrel")},
    {&devices::kFaceDriver, Translatable("Face driver")},
    {&devices::kJaw,        Translatable("Jaws")},
    {&devices::kCenter,     Translatable("Center")},
};

struct Length {
  const char* label;
  double Billet::*value;
  bool isShownAtZero;
};

constexpr Length kCylinderLengths[] = {
    {Translatable("Outer diameter"),  &Billet::outerDiameter,  true},
    {Translatable("Inner diameter"),  &Billet::innerDiameter,  false},
    {Translatable("Part length"),     &Billet::partLength,     true},
    {Translatable("Front allowance"), &Billet::frontAllowance, true},
    {Translatable("Rear allowance"),  &Billet::rearAllowance,  true},
    {Translatable("Bar length"),      &Billet::barLength,      false},
};
// clang-format on

class Page {
 public:
  explicit Page(const Style& style) : style_(style) {}

  void AddSpur(const Spur& spur);
  const Rows& rows() const { return rows_; }

 private:
  std::string T(std::string_view english) const {
    return std::string(style_.texts.Translate(kTextSection, english));
  }

  void AddSpindle(const char* title, const Equipment& equipment, std::size_t index);
  void AddDevice(const Device& device, const std::string& addition = {});
  void AddLetter(const Letter& letter, double value);
  void AddBillet(const Billet& billet);
  void AddName(const char* label, const std::string& name);
  void AddFinishPart(const FinishPart& part);
  void AddDatum(const Equipment& equipment);
  void AddMissing(const Equipment& equipment);
  void AddImpossible(const std::vector<std::string>& sentences);
  void AddSimulation(const Equipment& equipment, const project::Definition& definition);
  void AddDamage(const project::Definition& definition);
  std::string TitleOf(std::int32_t type) const;

  const Style& style_;
  Rows rows_;
};

std::string HeadingOf(std::int32_t spur, std::uint32_t vdm, const Style& style) {
  return std::string(style.texts.Translate(kTextSection, Translatable("Spur"))) + " " + std::to_string(spur) +
         ": VDM " + std::to_string(vdm);
}

void Page::AddSpur(const Spur& spur) {
  const Equipment equipment = scene::ReadEquipment(spur.definition);
  rows_.AddHeading(HeadingOf(spur.number, spur.vdm, style_) + ", " + T(Translatable("version")) + " " +
                   std::to_string(spur.definition.version));
  AddDamage(spur.definition);
  if (IsEmpty(equipment)) return rows_.Add(1, T(Translatable("Nothing is defined yet.")), "");
  AddSpindle(Translatable("Main spindle"), equipment, 0);
  AddSpindle(Translatable("Sub spindle"), equipment, 1);
  rows_.AddHeading(T(Translatable("Both spindles")));
  rows_.BeginPart(Part::kCenter);
  AddDevice(equipment.center);
  rows_.BeginPart(Part::kSteadyRest);
  rows_.Add(1, T(Translatable("Steady rest")),
            T(equipment.usesSteadyRest ? Translatable("used") : Translatable("not used")));
  AddDatum(equipment);
  AddSimulation(equipment, spur.definition);
  AddMissing(equipment);
  AddImpossible(spur.impossible);
}

void Page::AddSpindle(const char* title, const Equipment& equipment, std::size_t index) {
  const Spindle& spindle = equipment.spindles[index];
  rows_.AddHeading(T(title));
  if (IsEmpty(spindle)) return rows_.Add(1, T(Translatable("Nothing is defined.")), "");
  rows_.BeginPart(Part::kClamp, index);
  AddDevice(spindle.clamp);
  const char* const side =
      spindle.clampsInside ? Translatable("clamping from inside") : Translatable("clamping from outside");
  rows_.BeginPart(Part::kJaw, index);
  AddDevice(spindle.jaw, std::to_string(spindle.jaws) + " " + T(Translatable("jaws")) + ", " + T(side));
  rows_.BeginPart(Part::kBillet, index);
  AddBillet(spindle.billet);
  rows_.BeginPart(Part::kFinishPart, index);
  AddFinishPart(spindle.finishPart);
}

std::string Page::TitleOf(std::int32_t type) const {
  const devices::Kind* const kind = devices::KindOf(type);
  const auto* const row = std::ranges::find(kTitles, kind, &KindTitle::kind);
  return row == std::end(kTitles) ? T(Translatable("Device")) + " " + std::to_string(type) : T(row->title);
}

void Page::AddDevice(const Device& device, const std::string& addition) {
  const DeviceParams& params = device.params;
  if (params.type == 0) return;
  rows_.Add(1, TitleOf(params.type), device.name + (addition.empty() ? "" : ", " + addition));
  for (const Letter& letter : devices::LettersOf(params.type))
    AddLetter(letter, ValueOf(params, letter.letter));
}

void Page::AddLetter(const Letter& letter, double value) {
  const std::string name(style_.texts.Translate(kLetterSection, letter.name));
  const std::string label = name.empty() ? std::string(1, letter.letter) : name + " (" + letter.letter + ")";
  const bool isLength = letter.unit == devices::Unit::kMillimetre;
  const std::string unit = letter.unit == devices::Unit::kDegree ? " " + T(Translatable("degrees")) : "";
  rows_.Add(2, label, isLength ? style_.length(value) : ShortDecimalText(value, kDecimals) + unit);
}

void Page::AddName(const char* label, const std::string& name) {
  if (!name.empty()) rows_.Add(2, T(label), name);
}

void Page::AddBillet(const Billet& billet) {
  using namespace scene::billet_type;
  const std::string label = T(Translatable("Billet"));
  if (billet.type == kCylinder) {
    rows_.Add(1, label, T(Translatable("cylinder")));
    for (const Length& length : kCylinderLengths) {
      const double value = billet.*length.value;
      if (value != 0 || length.isShownAtZero) rows_.Add(2, T(length.label), style_.length(value));
    }
  }
  if (billet.type != kFigures && billet.type != kSolid) return;
  rows_.Add(1, label, billet.type == kFigures ? T(Translatable("from figures")) : billet.solid);
  AddName(Translatable("Outside"), billet.outside);
  AddName(Translatable("Inside"), billet.inside);
  rows_.Add(2, T(Translatable("Part length")), style_.length(billet.partLength));
  if (billet.type == kFigures) return;
  rows_.Add(2, T(Translatable("Clamp diameter")), style_.length(billet.clampDiameter));
  rows_.Add(2, T(Translatable("Angle")),
            ShortDecimalText(billet.angle, kDecimals) + " " + T(Translatable("degrees")));
}

void Page::AddFinishPart(const FinishPart& part) {
  using namespace scene::finish_part_type;
  const std::string label = T(Translatable("Finished part"));
  if (part.type == kSolid) rows_.Add(1, label, part.solid);
  if (part.type != kFigures) return;
  rows_.Add(1, label, T(Translatable("from figures")));
  AddName(Translatable("Outside"), part.outside);
  AddName(Translatable("Inside"), part.inside);
}

void Page::AddDatum(const Equipment& equipment) {
  rows_.BeginPart(Part::kDatum);
  const auto& [main, sub] = equipment.spindles;
  const auto both = [&](double ofMain, double ofSub) {
    return T(Translatable("main")) + " " + style_.length(ofMain) + ", " + T(Translatable("sub")) + " " +
           style_.length(ofSub);
  };
  rows_.Add(1, T(Translatable("Clamping out")), both(main.clampingOut, sub.clampingOut));
  rows_.Add(1, T(Translatable("Origin translation")), both(main.origin, sub.origin));
}

void Page::AddMissing(const Equipment& equipment) {
  const auto missing = MissingParts(equipment);
  if (missing.empty()) return;
  rows_.AddHeading(T(Translatable("Missing")));
  for (const char* const part : missing) rows_.Add(1, T(part), "");
}

void Page::AddImpossible(const std::vector<std::string>& sentences) {
  if (sentences.empty()) return;
  rows_.AddHeading(T(Translatable("Impossible, and refused by 'vanzet define'")));
  for (const std::string& sentence : sentences) rows_.Add(1, sentence, "");
}

void Page::AddSimulation(const Equipment& equipment, const project::Definition& definition) {
  constexpr const char* kPlaces[] = {Translatable("Device of the main spindle"),
                                     Translatable("Jaws of the main spindle"),
                                     Translatable("Device of the sub spindle"),
                                     Translatable("Jaws of the sub spindle"), Translatable("Center")};
  const auto devices = SimulatedDevices(equipment);
  std::array<SimulationState, devices.size()> states{};
  std::ranges::transform(devices, states.begin(), [&](const SimulatedDevice& device) {
    return SimulationStateOf(device, definition);
  });
  const auto isOdd = [](SimulationState state) {
    return state == SimulationState::kMissing || state == SimulationState::kOther;
  };
  rows_.BeginPart(Part::kNone);
  const std::string label = T(Translatable("Simulation data"));
  if (std::ranges::none_of(states, isOdd)) return rows_.Add(1, label, T(Translatable("of these values")));
  rows_.Add(1, label, T(Translatable("not of these values; OK in the dialog makes them")));
  for (std::size_t i = 0; i < states.size(); ++i) {
    if (!isOdd(states[i])) continue;
    rows_.Add(2, T(kPlaces[i]),
              T(states[i] == SimulationState::kMissing ? Translatable("missing")
                                                       : Translatable("of other values")));
  }
}

void Page::AddDamage(const project::Definition& definition) {
  for (std::size_t i = 0; i < definition.operations.size(); ++i) {
    const project::Operation& operation = definition.operations[i];
    if (operation.damage.empty()) continue;
    rows_.Add(1, T(Translatable("Operation")) + " " + std::to_string(i),
              T(Translatable("damaged")) + ": " + operation.damage);
  }
}

}  // namespace

Rows RowsOf(const Spur& spur, const Style& style) {
  Page page(style);
  page.AddSpur(spur);
  return page.rows();
}

std::string PageOf(const Spur& spur, const Style& style) {
  return RowsOf(spur, style).Text();
}

std::string LengthForPeople(double millimetres, LengthUnit unit) {
  const std::string length = unit == LengthUnit::kInch
                                 ? ShortDecimalText(InUnit(millimetres, unit), kDecimalsOfInch)
                                 : LengthText(millimetres, unit);
  return length + " " + std::string(WordOf(unit));
}

std::string PageWithoutDefinition(std::int32_t spur, std::uint32_t vdm, const Style& style) {
  return HeadingOf(spur, vdm, style) + ", " +
         std::string(style.texts.Translate(kTextSection,
                                           Translatable("no definition ('vanzet upgrade' creates it)"))) +
         "\n";
}

}  // namespace vanzet::show
