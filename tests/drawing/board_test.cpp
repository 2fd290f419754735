#include <chrono>
#include <memory>
#include <thread>

#include "base/files/folder_lock.h"
#include "base/files/whole_file.h"
#include "drawing_fixture.h"
#include "support/child.h"

namespace vanzet::drawing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Boards : public testing::Test {
 protected:
  std::string Kept() const { return test::ReadBytes(folder / "drawing.txt"); }
  std::vector<std::string> KeptFigures() const {
    Board board(folder.path());
    EXPECT_TRUE(board.Load());
    std::vector<std::string> names;
    for (const auto& [name, figure] : board.drawing().figures) names.push_back(name);
    return names;
  }
  Board Opened() const {
    Board board(folder.path());
    EXPECT_TRUE(board.Load());
    return board;
  }

  /// Writes the drawing, as a run does that keeps others from writing it.
  Result<void> Save(Board& board) const {
    VANZET_TRY(const auto lock, files::FolderLock::Acquire(folder.path()));
    VANZET_TRY(const auto content, board.Unsaved());
    if (content) VANZET_DO(files::ReplaceFile(folder / Board::kFile, *content));
    board.MarkSaved();
    return {};
  }

  const test::TemporaryFolder folder;
};

TEST_F(Boards, KeepWhatWasDrawn) {
  Board board = Opened();
  ASSERT_TRUE(board.BeginLayer("L", {FindColour("red"), FindLineStyle("dash")}));
  ASSERT_TRUE(board.PutContour(1, Square(5)));
  ASSERT_TRUE(board.PutLine(-100, geometry::CLine(geometry::Point(3, 0), 0, 1, true)));
  ASSERT_TRUE(board.CreateFigure("F"));
  ASSERT_TRUE(board.Append("F", 1));
  ASSERT_TRUE(Save(board));

  const Board other = Opened();
  EXPECT_EQ(DrawingText(other.drawing()), DrawingText(board.drawing()));
  EXPECT_NE(other.FindContour(1), nullptr);
  EXPECT_NE(other.FindLine(-100), nullptr);
  EXPECT_EQ(other.layer(), "0") << "each run begins in the first layer";
}

TEST_F(Boards, WriteNothingWhenNothingWasDrawn) {
  Board board = Opened();
  board.window = Window::kConstruction;
  ASSERT_TRUE(board.PutLine(1, geometry::CLine(geometry::Point(3, 0), 0, 1, true)));
  ASSERT_TRUE(Save(board));
  EXPECT_FALSE(std::filesystem::exists(folder / "drawing.txt"));
}

TEST_F(Boards, OfTwoRunsLoseNothingOfEachOther) {
  Board one = Opened(), two = Opened();
  ASSERT_TRUE(one.CreateFigure("One"));
  ASSERT_TRUE(two.CreateFigure("Two"));
  ASSERT_TRUE(Save(one));
  ASSERT_TRUE(Save(two));
  EXPECT_THAT(KeptFigures(), ElementsAre("One", "Two"));
  EXPECT_TRUE(two.drawing().HasFigure("One")) << "it sees the other's work from then on";
  one.DeleteFigure("One");
  ASSERT_TRUE(Save(one));
  EXPECT_THAT(KeptFigures(), ElementsAre("Two"));
}

TEST_F(Boards, TheLaterOfTwoChangesOfOnePartStays) {
  Board one = Opened(), two = Opened();
  ASSERT_TRUE(one.PutContour(1, Square(1)));
  ASSERT_TRUE(two.PutContour(1, Square(2)));
  ASSERT_TRUE(Save(two));
  ASSERT_TRUE(Save(one));
  EXPECT_EQ(Opened().FindContour(1)->Perim(), 4);
}

TEST_F(Boards, ALayerThatIsDeletedTakesAlongWhatOthersDrewInIt) {
  Board one = Opened();
  ASSERT_TRUE(one.SelectLayer("L"));
  ASSERT_TRUE(Save(one));
  Board two = Opened();
  ASSERT_TRUE(two.SelectLayer("L"));
  ASSERT_TRUE(two.PutContour(1, Square(1)));
  ASSERT_TRUE(Save(two));
  ASSERT_TRUE(one.DeleteLayer("L"));
  ASSERT_TRUE(Save(one));
  EXPECT_EQ(Opened().FindContour(1), nullptr);
}

TEST_F(Boards, ALayerThatOthersDeletedComesAgainWithWhatIsDrawnInIt) {
  Board one = Opened();
  ASSERT_TRUE(one.SelectLayer("L"));
  ASSERT_TRUE(Save(one));
  Board two = Opened();
  ASSERT_TRUE(two.DeleteLayer("L"));
  ASSERT_TRUE(Save(two));
  ASSERT_TRUE(one.PutContour(1, Square(1)));
  ASSERT_TRUE(Save(one));
  ASSERT_TRUE(one.PutContour(2, Square(1)));
  EXPECT_EQ(Opened().drawing().layers.count("L"), 1U);
}

