#include "project/variables.h"

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"

namespace vanzet::project {
namespace {

struct StartValue {
  std::string_view name;
  std::string_view value;
};

constexpr StartValue kStartValues[] = {
    {"i_billet_vdm", "1000"},
    {"i_billet_vdm_spispur", "1001"},
    {"i_diaprg", "0"},
    {"i_ret", "0"},
    {"i_return", "0"},
    {"i_return2", "0"},
    {"i_tool_collect_vdm", "1900"},
    {"w_return", "0"},
    {"w_return2", "0"},
    {"$_COUNTRY", ""},
    {"$_USER_DATA_SETTINGS", ""},
    {"$_helptopic", ""},
    {"$_misc", ""},
    {"$_project", ""},
    {"$_return", ""},
    {"$_root_dir", ""},
};

enum class Type { kInteger, kReal, kText, kNone };

Type TypeOf(std::string_view name) {
  if (name.size() < 2) return Type::kNone;
  switch (name.front()) {
    case 'i': return Type::kInteger;
    case 'w': return Type::kReal;
    case '$': return Type::kText;
    default: return Type::kNone;
  }
}

Fault NotOfType(std::string_view name, std::string_view what) {
  return Fault{"the variable " + std::string(name) + " cannot hold " + std::string(what) +
               ": the name of an integer begins with i, of a real with w, of a text with $"};
}

Fault NotANumber(std::string_view name, std::string_view what, std::string_view text) {
  return Fault{std::string(name) + ": expected " + std::string(what) + ", found " + Quoted(text)};
}

}  // namespace

bool Variables::IsInteger(std::string_view name) {
  return TypeOf(name) == Type::kInteger;
}

Variables::Variables() {
  for (const StartValue& start : kStartValues) {
    [[maybe_unused]] const Result<void> set = SetFromText(start.name, start.value);
    assert(set && "every start value is of its name's type");
  }
}

Result<void> Variables::Set(std::string_view name, std::int32_t value) {
  if (TypeOf(name) != Type::kInteger) return NotOfType(name, "an integer");
  values_.insert_or_assign(std::string(name), value);
  return {};
}

Result<void> Variables::Set(std::string_view name, double value) {
  if (TypeOf(name) != Type::kReal) return NotOfType(name, "a real");
  values_.insert_or_assign(std::string(name), value);
  return {};
}

Result<void> Variables::Set(std::string_view name, std::string value) {
  if (TypeOf(name) != Type::kText) return NotOfType(name, "a text");
  values_.insert_or_assign(std::string(name), std::move(value));
  return {};
}

Result<void> Variables::SetFromText(std::string_view name, std::string_view text) {
  switch (TypeOf(name)) {
    case Type::kInteger:
      if (const auto value = WholeInteger(text)) return Set(name, *value);
      return NotANumber(name, "an integer", text);
    case Type::kReal:
      if (const auto value = WholeReal(text)) return Set(name, *value);
      return NotANumber(name, "a number", text);
    case Type::kText: return Set(name, std::string(text));
    case Type::kNone: break;
  }
  return NotOfType(name, "a value");
}

std::map<std::string, std::string> Variables::Texts() const {
  struct Written {
    std::string operator()(std::int32_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return NumberText(value); }
    std::string operator()(const std::string& value) const { return "'" + value + "'"; }
  };
  std::map<std::string, std::string> texts;
  for (const auto& [name, value] : values_) texts[name] = std::visit(Written(), value);
  return texts;
}

}  // namespace vanzet::project
