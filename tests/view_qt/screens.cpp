// Leaves a picture of every page in a folder, to be looked at: in English and German, light and dark, at one
// and two times the size.  view_qt_screens FOLDER

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QTimer>
#include <fstream>
#include <iostream>
#include <sstream>

#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "support/places.h"
#include "view/qt/application.h"
#include "view/qt/qt_view.h"
#include "view_qt/memory_display.h"
#include "view_qt/person.h"

namespace {

using namespace vanzet;
using view::qt::DialogWindow;

/// A page as it is to be seen: its name, and what a person does to get there.
struct Screen {
  const char* name;
  const char* script;
};

constexpr Screen kScreens[] = {
    {"start", ""},
    {"empty_spindle", "select 2\n"},
    {"chuck", "select 3\n"},
    {"jaw", "select 4\n"},
    {"collet_none", "select 5\n"},
    {"center", "select 15\n"},
    {"own_device", "select 9\n"},
    {"bezel", "select 16\n"},
    {"billet_cylindric", "select 19\n"},
    {"billet_cylindric_wrong", "select 19\nset 2026 90\nset 2024 x\n"},
    {"billet_cylindric_sub", "select 23\n"},
    {"billet_figure", "select 20\n"},
    {"billet_solid", "select 21\n"},
    {"finishpart_figure", "select 28\n"},
    {"finishpart_solid", "select 29\n"},
    {"datum", "select 34\n"},
    {"new_parent", "select 40\n"},
    {"new_chuck", "select 36\nchoose 2123 \"Chuck 160\"\nset 2033 85\n"},
    {"new_collet", "select 37\nchoose 2123 \"Collet D42\"\n"},
    {"new_mandrel", "select 38\nchoose 2123 \"Mandrel D40\"\nset 2037 72\n"},
    {"new_face_driver", "select 39\nchoose 2123 \"Face driver D50\"\n"},
    {"new_collet_wrong", "select 37\nchoose 2123 \"Collet D42\"\nset 2034 120\n"},
    {"new_jaw_1", "select 41\n"},
    {"new_jaw_2", "select 42\n"},
    {"new_jaw_3", "select 43\n"},
    {"new_jaw_4", "select 44\n"},
    {"new_jaw_5", "select 45\n"},
    {"new_jaw_6", "select 46\n"},
    {"new_jaw_7", "select 47\n"},
    {"new_jaw_8", "select 48\n"},
    {"new_center_1", "select 50\n"},
    {"new_center_2", "select 51\n"},
};

/// The palette of the style, or one of light on dark.
QPalette PaletteOf(bool isDark) {
  if (!isDark) return QApplication::style()->standardPalette();
  QPalette palette(QColor(0x2b, 0x2d, 0x31), QColor(0x2b, 0x2d, 0x31));
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2c));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd6));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, QColor(0xe6, 0xe6, 0xe6));
    palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x86));
  }
  palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9c, 0xa0));
  return palette;
}

/// The texts of a catalogue of messages, "number = text" a line.
std::map<int, std::string> Messages(const std::string& file) {
  std::map<int, std::string> messages;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t sign = line.find(" = ");
    if (sign == std::string::npos || line.starts_with("#")) continue;
    messages[std::stoi(line)] = line.substr(sign + 3);
  }
  return messages;
}

void Define(test::DialogWorld& world, const std::string& language) {
  std::ifstream catalogue(VANZET_SOURCE_DIR "/share/samples/mill-turn/clampdevice.cld", std::ios::binary);
  std::ostringstream devices;
  devices << catalogue.rdbuf();
  test::WriteBytes(world.catalogue, devices.str());
  world.SetMachine({.sub = true, .tail = true, .lun = true, .spurs = 2});
  world.host.translations = Messages(VANZET_SOURCE_DIR "/share/messages/" + language + ".txt");
}

/// Shows one dialog, does what the script says, and keeps what is seen then.
void SavePicture(const Screen& screen, const QString& file) {
  view::qt::QtView qt;
  const platform::PresenterScope boxes(qt.Boxes());
  dialog::CDlgMain dialog(nullptr, qt);
  QTimer::singleShot(0, [&] {
    auto& window = *static_cast<DialogWindow*>(static_cast<QWidget*>(qt.Window()));
    test::Responder responder;
    test::Person person(window, responder);
    std::istringstream script(screen.script);
    view::ScriptReader lines(script);
    for (auto line = lines.Next(); line && !line->empty(); line = lines.Next()) {
      const auto done = person.Do(*line);
      if (!done) std::cerr << screen.name << ": " << done.fault().Message() << '\n';
    }
    QApplication::processEvents();
    window.grab().save(file);
    window.close();
  });
  dialog.RunModalLoop(4);
}

/// Fills the definition, so that pages have something to show.
constexpr const char* kDefinition =
    "select 3\nchoose 2124 \"Chuck 210\"\npress 2154\n"
    "select 4\nchoose 2124 \"Hard jaw 210 outside stepped\"\npress 2154\n"
    "select 19\nset 2022 80\nset 2023 120\nset 2024 2.5\nset 2025 8\nset 2026 20\nset 2027 1000\npress 2016\n"
    "select 34\nset 2203 60\nset 2207 20\nset 2211 40\nset 2214 -15\npress 2015\n"
    "select 16\nset 2019 1\npress 2015\n";

int TakeAll(const QDir& folder) {
  const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1"));
  for (const bool isDark : {false, true}) {
    QApplication::setPalette(PaletteOf(isDark));
    for (const char* language : {"en", "de"}) {
      qputenv("VANZET_LANGUAGE", language);
      test::DialogWorld world;
      Define(world, language);
      SavePicture({"definition", kDefinition}, folder.filePath(QStringLiteral("definition.png")));
      for (const Screen& screen : kScreens) {
        const QString name = QStringLiteral("%1_%2_%3_x%4.png")
                                 .arg(QLatin1String(screen.name), QLatin1String(language),
                                      QLatin1String(isDark ? "dark" : "light"), scale);
        SavePicture(screen, folder.filePath(name));
      }
    }
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: view_qt_screens FOLDER\n";
    return 2;
  }
  test::UseMemoryAsDisplay();
  const auto made = view::qt::EnsureApplication();
  if (!made) {
    std::cerr << made.fault().Message() << '\n';
    return 1;
  }
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  folder.mkpath(QStringLiteral("."));
  return TakeAll(folder);
}
