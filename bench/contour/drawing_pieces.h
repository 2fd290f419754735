#pragma once

#include <dl_creationadapter.h>

#include <memory>
#include <string>
#include <vector>

#include "contour/piece.h"

namespace vanzet::contour {

/// Collects the pieces of a drawing from the DXF library's calls, in the drawing's unit.
class DrawingPieces : public DL_CreationAdapter {
 public:
  struct Entry {
    std::string layer;
    Piece piece;
  };

  /// Sets the line of the entity that the next calls are about.
  void SetLine(int line) { line_ = line; }

  std::vector<Entry>& entries() { return entries_; }

  /// The entities that were left out and why, one text each: "ARC in a tilted plane".
  const std::vector<std::string>& leftOut() const { return leftOut_; }

  void addLine(const DL_LineData& line) override;
  void addArc(const DL_ArcData& arc) override;
  void addCircle(const DL_CircleData& circle) override;
  void addPolyline(const DL_PolylineData& data) override;
  void addVertex(const DL_VertexData& vertex) override;
  void endSequence() override { EndPolyline(); }
  void endEntity() override { EndPolyline(); }

 private:
  struct Polyline {
    std::string layer;
    int line = 0;
    int side = 1;
    bool closed = false;
    std::vector<geometry::Point> points;
    std::vector<double> bulges;  ///< of the segment that begins at the point
  };

  /// Returns false, and notes it, when the entity is left out. `side` is -1 for one that is seen from below.
  bool IsSeen(const std::string& kind, int& side);
  void AddTurn(const geometry::Point& centre, double radius, double from, double sweep, int side);
  void EndPolyline();

  std::vector<Entry> entries_;
  std::vector<std::string> leftOut_;
  std::unique_ptr<Polyline> polyline_;  ///< null when none is open or it is left out
  int line_ = 0;
};

}  // namespace vanzet::contour
