#pragma once

#include <QWidget>
#include <filesystem>

#include "base/result.h"
#include "window/texts.h"

class QTextBrowser;

namespace vanzet::window {

/// Shows the pages of the documentation.
class HelpWindow final : public QWidget {
  Q_OBJECT
 public:
  HelpWindow(const Texts& texts, std::filesystem::path pages, QWidget* parent);

  /// Shows a page of the folder: "window.md". Fails when the page does not exist.
  Result<void> Open(const char* page);

  /// Shows the box with the program's name and version.
  void ShowAbout();

 private:
  const Texts& texts_;
  const std::filesystem::path pages_;
  QTextBrowser* browser_;
};

}  // namespace vanzet::window
