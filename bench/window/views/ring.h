#pragma once

class QPainter;
class QPointF;

namespace vanzet::window {

/// The ring around the place of a chosen finding, the same in all views.
void PaintRing(QPainter& painter, const QPointF& place);

}  // namespace vanzet::window
