#include "check/clash.h"
#include "project/project.h"
#include "project_fixture.h"
#include "results/equipment.h"

// Half sections and facets give the same answers where both can.
namespace vanzet::test {
namespace {

using check::HalfSection;
using check::HalfSections;

struct Job {
  const char* name;
  std::vector<double> shifts;  ///< of the billet along the axis, after which it cuts into something

  friend void PrintTo(const Job& job, std::ostream* out) { *out << job.name; }
};

/// The jobs of the examples, as they are and with the billet moved along the axis.
class BothWays : public CheckedProject, public testing::WithParamInterface<Job> {
 protected:
  BothWays() {
    const Outcome defined = Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/" +
                                   std::string(GetParam().name) + ".json' lathe");
    EXPECT_EQ(defined.status, 0) << defined.err;
  }

  scene::Scene Scene() const {
    const auto project = project::Project::Open(folder / "lathe", VANZET_SOURCE_DIR "/share");
    EXPECT_TRUE(project) << project.fault().text;
    auto scene =
        results::SceneOf(*project, 0, modeller::Exchange{VANZET_BINARY_DIR "/bin/vanzet-exchange", {}});
    EXPECT_TRUE(scene) << scene.fault().text;
    return *std::move(scene);
  }

  /// Jaws are in the half sections as their middle planes, and in the facets as wide as they are.
  static bool CanBoth(const HalfSection& body) { return body.IsTurned() && !body.IsJaw() && body.IsClosed(); }

  /// Returns whether they clash.
  static bool ExpectTheSame(const HalfSection& a, const HalfSection& b) {
    const auto sections = check::ClashOfSections(a, b), facets = check::ClashOfFacets(a, b);
    const double certain = 2 * check::FacetTolerance(a, b);
    EXPECT_TRUE(!facets || sections) << "facets are " << facets->depth << " deep";
    EXPECT_TRUE(!sections || sections->depth <= certain || facets)
        << "sections are " << sections->depth << " deep";
    if (facets && sections) {
      // A thickness is found by halving, down to a part of what is known.
      EXPECT_NEAR(facets->depth, sections->depth, 0.01 * sections->depth);
    }
    return sections && sections->depth > certain;
  }

  /// Compares all pairs that both ways can. Returns the clashes.
  int ClashesWhenMovedBy(double shift) const {
    scene::Scene scene = Scene();
    for (scene::SceneBody& body : scene.bodies) {
      if (body.kind == scene::Kind::kBillet) body.placement.Translate(shift, 0, 0);
    }
    const HalfSections sections = HalfSections::Of(scene);
    std::vector<const HalfSection*> bodies;
    for (const HalfSection& body : sections.bodies) {
      if (CanBoth(body)) bodies.push_back(&body);
    }
    EXPECT_GE(bodies.size(), 2U);
    int clashes = 0;
    for (const HalfSection* a : bodies) {
      for (const HalfSection* b : bodies) {
        SCOPED_TRACE(a->body().name + ", " + b->body().name + ", moved by " + std::to_string(shift));
        if (a != b) clashes += ExpectTheSame(*a, *b) ? 1 : 0;
      }
    }
    return clashes;
  }
};

TEST_P(BothWays, Agree) {
  EXPECT_EQ(ClashesWhenMovedBy(0), 0);
  for (const double shift : GetParam().shifts) EXPECT_GT(ClashesWhenMovedBy(shift), 0) << shift;
}

INSTANTIATE_TEST_SUITE_P(Of, BothWays,
                         testing::Values(Job{"bar-job", {}},  // its bar goes through all that holds it
                                         Job{"chuck-transfer", {-30}},
                                         Job{"shaft-steady-rest", {-30, -0.3, 0.3, 4, 30}}),
                         [](const auto& job) {
                           std::string name = job.param.name;
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace vanzet::test
