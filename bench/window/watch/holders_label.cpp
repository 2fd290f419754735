#include "window/watch/holders_label.h"

#include <QDateTime>
#include <algorithm>

#include "vdm/commit_origin.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

/// The time of the place: "14:05", with the day before it when it is another one than today.
QString TimeForPeople(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(ToQString(utc), Qt::ISODate).toLocalTime();
  if (!time.isValid()) return {};
  return time.toString(time.date() == QDate::currentDate() ? "HH:mm" : "yyyy-MM-dd HH:mm");
}

std::string OwnName() {
  const vdm::CommitOrigin origin = vdm::OriginOfProcess();
  return origin.user + "@" + origin.host;
}

}  // namespace

HoldersLabel::HoldersLabel(const Texts& texts, QWidget* parent) : QLabel(parent), texts_(texts) {
  setObjectName("holders");
  setTextFormat(Qt::PlainText);
  connect(&texts_, &Texts::Changed, this, &HoldersLabel::Refresh);
  hide();
}

void HoldersLabel::Forget() {
  holders_.clear();
  SetFault({});
}

void HoldersLabel::Show(const std::vector<vdm::LockHolder>& holders) {
  holders_ = holders;
  Refresh();
}

void HoldersLabel::SetAtWork(bool isAtWork) {
  isAtWork_ = isAtWork;
  Refresh();
}

void HoldersLabel::SetFault(const QString& fault) {
  fault_ = fault;
  Refresh();
}

void HoldersLabel::Refresh() {
  QStringList people, rows;
  const std::string own = OwnName();
  for (const vdm::LockHolder& holder : holders_) {
    if (isAtWork_ && holder.who == own) continue;
    const QString text = TextOf(holder);
    if (!people.contains(text)) people << text;
    rows << RowOf(holder);
  }
  QString shown = people.isEmpty() ? QString() : texts_(Text::kOpenBy).arg(people.front());
  if (people.size() > 1) shown += " +" + QString::number(people.size() - 1);
  setText(fault_.isEmpty() ? shown : texts_(Text::kStoreLost));
  setToolTip(fault_.isEmpty() ? rows.join('\n') : fault_);
  setAccessibleDescription(toolTip());
  setVisible(!text().isEmpty());
}

/// "jo on shop-3 since 14:05".
QString HoldersLabel::TextOf(const vdm::LockHolder& holder) const {
  const QString who = ToQString(holder.who);
  const qsizetype at = who.lastIndexOf('@');
  const QString person = at < 0 ? who : texts_(Text::kPersonOn).arg(who.left(at), who.mid(at + 1));
  const QString since = TimeForPeople(holder.since);
  return since.isEmpty() ? person : texts_(Text::kSince).arg(person, since);
}

QString HoldersLabel::RowOf(const vdm::LockHolder& holder) const {
  const QString what =
      holder.vdm ? "VDM " + QString::number(static_cast<qint64>(*holder.vdm)) : texts_(Text::kWholeProject);
  return what + ": " + TextOf(holder);
}

}  // namespace vanzet::window
