#include "window/commands/live_equipment.h"

#include <QApplication>
#include <QDynamicPropertyChangeEvent>
#include <algorithm>
#include <utility>

#include "section/picture.h"
#include "window/commands/page_values.h"

namespace vanzet::window {
namespace {

constexpr int kDelay = 50;             // milliseconds in which changes are gathered
constexpr const char* kPage = "page";  // the property of the dialog's window

/// The values that a body of a spindle is made from.
bool HasSameValues(const scene::SceneBody& body, const scene::Equipment& a, const scene::Equipment& b) {
  const std::size_t spindle = body.name.starts_with("sub ") ? 1 : 0;
  const scene::Spindle &one = a.spindles[spindle], &other = b.spindles[spindle];
  switch (body.kind) {
    case scene::Kind::kClamp: return one.clamp == other.clamp;
    case scene::Kind::kJaw: return one.jaw == other.jaw;
    case scene::Kind::kCenter: return a.center == b.center;
    case scene::Kind::kBillet: return one.billet == other.billet;
    case scene::Kind::kFinishPart: return one.finishPart == other.finishPart;
    case scene::Kind::kSteadyRest: return true;
  }
  return true;
}

bool IsStored(const scene::SceneBody& body, const scene::Scene& stored, const scene::Equipment& a,
              const scene::Equipment& b) {
  const auto same = std::ranges::find(stored.bodies, body.name, &scene::SceneBody::name);
  return same != stored.bodies.end() && same->placement == body.placement && HasSameValues(body, a, b);
}

}  // namespace

std::shared_ptr<const ShownSection> SectionToShow(const Workplace& workplace,
                                                  const scene::Equipment& equipment,
                                                  const scene::Scene& scene) {
  auto section = section::MakeSection(equipment, scene);
  if (!section || section->bodies.empty()) return nullptr;
  std::vector<std::string> pale;
  for (const scene::SceneBody& body : scene.bodies) {
    if (body.isPale) pale.push_back(body.name);
  }
  return ShownOf(std::move(*section),
                 section::TextsOf({.unit = workplace.unit}, workplace.texts.translations()), pale);
}

LiveEquipment::LiveEquipment(Workplace& workplace, Parts parts, QObject* parent)
    : QObject(parent), workplace_(workplace), parts_(std::move(parts)) {
  redraw_.setSingleShot(true);
  redraw_.setInterval(kDelay);
  connect(&redraw_, &QTimer::timeout, this, &LiveEquipment::Redraw);
}

void LiveEquipment::Begin() {
  page_.clear();
  shown_.reset();
  qApp->installEventFilter(this);
}

void LiveEquipment::End() {
  qApp->removeEventFilter(this);
  redraw_.stop();
}

bool LiveEquipment::eventFilter(QObject* watched, QEvent* event) {
  const bool isPage =
      event->type() == QEvent::DynamicPropertyChange &&
      static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == kPage;  // NOLINT: Qt's own pattern
  if (isPage) {
    page_ = watched->property(kPage).toMap();
    redraw_.start();
  }
  return QObject::eventFilter(watched, event);
}

void LiveEquipment::Redraw() {
  if (!workplace_.session || !workplace_.session->isAtWork() || workplace_.isBusy) return;
  const int chosen = page_.value("spur", -1).toInt();
  const int spur = chosen >= 0 ? chosen : workplace_.spur;
  const auto stored = workplace_.session->LiveEquipment(spur);
  if (!stored) return;  // the definition is missing, or its fault was reported before
  const Shown now{spur, stored->equipment, WithPage(stored->equipment, page_)};
  if (shown_ == now) return;
  shown_ = now;
  workplace_.Report(Show(*stored, now.held));
}

Result<void> LiveEquipment::Show(const Session::Live& stored, const scene::Equipment& held) {
  const BusyMark mark(workplace_);
  VANZET_TRY(auto shown, workplace_.session->LiveScene(stored, workplace_.BodySource()));
  if (!(held == stored.equipment)) {
    // A page that cannot be shown leaves what is stored: values are typed letter by letter.
    const auto other = workplace_.session->LiveScene({stored.definition, held}, workplace_.BodySource());
    const scene::Scene ofPage = other ? *other : scene::Scene();
    const scene::Scene before = shown;
    for (scene::SceneBody body : ofPage.bodies) {
      if (IsStored(body, before, stored.equipment, held)) continue;
      body.isPale = true;
      body.name += ", not stored";
      shown.bodies.push_back(std::move(body));
    }
  }
  workplace_.scene = std::make_shared<scene::Scene>(std::move(shown));
  parts_.equipment.SetHint(workplace_.texts(Text::kNothingStored));
  const auto done = parts_.showScene();
  parts_.drawing.ShowSection(SectionToShow(workplace_, stored.equipment, *workplace_.shownScene));
  return done;
}

}  // namespace vanzet::window
