#pragma once

#include "Panelix/NkMenuItem.h"

/// Dividing line of a menu. No field of it has an effect.
class PANELIX_API NkMenuSeparator : public NkMenuItem {
  NK_KIT_HEADER(NkMenuSeparator);
  NK_SKIN_HEADER(MenuSeparator);

public:
  NkMenuSeparator();

protected:
  ~NkMenuSeparator() override;

private:
  NkSFNode sepSep;
  NkSFNode sepFrame;
};