TEST_F(Boards, LeaveADamagedDrawingAlone) {
  Board board = Opened();
  ASSERT_TRUE(board.CreateFigure("F"));
  test::WriteBytes(folder / "drawing.txt", "drawing 1\nrubbish\n");
  const auto saved = Save(board);
  ASSERT_FALSE(saved);
  EXPECT_THAT(saved.fault().Message(), HasSubstr("drawing.txt:2: expected a layer"));
  EXPECT_EQ(Kept(), "drawing 1\nrubbish\n");
  std::filesystem::remove(folder / "drawing.txt");
  EXPECT_TRUE(Save(board)) << "nothing was lost";
  EXPECT_THAT(KeptFigures(), ElementsAre("F"));
}

TEST_F(Boards, BeginAgainInThePlaceOfADamagedOrEmptyDrawing) {
  for (const std::string content : {"drawing 1\nrubbish\n", ""}) {
    test::WriteBytes(folder / "drawing.txt", content);
    Board board(folder.path());
    const auto damage = board.LoadOrBegin();
    ASSERT_TRUE(damage && *damage) << content;
    EXPECT_EQ((*damage)->kind, FaultKind::kDamaged);
    EXPECT_EQ(Kept(), content) << "until the board is saved";
    ASSERT_TRUE(board.CreateFigure("F"));
    ASSERT_TRUE(Save(board));
    EXPECT_THAT(KeptFigures(), ElementsAre("F"));
  }
}

TEST_F(Boards, BeginWithADrawingThatCanBeRead) {
  Board board = Opened();
  ASSERT_TRUE(board.CreateFigure("F"));
  ASSERT_TRUE(Save(board));
  Board again(folder.path());
  const auto damage = again.LoadOrBegin();
  ASSERT_TRUE(damage);
  EXPECT_FALSE(*damage);
  EXPECT_TRUE(again.drawing().HasFigure("F"));
}

TEST_F(Boards, RefuseADrawingThatIsNoFile) {
  std::filesystem::create_directory(folder / "drawing.txt");
  Board board(folder.path());
  EXPECT_THAT(board.Load().fault().Message(), HasSubstr("drawing.txt: not a regular file"));
}

TEST_F(Boards, OfManyProcessesAtOnceLoseNothing) {
  constexpr int kProcesses = 4, kFigures = 5;
  std::vector<std::unique_ptr<test::Child>> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(std::make_unique<test::Child>([this, process](test::Child::Line&) {
      Board board(folder.path());
      bool isDone = static_cast<bool>(board.Load());
      for (int i = 0; i < kFigures; ++i) {
        isDone = isDone && board.CreateFigure("F" + std::to_string(process * kFigures + i)) && Save(board);
      }
      return isDone;
    }));
  }
  for (const auto& child : children) EXPECT_TRUE(child->End());
  EXPECT_EQ(KeptFigures().size(), static_cast<std::size_t>(kProcesses * kFigures));
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    EXPECT_EQ(entry.path().filename(), "drawing.txt") << "nothing is left behind";
  }
}

TEST_F(Boards, AreWholeWhenAProcessIsKilled) {
  for (int i = 0; i < 20; ++i) {
    test::Child child([this](test::Child::Line& line) {
      Board board(folder.path());
      bool isDone = static_cast<bool>(board.Load());
      line.Tell();
      for (int number = 0; isDone; ++number) isDone = board.PutContour(number, Square(5)) && Save(board);
      return isDone;
    });
    ASSERT_TRUE(child.line().Await());
    std::this_thread::sleep_for(std::chrono::milliseconds(i));
    child.Kill();
    Board board(folder.path());
    const auto loaded = board.Load();
    ASSERT_TRUE(loaded) << loaded.fault().Message();
    ASSERT_TRUE(board.PutContour(-1, Square(1)));
    ASSERT_TRUE(Save(board)) << "no lock is left behind";
  }
}

TEST_F(Boards, LayersHaveNumbersForTheRun) {
  Board board;
  EXPECT_EQ(board.LayerNumber(board.layer()), 0);
  ASSERT_TRUE(board.SelectLayer("A"));
  ASSERT_TRUE(board.SelectLayer("B"));
  EXPECT_EQ(board.LayerNumber("A"), 1);
  ASSERT_TRUE(board.DeleteLayer("A"));
  EXPECT_EQ(board.LayerNumber("B"), 2);
  EXPECT_EQ(board.LayerName(1), "A") << "it can be made current again";
  EXPECT_EQ(board.LayerName(7), std::nullopt);
  EXPECT_EQ(board.LayerName(-1), std::nullopt);
}

TEST_F(Boards, HaveRoomForAMillionVertices) {
  Board board;
  geometry::Kurve curve;
  for (int i = 0; i < 400'000; ++i) curve.Add(geometry::Point(i, i % 2), false);
  ASSERT_TRUE(board.PutContour(1, curve));
  ASSERT_TRUE(board.CreateFigure("F"));
  ASSERT_TRUE(board.Append("F", 1));
  EXPECT_EQ(board.Append("F", 1).fault().text,
            "the drawing is full: it cannot have more than 1000000 vertices");
}

}  // namespace
}  // namespace vanzet::drawing
