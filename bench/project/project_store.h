#pragma once

#include <memory>
#include <utility>

#include "project/project.h"
#include "vdm/commit_origin.h"
#include "vdm/postgres_engine.h"
#include "vdm/store.h"

namespace vanzet::project {

/// The store at a place; the only function that chooses between the engines. `folder` has the text files that
/// change together with VDMs.
inline vdm::VdmStore StoreAt(const StorePlace& place, const std::filesystem::path& folder) {
  if (place.connection.empty()) return vdm::VdmStore(folder, place.keep);
  // On a server, folders of several machines may have the same path.
  const std::string owner = vdm::OriginOfProcess().host + ":" + folder.string();
  auto engine = std::make_unique<vdm::PostgresEngine>(place.connection, place.project, owner);
  auto locks = engine->Locks();
  return {std::move(engine), std::move(locks), folder, place.keep};
}

/// The store of a project, as its settings say.
inline vdm::VdmStore StoreOf(const Project& project) {
  return StoreAt(project.settings().store, project.folder());
}

}  // namespace vanzet::project
