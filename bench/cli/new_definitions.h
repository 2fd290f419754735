#pragma once

#include <optional>
#include <vector>

#include "project/message_panel.h"
#include "vdm/store.h"

namespace vanzet::cli {

/// Definitions that are made anew, as one piece of work: unless they are kept, the destructor puts the former
/// ones back, and takes away what was not there before. What another process holds by then is told on the
/// panel.
class NewDefinitions {
 public:
  /// All have to outlive it; `blank` is what a new definition holds.
  NewDefinitions(vdm::VdmStore& store, const vdm::Vdm& blank, project::MessagePanel& panel)
      : store_(store), blank_(blank), panel_(panel) {}
  ~NewDefinitions();
  NewDefinitions(const NewDefinitions&) = delete;
  NewDefinitions& operator=(const NewDefinitions&) = delete;

  /// Puts a new definition in the place of what the number held. A fault when it is open, here or elsewhere.
  Result<void> Make(std::uint32_t number);

  void Keep() { formers_.clear(); }

 private:
  struct Former {
    std::uint32_t number;
    std::optional<vdm::Vdm> content;
  };

  vdm::VdmStore& store_;
  const vdm::Vdm& blank_;
  project::MessagePanel& panel_;
  std::vector<Former> formers_;
};

}  // namespace vanzet::cli
