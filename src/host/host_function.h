#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "platform/symbols.h"

namespace vanzet::host {

/// The module in which host functions are looked up. Nothing ever assigns it: null is the program that
/// loaded us, the host.
inline void* HostModuleHandle = nullptr;

/// How a name is looked up in a module. Tests put a host of their own here and take it away again.
using SymbolFinder = void* (*)(void* module, const char* name);
inline SymbolFinder symbolFinder = platform::FindSymbol;

/// The address of `name`, from `slot` when it has been found before. A name that the host lacks leads to
/// the host's "OrvoMissingAPI" and leaves the slot empty, so that both names are looked up again at the next
/// call. That the host has the fallback is a condition of the contract and is not tested.
inline void* ResolveHostFunction(const char* name, void*& slot) {
  if (slot == nullptr) slot = symbolFinder(HostModuleHandle, name);
  return slot != nullptr ? slot : symbolFinder(HostModuleHandle, "OrvoMissingAPI");
}

/// How a type of ours crosses to the host: texts as NUL-terminated bytes, the rest as it is.
template <class T>
struct Crossing {
  using Raw = T;
  static T ToHost(T value) { return value; }
  static T FromHost(T value) { return value; }
};
template <>
struct Crossing<std::string> {
  using Raw = const char*;
  static Raw ToHost(const std::string& text) { return text.c_str(); }
  /// Returned text belongs to the host, so it is copied at once. Null, the answer of a missing function, is
  /// the empty text.
  static std::string FromHost(Raw text) { return text == nullptr ? std::string() : std::string(text); }
};

/// One function of the host: callable, found by name at the first call.
template <class Signature>
class HostFunction;

template <class R, class... Arguments>
class HostFunction<R(Arguments...)> {
 public:
  /// `name` has to outlive the function; names are literals.
  explicit constexpr HostFunction(const char* name) : name_(name) {}

  R operator()(const Arguments&... arguments) {
    auto* const function = reinterpret_cast<Raw*>(ResolveHostFunction(name_, slot_));
    if constexpr (std::is_void_v<R>) {
      function(Crossing<Arguments>::ToHost(arguments)...);
    } else {
      return Crossing<R>::FromHost(function(Crossing<Arguments>::ToHost(arguments)...));
    }
  }

 private:
  template <class T>
  struct RawOf : Crossing<T> {};
  template <class T>
  requires std::is_void_v<T>
  struct RawOf<T> {
    using Raw = void;
  };
  using Raw = typename RawOf<R>::Raw(typename Crossing<Arguments>::Raw...);

  const char* name_;
  void* slot_ = nullptr;
};

}  // namespace vanzet::host
