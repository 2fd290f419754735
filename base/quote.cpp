#include "base/quote.h"

#include <algorithm>

#include "base/utf8.h"

namespace vanzet {

std::string Quoted(std::string_view word) {
  constexpr int kMostCharacters = 40;
  std::size_t shown = 0;
  for (int i = 0; i < kMostCharacters && shown < word.size(); ++i) {
    shown += std::max<std::size_t>(1, Utf8Length(word.substr(shown)));
  }
  return "'" + std::string(word.substr(0, shown)) + (shown < word.size() ? "...'" : "'");
}

}  // namespace vanzet
