#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "macro/device_record.h"
#include "store/billet_vdm.h"
#include "support/fake_host.h"
#include "support/golden.h"
#include "support/temporary_folder.h"

namespace vanzet::test {

/// A face set as a host might write it; its lines begin anyhow.
inline constexpr const char* kFacets =
    "#VRML V2.0 utf8\n"
    "Shape {\n"
    "  geometry IndexedFaceSet {\n"
    "\tcoord Coordinate { point [\n"
    "0 0 0,\n"
    "   1 0 0,\n"
    "        \t 0 1 0\n"
    "    ] }\n"
    "  coordIndex\n"
    "    [\n"
    "  0 1 2 -1\n"
    "    ]\n"
    "  }\n"
    "}\n";

/// The lines of a device's VRML text around that: 15 before its 9 lines, 62 behind.
inline constexpr std::size_t kVrmlLines = 15 + 9 + 62;

/// A host in memory with a fresh definition, that exports a face set and makes bodies of these numbers.
class SimulationTest : public testing::Test {
 protected:
  static constexpr std::uint32_t kVdm = 1000;

  SimulationTest() {
    host.integers["i_billet_vdm"] = kVdm;
    host.integers["i_return"] = 7;
    host.environment["TMP"] = folder.path().string();
    BilletVdm(kVdm).ReOrg([](BilletVdm&, bool) {});
    host.TakeCalls();
    host.onCommand = [this](const std::string& line) {
      if (line.starts_with("dll kelvane.dll exportVRML ") && exports) WriteBytes(File(), kFacets);
    };
  }

  std::filesystem::path File() const { return folder / "tmpclamp.wrl"; }

  /// Puts a device, or a jaw, into the definition; `operation` is that of the spindle.
  void Define(std::size_t operation, const DeviceParams& device, const DeviceParams& jaw = {}) {
    // Section 1 stands behind header and label and holds name, values and options; section 2 follows.
    auto& items = host.vdms[kVdm].records[operation];
    items[3] = items[6] = "";
    PackDeviceParams(device, items[3]);
    PackDeviceParams(jaw, items[6]);
  }

  /// The items of a section, by the header.
  std::vector<std::string> Section(std::size_t operation, std::size_t section) {
    const std::vector<std::string> items = host.ItemsOf(kVdm, operation);
    std::istringstream header(items.at(0));
    std::size_t kind = 0, flag = 0, sections = 0, count = 0, first = 1;
    header >> kind >> flag >> sections;
    for (std::size_t i = 0; i <= section && i < sections; ++i) {
      first += count;
      header >> count;
    }
    if (section >= sections) return {};
    return {items.begin() + static_cast<std::ptrdiff_t>(first),
            items.begin() + static_cast<std::ptrdiff_t>(first + count)};
  }

  static std::string Text(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) text += item;
    return text;
  }

  /// What the host was told and asked that is not about its stores of text; the temporary folder is "TMP".
  std::string Conversation() {
    std::string text;
    for (std::string call : host.TakeCalls()) {
      if (call.starts_with("OrvoMacroVdm")) continue;
      if (const auto at = call.find(folder.path().string()); at != std::string::npos) {
        call.replace(at, folder.path().string().size(), "TMP");
      }
      text += call + "\n";
    }
    return text;
  }

  TemporaryFolder folder;
  FakeHost host;
  bool exports = true;  ///< whether the host's library writes a file
};

}  // namespace vanzet::test
