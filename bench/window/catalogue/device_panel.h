#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "window/texts.h"

class QLabel;
class QTableWidget;

namespace vanzet::window {

class DeviceModel;

/// One device with its dimensions, or the values of two side by side, and below them both pictures.
class DevicePanel final : public QWidget {
  Q_OBJECT
 public:
  explicit DevicePanel(const Texts& texts, QWidget* parent = nullptr);

  /// The first two of the names are shown. Requires: the catalogue of the model has them.
  void Show(const DeviceModel& model, const std::vector<std::string>& names);

  /// The values of two devices, a row each, those that differ in bold letters; hidden for one device.
  const QTableWidget& values() const { return *values_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Draw();
  void Compare(const DeviceModel& model);
  void AddRow(const QString& name, const QString& first, const QString& second);
  void FitHeight();

  const Texts& texts_;
  std::vector<catalogue::Entry> devices_;
  QLabel *first_ = nullptr, *second_ = nullptr, *same_ = nullptr;
  QTableWidget* values_;
};

}  // namespace vanzet::window
