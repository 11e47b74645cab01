#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Panelix/NkDialogComponent.h"

/// A component of an application, with a push button for a control.
class Control : public NkDialogComponent {
public:
  explicit Control(const char* text = "control", NbVec2i32 naturalSize = NbVec2i32(60, 30));

  HWND getControl() const { return m_control; }

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void eventNotify(unsigned int message, std::uint64_t value) override;
  NbVec2i32 getComponentInitSize() override { return m_naturalSize; }
  NbVec2i32 getLabelInitSize() override;

  using NkDialogComponent::getDefaultState;

  NbVec2i32 minDefault{10, 10};
  NbVec2i32 maxDefault{1000, 1000};
  int numSizesAsked = 0;  ///< Calls of `getDefaultSize`.
  int numLabelsAsked = 0; ///< Calls of `getLabelInitSize`.
  int numBuilds = 0;
  std::vector<std::string> notes;             ///< What came to `eventNotify`, each as "message value".
  std::function<void(unsigned int)> onNotify; ///< Called with each message.

protected:
  ~Control() override;
  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;

private:
  const char* m_text;
  NbVec2i32 m_naturalSize;
  HWND m_control = nullptr;
};
