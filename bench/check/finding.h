#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "geometry/point.h"
#include "geometry/region.h"
#include "show/part.h"

/// The findings of a check, as data: docs/checks/README.md.
///
/// Units    millimetres and cubic millimetres
namespace vanzet::check {

enum class Severity { kNote, kWarning, kError };

/// "note", "warning", "error"
std::string_view WordOf(Severity severity);
std::optional<Severity> SeverityNamed(std::string_view word);

/// The part of the set-up that a finding is about.
enum class Where { kMain, kSub, kCenter, kSteadyRest, kDatum };

/// "main", "sub", "center", "steady_rest", "datum"
std::string_view WordOf(Where where);

/// A rule, of which a project may change the severity.
struct Rule {
  std::string_view id;  ///< "EQ-201"
  Severity severity;
  const char* title;  ///< English, the key of its translations
};

/// All rules, by their numbers.
std::span<const Rule> Rules();

/// The rule with that number, in capitals or not, or null.
const Rule* FindRule(std::string_view id);

/// The terms of a sentence.
struct Length {
  double millimetres;
};
struct Number {
  double value;
};
using Term = std::variant<std::string, Length, Number>;

/// A sentence for people: an English text, the key of its translations, and the terms for %1 and the
/// further places.
struct Sentence {
  const char* english = "";
  std::vector<Term> terms = {};
};

/// A number for programs: "overlap", 1.25.
struct Value {
  const char* name;
  double number;
};

/// The one value of the definition, or of the job, by which the finding would vanish.
struct Change {
  const char* value;  ///< English, the key of its translations: "the clamping out"
  double from, to;
  const char* unit = nullptr;  ///< null: they are lengths
};

/// The word of programs for the value: "clamping_out", as forms of definitions name it, or the setting of
/// the job.
std::string_view KeyOf(const Change& change);

/// The common part of two bodies, or that of one beyond the other, in the half plane at an angle about the
/// axis: in degrees from the upright one towards +z.
struct Area {
  double degrees;
  geometry::Region region;
};

struct Finding {
  const Rule* rule;
  Severity severity;
  std::int32_t spur = 0;
  Where where = Where::kMain;
  Sentence sentence;
  std::vector<Value> values = {};
  std::optional<geometry::Point> at = {};  ///< in the turning plane: x along the axis, y the radius
  std::vector<std::string> bodies = {};    ///< the names that these have in the scene
  std::optional<Change> change = {};
  std::optional<Area> area = {};        ///< for pictures
  show::Part part = show::Part::kNone;  ///< that is to be looked at, where no body says so
};

}  // namespace vanzet::check
