#include "window/definition_words.h"

#include <algorithm>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

/// The texts before and after the thing in the name of a body, and how such a name is shown.
struct FrameRow {
  const char *before, *behind;
  const char* text;
};
constexpr FrameRow kFrames[] = {
    {"", ", not stored", Translatable("%1, not stored")},
    {"main ", "", Translatable("main %1")},
    {"sub ", "", Translatable("sub %1")},
};

constexpr const char* kThings[] = {
    Translatable("chuck"),       Translatable("collet"), Translatable("mandrel"),
    Translatable("face driver"), Translatable("billet"), Translatable("clamp device"),
    Translatable("finish part"), Translatable("center"), Translatable("steady rest"),
};

constexpr const char* kJaw = "jaw ";

struct OperationRow {
  std::string_view label;
  const char* text;
};
// clang-format off
constexpr OperationRow kOperations[] = {
    { "Billet definition",          Translatable("Billet definition") },
    { "Main Spindle",               Translatable("Main spindle") },
    { "Sub Spindle",                Translatable("Sub spindle") },
    { "Datum NPV",                  Translatable("Datum") },
    { "Luenette",                   Translatable("Steady rest") },
    { "VRML Main Clampdevice",      Translatable("3D text of the clamp device, main spindle") },
    { "VRML Main Jaw",              Translatable("3D text of the jaw, main spindle") },
    { "VRML Sub Clampdevice",       Translatable("3D text of the clamp device, sub spindle") },
    { "VRML Sub Jaw",               Translatable("3D text of the jaw, sub spindle") },
    { "VRML Center",                Translatable("3D text of the center") },
    { "Center",                     Translatable("Center") },
    { "2D Geometry for main clamp", Translatable("Outline of the clamp device, main spindle") },
    { "2D Geometry for main jaw",   Translatable("Outline of the jaw, main spindle") },
    { "2D Geometry for sub clamp",  Translatable("Outline of the clamp device, sub spindle") },
    { "2D Geometry for sub jaw",    Translatable("Outline of the jaw, sub spindle") },
    { "2D Geometry for center",     Translatable("Outline of the center") },
    { "Finishpart from Main",       Translatable("Finished part, main spindle") },
    { "Finishpart from Sub",        Translatable("Finished part, sub spindle") },
};
// clang-format on

QString Translated(const Translations& texts, std::string_view english) {
  return ToQString(texts.Translate(kDefinitionSection, english));
}

QString ThingText(const Translations& texts, const QString& name) {
  const std::string thing = name.toStdString();
  const bool isKnown = std::ranges::find(kThings, std::string_view(thing)) != std::end(kThings);
  if (isKnown) return Translated(texts, thing);
  if (!name.startsWith(kJaw)) return name;
  return Translated(texts, Translatable("jaw %1")).arg(name.mid(QLatin1StringView(kJaw).size()));
}

}  // namespace

QString BodyText(const Translations& texts, const QString& name) {
  for (const FrameRow& row : kFrames) {
    const QLatin1StringView before(row.before), behind(row.behind);
    if (!name.startsWith(before) || !name.endsWith(behind)) continue;
    const QString within = name.mid(before.size(), name.size() - before.size() - behind.size());
    return Translated(texts, row.text).arg(BodyText(texts, within));
  }
  return ThingText(texts, name);
}

QString OperationText(const Translations& texts, std::string_view label) {
  const auto* const row = std::ranges::find(kOperations, label, &OperationRow::label);
  return row == std::end(kOperations) ? ToQString(label) : Translated(texts, row->text);
}

}  // namespace vanzet::window
