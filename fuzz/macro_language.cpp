#include <cstdlib>
#include <memory>
#include <sstream>

#include "drawing/drawing_text.h"
#include "drawing/picks.h"
#include "drawing/picture.h"
#include "fuzz/fuzz.h"
#include "language/interpreter.h"
#include "tests/support/memory_engine.h"

namespace vanzet {
namespace {

/// A project that nothing is kept of.
class Nowhere final : public language::Workplace {
 public:
  std::string Environment(std::string_view key) override { return std::string(key); }
  Result<std::string> Setting(std::string_view key) override { return std::string(key); }
  Result<void> SetSetting(std::string_view, std::string_view) override { return {}; }
  std::vector<std::string> FigureFiles() override { return {"F"}; }
  Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string&) override {
    return std::vector<geometry::Kurve>();
  }
  Result<void> ShowHelp(const std::string&) override { return {}; }
};

/// Runs lines, of which no VDM comes to a file: none can be made where there is no folder for its lock.
void RunLines(std::istream& lines, drawing::Board& board) {
  constexpr int kMostLines = 2000;
  project::Variables variables;
  vdm::VdmStore store(std::make_unique<test::MemoryEngine>(), "/nowhere/store.lock");
  const PathMap paths;
  Nowhere workplace;
  std::istringstream picked("figure F\nposition 1 2\nfigure None\n");
  drawing::Picks picks = *drawing::Picks::Read(picked, "picks.txt");
  modeller::BodyTable bodies;
  const modeller::MeshTolerance mesh;
  language::Surroundings surroundings{variables, store, paths, board, picks, bodies, mesh, workplace};
  std::string line;
  for (int i = 0; i < kMostLines && std::getline(lines, line); ++i) {
    // Bodies are the kernel's work, and exporting one writes a file.
    if (line.find("sld") != std::string::npos || line.find("dll") != std::string::npos) continue;
    static_cast<void>(language::Run(line, surroundings));
  }
}

}  // namespace
}  // namespace vanzet

/// Whatever lines draw can be kept, read again, and pictured.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  std::istringstream lines(fuzz::TextOf(data, size));
  drawing::Board board;
  RunLines(lines, board);
  const std::string text = drawing::DrawingText(board.drawing());
  std::istringstream kept(text);
  const auto read = drawing::ReadDrawing(kept, "drawing.txt");
  if (!read || drawing::DrawingText(*read) != text) std::abort();
  for (const auto window : {drawing::Window::kConstruction, drawing::Window::kDisplay}) {
    if (!drawing::PictureSvg(*read, {.window = window})) std::abort();
  }
  return 0;
}
