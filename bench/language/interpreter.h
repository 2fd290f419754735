#pragma once

#include <filesystem>
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

/// The services of the project that macro lines use, beyond its variables, VDMs and drawing.
class Workplace {
 public:
  virtual ~Workplace() = default;

  /// A value of the host's environment, empty for an unknown key.
  virtual std::string Environment(std::string_view key) = 0;

  /// The project's own settings; a setting without a value is empty.
  virtual Result<std::string> Setting(std::string_view key) = 0;
  virtual Result<void> SetSetting(std::string_view key, std::string_view value) = 0;

  /// The names of the figures that are files next to the drawing, in the order of bytes.
  virtual std::vector<std::string> FigureFiles() = 0;

  /// Reads the contours of one of them. Fails with `kMissing` for an unknown name.
  virtual Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string& name) = 0;

  /// Asked before a command writes a file. False in a run that keeps nothing: the command then goes on as if
  /// it had written the file.
  virtual bool MayWrite(const std::filesystem::path& /*file*/) { return true; }

  /// True for a file that nobody needs after this run.
  virtual bool IsPassing(const std::filesystem::path& /*file*/) { return false; }

  /// Shows help on a topic, if help can be shown.
  virtual Result<void> ShowHelp(const std::string& topic) = 0;
};

/// The objects that macro lines work on. All of them belong to the caller.
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

/// True when a line can begin so: with a command, an entity or an assignment. A word alone has to be a whole
/// command.
bool CanBeginLine(std::string_view line);

/// Runs one line. An unknown or wrong line changes nothing; its fault has a column, from 1, and says what was
/// expected. The commands: docs/macro-language.md.
Result<void> Run(std::string_view line, Surroundings& surroundings);

/// Runs a macro of the host by its name. The columns of faults count in the arguments.
Result<void> RunMacro(std::string_view name, std::string_view arguments, Surroundings& surroundings);

}  // namespace vanzet::language
