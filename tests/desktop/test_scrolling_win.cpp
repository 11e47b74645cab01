#include <set>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkRowDialog.h"
#include "tests/desktop/Control_win.h"
#include "tests/desktop/DesktopTest_win.h"

// Scroll bars and the wheel, of the dialog and of groups.

namespace {

const int kBar = GetSystemMetrics(SM_CXHSCROLL);

/// A dialog whose window is smaller than its content.
constexpr const char* kTooSmall = "TopLevelDialog { position 100 100 width 200 height 150 minWidth 100 minHeight 60"
                                  " DialogLabel { auditorID \"label\" label \"text\" minWidth 400 minHeight 300 } }";

class Scrolling : public DesktopTest {
protected:
  static int topOf(NkDialogComponent* component) {
    const HWND window = component->getWidget();
    return outlineOf(window).top - outlineOf(GetParent(window)).top;
  }
  static int leftOf(NkDialogComponent* component) {
    const HWND window = component->getWidget();
    return outlineOf(window).left - outlineOf(GetParent(window)).left;
  }
  static void scroll(HWND window, UINT message, int code) {
    SendMessageA(window, message, static_cast<WPARAM>(code), 0);
  }
  static int positionOf(HWND window, int bar) { return GetScrollPos(window, bar); }
  /// Opens a dialog around a row that is smaller than its content in both directions.
  NkTopLevelDialog* openTight(NkRowDialog* row) {
    auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { width 300 height 250 }");
    row->minWidth = 50;
    row->minHeight = 50;
    dialog->addChild(row);
    auto* control = new Control;
    control->minDefault = NbVec2i32(400, 300);
    row->addChild(control);
    dialog->buildDialog(nullptr, 0);
    dialog->show();
    return dialog;
  }
  /// Notches away from the user.
  static void turnWheel(NkTopLevelDialog* dialog, int way) {
    SendMessageA(dialog->getBaseWidget(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(way)), 0);
  }
};

/// A dialog around a row of that size, whose content is 406 x 306 pixels large at least.
std::string dialogOfRow(int width, int height, const std::string& fields = "") {
  return "TopLevelDialog { RowDialog { auditorID \"row\" minWidth 50 minHeight 50 width " + std::to_string(width) +
         " height " + std::to_string(height) + " " + fields +
         " DialogLabel { auditorID \"label\" label \"text\" minWidth 400 minHeight 300 } } }";
}

/// The wheel as the system has it, which the test changes; off again at its end, as in a new program.
class Wheel : public Scrolling {
protected:
  Wheel() { SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &m_lines, 0); }
  ~Wheel() override {
    NkTopLevelDialog* dialog = open("TopLevelDialog { }");
    setLines(dialog, 0);
    SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, m_lines, nullptr, 0);
  }
  static void setLines(NkTopLevelDialog* dialog, UINT lines) {
    SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0);
    SendMessageA(dialog->getBaseWidget(), WM_WININICHANGE, 0, 0);
  }

private:
  UINT m_lines = 0;
};

} // namespace

// The dialog

TEST_F(Scrolling, ADialogThatHoldsItsContentHasNoBars) {
  auto* dialog = open("TopLevelDialog { DialogLabel { label \"text\" } }");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_HORZ), "off");
}

TEST_F(Scrolling, ADialogThatIsTooSmallHasBars) {
  auto* dialog = open(kTooSmall);
  const NbVec2i32 inside = sizeOf(dialog->getWidget());
  RECT area{};
  GetClientRect(dialog->getBaseWidget(), &area);
  EXPECT_EQ(inside, NbVec2i32(area.right, area.bottom));
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), rectangle(0, 300 + kBar, inside[1], 0));
  EXPECT_EQ(barOf(dialog->getWidget(), SB_HORZ), rectangle(0, 400 + kBar, inside[0], 0));
  EXPECT_EQ(rectangleOf(find<NkDialogLabel>(dialog, "label")->getWidget()), rectangle(0, 0, 400, 300));
}

