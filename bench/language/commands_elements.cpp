#include "geometry/intersect.h"
#include "language/commands.h"
#include "language/entities.h"

/// Definitions of lines, points and circles: s100=h 0, s101=v 5, s102=5 ls100, s103=b45 p100, s104=p100 p101,
/// p100=s100 s101, p101=X2 Y0, c100=p100 2.
namespace vanzet::language {
namespace {

using geometry::CLine;
using geometry::Point;

Result<CLine> LineThrough(const Point& through, double degrees) {
  CLine line(through, drawing::DirectionOf(degrees), false);
  line.ok = true;
  return line;
}

Result<CLine> ReadHorizontal(CommandLine& line, Surroundings&) {
  VANZET_TRY(const auto height, line.ReadWholeNumber("the height of the line"));
  return LineThrough({0, height}, 0);
}

Result<CLine> ReadVertical(CommandLine& line, Surroundings&) {
  VANZET_TRY(const auto abscissa, line.ReadWholeNumber("the abscissa of the line"));
  return LineThrough({abscissa, 0}, 90);
}

Result<CLine> ReadAtAngle(CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto angle, line.ReadWholeNumber("the angle of the line"));
  VANZET_TRY(const auto through, PointOf(line, surroundings));
  return LineThrough(through, angle);
}

Result<CLine> ReadThroughPoints(CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto a, PointOf(line, surroundings));
  VANZET_TRY(const auto b, PointOf(line, surroundings));
  const CLine through(a, b);
  if (!through.ok) return line.FaultHere("the two points are the same");
  return through;
}

Result<CLine> ReadParallel(CommandLine& line, Surroundings& surroundings) {
  constexpr const char* kExpected = "'l' or 'r' and a line after the distance";
  VANZET_TRY(const auto distance, line.ReadNumber("h, v, b, two points, or a distance and a line"));
  const bool isLeft = line.SkipMark("l");
  if (!isLeft && !line.SkipMark("r")) return line.Expected(kExpected);
  VANZET_TRY(const auto other, LineOf(line, surroundings));
  return other.Parallel(isLeft ? distance : -distance);
}

struct Form {
  std::string_view mark;  ///< the start of the form
  Result<CLine> (*read)(CommandLine& line, Surroundings& surroundings);
};
constexpr Form kForms[] = {{"h", ReadHorizontal}, {"v", ReadVertical}, {"b", ReadAtAngle}};

Result<CLine> ReadLine(CommandLine& line, Surroundings& surroundings) {
  for (const Form& form : kForms) {
    if (line.SkipMark(form.mark)) return form.read(line, surroundings);
  }
  return line.Peek() == 'p' ? ReadThroughPoints(line, surroundings) : ReadParallel(line, surroundings);
}

Result<Point> ReadCrossing(CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto a, LineOf(line, surroundings));
  VANZET_TRY(const auto b, LineOf(line, surroundings));
  const Point crossing = geometry::Intof(a, b);
  if (!crossing.ok) return line.FaultHere("the two lines do not meet: they are parallel");
  return crossing;
}

}  // namespace

Result<void> DefineLine(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto defined, ReadLine(line, surroundings));
  VANZET_DO(line.ExpectEnd());
  return AtStart(line, surroundings.board.PutLine(entity.number, defined));
}

Result<void> DefinePoint(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  if (line.Peek() != 's' && line.Peek() != 'X') return line.Expected("two lines, or 'X' and a number");
  VANZET_TRY(const auto point, line.Peek() == 's' ? ReadCrossing(line, surroundings) : ReadCoordinates(line));
  VANZET_DO(line.ExpectEnd());
  if (const auto near = drawing::CheckReach(point); !near) return AtStart(line, near);
  surroundings.board.workpieces.points.insert_or_assign(entity.number, point);
  return {};
}

Result<void> DefineCircle(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto centre, PointOf(line, surroundings));
  VANZET_TRY(const auto radius, line.ReadWholeNumber("the radius"));
  const geometry::Circle circle(centre, radius);
  if (!circle.ValidRadius()) return line.FaultHere("the radius is not above 0");
  if (const auto near = drawing::CheckReach({radius, 0}); !near) return line.FaultHere(near.fault().text);
  VANZET_DO(line.ExpectEnd());
  surroundings.board.workpieces.circles.insert_or_assign(entity.number, circle);
  return {};
}

}  // namespace vanzet::language
