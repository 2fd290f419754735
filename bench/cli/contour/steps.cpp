#include <cmath>

#include "base/quote.h"
#include "cli/arguments.h"
#include "cli/contour/arguments.h"
#include "geometry/numerics.h"

/// The steps of `vanzet contour transform`.
namespace vanzet::cli {
namespace {

constexpr double kLargestMove = contour::kLargestCoordinate, kLargestTurn = 1e6, kLargestScale = 1e6;

void Move(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const geometry::Point move = PointOf(name, value, kLargestMove);
  matrix.Translate(move.x, move.y);
}

/// Quarter turns are exact, so that what lies on an axis stays on one.
void Turn(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double degrees = std::remainder(RealOf(name, value, -kLargestTurn, kLargestTurn), 360);
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
    throw WrongUsage{name, "expected x or y, found " + Quoted(value)};
  }
  matrix.Scale(value == "y" ? -1 : 1, value == "x" ? -1 : 1, 1);
}

void Scale(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double factor = RealOf(name, value, 1 / kLargestScale, kLargestScale);
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

void AddContourSteps(Command& command, geometry::Matrix& matrix) {
  for (const Step& step : kStepRows) {
    const auto take = [&](const std::string& name, const std::string& word) {
      step.apply(name, word, matrix);
    };
    command.AddOption(step.name, step.value, step.help, take).Repeatable();
  }
}

}  // namespace vanzet::cli
