#pragma once

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "geometry/units.h"

namespace geometry::testing {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Near the tolerance of millimetres; sums and small multiples of it are exact, so that limits can be met.
inline constexpr double kExactTolerance = 0.0078125;

/// Runs a test in one unit and puts back the unit and all tolerances afterwards.
class UnitsGuard {
 public:
  explicit UnitsGuard(std::int32_t units) { SetUnits(units); }
  ~UnitsGuard() { SetUnits(2); }
  UnitsGuard(const UnitsGuard&) = delete;
  UnitsGuard& operator=(const UnitsGuard&) = delete;
};

/// The wide string that `action` throws by value; empty when it throws none.
template <class Action>
std::wstring ThrownText(Action&& action) {
  try {
    action();
  } catch (const wchar_t* text) {
    return text;
  }
  return L"";
}

/// The text of the std::runtime_error that `action` throws; empty when it throws none.
template <class Action>
std::string ThrownError(Action&& action) {
  try {
    action();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

/// Numbers that are the same on every machine.
class Random {
 public:
  explicit Random(std::uint32_t seed) : engine_(seed) {}
  double Between(double low, double high) {
    return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
  }
  int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(count)); }

 private:
  std::mt19937 engine_;
};

}  // namespace geometry::testing
