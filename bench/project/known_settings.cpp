#include "project/known_settings.h"

#include <algorithm>

#include "base/files/whole_file.h"
#include "base/length_unit.h"
#include "base/letter_case.h"
#include "base/near_words.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "project/ini_edit.h"
#include "project/store_place.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::string_view kBench = "bench.ini", kMachine = "machine.ini";

/// Whole numbers from `least` to `most`; a setting without them takes any text.
struct Range {
  std::int32_t least, most;
};
constexpr Range kAny = {1, 0}, kYesOrNo = {0, 1}, kVdm = {0, 2147483647};

Result<void> CheckUnit(const std::string& value) {
  if (LengthUnitNamed(value)) return {};
  return Fault{"expected 'mm' or 'inch', found " + Quoted(value)};
}

Result<void> CheckEngine(const std::string& value) {
  const auto connection = ConnectionOf(value);
  return connection ? Result<void>() : connection.fault();
}

struct KnownSetting {
  std::string_view file, section, key;
  Range range;
  Result<void> (*check)(const std::string& value) = nullptr;  ///< null: by the range alone
};

// clang-format off
constexpr KnownSetting kSettings[] = {
    {kMachine, "COMMON",      "MACHINE_NAME",         kAny},
    {kMachine, "COMMON",      "NR_SPINDEL_SPUR",      {1, 50}},
    {kMachine, "COMMON",      "NR_OF_CHANNEL",        {1, 10}},
    {kMachine, "COMMON",      "NR_OF_LUN",            {0, 10}},
    {kMachine, "COMMON",      "LUN_MAX_DIAM",         kAny},
    {kMachine, "COMMON",      "LUN_ROLL_DIAM",        kAny},
    {kMachine, "COMMON",      "LUN_ROLL_DIST",        kAny},
    {kMachine, "COMMON",      "LUN_X0_DIST",          kAny},
    {kMachine, "COMMON",      "SWISS_TYPE_LATHE",     kYesOrNo},
    {kMachine, "COMMON",      "SUBSPINDLE_ON_TURRET", kYesOrNo},
    {kMachine, "COMMON",      "QuickLathe",           kYesOrNo},
    {kBench,   "environment", "SubSpindleAvailable",  kYesOrNo},
    {kBench,   "environment", "TailStockAvailable",   kYesOrNo},
    {kBench,   "environment", "LunAvailable",         kYesOrNo},
    {kBench,   "environment", "MillingAvailable",     kYesOrNo},
    {kBench,   "environment", "TrailOnAvailable",     kYesOrNo},
    {kBench,   "environment", "mainSpindleMoveable",  kYesOrNo},
    {kBench,   "environment", "NrOfChannels",         {1, 10}},
    {kBench,   "environment", "ppdefini",             kAny},
    {kBench,   "environment", "clampmdb",             kAny},
    {kBench,   "project",     "CLAMP_DB_PATH",        kAny},
    {kBench,   "project",     "unit",                 kAny, CheckUnit},
    {kBench,   "variables",   "i_billet_vdm",         kVdm},
    {kBench,   "variables",   "i_billet_vdm_spispur", kVdm},
    {kBench,   "language",    "messages",             kAny},
    {kBench,   "mesh",        "chord",                kAny},
    {kBench,   "mesh",        "angle",                kAny},
    {kBench,   "job",         "speed",                kAny},
    {kBench,   "job",         "force",                kAny},
    {kBench,   "job",         "density",              kAny},
    {kBench,   "store",       "keep",                 {0, 1000000}},
    {kBench,   "store",       "engine",               kAny, CheckEngine},
    {kBench,   "store",       "project",              kAny},
};
// clang-format on

std::string InSmallLetters(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), SmallLetter);
  return small;
}

Fault UnknownSetting(std::string_view key) {
  std::vector<std::string> small;
  for (const KnownSetting& setting : kSettings) small.push_back(InSmallLetters(setting.key));
  const auto near = NearWords(InSmallLetters(key), small);
  std::string hint;
  for (const KnownSetting& setting : kSettings) {
    const bool isNear = near.empty() || std::ranges::find(near, InSmallLetters(setting.key)) != near.end();
    if (isNear) hint += (hint.empty() ? "" : ", ") + std::string(setting.key);
  }
  return Fault{.text = "unknown setting " + Quoted(key) + "; " +
                       (near.empty() ? "the settings are: " : "did you mean: ") + hint,
               .kind = FaultKind::kMissing};
}

Result<void> CheckValue(const KnownSetting& setting, const std::string& value) {
  if (setting.check != nullptr) {
    const auto checked = setting.check(value);
    return checked ? checked : Fault{std::string(setting.key) + ": " + checked.fault().text};
  }
  const auto [least, most] = setting.range;
  if (least > most) return {};
  const auto number = WholeInteger(value);
  if (number && *number >= least && *number <= most) return {};
  return Fault{std::string(setting.key) + ": expected a whole number from " + std::to_string(least) + " to " +
               std::to_string(most) + ", found " + Quoted(value)};
}

}  // namespace

std::vector<std::string> KnownSettingKeys() {
  std::vector<std::string> keys;
  for (const KnownSetting& setting : kSettings) keys.emplace_back(setting.key);
  return keys;
}

Result<SettingChange> ReadSettingChange(std::string_view word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) return Fault{"expected KEY=VALUE, found " + Quoted(word)};
  const std::string_view key = word.substr(0, equals);
  const auto* const setting = std::ranges::find_if(
      kSettings, [&](const KnownSetting& each) { return EqualWithoutCase(each.key, key); });
  if (setting == std::end(kSettings)) return UnknownSetting(key);
  SettingChange change{setting->file, setting->section, setting->key, std::string(word.substr(equals + 1))};
  VANZET_DO(CheckValue(*setting, change.value));
  return change;
}

Result<void> ChangeSettings(const std::filesystem::path& folder, const std::vector<SettingChange>& changes) {
  for (const SettingChange& change : changes) {
    const std::filesystem::path file = folder / change.file;
    VANZET_TRY(const auto text, ReadTextFile(file, file.string()));
    VANZET_TRY(const auto edited, WithIniEntry(text, change.section, change.key, change.value));
    VANZET_DO(files::ReplaceFile(file, edited));
  }
  return {};
}

}  // namespace vanzet::project
