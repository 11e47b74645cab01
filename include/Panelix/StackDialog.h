#pragma once

#include "Panelix/NkDialogGroup.h"

namespace panelix {

/// What the row dialog and the column dialog share: children one behind the other along an axis, 0 for x and 1 for y.
class PANELIX_API StackDialog : public NkDialogGroup {
public:
  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void updateFromSensor(NkSensor* sensor) override;
  /// The natural size of the content.
  NbVec2i32 getComponentInitSize() override;
  void fixSizeWithBorder(NbVec2i32& size, int factor) override;

protected:
  StackDialog(int along, NkSFInt32& spacing);
  ~StackDialog() override;
  /// Watches the spacing; for the constructors, once the field has its container.
  void watchSpacing();

  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;

private:
  void shareOut(const NbVec2i32& target);
  /// `inWindow` for the places of the 2D form.
  void placeChildren(int is2D, bool inWindow);

  const int m_along;
  NkSFInt32& m_spacing; // The class's own field.
  std::unique_ptr<NkFieldSensor> m_spacingSensor;
};

} // namespace panelix