TEST_F(Scrolling, EachBarLooksAtItsOwnAxis) {
  auto* dialog =
      open("TopLevelDialog { width 300 height 150 minHeight 60 DialogLabel { minWidth 100 minHeight 300 } }");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), rectangle(0, 300, sizeOf(dialog->getWidget())[1], 0));
  EXPECT_EQ(barOf(dialog->getWidget(), SB_HORZ), "off");
}

TEST_F(Scrolling, NeverAndAlwaysDoNotLookAtTheContent) {
  auto* never = open(
      "TopLevelDialog { width 200 height 150 minWidth 100 minHeight 60 vScrollVisibility NEVER hScrollVisibility NEVER"
      " DialogLabel { minWidth 400 minHeight 300 } }");
  EXPECT_EQ(barOf(never->getWidget(), SB_VERT), "off");
  EXPECT_EQ(barOf(never->getWidget(), SB_HORZ), "off");
  auto* always = open("TopLevelDialog { vScrollVisibility ALWAYS hScrollVisibility ALWAYS"
                      " DialogLabel { auditorID \"label\" width 400 height 300 minWidth 100 minHeight 60 } }");
  const NbVec2i32 inside = sizeOf(always->getWidget());
  EXPECT_EQ(inside, NbVec2i32(400 + kBar, 300 + kBar));
  // The system holds the page within the range.
  EXPECT_EQ(barOf(always->getWidget(), SB_VERT), rectangle(0, 60 + kBar, 60 + kBar + 1, 0));
  EXPECT_EQ(barOf(always->getWidget(), SB_HORZ), rectangle(0, 100 + kBar, 100 + kBar + 1, 0));
  EXPECT_EQ(rectangleOf(find<NkDialogLabel>(always, "label")->getWidget()), rectangle(0, 0, 400, 300));
}

TEST_F(Scrolling, AWindowThatCouldNotHoldItsBarsHasNone) {
  auto* dialog = open(
      "TopLevelDialog { width 300 height 300 minWidth 8 minHeight 8 vScrollVisibility ALWAYS hScrollVisibility ALWAYS"
      " DialogLabel { minWidth 100 minHeight 60 } }");
  const NbVec2i32 border = sizeOf(dialog->getBaseWidget()) - sizeOf(dialog->getWidget());
  EXPECT_NE(barOf(dialog->getWidget(), SB_VERT), "off");
  resize(dialog->getBaseWidget(), border[0] + 2 * kBar, 300);
  EXPECT_EQ(sizeOf(dialog->getWidget())[0], 2 * kBar);
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
  EXPECT_NE(barOf(dialog->getWidget(), SB_HORZ), "off");
  resize(dialog->getBaseWidget(), border[0] + 2 * kBar + 1, border[1] + 2 * kBar);
  EXPECT_EQ(sizeOf(dialog->getWidget())[1], 2 * kBar);
  EXPECT_NE(barOf(dialog->getWidget(), SB_VERT), "off");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_HORZ), "off");
}

TEST_F(Scrolling, TheDialogScrollsByEachCode) {
  auto* dialog = open(kTooSmall);
  auto* label = find<NkDialogLabel>(dialog, "label");
  const HWND inside = dialog->getWidget();
  const NbVec2i32 page = sizeOf(inside);
  const auto expectAt = [&](int x, int y) {
    EXPECT_EQ(positionOf(inside, SB_HORZ), x);
    EXPECT_EQ(positionOf(inside, SB_VERT), y);
    EXPECT_EQ(leftOf(label), -x);
    EXPECT_EQ(topOf(label), -y);
  };
  expectAt(0, 0);
  scroll(inside, WM_VSCROLL, SB_LINEUP);
  expectAt(0, 0);
  scroll(inside, WM_VSCROLL, SB_LINEDOWN);
  scroll(inside, WM_VSCROLL, SB_LINEDOWN);
  scroll(inside, WM_HSCROLL, SB_LINERIGHT);
  expectAt(1, 2);
  scroll(inside, WM_VSCROLL, SB_PAGEDOWN);
  scroll(inside, WM_HSCROLL, SB_PAGERIGHT);
  expectAt(1 + page[0] - 1, 2 + page[1] - 1);
  scroll(inside, WM_VSCROLL, SB_PAGEUP);
  scroll(inside, WM_HSCROLL, SB_PAGELEFT);
  expectAt(1, 2);
  for (int code : {SB_THUMBPOSITION, SB_TOP, SB_BOTTOM, SB_ENDSCROLL}) scroll(inside, WM_VSCROLL, code);
  expectAt(1, 2);
  // The system ends the way at the last page.
  for (int i = 0; i < 20; ++i) scroll(inside, WM_VSCROLL, SB_PAGEDOWN);
  expectAt(1, 300 + kBar - page[1] + 1);
  for (int i = 0; i < 20; ++i) scroll(inside, WM_VSCROLL, SB_PAGEUP);
  scroll(inside, WM_HSCROLL, SB_LINELEFT);
  scroll(inside, WM_HSCROLL, SB_LINELEFT);
  expectAt(0, 0);
}

