#pragma once

#include <string_view>

#include "base/path_map.h"
#include "base/result.h"
#include "drawing/board.h"
#include "drawing/pick_source.h"
#include "language/workplace.h"
#include "modeller/body_table.h"
#include "modeller/mesh.h"
#include "project/variables.h"
#include "vdm/store.h"

namespace vanzet::language {

/// What the lines of the macro language work on. It belongs to whoever made it.
struct Surroundings {
  project::Variables& variables;
  vdm::VdmStore& store;
  const PathMap& paths;
  drawing::Board& board;
  drawing::PickSource& picks;
  modeller::BodyTable& bodies;
  const modeller::MeshTolerance& mesh;
  Workplace& workplace;
};

/// Runs one line. An unknown or wrong line changes nothing; its fault tells the column, from 1, and what was
/// expected. The commands: docs/formats/macro-language.md.
Result<void> Run(std::string_view line, Surroundings& surroundings);

/// Runs a macro that the host has by name. Columns of faults count in the arguments.
Result<void> RunMacro(std::string_view name, std::string_view arguments, Surroundings& surroundings);

}  // namespace vanzet::language
