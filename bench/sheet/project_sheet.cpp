#include "sheet/project_sheet.h"

#include <algorithm>

#include "base/number_text.h"
#include "base/one_line.h"
#include "check/project_check.h"
#include "check/report.h"
#include "modeller/body_folder.h"
#include "project/machine_ini.h"
#include "project/project_store.h"
#include "results/definitions.h"
#include "results/equipment.h"
#include "section/picture.h"
#include "sheet/address.h"
#include "sheet/code.h"
#include "sheet/space.h"
#include "sheet/spur.h"
#include "show/missing.h"

namespace vanzet::sheet {
namespace {

using project::Project;
using vdm::Generation;

/// The definitions of a project, and the last generation that made them.
struct Stored {
  std::vector<results::SpurDefinition> spurs;
  Generation generation = {};  ///< number 0: the store counts none yet
};

Result<Generation> LastGeneration(const vdm::VdmStore& store) {
  VANZET_TRY(const auto changes, store.ListChanges({}));
  return changes.empty() ? Generation() : changes.back().generation;
}

/// Reads both until they are of one state.
Result<Stored> ReadStored(const Project& project) {
  const vdm::VdmStore store = project::StoreOf(project);
  VANZET_TRY(Generation generation, LastGeneration(store));
  for (;;) {
    VANZET_TRY(auto spurs, results::ReadDefinitions(project, store));
    VANZET_TRY(Generation after, LastGeneration(store));
    if (after == generation) return Stored{std::move(spurs), std::move(generation)};
    generation = std::move(after);
  }
}

Result<std::string> MachineOf(const Project& project) {
  const std::string ini = project.Environment("ppdefini");
  const auto file =
      project.paths().Resolve(DriveOf(ini).empty() ? project.Environment("-d") + "/" + ini : ini);
  return project::ReadMachineName(file, file.string());
}

/// Makes the sheet from what was read.
class Maker {
 public:
  Maker(const Project& project, const Options& options, const Words& words)
      : project_(project), options_(options), words_(words) {}

  Result<MadeSheet> Make(const Stored& stored, const std::vector<Spur>& spurs, const catalogue::Shop& shop) {
    VANZET_TRY(made_.summary.machine, MachineOf(project_));
    made_.summary.project = OneLine(std::filesystem::weakly_canonical(project_.folder()).filename().string());
    made_.sheet.language = options_.language;
    made_.sheet.paper = options_.paper;
    if (options_.hasPicture) {
      VANZET_TRY(made_.summary.picture, SmallPictureOf(spurs.front().model, words_));
    }
    AddHead(stored.generation);
    for (const Spur& spur : spurs) VANZET_DO(AddSpur(spur, shop));
    return std::move(made_);
  }

 private:
  void Add(Block block) { made_.sheet.blocks.push_back(std::move(block)); }

  void AddHead(const Generation& generation) {
    Sheet& sheet = made_.sheet;
    if (generation.number > 0) made_.summary.generation = std::to_string(generation.number);
    sheet.title = words_.With(Translatable("Set-up sheet: %1"), made_.summary.project);
    sheet.time = made_.summary.time = generation.time;
    sheet.footer = sheet.title;
    if (generation.number > 0) {
      sheet.footer +=
          ", " + words_(Translatable("generation")) + " " + made_.summary.generation + ", " + generation.time;
    }
    const std::string address = AddressOf(project_.folder());
    Beside head{{}, {FactsOf(generation, address)}};
    if (auto code = CodeSvg(address)) {
      constexpr double kSide = 32;  // millimetres
      head.picture = Picture{.bytes = *std::move(code),
                             .alternative = words_(Translatable("Code with the address of the project")),
                             .width = kSide,
                             .height = kSide};
    }
    Add(std::move(head));
  }

  Table FactsOf(const Generation& generation, const std::string& address) const {
    Table table{.caption = words_(Translatable("Project")),
                .headings = {words_(Translatable("Fact")), words_(Translatable("Value"))},
                .rows = {}};
    const auto add = [&](const char* name, const std::string& value) {
      if (!value.empty()) table.rows.push_back({words_(name), OneLine(value)});
    };
    add(Translatable("Project"), made_.summary.project);
    add(Translatable("Machine"), made_.summary.machine);
    add(Translatable("Generation"), made_.summary.generation);
    add(Translatable("Time"), generation.time);
    if (generation.number > 0) add(Translatable("Made by"), generation.user + ", " + generation.host);
    add(Translatable("Unit of lengths"), std::string(WordOf(words_.unit)));
    const auto& [speed, force, density] = project_.settings().job;
    if (speed) add(Translatable("Speed"), ShortDecimalText(*speed, 2) + " 1/min");
    if (force) add(Translatable("Clamping force"), ShortDecimalText(*force, 2) + " kN");
    table.rows.push_back({words_(Translatable("Address")), {address, address}});
    return table;
  }