TEST_F(Scrolling, TheUserScrollsTheDialogByItsBar) {
  auto* dialog = open(kTooSmall);
  auto* label = find<NkDialogLabel>(dialog, "label");
  const RECT outline = outlineOf(dialog->getWidget());
  const int barX = outline.right - kBar / 2;
  click(barX, outline.bottom - kBar - kBar / 2);
  EXPECT_EQ(topOf(label), -1);
  drag(barX, outline.top + kBar + 5, 0, 20);
  EXPECT_LT(topOf(label), -20);
  EXPECT_EQ(topOf(label), -positionOf(dialog->getWidget(), SB_VERT));
  EXPECT_EQ(leftOf(label), 0);
  desktop::takePicture("scrolled");
}

TEST_F(Scrolling, ANewSizeGoesBackToTheCorner) {
  auto* dialog = open(kTooSmall);
  auto* label = find<NkDialogLabel>(dialog, "label");
  for (int i = 0; i < 7; ++i) scroll(dialog->getWidget(), WM_VSCROLL, SB_LINEDOWN);
  EXPECT_EQ(topOf(label), -7);
  resize(dialog->getBaseWidget(), 210, 160);
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 0);
  EXPECT_EQ(topOf(label), 0);
  resize(dialog->getBaseWidget(), 600, 500);
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_HORZ), "off");
}

TEST_F(Scrolling, ANewChildMakesBarsNeeded) {
  auto* dialog = open("TopLevelDialog { width 300 height 150 minHeight 60 DialogLabel { minHeight 100 } }");
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
  auto* control = new Control;
  control->minDefault = NbVec2i32(10, 120);
  dialog->addChild(control);
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), rectangle(0, 220, sizeOf(dialog->getWidget())[1], 0));
  dialog->removeChild(control);
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
}

TEST_F(Scrolling, AnUnboundedMinHasABar) {
  auto* dialog = open("TopLevelDialog { width 200 height 150 minWidth 100 minHeight 60"
                      " RowDialog { auditorID \"row\" vScrollVisibility ALWAYS"
                      " DialogLabel { minWidth 2147483647 minHeight 2147483647 } } }");
  auto* row = find<NkRowDialog>(dialog, "row");
  for (int bar : {SB_VERT, SB_HORZ}) {
    EXPECT_NE(barOf(dialog->getWidget(), bar), "off");
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE;
    GetScrollInfo(dialog->getWidget(), bar, &info);
    EXPECT_EQ(info.nMax, 0x7FFFFFFF);
  }
  EXPECT_EQ(row->minHeight.getValue(), 0x7FFFFFFF);
}

// The wheel

TEST_F(Wheel, IsOffUntilTheSystemTellsOfASetting) {
  auto* dialog = open(kTooSmall);
  turnWheel(dialog, -WHEEL_DELTA);
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 0);
  setLines(dialog, 3);
  turnWheel(dialog, -WHEEL_DELTA);
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 3);
}

