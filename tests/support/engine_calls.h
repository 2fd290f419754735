#pragma once

#include <string>

#include "vdm/store_engine.h"

namespace vanzet::test {

/// Changes one VDM of a store in a transaction of its own.
inline Result<void> ChangeIn(vdm::StoreEngine& engine, std::uint32_t number,
                             const std::optional<vdm::Vdm>& content) {
  vdm::Changes changes;
  changes.emplace(vdm::Number{number}, content);
  const std::string occasion = "test";
  return engine.Apply({changes, nullptr, occasion, {}});
}

inline Result<void> WriteTo(vdm::StoreEngine& engine, std::uint32_t number, const vdm::Vdm& content) {
  return ChangeIn(engine, number, content);
}

inline Result<void> RemoveFrom(vdm::StoreEngine& engine, std::uint32_t number) {
  return ChangeIn(engine, number, std::nullopt);
}

}  // namespace vanzet::test
