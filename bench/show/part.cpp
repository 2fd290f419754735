#include "show/part.h"

#include <algorithm>
#include <iterator>

namespace vanzet::show {
namespace {

// By part.
constexpr std::string_view kWords[] = {"",       "clamp",       "jaw",  "billet", "finished_part",
                                       "center", "steady_rest", "datum"};

}  // namespace

Part PartOf(scene::Kind kind) {
  switch (kind) {
    case scene::Kind::kClamp: return Part::kClamp;
    case scene::Kind::kJaw: return Part::kJaw;
    case scene::Kind::kCenter: return Part::kCenter;
    case scene::Kind::kSteadyRest: return Part::kSteadyRest;
    case scene::Kind::kBillet: return Part::kBillet;
    case scene::Kind::kFinishPart: return Part::kFinishPart;
  }
  return Part::kNone;
}

std::string_view WordOf(Part part) {
  return kWords[static_cast<std::size_t>(part)];
}

Part PartNamed(std::string_view word) {
  const auto* const found = std::ranges::find(kWords, word);
  return found == std::end(kWords) ? Part::kNone : static_cast<Part>(found - std::begin(kWords));
}

}  // namespace vanzet::show
