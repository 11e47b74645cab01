#pragma once

#include "arbora/scene/NkSubNode.h"

/// The typeface of the text behind it.
class ARBORA_API NkFont : public NkNode {
  NK_NODE_HEADER(NkFont);

public:
  /// The family, such as "Tahoma"; empty for the system's sans serif.
  NkSFName name;
  /// Height of the em square in scene units; 10. A size below 0, or not finite, counts as 0.
  NkSFFloat size;

  NkFont();
  void doAction(NkAction* action) override;

protected:
  ~NkFont() override;
};
