#include "project/bench_ini.h"

#include <algorithm>
#include <sstream>

#include "base/ini.h"
#include "base/numbers.h"
#include "base/quote.h"

namespace vanzet::project {
namespace {

/// An entry of the text, and the reader that is at its line.
struct Entry {
  const IniReader& reader;
  std::string_view key;
  std::string_view value;

  Setting AsSetting() const { return {std::string(value), reader.At({}, value)}; }
};

Result<void> AddDrive(BenchIni& ini, const Entry& entry) {
  std::string_view key = entry.key;
  if (key.ends_with(':')) key.remove_suffix(1);
  const char letter = key.size() == 1 ? SmallLetter(key[0]) : '\0';
  if (letter < 'a' || letter > 'z') {
    return entry.reader.At("a drive is a letter from A to Z, not " + Quoted(key), entry.key);
  }
  if (entry.value.empty() || entry.value.find(';') != std::string_view::npos) {
    return entry.reader.At("the root of a drive is a path without ';', not " + Quoted(entry.value),
                           entry.value);
  }
  ini.drives.try_emplace(static_cast<char>(letter - 'a' + 'A'), entry.value);
  return {};
}

Result<void> SetMesh(BenchIni& ini, const Entry& entry) {
  struct Limit {
    std::string_view key;
    double BenchIni::Mesh::*value;
    double least, most;
    std::string_view range;
  };
  // The least ones are those of modeller::MeshOf.
  static constexpr Limit kLimits[] = {{"chord", &BenchIni::Mesh::chord, 0.005, 100, "0.005 to 100"},
                                      {"angle", &BenchIni::Mesh::angle, 2, 90, "2 to 90"}};
  for (const Limit& limit : kLimits) {
    if (!EqualWithoutCase(limit.key, entry.key)) continue;
    const auto number = WholeReal(entry.value);
    if (!number || !(*number >= limit.least && *number <= limit.most)) {
      return entry.reader.At(Quoted(entry.key) + " is a number from " + std::string(limit.range) + ", not " +
                                 Quoted(entry.value),
                             entry.value);
    }
    ini.mesh.*limit.value = *number;
    return {};
  }
  return entry.reader.At("unknown setting " + Quoted(entry.key) + " in [mesh]: expected 'chord' or 'angle'",
                         entry.key);
}

Result<void> SetStore(BenchIni& ini, const Entry& entry) {
  constexpr std::int32_t kMost = 1'000'000;
  if (!EqualWithoutCase("keep", entry.key)) {
    return entry.reader.At("unknown setting " + Quoted(entry.key) + " in [store]: expected 'keep'",
                           entry.key);
  }
  const auto number = WholeInteger(entry.value);
  if (!number || *number < 0 || *number > kMost) {
    return entry.reader.At("'keep' is a whole number from 0 to 1000000, not " + Quoted(entry.value),
                           entry.value);
  }
  ini.keep = *number;
  return {};
}

template <auto Section>
Result<void> AddTo(BenchIni& ini, const Entry& entry) {
  (ini.*Section).try_emplace(std::string(entry.key), entry.AsSetting());
  return {};
}

struct SectionRow {
  std::string_view name;
  Result<void> (*add)(BenchIni& ini, const Entry& entry);
};

constexpr SectionRow kSections[] = {
    {"environment", AddTo<&BenchIni::environment>},
    {"variables", AddTo<&BenchIni::variables>},
    {"project", AddTo<&BenchIni::project>},
    {"language", AddTo<&BenchIni::language>},
    {"drives", AddDrive},
    {"mesh", SetMesh},
    {"store", SetStore},
};

const SectionRow* FindSection(std::string_view name) {
  const auto* const row = std::ranges::find_if(
      kSections, [&](const SectionRow& section) { return EqualWithoutCase(section.name, name); });
  return row == std::end(kSections) ? nullptr : row;
}

}  // namespace

Fault Setting::At(std::string text) const {
  Fault fault = place;
  fault.text = std::move(text);
  return fault;
}

Result<BenchIni> ReadBenchIni(const std::string& text, const std::string& name) {
  std::istringstream stream(text);
  IniReader reader(stream, name);
  IniLine line;
  BenchIni ini;
  const SectionRow* section = nullptr;
  while (reader.Next(line)) {
    if (line.kind == IniLine::Kind::kOther) return reader.At("expected '[section]' or 'key = value'");
    if (line.kind == IniLine::Kind::kSection) {
      section = FindSection(line.name);
      if (section == nullptr) {
        return reader.At("unknown section [" + std::string(line.name) + "]", line.name);
      }
    }
    if (line.kind != IniLine::Kind::kEntry) continue;
    if (section == nullptr) return reader.At("expected '[section]' before the first entry");
    VANZET_DO(section->add(ini, {reader, line.name, line.value}));
  }
  return ini;
}

}  // namespace vanzet::project
