#include <algorithm>

#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

/// Modules reserve this many bytes for the text of a variable.
constexpr std::size_t kTextBytes = 4096;

/// Gives a value and the flag of success through pointers, and to the trace.
template <class T>
T Give(const std::optional<T>& value, std::int32_t* ok, Json& out) {
  Put(ok, value ? 1 : 0);
  out = {value ? 1 : 0};
  return value.value_or(T{});
}

/// Sets a variable; a refusal is told by the flag, and on the panel with its reason.
template <class T>
void Write(Host& host, std::string_view name, T value, std::int32_t* ok, Json& out) {
  const bool written = Told(host, host.variables.Set(name, std::move(value)));
  Put(ok, written ? 1 : 0);
  out = {written ? 1 : 0};
}

}  // namespace

extern "C" {

void OrvoCommand(const char* line) {
  // A module never learns what became of a line; the panel does.
  Answer("OrvoCommand", {TextOf(line)}, [&](Host& host, Json&) { Told(host, host.Command(TextOf(line))); });
}

void OrvoMacroExec(const char* name, const char* arguments) {
  Answer("OrvoMacroExec", {TextOf(name), TextOf(arguments)},
         [&](Host& host, Json&) { Told(host, host.Macro(TextOf(name), TextOf(arguments))); });
}

std::int32_t OrvoReadGlobalI(const char* name, std::int32_t* ok) {
  return Answer("OrvoReadGlobalI", {TextOf(name)},
                [&](Host& host, Json& out) { return Give(host.variables.Integer(TextOf(name)), ok, out); });
}

double OrvoReadGlobalW(const char* name, std::int32_t* ok) {
  return Answer("OrvoReadGlobalW", {TextOf(name)},
                [&](Host& host, Json& out) { return Give(host.variables.Real(TextOf(name)), ok, out); });
}

void OrvoReadGlobalText(const char* name, char* buffer, std::int32_t* ok) {
  Answer("OrvoReadGlobal$", {TextOf(name)}, [&](Host& host, Json& out) {
    const std::string text = Give(host.variables.Text(TextOf(name)), ok, out).substr(0, kTextBytes - 1);
    if (buffer != nullptr) *std::ranges::copy(text, buffer).out = '\0';
    out.insert(out.begin(), text);
  });
}

void OrvoWriteGlobalI(const char* name, std::int32_t value, std::int32_t* ok) {
  Answer("OrvoWriteGlobalI", {TextOf(name), value},
         [&](Host& host, Json& out) { Write(host, TextOf(name), value, ok, out); });
}

void OrvoWriteGlobalText(const char* name, const char* value, std::int32_t* ok) {
  Answer("OrvoWriteGlobal$", {TextOf(name), TextOf(value)},
         [&](Host& host, Json& out) { Write(host, TextOf(name), std::string(TextOf(value)), ok, out); });
}
}
