#include <cstdlib>
#include <sstream>

#include "fuzz/fuzz.h"
#include "store/billet_vdm.h"
#include "store/device_import.h"
#include "support/fake_host.h"
#include "vdm/vdm_file.h"

namespace {

using namespace vanzet;

constexpr std::uint32_t kDefinition = 1000, kSource = 1900;

/// A host that knows where the definition is, and a new one.
void SetUp(test::FakeHost& host) {
  host.integers = {{"i_billet_vdm", static_cast<std::int32_t>(kDefinition)}};
  host.environment = {{"ppdefini", "/dev/null"}, {"SubSpindleAvailable", "1"}};
  BilletVdm(kDefinition).ReOrg([](BilletVdm&, bool) {});
}

/// Puts the records of a .vdm text under the number of own devices.
bool PutSource(test::FakeHost& host, const std::string& text) {
  std::istringstream lines(text);
  const auto content = vdm::ReadVdm(lines, "own.vdm");
  if (!content) return false;
  auto& records = host.vdms[kSource].records;
  records.assign(content->Size(), {});
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto record = content->Read(i);
    if (!record) std::abort();
    for (std::size_t item = 0; item < (*record)->Size(); ++item) records[i].emplace_back((**record)[item]);
  }
  return true;
}

}  // namespace

/// Whatever an own device holds, the module takes it or not, and closes both VDMs.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::FakeHost host;
  static const auto fresh = (SetUp(host), host.vdms);
  host.keepsCalls = false;
  host.vdms = fresh;
  if (!PutSource(host, fuzz::TextOf(data, size))) return 0;
  for (const std::int32_t spindle : {0, 1}) static_cast<void>(ImportDevice(0, spindle, true, kSource));
  for (const auto& [number, vdm] : host.vdms) {
    if (vdm.handle != 0) std::abort();
  }
  host.lookUps.clear();
  host.boxes.clear();
  return 0;
}
