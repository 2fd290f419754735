#pragma once

#include <algorithm>

#include "scene/scene_fixture.h"
#include "section/section.h"

namespace vanzet::test {

/// The half section of what the module has stored.
class SectionTest : public SceneTest {
 protected:
  section::Section Cut() {
    const scene::Scene shown = Shown();
    auto made = section::MakeSection(scene::ReadEquipment(Stored()), shown);
    EXPECT_TRUE(made);
    return made ? *made : section::Section();
  }

  static std::vector<std::string> NamesOf(const section::Section& section) {
    std::vector<std::string> names;
    for (const auto& body : section.bodies) names.push_back(body.name);
    return names;
  }

  /// A body, which must be there.
  static const section::SectionBody& Find(const section::Section& section, const std::string& name) {
    return *std::ranges::find(section.bodies, name, &section::SectionBody::name);
  }

  static geometry::Box BoxOf(const section::Section& section, const std::string& name) {
    return section::BoxOf(Find(section, name).region);
  }

  /// A dimension; null when it is not there.
  static const section::Dimension* Measure(const section::Section& section, std::string_view name,
                                           bool isSub = false) {
    const auto found = std::ranges::find_if(section.dimensions, [&](const section::Dimension& each) {
      return each.name == name && each.isSub == isSub;
    });
    return found == section.dimensions.end() ? nullptr : &*found;
  }
  static double ValueOf(const section::Section& section, std::string_view name, bool isSub = false) {
    const section::Dimension* const found = Measure(section, name, isSub);
    return found == nullptr ? -1 : found->Value();
  }
};

}  // namespace vanzet::test
