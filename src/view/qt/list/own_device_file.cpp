#include "view/qt/list/own_device_file.h"

#include <QFile>
#include <QtMath>
#include <cmath>
#include <utility>
#include <vector>

namespace vanzet::view::qt {
namespace {

constexpr qint64 kLongestLine = 10'000;
constexpr int kClampDeviceGroup = 3;
constexpr int kChordsOfHalf = 16;  // of half a circle

/// The numbers of an item; nothing for one with anything else.
std::vector<double> NumbersOf(const QByteArray& item) {
  std::vector<double> numbers;
  for (const QByteArray& word : item.simplified().split(' ')) {
    bool isNumber = false;
    numbers.push_back(word.toDouble(&isNumber));
    if (!isNumber) return {};
  }
  return numbers;
}

/// The chords of an arc from the last point. `way` is 2 for one clockwise; the shorter one is meant.
void AddArc(QPolygonF& outline, const QPointF& to, double radius, int way) {
  const QPointF from = outline.back(), chord = to - from;
  const double half = std::hypot(chord.x(), chord.y()) / 2;
  if (half <= 0 || radius < half) return outline.append(to);
  const double side = way == 2 ? -1 : 1;
  const QPointF across = QPointF(-chord.y(), chord.x()) / (2 * half);
  const QPointF centre = (from + to) / 2 + across * (side * std::sqrt(radius * radius - half * half));
  const double begin = std::atan2(from.y() - centre.y(), from.x() - centre.x());
  const double turn = side * 2 * std::asin(half / radius);
  const int chords = 1 + static_cast<int>(std::abs(turn) / M_PI * kChordsOfHalf);
  for (int i = 1; i < chords; ++i) {
    const double angle = begin + turn * i / chords;
    outline.append(centre + radius * QPointF(std::cos(angle), std::sin(angle)));
  }
  outline.append(to);
}

/// An element `G X Y _ _ _ RADIUS` of the outline.
void AddElement(QPolygonF& outline, const std::vector<double>& element) {
  const int way = static_cast<int>(element[0]);
  const QPointF to(element[1], element[2]);
  if (outline.isEmpty() || way < 2) return outline.append(to);
  AddArc(outline, to, element[6], way);
}

}  // namespace

std::optional<OwnDeviceFile> ReadOwnDeviceFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return std::nullopt;
  if (!file.readLine(kLongestLine).trimmed().endsWith("vdm 1")) return std::nullopt;
  std::optional<OwnDeviceFile> found;
  int record = -1;
  // The device is in the second record. Its values follow the text of the body, and its outline the values.
  while (!file.atEnd() && record < 2) {
    const QByteArray line = file.readLine(kLongestLine);
    if (line.startsWith("record")) ++record;
    if (record != 1 || !line.startsWith('.')) continue;
    const std::vector<double> numbers = NumbersOf(line.mid(1));
    if (numbers.size() == 4 && numbers[0] == kClampDeviceGroup) {
      found = OwnDeviceFile{static_cast<int>(numbers[1]), {}};
    } else if (found && numbers.size() == 7) {
      AddElement(found->outline, numbers);
    }
  }
  return found;
}

}  // namespace vanzet::view::qt
