#include "faults/commands.h"

namespace vanzet::faults {
namespace {

const Words kNew = {"new", "lathe", "--sample", "mill-turn"};
const Words kUpgrade = {"upgrade", "lathe"};
const Words kDefineOld = {"define", "old.json", "lathe"};
const Words kSave = {"vdm", "save", "lathe", "1000", "saved.vdm"};
const Words kSaveOther = {"vdm", "save", "lathe", "1001", "saved.vdm"};

const Words kDefineNew = {"define", "new.json", "lathe"};

const std::vector<Words> kEmpty = {kNew, kUpgrade};
const std::vector<Words> kDefined = {kNew, kUpgrade, kDefineOld};
const std::vector<Words> kDefinedTwice = {kNew, kDefineOld, kDefineNew};

}  // namespace

const std::vector<Command>& Commands() {
  // clang-format off
  static const std::vector<Command> commands = {
      {"New",              {},       kNew, false},
      {"Upgrade",          {kNew},   kUpgrade},
      {"Define",           kDefined, {"define", "new.json", "lathe"}},
      {"DefineDryRun",     kDefined, {"define", "new.json", "lathe", "--dry-run"}},
      {"Script",           kDefined, {"script", "lathe", "job.txt"}},
      {"ScriptTranscript", kDefined, {"script", "lathe", "job.txt", "--transcript", "transcript.jsonl"}},
      {"ScriptSaveDevice", kDefined, {"script", "lathe", "save_device.txt"}},
      {"ScriptDeleteDevice", kDefined, {"script", "lathe", "delete_device.txt"}, false},
      {"Show",             kDefined, {"show", "lathe"}},
      {"ShowJson",         kDefined, {"show", "lathe", "--json"}},
      {"Items",            kDefined, {"items", "lathe"}},
      {"VdmSave",          kDefined, kSave},
      {"VdmSaveOver",      {kNew, kUpgrade, kSave, kDefineOld}, kSave},
      {"VdmLoad",          {kNew, kUpgrade, kSaveOther, kDefineOld}, {"vdm", "load", "lathe", "saved.vdm", "1000"}},
      {"VdmCheck",         {kNew, kUpgrade, kSave}, {"vdm", "check", "saved.vdm"}},
      {"CommandDrawing",   kDefined, {"command", "lathe", "s100=h 0", "red -1"}},
      {"CommandSetting",   kDefined, {"command", "lathe", "file a '' $_project 'SHIFT' 'night'"}},
      {"CommandSave",      kDefined, {"command", "lathe", "vdm save '../saved.vdm' i_ret i_billet_vdm"}},
      {"CommandLoad",      {kNew, kUpgrade, kSaveOther, kDefineOld},
                           {"command", "lathe", "vdm load '../saved.vdm' i_ret i_billet_vdm"}},
      {"StoreCheck",       kDefined, {"store", "check", "lathe"}},
      {"StoreRepair",      kDefined, {"store", "repair", "lathe"}, true, true},
      {"StoreBackup",      kDefined, {"store", "backup", "lathe", "monday.db"}},
      {"StoreCopy",        kDefinedTwice, {"store", "copy", "lathe", "empty"}, false},
      {"History",          kDefinedTwice, {"history", "lathe"}},
      {"Diff",             kDefinedTwice, {"diff", "lathe", "2", "2"}},
      {"Restore",          kDefinedTwice, {"restore", "lathe", "2"}},
      {"RestoreDryRun",    kDefinedTwice, {"restore", "lathe", "2", "--dry-run"}},
      {"Migrate",          {kNew, kUpgrade, kSaveOther}, {"vdm", "load", "lathe", "saved.vdm", "1000"}, true, false, true},
      {"PictureSvg",       kDefined, {"picture", "lathe", "--out", "drawing.svg"}},
      {"PicturePng",       kDefined, {"picture", "lathe", "--view", "equipment", "--width", "80", "--height", "60",
                                      "--out", "equipment.png"}},
      {"ExportWrl",        kDefined, {"export", "lathe", "--out", "models", "--format", "wrl"}},
      {"ExportStl",        kDefined, {"export", "lathe", "--out", "models", "--format", "stl"}},
      {"ExportStep",       kDefined, {"export", "lathe", "--out", "models", "--format", "step"}},
      {"ExportGltf",       kDefined, {"export", "lathe", "--out", "models", "--format", "gltf"}},
      {"DeviceMake",       {},       {"device", "make", "--class", "chuck", "--body", "casting.step", "--outline",
                                      "slot.txt", "--face", "0", "--first", "30", "-o", "own.vdm"}},
      {"ContourInfo",      {},       {"contour", "info", "slot.txt"}},
      {"ContourTransform", {},       {"contour", "transform", "slot.txt", "--turn", "90", "--dxf", "turned.dxf", "--svg",
                                      "turned.svg"}},
  };
  // clang-format on
  return commands;
}

std::string FormOf(int outerDiameter) {
  const std::string side = R"({
    "chuck": {"name": "Chuck 210", "letters": {"A": 105, "B": 98, "C": 26}},
    "billet": {"kind": "cylinder", "outer_diameter": )" +
                           std::to_string(outerDiameter) + R"(, "part_length": 130,
      "front_allowance": 2, "rear_allowance": 2, "inner_diameter": 30, "shown": true}})";
  return R"({"spurs": [{"spur": 0, "main": )" + side + R"(}, {"spur": 1, "main": )" + side + "}]}\n";
}

}  // namespace vanzet::faults
