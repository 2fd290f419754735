#include "machine/pp_def_ini.h"

#include <algorithm>

#include "base/files/regular_file.h"
#include "base/numbers.h"
#include "host/host_functions.h"
#include "platform/files.h"
#include "platform/host_extensions.h"
#include "platform/message_box.h"
#include "platform/private_profile.h"
#include "platform/split_path.h"

namespace vanzet {
namespace {

using host::hostFunctions;

constexpr std::string_view kCommon = "COMMON";
constexpr std::int32_t kMostChannels = 10;
constexpr std::int32_t kMostSpurs = 50;

}  // namespace

int PpDefIni::LocateIni() {
  ReadFromHost("ppdefini");
  platform::PathParts ini = platform::SplitPath(scratch_);
  if (ini.drive.empty()) {
    const platform::PathParts home = platform::SplitPath(hostFunctions.OrvoEnvironment("-d") + "\\");
    ini.drive = home.drive;
    ini.directory.insert(0, home.directory);
    scratch_ = platform::JoinPath(ini);
  }
  iniPath_ = scratch_;
  const std::filesystem::path file = platform::FileOf(iniPath_);
  const auto text = files::ReadWholeFile(file);
  if (text) return 0;
  // A machine without a file has the defaults; one whose file cannot be read would get them by mistake.
  const bool isThere = file.has_filename() && text.fault().kind != FaultKind::kMissing;
  if (isThere) platform::ReportFault(text.fault());
  platform::Show(
      {"File can not open for read", iniPath_, platform::box::kOk + platform::box::kExclamationIcon});
  return -1;
}

int PpDefIni::ReadMachineFacts() {
  machineName_ = Read(kCommon, "MACHINE_NAME", "-1");
  loaded_ = false;
  swissTypeLathe_ = ReadFlag("SWISS_TYPE_LATHE");
  channelCount_ = ReadChannelCount();
  GetSpindleSpurCount();
  // Set only, never cleared: an object that is read twice keeps a moveable main spindle.
  if (HostFlag("mainSpindleMoveable")) mainSpindleMoveable_ = true;
  IsSubSpindleAvailable();
  rapidAxisAvailable_ = false;
  for (std::int32_t channel = 1; channel <= channelCount_ && !rapidAxisAvailable_; ++channel) {
    rapidAxisAvailable_ = HasRapidAxis(channel);
  }
  IsTailStockAvailable();
  IsLunAvailable();
  trailOnAvailable_ = HostFlag("TrailOnAvailable");
  millingAvailable_ = HostFlag("MillingAvailable");
  subSpindleOnTurret_ = ReadFlag("SUBSPINDLE_ON_TURRET");
  loaded_ = true;
  return 0;
}

int PpDefIni::ReadAll() {
  generationVersion_ = ReadInteger("PP_GEN_Version", "-1");
  ReadMachineFacts();
  quickLathe_ = ReadFlag("QuickLathe");
  steadyRests_.clear();
  ReadSteadyRests();
  return 0;
}

std::int32_t PpDefIni::GetSpindleSpurCount() {
  if (loaded_) return spindleSpurCount_;
  const std::int32_t count = ReadInteger("NR_SPINDEL_SPUR", "-1");
  spindleSpurCount_ = count < 1 || count > kMostSpurs ? 1 : count;
  return spindleSpurCount_;
}

bool PpDefIni::IsLunAvailable() {
  return HostFact(lunAvailable_, "LunAvailable");
}

bool PpDefIni::IsSubSpindleAvailable() {
  return HostFact(subSpindleAvailable_, "SubSpindleAvailable");
}

bool PpDefIni::IsTailStockAvailable() {
  return HostFact(tailStockAvailable_, "TailStockAvailable");
}

bool PpDefIni::HasRapidAxis(std::int32_t channel) {
  // Channel 1 is described by the section B2.
  const std::string section = "B" + std::to_string(channel + 1);
  return IntegerOrZero(Read(section, "Rapid", "0")) >= 1;
}

const std::string& PpDefIni::Read(std::string_view section, std::string_view key,
                                  std::string_view defaultText) {
  if (iniPath_.empty()) LocateIni();
  scratch_ = platform::ReadProfileText(section, key, defaultText, iniPath_);
  return scratch_;
}

std::int32_t PpDefIni::ReadInteger(std::string_view key, std::string_view defaultText) {
  return IntegerOrZero(Read(kCommon, key, defaultText));
}

bool PpDefIni::ReadFlag(std::string_view key) {
  return ReadInteger(key, "-1") == 1;
}

double PpDefIni::ReadReal(std::string_view key) {
  Read(kCommon, key, "0");
  // Machine files with decimal commas exist.
  std::ranges::replace(scratch_, ',', '.');
  return RealOrZero(scratch_);
}

void PpDefIni::ReadFromHost(const std::string& key) {
  scratch_ = hostFunctions.OrvoEnvironment(key).substr(0, platform::kLongestProfileValue);
}

std::int32_t PpDefIni::HostInteger(const std::string& key) {
  if (iniPath_.empty()) LocateIni();
  ReadFromHost(key);
  return IntegerOrZero(scratch_);
}

bool PpDefIni::HostFlag(const std::string& key) {
  return HostInteger(key) == 1;
}

bool PpDefIni::HostFact(bool& field, const std::string& key) {
  if (!loaded_) field = HostFlag(key);
  return field;
}

std::int32_t PpDefIni::ReadChannelCount() {
  std::int32_t count = ReadInteger("NR_OF_CHANNEL", "-1");
  if (count == -1) count = HostInteger("NrOfChannels");
  return std::clamp(count, 1, kMostChannels);
}

void PpDefIni::ReadSteadyRests() {
  const std::int32_t count = ReadInteger("NR_OF_LUN", "0");
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string key = "LUN" + std::to_string(i) + "_ROTAXIS_NAME_";
    LunRecord rest;
    rest.firstRotaryAxis = Read(kCommon, key + "1", "");
    if (rest.firstRotaryAxis.empty()) return;
    rest.secondRotaryAxis = Read(kCommon, key + "2", "");
    if (rest.secondRotaryAxis.empty()) return;
    rest.maximumDiameter = ReadReal("LUN_MAX_DIAM");
    rest.rollDiameter = ReadReal("LUN_ROLL_DIAM");
    rest.rollDistance = ReadReal("LUN_ROLL_DIST");
    rest.x0Distance = ReadReal("LUN_X0_DIST");
    steadyRests_.push_back(std::move(rest));
  }
}

}  // namespace vanzet
