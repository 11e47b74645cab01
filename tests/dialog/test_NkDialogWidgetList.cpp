#include "Panelix/NkDialogWidgetList.h"

#include <gtest/gtest.h>

#include "tests/support/TestSupport.h"

namespace {

HWND windowOf(std::intptr_t number) { return reinterpret_cast<HWND>(number); }

TEST(NkDialogWidgetList, HoldsWindowsInOrder) {
  NkDialogWidgetList list(2);
  EXPECT_EQ(list.getLength(), 0);
  list.append(windowOf(1));
  list.append(windowOf(3));
  list.insert(windowOf(2), 1);
  EXPECT_EQ(list.getLength(), 3);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(list[i], windowOf(i + 1));
  EXPECT_EQ(list.find(windowOf(3)), 2);
  EXPECT_EQ(list.find(windowOf(4)), -1);
  EXPECT_EQ(list.find(nullptr), -1);
}

TEST(NkDialogWidgetList, EntryIsClearedInItsPlace) {
  NkDialogWidgetList list;
  list.append(windowOf(1));
  list.append(windowOf(2));
  list[0] = nullptr;
  EXPECT_EQ(list.getLength(), 2);
  EXPECT_EQ(list.find(nullptr), 0);
  EXPECT_EQ(list.find(windowOf(1)), -1);
  EXPECT_EQ(list.get(1), windowOf(2));
}

TEST(NkDialogWidgetList, CopiesAreTheirOwn) {
  NkDialogWidgetList list;
  list.append(windowOf(1));
  const NkDialogWidgetList copy(list);
  NkDialogWidgetList assigned;
  assigned.append(windowOf(8));
  assigned.append(windowOf(9));
  assigned = list;
  list[0] = windowOf(5);
  EXPECT_EQ(copy.getLength(), 1);
  EXPECT_EQ(copy[0], windowOf(1));
  EXPECT_EQ(assigned.getLength(), 1);
  EXPECT_EQ(assigned[0], windowOf(1));
}

TEST(NkDialogWidgetList, InsertionOutOfRangeIsRefused) {
  NkDialogWidgetList list;
  expectMessage("NbPList::insert");
  list.insert(windowOf(1), 1);
  EXPECT_EQ(list.getLength(), 0);
}

} // namespace