TEST_F(Wheel, TakesTheLinesOfTheSystem) {
  auto* dialog = open(kTooSmall);
  auto* label = find<NkDialogLabel>(dialog, "label");
  setLines(dialog, 4);
  turnWheel(dialog, -2 * WHEEL_DELTA);
  EXPECT_EQ(topOf(label), -8);
  turnWheel(dialog, WHEEL_DELTA);
  EXPECT_EQ(topOf(label), -4);
  // What doesn't make up a line is kept.
  turnWheel(dialog, 29);
  EXPECT_EQ(topOf(label), -4);
  turnWheel(dialog, 1);
  EXPECT_EQ(topOf(label), -3);
  for (UINT lines : {0U, WHEEL_PAGESCROLL}) {
    setLines(dialog, lines);
    turnWheel(dialog, WHEEL_DELTA);
    EXPECT_EQ(topOf(label), -3);
  }
}

TEST_F(Wheel, TurnsOnlyWhatScrolledLast) {
  auto* dialog = open(kTooSmall);
  setLines(dialog, 3);
  dialog->setCurrentScrolledWidget(dialog->getBaseWidget());
  turnWheel(dialog, -WHEEL_DELTA);
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 0);
  setLines(dialog, 5);
  scroll(dialog->getWidget(), WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(dialog->getCurrentScrolledWidget(), dialog->getWidget());
  // The setting that came meanwhile wasn't taken.
  turnWheel(dialog, -WHEEL_DELTA);
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 3);
}

TEST_F(Wheel, IsTheSameForAllDialogs) {
  auto* first = open(kTooSmall);
  auto* second = open(kTooSmall);
  setLines(first, 4);
  turnWheel(first, -29);
  turnWheel(second, -1);
  EXPECT_EQ(positionOf(first->getWidget(), SB_VERT), 0);
  EXPECT_EQ(positionOf(second->getWidget(), SB_VERT), 1);
}

TEST_F(Wheel, IsTheUsers) {
  auto* dialog = open(kTooSmall);
  setLines(dialog, 3);
  const RECT outline = outlineOf(dialog->getWidget());
  EXPECT_TRUE(desktop::act("mousemove " + std::to_string(outline.left + 30) + " " + std::to_string(outline.top + 30) +
                           " click 5 click 5 click 4"));
  EXPECT_EQ(positionOf(dialog->getWidget(), SB_VERT), 3);
}

// Groups

