#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

#include "base/one_line.h"

namespace vanzet {

/// Why something could not be done, told for the person who can mend it.
/// Parts that are not known stay empty or 0; lines and columns count from 1.
struct Fault {
  std::string text;
  std::string file = {};
  int line = 0;
  int column = 0;

  /// One line, whatever it quotes: "machine.ini:14:3: expected a number, found 'x'".
  std::string Told() const {
    std::string told = file;
    for (const int place : {line, column}) {
      if (place > 0) told += (told.empty() ? "" : ":") + std::to_string(place);
    }
    return OneLine(told.empty() ? text : told + ": " + text);
  }
};

/// The value, or the reason that there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::move(value)) {}
  Result(Fault fault) : content_(std::move(fault)) {}

  explicit operator bool() const { return std::holds_alternative<T>(content_); }

  /// Requires: there is a value.
  T& operator*() {
    assert(*this && "a result without a value was read");
    return *std::get_if<T>(&content_);
  }
  const T& operator*() const { return *const_cast<Result&>(*this); }
  T* operator->() { return &**this; }
  const T* operator->() const { return &**this; }

  /// Requires: there is no value.
  const Fault& fault() const {
    assert(!*this && "a result with a value has no fault");
    return *std::get_if<Fault>(&content_);
  }

 private:
  std::variant<T, Fault> content_;
};

/// Done, or the reason why not.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Fault fault) : fault_(std::move(fault)), failed_(true) {}

  explicit operator bool() const { return !failed_; }

  /// Requires: it failed.
  const Fault& fault() const {
    assert(failed_ && "what was done has no fault");
    return fault_;
  }

 private:
  Fault fault_;
  bool failed_ = false;
};

}  // namespace vanzet
