#pragma once

#include "Panelix/NkTopComponent.h"

/// Base of what stands inside a dialog, the containers too: sizes, the frame around the component and, left of the
/// component proper, its label.
class PANELIX_API NkDialogComponent : public NkTopComponent {
  NK_KIT_HEADER(NkDialogComponent);
  NK_SKIN_HEADER(DialogComponent);

public:
  enum EdgeStyle { NONE = 0, SHADOW_IN = 1, SHADOW_OUT = 2 };

  // In pixels; 0 stands for not set.
  NkSFInt32 width;
  NkSFInt32 height;
  NkSFBool fixedWidth;  ///< The width never changes: it is its own limit. FALSE.
  NkSFBool fixedHeight; ///< FALSE.
  NkSFInt32 minWidth;
  NkSFInt32 minHeight;
  NkSFInt32 maxWidth;
  NkSFInt32 maxHeight;
  NkSFBool labelVisibility; ///< There is a label area. TRUE.
  NkSFEnum edgeStyle;       ///< Of the frame. NONE.

  NkDialogComponent();

protected:
  ~NkDialogComponent() override;

  NkSFNode mainCptSeparator;
  NkSFNode edgeStyleSwitch;
  NkSFNode edgeStyleNone;
  NkSFNode edgeStyleShadowIn;
  NkSFNode edgeStyleShadowOut;
};
