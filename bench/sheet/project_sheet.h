#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "modeller/exchange.h"
#include "project/message_panel.h"
#include "project/project.h"
#include "sheet/sheet.h"
#include "sheet/words.h"

/// The sheet of a project.
namespace vanzet::sheet {

struct Options {
  std::optional<std::int32_t> spur;  ///< nothing: all that hold equipment
  Paper paper = Paper::kA4;
  std::string language = "en";  ///< the code of the language of the texts
  bool hasPicture = false;      ///< the summary gets a picture of the equipment
};

/// The facts of a sheet that a list of sheets shows.
struct Summary {
  std::string project, machine, generation;
  std::string time;  ///< of the generation, as it is stored; empty: none
  int spurs = 0;
  int errors = 0, warnings = 0;
  std::optional<Picture> picture = {};  ///< of the first spur, small
};

struct MadeSheet {
  Sheet sheet;
  Summary summary;
};

/// Gathers the facts of a project: its definitions and the generation that they are of, one state of the
/// store. Bodies that cannot be made are on the panel.
/// Errors   kMissing without such a spur, a definition, or any equipment; kDamaged for a damaged definition;
///          a catalogue, maker data or a severity that cannot be read
Result<MadeSheet> MakeSheet(const project::Project& project, const Options& options, const Words& words,
                            const modeller::Exchange& exchange, project::MessagePanel& panel);

}  // namespace vanzet::sheet
