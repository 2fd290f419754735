#include "define/form_fixture.h"

namespace vanzet::test {
namespace {

using define::Json;
using testing::ElementsAre;
using testing::IsEmpty;

/// The keys of a spindle or a spur, and what is refused of them.
struct Case {
  const char* keys;
  std::vector<std::string> refused;
};

class CheckedForm : public FormTest {};

TEST_F(CheckedForm, NamesThePathAndTheReasonOfEachValue) {
  EXPECT_THAT(RefusedOf("5"), ElementsAre("$: must be an object"));
  EXPECT_THAT(RefusedOf("{}"), ElementsAre("$.spurs: is missing"));
  EXPECT_THAT(RefusedOf(R"({"spurs": {}})"), ElementsAre("$.spurs: must be a list"));
  EXPECT_THAT(RefusedOf(R"({"spurs": []})"), ElementsAre("$.spurs: must name at least one spur"));
  EXPECT_THAT(RefusedOf(R"({"spurs": [{}, {"spur": 2}, {"spur": 0}, {"spur": 0}, {"spur": 0.5}, 7]})"),
              ElementsAre("$.spurs[0].spur: is missing", "$.spurs[1].spur: must be at most 1, but is 2",
                          "$.spurs[3].spur: is listed twice", "$.spurs[4].spur: must be a whole number",
                          "$.spurs[5]: must be an object"));
}

TEST_F(CheckedForm, MayHaveCommentsAndNameItsSchema) {
  EXPECT_THAT(RefusedOf(R"(// a job
    {"$schema": "definition.schema.json", /* the only spur */ "spurs": [{"spur": 0}]} // end)"),
              IsEmpty());
  EXPECT_THAT(RefusedOf(R"({"$schema": 1, "spurs": [{"spur": 0}]})"),
              ElementsAre("$[\"$schema\"]: must be a string"));
}

TEST_F(CheckedForm, HintsAtTheKeyThatWasMeant) {
  EXPECT_THAT(RefusedOfSpur(R"("mian": {}, "weight": 3)"),
              ElementsAre("mian: unknown key; did you mean \"main\"?",
                          "weight: unknown key; known are spur, main, sub, center, datum, steady_rest"));
  EXPECT_THAT(RefusedOfMain(R"("billet": {"kind": "cilinder"}, "facedriver": {})"),
              ElementsAre("facedriver: unknown key; did you mean \"face_driver\"?",
                          "billet.kind: unknown kind; did you mean \"cylinder\"?"));
}

TEST_F(CheckedForm, RefusesWhatIsWrongWithADevice) {
  const Case cases[] = {
      {R"("chuck": 1)", {"chuck: must be an object"}},
      {R"("chuck": {})", {R"(chuck: needs "name" or "file")"}},
      {R"("chuck": {"name": 4})", {"chuck.name: must be a string"}},
      {R"("chuck": {"name": ""})", {"chuck.name: must not be empty"}},
      {R"("chuck": {"name": "a\nb"})", {"chuck.name: must not contain a control character"}},
      {R"("chuck": {"name": "Chuck 160", "letters": {"B": "x"}})", {"chuck.letters.B: must be a number"}},
      {R"("chuck": {"name": "Chuck 160", "letters": {"B": 1e300}})",
       {"chuck.letters.B: must be at most 10000000 (10 km), but is 1e+300"}},
      {R"("chuck": {"name": "Chuck 160", "letters": {"D": 1}})",
       {"chuck.letters.D: unknown key; known are A, B, C"}},
      {R"("chuck": {"name": "Chuck 160", "letters": []})", {"chuck.letters: must be an object"}},
      {R"("chuck": {"name": "New"})", {R"(chuck.letters: is missing, and the catalogue has no chuck "New")"}},
      {R"("chuck": {"name": "chuck 161"})",
       {R"(chuck.letters: is missing, and the catalogue has no chuck "chuck 161"; did you mean 'Chuck 160'?)"}},
      {R"("chuck": {"name": "New", "letters": {"A": 1, "B": 2}})", {"chuck.letters.C: is missing"}},
      {R"("chuck": {"name": "Chuck 160", "shape": 1})",
       {"chuck.shape: unknown key; known are name, file, letters"}},
      {R"("chuck": {"name": "Collet D42"})",
       {R"(chuck.letters: is missing, and the catalogue has no chuck "Collet D42")"}},
      {R"("chuck": {"name": "Chuck 160"}, "collet": {"name": "Collet D42"})",
       {R"(collet: a spindle holds one device, but it also has "chuck")"}},
      {R"("chuck": {"name": "Chuck 160"}, "jaw": {"name": "New"})",
       {"jaw.shape: is missing, and the catalogue has no such jaw"}},
      {R"("collet": {"name": "Collet D42"}, "jaw": {"name": "Soft jaw 170"})",
       {R"(jaw.shape: is missing, and the catalogue has no such jaw; did you mean 'Soft jaw 160'?)"}},
      {R"("chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "shape": 9})",
       {"jaw.shape: must be at most 8, but is 9"}},
      {R"("chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "count": 2, "inside": 1})",
       {"jaw.count: must be at least 3, but is 2", "jaw.inside: must be true or false"}},
      {R"("jaw": {"name": "Soft jaw 160"})",
       {"jaw: needs a device that carries it: chuck, collet, mandrel, face_driver"}},
  };
  for (const Case& each : cases) EXPECT_EQ(RefusedOfMain(each.keys), each.refused) << each.keys;
}

