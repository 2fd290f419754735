#include "devices/formula.h"

#include <cassert>
#include <cmath>
#include <numbers>

#include "base/numbers.h"

namespace vanzet {
namespace {

double TangentOfDegrees(double degrees) {
  return std::tan(degrees * std::numbers::pi / 180);
}

/// Below zero negated, all else as it is: "-abs B" of a zero is to come out with its sign turned.
double Magnitude(double value) {
  return value < 0 ? -value : value;
}

struct Function {
  std::string_view name;
  double (*compute)(double);
};
constexpr Function kFunctions[] = {{"abs", Magnitude}, {"tan", TangentOfDegrees}};

/// One walk over a formula, a function for each rule of its grammar.
class Evaluation {
 public:
  Evaluation(std::string_view formula, const DeviceParams& params) : rest_(formula), params_(params) {}

  double Whole() {
    const double value = Sum();
    assert(rest_.empty() && "a formula ends where its last product ends");
    return value;
  }

 private:
  double Sum() {
    double value = Take('-') ? Product(-Factor()) : Product(Factor());
    for (;;) {
      if (Take('+')) {
        value += Product(Factor());
      } else if (Take('-')) {
        value -= Product(Factor());
      } else {
        return value;
      }
    }
  }

  double Product(double value) {
    for (;;) {
      if (Take('*')) {
        value *= Factor();
      } else if (Take('/')) {
        value /= Factor();
      } else {
        return value;
      }
    }
  }

  double Factor() {
    for (const Function& function : kFunctions) {
      if (!rest_.starts_with(function.name)) continue;
      rest_.remove_prefix(function.name.size());
      Take(' ');
      return function.compute(Factor());
    }
    if (Take('(')) {
      const double value = Sum();
      Take(')');
      return value;
    }
    return LetterOrNumber();
  }

  double LetterOrNumber() {
    assert(!rest_.empty() && "a formula does not end on an operator");
    if (const char letter = rest_.front(); letter >= 'A' && letter <= 'J') {
      rest_.remove_prefix(1);
      return ValueOf(params_, letter);
    }
    const auto number = RealPrefix(rest_);
    assert(number && "a factor is a letter, a number, a function, or a formula in parentheses");
    rest_.remove_prefix(number->used);
    return number->value;
  }

  bool Take(char expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view rest_;
  const DeviceParams& params_;
};

}  // namespace

double Evaluate(std::string_view formula, const DeviceParams& params) {
  return Evaluation(formula, params).Whole();
}

}  // namespace vanzet
