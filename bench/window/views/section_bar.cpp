#include "window/views/section_bar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSlider>

namespace vanzet::window {
namespace {

constexpr int kSteps = 500;  // of the slider, to either side
constexpr int kPage = 50;    // for a click beside its handle
constexpr int kWidth = 160;  // pixels

struct PlaneRow {
  Text name;
  geometry::Vector3d normal;
};
const PlaneRow kPlanes[] = {
    {Text::kPlaneUpright, {0, 0, 1}},
    {Text::kPlaneLevel, {0, 1, 0}},
    {Text::kPlaneAcross, {1, 0, 0}},
};

}  // namespace

SectionBar::SectionBar(const Texts& texts, EquipmentView& view, QWidget* parent)
    : QWidget(parent),
      texts_(texts),
      view_(view),
      planes_(new QComboBox),
      place_(new QSlider(Qt::Horizontal)) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(planes_);
  row->addWidget(place_);
  for ([[maybe_unused]] const PlaneRow& plane : kPlanes) planes_->addItem(QString());
  place_->setRange(-kSteps, kSteps);
  place_->setPageStep(kPage);
  place_->setFixedWidth(kWidth);
  connect(planes_, &QComboBox::currentIndexChanged, this, [this] {
    place_->setValue(0);
    Move();
  });
  connect(place_, &QSlider::valueChanged, this, &SectionBar::Move);
  connect(&view_, &EquipmentView::SectionSwitched, this, &QWidget::setVisible);
  connect(&texts_, &Texts::Changed, this, &SectionBar::Retranslate);
  setVisible(view_.isSection());
  Retranslate();
}

void SectionBar::Retranslate() {
  for (int i = 0; i < planes_->count(); ++i) planes_->setItemText(i, texts_(kPlanes[i].name));
  // The toolkit says the value of a list as its name.
  planes_->setAccessibleDescription(texts_(Text::kSectionPlane));
  planes_->setToolTip(texts_(Text::kSectionPlane));
  place_->setAccessibleName(texts_(Text::kSectionPlace));
  place_->setToolTip(texts_(Text::kSectionPlace));
}

/// The middle of the slider is the axis, or the middle of the equipment along it.
void SectionBar::Move() {
  const geometry::Vector3d& normal = kPlanes[planes_->currentIndex()].normal;
  const auto [low, high] = view_.ExtentAlong(normal);
  const bool isAlongAxis = normal.dx == 0;
  const double middle = isAlongAxis ? 0 : (low + high) / 2;
  const double half = isAlongAxis ? std::max(std::abs(low), std::abs(high)) : (high - low) / 2;
  view_.SetSectionPlane({normal, middle + half * place_->value() / kSteps});
}

}  // namespace vanzet::window