TEST_F(CheckedForm, RefusesWhatIsWrongWithAnOwnDevice) {
  const Case cases[] = {
      {R"("chuck": {"file": "none.vdm"})", {"chuck.file: none.vdm: cannot be read"}},
      {R"("chuck": {"file": "jaw.vdm"})", {"chuck.file: holds a jaw, not a chuck"}},
      {R"("chuck": {"name": "Chuck 160"}, "jaw": {"file": "chuck.vdm", "shape": 2})",
       {"jaw.shape: cannot be combined with \"file\"", "jaw.file: holds a chuck, not a jaw"}},
      {R"("face_driver": {"file": "it's.vdm"})",
       {"face_driver.file: must not contain an apostrophe, which ends a name in the host's commands"}},
      {R"("mandrel": {"file": "chuck.vdm", "letters": {"A": 1}})",
       {"mandrel.letters.A: unknown key; known are B"}},
      {R"("mandrel": {"file": "chuck.vdm", "letters": {"B": 1}})", {}},
      {R"("chuck": {"file": "chuck.vdm"}, "jaw": {"file": "jaw.vdm", "count": 4, "inside": true})", {}},
  };
  for (const Case& each : cases) EXPECT_EQ(RefusedOfMain(each.keys), each.refused) << each.keys;
}

TEST_F(CheckedForm, RefusesWhatIsWrongWithABilletOrAFinishedPart) {
  const Case cases[] = {
      {R"("billet": 1)", {"billet: must be an object"}},
      {R"("billet": {})", {"billet.kind: is missing"}},
      {R"("billet": {"kind": "cylinder"})",
       {"billet.outer_diameter: is missing", "billet.part_length: is missing"}},
      {R"("billet": {"kind": "cylinder", "outer_diameter": 0, "part_length": 5, "solid": "x"})",
       {R"(billet.solid: unknown key; known are kind, outer_diameter, part_length, front_allowance, )"
        "rear_allowance, inner_diameter, bar_length, shown",
        "billet.outer_diameter: must be above 0, but is 0"}},
      {R"("billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 100, "front_allowance": 2,
                     "inner_diameter": 40.5, "bar_length": 101})",
       {"billet.inner_diameter: must be less than outer_diameter (40), but is 40.5",
        "billet.bar_length: must be 0, or at least the length with its allowances: 102"}},
      {R"("billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 100, "inner_diameter": 39,
                     "bar_length": 100, "shown": false})",
       {}},
      {R"("billet": {"kind": "figures"})", {"billet.outside: is missing"}},
      {R"("billet": {"kind": "figures", "outside": "ok", "inside": "no"})",
       {"billet.inside: no: is not there"}},
      {R"("billet": {"kind": "solid", "solid": "no"})", {"billet.solid: no: is not there"}},
      {R"("billet": {"kind": "solid", "solid": "ok"})", {}},
      {R"("finished_part": {"kind": "figures", "outside": "ok"})",
       {"finished_part.kind: the dialog cannot store a part that is drawn as figures"}},
      {R"("finished_part": {"kind": "solid", "solid": "ok"})", {}},
  };
  for (const Case& each : cases) EXPECT_EQ(RefusedOfMain(each.keys), each.refused) << each.keys;
}

/// A cylinder of 50 mm with these keys besides.
std::string Cylinder(const std::string& keys) {
  return R"("billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 50, )" + keys + "}";
}

