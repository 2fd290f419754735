#include <CLI/CLI.hpp>
#include <cmath>
#include <map>

#include "base/quote.h"
#include "cli/contour_arguments.h"
#include "geometry/numerics.h"

/// The steps of `vanzet contour transform`.
namespace vanzet::cli {
namespace {

constexpr double kLargestMove = contour::kLargestCoordinate, kLargestTurn = 1e6, kLargestScale = 1e6;

void Move(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const geometry::Point move = ReadPoint(name, value, kLargestMove);
  matrix.Translate(move.x, move.y);
}

/// Quarter turns are exact, so that what lies on an axis stays on one.
void Turn(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double degrees = std::remainder(ReadReal(name, value, -kLargestTurn, kLargestTurn), 360);
  const double quarters = degrees / 90;
  double sine = std::sin(degrees * geometry::PI / 180), cosine = std::cos(degrees * geometry::PI / 180);
  if (quarters == std::round(quarters)) {
    sine = std::round(sine);
    cosine = std::round(cosine);
  }
  matrix.Rotate(sine, cosine, 3);
}

void Mirror(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  if (value != "x" && value != "y") {
    throw CLI::ValidationError(name, "expected x or y, found " + Quoted(value));
  }
  matrix.Scale(value == "y" ? -1 : 1, value == "x" ? -1 : 1, 1);
}

void Scale(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double factor = ReadReal(name, value, 1 / kLargestScale, kLargestScale);
  matrix.Scale(factor, factor, 1);
}

constexpr struct Step {
  const char* name;
  const char* value;
  const char* help;
  void (*apply)(const std::string& name, const std::string& value, geometry::Matrix& matrix);
} kStepRows[] = {
    {"--move", "X,Y", "move by X and Y", Move},
    {"--turn", "DEGREES", "turn anticlockwise about the origin", Turn},
    {"--mirror", "x|y", "mirror at this axis", Mirror},
    {"--scale", "F", "multiply all lengths", Scale},
};

}  // namespace

void AddContourSteps(CLI::App& command) {
  for (const Step& step : kStepRows) {
    command.add_option(step.name, step.help)
        ->type_name(step.value)
        ->expected(1, 1000)
        ->allow_extra_args(false);
  }
}

void TakeContourSteps(const CLI::App& command, geometry::Matrix& matrix) {
  std::map<std::string, std::size_t> taken;
  for (const CLI::Option* const option : command.parse_order()) {
    for (const Step& step : kStepRows) {
      if (option->get_name() != step.name) continue;
      step.apply(step.name, option->results().at(taken[step.name]++), matrix);
    }
  }
}

}  // namespace vanzet::cli
