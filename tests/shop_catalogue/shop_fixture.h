#pragma once

#include <gmock/gmock.h>

#include <string>

#include "catalogue/shop.h"

/// Catalogues for tests.
namespace vanzet::test {

inline const std::string kChuck =
    "Chuck 160\n1 80.000000 90.000000 22.500000 0.000000 0.000000 0.000000 "
    "0.000000 0.000000 0.000000 0.000000\n";
inline const std::string kJaw =
    "Soft jaw\n9 38.000000 62.000000 12.000000 24.000000 0.000000 0.000000 0.000000 "
    "0.000000 0.000000 0.000000\n";
inline const std::string kOwn = "Own chuck\n103 0.000000 55.000000\n";

inline catalogue::Shop ShopOf(const std::string& text) {
  return catalogue::ShopOfText(text, "shop.cld");
}

inline DeviceParams ChuckOf(double a, double b, double c) {
  return {.type = 1, .A = a, .B = b, .C = c};
}

}  // namespace vanzet::test
