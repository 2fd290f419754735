#include <QPolygonF>
#include <algorithm>
#include <limits>

#include "devices/device_outlines.h"
#include "devices/device_types.h"
#include "devices/formula.h"
#include "view/ids.h"
#include "view/qt/device_words.h"
#include "view/qt/pictures/device_measures.h"
#include "view/qt/pictures/faults.h"
#include "view/qt/pictures/outline_check.h"
#include "view/qt/pictures/pictures.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kExample = Translatable("Example: values are missing (%1)");
constexpr const char* kMustBeLess = Translatable("%1 must be less than %2.");
constexpr const char* kMustBeAbove0 = Translatable("%1 must be above 0.");
constexpr const char* kNoOutline = Translatable("These values make no closed outline.");
constexpr const char* kUnseen = Translatable("%1, not seen from this side");
constexpr const char* kFromVdm = Translatable("The shape comes from the VDM file.");

const DeviceType* TypeOf(std::int32_t bitmap) {
  for (const DeviceType& type : DeviceTypes()) {
    if (type.picture == bitmap) return &type;
  }
  return nullptr;
}

DeviceParams ParamsOf(const DeviceType& type, const PageValues& values) {
  DeviceParams params;
  params.type = type.code;
  for (const char letter : type.outline)
    params.*kDeviceReals.at(static_cast<std::size_t>(letter - 'A')) =
        values.NumberOf(control::EditOfLetter(letter));
  return params;
}

/// A formula as a person writes it.
QString Readable(std::string_view formula) {
  QString text = QString::fromUtf8(formula.data(), static_cast<qsizetype>(formula.size()));
  text.replace(QStringLiteral("*0.5"), QStringLiteral("/2"));
  text.replace(QLatin1Char('*'), QStringLiteral("\u00B7"));
  text.replace(QLatin1Char('-'), QStringLiteral(" \u2212 "));
  return text.trimmed();
}

void AddEditsIn(std::string_view formula, std::vector<std::int32_t>& edits) {
  for (const char c : formula) {
    if (c >= 'A' && c <= 'J') edits.push_back(control::EditOfLetter(c));
  }
}

/// The letters of the outline whose edits are empty or 0. A chuck may do without its bore.
QString MissingLetters(const DeviceType& type, const DeviceParams& params) {
  QString missing;
  for (const char letter : type.outline) {
    const bool mayBe0 = (params.type == 1 && letter == 'C') || (params.type == 2 && letter == 'F');
    if (ValueOf(params, letter) != 0 || mayBe0) continue;
    missing += (missing.isEmpty() ? QString() : QStringLiteral(", ")) + QLatin1Char(letter);
  }
  return missing;
}

void TellFault(Sketch& sketch, const QString& text, std::string_view letters) {
  sketch.fault = text;
  AddEditsIn(letters, sketch.wrong);
}

void FindNoNumber(Sketch& sketch, const DeviceType& type, const PageValues& values) {
  for (const char letter : type.keeps) {
    TellNoNumber(sketch, values, control::EditOfLetter(letter), QString(QLatin1Char(letter)));
  }
}

void FindBrokenRule(Sketch& sketch, const DeviceParams& params) {
  for (const char letter : FindDeviceType(params.type)->outline) {
    // The length of a chuck may have either sign.
    const bool mayBeBelow0 = params.type == 1 && letter != 'A';
    if (ValueOf(params, letter) >= 0 || mayBeBelow0) continue;
    return TellFault(sketch, Translate(kMustBeAbove0).arg(QLatin1Char(letter)), std::string(1, letter));
  }
  for (const DeviceRule& rule : DeviceRules()) {
    if (rule.type != params.type || Evaluate(rule.less, params) < Evaluate(rule.greater, params)) continue;
    TellFault(sketch, Translate(kMustBeLess).arg(Readable(rule.less), Readable(rule.greater)), rule.less);
    AddEditsIn(rule.greater, sketch.wrong);
    return;
  }
  const auto outline = OutlineOf(params);
  if (!IsSimple(outline)) TellFault(sketch, Translate(kNoOutline), FindDeviceType(params.type)->outline);
}

