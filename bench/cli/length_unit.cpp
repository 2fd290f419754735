#include "cli/length_unit.h"

namespace vanzet::cli {

Parameter& AddUnit(Command& command, std::optional<LengthUnit>& unit, const std::string& help) {
  const auto take = [&unit](const std::string& /*name*/, const std::string& word) {
    unit = LengthUnitNamed(word);
  };
  return command.AddOption("--unit", "UNIT", help, take).OneOf({"mm", "inch"});
}

Parameter& AddUnit(Command& command, LengthUnit& unit) {
  const auto take = [&unit](const std::string& /*name*/, const std::string& word) {
    unit = *LengthUnitNamed(word);
  };
  return command.AddOption("--unit", "UNIT", "the unit of lengths; default: mm", take).OneOf({"mm", "inch"});
}

Result<LengthUnit> UnitOf(std::optional<LengthUnit> given, const project::Project& project) {
  if (given) return *given;
  return project::LengthUnitOf(project);
}

}  // namespace vanzet::cli
