#include <dlfcn.h>

#include <sstream>

#include "api/host_fixture.h"
#include "vdm/checksum.h"
#include "vdm/embedded/engine.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DrawingExports : public HostTest {
 protected:
  DrawingExports() : HostTest("[environment]\nHideBilletOut=1\n") {}
};

TEST_F(DrawingExports, AreFoundByTheirExactNames) {
  for (const char* name : {"OrvoMacroExec", "OrvoGetCurrentLayer", "OrvoGetLayerName"}) {
    EXPECT_NE(dlsym(RTLD_DEFAULT, name), nullptr) << name;
  }
}

TEST_F(DrawingExports, GiveTheCurrentLayerSoThatItCanBeMadeCurrentAgain) {
  const std::int32_t first = OrvoGetCurrentLayer();
  const std::string name = OrvoGetLayerName(first);
  EXPECT_EQ(name, "0");
  OrvoCommand("lay ch 'Billet_Spindel_1'");
  EXPECT_STREQ(OrvoGetLayerName(OrvoGetCurrentLayer()), "Billet_Spindel_1");
  OrvoCommand(("lay ch '" + name + "'").c_str());
  EXPECT_EQ(OrvoGetCurrentLayer(), first);
  EXPECT_STREQ(OrvoGetLayerName(99), "");
  EXPECT_STREQ(OrvoGetLayerName(-1), "");
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(DrawingExports, RunMacrosByTheirNames) {
  OrvoMacroExec("@@lay", "'grey' 'solid' '' '' ''Billet_out_HS'");
  EXPECT_STREQ(OrvoGetLayerName(OrvoGetCurrentLayer()), "Billet_out_HS");
  OrvoMacroExec("@@lay", "");
  EXPECT_STREQ(OrvoGetLayerName(OrvoGetCurrentLayer()), "0");
  OrvoMacroExec("@@lay", nullptr);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(DrawingExports, ReportAMacroThatCannotBeRun) {
  OrvoMacroExec("nothing", "x");
  OrvoMacroExec("vbpickel", "ALL");
  OrvoMacroExec(nullptr, nullptr);
  EXPECT_THAT(panel.lines, ElementsAre("'nothing x': macro 'nothing' does not exist",
                                       "'vbpickel ALL':1: expected 'POS', found 'ALL'",
                                       HasSubstr("macro '' does not exist")));
}

TEST_F(DrawingExports, TheFaultOfALineQuotesIt) {
  const auto line = host->Command("vdm load job.vdm i_ret 1000");
  ASSERT_FALSE(line);
  EXPECT_EQ(line.fault().source, "vdm load job.vdm i_ret 1000");
  EXPECT_EQ(line.fault().column, 10);
  const auto macro = host->Macro("vbpickel", "ALL");
  ASSERT_FALSE(macro);
  EXPECT_EQ(macro.fault().source, "ALL");
  EXPECT_EQ(macro.fault().column, 1);
}

TEST_F(DrawingExports, LinesReachTheProject) {
  OrvoCommand("env 'HideBilletOut' $_return");
  EXPECT_EQ(host->variables.Text("$_return"), "1");
  OrvoCommand("env 'TMP' $_return");
  EXPECT_THAT(*host->variables.Text("$_return"), HasSubstr((project->folder() / "tmp").string()));
  OrvoCommand("file a '' $_project 'CLAMP_DB_PATH' 'D:\\clamp.cld'");
  OrvoCommand("file e '' $_project 'CLAMP_DB_PATH' $_return");
  EXPECT_EQ(host->variables.Text("$_return"), "D:\\clamp.cld");
  EXPECT_EQ(ReadBytes(folder / "bench.ini"),
            "[environment]\nHideBilletOut=1\n\n[project]\nCLAMP_DB_PATH = D:\\clamp.cld\n");
}

TEST_F(DrawingExports, TheDrawingIsKeptWithTheVdmsAtTheEndOfARun) {
  OrvoCommand("fig cre F x0y0z0");
  OrvoCommand("red -1");
  OrvoMacroVdmClose(OrvoMacroVdmCreate(7, 0));
  EXPECT_FALSE(std::filesystem::exists(folder / "drawing.txt"));
  EXPECT_FALSE(*vdm::VdmStore(folder.path()).Exists(7));
  Restart();
  EXPECT_THAT(ReadBytes(folder / "drawing.txt"), HasSubstr("figure F\n"));
  EXPECT_TRUE(*vdm::VdmStore(folder.path()).Exists(7));
  OrvoCommand("fig cre G x0y0z0");
  Restart();
  EXPECT_TRUE(host->board.Load());
  EXPECT_TRUE(host->board.drawing().HasFigure("F"));
  EXPECT_TRUE(host->board.drawing().HasFigure("G")) << "a run that changes no VDM keeps it too";
}

TEST_F(DrawingExports, ARunThatEndsWithoutACommitLeavesNothing) {
  OrvoCommand("fig cre F x0y0z0");
  OrvoMacroVdmClose(OrvoMacroVdmCreate(7, 0));
  scope.reset();
  host.reset();
  EXPECT_FALSE(std::filesystem::exists(folder / "drawing.txt"));
  EXPECT_FALSE(std::filesystem::exists(folder / "store.db"));
}

TEST_F(DrawingExports, NoVdmIsKeptWithoutTheDrawing) {
  OrvoCommand("fig cre F x0y0z0");
  OrvoMacroVdmClose(OrvoMacroVdmCreate(7, 0));
  std::filesystem::create_directory(folder / "drawing.txt");
  EXPECT_FALSE(host->Commit("test"));
  EXPECT_FALSE(*vdm::VdmStore(folder.path()).Exists(7));
  std::filesystem::remove(folder / "drawing.txt");
  EXPECT_TRUE(host->Commit("test")) << "nothing was lost";
  EXPECT_TRUE(*vdm::VdmStore(folder.path()).Exists(7));
}

TEST_F(DrawingExports, ADrawingThatAProcessCouldNotWriteAnyMoreIsWrittenByTheNext) {
  WriteBytes(folder / "drawing.txt", "drawing 1\nlayer 0 black solid\nend 1\n");
  OrvoCommand("fig cre F x0y0z0");
  OrvoMacroVdmClose(OrvoMacroVdmCreate(7, 0));
  const std::string former = ReadBytes(folder / "drawing.txt");
  ASSERT_TRUE(host->Commit("test"));
  const std::string written = ReadBytes(folder / "drawing.txt");
  {
    // The process died after its transaction, before it wrote the file.
    vdm::SqliteEngine engine(folder / "store.db");
    const vdm::TextFile file{"drawing.txt", written, vdm::ChecksumOf(former)};
    ASSERT_TRUE(engine.Apply({{}, &file, "test", {}}));
  }
  WriteBytes(folder / "drawing.txt", former);
  ASSERT_TRUE(project::Project::Open(folder.path(), kShare));
  EXPECT_EQ(ReadBytes(folder / "drawing.txt"), written);
  WriteBytes(folder / "drawing.txt", former);
  ASSERT_TRUE(project::Project::Open(folder.path(), kShare));
  EXPECT_EQ(ReadBytes(folder / "drawing.txt"), former) << "once";
}

TEST_F(DrawingExports, ADrawingThatCannotBeSavedIsReported) {
  OrvoCommand("fig cre F x0y0z0");
  std::filesystem::create_directory(folder / "drawing.txt");
  Restart();
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("drawing.txt: not a regular file")));
}