TEST_F(CheckedForm, RefusesLengthsThatLeaveNoRawPart) {
  EXPECT_THAT(RefusedOfMain(R"("billet": {"kind": "cylinder", "outer_diameter": -10, "part_length": -50})"),
              ElementsAre("billet.outer_diameter: must be above 0, but is -10",
                          "billet.part_length: must be above 0, but is -50"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("inner_diameter": -1, "bar_length": -2)")),
              ElementsAre("billet.inner_diameter: must be at least 0, but is -1",
                          "billet.bar_length: must be at least 0, but is -2"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("inner_diameter": 40)")),
              ElementsAre("billet.inner_diameter: must be less than outer_diameter (40), but is 40"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("front_allowance": -60)")),
              ElementsAre("billet.front_allowance: leaves nothing of the part: -60 with a length of 50"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("front_allowance": -60, "rear_allowance": 20)")),
              ElementsAre("billet.front_allowance: leaves nothing of the part: -60 with a length of 50"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("front_allowance": -30, "rear_allowance": -20)")),
              ElementsAre("billet.rear_allowance: leaves nothing of the part: -20 with a length of 20"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("front_allowance": -30, "rear_allowance": -19)")), IsEmpty());
}

TEST_F(CheckedForm, RefusesLengthsOfMoreThan10Kilometres) {
  EXPECT_THAT(RefusedOfMain(R"("billet": {"kind": "cylinder", "outer_diameter": 1e8, "part_length": 5})"),
              ElementsAre("billet.outer_diameter: must be at most 10000000 (10 km), but is 1e+08"));
  EXPECT_THAT(RefusedOfMain(Cylinder(R"("front_allowance": 1e7)")),
              ElementsAre("billet.part_length: must be at most 10 km with the allowances, but is 10000050"));
  EXPECT_THAT(RefusedOfSpur(R"("datum": {"main": {"origin": -1.1e7}})"),
              ElementsAre("datum.main.origin: must be at least -10000000 (10 km), but is -1.1e+07"));
}

TEST_F(CheckedForm, OfInchesBecomesMillimetres) {
  const Json form = Completed(R"({"unit": "inch", "spurs": [{"spur": 0,
    "main": {"chuck": {"name": "Chuck 160", "letters": {"A": 3}},
             "jaw": {"name": "Soft jaw 160", "count": 4},
             "billet": {"kind": "cylinder", "outer_diameter": 2, "part_length": 1.65354331}},
    "sub": {"billet": {"kind": "solid", "solid": "ok", "angle": 15}},
    "center": {"name": "Center MT3", "letters": {"A": 5, "G": 60}},
    "datum": {"main": {"origin": -0.125}}}]})");
  const Json& spur = form["spurs"][0];
  EXPECT_EQ(spur["main"]["chuck"]["letters"], Json::parse(R"({"A": 76.2, "B": 90, "C": 22.5})"));
  EXPECT_EQ(spur["main"]["jaw"]["count"], 4);
  EXPECT_EQ(spur["main"]["billet"],
            Json::parse(R"({"kind": "cylinder", "outer_diameter": 50.8, "part_length": 42})"));
  EXPECT_EQ(spur["sub"]["billet"]["angle"], 15);
  EXPECT_EQ(spur["center"]["letters"]["A"], 127);
  EXPECT_EQ(spur["center"]["letters"]["G"], 60);
  EXPECT_EQ(spur["datum"]["main"]["origin"], -3.175);
  EXPECT_FALSE(form.contains("unit"));
}

TEST_F(CheckedForm, OfInchesIsRefusedInInches) {
  const auto refusedOf = [this](const std::string& keys) {
    return RefusedOf(R"({"unit": "inch", "spurs": [{"spur": 0, "main": {)" + keys + "}}]}");
  };
  EXPECT_THAT(refusedOf(R"("chuck": {"name": "New", "letters": {"A": 3, "B": 90, "C": 4}})"),
              ElementsAre("$.spurs[0].main.chuck.letters.C: C (4) must be less than A (3)"));
  EXPECT_THAT(
      refusedOf(R"("billet": {"kind": "cylinder", "outer_diameter": -2, "part_length": 400000})"),
      ElementsAre(
          "$.spurs[0].main.billet.outer_diameter: must be above 0, but is -2",
          "$.spurs[0].main.billet.part_length: must be at most 393700.78740157 (10 km), but is 4e+05"));
  EXPECT_THAT(
      refusedOf(
          R"("billet": {"kind": "cylinder", "outer_diameter": 2, "part_length": 3, "inner_diameter": 2.5})"),
      ElementsAre("$.spurs[0].main.billet.inner_diameter: must be less than outer_diameter (2), but is 2.5"));
  EXPECT_THAT(RefusedOf(R"({"unit": "feet", "spurs": [{"spur": 0}]})"),
              ElementsAre("$.unit: must be \"mm\" or \"inch\""));
}

TEST_F(CheckedForm, RefusesLettersThatMakeNoSolidAtOneThatItHas) {
  const Case cases[] = {
      {R"("chuck": {"name": "New", "letters": {"A": 80, "B": 90, "C": 100}})",
       {"chuck.letters.C: C (100) must be less than A (80)"}},
      {R"("chuck": {"name": "Chuck 160", "letters": {"A": 20}})",
       {"chuck.letters.A: C (22.5) must be less than A (20)"}},
      {R"("chuck": {"name": "New", "letters": {"A": -5, "B": -90, "C": 0}})",
       {"chuck.letters.A: must be above 0, but is -5", "chuck.letters.B: must be above 0, but is -90"}},
      {R"("chuck": {"name": "New", "letters": {"A": 80, "B": 90, "C": 79.9999}})",
       {"chuck.letters: these values make an outline that crosses or touches itself"}},
      {R"("chuck": {"name": "New", "letters": {"A": 80, "B": 90, "C": -1}})", {}},
      {R"("mandrel": {"name": "No step", "letters": {"A": 46, "B": 100, "C": 36, "D": 52, "E": 70, "F": 24,
                                                      "G": 24, "H": 36}})",
       {}},
  };
  for (const Case& each : cases) EXPECT_EQ(RefusedOfMain(each.keys), each.refused) << each.keys;
  surroundings.catalogue["Chuck 160"].C = 90;
  EXPECT_THAT(
      RefusedOfMain(R"("chuck": {"name": "Chuck 160"})"),
      ElementsAre("chuck.name: the catalogue has it without a solid: C (90) must be less than A (80)"));
}

TEST_F(CheckedForm, RefusesLettersThatADeviceDoesNotHave) {
  EXPECT_THAT(
      RefusedOfMain(R"("chuck": {"name": "New", "letters": {"A": 80, "B": 90, "C": 22, "J": true, "=": 1,
                                                                    "": "x", "outer": []}})"),
      ElementsAre("chuck.letters.J: unknown key; known are A, B, C",
                  R"(chuck.letters["="]: unknown key; known are A, B, C)",
                  R"(chuck.letters[""]: unknown key; known are A, B, C)",
                  "chuck.letters.outer: unknown key; known are A, B, C"));
}

