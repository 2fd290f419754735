#pragma once

#include <set>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// Receives the faults that happen while a module or a macro line is running, which continues. On the command
/// line it is standard error, in the window a panel.
class MessagePanel {
 public:
  virtual ~MessagePanel() = default;

  /// Shows the fault; it counts also where it is not shown. Not shown are what was reported already (the kind
  /// `kReported`), and a cause that stays while the work goes on, such as a full disk, when it was shown in
  /// this run.
  void Tell(const Fault& fault) {
    ++faults_;
    if (fault.kind != FaultKind::kReported && !IsRepetition(fault)) Show(fault);
  }

  /// The number of faults that were reported.
  int faults() const { return faults_; }

  /// True when a cause that stays was reported in this run.
  bool HasLastingCause() const { return !lastingCauses_.empty(); }

  /// From now on causes that were shown before are shown again.
  void BeginRun() { lastingCauses_.clear(); }

 protected:
  virtual void Show(const Fault& fault) = 0;

 private:
  /// Takes note of a lasting cause.
  bool IsRepetition(const Fault& fault);

  int faults_ = 0;
  std::set<std::string> lastingCauses_;  ///< as they were shown in this run
};

}  // namespace vanzet::project
