#include "window/help_window.h"

#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "window/qt_text.h"

namespace vanzet::window {

HelpWindow::HelpWindow(const Texts& texts, QWidget* parent)
    : QWidget(parent, Qt::Window), browser_(new QTextBrowser) {
  setObjectName("help");
  resize(860, 720);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(browser_);
  browser_->setOpenExternalLinks(true);
  browser_->document()->setDocumentMargin(20);
  setWindowTitle(texts(Text::kHelpTitle));
  connect(&texts, &Texts::Changed, this, [this, &texts] { setWindowTitle(texts(Text::kHelpTitle)); });
}

Result<void> HelpWindow::Open(const std::filesystem::path& page) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(page, error)) return Fault{"is not there", page.string()};
  browser_->setSource(QUrl::fromLocalFile(Shown(page)), QTextDocument::MarkdownResource);
  show();
  raise();
  activateWindow();
  return {};
}

}  // namespace vanzet::window
