#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vanzet {

/// The words that may have been meant by `word`, in their order: similar spelling, or one is part of the
/// other. Swapped neighbours count as one change, capital letters as small ones.
std::vector<std::string> NearWords(std::string_view word, const std::vector<std::string>& words);

/// The end of a message about an unknown word: "; did you mean 'show'?", with the nearest words, at most
/// three; parts only where no spelling is similar. Empty when no word is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& words);

}  // namespace vanzet
