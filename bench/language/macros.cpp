#include "language/commands.h"

/// The macros that the host has by name, run by `call` or from a module.
namespace vanzet::language {
namespace {

struct Macro {
  std::string_view name;
  Result<void> (*run)(CommandLine& arguments, Surroundings& surroundings);
};
constexpr Macro kMacros[] = {
    {"@@lay", LayerMacro},
    {"crebilfromfig", BilletFromFigures},
    {"loadhelp", LoadHelp},
    {"vbpickel", PickPosition},
};

const Macro* FindMacro(std::string_view name) {
  for (const Macro& macro : kMacros) {
    if (macro.name == name) return &macro;
  }
  return nullptr;
}

Fault Unknown(std::string_view name) {
  return Fault{"there is no macro '" + std::string(name) + "'"};
}

}  // namespace

Result<void> RunMacro(std::string_view name, std::string_view arguments, Surroundings& surroundings) {
  const Macro* const macro = FindMacro(name);
  if (macro == nullptr) return Unknown(name);
  CommandLine line(arguments);
  return macro->run(line, surroundings);
}

Result<void> RunMacro(const Operand& name, const Operand& arguments, Surroundings& surroundings) {
  const Macro* const macro = FindMacro(name.text);
  if (macro == nullptr) return name.At(Unknown(name.text));
  CommandLine line(arguments.text, arguments.column);
  return macro->run(line, surroundings);
}

Result<void> LoadHelp(CommandLine& arguments, Surroundings& surroundings) {
  VANZET_DO(arguments.End());
  const std::string topic = surroundings.variables.Text("$_helptopic").value_or("");
  if (topic.empty()) return arguments.FaultHere("$_helptopic names no topic");
  return surroundings.workplace.ShowHelp(topic);
}

}  // namespace vanzet::language
