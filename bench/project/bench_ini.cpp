#include "project/bench_ini.h"

#include <algorithm>
#include <set>

#include "base/ini.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_stream.h"

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

/// A setting that is a number above 0.
Result<double> PositiveOf(const Entry& entry) {
  constexpr double kMost = 1e9;
  const auto number = WholeReal(entry.value);
  if (number && *number > 0 && *number <= kMost) return *number;
  return entry.reader.At(
      Quoted(entry.key) + " is a number above 0, up to 1000000000, not " + Quoted(entry.value), entry.value);
}

Result<void> SetJob(BenchIni& ini, const Entry& entry) {
  VANZET_TRY(const double number, PositiveOf(entry));
  if (EqualWithoutCase(entry.key, "speed")) {
    ini.job.speed = number;
  } else if (EqualWithoutCase(entry.key, "force")) {
    ini.job.force = number;
  } else if (EqualWithoutCase(entry.key, "density")) {
    ini.job.density = number;
  } else {
    return entry.reader.At(
        "unknown setting " + Quoted(entry.key) + " in [job]: expected 'speed', 'force' or 'density'",
        entry.key);
  }
  return {};
}

Result<void> SetKeep(BenchIni& ini, const Entry& entry) {
  constexpr std::int32_t kMost = 1'000'000;
  const auto number = WholeInteger(entry.value);
  if (!number || *number < 0 || *number > kMost) {
    return entry.reader.At("'keep' is a whole number from 0 to 1000000, not " + Quoted(entry.value),
                           entry.value);
  }
  ini.store.keep = *number;
  return {};
}

Result<void> SetEngine(BenchIni& ini, const Entry& entry) {
  auto connection = ConnectionOf(entry.value);
  if (!connection) return entry.reader.At("'engine': " + connection.fault().text, entry.value);
  ini.store.connection = *std::move(connection);
  return {};
}

Result<void> SetProjectName(BenchIni& ini, const Entry& entry) {
  ini.store.project = entry.value;
  return {};
}

Result<void> SetStore(BenchIni& ini, const Entry& entry) {
  struct Row {
    std::string_view key;
    Result<void> (*set)(BenchIni& ini, const Entry& entry);
  };
  static constexpr Row kRows[] = {{"engine", SetEngine}, {"project", SetProjectName}, {"keep", SetKeep}};
  for (const Row& row : kRows) {
    if (EqualWithoutCase(row.key, entry.key)) return row.set(ini, entry);
  }
  return entry.reader.At(
      "unknown setting " + Quoted(entry.key) + " in [store]: expected 'engine', 'project' or 'keep'",
      entry.key);
}

template <auto Section>
Result<void> AddTo(BenchIni& ini, const Entry& entry) {
  (ini.*Section).try_emplace(std::string(entry.key), entry.AsSetting());
  return {};
}

struct SectionRow {
  std::string_view name;
  Result<void> (*add)(BenchIni& ini, const Entry& entry);  ///< of equal keys it is called for the first
  bool mindsCase = false;                                  ///< keys that differ in case alone are not equal
};

constexpr SectionRow kSections[] = {
    {"environment", AddTo<&BenchIni::environment>},
    {"variables", AddTo<&BenchIni::variables>, true},
    {"project", AddTo<&BenchIni::project>},
    {"language", AddTo<&BenchIni::language>},
    {"drives", AddDrive},
    {"mesh", SetMesh},
    {"job", SetJob},
    {"check", AddTo<&BenchIni::check>},
    {"store", SetStore},
};

const SectionRow* FindSection(std::string_view name) {
  const auto* const row = std::ranges::find_if(
      kSections, [&](const SectionRow& section) { return EqualWithoutCase(section.name, name); });
  return row == std::end(kSections) ? nullptr : row;
}

/// The keys that a section had, with all of its parts.
class Keys {
 public:
  /// False for a key that the section had before.
  bool Add(const SectionRow& section, std::string_view key) {
    if (section.mindsCase) return true;
    return keys_[&section].insert(std::string(key)).second;
  }

 private:
  std::map<const SectionRow*, std::set<std::string, LessWithoutCase>> keys_;
};

Result<BenchIni> ReadEntries(const std::string& text, const std::string& name) {
  TextStream stream(text);
  IniReader reader(stream, name);
  IniLine line;
  BenchIni ini;
  Keys keys;
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
    if (keys.Add(*section, line.name)) VANZET_DO(section->add(ini, {reader, line.name, line.value}));
  }
  return ini;
}

bool MayHoldPassword(std::string_view line) {
  return line.find("password") != std::string_view::npos || line.find("://") != std::string_view::npos;
}

}  // namespace

Fault Setting::At(std::string text) const {
  Fault fault = place;
  fault.text = std::move(text);
  return fault;
}

Result<BenchIni> ReadBenchIni(const std::string& text, const std::string& name) {
  auto ini = ReadEntries(text, name);
  if (ini || !MayHoldPassword(ini.fault().source)) return ini;
  Fault fault = ini.fault();
  fault.source.clear();
  if (MayHoldPassword(fault.text)) fault.text = "this line is not understood";
  return fault;
}

}  // namespace vanzet::project
