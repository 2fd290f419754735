#include "section/style.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/number_text.h"
#include "section/picture.h"

namespace vanzet::section {
namespace {

using modeller::Colour;
using scene::Kind;

struct StyleRow {
  Kind kind;
  BodyStyle style;
};
constexpr StyleRow kStyles[] = {
    {Kind::kClamp, {45, 2.6}},       {Kind::kJaw, {135, 1.8}},   {Kind::kCenter, {45, 1.8}},
    {Kind::kSteadyRest, {135, 2.6}}, {Kind::kBillet, {60, 3.2}}, {Kind::kFinishPart, {120, 2.2}},
};

/// The words of the legend, for the main and for the sub side.
struct NameRow {
  Kind kind;
  const char *main, *sub;
};
constexpr NameRow kNames[] = {
    {Kind::kClamp, Translatable("Clamp device"), Translatable("Clamp device, sub spindle")},
    {Kind::kJaw, Translatable("Jaw"), Translatable("Jaw, sub spindle")},
    {Kind::kCenter, Translatable("Center"), Translatable("Center")},
    {Kind::kSteadyRest, Translatable("Steady rest"), Translatable("Steady rest")},
    {Kind::kBillet, Translatable("Billet"), Translatable("Billet, sub spindle")},
    {Kind::kFinishPart, Translatable("Finished part"), Translatable("Finished part, sub spindle")},
};

/// The colour between two others.
Colour Mix(const Colour& a, const Colour& b, double part) {
  return {a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part,
          a.blue + (b.blue - a.blue) * part};
}

std::string LengthIn(LengthUnit unit, double length) {
  const bool isInch = unit == LengthUnit::kInch;
  return ShortDecimalText(InUnit(length, unit), isInch ? 4 : 3);
}

}  // namespace

const BodyStyle& StyleOf(Kind kind) {
  return std::ranges::find(kStyles, kind, &StyleRow::kind)->style;
}

Colour TintOf(Kind kind) {
  return Mix(scene::ColourOf(kind), {1, 1, 1}, 0.7);
}

Colour InkOf(Kind kind) {
  return Mix(scene::ColourOf(kind), {0, 0, 0}, 0.5);
}

std::string TextOf(const Colour& colour) {
  std::string text = "#";
  for (const double part : {colour.red, colour.green, colour.blue}) {
    constexpr std::string_view kHex = "0123456789abcdef";
    const auto value = static_cast<std::size_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    text += kHex[value / 16];
    text += kHex[value % 16];
  }
  return text;
}

geometry::Region HatchedArea(const SectionBody& body, const Section& section) {
  if (body.kind != Kind::kBillet) return body.region;
  const auto part = std::ranges::find_if(section.bodies, [&](const SectionBody& other) {
    return other.kind == Kind::kFinishPart && other.isSub == body.isSub;
  });
  if (part == section.bodies.end()) return body.region;
  geometry::Region left = geometry::Subtract(body.region, part->region);
  return left.ok ? left : body.region;
}

SectionTexts TextsOf(const PictureOptions& options, const Translations& texts) {
  const auto dimension = [unit = options.unit, &texts](const Dimension& each) {
    const bool isDiameter = each.direction == Direction::kDiameter;
    return std::string(texts.Translate(kTextSection, each.name)) + (isDiameter ? " Ø" : " ") +
           LengthIn(unit, each.Value());
  };
  const bool isInch = options.unit == LengthUnit::kInch;
  const std::string_view units = isInch ? Translatable("Inches; upper half, diameters with Ø; scale")
                                        : Translatable("Millimetres; upper half, diameters with Ø; scale");
  // "Clamp device: Chuck 160"
  const auto name = [&texts](const SectionBody& body) {
    const NameRow& row = *std::ranges::find(kNames, body.kind, &NameRow::kind);
    const std::string_view text = texts.Translate(kTextSection, body.isSub ? row.sub : row.main);
    return std::string(text) + (body.device.empty() ? "" : ": " + body.device);
  };
  return {dimension, name, std::string(texts.Translate(kTextSection, units)) + " " + ScaleText(options.scale),
          options.alert.caption};
}

}  // namespace vanzet::section
