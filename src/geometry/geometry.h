#pragma once

/// The whole library.
#include "geometry/biarc.h"
#include "geometry/box.h"
#include "geometry/construct.h"
#include "geometry/elements.h"
#include "geometry/equalise.h"
#include "geometry/intersect.h"
#include "geometry/kurve.h"
#include "geometry/kurveex.h"
#include "geometry/matrix.h"
#include "geometry/numerics.h"
#include "geometry/offset.h"
#include "geometry/point.h"
#include "geometry/span.h"
#include "geometry/trim.h"
#include "geometry/units.h"
#include "geometry/xml.h"
