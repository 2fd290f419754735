#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

#include <nlohmann/json.hpp>

#include "api/host.h"

/// The frame of every exported function: it works on the host in force, throws nothing across, and is
/// written to the trace.
namespace vanzet::api {

/// A text that a module gave; null is the empty text.
inline std::string_view TextOf(const char* text) {
  return text == nullptr ? std::string_view() : text;
}

/// Writes through a pointer that a module gave, when it gave one.
template <class T>
void Put(T* place, T value) {
  if (place != nullptr) *place = value;
}

/// The text as the host keeps it for the caller to copy.
inline const char* Returned(Host& host, std::string text) {
  host.returnedText = std::move(text);
  return host.returnedText.c_str();
}

/// Tells a fault on the panel; true when there is none.
template <class T>
bool Told(Host& host, const Result<T>& result) {
  if (!result) host.panel.Tell(result.fault());
  return static_cast<bool>(result);
}

/// How a result stands in the trace: addresses and nothing are null.
template <class R>
Json Traced(const R& result) {
  if constexpr (std::is_same_v<R, const char*>) {
    return TextOf(result);
  } else if constexpr (std::is_pointer_v<R>) {
    return nullptr;
  } else {
    return result;
  }
}

/// Runs `work(host, out)` for the function `name`; what the call writes through pointers it puts into `out`.
/// Without a host, or when something is thrown, the result is zero.
template <class Work>
auto Answer(const char* name, const Json& arguments, Work work) {
  using R = std::invoke_result_t<Work, Host&, Json&>;
  if constexpr (std::is_void_v<R>) {
    // The same with an address for a result, which nobody is given.
    static_cast<void>(Answer(name, arguments, [&](Host& host, Json& out) -> void* {
      work(host, out);
      return nullptr;
    }));
  } else {
    R result{};
    Host* const host = HostInForce();
    if (host == nullptr) return result;
    Json out = Json::array();
    try {
      result = work(*host, out);
    } catch (const std::exception& error) {
      host->panel.Tell(Fault{error.what(), name});
    }
    if (host->trace) Told(*host, host->trace->Write(name, arguments, Traced(result), out));
    return result;
  }
}

}  // namespace vanzet::api
