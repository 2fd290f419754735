#include "contour/number_text.h"

#include "base/number_text.h"

namespace vanzet::contour {
namespace {

std::string WithoutSignOfZero(std::string text) {
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

}  // namespace

std::string Number(double value, int digits) {
  return WithoutSignOfZero(GeneralText(value, digits));
}

std::string Fixed(double value, int decimals) {
  return WithoutSignOfZero(FixedText(value, decimals));
}

}  // namespace vanzet::contour