TEST_F(CheckedForm, TakesOneNameForDevicesOfDifferentKinds) {
  EXPECT_THAT(RefusedOfMain(R"("chuck": {"name": "Chuck 160"}, "jaw": {"name": "Chuck 160", "shape": 5,
                               "letters": {"A": 10, "B": 20, "C": 3, "D": 4}})"),
              IsEmpty());
}

TEST_F(CheckedForm, RefusesABarOnTheSubSpindle) {
  EXPECT_THAT(RefusedOfSpur(R"("sub": {"billet": {"kind": "cylinder", "outer_diameter": 4, "part_length": 5,
                                                  "bar_length": 9}})"),
              ElementsAre("sub.billet.bar_length: cannot be given for the sub spindle"));
}

TEST_F(CheckedForm, RefusesWhatTheMachineHasNot) {
  surroundings.hasSubSpindle = surroundings.hasTailStock = surroundings.hasSteadyRest = false;
  EXPECT_THAT(RefusedOfSpur(R"("sub": {}, "center": {}, "steady_rest": true)"),
              ElementsAre("sub: the machine has no sub spindle", "center: the machine has no tailstock",
                          "steady_rest: the machine has no steady rest"));
  EXPECT_THAT(RefusedOfSpur(R"("steady_rest": false, "datum": {"sub": {"origin": 5}})"), IsEmpty())
      << "the datum has both spindles on every machine";
}

TEST_F(CheckedForm, RefusesWhatIsWrongWithTheDatumAndTheSteadyRest) {
  EXPECT_THAT(
      RefusedOfSpur(R"("datum": {"main": 5, "sub": {"origin": true, "x": 1}, "y": 1}, "steady_rest": 1)"),
      ElementsAre("datum.y: unknown key; known are main, sub", "datum.main: must be an object",
                  "datum.sub.x: unknown key; known are clamping_out, origin",
                  "datum.sub.origin: must be a number", "steady_rest: must be true or false"));
}

TEST_F(CheckedForm, GetsFromTheCatalogueWhatItLeavesOut) {
  const Json form = Completed(R"({"spurs": [{"spur": 0, "main": {
      "chuck": {"name": "Chuck 160", "letters": {"B": 95}}, "jaw": {"name": "Soft jaw 160"}}}]})");
  const Json& main = form["spurs"][0]["main"];
  EXPECT_EQ(main["chuck"]["letters"], Json::parse(R"({"B": 95, "A": 80, "C": 22.5})"));
  EXPECT_EQ(main["jaw"], Json::parse(R"({"name": "Soft jaw 160", "count": 3, "inside": false, "shape": 5,
                                         "letters": {"A": 38, "B": 62, "C": 12, "D": 24}})"));
}

}  // namespace
}  // namespace vanzet::test
