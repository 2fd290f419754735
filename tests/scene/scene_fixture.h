#pragma once

#include "api/host_fixture.h"
#include "contour/library.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "scene/defined_equipment.h"
#include "scene/scene.h"
#include "support/places.h"

namespace vanzet::test {

/// The project's host with the module above it, and the scene of what it stores.
class SceneTest : public HostTest {
 protected:
  SceneTest() {
    contour::UseMillimetres();
    MakeDefinition();
  }

  static modeller::Exchange Reader() { return {VANZET_BINARY_DIR "/bin/vanzet-exchange", {}}; }

  project::Definition Stored() {
    const auto content = host->store.Snapshot(project->DefinitionOf(0));
    return *project::ReadDefinition(*content);
  }

  Result<scene::Scene> Try() {
    const scene::Sources sources = {[this](const std::string& name) -> Result<std::vector<geometry::Kurve>> {
                                      if (const auto found = figures.find(name); found != figures.end())
                                        return found->second;
                                      return Fault{"figure '" + name + "' does not exist"};
                                    },
                                    [this](const std::string& name) -> Result<modeller::Body> {
                                      return Fault{.text = name + " does not exist", .kind = bodyFault};
                                    },
                                    Reader(), steadyRest};
    return scene::MakeScene(Stored(), sources);
  }

  scene::Scene Shown() {
    auto made = Try();
    if (made) return *made;
    ADD_FAILURE() << made.fault().Message();
    return {};
  }

  static std::vector<std::string> NamesOf(const scene::Scene& shown) {
    std::vector<std::string> names;
    for (const auto& body : shown.bodies) names.push_back(body.name);
    return names;
  }

  /// The extents of a body of the scene, which must be there.
  static geometry::Box3d BoxOf(const scene::Scene& shown, const std::string& name) {
    for (const auto& body : shown.bodies) {
      if (body.name == name) return *modeller::Extents(*modeller::PlaceBody(body.body, body.placement));
    }
    ADD_FAILURE() << "there is no " << name;
    return {};
  }

  std::map<std::string, std::vector<geometry::Kurve>> figures;
  FaultKind bodyFault = FaultKind::kMissing;  ///< of solids, which are never there
  project::SteadyRest steadyRest;             ///< of the machine
};

}  // namespace vanzet::test
