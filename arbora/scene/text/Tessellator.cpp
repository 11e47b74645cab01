#include "arbora/scene/text/Tessellator.h"

#include <GL/glu.h>

#include <array>
#include <deque>
#include <memory>

namespace arbora {

namespace {

struct Deleter {
  void operator()(GLUtesselator* tessellator) const { gluDeleteTess(tessellator); }
};

using Coordinates = std::array<GLdouble, 3>;

struct Output {
  TessellatedPolygon polygon;
  // GLU keeps pointers to the coordinates until the polygon's end: they must stay in place.
  std::deque<Coordinates> coordinates;
  bool failed = false;
};

void* addPoint(Output& output, GLdouble x, GLdouble y) {
  output.coordinates.push_back({x, y, 0.0});
  output.polygon.points.emplace_back(static_cast<float>(x), static_cast<float>(y));
  return reinterpret_cast<void*>(output.polygon.points.size() - 1);
}

void onVertex(void* vertex, void* data) {
  static_cast<Output*>(data)->polygon.triangles.push_back(
      static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(vertex)));
}

void onCombine(GLdouble coordinates[3], void* [4], GLfloat[4], void** vertex, void* data) {
  *vertex = addPoint(*static_cast<Output*>(data), coordinates[0], coordinates[1]);
}

// With it, all that comes is single triangles rather than strips and fans.
void onEdgeFlag(GLboolean, void*) {}

void onError(GLenum, void* data) { static_cast<Output*>(data)->failed = true; }

// The headers of the two systems call the type of a callback differently.
template <class Callback>
Callback callbackType(void (*)(GLUtesselator*, GLenum, Callback));
using GluCallback = decltype(callbackType(&gluTessCallback));

template <class F>
void setCallback(GLUtesselator* tessellator, GLenum which, F* function) {
  gluTessCallback(tessellator, which, reinterpret_cast<GluCallback>(function));
}

} // namespace

TessellatedPolygon tessellate(const std::vector<std::vector<NbVec2f>>& contours) {
  const std::unique_ptr<GLUtesselator, Deleter> tessellator(gluNewTess());
  if (!tessellator) return {};
  Output output;
  setCallback(tessellator.get(), GLU_TESS_VERTEX_DATA, &onVertex);
  setCallback(tessellator.get(), GLU_TESS_COMBINE_DATA, &onCombine);
  setCallback(tessellator.get(), GLU_TESS_EDGE_FLAG_DATA, &onEdgeFlag);
  setCallback(tessellator.get(), GLU_TESS_ERROR_DATA, &onError);
  gluTessProperty(tessellator.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
  gluTessNormal(tessellator.get(), 0.0, 0.0, 1.0);
  gluTessBeginPolygon(tessellator.get(), &output);
  for (const std::vector<NbVec2f>& contour : contours) {
    gluTessBeginContour(tessellator.get());
    for (const NbVec2f& point : contour) {
      void* vertex = addPoint(output, static_cast<GLdouble>(point[0]), static_cast<GLdouble>(point[1]));
      gluTessVertex(tessellator.get(), output.coordinates.back().data(), vertex);
    }
    gluTessEndContour(tessellator.get());
  }
  gluTessEndPolygon(tessellator.get());
  if (output.failed || output.polygon.triangles.size() % 3 != 0) output.polygon.triangles.clear();
  return std::move(output.polygon);
}

} // namespace arbora
