#include "window/catalogue/catalogue_commands.h"

#include <QBuffer>
#include <QFileDialog>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "catalogue/picture.h"
#include "project/catalogue.h"
#include "project/settings_file.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

constexpr int kReload = 100;  // milliseconds

Result<catalogue::ShopPlace> CatalogueOf(const project::Project& project) {
  VANZET_TRY(const auto setting, project::SettingsFile(project.folder()).Value(project::kCatalogueSetting));
  return catalogue::PlaceOf(project, setting);
}

bool IsSame(const catalogue::ShopPlace& a, const catalogue::ShopPlace& b) {
  return a.file == b.file && a.connection == b.connection;
}

std::string PngOf(const std::string& svg) {
  QSvgRenderer renderer(QByteArray::fromStdString(svg));
  QImage image(renderer.defaultSize(), QImage::Format_RGB32);
  QPainter painter(&image);
  renderer.render(&painter);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

}  // namespace

CatalogueCommands::CatalogueCommands(Workplace& workplace, QStackedWidget& pages, QObject* parent)
    : QObject(parent),
      workplace_(workplace),
      pages_(pages),
      page_(new CataloguePage(workplace.texts)),
      server_(this) {
  pages_.addWidget(page_);
  reload_.setSingleShot(true);
  reload_.setInterval(kReload);
  const auto reload = [this] { reload_.start(); };
  connect(&reload_, &QTimer::timeout, this, &CatalogueCommands::Reload);
  connect(&files_, &QFileSystemWatcher::fileChanged, this, reload);
  connect(&files_, &QFileSystemWatcher::directoryChanged, this, reload);
  connect(&server_, &ServerThread::Committed, this, reload);
  connect(&server_, &ServerThread::Regained, this, reload);
  connect(&server_, &ServerThread::Lost, page_, &CataloguePage::SetFault);
  ConnectPage();
}

void CatalogueCommands::ConnectPage() {
  connect(page_, &CataloguePage::EditWanted, this, &CatalogueCommands::Edit);
  // The menu is gone then, and takes the keys from no editor.
  connect(
      page_, &CataloguePage::AddWanted, this,
      [this](std::int32_t type, const QString& name) { ShowAdded(edits_->Add(type, name.toStdString())); },
      Qt::QueuedConnection);
  connect(
      page_, &CataloguePage::CopyWanted, this,
      [this](const QString& device) { ShowAdded(edits_->AddCopy(device.toStdString())); },
      Qt::QueuedConnection);
  connect(page_, &CataloguePage::RemoveWanted, this, &CatalogueCommands::Remove);
  connect(page_, &CataloguePage::UndoWanted, this, &CatalogueCommands::Undo);
  connect(page_, &CataloguePage::SheetWanted, this, &CatalogueCommands::AskForSheet);
  connect(page_, &CataloguePage::Left, this, &CatalogueCommands::Leave);
  connect(page_, &CataloguePage::Hidden, this, &CatalogueCommands::EndWatch);
}

bool CatalogueCommands::Run(Command command) {
  if (command != Command::kCatalogue) return false;
  pages_.currentWidget() == page_ ? Leave() : Show();
  return true;
}

void CatalogueCommands::Show() {
  if (const auto opened = Open(); !opened) return workplace_.reportFault(opened.fault());
  if (pages_.currentWidget() != page_) former_ = pages_.currentIndex();
  pages_.setCurrentWidget(page_);
  page_->setFocus();
}

void CatalogueCommands::ShowDevice(const QString& name) {
  Show();
  page_->Find(name);
}

void CatalogueCommands::Leave() {
  if (pages_.currentWidget() == page_) pages_.setCurrentIndex(former_);
}

/// The catalogue of the project, which can be another one than before.
Result<void> CatalogueCommands::Open() {
  VANZET_TRY(const auto place, CatalogueOf(workplace_.session->project()));
  if (edits_ && !IsSame(edits_->place(), place)) EndWatch();
  if (!edits_ || !IsSame(edits_->place(), place) || edits_->unit() != workplace_.unit)
    edits_ = std::make_unique<DeviceEdits>(place, workplace_.unit);
  VANZET_TRY(auto shop, edits_->Read());
  page_->SetFault({});
  page_->SetCanUndo(edits_->CanUndo());
  ShowShop(std::move(shop));
  Watch();
  return {};
}

