#include "store/device_import.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "devices/kinds.h"
#include "host/fields.h"
#include "store/d2t_text.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

using devices::DeviceClass;
using OrvoApi::MillTurnVdm;

/// The sections of a source, all in one operation.
constexpr std::int32_t kSourceOperation = 1;
constexpr std::int32_t kLabels = 0;
constexpr std::int32_t kVrml = 1;
constexpr std::int32_t kFacts = 2;
constexpr std::int32_t kOutline = 3;

/// The sections of the target besides labels and VRML.
constexpr std::int32_t kD2t = 2;
constexpr std::int32_t kPlacement = 3;

/// The operations that take devices of one class.
struct ImportTarget {
  DeviceClass deviceClass;
  enum class By { kSpindle, kSubSpindleAvailable } by;  ///< what decides between the two
  std::int32_t otherwise;                               ///< the main spindle, or no sub spindle
  std::int32_t sub;
};

// clang-format off
constexpr ImportTarget kTargets[] = {
    { DeviceClass::kChuck,  ImportTarget::By::kSpindle,             clamp_operation::kMainClampDevice, clamp_operation::kSubClampDevice },
    { DeviceClass::kJaw,    ImportTarget::By::kSpindle,             clamp_operation::kMainJaw,         clamp_operation::kSubJaw         },
    { DeviceClass::kCenter, ImportTarget::By::kSubSpindleAvailable, clamp_operation::kSubClampDevice,  clamp_operation::kCenter         },
};
// clang-format on

/// A header may count far more items than there are. After the last one the host returns empty texts without
/// end; so many of them in a row are not a device's.
constexpr std::int32_t kEmptyItemsInARow = 1000;
/// A host that gives more items than this has lost count: the longest text of a device is far shorter.
constexpr std::int32_t kMostItems = 4'000'000;

std::optional<std::int32_t> TargetOperation(DeviceClass deviceClass, std::int32_t spindle,
                                            bool subSpindleAvailable) {
  const auto* const row = std::ranges::find(kTargets, deviceClass, &ImportTarget::deviceClass);
  if (row == std::end(kTargets)) return std::nullopt;
  const bool isSub = row->by == ImportTarget::By::kSpindle ? spindle != 0 : subSpindleAvailable;
  return isSub ? row->sub : row->otherwise;
}

/// The second field of the facts of a device; the others are not used here.
DeviceClass ReadDeviceClass(MillTurnVdm& source) {
  source.ItemSeek(kFacts, 0);
  std::string text;
  source.SingleGet(text);
  std::size_t position = 0;
  std::int32_t groupCode = 0;
  std::int32_t deviceClass = 0;
  host::ReadIntField(text, position, groupCode, 0);
  host::ReadIntField(text, position, deviceClass, 0);
  return static_cast<DeviceClass>(deviceClass);
}

/// Calls `use(item, isFirst, isLast)` for `count` items from the position on.
template <class Use>
void ForEachItem(MillTurnVdm& source, std::int32_t count, const Use& use) {
  count = std::min(count, kMostItems);
  std::string item;
  std::int32_t empty = 0;
  for (std::int32_t i = 0; i < count && empty < kEmptyItemsInARow; ++i) {
    source.SingleGet(item);
    empty = item.empty() ? empty + 1 : 0;
    use(item, i == 0, i == count - 1);
  }
}

void CopySection(MillTurnVdm& source, MillTurnVdm& target, std::int32_t section) {
  source.SectionEnter(section);
  target.SectionRewrite(section);
  ForEachItem(source, source.ItemCount(section),
              [&](const std::string& item, bool, bool) { target.ItemAdd(item); });
  target.SectionCommit();
}

/// An element of the outline. Its item holds a G code, X, Y, three numbers of no use here, and the radius.
D2tElement ElementFrom(const std::string& item) {
  std::size_t position = 0;
  std::int32_t gCode = 0;
  std::array<double, 6> reals = {};
  host::ReadIntField(item, position, gCode, 0);
  for (double& real : reals) host::ReadRealField(item, position, real, 0);
  return {gCode, reals[0], reals[1], reals[5]};
}

void WriteD2t(MillTurnVdm& source, MillTurnVdm& target) {
  target.SectionRewrite(kD2t);
  for (const std::string_view line : D2tHead()) target.ItemAdd(std::string(line));
  source.SectionEnter(kOutline);
  ForEachItem(source, source.ItemCount(kOutline), [&](const std::string& item, bool isFirst, bool isLast) {
    target.ItemAdd(D2tLine(ElementFrom(item), isFirst, isLast));
  });
}

void CopyDevice(MillTurnVdm& source, MillTurnVdm& target) {
  CopySection(source, target, kLabels);
  CopySection(source, target, kVrml);
  if (source.HasItems(kOutline, 1)) WriteD2t(source, target);
  // Without an outline this commits the section before once more.
  target.SectionCommit();
  target.SectionRewrite(kPlacement);
  target.ItemAdd("0 0 0");
  target.SectionCommit();
}

}  // namespace

std::int32_t ImportDevice(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                          std::uint32_t sourceNumber) {
  MillTurnVdm source(sourceNumber);
  if (!source.Open()) return kRecordFailed;
  source.OperationSelect(kSourceOperation);
  const DeviceClass deviceClass = ReadDeviceClass(source);
  const std::int32_t result = InsideDefinition(BilletVdm::VdmNumber(spur), [&](BilletVdm& definition) {
    const auto operation = TargetOperation(deviceClass, spindle, subSpindleAvailable);
    if (!operation) return false;
    definition.OperationSelect(*operation);
    CopyDevice(source, definition);
    return true;
  });
  source.Close();
  return result;
}

}  // namespace vanzet
