#pragma once

#include "Panelix/NkDialogComponent.h"

/// Empty component that takes its place in the layout. The application puts windows of its own into its frame.
class PANELIX_API NkDialogCustom : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogCustom);

public:
  NkDialogCustom();

  /// Does nothing: a window is the component's when its parent is the frame.
  void addChildWidget();

protected:
  ~NkDialogCustom() override;
};