void CatalogueCommands::ShowShop(catalogue::Shop shop) {
  catalogueText_ = shop.catalogue.Text(), makerText_ = shop.maker.Text();
  const LengthUnit unit = edits_->unit();
  page_->Show(unit == LengthUnit::kMillimetre ? std::move(shop) : shop.ShownIn(unit), unit);
}

/// A catalogue is written by a new file in the place of the old one, which only the folder shows.
void CatalogueCommands::Watch() {
  const catalogue::ShopPlace& place = edits_->place();
  if (place.IsOnServer()) {
    if (!server_.IsActive()) server_.Begin(place.Store());
    return;
  }
  if (const QStringList former = files_.files() + files_.directories(); !former.isEmpty())
    files_.removePaths(former);
  files_.addPath(ToQString(place.file));
  files_.addPath(ToQString(place.file.parent_path()));
}

void CatalogueCommands::EndWatch() {
  server_.End();
  reload_.stop();
  if (const QStringList former = files_.files() + files_.directories(); !former.isEmpty())
    files_.removePaths(former);
}

void CatalogueCommands::Reload() {
  if (pages_.currentWidget() != page_) return;
  if (page_->IsEditing()) return reload_.start();
  auto shop = edits_->Read();
  if (!shop) return page_->SetFault(ToQString(shop.fault().Message()));
  const bool isSame = shop->catalogue.Text() == catalogueText_ && shop->maker.Text() == makerText_;
  if (!isSame) ShowShop(std::move(*shop));
  Watch();
}

void CatalogueCommands::Edit(const QString& device, int column, const QString& text) {
  const DeviceModel::Field field = DeviceModel::FieldOf(column);
  const std::string edited = device.toStdString(), typed = text.toStdString();
  if (column == DeviceModel::kName) {
    auto renamed = edits_->Rename(edited, typed);
    const bool isDone = bool(renamed);
    ShowResult(std::move(renamed));
    if (isDone) page_->Select({typed});
    return;
  }
  ShowResult(field.letter ? edits_->SetLetter(edited, *field.letter, typed)
                          : edits_->SetFigure(edited, field.key, typed));
}

void CatalogueCommands::Remove(const QStringList& devices) {
  std::vector<std::string> names;
  for (const QString& device : devices) names.push_back(device.toStdString());
  ShowResult(edits_->Remove(names));
}

/// The name is edited at once: the one that it has is only a first one.
void CatalogueCommands::ShowAdded(Result<DeviceEdits::Added> added) {
  if (!added) return ShowResult(added.fault());
  ShowResult(std::move(added->shop));
  page_->EditName(added->name);
}

void CatalogueCommands::Undo() {
  ShowResult(edits_->Undo());
}

void CatalogueCommands::ShowResult(Result<catalogue::Shop> changed) {
  page_->SetFault(changed ? QString() : ToQString(changed.fault().Message()));
  page_->SetCanUndo(edits_->CanUndo());
  if (changed) ShowShop(std::move(*changed));
}

void CatalogueCommands::AskForSheet() {
  const QString suggested = ToQString(workplace_.session->project().folder() / "catalogue.svg");
  const QString file =
      QFileDialog::getSaveFileName(workplace_.window, TitleOf(workplace_.texts(Text::kContactSheet)),
                                   suggested, "SVG (*.svg);;PNG (*.png)");
  if (file.isEmpty()) return;
  const auto written = WriteSheet(ToPath(file));
  page_->SetFault(written ? QString() : ToQString(written.fault().Message()));
}

Result<void> CatalogueCommands::WriteSheet(const fs::path& file) const {
  VANZET_TRY(const std::string svg, catalogue::SheetOf(page_->model().Devices()));
  const bool isPng = EqualWithoutCase(file.extension().string(), ".png");
  VANZET_DO(files::ReplaceFile(file, isPng ? PngOf(svg) : svg));
  workplace_.reportDone(workplace_.texts(Text::kWritten).arg(ToQString(file)));
  return {};
}

}  // namespace vanzet::window
