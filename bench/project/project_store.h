#pragma once

#include "project/project.h"
#include "vdm/store.h"

namespace vanzet::project {

/// The store of a project, which keeps as many generations as the project's settings say.
inline vdm::VdmStore StoreOf(const Project& project) {
  return vdm::VdmStore(project.folder(), project.settings().store.keep);
}

}  // namespace vanzet::project
