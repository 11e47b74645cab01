#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"
#include "tests/desktop/ActingTest_win.h"
#include "tests/desktop/MessageLog_win.h"

// What the components with a label and a control have in common as windows.

namespace {

struct PushButtonCase {
  using Component = NkDialogPushButton;
  static constexpr const char* kKeyword = "DialogPushButton";
  static NkSFString& captionOf(Component& button) { return button.buttonLabel; }
};
struct CheckBoxCase {
  using Component = NkDialogCheckBox;
  static constexpr const char* kKeyword = "DialogCheckBox";
  static NkSFString& captionOf(Component& box) { return box.onString; }
};

template <class Case>
class LabelledWindow : public ActingTest {
protected:
  using Component = typename Case::Component;

  Component* make(const std::string& fields, NbVec2i32 size = NbVec2i32(0, 0)) {
    return build<Component>(std::string(Case::kKeyword) + " { " + fields + " }", size);
  }
  static std::string childrenOf(NkDialogComponent* component) {
    std::string classes;
    for (HWND child = GetWindow(component->getWidget(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
      classes += classOf(child) + " ";
    return classes;
  }
  static void expectEnabled(NkDialogComponent* component, bool isEnabled) {
    EXPECT_EQ(ActingTest::isEnabled(component->getWidget()), isEnabled);
    EXPECT_EQ(ActingTest::isEnabled(component->getLabelWidget()), isEnabled);
    EXPECT_EQ(ActingTest::isEnabled(controlOf(component)), isEnabled);
  }
};

using Cases = ::testing::Types<PushButtonCase, CheckBoxCase>;

} // namespace

TYPED_TEST_SUITE(LabelledWindow, Cases);

// The label

TYPED_TEST(LabelledWindow, ItsLabelIsAStaticControl) {
  auto* component = this->make("label \"some\\nname\"");
  const HWND label = component->getLabelWidget();
  EXPECT_EQ(this->classOf(label), "Static");
  EXPECT_EQ(this->textOf(label), "some\nname");
  EXPECT_EQ(this->extendedStyleOf(label), 0U);
  EXPECT_EQ(GetParent(label), component->getWidget());
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(label, WM_GETFONT, 0, 0)), NkPanelix::getPanelixFont());
  EXPECT_EQ(this->childrenOf(component), "Button Static ");
}

TYPED_TEST(LabelledWindow, AlignmentIsTheLabelsStyle) {
  const std::pair<const char*, DWORD> styles[] = {{"LEFT", 0}, {"CENTER", 1}, {"RIGHT", 2}};
  for (const auto& [name, bits] : styles) {
    auto* component = this->make(std::string("labelAlignment ") + name);
    EXPECT_EQ(this->styleOf(component->getLabelWidget()), 0x52000000U | bits) << name;
    auto* hidden = this->make(std::string("labelVisibility FALSE labelAlignment ") + name);
    EXPECT_EQ(this->styleOf(hidden->getLabelWidget()), 0x42000000U | bits) << name;
  }
}

TYPED_TEST(LabelledWindow, AnotherAlignmentChangesNothingElse) {
  auto* component = this->make("label \"name\"");
  EXPECT_EQ(this->styleOf(component->getLabelWidget()), 0x52000002U);
  component->labelAlignment = NkPanelix::CENTER;
  EXPECT_EQ(this->styleOf(component->getLabelWidget()), 0x52000001U);
  component->labelVisibility = FALSE;
  component->enable = FALSE;
  component->labelAlignment = NkPanelix::LEFT;
  EXPECT_EQ(this->styleOf(component->getLabelWidget()), 0x42000000U | WS_DISABLED);
  EXPECT_FALSE(this->isEnabled(component->getLabelWidget()));
}

TYPED_TEST(LabelledWindow, LabelAndControlStandSideBySide) {
  auto* component = this->make("label \"name\"", NbVec2i32(200, 50));
  const NbVec2i32 text = this->textSize("name");
  const int width = text[0];
  const int height = text[1];
  const auto isLabelShown = [&] { return (this->styleOf(component->getLabelWidget()) & WS_VISIBLE) != 0; };
  const std::pair<int, int> insets[] = {
      {NkDialogComponent::SHADOW_IN, 2}, {NkDialogComponent::SHADOW_OUT, 0}, {NkDialogComponent::NONE, 3}};
  for (const auto& [edge, inset] : insets) {
    SCOPED_TRACE(edge);
    const auto expectPlaces = [&, at = inset] {
      EXPECT_EQ(this->rectangleOf(component->getLabelWidget()),
                this->rectangle(at, at + (50 - 3 - height) / 2, width, height));
      EXPECT_EQ(this->rectangleOf(this->controlOf(component)),
                this->rectangle(at + width + 2, at, 200 - 6 - width - 2, 44));
    };
    component->edgeStyle = edge;
    expectPlaces();
    this->buildAgain(component, NbVec2i32(200, 50));
    expectPlaces();
    component->labelVisibility = FALSE;
    EXPECT_FALSE(isLabelShown());
    EXPECT_EQ(this->rectangleOf(this->controlOf(component)), this->rectangle(inset, inset, 194, 44));
    component->labelVisibility = TRUE;
    EXPECT_TRUE(isLabelShown());
    expectPlaces();
  }
  ShowWindow(component->getLabelWidget(), SW_HIDE);
  this->buildAgain(component, NbVec2i32(200, 50));
  EXPECT_TRUE(isLabelShown());
}

TYPED_TEST(LabelledWindow, ALabelHigherThanItsRoomStandsOutAtBothSides) {
  auto* component = this->make("label \"one\\ntwo\\nthree\\nfour\"", NbVec2i32(200, 0));
  const NbVec2i32 text = this->textSize("one\ntwo\nthree\nfour");
  // Of an odd difference the larger part stands out below.
  component->maxHeight = text[1] - 4;
  this->buildAgain(component);
  ASSERT_EQ(component->height.getValue(), text[1] - 4);
  EXPECT_EQ(this->rectangleOf(component->getLabelWidget()), this->rectangle(3, 3 - 3, text[0], text[1]));
}

TYPED_TEST(LabelledWindow, AnotherLabelKeepsTheWidthOfItsArea) {
  auto* component = this->make("label \"name\"", NbVec2i32(200, 60));
  const int width = this->textSize("name")[0];
  component->label = "a longer\\nname";
  EXPECT_EQ(this->textOf(component->getLabelWidget()), "a longer\nname");
  const int height = this->textSize("a longer\nname")[1];
  EXPECT_EQ(this->rectangleOf(component->getLabelWidget()), this->rectangle(3, 3 + (57 - height) / 2, width, height));
}

TYPED_TEST(LabelledWindow, WhatIsPlacedLastStandsInFront) {
  auto* component = this->make("label \"name\"");
  component->label = "other";
  EXPECT_EQ(this->childrenOf(component), "Static Button ");
  component->labelVisibility = FALSE;
  EXPECT_EQ(this->childrenOf(component), "Button Static ");
}

TYPED_TEST(LabelledWindow, ItsLabelShowsLettersOfBothKinds) {
  auto* component = this->make("label \"caf\u00E9\"");
  wchar_t text[20] = L"";
  GetWindowTextW(component->getLabelWidget(), text, 20);
  EXPECT_STREQ(text, L"caf\u00E9");
  component->label = NbString("th\xE9");
  GetWindowTextW(component->getLabelWidget(), text, 20);
  EXPECT_STREQ(text, L"th\u00E9");
}

// Enabling

TYPED_TEST(LabelledWindow, EnableHoldsForAllItsWindows) {
  auto* component = this->make("enable FALSE");
  this->expectEnabled(component, false);
  component->changeWidgetEnable(1);
  this->expectEnabled(component, false);
  component->enable = TRUE;
  this->expectEnabled(component, true);
  component->changeWidgetEnable(0);
  this->expectEnabled(component, false);
  component->changeWidgetEnable(1);
  this->expectEnabled(component, true);
  component->enable = FALSE;
  this->expectEnabled(component, false);
}

// Building

TYPED_TEST(LabelledWindow, ASecondBuildMovesItsWindows) {
  auto* component = this->make("label \"name\"", NbVec2i32(200, 40));
  const HWND frame = component->getWidget();
  const HWND label = component->getLabelWidget();
  const HWND control = this->controlOf(component);
  this->buildAgain(component, NbVec2i32(300, 40));
  EXPECT_EQ(component->getWidget(), frame);
  EXPECT_EQ(component->getLabelWidget(), label);
  EXPECT_EQ(this->controlOf(component), control);
  EXPECT_EQ(this->childrenOf(component), "Button Static ");
  EXPECT_EQ(this->sizeOf(control), NbVec2i32(300 - 6 - this->textSize("name")[0] - 2, 34));
}

TYPED_TEST(LabelledWindow, ASecondBuildListensOnce) {
  auto* component = this->make("label \"name\"");
  this->buildAgain(component);
  MessageLog log({{this->controlOf(component), "control"}}, {{WM_SETTEXT, "text"}});
  TypeParam::captionOf(*component) = "new";
  EXPECT_EQ(log.take(), "control text 'new'");
}

TYPED_TEST(LabelledWindow, ItsControlGoesAheadOfItsLabelAndItsFrameLast) {
  const auto windowsOf = [this](NkDialogComponent* component) {
    return std::map<HWND, std::string>{{component->getWidget(), "frame"},
                                       {component->getLabelWidget(), "label"},
                                       {this->controlOf(component), "control"}};
  };
  auto* component = this->make("label \"name\"");
  {
    MessageLog log(windowsOf(component), {{WM_DESTROY, "goes"}});
    component->destroyWidget();
    EXPECT_EQ(log.take(), "control goes, label goes, frame goes");
  }
  this->buildAgain(component);
  MessageLog log(windowsOf(component), {{WM_DESTROY, "goes"}});
  this->release();
  EXPECT_EQ(log.take(), "control goes, label goes, frame goes");
}

TYPED_TEST(LabelledWindow, ANewAlignmentIsFollowedByEnablingAndShowing) {
  auto* component = this->make("label \"name\" enable FALSE");
  MessageLog log({{component->getLabelWidget(), "label"}},
                 {{WM_STYLECHANGED, "style"}, {WM_ENABLE, "enable"}, {WM_SHOWWINDOW, "show"}});
  component->labelAlignment = NkPanelix::LEFT;
  EXPECT_EQ(log.take(), "label style, label enable, label show");
}

TYPED_TEST(LabelledWindow, ItsWindowsComeAndGoWithItsForm) {
  auto* component = this->make("label \"name\"");
  const HWND label = component->getLabelWidget();
  const HWND control = this->controlOf(component);
  component->destroyWidget();
  EXPECT_FALSE(IsWindow(label));
  EXPECT_FALSE(IsWindow(control));
  EXPECT_EQ(component->getLabelWidget(), nullptr);
  component->label = "other";
  component->enable = FALSE;
  component->labelVisibility = FALSE;
  component->edgeStyle = NkDialogComponent::SHADOW_IN;
  component->labelAlignment = NkPanelix::LEFT;
  component->destroyWidget();
  this->buildAgain(component);
  EXPECT_EQ(this->textOf(component->getLabelWidget()), "other");
  EXPECT_EQ(this->styleOf(component->getLabelWidget()), 0x42000000U | WS_DISABLED);
  this->expectEnabled(component, false);
}

TYPED_TEST(LabelledWindow, DestroyedByItsParentItIsBuiltAnew) {
  auto* component = this->make("label \"name\"");
  DestroyWindow(component->getWidget());
  EXPECT_EQ(component->getLabelWidget(), nullptr);
  component->label = "other";
  component->enable = FALSE;
  this->buildAgain(component);
  EXPECT_EQ(this->textOf(component->getLabelWidget()), "other");
  EXPECT_TRUE(IsWindow(this->controlOf(component)));
}

TYPED_TEST(LabelledWindow, WithoutItsWindowsItGoesOnAndTheNextBuildMakesThem) {
  for (const char* refused : {"Button", "Static"}) {
    typename TypeParam::Component* component = nullptr;
    this->make("");
    {
      const WindowRefusal refusal(refused);
      component = this->make("label \"name\"");
    }
    EXPECT_EQ(this->childrenOf(component), refused[0] == 'B' ? "Static " : "Button ");
    component->label = "other";
    component->enable = FALSE;
    component->edgeStyle = NkDialogComponent::SHADOW_OUT;
    component->labelAlignment = NkPanelix::LEFT;
    component->changeWidgetEnable(1);
    this->buildAgain(component);
    EXPECT_EQ(this->textOf(component->getLabelWidget()), "other");
    this->expectEnabled(component, false);
  }
}

// Keys

TYPED_TEST(LabelledWindow, TabWalksDownTheDialogAndShiftTabUp) {
  const std::string component = std::string(" ") + TypeParam::kKeyword + " { auditorID ";
  auto* dialog = this->open("TopLevelDialog { position 100 100 width 300 height 200" + component + "\"first\" }" +
                            component + "\"second\" } RowDialog {" + component + "\"third\" } } }");
  const auto control = [&](const char* id) {
    return this->controlOf(this->template find<NkDialogComponent>(dialog, id));
  };
  // The keyboard is surely the dialog's once its user has clicked on it.
  this->click(250, 100 + GetSystemMetrics(SM_CYFRAME) + 8);
  SetFocus(control("first"));
  dialog->setCurrentFocusedWidget(control("first"));
  const auto expectAfter = [&](const char* keys, const char* id) {
    this->typeKeys(keys);
    EXPECT_EQ(GetFocus(), control(id)) << keys;
    EXPECT_EQ(dialog->getCurrentFocusedWidget(), control(id)) << keys;
  };
  expectAfter("Tab", "second");
  expectAfter("Tab", "third");
  expectAfter("shift+Tab", "second");
  expectAfter("shift+Tab", "first");
  expectAfter("Tab", "second");
  // Other keys are the control's.
  expectAfter("a", "second");
}

TYPED_TEST(LabelledWindow, ADialogThatIsNotTraversedHasTheKeysAllTheSame) {
  const std::string component = std::string(" ") + TypeParam::kKeyword + " { auditorID ";
  auto* dialog = this->open("TopLevelDialog { position 100 100 width 300 height 200" + component + "\"first\" }" +
                            component + "\"second\" } }");
  const HWND first = this->controlOf(this->template find<NkDialogComponent>(dialog, "first"));
  const HWND second = this->controlOf(this->template find<NkDialogComponent>(dialog, "second"));
  dialog->setCanBeTraversed(0);
  this->clickOn(second);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), second);
  MessageLog log({{dialog->getWidget(), "dialog"}}, {{WM_KEYDOWN, "down"}, {WM_KEYUP, "up"}});
  this->typeKeys("Tab");
  EXPECT_EQ(log.take(), "dialog down, dialog up");
  EXPECT_EQ(GetFocus(), first);
  this->typeKeys("a");
  EXPECT_EQ(log.take(), "");
}

TYPED_TEST(LabelledWindow, WithoutADialogTheTabKeyIsNobodys) {
  auto* component = this->make("");
  SendMessageA(this->controlOf(component), WM_KEYDOWN, VK_TAB, 0);
  SendMessageA(this->controlOf(component), WM_KEYUP, VK_TAB, 0);
  EXPECT_TRUE(IsWindow(this->controlOf(component)));
}
