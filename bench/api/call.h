#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

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

/// Runs `work(host, out)` for the function `name`; what the call writes through pointers it puts into `out`.
/// Without a host, or when something is thrown, the result is zero.
template <class Work>
auto Answer(const char* name, const Json& arguments, Work work) {
  using R = std::invoke_result_t<Work, Host&, Json&>;
  constexpr bool kHasResult = !std::is_void_v<R>;
  std::conditional_t<kHasResult, R, bool> result{};
  Host* const host = HostInForce();
  if (host == nullptr) return R(result);
  Json out = Json::array();
  try {
    if constexpr (kHasResult) {
      result = work(*host, out);
    } else {
      work(*host, out);
    }
  } catch (const std::exception& error) {
    host->panel.Tell(Fault{error.what(), name});
  }
  if (host->trace) {
    Json traced;
    if constexpr (std::is_same_v<R, const char*>) {
      traced = TextOf(result);
    } else if constexpr (kHasResult && !std::is_pointer_v<R>) {
      traced = result;
    }
    host->trace->Write(name, arguments, traced, out);
  }
  return R(result);
}

}  // namespace vanzet::api
