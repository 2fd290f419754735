#pragma once

#include <gmock/gmock.h>

#include <sstream>
#include <string>

#include "contour/contour_file.h"
#include "contour/library.h"
#include "contour/operations.h"
#include "geometry/units.h"

namespace vanzet::contour {

/// Tests in millimetres; the library's units are put back afterwards.
class ContourTest : public testing::Test {
 protected:
  ContourTest() { UseMillimetres(); }
  ~ContourTest() override { geometry::SetUnits(former_); }

  /// The contours of a text that is right.
  static Contours Read(const std::string& text) {
    std::istringstream stream(text);
    const auto contours = ReadText(stream, "c.txt");
    if (contours) return *contours;
    ADD_FAILURE() << contours.fault().Message();
    return {};
  }
  static Contour ReadOne(const std::string& text) {
    Contours contours = Read(text);
    EXPECT_EQ(contours.size(), 1U);
    return contours.empty() ? Contour() : contours.front();
  }

  /// The fault of a wrong text.
  static std::string FaultOf(const std::string& text) {
    std::istringstream stream(text);
    const auto contours = ReadText(stream, "c.txt");
    return contours ? "read" : contours.fault().Message();
  }

 private:
  std::int32_t former_ = geometry::GetUnits();
};

MATCHER_P3(IsAt, x, y, tolerance, "") {
  return std::fabs(arg.x - x) <= tolerance && std::fabs(arg.y - y) <= tolerance;
}

/// Anticlockwise about the origin: a square of 40 mm with corners of radius 8.
inline constexpr const char* kRoundedSquare =
    "k7 e x-12 y-20\nx12 y-20\nax20 y-12 x12 y-12\nx20 y12\nax12 y20 x12 y12\nx-12 y20\n"
    "ax-20 y12 x-12 y12\nx-20 y-12\nax-12 y-20 x-12 y-12\nek\n";

inline constexpr double kPi = 3.14159265358979323846;

}  // namespace vanzet::contour
