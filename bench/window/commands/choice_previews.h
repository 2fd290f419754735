#pragma once

#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>
#include <functional>
#include <initializer_list>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"
#include "window/commands/workplace.h"
#include "window/docks/choice_dock.h"

namespace vanzet::window {

/// Makes the pictures of the names that a pick offers, one after the other while the user reads the list:
/// outlines of figures between two events, bodies in the background as they are read.
///
/// Threads   all calls are in that of the window; only bodies are drawn in another
class ChoicePreviews final : public QObject {
  Q_OBJECT
 public:
  using FindContours = std::function<Result<std::vector<geometry::Kurve>>(const std::string& figure)>;

  ChoicePreviews(const Workplace& workplace, ChoiceDock& dock, FindContours contours);
  ~ChoicePreviews() override;  ///< waits for a picture that is being drawn

  // Requires: the dock offers the names.
  void BeginFigures(const QStringList& names);
  /// Solids of large files get no picture before they are marked: one after the other they are read.
  void BeginSolids(const QStringList& names);
  void End();

 private:
  void Next();
  bool ShowFigure(const QString& name);
  bool ShowSolid(const QString& name);
  void Draw(const QString& name, const modeller::Body& body);
  bool IsQuick(const QString& solid) const;
  QString SizeText(std::initializer_list<double> lengths) const;

  const Workplace& workplace_;
  ChoiceDock& dock_;
  const FindContours contours_;
  bool areSolids_ = false;
  QStringList waiting_;
  int generation_ = 0;  ///< counts lists, so that the picture of an older one is dropped
  QTimer next_;
  QThreadPool thread_;
};

}  // namespace vanzet::window
