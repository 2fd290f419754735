#pragma once

#include <QString>
#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

#include "base/length_unit.h"
#include "scene/scene.h"
#include "window/actions.h"
#include "window/commands/body_reader.h"
#include "window/session.h"
#include "window/texts.h"

class QWidget;

namespace vanzet::window {

/// The state that the commands of the window share: the open project, what is going on in it, and where they
/// report. Only the commands change it.
struct Workplace {
  QWidget* window;  ///< the parent of boxes
  const Texts& texts;
  Places places;

  /// Shows why something could not be done.
  std::function<void(const Fault&)> reportFault;
  /// Shows a text above the views until something else is shown there.
  std::function<void(const QString&)> showNotice;
  /// Shows for a moment what was done.
  std::function<void(const QString&)> reportDone;
  /// Shows a page of the documentation, "window.md", from a heading on; an empty one: from its beginning.
  std::function<Result<void>(const char* page, const QString& heading)> showHelp;

  std::unique_ptr<Session> session = {};                ///< null while no project is open
  int spur = 0;                                         ///< its equipment is shown
  std::shared_ptr<const scene::Scene> scene = {};       ///< that equipment; null without a definition
  std::shared_ptr<const scene::Scene> shownScene = {};  ///< the same with the bodies as they are to be seen
  std::unique_ptr<BodyReader> bodies = std::make_unique<BodyReader>();  ///< of the open project
  LengthUnit unit = LengthUnit::kMillimetre;  ///< of the lengths that people read and type
  bool isBusy = false;  ///< bodies are being read, made or written: no other work can begin

  /// The source of the named solids of the open project.
  results::FindBody BodySource() const {
    return [this](const std::string& name) {
      return bodies->Find(session->project().folder() / "bodies", name);
    };
  }

  void Report(const Result<void>& done) const {
    if (!done) reportFault(done.fault());
  }
};

/// A text of a menu as a title: "&Save Definition..." is "Save Definition".
inline QString TitleOf(QString text) {
  return text.remove('&').remove("...");
}

/// Keeps other work from beginning while it lives.
class BusyMark {
 public:
  explicit BusyMark(Workplace& workplace) : workplace_(workplace) { workplace_.isBusy = true; }
  ~BusyMark() { workplace_.isBusy = false; }
  BusyMark(const BusyMark&) = delete;
  BusyMark& operator=(const BusyMark&) = delete;

 private:
  Workplace& workplace_;
};

/// Runs the command by the row of a family's table. False when the family does not have it.
template <class Family, class Rows>
bool RunFromTable(Family& family, const Rows& rows, Command command) {
  const auto row = std::ranges::find_if(rows, [&](const auto& one) { return one.command == command; });
  if (row == std::end(rows)) return false;
  (family.*row->run)();
  return true;
}

}  // namespace vanzet::window
