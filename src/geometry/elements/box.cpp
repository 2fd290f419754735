#include "geometry/box.h"

namespace geometry {

Point Box::Mid() const {
  return {(min.x + max.x) * 0.5, (min.y + max.y) * 0.5};
}

void Box3d::Insert(const Point3d& p) {
  Insert(Box3d(p, p));
}

void Box3d::Insert(const Box3d& b) {
  if (min.x > b.min.x) min.x = b.min.x;
  if (min.y > b.min.y) min.y = b.min.y;
  if (min.z > b.min.z) min.z = b.min.z;
  if (b.max.x > max.x) max.x = b.max.x;
  if (b.max.y > max.y) max.y = b.max.y;
  if (b.max.z > max.z) max.z = b.max.z;
}

void Box3d::Grow(double margin) {
  const Vector3d by(margin, margin, margin);
  min = min - by;
  max = max + by;
}

bool Box3d::Outside(const Point3d& p) const {
  return Outside(Box3d(p, p));
}

bool Box3d::Outside(const Box3d& b) const {
  return b.min.x > max.x || b.min.y > max.y || b.min.z > max.z || min.x > b.max.x || min.y > b.max.y ||
         min.z > b.max.z;
}

Point3d Box3d::Mid() const {
  return {(min.x + max.x) * 0.5, (min.y + max.y) * 0.5, (min.z + max.z) * 0.5};
}

}  // namespace geometry
