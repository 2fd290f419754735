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
  HelpWindow(const Texts& texts, QWidget* parent);

  /// Refused when the page is not there.
  Result<void> Open(const std::filesystem::path& page);

 private:
  QTextBrowser* browser_;
};

}  // namespace vanzet::window
