#include "language/commands.h"

/// The macros that the host has by name, run by `call` or from a module; among them the layer macro:
/// @@lay 'colour' 'style' 'colour' 'style' 'layer', and @@lay alone.
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

Fault MissingMacro(std::string_view name) {
  return Fault{.text = "macro '" + std::string(name) + "' does not exist", .kind = FaultKind::kMissing};
}

constexpr std::size_t kFields = 4;

/// The arguments of the macro; an empty field has no effect.
struct LayerArguments {
  std::string fields[kFields];  ///< colour and style, twice
  int columns[kFields] = {};
  std::string layer;
  int layerColumn = 0;
};

/// The name of the layer is between the last two quotes; one quote may be left over before them, since the
/// first quote of the name is sometimes doubled.
Result<LayerArguments> ReadArguments(CommandLine& arguments) {
  LayerArguments read;
  const int column = arguments.NextColumn();
  const std::string text(arguments.ReadRest());
  const std::size_t end = text.rfind('\''),
                    begin = end == 0 || end == std::string::npos ? end : text.rfind('\'', end - 1);
  if (end == std::string::npos || end == 0 || begin == std::string::npos || end + 1 != text.size()) {
    return Fault{.text = "expected the layer in single quotes at the end", .column = column};
  }
  read.layer = text.substr(begin + 1, end - begin - 1);
  read.layerColumn = column + static_cast<int>(begin);
  CommandLine fields(std::string_view(text).substr(0, begin), column);
  for (std::size_t i = 0; i < kFields && !fields.IsAtEnd(); ++i) {
    VANZET_TRY(const auto field, fields.ReadQuotedText("a colour or a line style"));
    read.fields[i] = field;
    read.columns[i] = fields.column();
  }
  fields.SkipMark("'");
  VANZET_DO(fields.ExpectEnd());
  return read;
}

/// The table row that the first non-empty of two fields names; `kept` when both are empty.
template <class Row>
Result<const Row*> Choose(const LayerArguments& arguments, std::size_t first, const Row* kept,
                          const Row* (*find)(std::string_view), const std::string& names) {
  const std::size_t field = arguments.fields[first].empty() ? first + 2 : first;
  const std::string& name = arguments.fields[field];
  const Row* const row = name.empty() ? kept : find(name);
  if (row != nullptr) return row;
  return Fault{.text = "expected " + names + ", found '" + name + "'", .column = arguments.columns[field]};
}

/// Makes the layer current, with the pen of the arguments.
Result<void> BeginLayer(const LayerArguments& arguments, drawing::Board& board) {
  const auto layer = board.drawing().layers.find(arguments.layer);
  const drawing::Pen old = layer == board.drawing().layers.end() ? drawing::Pen() : layer->second;
  VANZET_TRY(const auto colour,
             Choose(arguments, 0, old.colour, drawing::FindColour, drawing::ColourNames()));
  VANZET_TRY(const auto style,
             Choose(arguments, 1, old.style, drawing::FindLineStyle, drawing::LineStyleNames()));
  const auto begun = board.BeginLayer(arguments.layer, {colour, style});
  return begun ? begun : Fault{.text = begun.fault().text, .column = arguments.layerColumn};
}

}  // namespace

Result<void> RunMacro(std::string_view name, std::string_view arguments, Surroundings& surroundings) {
  const Macro* const macro = FindMacro(name);
  if (macro == nullptr) return MissingMacro(name);
  CommandLine line(arguments);
  return macro->run(line, surroundings);
}

Result<void> RunMacro(const Operand& name, const Operand& arguments, Surroundings& surroundings) {
  const Macro* const macro = FindMacro(name.text);
  if (macro == nullptr) return name.At(MissingMacro(name.text));
  CommandLine line(arguments.text, arguments.column);
  return macro->run(line, surroundings);
}

Result<void> CallMacro(const Operands& operands, Surroundings& surroundings) {
  return RunMacro(operands[0], operands[1], surroundings);
}

Result<void> LoadHelp(CommandLine& arguments, Surroundings& surroundings) {
  VANZET_DO(arguments.ExpectEnd());
  const std::string topic = surroundings.variables.Text("$_helptopic").value_or("");
  if (topic.empty()) return arguments.FaultHere("$_helptopic names no topic");
  return surroundings.workplace.ShowHelp(topic);
}

Result<void> LayerMacro(CommandLine& arguments, Surroundings& surroundings) {
  VANZET_DO(surroundings.board.Load());
  if (arguments.IsAtEnd()) {
    surroundings.board.EndLayer();
    return {};
  }
  VANZET_TRY(const auto read, ReadArguments(arguments));
  return BeginLayer(read, surroundings.board);
}

}  // namespace vanzet::language
