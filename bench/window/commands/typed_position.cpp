#include "window/commands/typed_position.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "contour/contour.h"

namespace vanzet::window {

std::optional<geometry::Point> ReadPosition(const QString& typed, LengthUnit unit) {
  static const QRegularExpression between("[\\s;]+");
  const QStringList words = typed.split(between, Qt::SkipEmptyParts);
  if (words.size() != 2) return std::nullopt;
  double lengths[2] = {};
  for (int i = 0; i < 2; ++i) {
    bool isNumber = false;
    const double length = QString(words[i]).replace(',', '.').toDouble(&isNumber);
    if (!isNumber || !std::isfinite(length)) return std::nullopt;
    lengths[i] = InMillimetres(length, unit);
    if (std::abs(lengths[i]) > contour::kLargestCoordinate) return std::nullopt;
  }
  return geometry::Point(lengths[0], lengths[1]);
}

}  // namespace vanzet::window
