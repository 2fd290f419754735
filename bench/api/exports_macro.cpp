#include <algorithm>

#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

/// Modules reserve this many bytes for the text of a variable.
constexpr std::size_t kTextBytes = 4096;

/// Returns a value or zero, and sets the flag of success, also in the trace.
template <class T>
T ValueOrZero(const std::optional<T>& value, std::int32_t* ok, Json& out) {
  Put(ok, value ? 1 : 0);
  out = {value ? 1 : 0};
  return value.value_or(T{});
}

/// Sets a variable; a failure clears the flag and is reported on the panel.
template <class T>
void SetVariable(Host& host, std::string_view name, T value, std::int32_t* ok, Json& out) {
  const bool written = Succeeded(host, host.variables.Set(name, std::move(value)));
  Put(ok, written ? 1 : 0);
  out = {written ? 1 : 0};
}

}  // namespace

extern "C" {

void OrvoCommand(const char* line) {
  // A module gets no result of a line; faults are reported on the panel.
  Answer("OrvoCommand", {TextOf(line)},
         [&](Host& host, Json&) { ReportFault(host, host.Command(TextOf(line))); });
}

void OrvoMacroExec(const char* name, const char* arguments) {
  Answer("OrvoMacroExec", {TextOf(name), TextOf(arguments)},
         [&](Host& host, Json&) { ReportFault(host, host.Macro(TextOf(name), TextOf(arguments))); });
}

std::int32_t OrvoReadGlobalI(const char* name, std::int32_t* ok) {
  return Answer("OrvoReadGlobalI", {TextOf(name)}, [&](Host& host, Json& out) {
    return ValueOrZero(host.variables.Integer(TextOf(name)), ok, out);
  });
}

double OrvoReadGlobalW(const char* name, std::int32_t* ok) {
  return Answer("OrvoReadGlobalW", {TextOf(name)}, [&](Host& host, Json& out) {
    return ValueOrZero(host.variables.Real(TextOf(name)), ok, out);
  });
}

void OrvoReadGlobalText(const char* name, char* buffer, std::int32_t* ok) {
  Answer("OrvoReadGlobal$", {TextOf(name)}, [&](Host& host, Json& out) {
    const std::string text =
        ValueOrZero(host.variables.Text(TextOf(name)), ok, out).substr(0, kTextBytes - 1);
    if (buffer != nullptr) *std::ranges::copy(text, buffer).out = '\0';
    out.insert(out.begin(), text);
  });
}

void OrvoWriteGlobalI(const char* name, std::int32_t value, std::int32_t* ok) {
  Answer("OrvoWriteGlobalI", {TextOf(name), value},
         [&](Host& host, Json& out) { SetVariable(host, TextOf(name), value, ok, out); });
}

void OrvoWriteGlobalText(const char* name, const char* value, std::int32_t* ok) {
  Answer("OrvoWriteGlobal$", {TextOf(name), TextOf(value)}, [&](Host& host, Json& out) {
    SetVariable(host, TextOf(name), std::string(TextOf(value)), ok, out);
  });
}
}
