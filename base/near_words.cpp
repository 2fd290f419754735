#include "base/near_words.h"

#include <algorithm>
#include <numeric>

namespace vanzet {
namespace {

/// The number of letters that must be changed, added or removed to turn one word into the other.
std::size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char letter : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t change = diagonal + (letter == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({change, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> NearWords(const std::string& word, const std::vector<std::string>& words) {
  constexpr std::size_t kShortestPart = 3;   // shorter ones are part of anything
  constexpr std::size_t kLongestWord = 100;  // longer ones are not misspelt keys
  std::vector<std::string> near;
  for (const std::string& candidate : words) {
    if (candidate.empty()) continue;
    const std::size_t allowed =
        std::min(std::max<std::size_t>(2, candidate.size() / 3), candidate.size() - 1);
    const auto& [part, whole] =
        std::minmax(word, candidate, [](const auto& a, const auto& b) { return a.size() < b.size(); });
    const bool isPart = part.size() >= kShortestPart && whole.find(part) != std::string::npos;
    if (isPart || (word.size() < kLongestWord && Distance(word, candidate) <= allowed))
      near.push_back(candidate);
  }
  return near;
}

}  // namespace vanzet
