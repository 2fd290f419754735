#include "window_fixture.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <clocale>
#include <cstdlib>

#include "project/sample.h"
#include "support/places.h"
#include "test_display.h"

namespace vanzet::test {
namespace {

constexpr int kLook = 20;        // milliseconds between looks for what is awaited
constexpr int kPatience = 3000;  // milliseconds in which a pick has to be answered

}  // namespace

window::Application& WindowTest::Program() {
  static int count = 1;
  static char name[] = "window_test";
  static char* words[] = {name, nullptr};
  static auto* const program = [] {
    UseTestDisplay();
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    auto* const made = new window::Application(count, words);
    std::setlocale(LC_ALL, locale.c_str());
    return made;
  }();
  return *program;
}

WindowTest::WindowTest() {
  Program();
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString((folder / "settings").string()));
  window::WindowMemory().SetLanguage("en");
  Restart();
}

WindowTest::~WindowTest() {
  window.reset();
  unsetenv("VANZET_SCRIPT");
  unsetenv("VANZET_TRANSCRIPT");
}

void WindowTest::Restart() {
  window.reset();
  window = std::make_unique<window::MainWindow>(
      Places{VANZET_BINARY_DIR "/bin/vanzet-window", VANZET_BINARY_DIR "/share/vanzet"});
  Program().reportFault = [this](const Fault& fault) { window->ReportFault(fault); };
  window->resize(1400, 900);
  window->show();
  QCoreApplication::processEvents();
}

void WindowTest::OpenSample(bool hasBarJob) {
  ASSERT_TRUE(window->projectCommands().Make(folder / "lathe", "mill-turn"));
  if (hasBarJob) Play(ReadBytes(VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt"));
  ASSERT_EQ(Messages().find("! "), std::string::npos) << Messages();
  QCoreApplication::processEvents();
}

void WindowTest::OpenSampleWithoutDefinitions() {
  ASSERT_TRUE(project::MakeProject(folder / "lathe", "mill-turn", VANZET_BINARY_DIR "/share/vanzet"));
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
}

void WindowTest::Play(const std::string& script, std::vector<std::function<void()>> answers) {
  WriteBytes(folder / "script.txt", script);
  setenv("VANZET_SCRIPT", (folder / "script.txt").c_str(), 1);
  setenv("VANZET_TRANSCRIPT", (folder / "transcript.jsonl").c_str(), 1);
  std::function<void(std::size_t)> answer = [&](std::size_t i) {
    if (i == answers.size()) return;
    When([this] { return IsPicking(); },
         [&, i] {
           QCoreApplication::processEvents();  // the line of the pick has its place then
           answers[i]();
           GiveUpLater();
           answer(i + 1);
         });
  };
  answer(0);
  window->equipmentCommands().Define();
  unsetenv("VANZET_SCRIPT");
  EXPECT_EQ(ReadBytes(folder / "transcript.jsonl").find("\"error\""), std::string::npos)
      << ReadBytes(folder / "transcript.jsonl");
}

void WindowTest::GiveUpLater() {
  QTimer::singleShot(kPatience, window.get(), [this] {
    if (!IsPicking()) return;
    ADD_FAILURE() << "the pick was not answered";
    window->equipmentCommands().CancelPick();
  });
}

std::vector<std::string> WindowTest::Section(std::size_t operation, std::size_t section) {
  const auto definitions = window->session()->Definitions();
  return definitions->at(0).definition->operations.at(operation).sections.at(section);
}

QTreeWidgetItem* WindowTest::Records(int spur) {
  const QTreeWidgetItem* const top = definition().tree().topLevelItem(spur);
  return top->child(top->childCount() - 1);
}

QPoint WindowTest::At(double x, double y) {
  return drawing().frame().ToScreen({x, y}).toPoint();
}

void WindowTest::Click(QWidget& widget, const QPoint& place) {
  QTest::mouseMove(&widget, place);
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

void WindowTest::When(std::function<bool()> isTime, std::function<void()> work) {
  auto* const timer = new QTimer(window.get());
  QObject::connect(timer, &QTimer::timeout, timer, [=] {
    if (!isTime()) return;
    timer->deleteLater();
    timer->stop();
    work();
  });
  timer->start(kLook);
}

std::shared_ptr<QString> WindowTest::AnswerBox(const QString& button) {
  auto said = std::make_shared<QString>();
  When([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; },
       [=] {
         auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
         *said = box->text();
         for (QAbstractButton* choice : box->buttons()) {
           if (choice->text().remove('&') == button) return choice->click();
         }
         box->reject();
       });
  return said;
}

}  // namespace vanzet::test
