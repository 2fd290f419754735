#pragma once

#include <string>

#include "base/result.h"

namespace vanzet::project {

/// Receives the faults that happen while a module or a macro line is running, which continues. On the command
/// line it is standard error, in the window a panel.
class MessagePanel {
 public:
  virtual ~MessagePanel() = default;

  /// Shows the fault, unless its kind says that it was reported already; it counts all the same.
  void Tell(const Fault& fault) {
    ++faults_;
    if (fault.kind != FaultKind::kReported) Show(fault);
  }

  /// The number of faults that were reported.
  int faults() const { return faults_; }

 protected:
  virtual void Show(const Fault& fault) = 0;

 private:
  int faults_ = 0;
};

}  // namespace vanzet::project
