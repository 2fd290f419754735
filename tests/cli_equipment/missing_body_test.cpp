#include <algorithm>

#include "cli/run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
namespace fs = std::filesystem;

/// A chuck with jaws that hold a casting whose file has gone since.
class MissingBody : public CommandLineTest {
 protected:
  MissingBody() {
    MakeProject();
    for (const char* name : {"flange-casting.step", "flange.step"}) {
      fs::copy(fs::path(VANZET_SOURCE_DIR "/examples/bodies") / name, folder / "lathe/bodies");
    }
    const Outcome defined =
        Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/flange-casting.json' lathe");
    EXPECT_EQ(defined.status, 0) << defined.err;
    fs::remove(folder / "lathe/bodies/flange-casting.step");
  }
};

TEST_F(MissingBody, HidesItselfAloneInAnExport) {
  const Outcome exported = Vanzet("export lathe --out models --format stl");
  EXPECT_EQ(exported.status, 0);
  EXPECT_THAT(exported.err, ContainsRegex("^vanzet: .*the billet of the main spindle: body 'flange-casting' "
                                          "does not exist; did you mean 'flange'[?]\n"));
  EXPECT_THAT(exported.out, HasSubstr("models/main-chuck.stl"));
  EXPECT_THAT(exported.out, Not(HasSubstr("main-billet")));
}

TEST_F(MissingBody, HidesItselfAloneInAPicture) {
  const Outcome drawn = Vanzet("picture lathe --view equipment --out a.png");
  EXPECT_EQ(drawn.status, 0);
  EXPECT_THAT(drawn.err, HasSubstr("body 'flange-casting' does not exist"));
  EXPECT_TRUE(fs::exists(folder / "a.png"));
}

TEST_F(MissingBody, IsAFailureWhenItIsStrict) {
  for (const char* command : {"export lathe --out models --format stl --strict",
                              "picture lathe --view equipment --out a.png --strict",
                              "export lathe --out - --format stl --strict"}) {
    const Outcome outcome = Vanzet(command);
    EXPECT_EQ(outcome.status, 1) << command;
    EXPECT_NE(outcome.out, "") << "the rest is written";
    EXPECT_THAT(outcome.err, Not(HasSubstr("messages above"))) << command;
  }
}

TEST_F(MissingBody, IsNotMissedWhereItIsLeftOut) {
  const Outcome without = Vanzet("picture lathe --view equipment --out a.png --without chuck --fit jaw");
  EXPECT_EQ(without.status, 0) << without.err;
  const Outcome unknown = Vanzet("picture lathe --view equipment --out b.png --fit 'main chuk'");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("body 'main chuk' does not exist; did you mean 'main chuck'?"));
  EXPECT_FALSE(fs::exists(folder / "b.png"));
}

}  // namespace
}  // namespace vanzet::test
