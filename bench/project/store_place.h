#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "vdm/store_engine.h"

namespace vanzet::project {

/// The engine's name for the store in the project's own folder.
inline constexpr std::string_view kEmbedded = "store.db";

/// Where the VDMs of a project are kept.
struct StorePlace {
  std::string connection = {};          ///< of a PostgreSQL server; empty: `store.db` in the project's folder
  std::string project = {};             ///< its name on the server; empty: that of its folder
  std::int64_t keep = vdm::kUsualKeep;  ///< generations of each VDM
};

/// True for a connection text of PostgreSQL by its form: "postgresql://..." or "key=value ...". A path of
/// that form has a "./" before it.
bool IsConnectionText(std::string_view text);

/// The connection that an engine's name stands for: itself, or nothing for the embedded store. The fault does
/// not quote it: it may hold a password.
Result<std::string> ConnectionOf(std::string_view engine);

}  // namespace vanzet::project
