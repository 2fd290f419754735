#include "language/entities.h"

namespace vanzet::language {
namespace {

Fault Missing(const Entity& entity, const CommandLine& line) {
  return line.FaultHere(entity.Name() + " does not exist", FaultKind::kMissing);
}

template <class Value>
Result<Value> Find(const std::map<int, Value>& values, const Entity& entity, const CommandLine& line) {
  const auto value = values.find(entity.number);
  if (value == values.end()) return Missing(entity, line);
  return value->second;
}

/// Reads the name of an entity of that letter and finds it by `find`.
template <class Found, class Find>
Result<Found> ReadAndFind(char letter, std::string_view meaning, CommandLine& line, Find find) {
  VANZET_TRY(const auto entity, line.ReadEntity(letter, meaning));
  VANZET_TRY(const Found found, find(entity));
  VANZET_DO(line.ExpectWordEnd());
  return found;
}

}  // namespace

Result<geometry::CLine> LineOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings) {
  const geometry::CLine* const found = surroundings.board.FindLine(entity.number);
  if (found == nullptr) return Missing(entity, line);
  return *found;
}

Result<geometry::Point> PointOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings) {
  return Find(surroundings.board.workpieces.points, entity, line);
}

Result<geometry::Circle> CircleOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings) {
  return Find(surroundings.board.workpieces.circles, entity, line);
}

Result<geometry::CLine> LineOf(CommandLine& line, Surroundings& surroundings) {
  return ReadAndFind<geometry::CLine>(
      's', "a line like s1", line, [&](const Entity& entity) { return LineOf(entity, line, surroundings); });
}

Result<geometry::Point> PointOf(CommandLine& line, Surroundings& surroundings) {
  return ReadAndFind<geometry::Point>('p', "a point like p1", line, [&](const Entity& entity) {
    return PointOf(entity, line, surroundings);
  });
}

Result<geometry::Point> ReadCoordinates(CommandLine& line) {
  if (!line.SkipMark("X")) return line.Expected("'X' and a number");
  VANZET_TRY(const auto x, line.ReadWholeNumber("a number after 'X'"));
  if (!line.SkipMark("Y")) return line.Expected("'Y' and a number");
  VANZET_TRY(const auto y, line.ReadWholeNumber("a number after 'Y'"));
  return geometry::Point(x, y);
}

Result<void> AtStart(const CommandLine& line, const Result<void>& done) {
  if (done || !done.fault().file.empty()) return done;
  Fault fault = done.fault();
  if (fault.column == 0) fault.column = line.firstColumn();
  return fault;
}

}  // namespace vanzet::language
