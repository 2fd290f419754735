#pragma once

#include <string>
#include <vector>

namespace vanzet {

/// The words that may have been meant by `word`, in their order: similar spelling, or one is part of the
/// other.
std::vector<std::string> NearWords(const std::string& word, const std::vector<std::string>& words);

}  // namespace vanzet
