#include "define/write.h"

#include "define/form_fixture.h"

namespace vanzet::test {
namespace {

using define::Json;
using define::Refusal;
using define::Refusals;
using testing::ElementsAre;
using testing::IsEmpty;

class WrittenForm : public FormTest {
 protected:
  Json Written() {
    leftOut.clear();
    return SpurForm(0, equipment, "$.spurs[0]", leftOut);
  }

  scene::Equipment equipment;
  scene::Spindle& main = equipment.spindles[0];
  scene::Spindle& sub = equipment.spindles[1];
  Refusals leftOut;
};

TEST_F(WrittenForm, OfNothingIsTheSpursNumber) {
  EXPECT_EQ(Written(), Json::parse(R"({"spur": 0})"));
}

TEST_F(WrittenForm, HasPeoplesWordsForAll) {
  main.clamp = {"Chuck 160", {.type = 1, .A = 80, .B = 90, .C = 22.5, .D = 7}};
  main.jaw = {"Soft jaw 160", {.type = 9, .A = 38, .B = 62, .C = 12, .D = 24}};
  main.jaws = 4;
  main.billet = {.type = 1, .partLength = 120, .outerDiameter = 80, .isShown = false};
  main.finishPart = {.type = 2, .solid = "ok part"};
  main.clampingOut = 60;
  sub.clamp = {"/shop/own.vdm", {.type = 107, .B = 55}};
  sub.billet = {.type = 3, .partLength = 50, .clampDiameter = 30, .angle = 15, .solid = "ok"};
  equipment.center = {"Center MT3",
                      {.type = 13, .A = 110, .B = 55, .C = 32, .D = 10, .E = 30, .F = 22, .G = 60}};
  equipment.usesSteadyRest = true;
  EXPECT_EQ(Written(), Json::parse(R"({"spur": 0,
    "main": {"chuck": {"name": "Chuck 160", "letters": {"A": 80, "B": 90, "C": 22.5}},
             "jaw": {"name": "Soft jaw 160", "shape": 5, "letters": {"A": 38, "B": 62, "C": 12, "D": 24},
                     "count": 4, "inside": false},
             "billet": {"kind": "cylinder", "outer_diameter": 80, "part_length": 120, "front_allowance": 0,
                        "rear_allowance": 0, "inner_diameter": 0, "bar_length": 0, "shown": false},
             "finished_part": {"kind": "solid", "solid": "ok part"}},
    "sub": {"face_driver": {"file": "/shop/own.vdm", "letters": {"B": 55}},
            "billet": {"kind": "solid", "solid": "ok", "part_length": 50, "clamp_diameter": 30, "angle": 15}},
    "center": {"name": "Center MT3", "shape": 1,
               "letters": {"A": 110, "B": 55, "C": 32, "D": 10, "E": 30, "F": 22, "G": 60}},
    "datum": {"main": {"clamping_out": 60, "origin": 0}},
    "steady_rest": true})"));
  EXPECT_THAT(leftOut, IsEmpty());
}

TEST_F(WrittenForm, OfInchesHasLengthsInInchesAndAnglesInDegrees) {
  main.clamp = {"Chuck", {.type = 1, .A = 50.8, .B = 90, .C = 12.7}};
  sub.billet = {.type = 3, .partLength = 76.2, .clampDiameter = 0, .angle = 15, .solid = "ok"};
  main.origin = -3.175;
  const Json inches = SpurForm(0, equipment, "$.spurs[0]", leftOut, LengthUnit::kInch);
  EXPECT_EQ(inches, Json::parse(R"({"spur": 0,
    "main": {"chuck": {"name": "Chuck", "letters": {"A": 2, "B": 3.54330709, "C": 0.5}}},
    "sub": {"billet": {"kind": "solid", "solid": "ok", "part_length": 3, "clamp_diameter": 0, "angle": 15}},
    "datum": {"main": {"clamping_out": 0, "origin": -0.125}}})"));
  EXPECT_EQ(Completed(define::WholeForm(Json::array({inches}), LengthUnit::kInch).dump()),
            Json({{"spurs", {Written()}}}));
}

TEST_F(WrittenForm, TellsWhatItHasNoPlaceFor) {
  main.clamp = {"odd", {.type = 42}};
  main.billet.type = 7;
  sub.clamp = {"Soft jaw 160", {.type = 9}};
  EXPECT_EQ(Written(), Json::parse(R"({"spur": 0})"));
  EXPECT_THAT(leftOut,
              ElementsAre(Refusal{"$.spurs[0].main", "the form cannot express the device \"odd\" of type 42"},
                          Refusal{"$.spurs[0].main.billet", "the form cannot express type 7"},
                          Refusal{"$.spurs[0].sub",
                                  "the form cannot express the device \"Soft jaw 160\" of type 9"}));
}

TEST_F(WrittenForm, IsSoundAndCompleteInItself) {
  // No catalogue has to be asked for what is written.
  main.clamp = {"Other chuck", {.type = 1, .A = 80, .B = 90, .C = 22.5}};
  main.jaw = {"Other jaw",
              {.type = 12, .A = 50, .B = 84, .C = 30, .D = 34, .E = 20, .F = 16, .G = 7, .H = 8}};
  main.billet = {.type = 2, .partLength = 5, .outside = "ok"};
  sub.clamp = {"Other collet", {.type = 2, .A = 33, .B = 94, .C = 12, .D = 21, .E = 38}};
  surroundings.catalogue.clear();
  Json form = {{"spurs", {Written()}}};
  const Json written = form;
  EXPECT_THAT(CheckForm(form, surroundings), IsEmpty());
  EXPECT_EQ(form, written) << "nothing was left to complete";
}

}  // namespace
}  // namespace vanzet::test
