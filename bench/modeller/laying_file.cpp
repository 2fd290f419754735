#include <cmath>
#include <set>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "base/ini.h"
#include "base/letter_case.h"
#include "base/near_words.h"
#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_stream.h"
#include "modeller/laying.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// The whole text as a finite number.
std::optional<double> NumberOf(std::string_view text) {
  const auto number = RealPrefix(text);
  if (!number || number->used != text.size() || !std::isfinite(number->value)) return std::nullopt;
  return number->value;
}

bool SetReal(double& real, std::string_view value) {
  const auto number = NumberOf(value);
  real = number.value_or(real);
  return number.has_value();
}

bool SetLooking(Laying& laying, std::string_view value) {
  if (const auto direction = DirectionNamed(value)) {
    laying.looking = *direction;
    return true;
  }
  const auto numbers = AxisNamed(value, {0, 0, 0});
  if (!numbers || geometry::Vector3d(geometry::Point3d(), *numbers).Magnitude() == 0) return false;
  laying.looking = geometry::Vector3d(geometry::Point3d(), *numbers);
  return true;
}

bool SetAxis(Laying& laying, std::string_view value) {
  const auto point = AxisNamed(value, laying.looking);
  if (point) laying.axis = *point;
  return point.has_value();
}

bool SetUnit(Laying& laying, std::string_view value) {
  const auto unit = LengthUnitNamed(value);
  if (unit) laying.unit = *unit;
  return unit.has_value();
}

/// A key, and what its value may be.
struct Key {
  std::string_view name;
  std::string_view expected;
  bool (*set)(Laying& laying, std::string_view value);
};
constexpr Key kKeys[] = {
    {"looking", "x, -x, y, -y, z, -z or three numbers", SetLooking},
    {"axis", "two numbers across 'looking', or three; 'looking' comes first", SetAxis},
    {"face", "a number", [](Laying& laying, std::string_view value) { return SetReal(laying.face, value); }},
    {"turn", "a number of degrees",
     [](Laying& laying, std::string_view value) { return SetReal(laying.turn, value); }},
    {"unit", "mm or inch", SetUnit},
};

const Key* KeyNamed(std::string_view name) {
  for (const Key& key : kKeys) {
    if (EqualWithoutCase(key.name, name)) return &key;
  }
  return nullptr;
}

Fault UnknownKey(const IniReader& reader, std::string_view name) {
  std::vector<std::string> names;
  for (const Key& key : kKeys) names.emplace_back(key.name);
  return reader.At("unknown key " + Quoted(name) + DidYouMean(name, names), name);
}

Result<Laying> LayingOf(const std::string& text, const std::string& file) {
  TextStream stream(text);
  IniReader reader(stream, file);
  Laying laying;
  std::set<std::string_view> seen;
  for (IniLine line; reader.Next(line);) {
    if (line.kind == IniLine::Kind::kNothing) continue;
    if (line.kind != IniLine::Kind::kEntry) return reader.At("expected 'key = value'");
    const Key* const key = KeyNamed(line.name);
    if (key == nullptr) return UnknownKey(reader, line.name);
    if (!seen.insert(key->name).second) return reader.At("the key is here twice", line.name);
    if (!key->set(laying, line.value)) {
      return reader.At("expected " + std::string(key->expected) + ", found " + Quoted(line.value),
                       line.value);
    }
  }
  return laying;
}

}  // namespace

fs::path LayingFileOf(const fs::path& bodyFile) {
  return fs::path(bodyFile).replace_extension(".lay");
}

Result<std::optional<Laying>> ReadLaying(const fs::path& bodyFile) {
  const fs::path file = LayingFileOf(bodyFile);
  const auto text = files::ReadWholeFile(file);
  if (!text && text.fault().kind == FaultKind::kMissing) return std::optional<Laying>();
  if (!text) return text.fault();
  VANZET_TRY(const Laying laying, LayingOf(*text, file.string()));
  return std::optional<Laying>(laying);
}

Result<void> WriteLaying(const fs::path& bodyFile, const Laying& laying) {
  const auto& [x, y, z] = laying.axis;
  std::string text = "# How " + bodyFile.filename().string() + " lies: 'vanzet body lay' writes this.\n";
  text += "looking = " + DirectionText(laying.looking) + "\n";
  text += "axis = " + ExactText(x) + ", " + ExactText(y) + ", " + ExactText(z) + "\n";
  text += "face = " + ExactText(laying.face) + "\n";
  text += "turn = " + ExactText(laying.turn) + "\n";
  text += "unit = " + std::string(WordOf(laying.unit)) + "\n";
  return files::ReplaceFile(LayingFileOf(bodyFile), text);
}

}  // namespace vanzet::modeller
