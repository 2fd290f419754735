#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "catalogue/shop.h"
#include "window/texts.h"

class QLabel;

namespace vanzet::window {

/// One device with its dimensions, or two below each other with their differences.
class DevicePanel final : public QWidget {
  Q_OBJECT
 public:
  explicit DevicePanel(const Texts& texts, QWidget* parent = nullptr);

  /// The first two of the names are shown. Requires: the catalogue has them.
  void Show(const catalogue::Shop& shop, const std::vector<std::string>& names);

  /// The differences of two devices, a line each; empty for one device.
  QString Differences() const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Draw();

  const Texts& texts_;
  std::vector<catalogue::Entry> devices_;
  QLabel *first_ = nullptr, *second_ = nullptr, *differences_ = nullptr;
};

}  // namespace vanzet::window
