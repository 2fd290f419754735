#include "base/near_words.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/quote.h"

namespace vanzet {
namespace {

char Small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Small(std::string_view word) {
  std::string small(word);
  std::ranges::transform(small, small.begin(), [](char letter) { return Small(letter); });
  return small;
}

/// The number of changes that turn one word into the other: a letter more, less or replaced, or two
/// neighbours swapped. The rows of the table are those of `from`; three of them are kept.
std::size_t Distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> before, above(to.size() + 1), row(to.size() + 1);
  std::iota(above.begin(), above.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const bool isSame = from[i - 1] == to[j - 1];
      row[j] = std::min({above[j - 1] + (isSame ? 0 : 1), above[j] + 1, row[j - 1] + 1});
      const bool isSwapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before = std::exchange(above, row);
  }
  return above.back();
}

constexpr std::size_t kShortestPart = 3;     // shorter ones are part of anything
constexpr std::size_t kLongestWord = 100;    // longer ones are not misspelt words
constexpr std::size_t kPart = kLongestWord;  // the distance of a word of which the other is a part
constexpr std::size_t kFar = kPart + 1;

bool IsPart(std::string_view word, std::string_view candidate) {
  const auto& [part, whole] =
      std::minmax(word, candidate, [](const auto& a, const auto& b) { return a.size() < b.size(); });
  return part.size() >= kShortestPart && whole.find(part) != std::string_view::npos;
}

/// How far a word of that length may be from what was meant.
std::size_t AllowedChanges(std::size_t length) {
  constexpr std::size_t kShortWord = 3;
  return length <= kShortWord ? length / 2 : std::max<std::size_t>(2, length / 4);
}

/// The distance of a candidate, `kFar` when it is not near.
std::size_t DistanceOf(std::string_view candidate, std::string_view word) {
  const std::string known = Small(candidate), given = Small(word);
  if (known.empty()) return kFar;
  const std::size_t allowed = AllowedChanges(known.size());
  const std::size_t distance = given.size() < kLongestWord ? Distance(given, known) : kFar;
  if (distance <= allowed) return distance;
  return IsPart(given, known) ? kPart : kFar;
}

}  // namespace

std::vector<std::string> NearWords(std::string_view word, const std::vector<std::string>& words) {
  std::vector<std::string> near;
  std::ranges::copy_if(words, std::back_inserter(near),
                       [&](const std::string& candidate) { return DistanceOf(candidate, word) < kFar; });
  return near;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& words) {
  constexpr std::size_t kMost = 3;
  std::vector<std::string> near = NearWords(word, words);
  std::ranges::stable_sort(near, {}, [&](const std::string& each) { return DistanceOf(each, word); });
  const auto isPart = [&](const std::string& each) { return DistanceOf(each, word) == kPart; };
  if (!near.empty() && !isPart(near.front())) std::erase_if(near, isPart);
  std::string hint;
  for (std::size_t i = 0; i < near.size() && i < kMost; ++i) {
    hint += (i == 0 ? "; did you mean " : " or ") + Quoted(near[i]);
  }
  return hint.empty() ? "" : hint + "?";
}

}  // namespace vanzet
