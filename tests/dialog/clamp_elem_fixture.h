#pragma once

#include <string>

#include "dialog/dialog_fixture.h"

namespace vanzet::test {

/// A shop's catalogue with a few devices of each kind, and a definition to put devices into.
class ClampElem : public DialogTest {
 protected:
  static constexpr const char* kCatalogue =
      "Chuck 1\n1 80 90 20\n"
      "Collet 1\n2 1 2 3 4 5 6\n"
      "Jaw A\n5 1 2 3 4 5 6 7 8\n"
      "Chuck 2\n1 10 20 30\n"
      "Jaw C\n12 1 2 3 4 5 6 7 8\n"
      "Jaw B\n6 1 2 3 4 5 6 7 8\n"
      "Center 2\n14 1 2 3 4 5 6 7 8 9\n"
      "Center 1\n13 1 2 3 4 5 6 7\n"
      "Own\n103 0 4\n"
      "Mandrel 1\n3 1 2 3 4 5 6 7 8\n"
      "Driver 1\n4 1 2 3 4 5 6 7 8 9\n";

  ClampElem() { WriteBytes(world.catalogue, kCatalogue); }

  std::string& Item(std::size_t operation, std::size_t item) {
    return host.vdms[1000].records[operation][item];
  }

  void HoldsAChuckWithAJaw() {
    Item(1, 2) = "Chuck 1";
    Item(1, 3) = "1 80 90 20";
    Item(1, 4) = "1 4";
    Item(1, 5) = "Jaw A";
    Item(1, 6) = "5 1 2 3";
  }

  const std::string empty =
      "0 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000";
};

}  // namespace vanzet::test
