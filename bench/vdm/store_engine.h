#pragma once

#include <vector>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Keeps closed VDMs, for this process and others. Who may write which VDM is not its business: see VdmLocks.
///
/// Shape      numbers, each with the last content written under it
/// Owns       what it keeps; it has to outlive the VDMs that it opened, which fetch their records from it
/// Atomicity  a write or removal happens wholly or not at all, though the process or the machine dies on the
///            way; a read sees one state, never parts of two
/// Errors     a fault that names the store; what is kept is then as it was. A store that another process is
///            just writing is waited for, nothing else is tried again
class StoreEngine {
 public:
  StoreEngine() = default;
  virtual ~StoreEngine() = default;
  StoreEngine(const StoreEngine&) = delete;
  StoreEngine& operator=(const StoreEngine&) = delete;

  /// All numbers, rising.
  virtual Result<std::vector<Number>> Numbers() = 0;

  virtual Result<bool> Exists(Number number) = 0;

  /// The VDM, its records still in the store. Nothing when there is none.
  /// Requires: nobody else writes or removes this number as long as the VDM is used.
  virtual Result<std::optional<Vdm>> Open(Number number) = 0;

  /// The VDM, wholly in memory and tied to no store. Nothing when there is none.
  virtual Result<std::optional<Vdm>> Read(Number number) = 0;

  /// Keeps `content` under the number instead of what was there. Records that were opened from this number
  /// and not edited are not written again. After it, `content` no longer knows what the store keeps: it is
  /// not to be written a second time. A VDM that was opened is refused when what it was opened from is no
  /// longer there.
  virtual Result<void> Write(Number number, const Vdm& content) = 0;

  /// Silent when there is none.
  virtual Result<void> Remove(Number number) = 0;
};

}  // namespace vanzet::vdm
