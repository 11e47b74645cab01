#include "arbora/scene/NkEvent.h"

NK_EVENT_SOURCE(NkEvent, NkTypedObject, "Event");

NkEvent::NkEvent() = default;

NkEvent::~NkEvent() = default;

NbVec2f NkEvent::getNormalizedPosition(const NbViewportRegion& viewport) const {
  const NbVec2i32& origin = viewport.getViewportOriginPixels();
  const NbVec2i32& size = viewport.getViewportSizePixels();
  const auto share = [&](int axis) {
    // In floats from the start: positions far outside the window must not overflow.
    return size[axis] > 0 ? (static_cast<float>(m_position[axis]) - static_cast<float>(origin[axis])) /
                                static_cast<float>(size[axis])
                          : 0.0f;
  };
  return NbVec2f(share(0), share(1));
}
