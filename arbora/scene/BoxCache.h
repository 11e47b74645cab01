#pragma once

#include <cstdint>
#include <functional>

#include "arbora/base/NbBox3f.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/export.h"

class NkGetBoundingBoxAction;
class NkNode;
class NkRayPickAction;

namespace arbora {

/// The box of a node's content in its local space, and what of the inherited state it depends on. The content leaves
/// the state of what follows the node as it was.
class ARBORA_API BoxCache {
public:
  /// Something in the content has changed.
  void drop() {
    m_valid = false;
    ++m_changes;
  }
  /// Adds the box to that of the action; `traverse` visits the content if it has to be measured.
  void extend(NkGetBoundingBoxAction* action, const std::function<void()>& traverse);
  /// True if the ray passes the content by, which `node` holds.
  bool isMissed(NkRayPickAction* action, NkNode* node);

private:
  void measure(NkGetBoundingBoxAction* action, const std::function<void()>& traverse);
  bool fits(const NkState& state) const;

  bool m_valid = false;
  unsigned m_changes = 0; // Grows with every change that it hears of.
  NbBox3f m_box;
  unsigned m_used = 0; // NkState::Element bits.
  FontStyle m_font;
  std::uint64_t m_coordinatesId = 0;
  int m_switchChild = 0;
};

} // namespace arbora
