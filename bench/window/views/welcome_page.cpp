#include "window/views/welcome_page.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "window/theme.h"

namespace vanzet::window {
namespace {

// Pixels.
constexpr int kWidth = 520;
constexpr int kGap = 6;
constexpr double kTitleSize = 1.6;  // of the usual letters

}  // namespace

WelcomePage::WelcomePage(const Texts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
  setObjectName("welcome");
  new QVBoxLayout(this);
  connect(&texts_, &Texts::Changed, this, &WelcomePage::Refill);
}

void WelcomePage::Show(const QStringList& projects, const QStringList& samples) {
  projects_ = projects;
  samples_ = samples;
  Refill();
}

void WelcomePage::Refill() {
  delete content_;
  content_ = new QWidget;
  content_->setFixedWidth(kWidth);
  column_ = new QVBoxLayout(content_);
  column_->setSpacing(kGap);
  layout()->addWidget(content_);
  layout()->setAlignment(content_, Qt::AlignCenter);
  AddHeading(Text::kWelcome);
  if (!projects_.isEmpty()) AddHeading(Text::kRecentProjects);
  for (const QString& folder : projects_) {
    connect(AddButton("open", folder), &QAbstractButton::clicked, this,
            [this, folder] { emit ProjectChosen(folder); });
  }
  AddHeading(Text::kFromSample);
  for (const QString& sample : samples_) {
    connect(AddButton("new", sample), &QAbstractButton::clicked, this,
            [this, sample] { emit SampleChosen(sample); });
  }
  AddHeading(Text::kHowTo);
  connect(AddButton("help", texts_(Text::kReadGuide)), &QAbstractButton::clicked, this,
          &WelcomePage::GuideChosen);
}

/// The first one is the title of the page.
void WelcomePage::AddHeading(Text text) {
  auto* const heading = new QLabel(texts_(text));
  QFont font = heading->font();
  font.setBold(true);
  if (column_->count() == 0) font.setPointSizeF(font.pointSizeF() * kTitleSize);
  heading->setFont(font);
  heading->setContentsMargins(0, 2 * kGap, 0, 0);
  column_->addWidget(heading);
}

QAbstractButton* WelcomePage::AddButton(const char* icon, const QString& text) {
  auto* const button = new QPushButton(MakeIcon(icon), QString());
  // A folder's name can be wider than the page, and its '&' is not the mark of a key.
  button->setText(button->fontMetrics().elidedText(text, Qt::ElideMiddle, kWidth - 60).replace("&", "&&"));
  button->setAccessibleName(text);
  button->setToolTip(text);
  button->setFlat(true);
  // The toolkit makes a button with a short text wider and puts the text in its middle.
  const int width = button->iconSize().width() + button->fontMetrics().horizontalAdvance(button->text());
  button->setFixedWidth(width + 3 * kGap);
  column_->addWidget(button, 0, Qt::AlignLeft);
  return button;
}

}  // namespace vanzet::window
