#pragma once

#include <cstdint>
#include <functional>

#include "devices/device_params.h"
#include "store/clamp_schema.h"
#include "store/mill_turn_vdm.h"

namespace vanzet {

class BilletVdm;

/// Makes the simulation data of a jaw again, for one spindle of an open definition. The caller provides it,
/// because the store knows nothing of solids.
using SimulationRebuild = std::function<void(BilletVdm& definition, bool isSub)>;

/// The clamp definition of one spindle spur (store/clamp_schema.h).
class BilletVdm : public OrvoApi::MillTurnVdm {
 public:
  using MillTurnVdm::MillTurnVdm;
  ~BilletVdm() override = default;

  /// The VDM of a spindle spur: the number in `i_billet_vdm` for spur 0 and below, and for the others those
  /// from `i_billet_vdm_spispur` on.
  static std::uint32_t VdmNumber(std::int32_t spur);

  /// The version of the definition; 0 for one without a version. Selects operation 0.
  /// Requires: open.
  std::int32_t ReadVersion();

  /// Replaces the operation of that number by a new one from the schema. For a number above the schema the
  /// old operation is deleted, and a box is shown.
  bool OperationInit(std::int32_t operation);

  /// Upgrades the definition to the current version, or makes a missing one; a newer one is given up.
  /// The object ends closed. Always true: faults are reported, and the work goes on.
  /// Requires: constructed and closed.
  bool ReOrg(const SimulationRebuild& rebuildSimulation);

  /// The name and the values of a spindle's clamp device, and of its jaw. Spindle 0 is the main spindle, all
  /// else the sub spindle. False, after a box, when there is no item for the name; both then stay as they
  /// are. Requires: open.
  bool ReadDeviceItems(std::int32_t spindle, std::string& name, DeviceParams& params);
  bool ReadJawItems(std::int32_t spindle, std::string& name, DeviceParams& params);

  /// The same of the device at any place, and the other way. Writing makes the items that are missing.
  /// Requires: open.
  bool ReadDeviceAt(DevicePlace place, std::string& name, DeviceParams& params);
  void WriteDeviceAt(DevicePlace place, const std::string& name, const DeviceParams& params);

 private:
  /// The state that was found, also of a definition that was then given up.
  struct Found {
    std::int32_t version;
    std::int32_t operations;
  };

  /// Opens the definition or makes an empty one.
  Found OpenOrCreate();
  void GiveUpNewerVersion();
  void PadClampDevice(std::int32_t operation);
};

}  // namespace vanzet
