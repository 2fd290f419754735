#include "catalogue/kinds.h"

#include <algorithm>
#include <iterator>

#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

struct Row {
  std::int32_t type;
  std::string_view word;
};

// clang-format off
constexpr Row kRows[] = {
    {1,   "chuck"},
    {2,   "collet"},
    {3,   "mandrel"},
    {4,   "face_driver"},
    {5,   "jaw1"},
    {6,   "jaw2"},
    {7,   "jaw3"},
    {8,   "jaw4"},
    {9,   "jaw5"},
    {10,  "jaw6"},
    {11,  "jaw7"},
    {12,  "jaw8"},
    {13,  "centre1"},
    {14,  "centre2"},
    {103, "own_chuck"},
    {104, "own_jaw"},
    {105, "own_collet"},
    {106, "own_mandrel"},
    {107, "own_face_driver"},
    {115, "own_centre"},
};
// clang-format on

/// A word for several types.
struct Family {
  std::string_view word;
  const devices::Kind* kind;
};
constexpr Family kFamilies[] = {{"jaw", &devices::kJaw}, {"centre", &devices::kCenter}};

}  // namespace

std::string_view KindWord(std::int32_t type) {
  const auto* const row = std::ranges::find(kRows, devices::NewerCode(type), &Row::type);
  return row == std::end(kRows) ? std::string_view() : row->word;
}

std::vector<std::int32_t> TypesOfWord(std::string_view word) {
  std::vector<std::int32_t> types;
  const auto* const family = std::ranges::find(kFamilies, word, &Family::word);
  for (const Row& row : kRows) {
    const bool isInFamily = family != std::end(kFamilies) && family->kind->HasParametric(row.type);
    if (row.word == word || isInFamily) types.push_back(row.type);
  }
  return types;
}

std::vector<std::string> ParametricWords() {
  std::vector<std::string> words;
  for (const Row& row : kRows) {
    if (!devices::IsOwn(row.type)) words.emplace_back(row.word);
  }
  return words;
}

std::vector<std::string> FilterWords() {
  std::vector<std::string> words;
  for (const Row& row : kRows) words.emplace_back(row.word);
  for (const Family& family : kFamilies) words.emplace_back(family.word);
  return words;
}

DeviceParams Normalised(DeviceParams params) {
  DeviceParams kept{.type = devices::NewerCode(params.type)};
  for (const devices::Letter& each : devices::LettersOf(kept.type)) {
    LetterOf(kept, each.letter) = ValueOf(params, each.letter);
  }
  return kept;
}

DeviceParams ShownIn(const DeviceParams& params, LengthUnit unit) {
  DeviceParams shown = params;
  for (const devices::Letter& each : devices::LettersOf(params.type)) {
    if (each.unit != devices::Unit::kMillimetre) continue;
    LetterOf(shown, each.letter) = RoundedInUnit(ValueOf(params, each.letter), unit);
  }
  return shown;
}

}  // namespace vanzet::catalogue
