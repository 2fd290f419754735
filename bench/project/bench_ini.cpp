#include "project/bench_ini.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "base/ini.h"

namespace vanzet::project {
namespace {

using Problem = std::optional<std::string>;

Problem AddDrive(BenchIni& ini, std::string key, const Setting& setting) {
  if (key.ends_with(':')) key.pop_back();
  const char letter = key.size() == 1 ? SmallLetter(key[0]) : '\0';
  if (letter < 'a' || letter > 'z') return "a drive is a letter from A to Z, not '" + key + "'";
  ini.drives.try_emplace(static_cast<char>(letter - 'a' + 'A'), setting.value);
  return std::nullopt;
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
