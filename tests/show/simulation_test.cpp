#include "show/simulation.h"

#include <gmock/gmock.h>

namespace vanzet::show {
namespace {

/// A definition with a solid of the main clamp device, and an outline.
project::Definition WithOutline(std::vector<std::string> outline) {
  project::Definition definition;
  definition.operations.resize(18);
  definition.operations[5].counts = {1, 4000};  // of a head, which has none of them
  definition.operations[11].sections = {{"2D Geometry for main clamp"}, std::move(outline)};
  definition.operations[11].counts = {1, definition.operations[11].sections[1].size()};
  return definition;
}

const std::vector<std::string> kChuckOutline = {
    "0 0.000000 22.500000 0.000000 0.000000 0", "0 -90.000000 22.500000 0.000000 0.000000 0",
    "0 -90.000000 80.000000 0.000000 0.000000 0", "0 0.000000 80.000000 0.000000 0.000000 0",
    "0 0.000000 22.500000 0.000000 0.000000 0"};

SimulationState StateOfChuck(double length, const project::Definition& definition) {
  const scene::Device chuck{"Chuck 160", {.type = 1, .A = 80, .B = length, .C = 22.5}};
  return SimulationStateOf({&chuck, 5, 11}, definition);
}

TEST(SimulationState, IsCurrentWhereTheOutlineIsThatOfTheValues) {
  EXPECT_EQ(StateOfChuck(90, WithOutline(kChuckOutline)), SimulationState::kCurrent);
}

TEST(SimulationState, IsOtherWhereAValueWasChangedAfterwards) {
  EXPECT_EQ(StateOfChuck(90.0001, WithOutline(kChuckOutline)), SimulationState::kOther);
  EXPECT_EQ(StateOfChuck(90, WithOutline({})), SimulationState::kOther);
}

TEST(SimulationState, IsMissingWithoutASolid) {
  project::Definition definition = WithOutline(kChuckOutline);
  definition.operations[5].counts = {1, 0};
  EXPECT_EQ(StateOfChuck(90, definition), SimulationState::kMissing);
  EXPECT_EQ(StateOfChuck(90, project::Definition()), SimulationState::kMissing);
}

TEST(SimulationState, OfAnOwnDeviceIsCurrentWithASolidAlone) {
  const scene::Device own{"/shop/own.vdm", {.type = 103, .B = 90}};
  EXPECT_EQ(SimulationStateOf({&own, 5, 11}, WithOutline({})), SimulationState::kCurrent);
}

TEST(SimulationState, IsNoneWithoutADevice) {
  const scene::Device none;
  EXPECT_EQ(SimulationStateOf({&none, 5, 11}, WithOutline(kChuckOutline)), SimulationState::kNone);
}

TEST(SimulatedDevices, HaveTheCenterInTheOperationOfTheSubSpindleWithoutOne) {
  scene::Equipment equipment;
  EXPECT_EQ(SimulatedDevices(equipment)[4].solid, 9U);
  equipment.isCenterInSub = true;
  EXPECT_EQ(SimulatedDevices(equipment)[4].solid, 7U);
}

}  // namespace
}  // namespace vanzet::show
