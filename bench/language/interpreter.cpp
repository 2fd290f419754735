#include "language/interpreter.h"

#include <algorithm>

#include "language/commands.h"

namespace vanzet::language {
namespace {

using Kind = OperandKind;

/// A command that begins with one word or two.
struct Command {
  std::string_view words[2];
  OperandForms operands;
  Result<void> (*run)(const Operands& operands, Surroundings& surroundings);
  bool draws;  ///< uses the drawing, which must be loaded first
};

// clang-format off
constexpr Command kCommands[] = {
    { {"call", ""},         {{ {Kind::kName, "the name of a macro"}, {Kind::kRest} }},                                     CallMacro,          false },
    { {"copy", ""},         {{ {Kind::kContour, "a contour like k1"}, {Kind::kTransform, "a transform like m1"} }},        CopyContour,        true  },
    { {"del", ""},          {{ {Kind::kEntities, "an entity like s1, p1, c1, k1 or m1"} }},                                DeleteEntities,     true  },
    { {"dfm", "inf"},       {{ {Kind::kInteger, "the number of an object"} }},                                             ObjectInformation,  false },
    { {"dfm", "pick"},      {{ {Kind::kIntegerVariable, "an integer variable for the event"},
                               {Kind::kIntegerVariable, "an integer variable for the object"},
                               {Kind::kLongText, "the prompt"}, {Kind::kInteger, "what can be picked"} }},                 PickObject,         false },
    { {"dfm", "umark"},     {{ {Kind::kInteger, "the number of an object, or -1"} }},                                      ClearMarks,         false },
    { {"dll", "kelvane.dll"}, {{ {Kind::kWord, "exportVRML"}, {Kind::kQuoted, "the file"}, {Kind::kInteger, "1"},
                               {Kind::kInteger, "the number of a body"} }},                                                ExportBody,         false },
    { {"env", ""},          {{ {Kind::kQuoted, "the key"}, {Kind::kTextVariable, "a text variable"} }},                    ReadEnvironment,    false },
    { {"fig", "cre"},       {{ {Kind::kName, "the name of a figure"}, {Kind::kName, "the axes"} }},                        FigureCreate,       true  },
    { {"fig", "del"},       {{ {Kind::kName, "the name of a figure"}, {Kind::kWord, "yes"} }},                             FigureDelete,       true  },
    { {"fig", "ins"},       {{ {Kind::kName, "the name of a figure"}, {Kind::kTransform, "a transform like m1"} }},        FigureInsert,       true  },
    { {"figure", "append"}, {{ {Kind::kName, "the name of a figure"}, {Kind::kContour, "a contour like k1"} }},            FigureAppend,       true  },
    { {"file", "a"},        {{ {Kind::kQuoted, "an empty text"}, {Kind::kWord, "$_project"}, {Kind::kQuoted, "the key"},
                               {Kind::kLongText, "the value"} }},                                                          FileStore,          false },
    { {"file", "e"},        {{ {Kind::kQuoted, "an empty text"}, {Kind::kWord, "$_project"}, {Kind::kQuoted, "the key"},
                               {Kind::kTextVariable, "a text variable"} }},                                                FileRead,           false },
    { {"lay", "ch"},        {{ {Kind::kLayer, "a layer"} }},                                                               LayerChange,        true  },
    { {"lay", "del"},       {{ {Kind::kTitle, "the name of a layer"} }},                                                   LayerDelete,        true  },
    { {"mct", ""},          {{ {Kind::kWord, "turning"} }},                                                                BeginTurning,       false },
    { {"ori", ""},          {{ }},                                                                                         ResetOrigin,        false },
    { {"red", ""},          {{ {Kind::kInteger, "-1"} }},                                                                  Refresh,            true  },
    { {"rot", ""},          {{ {Kind::kTransform, "a transform like m1"}, {Kind::kAlongAxis, "an axis and degrees like x180"} }}, RotateTransform, false },
    { {"set", ""},          {{ {Kind::kTransform, "a transform like m1"} }},                                               SetTransform,       false },
    { {"sld", "ext"},       {{ {Kind::kWord, "kur"}, {Kind::kContour, "a contour like k1"}, {Kind::kReal, "the thickness"},
                               {Kind::kIntegerVariable, "an integer variable for the body"} }},                            ExtrudeContour,     true  },
    { {"sld", "rot"},       {{ {Kind::kInteger, "1"}, {Kind::kInteger, "the number of a body"},
                               {Kind::kReal, "the point and the direction of the axis and the degrees", 7} }},             TurnBody,           false },
    { {"sld", "spu"},       {{ {Kind::kWord, "kur"}, {Kind::kContour, "a contour like k1"},
                               {Kind::kReal, "the point and the direction of the axis and the degrees", 7},
                               {Kind::kIntegerVariable, "an integer variable for the body"} }},                            SpinContour,        true  },
    { {"sld", "tra"},       {{ {Kind::kInteger, "1"}, {Kind::kInteger, "the number of a body"},
                               {Kind::kReal, "two points, from and to", 6} }},                                             MoveBody,           false },
    { {"tra", ""},          {{ {Kind::kTransform, "a transform like m1"}, {Kind::kAlongAxis, "an axis and a length like x5"} }},  TranslateTransform, false },
    { {"vdm", "load"},      {{ {Kind::kQuoted, "the file"}, {Kind::kIntegerVariable, "an integer variable for the status"},
                               {Kind::kInteger, "the number of a VDM"} }},                                                 VdmLoad,            false },
    { {"vdm", "save"},      {{ {Kind::kQuoted, "the file"}, {Kind::kIntegerVariable, "an integer variable for the status"},
                               {Kind::kInteger, "the number of a VDM"} }},                                                 VdmSave,            false },
    { {"win", ""},          {{ {Kind::kInteger, "0 or 1"} }},                                                              SelectWindow,       false },
};

/// A line that begins with an entity.
struct Definition {
  char letter;
  bool hasEqualsSign;
  Result<void> (*run)(const Entity& entity, CommandLine& line, Surroundings& surroundings);
};
constexpr Definition kDefinitions[] = {
    { 'c', true,  DefineCircle  },
    { 'k', false, DefineContour },
    { 'p', true,  DefinePoint   },
    { 's', true,  DefineLine    },
};
// clang-format on

Result<void> RunDefinition(const Entity& entity, CommandLine& line, Surroundings& surroundings) {
  for (const Definition& definition : kDefinitions) {
    if (definition.letter != entity.letter) continue;
    if (definition.hasEqualsSign && !line.SkipMark("=")) return line.Expected("'=' after " + entity.Name());
    VANZET_DO(surroundings.board.Load());
    return definition.run(entity, line, surroundings);
  }
  return line.FaultHere("a line cannot begin with " + entity.Name());
}

Result<void> RunCommand(const Command& command, CommandLine& line, Surroundings& surroundings) {
  VANZET_TRY(const auto operands, ReadOperands(command.operands, line, surroundings.variables));
  if (command.draws) {
    VANZET_DO(surroundings.board.Load());
  }
  return command.run(operands, surroundings);
}

/// The fault after a first word of commands whose second word is not one of theirs.
Fault UnknownSecondWord(std::string_view first, const CommandLine& line) {
  std::string words;
  for (const Command& command : kCommands) {
    if (command.words[0] == first)
      words += (words.empty() ? "'" : ", '") + std::string(command.words[1]) + "'";
  }
  return line.Expected("one of " + words + " after '" + std::string(first) + "'");
}

}  // namespace

bool CanBeginLine(std::string_view text) {
  CommandLine line(text);
  const bool isWordAlone = text.find_first_of(" \t=") == std::string_view::npos;
  if (!isWordAlone && (line.ReadEntity("ckps") || line.ReadAssignment())) return true;
  return std::ranges::any_of(kCommands, [&](const Command& command) {
    const bool hasMore = !command.words[1].empty() || command.operands[0].kind != Kind::kNone;
    return CommandLine(text).SkipWord(command.words[0]) && !(isWordAlone && hasMore);
  });
}

Result<void> Run(std::string_view text, Surroundings& surroundings) {
  CommandLine line(text);
  if (const auto entity = line.ReadEntity("ckps")) return RunDefinition(*entity, line, surroundings);
  if (const auto variable = line.ReadAssignment()) return Assign(*variable, line, surroundings);
  std::string_view first;
  for (const Command& command : kCommands) {
    CommandLine words(text);
    if (!words.SkipWord(command.words[0])) continue;
    if (command.words[1].empty() || words.SkipWord(command.words[1]))
      return RunCommand(command, words, surroundings);
    first = command.words[0];
    line = words;
  }
  if (!first.empty()) return UnknownSecondWord(first, line);
  return Fault{.text = "unknown command '" + std::string(text) + "'", .column = 1};
}

}  // namespace vanzet::language
