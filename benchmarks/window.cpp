#include <QProcess>
#include <QTest>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fstream>

#include "ball.h"
#include "scene/coarse.h"
#include "support.h"
#include "window/application.h"
#include "window/main_window.h"

/// The frames a second and the memory of the real window while a billet of so many facets turns under the
/// mouse: xvfb-run -a -s "-screen 0 3840x2160x24" window_benchmark. Each row is measured in a process of its
/// own.
namespace {

using namespace vanzet;

constexpr int kSeconds = 4;
constexpr int kPatience = 120'000;  // milliseconds

/// Counts the pictures of the widget that shows the bodies.
class FrameCounter final : public QObject {
 public:
  explicit FrameCounter(QWidget& canvas) { canvas.installEventFilter(this); }
  int count() const { return count_; }

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }
  int count_ = 0;
};

void Run(const QString& program, const QStringList& words) {
  if (QProcess::execute(QCoreApplication::applicationDirPath() + "/" + program, words) != 0)
    throw std::runtime_error(program.toStdString() + " failed");
}

/// A binary STL file: a head, the count, and a normal and three corners for each triangle.
void WriteStl(const modeller::Mesh& mesh, const std::filesystem::path& file) {
  std::ofstream stream(file, std::ios::binary);
  const auto write = [&stream](const auto& value) {
    stream.write(reinterpret_cast<const char*>(&value), sizeof(value));
  };
  write(std::array<char, 80>{});
  write(static_cast<std::uint32_t>(mesh.triangles.size()));
  for (const auto& triangle : mesh.triangles) {
    write(std::array<float, 3>{});
    for (const int corner : triangle) {
      const geometry::Point3d& point = mesh.points[static_cast<std::size_t>(corner)];
      write(
          std::array{static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)});
    }
    write(std::uint16_t{0});
  }
}

/// A project whose billet is a ball of nearly that many facets.
void MakeProject(const std::filesystem::path& folder, int facets) {
  Run("vanzet", {"new", QString::fromStdString(folder.string()), "--sample", "lathe"});
  WriteStl(benchmarks::Ball(facets), folder / "bodies/ball.stl");
  const auto form = folder / "form.json";
  std::ofstream(form) << R"({"spurs":[{"spur":0,"main":{"billet":{"kind":"solid","solid":"ball"}}}]})";
  Run("vanzet", {"define", QString::fromStdString(form.string()), QString::fromStdString(folder.string())});
}

window::EquipmentView& ShowProject(window::MainWindow& window, const QString& folder, const QSize& size) {
  window.resize(size);
  window.show();
  benchmarks::Check(window.projectCommands().Open(folder.toStdString()));
  auto& view = *window.findChild<window::EquipmentView*>();
  const bool isShown = QTest::qWaitFor(
      [&] { return !window.session()->isAtWork() && view.model() && !view.model()->bodies.empty(); },
      kPatience);
  if (!isShown) throw std::runtime_error("the billet does not appear");
  // The fine body follows the coarse one.
  QTest::qWait(3000);
  return view;
}

/// Moves the mouse over the view as fast as the window follows.
void Turn(window::EquipmentView& view) {
  FrameCounter frames(*view.findChild<QWidget*>());
  const QPoint middle = view.rect().center();
  QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, middle);
  QElapsedTimer clock;
  clock.start();
  const std::clock_t before = std::clock();
  for (int i = 0; clock.elapsed() < 1000 * kSeconds; ++i) {
    const QPoint place = middle + QPoint(i % 200, i % 90);
    QMouseEvent move(QEvent::MouseMove, place, view.mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &move);
    QCoreApplication::processEvents();
  }
  const double worked = 1e3 * double(std::clock() - before) / CLOCKS_PER_SEC;
  std::printf("| %zu | %d x %d | %.1f | %.0f ms | %.0f MB |\n", scene::CountFacets(*view.model()),
              view.width(), view.height(), 1e3 * frames.count() / double(clock.elapsed()),
              worked / std::max(frames.count(), 1), benchmarks::PeakMegabytes());
  QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, middle);
}

void MeasureAll() {
  std::puts("| Facets | View | Frames/s | CPU time a frame | Memory |\n|---|---|---|---|---|");
  std::fflush(stdout);
  const benchmarks::Folder folder;
  for (const int facets : {100'000, 1'000'000}) {
    const auto project = folder.path / std::to_string(facets);
    MakeProject(project, facets);
    for (const auto& [width, height] : {std::pair{"1400", "900"}, {"3840", "2160"}})
      Run("window_benchmark", {QString::fromStdString(project.string()), width, height});
  }
}

}  // namespace

int main(int argc, char** argv) try {
  const benchmarks::Folder settings;
  qputenv("XDG_CONFIG_HOME", settings.path.c_str());
  window::Application application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 4) return MeasureAll(), 0;
  window::MainWindow window(Places::OfProcess());
  auto& view = ShowProject(window, words[1], {words[2].toInt(), words[3].toInt()});
  window.findChild<window::Actions*>()->operator[](window::Command::kEquipmentOnly)->trigger();
  QTest::qWait(1000);
  Turn(view);
} catch (const std::exception& error) {
  return std::fprintf(stderr, "%s\n", error.what()), 1;
}
