#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

#include "base/one_line.h"

namespace vanzet {

/// The sort of a failure, for callers that act on it.
enum class FaultKind {
  kRefused,  ///< the input or the request is wrong
  kMissing,  ///< what was asked for does not exist
  kBusy,     ///< somebody else holds it now; later it may work
  kDamaged,  ///< stored data cannot be trusted
  kSystem,   ///< the operating system refused: no permission, no space, no descriptors
  kReported  ///< it is on the message panel already: there is nothing left to report
};

/// Why something could not be done, written for the person who can mend it.
/// Parts that are not known stay empty or 0; lines and columns count from 1.
struct Fault {
  std::string text;
  std::string file = {};
  int line = 0;
  int column = 0;
  FaultKind kind = FaultKind::kRefused;
  std::string source = {};  ///< the faulty line of a text file, without its line end

  /// One line, whatever it quotes: "machine.ini:14:3: expected a number, found 'x'".
  std::string Message() const {
    std::string place = file;
    for (const int number : {line, column}) {
      if (number > 0) place += (place.empty() ? "" : ":") + std::to_string(number);
    }
    return OneLine(place.empty() ? text : place + ": " + text);
  }
};

/// The fault of work whose failures are all on the message panel.
inline Fault ReportedFault() {
  return {.text = "the work failed; see the messages above", .kind = FaultKind::kReported};
}

/// The value, or the reason that there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::move(value)) {}
  Result(Fault fault) : content_(std::move(fault)) {}

  explicit operator bool() const { return std::holds_alternative<T>(content_); }

  /// Requires: there is a value.
  T& operator*() & {
    assert(*this && "a result without a value was read");
    return *std::get_if<T>(&content_);
  }
  const T& operator*() const& { return *const_cast<Result&>(*this); }
  T&& operator*() && { return std::move(**this); }
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

#define VANZET_JOIN_WORDS(a, b) a##b
#define VANZET_NAME_OF_LINE(name, line) VANZET_JOIN_WORDS(name, line)
#define VANZET_TRY_INTO(result, declaration, ...) \
  auto result = (__VA_ARGS__);                    \
  if (!result) return result.fault();             \
  declaration = *std::move(result)

/// Returns the fault of the expression to the caller, or declares a variable with its value:
///   VANZET_TRY(const Body body, ImportBody(path));
/// Two statements: not for the branch of an `if` without braces.
#define VANZET_TRY(declaration, ...) \
  VANZET_TRY_INTO(VANZET_NAME_OF_LINE(resultOfLine, __LINE__), declaration, __VA_ARGS__)

/// Returns the fault of an expression of type `Result<void>` to the caller, or goes on.
#define VANZET_DO(...)                                         \
  do {                                                         \
    if (auto done = (__VA_ARGS__); !done) return done.fault(); \
  } while (false)
