#pragma once

#include <string>

#include "base/result.h"

namespace vanzet::project {

/// Where the workbench tells what went wrong while a module or a macro line was at work; the work goes on.
/// On the command line it is standard error, in the window a panel.
class MessagePanel {
 public:
  virtual ~MessagePanel() = default;

  void Tell(const Fault& fault) {
    ++faults_;
    Show(fault.Message());
  }

  /// How many faults were told.
  int faults() const { return faults_; }

 protected:
  virtual void Show(const std::string& line) = 0;

 private:
  int faults_ = 0;
};

}  // namespace vanzet::project
