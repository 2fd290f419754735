#include "geometry/intersect.h"
#include "language/commands.h"
#include "language/entities.h"

/// Points and circles: p100=s100 s101, p101=X2 Y0, c100=p100 2.
namespace vanzet::language {
namespace {

using geometry::Point;

Result<Point> ReadCrossing(CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto a, LineOf(line, surroundings));
  VANZET_TRY(const auto b, LineOf(line, surroundings));
  const Point crossing = geometry::Intof(a, b);
  if (!crossing.ok) return line.FaultHere("the two lines do not meet: they are parallel");
  return crossing;
}

}  // namespace

Result<Point> ReadCoordinates(CommandLine& line) {
  if (!line.TakeMark("X")) return line.Expected("'X' and a number");
  VANZET_TRY(const auto x, line.WholeNumber("a number behind 'X'"));
  if (!line.TakeMark("Y")) return line.Expected("'Y' and a number");
  VANZET_TRY(const auto y, line.WholeNumber("a number behind 'Y'"));
  return Point(x, y);
}

Result<void> DefinePoint(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  if (line.Peek() != 's' && line.Peek() != 'X') return line.Expected("two lines, or 'X' and a number");
  VANZET_TRY(const auto point, line.Peek() == 's' ? ReadCrossing(line, surroundings) : ReadCoordinates(line));
  VANZET_DO(line.End());
  if (const auto near = drawing::CheckReach(point); !near) return AtStart(line, near);
  surroundings.board.workpieces.points.insert_or_assign(entity.number, point);
  return {};
}

Result<void> DefineCircle(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto centre, PointOf(line, surroundings));
  VANZET_TRY(const auto radius, line.WholeNumber("the radius"));
  const geometry::Circle circle(centre, radius);
  if (!circle.ValidRadius()) return line.FaultHere("the radius is not above 0");
  if (const auto near = drawing::CheckReach({radius, 0}); !near) return line.FaultHere(near.fault().text);
  VANZET_DO(line.End());
  surroundings.board.workpieces.circles.insert_or_assign(entity.number, circle);
  return {};
}

}  // namespace vanzet::language
