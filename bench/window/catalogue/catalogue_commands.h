#pragma once

#include <QFileSystemWatcher>
#include <QStackedWidget>
#include <QTimer>
#include <memory>

#include "window/actions.h"
#include "window/catalogue/catalogue_page.h"
#include "window/catalogue/device_edits.h"
#include "window/commands/workplace.h"
#include "window/watch/server_thread.h"

namespace vanzet::window {

/// The page of the catalogue among the pages of the window: showing it, its edits, and its sheet. What others
/// change in the catalogue, in files or on a server, is shown as soon as no value is being typed.
class CatalogueCommands final : public QObject {
  Q_OBJECT
 public:
  CatalogueCommands(Workplace& workplace, QStackedWidget& pages, QObject* parent);

  /// False for a command of another menu.
  bool Run(Command command);

  // Requires: a project is open.
  void Show();
  void ShowDevice(const QString& name);

  /// Goes back to the page that was shown before.
  void Leave();

  /// Writes a sheet of the devices that are listed, as SVG or PNG by the ending of its name.
  Result<void> WriteSheet(const std::filesystem::path& file) const;

 private:
  Result<void> Open();
  void ConnectPage();
  void Edit(const QString& device, int column, const QString& text);
  void Remove(const QStringList& devices);
  void ShowAdded(Result<DeviceEdits::Added> added);
  void Undo();
  void AskForSheet();
  void ShowResult(Result<catalogue::Shop> changed);
  void ShowShop(catalogue::Shop shop);
  void Watch();
  void EndWatch();
  void Reload();

  Workplace& workplace_;
  QStackedWidget& pages_;
  CataloguePage* page_;
  int former_ = 0;  ///< the page before
  std::unique_ptr<DeviceEdits> edits_;
  std::string catalogueText_, makerText_;  ///< of the files that are shown
  QFileSystemWatcher files_;
  ServerThread server_;
  QTimer reload_;
};

}  // namespace vanzet::window
