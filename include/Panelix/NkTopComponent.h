#pragma once

#include "Panelix/NkPanelix.h"

/// Base of what stands directly in a top-level dialog: the dialog components and the menu bar.
class PANELIX_API NkTopComponent : public NkPanelix {
  NK_KIT_HEADER(NkTopComponent);

public:
  NkTopComponent();

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void updateFromSensor(NkSensor* sensor) override;

  /// The natural size and its limits, in pixels. Here the arguments stay as they are.
  virtual void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max);

  /// Puts a translation at the head of the 3D form, which has been built. One that bears the name
  /// `parentPositionTranslation` there takes the value over instead.
  void addTranslation(NkTranslation* translation);

protected:
  ~NkTopComponent() override;
};
