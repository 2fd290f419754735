#include "drawing/outline.h"
#include "language/commands.h"
#include "language/entities.h"

/// Contours: k30000 p100 as103 ts102 ch5 ac100 p101 ek, k30010 e X5 Y0 X-5 Y0 ek.
namespace vanzet::language {
namespace {

using drawing::Element;
using geometry::Kurve;

constexpr const char* kElements = "an element like p1, as1, ts1, ac1, tc1, ch5, or 'ek'";

Result<Element> ReadPoint(CommandLine& line, Surroundings& surroundings) {
  Element element{.kind = Element::Kind::kPoint};
  VANZET_TRY(const auto entity, line.ReadEntity('p', kElements));
  VANZET_TRY(const auto point, PointOf(entity, line, surroundings));
  element.point = point;
  element.name = entity.Name();
  return element;
}

Result<Element> ReadChamfer(CommandLine& line) {
  const int column = line.column();
  VANZET_TRY(const auto length, line.ReadNumber("the length of the chamfer"));
  return Element{.kind = Element::Kind::kChamfer, .length = length, .name = "a chamfer", .column = column};
}

/// Reads a line or a circle after its prefix. For a line the prefix has no meaning.
Result<Element> ReadCarrier(int direction, CommandLine& line, Surroundings& surroundings) {
  const auto entity = line.ReadEntity("sc");
  if (!entity) return line.Expected("a line or a circle after 'a' or 't'");
  Element element{.kind = Element::Kind::kLine, .direction = direction, .name = entity->Name()};
  if (entity->letter == 's') {
    VANZET_TRY(const auto found, LineOf(*entity, line, surroundings));
    element.line = found;
    return element;
  }
  VANZET_TRY(const auto found, CircleOf(*entity, line, surroundings));
  element.kind = Element::Kind::kCircle;
  element.circle = found;
  return element;
}

Result<Element> ReadElement(CommandLine& line, Surroundings& surroundings) {
  if (line.SkipMark("ch")) return ReadChamfer(line);
  const int column = line.NextColumn();
  const bool isAnticlockwise = line.SkipMark("a");
  const bool isCarrier = isAnticlockwise || line.SkipMark("t");
  auto element = isCarrier ? ReadCarrier(isAnticlockwise ? geometry::ACW : geometry::CW, line, surroundings)
                           : ReadPoint(line, surroundings);
  if (element) element->column = column;
  return element;
}

Result<Kurve> ReadOutline(CommandLine& line, Surroundings& surroundings) {
  std::vector<Element> elements;
  while (!line.SkipWord("ek")) {
    VANZET_TRY(auto element, ReadElement(line, surroundings));
    VANZET_DO(line.ExpectWordEnd());
    elements.push_back(std::move(element));
  }
  return drawing::OutlineOf(elements);
}

Result<Kurve> ReadExplicit(CommandLine& line) {
  std::vector<geometry::Point> corners;
  while (!line.SkipWord("ek")) {
    if (line.Peek() != 'X') return line.Expected("'X' and a number, or 'ek'");
    VANZET_TRY(const auto corner, ReadCoordinates(line));
    corners.push_back(corner);
  }
  return drawing::ClosedThrough(corners);
}

}  // namespace

Result<void> DefineContour(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  VANZET_DO(line.ExpectWordEnd());
  auto curve = line.SkipWord("e") ? ReadExplicit(line) : ReadOutline(line, surroundings);
  if (!curve) return AtStart(line, curve.fault());
  VANZET_DO(line.ExpectEnd());
  return AtStart(line, surroundings.board.PutContour(entity.number, std::move(*curve)));
}

Result<void> CopyContour(const Operands& operands, Surroundings& surroundings) {
  const Operand &contour = operands[0], &transform = operands[1];
  const Kurve* const curve = surroundings.board.FindContour(contour.number);
  if (curve == nullptr) return contour.Missing();
  VANZET_TRY(const auto placement, PlacementOf(transform, surroundings));
  return contour.WithPlace(
      surroundings.board.ReplaceContour(contour.number, drawing::PlaceCurve(*curve, placement)));
}

}  // namespace vanzet::language
