#pragma once

#include "Panelix/export.h"
#include "arbora/base/NbPList.h"
#include "src/platform/Win32.h"

/// The windows of a component with several native controls. It doesn't own them: who made them destroys them.
class PANELIX_API NkDialogWidgetList : public NbPList {
public:
  NkDialogWidgetList() = default;
  /// Room for `capacity` windows; the list is empty all the same.
  explicit NkDialogWidgetList(int capacity) : NbPList(capacity) {}

  void append(HWND window);
  /// In front of entry `index`.
  void insert(HWND window, int index);
  /// The index of the first such entry, or -1.
  int find(HWND window) const;
  /// An entry can be cleared in its place.
  HWND& operator[](int index) const;
};
