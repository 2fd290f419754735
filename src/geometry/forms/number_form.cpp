#include "geometry/forms/number_form.h"

#include "base/number_text.h"

namespace geometry {

std::string General(double value, int digits) {
  return vanzet::GeneralText(value, digits);
}

std::string Short(double value) {
  constexpr int kDigits = 3;
  constexpr std::size_t kWidth = 6;
  std::string text = General(value, kDigits);
  if (text.size() < kWidth) text.resize(kWidth, ' ');
  return text;
}

void Put(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace geometry
