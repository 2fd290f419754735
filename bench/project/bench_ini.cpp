#include "project/bench_ini.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "base/ini.h"
#include "base/numbers.h"

namespace vanzet::project {
namespace {

using Problem = std::optional<std::string>;

Problem AddDrive(BenchIni& ini, std::string key, const Setting& setting) {
  if (key.ends_with(':')) key.pop_back();
  const char letter = key.size() == 1 ? SmallLetter(key[0]) : '\0';
  if (letter < 'a' || letter > 'z') return "a drive is a letter from A to Z, not '" + key + "'";
  if (setting.value.empty() || setting.value.find(';') != std::string::npos) {
    return "the root of a drive is a path without ';', not '" + setting.value + "'";
  }
  ini.drives.try_emplace(static_cast<char>(letter - 'a' + 'A'), setting.value);
  return std::nullopt;
}

Problem SetMesh(BenchIni& ini, std::string key, const Setting& setting) {
  struct Limit {
    std::string_view key;
    double BenchIni::Mesh::*value;
    double least, most;
    std::string_view range;
  };
  static constexpr Limit kLimits[] = {{"chord", &BenchIni::Mesh::chord, 0.0001, 100, "0.0001 to 100"},
                                      {"angle", &BenchIni::Mesh::angle, 0.1, 90, "0.1 to 90"}};
  for (const Limit& limit : kLimits) {
    if (!EqualWithoutCase(limit.key, key)) continue;
    const auto number = WholeReal(setting.value);
    if (!number || *number < limit.least || *number > limit.most) {
      return "'" + key + "' is a number from " + std::string(limit.range) + ", not '" + setting.value + "'";
    }
    ini.mesh.*limit.value = *number;
    return std::nullopt;
  }
  return "there is no setting '" + key + "' in [mesh]: 'chord' and 'angle' are";
}

template <auto Section>
Problem AddTo(BenchIni& ini, std::string key, const Setting& setting) {
  (ini.*Section).try_emplace(std::move(key), setting);
  return std::nullopt;
}

struct SectionRow {
  std::string_view name;
  Problem (*add)(BenchIni& ini, std::string key, const Setting& setting);
};

constexpr SectionRow kSections[] = {
    {"environment", AddTo<&BenchIni::environment>},
    {"variables", AddTo<&BenchIni::variables>},
    {"project", AddTo<&BenchIni::project>},
    {"language", AddTo<&BenchIni::language>},
    {"drives", AddDrive},
    {"mesh", SetMesh},
};

const SectionRow* FindSection(std::string_view name) {
  const auto* const row = std::ranges::find_if(
      kSections, [&](const SectionRow& section) { return EqualWithoutCase(section.name, name); });
  return row == std::end(kSections) ? nullptr : row;
}

}  // namespace

Result<BenchIni> ReadBenchIni(const std::string& text, const std::string& name) {
  std::istringstream stream(text);
  IniReader reader(stream);
  IniLine line;
  BenchIni ini;
  const SectionRow* section = nullptr;
  const auto fault = [&](std::string problem) {
    return Fault{std::move(problem), name, reader.LineNumber()};
  };
  while (reader.Next(line)) {
    if (line.kind == IniLine::Kind::kOther) return fault("expected '[section]' or 'key = value'");
    if (line.kind == IniLine::Kind::kSection) {
      section = FindSection(line.name);
      if (section == nullptr) return fault("there is no section [" + std::string(line.name) + "]");
    }
    if (line.kind != IniLine::Kind::kEntry) continue;
    if (section == nullptr) return fault("an entry stands before the first section");
    const Setting setting{std::string(line.value), reader.LineNumber()};
    if (const Problem problem = section->add(ini, std::string(line.name), setting)) return fault(*problem);
  }
  return ini;
}

}  // namespace vanzet::project
