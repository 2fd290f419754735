#include <sys/stat.h>

#include <QDialogButtonBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>

#include "support/places.h"
#include "vdm/store.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using window::Command;

class Projects : public WindowTest {
 protected:
  void Drop(const std::filesystem::path& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
    // Shift asks for a move where the source allows one.
    QDragEnterEvent enter(QPoint(50, 50), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(window.get(), &enter);
    isTaken = enter.isAccepted();
    QDropEvent drop(QPointF(50, 50), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    if (isTaken) QApplication::sendEvent(window.get(), &drop);
    done = drop.dropAction();
  }

  Qt::DropActions offered = Qt::CopyAction;
  bool isTaken = false;
  Qt::DropAction done = Qt::IgnoreAction;  ///< the answer to the source of the last drop
};

TEST_F(Projects, OpenWithTheirDefinitionTheirLayersAndTheirEquipment) {
  OpenSample(true);
  EXPECT_EQ(window->windowTitle(), "lathe - vanzet workbench");
  ASSERT_EQ(definition().tree().topLevelItemCount(), 2);
  EXPECT_EQ(Records(0)->childCount(), 18);
  EXPECT_TRUE(QTest::qWaitFor([&] { return equipment().isSmooth(); }, 20'000));
  EXPECT_TRUE(actions()[Command::kDefinition]->isEnabled());
}

TEST_F(Projects, AreMadeWithTheDefinitionsOfAllSpurs) {
  ASSERT_TRUE(window->projectCommands().Make(folder / "lathe", "mill-turn"));
  const auto definitions = window->session()->Definitions();
  ASSERT_TRUE(definitions);
  ASSERT_EQ(definitions->size(), 2U);
  for (const auto& spur : *definitions) {
    ASSERT_TRUE(spur.definition) << spur.spur;
    EXPECT_EQ(spur.definition->version, 100);
    EXPECT_EQ(spur.definition->operations.size(), 18U);
  }
  EXPECT_NE(definition().tree().topLevelItem(1)->text(1), "no definition yet");
  EXPECT_EQ(Messages().find("! "), std::string::npos) << Messages();
}

TEST_F(Projects, WhoseDefinitionsCannotBeMadeAreNotMade) {
  window::MainWindow alone(Places{folder / "bin/vanzet-window", VANZET_BINARY_DIR "/share/vanzet"});
  EXPECT_FALSE(alone.projectCommands().Make(folder / "lathe", "mill-turn"));
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe"));
  EXPECT_EQ(alone.session(), nullptr);
}

TEST_F(Projects, ThatAreNoneAreRefusedAndTheFormerOneStays) {
  OpenSample();
  const auto opened = window->projectCommands().Open(folder / "nothing");
  ASSERT_FALSE(opened);
  EXPECT_THAT(opened.fault().Message(), HasSubstr("is not a folder"));
  EXPECT_EQ(window->session()->project().folder().filename(), "lathe");
}

TEST_F(Projects, AreNotNeededToOpenTheWindow) {
  EXPECT_FALSE(actions()[Command::kDefinition]->isEnabled());
  EXPECT_FALSE(actions()[Command::kSaveVdm]->isEnabled());
  EXPECT_TRUE(actions()[Command::kOpenProject]->isEnabled());
  window->equipmentCommands().Refresh();
}

TEST_F(Projects, AreRememberedWithTheWindowsPlace) {
  OpenSample();
  actions().ActionOf("de")->trigger();
  window->resize(1111, 777);
  definition().hide();
  actions()[Command::kEquipmentOnly]->trigger();
  window->close();
  Restart();
  EXPECT_TRUE(actions()[Command::kEquipmentOnly]->isChecked());
  EXPECT_FALSE(drawing().isVisible());
  window->resize(900, 600);
  window::WindowMemory memory;
  EXPECT_EQ(memory.Recent().front().toStdString(), (folder / "lathe").string());
  EXPECT_TRUE(window->restoreGeometry(memory.Geometry()));
  EXPECT_EQ(window->size(), QSize(1111, 777));
  EXPECT_TRUE(definition().isHidden());
  EXPECT_TRUE(actions().ActionOf("de")->isChecked());
}

TEST_F(Projects, DefinitionsGoToFilesAndBack) {
  OpenSample(true);
  const auto file = folder / "job.vdm";
  ASSERT_TRUE(window->projectCommands().SaveVdm(1000, file));
  ASSERT_TRUE(window->projectCommands().LoadVdm(file, 1001));
  const auto definitions = window->session()->Definitions();
  EXPECT_EQ(definitions->at(1).definition->operations.at(1).sections,
            definitions->at(0).definition->operations.at(1).sections);
  const auto refused = window->projectCommands().SaveVdm(1000, folder / "lathe" / "store.db");
  EXPECT_FALSE(refused);
}

TEST_F(Projects, ThatAreOpenInAnotherProcessAreNotChanged) {
  OpenSample(true);
  const auto before = Section(1, 3);
  vdm::VdmStore other(folder / "lathe");
  ASSERT_TRUE(other.Open(1000));
  ASSERT_TRUE(other.Commit("test"));
  const auto said = AnswerBox("OK");
  window->equipmentCommands().Define();
  EXPECT_THAT(said->toStdString(), HasSubstr("VDM 1000 of this project is open in another process"));
  EXPECT_EQ(Section(1, 3), before);
}

TEST_F(Projects, ShownInTwoWindowsSaySo) {
  OpenSample();
  window::MainWindow second(
      Places{VANZET_BINARY_DIR "/bin/vanzet-window", VANZET_BINARY_DIR "/share/vanzet"});
  second.show();
  ASSERT_TRUE(second.projectCommands().Open(folder / "lathe"));
  EXPECT_THAT(second.findChild<window::NoticeBar*>()->Message().toStdString(),
              HasSubstr("open in another workbench as well"));
  EXPECT_EQ(notice().Message(), "");
}

TEST_F(Projects, ThatOthersChangeAreShownAsTheyAreThen) {
  OpenSample();
  vdm::VdmStore other(folder / "lathe");
  ASSERT_TRUE(other.Delete(1001));
  ASSERT_TRUE(other.Commit("test"));
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return definition().tree().topLevelItem(1)->text(1) == "no definition yet"; }, 10'000));
}

TEST_F(Projects, TakeDroppedFilesIntoTheirFolders) {
  OpenSample();
  Drop(VANZET_SOURCE_DIR "/examples/bodies/scan.stl");
  Drop(VANZET_SOURCE_DIR "/examples/contours/bracket.dxf");
  EXPECT_TRUE(ReadBytes(folder / "lathe" / "bodies/scan.stl") ==
              ReadBytes(VANZET_SOURCE_DIR "/examples/bodies/scan.stl"));
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe" / "figures/bracket.dxf"));
  EXPECT_THAT(Messages(), HasSubstr("bracket.dxf"));
  WriteBytes(folder / "notes.txt", "x");
  Drop(folder / "notes.txt");
  EXPECT_FALSE(isTaken);
}

TEST_F(Projects, TakeEachFormatOfABodyThatIsReadThere) {
  OpenSample();
  for (const char* ending : {".stp", ".iges", ".IGS", ".brep", ".3mf"}) {
    const std::string name = std::string("shaft") + ending;
    std::filesystem::remove_all(folder / "lathe" / "bodies");
    WriteBytes(folder / name, "the bytes of a body");
    Drop(folder / name);
    EXPECT_TRUE(isTaken) << ending;
    EXPECT_EQ(ReadBytes(folder / "lathe" / "bodies" / name), "the bytes of a body");
  }
}

TEST_F(Projects, WaitForNoPipeThatIsDropped) {
  OpenSample();
  ASSERT_EQ(mkfifo((folder / "pipe.step").c_str(), 0600), 0);
  Drop(folder / "pipe.step");
  EXPECT_THAT(notice().Message().toStdString(), HasSubstr("pipe.step"));
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe" / "bodies/pipe.step"));
}

TEST_F(Projects, CopyWhatIsDroppedAlsoFromASourceThatWouldRatherMove) {
  OpenSample();
  offered = Qt::CopyAction | Qt::MoveAction;
  Drop(VANZET_SOURCE_DIR "/examples/bodies/scan.stl");
  EXPECT_EQ(done, Qt::CopyAction);
  offered = Qt::MoveAction;
  Drop(VANZET_SOURCE_DIR "/examples/bodies/casting.step");
  EXPECT_FALSE(isTaken) << "the source would delete its file";
}

TEST_F(Projects, AskBeforeADroppedFileTakesTheNameOfAnother) {
  OpenSample();
  WriteBytes(folder / "lathe" / "bodies/scan.step", "mine");
  const auto said = AnswerBox("Skip");
  Drop(VANZET_SOURCE_DIR "/examples/bodies/scan.stl");
  EXPECT_EQ(*said, "scan.step already exists.");
  EXPECT_EQ(ReadBytes(folder / "lathe" / "bodies/scan.step"), "mine");
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe" / "bodies/scan.stl"));
  AnswerBox("Keep Both");
  Drop(VANZET_SOURCE_DIR "/examples/bodies/scan.stl");
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe" / "bodies/scan-2.stl"));
  AnswerBox("Replace");
  Drop(VANZET_SOURCE_DIR "/examples/bodies/scan.stl");
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe" / "bodies/scan.step"));
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe" / "bodies/scan.stl"));
}

TEST_F(Projects, GoOutAsPicturesAndBodies) {
  OpenSample(true);
  ASSERT_TRUE(exports().WriteDrawing(folder / "drawing.svg"));
  EXPECT_THAT(ReadBytes(folder / "drawing.svg"), HasSubstr("Billet_Spindel_1"));
  ASSERT_TRUE(exports().WriteDrawing(folder / "drawing.png"));
  ASSERT_TRUE(exports().WriteEquipmentPicture(folder / "equipment.png"));
  for (const char* name : {"drawing.png", "equipment.png"}) {
    EXPECT_FALSE(QImage(QString::fromStdString((folder / name).string())).isNull()) << name;
  }
  ASSERT_TRUE(exports().WriteBodies(modeller::ExportFormat::kStl, folder / "bodies"));
  EXPECT_TRUE(std::filesystem::exists(folder / "bodies/equipment.stl"));
  EXPECT_TRUE(std::filesystem::exists(folder / "bodies/main-jaw-1.stl"));
}

TEST_F(Projects, WriteTheSetUpSheetInTheLanguageOfTheWindow) {
  OpenSample(true);
  ASSERT_TRUE(exports().WriteSheet(folder / "set-up.pdf"));
  EXPECT_TRUE(ReadBytes(folder / "set-up.pdf").starts_with("%PDF-"));
  ASSERT_TRUE(exports().WriteSheet(folder / "set-up.html"));
  EXPECT_THAT(ReadBytes(folder / "set-up.html"), HasSubstr("<html lang=\"en\""));
  actions().ActionOf("de")->trigger();
  ASSERT_TRUE(exports().WriteSheet(folder / "set-up.svg"));
  EXPECT_THAT(ReadBytes(folder / "set-up.svg"),
              AllOf(HasSubstr("<svg"), HasSubstr("Chuck 160"), HasSubstr("Rohteil")));
}

TEST_F(Projects, AskWhereTheSetUpSheetIsWritten) {
  OpenSample(true);
  const std::filesystem::path place = folder / "by-menu";
  When([] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr; },
       [&] {
         auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
         EXPECT_EQ(dialog->nameFilters(), (QStringList{"HTML (*.html)", "PDF (*.pdf)", "SVG (*.svg)"}));
         dialog->selectNameFilter("PDF (*.pdf)");
         dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(place.string()));
         dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
       });
  actions()[Command::kSetUpSheet]->trigger();
  EXPECT_TRUE(ReadBytes(folder / "by-menu.pdf").starts_with("%PDF-"));
}

TEST_F(Projects, WithoutEquipmentHaveNothingToExport) {
  OpenSample();
  EXPECT_FALSE(exports().WriteSheet(folder / "set-up.html"));
  EXPECT_FALSE(std::filesystem::exists(folder / "set-up.html"));
  EXPECT_FALSE(exports().WriteEquipmentPicture(folder / "equipment.png"));
  EXPECT_FALSE(exports().WriteBodies(modeller::ExportFormat::kStep, folder / "bodies"));
  EXPECT_FALSE(std::filesystem::exists(folder / "equipment.png"));
}

TEST_F(Projects, OutliveWhatIsThrownInAnEvent) {
  OpenSample(true);
  QTimer::singleShot(0, window.get(), [] { throw std::runtime_error("the sky fell"); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return Messages().find("the sky fell") != std::string::npos; }));
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(Section(5, 1).empty());
}

}  // namespace
}  // namespace vanzet::test
