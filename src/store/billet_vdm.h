#pragma once

#include <cstdint>
#include <functional>

#include "store/mill_turn_vdm.h"

namespace vanzet {

class BilletVdm;

/// Makes the jaw's simulation data of one spindle of an open definition anew.
/// Handed in from above: the store knows nothing of solids.
using SimulationRebuild = std::function<void(BilletVdm& definition, bool isSub)>;

/// The clamp definition of one spindle spur (store/clamp_schema.h).
class BilletVdm : public OrvoApi::MillTurnVdm {
 public:
  using MillTurnVdm::MillTurnVdm;
  ~BilletVdm() override = default;

  /// The VDM of a spindle spur: the number in `i_billet_vdm` for spur 0 and below, and for the others those
  /// from `i_billet_vdm_spispur` on.
  static std::uint32_t VdmNumber(std::int32_t spur);

  /// The version of the definition, 0 when it has none. Selects operation 0.
  /// Requires: open.
  std::int32_t ReadVersion();

  /// Makes the operation of that number as the schema has it, in the place of the one that is there. A
  /// number above the schema costs the operation that is there and shows a box.
  bool OperationInit(std::int32_t operation);

  /// Brings the definition to the current version, making it when there is none; a newer one is given up.
  /// The object ends closed. Always true: faults are reported, and the work goes on.
  /// Requires: constructed and closed.
  bool ReOrg(const SimulationRebuild& rebuildSimulation);

 private:
  /// Opens the definition or makes it; returns its version and how many operations it has.
  struct Found {
    std::int32_t version;
    std::int32_t operations;
  };
  Found OpenOrCreate();
  void GiveUpNewerVersion();
  void PadClampDevice(std::int32_t operation);
};

}  // namespace vanzet
