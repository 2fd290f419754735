#include "base/path_map.h"

#include <algorithm>

#include "base/files/environment.h"

namespace vanzet {

std::optional<char> DriveLetter(std::string_view text) {
  if (text.size() < 2 || text[1] != ':') return std::nullopt;
  const char letter = text[0];
  if (letter >= 'A' && letter <= 'Z') return letter;
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
  return std::nullopt;
}

PathMap PathMap::OfProcess() {
  return PathMap(DrivesFromText(files::EnvironmentText("VANZET_DRIVES")));
}

std::string DrivesText(const PathMap::Drives& drives) {
  std::string text;
  for (const auto& [letter, root] : drives) {
    if (!text.empty()) text += ';';
    text += letter;
    text.append(":=").append(root);
  }
  return text;
}

PathMap::Drives DrivesFromText(std::string_view text) {
  PathMap::Drives drives;
  while (!text.empty()) {
    const std::string_view one = text.substr(0, text.find(';'));
    text.remove_prefix(std::min(text.size(), one.size() + 1));
    const auto letter = DriveLetter(one);
    if (letter && one.size() > 3 && one[2] == '=') drives[*letter] = one.substr(3);
  }
  return drives;
}

}  // namespace vanzet
