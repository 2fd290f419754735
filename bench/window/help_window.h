#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>

#include "base/result.h"
#include "window/texts.h"

class QLineEdit;
class QTextBlock;
class QTextBrowser;
class QToolButton;

namespace vanzet::window {

/// Shows the pages of the documentation, with a way back, the list of all pages, and a search in the page.
/// Escape closes it.
class HelpWindow final : public QWidget {
  Q_OBJECT
 public:
  HelpWindow(const Texts& texts, std::filesystem::path pages, QWidget* parent);

  /// Shows a page of the folder: "window.md". Where it has a heading with that text, or else one that is a
  /// part of it, the page begins there. A page that the folder has in the language of the window,
  /// "de/window.md", is shown in that. Fails when the page does not exist.
  Result<void> Open(const char* page, const QString& heading = {});

  /// Shows the box with the program's name and version.
  /// `painter` says who draws the equipment.
  void ShowAbout(const QString& painter);

 private:
  void MakeParts();
  void Retranslate();
  std::filesystem::path FileOf(const char* page) const;
  void PlaceOnScreen();
  void GoTo(const QString& heading);
  QTextBlock FindHeading(const std::function<bool(const QString&)>& isWanted) const;
  void Search();

  const Texts& texts_;
  const std::filesystem::path pages_;
  QTextBrowser* browser_;
  QToolButton* back_;
  QToolButton* contents_;
  QLineEdit* search_;
};

}  // namespace vanzet::window
