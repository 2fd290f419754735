#pragma once

#include <cstdint>
#include <vector>

#include "catalogue/shop.h"
#include "check/finding.h"
#include "project/definition.h"
#include "scene/equipment.h"
#include "scene/model.h"
#include "scene/scene.h"
#include "section/section.h"
#include "sheet/sheet.h"
#include "sheet/words.h"
#include "show/rows.h"

/// The part of a sheet that is about one spindle spur.
namespace vanzet::sheet {

/// A spur with all that its part shows.
///
/// Units    millimetres
struct Spur {
  std::int32_t number = 0;
  std::uint32_t vdm = 0;
  project::Definition definition;
  scene::Equipment equipment;
  scene::Scene scene;
  scene::Model model;
  section::Section section;
  std::vector<check::Finding> findings = {};
};

/// The page of the definition as rows, from which tables take the names and values of parts.
show::Rows PageRowsOf(const Spur& spur, const Words& words);

/// The tables of the clamping: a column for each spindle that holds something, and what both share.
std::vector<Table> SetUpTables(const Spur& spur, const Words& words);

/// The devices, each with a heading, its picture, its letters and the maker's data.
/// Fails only for a reason of the system.
Result<std::vector<Block>> DeviceBlocks(const Spur& spur, const catalogue::Shop& shop, const Words& words);

/// The devices of the shop's own and the named solids with their files, which are in the folder `bodies`.
/// Without any the table has no rows.
Table OwnFiles(const Spur& spur, const std::filesystem::path& bodies, const Words& words);

/// The findings of the check, and their counts.
std::vector<Block> FindingBlocks(const Spur& spur, const Words& words);

/// The name of a body for people: "Jaw: Soft jaw 160, 2".
std::string BodyLabel(const scene::SceneBody& body, const scene::Equipment& equipment, const Words& words);

}  // namespace vanzet::sheet
