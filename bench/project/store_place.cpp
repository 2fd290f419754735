#include "project/store_place.h"

#include <algorithm>

namespace vanzet::project {

bool IsConnectionText(std::string_view text) {
  for (const std::string_view scheme : {"postgresql://", "postgres://"}) {
    if (text.starts_with(scheme)) return true;
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return false;
  std::string_view key = text.substr(0, equals);
  while (key.ends_with(' ')) key.remove_suffix(1);
  return !key.empty() && std::ranges::all_of(key, [](char c) { return (c >= 'a' && c <= 'z') || c == '_'; });
}

Result<std::string> ConnectionOf(std::string_view engine) {
  if (engine.empty() || engine == kEmbedded) return std::string();
  if (IsConnectionText(engine)) return std::string(engine);
  return Fault{
      "expected 'store.db' or the connection text of a PostgreSQL server: 'postgresql://...' or "
      "'host=... dbname=...'"};
}

}  // namespace vanzet::project
