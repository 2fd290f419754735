#include "window/commands/choice_previews.h"

#include <QLocale>
#include <QRegularExpression>
#include <memory>
#include <utility>

#include "modeller/body_folder.h"
#include "scene/model.h"
#include "window/qt_text.h"
#include "window/theme.h"
#include "window/views/previews.h"

namespace vanzet::window {
namespace {

constexpr std::uintmax_t kQuickFile = 8'000'000;  // bytes

}  // namespace

ChoicePreviews::ChoicePreviews(const Workplace& workplace, ChoiceDock& dock, FindContours contours)
    : workplace_(workplace), dock_(dock), contours_(std::move(contours)) {
  thread_.setMaxThreadCount(1);
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, &ChoicePreviews::Next);
  connect(workplace_.bodies.get(), &BodyReader::Arrived, this, [this] {
    if (!waiting_.isEmpty()) next_.start();
  });
}

ChoicePreviews::~ChoicePreviews() {
  thread_.waitForDone();
}

void ChoicePreviews::BeginFigures(const QStringList& names) {
  End();
  areSolids_ = false;
  waiting_ = names;
  next_.start();
}

void ChoicePreviews::BeginSolids(const QStringList& names) {
  End();
  areSolids_ = true;
  waiting_ = names;
  waiting_.removeIf([this](const QString& name) { return !IsQuick(name); });
  next_.start();
}

void ChoicePreviews::End() {
  ++generation_;
  waiting_.clear();
  next_.stop();
}

void ChoicePreviews::Next() {
  if (waiting_.isEmpty() || !workplace_.session) return;
  const QString& name = waiting_.front();
  if (!(areSolids_ ? ShowSolid(name) : ShowFigure(name))) return;
  waiting_.removeFirst();
  next_.start();
}

/// A figure that cannot be read has no picture; the reason is shown when it is chosen.
bool ChoicePreviews::ShowFigure(const QString& name) {
  const auto contours = contours_(name.toStdString());
  if (!contours) return true;
  const geometry::Box box = BoxOf(*contours);
  if (box.min.x > box.max.x) return true;
  dock_.Describe(name, PreviewOf(*contours, dock_.palette(), dock_.devicePixelRatio()),
                 SizeText({box.Width(), box.Height()}));
  return true;
}

/// False while the solid is being read.
bool ChoicePreviews::ShowSolid(const QString& name) {
  const auto body = workplace_.BodySource()(name.toStdString());
  if (body) Draw(name, *body);
  return body || body.fault().kind != FaultKind::kBusy || !workplace_.bodies->IsReading();
}

void ChoicePreviews::Draw(const QString& name, const modeller::Body& body) {
  scene::Scene scene;
  scene.bodies.push_back({name.toStdString(), scene::Kind::kBillet, body, geometry::Matrix()});
  auto made = scene::ModelOf(scene);
  if (!made) return;
  const auto model = std::make_shared<const scene::Model>(std::move(*made));
  const auto draw = [=, this, generation = generation_, background = dock_.palette().color(QPalette::Base),
                     ratio = dock_.devicePixelRatio()] {
    const QImage picture = PreviewOf(*model, background, ratio);
    const geometry::Box3d box = scene::BoxOf(*model);
    const QString size = SizeText({box.max.x - box.min.x, box.max.y - box.min.y, box.max.z - box.min.z});
    QMetaObject::invokeMethod(
        this,
        [=, this] {
          if (generation == generation_) dock_.Describe(name, QPixmap::fromImage(picture), size);
        },
        Qt::QueuedConnection);
  };
  thread_.start(draw);
}

/// "40 x 25 mm", to a tenth of a millimetre or a thousandth of an inch.
QString ChoicePreviews::SizeText(std::initializer_list<double> lengths) const {
  const LengthUnit unit = workplace_.unit;
  const int decimals = unit == LengthUnit::kInch ? 3 : 1;
  QStringList numbers;
  for (const double length : lengths)
    numbers
        << QLocale::c().toString(InUnit(length, unit), 'f', decimals).remove(QRegularExpression("\\.?0+$"));
  return numbers.join(" x ") + ' ' + ToQString(WordOf(unit));
}

bool ChoicePreviews::IsQuick(const QString& solid) const {
  const auto file =
      modeller::FindBodyFile(solid.toStdString(), workplace_.session->project().folder() / "bodies");
  std::error_code unknown;
  return file && std::filesystem::file_size(file->path, unknown) < kQuickFile && !unknown;
}

}  // namespace vanzet::window
