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

  /// The same for a call of a module, which goes on: what is refused after the system has failed follows from
  /// that, counts, and is not shown.
  void TellOfCall(const Fault& fault);

  /// The number of faults that were reported.
  int faults() const { return faults_; }

  /// True when a cause that stays was reported in this run.
  bool HasLastingCause() const { return !lastingCauses_.empty(); }

  /// True when a failure of the system was reported in this run, such as a full disk.
  bool HasSystemFailed() const { return hasSystemFailed_; }

  /// From now on causes that were shown before are shown again.
  void BeginRun();

 protected:
  virtual void Show(const Fault& fault) = 0;

 private:
  /// Takes note of a lasting cause.
  bool IsRepetition(const Fault& fault);

  int faults_ = 0;
  bool hasSystemFailed_ = false;
  std::set<std::string> lastingCauses_;  ///< as they were shown in this run
};

}  // namespace vanzet::project
