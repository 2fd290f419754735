#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Which libraries from outside a command loads: the loader names each on standard error.
class QuickStart : public CommandLineTest {
 protected:
  std::string LoadedBy(const std::string& arguments) {
    const Outcome run = Vanzet(arguments, "LD_DEBUG=files");
    EXPECT_EQ(run.status, 0) << arguments;
    return run.err;
  }

  void ExpectNoLibraryThatIsSlowToLoad(const std::string& arguments) {
    const std::string loaded = LoadedBy(arguments);
    EXPECT_THAT(loaded, HasSubstr("libsqlite3")) << arguments;
    EXPECT_THAT(loaded, Not(HasSubstr("libTK"))) << arguments;
    EXPECT_THAT(loaded, Not(HasSubstr("libQt"))) << arguments;
    EXPECT_THAT(loaded, Not(HasSubstr("libpq"))) << arguments;
  }
};

TEST_F(QuickStart, OfWhatMakesNoSolidLoadsNeitherOpenCascadeNorQtNorTheClientOfAServer) {
  MakeUpgradedProject();
  for (const std::string command :
       {"--version", "--help", "completion bash", "show lathe", "items lathe",
        "define '" VANZET_SOURCE_DIR "/examples/definitions/bar-job.json' lathe --dry-run"}) {
    ExpectNoLibraryThatIsSlowToLoad(command);
  }
}

TEST_F(QuickStart, OfAnExportLoadsOpenCascadeAlone) {
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/bar-job.json' lathe").status, 0);
  const std::string loaded = LoadedBy("export lathe --out models --format wrl");
  EXPECT_THAT(loaded, HasSubstr("libTKernel"));
  EXPECT_THAT(loaded, Not(HasSubstr("libQt")));
}

TEST_F(QuickStart, OfAPngOfTheDrawingLoadsQtAlone) {
  MakeUpgradedProject();
  const std::string loaded = LoadedBy("picture lathe --out drawing.png");
  EXPECT_THAT(loaded, HasSubstr("libQt6Svg"));
  EXPECT_THAT(loaded, Not(HasSubstr("libTK")));
}

TEST_F(QuickStart, SaysWhereItsLibraryIsMissing) {
  MakeUpgradedProject();
  std::filesystem::create_directory(folder / "alone");
  std::filesystem::copy_file(VANZET_PROGRAM, folder / "alone/vanzet");
  const Outcome run = Vanzet("--version >/dev/null && VANZET_SHARE='" VANZET_SOURCE_DIR
                             "/share' alone/vanzet picture lathe --out drawing.png",
                             "", "");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("vanzet: libvanzet-png.so is neither at "));
}

}  // namespace
}  // namespace vanzet::test
