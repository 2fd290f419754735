#include "window/help_window.h"

#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>
#include <QVBoxLayout>

#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

// Pixels.
constexpr QSize kSize = {860, 720};
constexpr int kMargin = 20;  // of a page
constexpr int kTitle = 60;   // that the title of a window is high at most
constexpr int kFrame = 12;   // that its frame is wide at most

constexpr const char* kContentsPage = "guide/README.md";

/// A browser whose pictures are no wider than a page.
class PageBrowser final : public QTextBrowser {
 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    const QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) return resource;
    const QImage image = resource.canConvert<QImage>() && resource.typeId() != QMetaType::QByteArray
                             ? resource.value<QImage>()
                             : QImage::fromData(resource.toByteArray());
    const int width = viewport()->width() - 2 * kMargin - verticalScrollBar()->sizeHint().width();
    if (image.isNull() || image.width() <= width) return resource;
    return image.scaledToWidth(width, Qt::SmoothTransformation);
  }
};

}  // namespace

HelpWindow::HelpWindow(const Texts& texts, std::filesystem::path pages, QWidget* parent)
    : QWidget(parent, Qt::Window), texts_(texts), pages_(std::move(pages)), browser_(new PageBrowser) {
  setObjectName("help");
  MakeParts();
  connect(&texts_, &Texts::Changed, this, &HelpWindow::Retranslate);
  Retranslate();
}

void HelpWindow::MakeParts() {
  back_ = new QToolButton;
  contents_ = new QToolButton;
  search_ = new QLineEdit;
  auto* const bar = new QHBoxLayout;
  bar->setContentsMargins(8, 6, 8, 6);
  bar->addWidget(back_);
  bar->addWidget(contents_);
  bar->addStretch(1);
  bar->addWidget(search_, 1);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addLayout(bar);
  rows->addWidget(browser_, 1);
  browser_->setOpenExternalLinks(true);
  browser_->document()->setDocumentMargin(kMargin);
  back_->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
  connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
  connect(contents_, &QToolButton::clicked, this, [this] { static_cast<void>(Open(kContentsPage)); });
  connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::Search);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::Retranslate() {
  setWindowTitle(texts_(Text::kHelpTitle));
  browser_->setAccessibleName(texts_(Text::kHelpTitle));
  back_->setText(texts_(Text::kHelpBack));
  contents_->setText(TitleOf(texts_(Text::kContents)));
  search_->setPlaceholderText(texts_(Text::kHelpSearch));
  search_->setAccessibleName(texts_(Text::kHelpSearch));
}

Result<void> HelpWindow::Open(const char* page, const QString& heading) {
  const std::filesystem::path file = FileOf(page);
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error))
    return Fault{.text = "the page does not exist", .file = file.string(), .kind = FaultKind::kMissing};
  if (!isVisible()) PlaceOnScreen();
  show();
  browser_->setSource(QUrl::fromLocalFile(ToQString(file)), QTextDocument::MarkdownResource);
  GoTo(heading);
  raise();
  activateWindow();
  return {};
}

/// The page in the language of the window where there is one, else in English.
std::filesystem::path HelpWindow::FileOf(const char* page) const {
  const std::filesystem::path translated = pages_ / texts_.language() / page;
  std::error_code error;
  return std::filesystem::is_regular_file(translated, error) ? translated : pages_ / page;
}

/// Over the middle of the workbench's window, with its frame on the screen.
void HelpWindow::PlaceOnScreen() {
  const QRect free = screen()->availableGeometry().adjusted(kFrame, kTitle, -kFrame, -kFrame);
  QRect place(QPoint(0, 0), kSize.boundedTo(free.size()));
  place.moveCenter(parentWidget()->frameGeometry().center());
  place.moveLeft(qBound(free.left(), place.left(), free.right() + 1 - place.width()));
  place.moveTop(qBound(free.top(), place.top(), free.bottom() + 1 - place.height()));
  setGeometry(place);
}

void HelpWindow::GoTo(const QString& heading) {
  if (heading.isEmpty()) return;
  QTextBlock found =
      FindHeading([&](const QString& text) { return text.contains(heading, Qt::CaseInsensitive); });
  // "Finishpart" is about "Finishpart from Solid", too.
  if (!found.isValid())
    found = FindHeading([&](const QString& text) { return heading.contains(text, Qt::CaseInsensitive); });
  if (!found.isValid()) return;
  browser_->moveCursor(QTextCursor::End);
  browser_->setTextCursor(QTextCursor(found));
}

/// The first heading for which that is true; one that is not valid without it.
QTextBlock HelpWindow::FindHeading(const std::function<bool(const QString&)>& isWanted) const {
  QTextBlock block = browser_->document()->begin();
  while (block.isValid() && (block.blockFormat().headingLevel() == 0 || !isWanted(block.text())))
    block = block.next();
  return block;
}

void HelpWindow::Search() {
  if (search_->text().isEmpty() || browser_->find(search_->text())) return;
  browser_->moveCursor(QTextCursor::Start);
  if (browser_->find(search_->text())) return;
  QToolTip::showText(search_->mapToGlobal(QPoint(0, search_->height())),
                     texts_(Text::kNotFound).arg(search_->text()), search_);
}

void HelpWindow::ShowAbout(const QString& painter) {
  QMessageBox::about(parentWidget(), texts_(Text::kAbout).remove('&'),
                     texts_(Text::kAboutText).arg(VANZET_VERSION) + "<p>" + painter.toHtmlEscaped() + "</p>");
}

}  // namespace vanzet::window