  Result<void> AddSpur(const Spur& spur, const catalogue::Shop& shop) {
    ++made_.summary.spurs;
    const check::Counts counts = check::CountsOf(spur.findings);
    made_.summary.errors += counts.errors;
    made_.summary.warnings += counts.warnings;
    Add(Heading{2, words_.With(Translatable("Spur %1"), std::to_string(spur.number))});
    VANZET_DO(AddSection(spur));
    for (Table& table : SetUpTables(spur, words_)) Add(std::move(table));
    Add(Paragraph{words_(Translatable(
        "Z is measured from the datum of the machine in each spindle, and grows away from the spindle."))});
    for (Block& block : FindingBlocks(spur, words_)) Add(std::move(block));
    VANZET_TRY(auto devices, DeviceBlocks(spur, shop, words_));
    for (Block& block : devices) Add(std::move(block));
    if (Table own = OwnFiles(spur, project_.folder() / "bodies", words_); !own.rows.empty())
      Add(std::move(own));
    return AddSpace(spur);
  }

  Result<void> AddSection(const Spur& spur) {
    constexpr double kPart = 0.4;  // of the paper's height
    section::PictureOptions options{.unit = words_.unit};
    const section::PaperSize room{RoomOn(options_.paper), FormatOf(options_.paper).height * kPart};
    options.scale = section::ScaleFor(room, spur.section, options, words_.texts);
    VANZET_TRY(auto svg, section::PictureSvg(spur.section, options, words_.texts));
    const section::PaperSize size = section::SizeOf(spur.section, options, words_.texts);
    Add(Heading{3, words_(Translatable("Half section"))});
    Add(Picture{.bytes = std::move(svg),
                .alternative =
                    words_(Translatable("Half section of the set-up; its dimensions are in the next table")),
                .width = size.width,
                .height = size.height});
    return {};
  }

  Result<void> AddSpace(const Spur& spur) {
    VANZET_TRY(auto space, SpaceOf(spur, words_));
    Add(Heading{3, words_(Translatable("Equipment in space"))});
    Add(std::move(space));
    return {};
  }

  const Project& project_;
  const Options& options_;
  const Words& words_;
  MadeSheet made_;
};

Result<Spur> ReadSpur(const results::SpurDefinition& stored, const Project& project,
                      const modeller::Exchange& exchange) {
  const auto findBody = [&](const std::string& name) {
    return modeller::ImportNamedBodies({name}, project.folder() / "bodies", exchange, results::kForPictures)
        .at(name);
  };
  Spur spur;
  spur.number = stored.spur;
  spur.vdm = stored.vdm;
  spur.definition = *stored.definition;
  spur.equipment = scene::ReadEquipment(spur.definition);
  VANZET_TRY(spur.scene, results::SceneOf(project, spur.definition, exchange, findBody));
  VANZET_TRY(spur.model, scene::ModelOf(spur.scene));
  VANZET_TRY(spur.section, section::MakeSection(spur.equipment, spur.scene));
  return spur;
}

/// Fails for a spur that was asked for and does not exist, and for a damaged definition.
Result<void> CheckSpurs(const std::vector<results::SpurDefinition>& spurs, std::optional<std::int32_t> only) {
  const auto count = static_cast<std::int32_t>(spurs.size());
  if (only && *only >= count) {
    return Fault{.text = "spur " + std::to_string(*only) + " does not exist; the machine has " +
                         std::to_string(count) + (count == 1 ? " spur" : " spurs") + ", counted from 0",
                 .kind = FaultKind::kMissing};
  }
  for (const results::SpurDefinition& spur : spurs) {
    if (!spur.definition || !spur.definition->IsDamaged() || (only && *only != spur.spur)) continue;
    return Fault{.text = "the definition of spur " + std::to_string(spur.spur) + " is damaged",
                 .kind = FaultKind::kDamaged};
  }
  return {};
}

/// Why a sheet would be empty.
Fault NothingToShow(const Stored& stored, std::optional<std::int32_t> only) {
  const bool isDefined = std::ranges::any_of(stored.spurs, [&](const results::SpurDefinition& spur) {
    return spur.definition && (!only || *only == spur.spur);
  });
  const std::string subject = only ? "spur " + std::to_string(*only) : "the project";
  return Fault{.text = subject + (isDefined ? " has no equipment yet"
                                            : " has no definition yet; 'vanzet upgrade' creates it"),
               .kind = FaultKind::kMissing};
}

}  // namespace

Result<MadeSheet> MakeSheet(const Project& project, const Options& options, const Words& words,
                            const modeller::Exchange& exchange, project::MessagePanel& panel) {
  VANZET_TRY(const Stored stored, ReadStored(project));
  VANZET_DO(CheckSpurs(stored.spurs, options.spur));
  VANZET_TRY(const check::Terms terms, check::TermsOf(project));
  std::vector<Spur> spurs;
  for (const results::SpurDefinition& each : stored.spurs) {
    if (!each.definition || (options.spur && *options.spur != each.spur)) continue;
    if (show::IsEmpty(scene::ReadEquipment(*each.definition))) continue;
    VANZET_TRY(Spur spur, ReadSpur(each, project, exchange));
    for (const scene::MissingBody& body : spur.scene.missing) panel.Tell(body.fault);
    for (const Fault& fault : spur.model.missing) panel.Tell(fault);
    VANZET_TRY(spur.findings,
               check::CheckKnown({spur.number, spur.definition, spur.equipment, spur.scene}, project, terms));
    spurs.push_back(std::move(spur));
  }
  if (spurs.empty()) return NothingToShow(stored, options.spur);
  return Maker(project, options, words).Make(stored, spurs, terms.shop);
}

}  // namespace vanzet::sheet
