#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/path_map.h"
#include "base/result.h"
#include "drawing/board.h"
#include "drawing/picks.h"
#include "geometry/kurve.h"
#include "modeller/body_table.h"
#include "modeller/mesh.h"
#include "project/variables.h"
#include "vdm/store.h"

namespace vanzet::language {

/// What lines ask of the project that they run in, beyond its variables, VDMs and drawing.
class Workplace {
 public:
  virtual ~Workplace() = default;

  /// A value of the host's environment, empty when there is none.
  virtual std::string Environment(std::string_view key) = 0;

  /// The project's own settings; one that is not there is empty.
  virtual Result<std::string> Setting(std::string_view key) = 0;
  virtual Result<void> SetSetting(std::string_view key, std::string_view value) = 0;

  /// The figures that stand as files beside the drawing, rising in the order of bytes.
  virtual std::vector<std::string> FigureFiles() = 0;

  /// The contours of one of them. A fault when there is none of that name.
  virtual Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string& name) = 0;

  /// Shows help on a topic; where nobody can, nothing happens.
  virtual Result<void> ShowHelp(const std::string& topic) = 0;
};

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
