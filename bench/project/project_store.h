#pragma once

#include <memory>
#include <utility>

#include "project/project.h"
#include "vdm/commit_origin.h"
#include "vdm/postgres/engine.h"
#include "vdm/store.h"

namespace vanzet::project {

/// A new session for a place on a server; null for the embedded store.
inline std::shared_ptr<vdm::PostgresSession> SessionAt(const StorePlace& place) {
  if (place.connection.empty()) return nullptr;
  return std::make_shared<vdm::PostgresSession>(place.connection, place.project);
}

/// The store at a place; the only function that chooses between the engines. `folder` has the text files that
/// change together with VDMs. On a server the store uses `session`, or a new one where it is null. Requires:
/// no other store uses the session.
inline vdm::VdmStore StoreAt(const StorePlace& place, const std::filesystem::path& folder,
                             std::shared_ptr<vdm::PostgresSession> session = nullptr) {
  if (place.connection.empty()) return vdm::VdmStore(folder, place.keep);
  if (session == nullptr) session = SessionAt(place);
  // On a server, folders of several machines may have the same path.
  const std::string owner = vdm::OriginOfProcess().host + ":" + folder.string();
  auto engine = std::make_unique<vdm::PostgresEngine>(std::move(session), owner);
  auto locks = engine->Locks();
  return {std::move(engine), std::move(locks), folder, place.keep};
}

/// The store of a project, as its settings say.
inline vdm::VdmStore StoreOf(const Project& project) {
  return StoreAt(project.settings().store, project.folder(), project.LendSession());
}

}  // namespace vanzet::project
