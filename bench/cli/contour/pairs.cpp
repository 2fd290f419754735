#include <cmath>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/output.h"
#include "contour/constructions.h"
#include "geometry/numerics.h"

/// The operations on two contours.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;
using geometry::Matrix;

constexpr int kDecimals = 4;
constexpr int kMostLinks = 400;

/// A motion: mirror at the x axis, turn, then move.
struct Motion {
  bool mirrored;
  double degrees;
  double x, y;
};

Motion MotionOf(Matrix matrix) {
  return {matrix.IsMirrored(), std::atan2(matrix.e[4], matrix.e[0]) * 180 / geometry::PI, matrix.e[3],
          matrix.e[7]};
}

std::string MotionText(const Motion& motion) {
  return std::string("the contours have the same shape\n") +
         (motion.mirrored ? "  mirror  at the x axis\n" : "") + "  turn    " +
         DecimalText(motion.degrees, kDecimals) + " degrees\n  move    " + DecimalText(motion.x, kDecimals) +
         ", " + DecimalText(motion.y, kDecimals) + "\n";
}

Json MotionJson(const std::optional<Matrix>& matrix) {
  if (!matrix) return {{"unit", "mm"}, {"same", false}};
  const Motion motion = MotionOf(*matrix);
  return {{"unit", "mm"},
          {"same", true},
          {"mirrored", motion.mirrored},
          {"turn", motion.degrees},
          {"move", Json::array({motion.x, motion.y})}};
}

}  // namespace

Result<void> ContourEqualise(const ContourArguments& arguments) {
  VANZET_TRY(const auto a, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto b, ReadOneContour(arguments, 1));
  VANZET_TRY(const auto equalised, Equalise(a, b, arguments.force));
  const Contours first = {equalised.a}, second = {equalised.b};
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &first, "A"});
  drawing.layers.push_back({Drawing::Role::kOther, &second, "B"});
  geometry::spVertex ofA, ofB;
  for (int i = 0; i < kMostLinks && equalised.a.curve.Get(i, ofA) && equalised.b.curve.Get(i, ofB); ++i) {
    drawing.links.push_back({ofA.p, ofB.p});
  }
  return WriteContours(arguments, drawing, {equalised.a, equalised.b});
}

Result<void> ContourSame(const ContourArguments& arguments) {
  VANZET_TRY(const auto a, ReadOneContour(arguments, 0));
  VANZET_TRY(const auto b, ReadOneContour(arguments, 1));
  const auto motion = MotionOnto(a, b, arguments.mirror);
  if (!motion) return motion.fault();
  const Contours first = {a}, second = {b};
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &first, "A"});
  drawing.layers.push_back({Drawing::Role::kOther, &second, "B"});
  if (*motion) drawing.links.push_back({a.curve.start, a.curve.start.Transform(**motion)});
  if (!*motion) AnswerNo(arguments);
  VANZET_DO(WritePicture(arguments, drawing));
  if (arguments.json) return PrintResult(arguments, MotionJson(*motion));
  const std::string none = "the contours do not have the same shape\n";
  return PrintResult(arguments, *motion ? MotionText(MotionOf(**motion)) : none);
}

}  // namespace vanzet::cli
