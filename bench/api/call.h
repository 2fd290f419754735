#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include <nlohmann/json.hpp>

#include "api/host.h"
#include "base/exception_fault.h"

/// The frame of every exported function: it works on the current host, catches all exceptions, and writes
/// the call to the trace.
namespace vanzet::api {

/// A text argument of a module; null is the empty text.
inline std::string_view TextOf(const char* text) {
  return text == nullptr ? std::string_view() : text;
}

/// Writes through a pointer argument of a module unless it is null.
template <class T>
void Put(T* place, T value) {
  if (place != nullptr) *place = value;
}

/// Stores the text in the host, from which the caller copies it, and returns its address.
inline const char* ReturnText(Host& host, std::string text) {
  host.returnedText = std::move(text);
  return host.returnedText.c_str();
}

/// Reports the fault of a failed result on the message panel.
template <class T>
void ReportFault(Host& host, const Result<T>& result) {
  if (!result) host.panel.TellOfCall(result.fault());
}

/// The same; returns whether the result is a success.
template <class T>
bool Succeeded(Host& host, const Result<T>& result) {
  ReportFault(host, result);
  return static_cast<bool>(result);
}

/// An argument of a call as the trace has it. Making one needs no memory and throws nothing, so that a call
/// fails within its frame only.
class Argument {
 public:
  template <class Number>
  requires std::is_integral_v<Number> Argument(Number number) : value_(static_cast<std::int64_t>(number)) {}
  Argument(std::string_view text) : value_(text) {}
  Argument(const RawMatrix& matrix) : value_(&matrix) {}

  Json AsJson() const {
    if (const auto* const matrix = std::get_if<const RawMatrix*>(&value_)) return **matrix;
    if (const auto* const text = std::get_if<std::string_view>(&value_)) return *text;
    return std::get<std::int64_t>(value_);
  }

 private:
  std::variant<std::int64_t, std::string_view, const RawMatrix*> value_;
};
using Arguments = std::initializer_list<Argument>;

inline Json TraceArguments(Arguments arguments) {
  Json list = Json::array();
  for (const Argument& argument : arguments) list.push_back(argument.AsJson());
  return list;
}

/// A result in the trace: addresses are null, so that traces can be compared.
template <class R>
Json TraceValue(const R& result) {
  if constexpr (std::is_same_v<R, const char*>) {
    return TextOf(result);
  } else if constexpr (std::is_pointer_v<R>) {
    return nullptr;
  } else {
    return result;
  }
}

/// Reports the exception that is being handled; `name` is the function that it ended. Nothing is thrown: a
/// panel without memory to show a fault has counted it.
inline void ReportException(Host& host, const char* name) {
  try {
    Fault fault = FaultOfException();
    if (fault.kind != FaultKind::kSystem) fault.file = name;
    host.panel.Tell(fault);
  } catch (...) {
  }
}

/// Runs `work(host, out)` for the function `name`; `work` puts into `out` what the call writes through
/// pointers. Returns zero without a host and after an exception.
template <class Work>
auto Answer(const char* name, Arguments arguments, Work work) {
  using R = std::invoke_result_t<Work, Host&, Json&>;
  if constexpr (std::is_void_v<R>) {
    // The same with an address as the result, which is dropped.
    static_cast<void>(Answer(name, arguments, [&](Host& host, Json& out) -> void* {
      work(host, out);
      return nullptr;
    }));
  } else {
    R result{};
    Host* const host = CurrentHost();
    if (host == nullptr) return result;
    try {
      Json out = Json::array();
      try {
        result = work(*host, out);
      } catch (...) {
        ReportException(*host, name);
      }
      if (host->trace)
        ReportFault(*host, host->trace->Write(name, TraceArguments(arguments), TraceValue(result), out));
    } catch (...) {
      ReportException(*host, name);
    }
    return result;
  }
}

}  // namespace vanzet::api
