#include "define/outcome.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "base/text_stream.h"
#include "view/ids.h"

namespace vanzet::define {
namespace {

/// The tree gets the focus when a node was selected, and each step begins with a node.
bool IsSelection(const Json& event) {
  return event.value("event", "") == "focus" && event.value("control", 0) == control::kTree;
}

/// Half of the last decimal, plus the precision of doubles of that size.
double ToleranceOf(double value) {
  return 0.5000001e-6 + std::abs(value) * 1e-15;
}

bool IsNothing(const Json& value) {
  return value.is_null() || value == false || value == 0 || IsEmptyText(value);
}

class Comparison {
 public:
  explicit Comparison(Refusals& refusals) : refusals_(refusals) {}

  void Of(const Json& asked, const Json& stored, const std::string& path) {
    if (asked.is_object()) return Objects(asked, stored, path);
    if (asked.is_array()) return Lists(asked, stored, path);
    if (asked == stored || (stored.is_null() && IsNothing(asked))) return;
    if (asked.is_number() && stored.is_number() && AreNear(asked.get<double>(), stored.get<double>())) return;
    const std::string found = stored.is_null() ? "nothing" : stored.dump();
    refusals_.push_back({path, "the definition has " + found + " instead of " + asked.dump()});
  }

 private:
  static bool AreNear(double a, double b) { return std::abs(a - b) <= ToleranceOf(a); }

  void Objects(const Json& asked, const Json& stored, const std::string& path) {
    static const Json kNothing;
    for (const auto& [key, value] : asked.items()) {
      const bool isThere = stored.is_object() && stored.contains(key);
      Of(value, isThere ? stored[key] : kNothing, Below(path, key));
    }
  }

  void Lists(const Json& asked, const Json& stored, const std::string& path) {
    static const Json kNothing;
    for (std::size_t i = 0; i < asked.size(); ++i) {
      Of(asked[i], i < stored.size() ? stored[i] : kNothing, path + "[" + std::to_string(i) + "]");
    }
  }

  Refusals& refusals_;
};

}  // namespace

Refusals RefusedBy(const std::string& transcript, const std::vector<Step>& steps, const Script& script) {
  Refusals refusals;
  std::size_t begun = 0;
  TextStream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    const Json event = Json::parse(line, nullptr, false);
    if (!event.is_object()) continue;
    const std::string kind = event.value("event", "");
    if (IsSelection(event)) begun = std::min(begun + 1, steps.size());
    if (kind == "box" && begun > 0) {
      refusals.push_back({steps[begun - 1].path, "the dialog says " + Quoted(event.value("text", ""))});
    }
    if (kind == "error") {
      const auto at = static_cast<std::size_t>(std::max(0, event.value("line", 0)));
      const bool isOfAStep = at > 0 && at < script.stepOfLine.size();
      refusals.push_back({isOfAStep ? steps[script.stepOfLine[at]].path : "$",
                          "the dialog says: " + event.value("text", "")});
    }
  }
  return refusals;
}

Refusals Differences(const Json& form, const Json& stored) {
  Refusals refusals;
  Comparison(refusals).Of(form, stored, "$");
  return refusals;
}

}  // namespace vanzet::define
