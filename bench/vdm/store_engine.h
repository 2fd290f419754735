#pragma once

#include <vector>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// Keeps closed VDMs, for this process and others. Who may write which VDM is the business of `VdmLocks`.
///
/// Shape      numbers, each with the last content written under it
/// Owns       what it keeps; it must outlive the VDMs that it opened, which fetch their records from it
/// Atomicity  a write or removal happens wholly or not at all, even when the process or the machine dies; a
///            read sees one state, never parts of two
/// Errors     a fault that names the store; the content of the store is then unchanged. The engine waits for
///            another process that is writing, and retries nothing else
class StoreEngine {
 public:
  StoreEngine() = default;
  virtual ~StoreEngine() = default;
  StoreEngine(const StoreEngine&) = delete;
  StoreEngine& operator=(const StoreEngine&) = delete;

  /// All numbers, in ascending order.
  virtual Result<std::vector<Number>> Numbers() = 0;

  virtual Result<bool> Exists(Number number) = 0;

  /// The VDM, its records still in the store. Nothing when it does not exist.
  /// Requires: nobody else writes or removes this number as long as the VDM is used.
  virtual Result<std::optional<Vdm>> Open(Number number) = 0;

  /// The VDM, wholly in memory and independent of any store. Nothing when it does not exist.
  virtual Result<std::optional<Vdm>> Read(Number number) = 0;

  /// Replaces the content under the number by `content`. Records that were opened from this number and not
  /// edited are not written again. Afterwards `content` no longer knows what the store keeps: do not write it
  /// a second time. Fails for a VDM that was opened when the records it was opened from no longer exist.
  virtual Result<void> Write(Number number, const Vdm& content) = 0;

  /// Does nothing when it does not exist.
  virtual Result<void> Remove(Number number) = 0;
};

}  // namespace vanzet::vdm
