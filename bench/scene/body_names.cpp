#include "scene/body_names.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "base/letter_case.h"
#include "base/near_words.h"
#include "base/quote.h"
#include "scene/equipment.h"

namespace vanzet::scene {
namespace {

/// In small letters.
std::set<std::string> WordsOf(std::string name) {
  std::ranges::replace(name, '-', ' ');
  std::ranges::transform(name, name.begin(), SmallLetter);
  std::istringstream words(name);
  return {std::istream_iterator<std::string>(words), {}};
}

/// ": did you mean 'main jaw 1'?", or all names.
std::string HintFor(const std::string& name, const Scene& scene) {
  std::vector<std::string> names;
  for (const SceneBody& body : scene.bodies) names.push_back(body.name);
  const std::vector<std::string> near = NearWords(name, names);
  std::string list;
  for (const std::string& each : near.empty() ? names : near) {
    list += (list.empty() ? "" : near.empty() ? ", " : " or ") + (near.empty() ? each : Quoted(each));
  }
  return near.empty() ? "the bodies are: " + list : "did you mean " + list + "?";
}

}  // namespace

Result<std::set<std::size_t>> FindBodies(const Scene& scene, const std::string& name) {
  const std::set<std::string> wanted = WordsOf(name);
  std::set<std::size_t> found;
  for (std::size_t i = 0; i < scene.bodies.size() && !wanted.empty(); ++i) {
    if (std::ranges::includes(WordsOf(scene.bodies[i].name), wanted)) found.insert(i);
  }
  if (!found.empty()) return found;
  return Fault{.text = "body " + Quoted(name) + " does not exist; " + HintFor(name, scene),
               .kind = FaultKind::kMissing};
}

Result<std::set<std::size_t>> FindBodies(const Scene& scene, const std::vector<std::string>& names) {
  std::set<std::size_t> found;
  for (const std::string& name : names) {
    VANZET_TRY(const auto ofName, FindBodies(scene, name));
    found.insert(ofName.begin(), ofName.end());
  }
  return found;
}

std::string DeviceNameOf(const SceneBody& body, const Equipment& equipment) {
  const Spindle& spindle = equipment.spindles[body.name.starts_with("sub ") ? 1 : 0];
  if (body.kind == Kind::kClamp) return spindle.clamp.name;
  if (body.kind == Kind::kJaw) return spindle.jaw.name;
  return body.kind == Kind::kCenter ? equipment.center.name : "";
}

}  // namespace vanzet::scene