QPainterPath PathOf(const std::vector<OutlineVertex>& outline, double sign) {
  QPolygonF polygon;
  for (const OutlineVertex& vertex : outline) polygon.append(QPointF(vertex.x, sign * vertex.y));
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

/// The ends of a bore, which are seen between the two halves.
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

/// What is spun is cut above its axis and seen from outside below it.
void AddShapes(Sketch& sketch, const DeviceParams& params) {
  const auto outline = OutlineOf(params);
  const bool isSpun = FindDeviceType(params.type)->thickness == ' ';
  if (isSpun) AddBore(sketch, outline);
  if (isSpun) Add(sketch, Ink::kBody, PathOf(outline, -1));
  Add(sketch, Ink::kMaterial, PathOf(outline, 1));
  if (!isSpun) return;
  const QRectF box = sketch.shapes.back().path.boundingRect();
  const double beyond = box.width() * 0.08;
  Add(sketch, Ink::kAxis, Stroke({box.left() - beyond, 0}, {box.right() + beyond, 0}));
}

void AddMeasures(Sketch& sketch, const DeviceParams& params) {
  for (const DeviceMeasure& row : DeviceMeasures()) {
    if (row.type != params.type) continue;
    Measure measure;
    measure.kind = row.kind;
    measure.where = row.where;
    measure.lane = row.lane;
    measure.letter = QLatin1Char(row.letter);
    if (row.kind == Measure::Kind::kAngle && row.letter == 'E') measure.letter += QStringLiteral("/2");
    measure.control = control::EditOfLetter(row.letter);
    measure.from = {Evaluate(row.fromX, params), Evaluate(row.fromY, params)};
    measure.to = {Evaluate(row.toX, params), Evaluate(row.toY, params)};
    measure.at = row.at;
    if (row.kind == Measure::Kind::kCorner || measure.from != measure.to) sketch.measures.push_back(measure);
  }
}

/// What a side view cannot show.
void NoteThickness(Sketch& sketch, const DeviceType& type) {
  const LetterWords* const words = FindLetterWords(type.code, type.thickness);
  if (words != nullptr)
    sketch.notes.push_back(QLatin1Char(type.thickness) + QStringLiteral("  ") +
                           Translate(kUnseen).arg(Translate(words->name)));
}

}  // namespace

Sketch DeviceSketch(std::int32_t bitmap, const PageValues& values) {
  const DeviceType& type = *TypeOf(bitmap);
  DeviceParams params = ParamsOf(type, values);
  Sketch sketch;
  const QString missing = MissingLetters(type, params);
  FindNoNumber(sketch, type, values);
  if (sketch.fault.isEmpty() && missing.isEmpty()) FindBrokenRule(sketch, params);
  sketch.isExample = !sketch.fault.isEmpty() || !missing.isEmpty();
  if (sketch.isExample) params = ExampleOf(type.code);
  AddShapes(sketch, params);
  AddMeasures(sketch, params);
  NoteThickness(sketch, type);
  if (sketch.fault.isEmpty() && !missing.isEmpty()) sketch.notes.push_back(Translate(kExample).arg(missing));
  return sketch;
}

Sketch OwnDeviceSketch(std::int32_t bitmap, const PageValues& values) {
  // Shown by a device of the same kind.
  struct Alike {
    std::int32_t bitmap, type;
  };
  constexpr Alike kAlike[] = {{picture::kOwnChuck, 1},   {picture::kOwnCollet, 2},
                              {picture::kOwnMandrel, 3}, {picture::kOwnFaceDriver, 4},
                              {picture::kOwnJaw, 5},     {picture::kOwnCenter, 13}};
  const auto* const row = std::ranges::find(kAlike, bitmap, &Alike::bitmap);
  Sketch sketch;
  AddShapes(sketch, ExampleOf(row->type));
  sketch.isExample = true;
  sketch.notes.push_back(Translate(kFromVdm));
  FindNoNumber(sketch, *TypeOf(bitmap), values);
  return sketch;
}

}  // namespace vanzet::view::qt