TEST_F(Scrolling, AGroupHasBarsByItsOwnWindow) {
  auto* dialog = open("TopLevelDialog { width 300 height 150 RowDialog { auditorID \"row\" minWidth 50 minHeight 50"
                      " DialogLabel { auditorID \"label\" label \"text\" minWidth 400 minHeight 300 } } }");
  const HWND row = find<NkRowDialog>(dialog, "row")->getWidget();
  const NbVec2i32 page = sizeOf(row);
  // The content's min with the border of the group; a bar that comes on counts in the other's range.
  EXPECT_EQ(barOf(row, SB_VERT), rectangle(0, 306 + 16, page[1], 0));
  EXPECT_EQ(barOf(row, SB_HORZ), rectangle(0, 406 + 16, page[0], 0));
  EXPECT_EQ(barOf(dialog->getWidget(), SB_VERT), "off");
  auto* label = find<NkDialogLabel>(dialog, "label");
  scroll(row, WM_VSCROLL, SB_PAGEDOWN);
  scroll(row, WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(topOf(label), 1 - page[1]);
  EXPECT_EQ(leftOf(label), -1);
  for (int i = 0; i < 9; ++i) scroll(row, WM_VSCROLL, SB_PAGEDOWN);
  EXPECT_EQ(topOf(label), -(322 - page[1] + 1));
}

TEST_F(Scrolling, EachBarOfAGroupLooksAtItsOwnAxis) {
  const auto openRow = [this](int width, int height) {
    return find<NkRowDialog>(open(dialogOfRow(width, height)), "row")->getWidget();
  };
  const HWND fitting = openRow(406, 306);
  EXPECT_EQ(barOf(fitting, SB_VERT), "off");
  EXPECT_EQ(barOf(fitting, SB_HORZ), "off");
  // What a bar takes of the room doesn't bring on the other one.
  const HWND low = openRow(406, 305);
  EXPECT_EQ(barOf(low, SB_VERT), rectangle(0, 306, 305, 0));
  EXPECT_EQ(barOf(low, SB_HORZ), "off");
  const HWND narrow = openRow(405, 306);
  EXPECT_EQ(barOf(narrow, SB_VERT), "off");
  EXPECT_EQ(barOf(narrow, SB_HORZ), rectangle(0, 406, 405, 0));
}

TEST_F(Scrolling, AGroupThatGrowsLosesItsBars) {
  auto* dialog = open(dialogOfRow(405, 305));
  const HWND row = find<NkRowDialog>(dialog, "row")->getWidget();
  const NbVec2i32 size = sizeOf(dialog->getBaseWidget());
  EXPECT_NE(barOf(row, SB_VERT), "off");
  EXPECT_NE(barOf(row, SB_HORZ), "off");
  resize(dialog->getBaseWidget(), size[0], size[1] + 1);
  EXPECT_EQ(barOf(row, SB_VERT), "off");
  EXPECT_NE(barOf(row, SB_HORZ), "off");
  resize(dialog->getBaseWidget(), size[0] + 1, size[1] + 1);
  EXPECT_EQ(barOf(row, SB_HORZ), "off");
}

TEST_F(Scrolling, ABarThatComesOnTakesItsRoomFromTheChildren) {
  auto* dialog = open("TopLevelDialog { width 300 height 250"
                      " RowDialog { auditorID \"low\" minWidth 50 minHeight 50"
                      " DialogLabel { auditorID \"high\" minHeight 300 } }"
                      " ColumnDialog { auditorID \"narrow\" minWidth 50 minHeight 50"
                      " DialogLabel { auditorID \"wide\" minWidth 400 } } }");
  const HWND low = find<NkRowDialog>(dialog, "low")->getWidget();
  EXPECT_NE(barOf(low, SB_VERT), "off");
  EXPECT_EQ(find<NkDialogLabel>(dialog, "high")->width.getValue(), sizeOf(low)[0] - 16);
  const HWND narrow = find<NkColumnDialog>(dialog, "narrow")->getWidget();
  EXPECT_NE(barOf(narrow, SB_HORZ), "off");
  EXPECT_EQ(find<NkDialogLabel>(dialog, "wide")->height.getValue(), sizeOf(narrow)[1] - 16);
}

TEST_F(Scrolling, AGroupKeepsItsPositionWhileItsChildrenGoBack) {
  auto* dialog = open("TopLevelDialog { width 300 height 250 RowDialog { auditorID \"row\" minWidth 50 minHeight 50"
                      " DialogLabel { auditorID \"label\" label \"text\" minHeight 300 } } }");
  const HWND row = find<NkRowDialog>(dialog, "row")->getWidget();
  auto* label = find<NkDialogLabel>(dialog, "label");
  for (int i = 0; i < 5; ++i) scroll(row, WM_VSCROLL, SB_LINEDOWN);
  EXPECT_EQ(topOf(label), -5);
  resize(dialog->getBaseWidget(), 310, 250);
  EXPECT_EQ(positionOf(row, SB_VERT), 5);
  EXPECT_EQ(topOf(label), 0);
}

TEST_F(Scrolling, AGroupMovesItsChildrenBackToItsPositionWhenAsked) {
  class Row : public NkRowDialog {
  public:
    using NkDialogGroup::updateGroupWidgetScrollPosition;
  };
  auto* row = new Row;
  NkTopLevelDialog* dialog = openTight(row);
  NkDialogComponent* control = row->getChild(0);
  for (int i = 0; i < 5; ++i) scroll(row->getWidget(), WM_VSCROLL, SB_LINEDOWN);
  for (int i = 0; i < 7; ++i) scroll(row->getWidget(), WM_HSCROLL, SB_LINERIGHT);
  resize(dialog->getBaseWidget(), 310, 260);
  EXPECT_EQ(NbVec2i32(leftOf(control), topOf(control)), NbVec2i32(0, 0));
  row->updateGroupWidgetScrollPosition();
  EXPECT_EQ(NbVec2i32(leftOf(control), topOf(control)), NbVec2i32(-7, -5));
}

TEST_F(Scrolling, AGroupsPoliciesHold) {
  const auto openWith = [this](const std::string& fields) {
    return open("TopLevelDialog { width 300 height 250 ColumnDialog { auditorID \"group\" minWidth 50 minHeight 50 " +
                fields + " DialogLabel { auditorID \"label\" minWidth 400 minHeight 300 } } }");
  };
  auto* never = openWith("vScrollVisibility NEVER hScrollVisibility NEVER");
  const HWND plain = find<NkColumnDialog>(never, "group")->getWidget();
  EXPECT_EQ(barOf(plain, SB_VERT), "off");
  EXPECT_EQ(barOf(plain, SB_HORZ), "off");
  auto* one = openWith("vScrollVisibility ALWAYS hScrollVisibility NEVER");
  auto* group = find<NkColumnDialog>(one, "group");
  EXPECT_EQ(barOf(group->getWidget(), SB_VERT), rectangle(0, 306, sizeOf(group->getWidget())[1], 0));
  EXPECT_EQ(barOf(group->getWidget(), SB_HORZ), "off");
}

TEST_F(Scrolling, BarsOfAGroupThatAreAlwaysThereCountInTheRanges) {
  constexpr const char* kAlways = "vScrollVisibility ALWAYS hScrollVisibility ALWAYS";
  const HWND small = find<NkRowDialog>(open(dialogOfRow(200, 150, kAlways)), "row")->getWidget();
  EXPECT_EQ(barOf(small, SB_VERT), rectangle(0, 306 + 16 + 16, 150, 0));
  EXPECT_EQ(barOf(small, SB_HORZ), rectangle(0, 406 + 16 + 16, 200, 0));
  auto* large = open(dialogOfRow(500, 400, kAlways));
  const HWND row = find<NkRowDialog>(large, "row")->getWidget();
  // The system holds the page within the range.
  EXPECT_EQ(barOf(row, SB_VERT), rectangle(0, 338, 339, 0));
  EXPECT_EQ(barOf(row, SB_HORZ), rectangle(0, 438, 439, 0));
  EXPECT_EQ(sizeOf(find<NkDialogLabel>(large, "label")->getWidget()), NbVec2i32(500 - 16, 400 - 16));
}

TEST_F(Scrolling, AGroupsHorizontalScrollingIsAnEventToo) {
  // The frame of any component scrolls so; only a group makes use of it.
  auto* dialog = read<NkTopLevelDialog>("TopLevelDialog { width 300 height 200 }");
  auto* control = new Control;
  dialog->addChild(control);
  dialog->buildDialog(nullptr, 0);
  scroll(control->getWidget(), WM_VSCROLL, SB_LINEDOWN);
  EXPECT_TRUE(control->notes.empty());
  scroll(control->getWidget(), WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(control->notes, std::vector<std::string>{std::to_string(WM_HSCROLL) + " 1"});
}

TEST_F(Scrolling, AGroupHearsOfItsHorizontalScrollingAhead) {
  class Row : public NkRowDialog {
  public:
    void eventNotify(unsigned int message, std::uint64_t) override {
      if (message == WM_HSCROLL) positionAtEvent = positionOf(getWidget(), SB_HORZ);
    }
    int positionAtEvent = -1;
  };
  auto* row = new Row;
  openTight(row);
  scroll(row->getWidget(), WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(row->positionAtEvent, 0);
  EXPECT_EQ(positionOf(row->getWidget(), SB_HORZ), 1);
}

TEST_F(Scrolling, AGroupAsksForItsSizesAheadOfItsBars) {
  class Row : public NkRowDialog {
  public:
    void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override {
      NkRowDialog::getDefaultSize(size, min, max);
      NbVec2i32 border(0, 0);
      fixSizeWithBorder(border, 1);
      borders.insert(border[0]);
    }
    std::set<int> borders;
  };
  auto* row = new Row;
  NkTopLevelDialog* dialog = openTight(row);
  ASSERT_NE(barOf(row->getWidget(), SB_VERT), "off");
  NbVec2i32 withBar(0, 0);
  row->fixSizeWithBorder(withBar, 1);
  row->borders.clear();
  resize(dialog->getBaseWidget(), 310, 260);
  EXPECT_EQ(row->borders, std::set<int>{withBar[0]}) << "a bar that is on counts until it is decided on anew";
}