TEST_F(DrawingExports, ADamagedDrawingIsReportedAndTheFirstLayerIsCurrent) {
  WriteBytes(folder / "drawing.txt", "rubbish\n");
  EXPECT_STREQ(OrvoGetLayerName(OrvoGetCurrentLayer()), "0");
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("drawing.txt:1: not a drawing")));
}

TEST_F(DrawingExports, FiguresOfTheFolderCanBePicked) {
  WriteBytes(folder / "figures/ring.txt", "k1 e\nx0 y0\nx5 y0\nek\n");
  std::istringstream text("figure ring\n");
  host->picks = std::make_unique<drawing::Picks>(*drawing::Picks::Read(text, "picks.txt"));
  OrvoCommand("dfm pick i_return i_return2 'Select Figure' 20");
  EXPECT_EQ(host->variables.Integer("i_return"), 151);
  OrvoCommand("dfm inf i_return2");
  EXPECT_EQ(host->variables.Text("$_misc"), "ring");
}

TEST(DrawingExportsWithoutAHost, DoNothing) {
  EXPECT_EQ(OrvoGetCurrentLayer(), 0);
  EXPECT_STREQ(OrvoGetLayerName(0), "");
  OrvoMacroExec("@@lay", "");
}

}  // namespace
}  // namespace vanzet::test
