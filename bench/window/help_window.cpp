#include "window/help_window.h"

#include <QMessageBox>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "window/qt_text.h"

namespace vanzet::window {

HelpWindow::HelpWindow(const Texts& texts, std::filesystem::path pages, QWidget* parent)
    : QWidget(parent, Qt::Window), texts_(texts), pages_(std::move(pages)), browser_(new QTextBrowser) {
  setObjectName("help");
  resize(860, 720);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(browser_);
  browser_->setOpenExternalLinks(true);
  browser_->document()->setDocumentMargin(20);
  const auto retranslate = [this] { setWindowTitle(texts_(Text::kHelpTitle)); };
  connect(&texts_, &Texts::Changed, this, retranslate);
  retranslate();
}

Result<void> HelpWindow::Open(const char* page) {
  const std::filesystem::path file = pages_ / page;
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error))
    return Fault{.text = "the page does not exist", .file = file.string(), .kind = FaultKind::kMissing};
  browser_->setSource(QUrl::fromLocalFile(ToQString(file)), QTextDocument::MarkdownResource);
  show();
  raise();
  activateWindow();
  return {};
}

void HelpWindow::ShowAbout() {
  QMessageBox::about(parentWidget(), texts_(Text::kAbout).remove('&'),
                     texts_(Text::kAboutText).arg(VANZET_VERSION));
}

}  // namespace vanzet::window
