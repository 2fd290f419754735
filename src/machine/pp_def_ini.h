#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The equipment of the machine, from the post-processor ini and the host's environment keys.
namespace vanzet {

/// One steady rest. The numbers come from keys without an index, so those of one machine are all the same.
struct LunRecord {
  double x0Distance = 0;
  double maximumDiameter = 0;
  double rollDistance = 0;
  double rollDiameter = 0;
  std::string firstRotaryAxis;
  std::string secondRotaryAxis;
};

/// The machine definition.
///
/// Source   docs/formats/machine-ini.md
/// Errors   an ini that cannot be read is reported by one box when it is located; every read then gives its
///          default, and nothing else is reported
/// Story    without ReadMachineFacts every accessor asks the file or the host at each call; after it they
///          answer from what was read then
class PpDefIni {
 public:
  PpDefIni() = default;
  virtual ~PpDefIni() = default;

  /// Finds the ini by the host key "ppdefini", under the folder of the key "-d" when it has no drive.
  /// 0, or -1 after a box when it cannot be read; the path is kept all the same, so that no second box
  /// follows.
  int LocateIni();

  /// Reads the common facts. Always 0.
  int ReadMachineFacts();

  /// Reads everything: version, common facts, quick lathe, steady rests. Always 0.
  int ReadAll();

  std::int32_t GetSpindleSpurCount();  ///< 1 to 50
  bool IsLunAvailable();
  bool IsSubSpindleAvailable();
  bool IsTailStockAvailable();

  /// True when the channel (from 1) has an axis for rapid moves. Never answered from what was read before.
  bool HasRapidAxis(std::int32_t channel);

  // The facts that were read last, without asking again.
  const std::string& iniPath() const { return iniPath_; }
  std::int32_t generationVersion() const { return generationVersion_; }
  const std::string& machineName() const { return machineName_; }
  bool isLoaded() const { return loaded_; }
  bool isSwissTypeLathe() const { return swissTypeLathe_; }
  std::int32_t channelCount() const { return channelCount_; }
  bool isMainSpindleMoveable() const { return mainSpindleMoveable_; }
  bool isRapidAxisAvailable() const { return rapidAxisAvailable_; }
  bool isTrailOnAvailable() const { return trailOnAvailable_; }
  bool isMillingAvailable() const { return millingAvailable_; }
  bool isSubSpindleOnTurret() const { return subSpindleOnTurret_; }
  const std::vector<LunRecord>& steadyRests() const { return steadyRests_; }
  bool isQuickLathe() const { return quickLathe_; }

 private:
  /// Reads a key into the scratch text; the ini is located before the first read.
  const std::string& Read(std::string_view section, std::string_view key, std::string_view defaultText);
  std::int32_t ReadInteger(std::string_view key, std::string_view defaultText);
  bool ReadFlag(std::string_view key);
  double ReadReal(std::string_view key);

  /// Puts a key of the host's environment into the scratch text.
  void ReadFromHost(const std::string& key);

  /// The same as a number; the ini is located before it, as before a read from the ini.
  std::int32_t HostInteger(const std::string& key);
  bool HostFlag(const std::string& key);

  /// The shape of the accessors: the stored answer when loaded, else a fresh one from the host.
  bool HostFact(bool& field, const std::string& key);

  std::int32_t ReadChannelCount();
  void ReadSteadyRests();

  std::string iniPath_;
  std::int32_t generationVersion_ = -1;
  std::string machineName_;
  bool loaded_ = false;
  bool swissTypeLathe_ = false;
  std::int32_t channelCount_ = 1;
  std::int32_t spindleSpurCount_ = 1;
  bool mainSpindleMoveable_ = false;
  bool subSpindleAvailable_ = false;
  bool rapidAxisAvailable_ = false;
  bool tailStockAvailable_ = false;
  bool trailOnAvailable_ = false;
  bool lunAvailable_ = false;
  bool millingAvailable_ = false;
  bool subSpindleOnTurret_ = false;
  std::vector<LunRecord> steadyRests_;
  bool quickLathe_ = false;
  std::string scratch_;  ///< every read lands here first, cut at 1023 bytes; the path is built in it too
};

}  // namespace vanzet
