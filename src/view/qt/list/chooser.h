#pragma once

#include <QPixmap>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

class QWidget;

/// The list with pictures in which devices and files are chosen, to be searched by any word.
namespace vanzet::view::qt {

inline constexpr QSize kThumbnail = {96, 60};  ///< in pixels of a usual screen

/// The line about an entry, and its picture.
struct EntryDetails {
  QString about;
  QPixmap picture = {};
};

struct ListEntry {
  QString name;
  /// Called once, with the widget for which the picture is made: between two events, when the list is up.
  std::function<EntryDetails(const QWidget& where)> details;
};

/// Has the user choose an entry. Returns its index, or nothing when the list was dismissed.
std::optional<int> ChooseEntry(const QString& title, const QString& search,
                               const std::vector<ListEntry>& entries, QWidget* parent);

/// The names that were used last, the latest first. Each kind of list has its own, in the user's settings.
class UsedNames {
 public:
  explicit UsedNames(const char* key) : key_(key) {}

  QStringList Read() const;
  void PutFirst(const QString& name) const;

 private:
  const char* key_;
};

}  // namespace vanzet::view::qt
