#include "window/docks/call_listener.h"

#include <algorithm>
#include <string_view>

#include <nlohmann/json.hpp>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

using api::Json;

std::string TextOf(const Json& value) {
  return value.is_string() ? value.get<std::string>()
                           : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Joined(const Json& values, const char* between) {
  std::string text;
  for (const Json& value : values) text += (text.empty() ? "" : between) + TextOf(value);
  return text;
}

std::string Line(const Json& arguments, const Json&, const Json&) {
  return Joined(arguments, " ");
}

std::string Number(const Json& arguments, const Json& result, const Json&) {
  return TextOf(arguments.at(0)) + " = " + TextOf(result);
}

std::string FirstOut(const Json& arguments, const Json&, const Json& out) {
  return TextOf(arguments.at(0)) + " = '" + (out.empty() ? "" : TextOf(out.at(0))) + "'";
}

/// The calls that are told in their own way.
struct CallRow {
  std::string_view call;
  MessageDock::Kind kind;
  std::string (*text)(const Json& arguments, const Json& result, const Json& out);
};
constexpr CallRow kCalls[] = {
    {"OrvoCommand", MessageDock::Kind::kLine, Line},
    {"OrvoMacroExec", MessageDock::Kind::kLine, Line},
    {"OrvoReadGlobalI", MessageDock::Kind::kAnswer, Number},
    {"OrvoReadGlobalW", MessageDock::Kind::kAnswer, Number},
    {"OrvoReadGlobal$", MessageDock::Kind::kAnswer, FirstOut},
};

}  // namespace

Result<void> CallListener::Write(const char* call, const Json& arguments, const Json& result,
                                 const Json& out) {
  const auto* const row = std::ranges::find(kCalls, std::string_view(call), &CallRow::call);
  const bool isTold = row != std::end(kCalls);
  const std::string given = result.is_null() ? "" : " = " + TextOf(result);
  messages_.Add(isTold ? row->kind : MessageDock::Kind::kCall,
                Shown(isTold ? row->text(arguments, result, out)
                             : std::string(call) + "(" + Joined(arguments, ", ") + ")" + given));
  afterCall_(isTold && row->kind == MessageDock::Kind::kLine);
  return {};
}

}  // namespace vanzet::window
