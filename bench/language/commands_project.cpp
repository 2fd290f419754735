#include "language/commands.h"

/// The project's environment and settings: env 'KEY' $_x, file e '' $_project 'KEY' $_x,
/// file a '' $_project 'KEY' 'value'.
namespace vanzet::language {
namespace {

/// The operands of both `file` commands begin alike: '' $_project 'KEY'.
Result<void> CheckProject(const Operands& operands) {
  if (operands[0].text.empty()) return {};
  return operands[0].At("expected an empty text: there is no file but the project's own");
}

}  // namespace

Result<void> ReadEnvironment(const Operands& operands, Surroundings& surroundings) {
  return surroundings.variables.Set(operands[1].text, surroundings.workplace.Environment(operands[0].text));
}

Result<void> FileRead(const Operands& operands, Surroundings& surroundings) {
  VANZET_DO(CheckProject(operands));
  VANZET_TRY(const auto value, surroundings.workplace.Setting(operands[2].text));
  return surroundings.variables.Set(operands[3].text, value);
}

Result<void> FileStore(const Operands& operands, Surroundings& surroundings) {
  VANZET_DO(CheckProject(operands));
  return operands[2].Told(surroundings.workplace.SetSetting(operands[2].text, operands[3].text));
}

}  // namespace vanzet::language
