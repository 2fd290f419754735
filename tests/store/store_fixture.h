#pragma once

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "store/billet_vdm.h"
#include "support/fake_host.h"

namespace vanzet::test {

inline constexpr std::uint32_t kVdm = 1000;

/// The box that a class of the store shows for VDM 1000.
inline std::string StoreBox(const std::string& caption, const std::string& message) {
  return caption + "|1000: " + message + "|0";
}
inline std::string BaseBox(const std::string& message) {
  return StoreBox("OrvoApi::MacroVdm", message);
}
inline std::string MillTurnBox(const std::string& message) {
  return StoreBox("OrvoApi::MillTurnVdm", message);
}

/// A store of one VDM, its members in the open.
class ExposedVdm : public BilletVdm {
 public:
  ExposedVdm() : BilletVdm(kVdm) {}
  using BilletVdm::currentCount;
  using BilletVdm::currentOperation;
  using BilletVdm::currentSection;
  using BilletVdm::handle;
  using BilletVdm::operationFlag;
  using BilletVdm::operationKind;
  using BilletVdm::sectionItems;
};

class StoreTest : public testing::Test {
 protected:
  using Record = FakeHost::Record;

  /// Puts a VDM of these records into the host and opens it. What that took is not kept.
  void OpenOver(std::vector<Record> records) {
    host.vdms[kVdm].records = std::move(records);
    EXPECT_TRUE(vdm.Open());
    host.TakeCalls();
  }

  Record Items(std::size_t record) { return host.ItemsOf(kVdm, record); }
  std::size_t Records() { return host.vdms[kVdm].records.size(); }
  std::pair<std::int32_t, std::int32_t> Position() { return {host.vdms[kVdm].record, host.vdms[kVdm].item}; }

  FakeHost host;
  ExposedVdm vdm;
};

}  // namespace vanzet::test
