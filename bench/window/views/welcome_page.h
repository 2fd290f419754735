#pragma once

#include <QWidget>

#include "window/texts.h"

class QAbstractButton;
class QVBoxLayout;

namespace vanzet::window {

/// The page that is shown while no project is open: the projects that were open, the samples for a new one,
/// and the guide.
class WelcomePage final : public QWidget {
  Q_OBJECT
 public:
  explicit WelcomePage(const Texts& texts, QWidget* parent = nullptr);

  /// Folders of projects, the latest first, and names of samples.
  void Show(const QStringList& projects, const QStringList& samples);

 signals:
  void ProjectChosen(const QString& folder);
  void SampleChosen(const QString& name);
  void GuideChosen();

 private:
  void Refill();
  void AddHeading(Text text);
  QAbstractButton* AddButton(const char* icon, const QString& text);

  const Texts& texts_;
  QStringList projects_, samples_;
  QWidget* content_ = nullptr;
  QVBoxLayout* column_ = nullptr;
};

}  // namespace vanzet::window
