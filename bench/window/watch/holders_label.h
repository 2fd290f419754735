#pragma once

#include <QLabel>
#include <vector>

#include "vdm/lock_holder.h"
#include "window/texts.h"

namespace vanzet::window {

/// A line of the status bar: who else has definitions of the project open, and whether its store can be
/// reached. Hidden while nobody has and it can.
class HoldersLabel final : public QLabel {
  Q_OBJECT
 public:
  HoldersLabel(const Texts& texts, QWidget* parent);

  void Forget();  ///< another project is open

  void Show(const std::vector<vdm::LockHolder>& holders);

  /// While a call of the module is at work here, its own locks are not shown.
  void SetAtWork(bool isAtWork);

  /// Why the store cannot be reached; empty: it can.
  void SetFault(const QString& fault);

 private:
  void Refresh();
  QString TextOf(const vdm::LockHolder& holder) const;
  QString RowOf(const vdm::LockHolder& holder) const;

  const Texts& texts_;
  std::vector<vdm::LockHolder> holders_;
  QString fault_;
  bool isAtWork_ = false;
};

}  // namespace vanzet::window
