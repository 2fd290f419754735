#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "store/store_fixture.h"

namespace vanzet::test {

inline constexpr std::uint32_t kSecondSpurVdm = 1001;

/// A host with a new definition for spur 0, and none for spur 1.
struct DefinitionWorld {
  DefinitionWorld() {
    host.integers = {{"i_billet_vdm", static_cast<std::int32_t>(kVdm)},
                     {"i_billet_vdm_spispur", static_cast<std::int32_t>(kSecondSpurVdm)}};
    BilletVdm(kVdm).ReOrg([](BilletVdm&, bool) {});
    host.TakeCalls();
  }

  FakeHost host;
};

class RecordTest : public testing::Test {
 protected:
  using Record = FakeHost::Record;

  /// The items of a record of the definition of spur 0, its header first.
  Record& Items(std::size_t operation) { return host.vdms.at(kVdm).records.at(operation); }

  DefinitionWorld world;
  FakeHost& host = world.host;
};

}  // namespace vanzet::test
