#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogChoiceAuditor.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogEditTextAuditor.h"
#include "Panelix/NkDialogGroupAuditor.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogIntegerSliderAuditor.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogPushButtonAuditor.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkDialogRadioButtons.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkDialogRealSliderAuditor.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuCheckBoxAuditor.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuFileSelectionAuditor.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkMenuPushButtonAuditor.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkMenuRadioButtonsAuditor.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTabDialogAuditor.h"
#include "Panelix/NkTopLevelAuditor.h"
#include "Panelix/NkTopLevelDialog.h"
#include "Panelix/Vocabulary.h"
#include "arbora/base/NkPreferences.h"

using arbora::Ref;

namespace {

using Calls = std::vector<std::string>;

/// Records "operation:auditorID" of each call, behind its own name if it has one.
class Recorder : public NkDialogAuditor {
public:
  explicit Recorder(Calls& calls, std::string name = "") : m_calls(calls), m_name(std::move(name)) {}

  void dialogPushButton(NkDialogPushButton* button) override { record("dialogPushButton", button); }
  void dialogCheckBox(NkDialogCheckBox* box) override { record("dialogCheckBox", box); }
  void dialogComboBox(NkDialogComboBox* box) override { record("dialogComboBox", box); }
  void dialogEditText(NkDialogEditText* text) override { record("dialogEditText", text); }
  void dialogIntegerSlider(NkDialogIntegerSlider* slider) override { record("dialogIntegerSlider", slider); }
  void dialogRadioButtons(NkDialogRadioButtons* buttons) override { record("dialogRadioButtons", buttons); }
  void dialogRealSlider(NkDialogRealSlider* slider) override { record("dialogRealSlider", slider); }
  void tabDialog(NkTabDialog* dialog) override { record("tabDialog", dialog); }
  void menuPushButton(NkMenuPushButton* button) override { record("menuPushButton", button); }
  void menuCheckBox(NkMenuCheckBox* box) override { record("menuCheckBox", box); }
  void menuFileSelection(NkMenuFileSelection* selection) override { record("menuFileSelection", selection); }
  void menuRadioButtons(NkMenuRadioButtons* buttons) override { record("menuRadioButtons", buttons); }

private:
  void record(const char* operation, NkPanelix* component) {
    m_calls.push_back(m_name + operation + ":" + component->auditorID.getValue().toUtf8());
  }

  Calls& m_calls;
  std::string m_name;
};

/// Does something at each click on a check box below.
class Reaction : public NkDialogAuditor {
public:
  explicit Reaction(std::function<void(NkDialogCheckBox*)> react) : m_react(std::move(react)) {}
  void dialogCheckBox(NkDialogCheckBox* box) override { m_react(box); }

private:
  std::function<void(NkDialogCheckBox*)> m_react;
};

/// Does something at each click on the box that it is on.
class BoxReaction : public NkDialogCheckBoxAuditor {
public:
  explicit BoxReaction(std::function<void(NkDialogCheckBox*)> react) : m_react(std::move(react)) {}
  void dialogCheckBox(NkDialogCheckBox* box) override { m_react(box); }

private:
  std::function<void(NkDialogCheckBox*)> m_react;
};

/// Auditors for one kind of component, which count their calls.
class PushButtonCounter : public NkDialogPushButtonAuditor {
public:
  void dialogPushButton(NkDialogPushButton*) override { ++calls; }
  int calls = 0;
};
class CheckBoxCounter : public NkDialogCheckBoxAuditor {
public:
  void dialogCheckBox(NkDialogCheckBox*) override { ++calls; }
  int calls = 0;
};
class ChoiceCounter : public NkDialogChoiceAuditor {
public:
  void dialogChoice(NkDialogChoice*) override { ++calls; }
  int calls = 0;
};
class EditTextCounter : public NkDialogEditTextAuditor {
public:
  void dialogEditText(NkDialogEditText*) override { ++calls; }
  int calls = 0;
};
class IntegerSliderCounter : public NkDialogIntegerSliderAuditor {
public:
  void dialogIntegerSlider(NkDialogIntegerSlider*) override { ++calls; }
  int calls = 0;
};
class RealSliderCounter : public NkDialogRealSliderAuditor {
public:
  void dialogRealSlider(NkDialogRealSlider*) override { ++calls; }
  int calls = 0;
};
class MenuCheckBoxCounter : public NkMenuCheckBoxAuditor {
public:
  void menuCheckBox(NkMenuCheckBox*) override { ++calls; }
  int calls = 0;
};
class FileSelectionCounter : public NkMenuFileSelectionAuditor {
public:
  void menuFileSelection(NkMenuFileSelection*) override { ++calls; }
  int calls = 0;
};
class MenuPushButtonCounter : public NkMenuPushButtonAuditor {
public:
  void menuPushButton(NkMenuPushButton*) override { ++calls; }
  int calls = 0;
};
class MenuRadioButtonsCounter : public NkMenuRadioButtonsAuditor {
public:
  void menuRadioButtons(NkMenuRadioButtons*) override { ++calls; }
  int calls = 0;
};
class PageCounter : public NkTabDialogAuditor {
public:
  void tabDialog(NkTabDialog*) override { ++calls; }
  int calls = 0;
};

} // namespace

class Auditors : public FormsTest {
protected:
  ~Auditors() override { NkPreferences::removeValue("DEBUG_PANELIX_AUDITORS"); }

  static void wantReports() { NkPreferences::setString("DEBUG_PANELIX_AUDITORS", "0"); }

  /// The user clicks on the check box of that `auditorID`.
  template <class Container>
  static void click(const Ref<Container>& container, const char* id) {
    static_cast<NkDialogCheckBox*>(container->searchForAuditorId(id))->applyDlgCptAuditor();
  }

  static void build3D(NkDialogGroup& group) {
    NbVec2i32 size(0, 0);
    NbVec2i32 corner(0, 0);
    group.buildWidget(nullptr, size, corner, 0);
  }

  Calls calls;
  Recorder recorder{calls};
};

// Types

namespace {

struct TypeRow {
  const char* name;
  NkType (*type)();
};

constexpr TypeRow kTypes[] = {
    {"Auditor", &NkAuditor::getClassTypeId},
    {"NkDialogAuditor", &NkDialogAuditor::getClassTypeId},
    {"NkDialogPushButtonAuditor", &NkDialogPushButtonAuditor::getClassTypeId},
    {"NkDialogCheckBoxAuditor", &NkDialogCheckBoxAuditor::getClassTypeId},
    {"NkDialogChoiceAuditor", &NkDialogChoiceAuditor::getClassTypeId},
    {"NkDialogEditTextAuditor", &NkDialogEditTextAuditor::getClassTypeId},
    {"NkDialogIntegerSliderAuditor", &NkDialogIntegerSliderAuditor::getClassTypeId},
    {"NkDialogRealSliderAuditor", &NkDialogRealSliderAuditor::getClassTypeId},
    {"NkMenuCheckBoxAuditor", &NkMenuCheckBoxAuditor::getClassTypeId},
    {"NkMenuFileSelectionAuditor", &NkMenuFileSelectionAuditor::getClassTypeId},
    {"NkMenuPushButtonAuditor", &NkMenuPushButtonAuditor::getClassTypeId},
    {"NkMenuRadioButtonsAuditor", &NkMenuRadioButtonsAuditor::getClassTypeId},
};

template <class... Classes>
constexpr bool kCopyable = ((std::is_copy_constructible_v<Classes> && std::is_copy_assignable_v<Classes>)&&...);
static_assert(kCopyable<Reaction, BoxReaction, PageCounter, NkDialogGroupAuditor, NkTopLevelAuditor>);
static_assert(!std::is_default_constructible_v<NkAuditor> && !std::is_default_constructible_v<NkDialogAuditor>);
static_assert(std::is_default_constructible_v<PageCounter> && std::is_abstract_v<NkTabDialogAuditor>);

} // namespace

TEST_F(Auditors, HaveTypesInTheOrderOfTheirRegistration) {
  std::vector<NkType> registered;
  NkType::getAllDerivedFrom(NkAuditor::getClassTypeId(), registered);
  ASSERT_EQ(registered.size(), std::size(kTypes));
  for (std::size_t i = 0; i < std::size(kTypes); ++i) {
    const NkType type = kTypes[i].type();
    EXPECT_EQ(type, registered[i]);
    EXPECT_STREQ(type.getName().getString(), kTypes[i].name);
    EXPECT_EQ(type.getParent(), i == 0 ? NkType::badType() : NkAuditor::getClassTypeId());
    EXPECT_FALSE(type.canCreateInstance());
    EXPECT_EQ(type.getMethodIndex(), 0);
  }
}

TEST_F(Auditors, OfTabDialogsHaveNoRegisteredType) {
  EXPECT_TRUE(NkTabDialogAuditor::getClassTypeId().isBad());
  EXPECT_TRUE(NkType::fromName("NkTabDialogAuditor").isBad());
  const PageCounter counter;
  EXPECT_TRUE(counter.getTypeId().isBad());
}

TEST_F(Auditors, OfTabDialogsCanBeRegisteredByTheApplication) {
  NkTabDialogAuditor::initClass();
  EXPECT_STREQ(NkTabDialogAuditor::getClassTypeId().getName().getString(), "NkTabDialogAuditor");
  EXPECT_EQ(NkTabDialogAuditor::getClassTypeId().getParent(), NkAuditor::getClassTypeId());
  NkTabDialogAuditor::exitClass();
  EXPECT_TRUE(NkTabDialogAuditor::getClassTypeId().isBad());
}

TEST_F(Auditors, OfLastResortAreDialogAuditors) {
  const NkDialogGroupAuditor ofGroup;
  const NkTopLevelAuditor ofDialog;
  EXPECT_EQ(ofGroup.getTypeId(), NkDialogAuditor::getClassTypeId());
  EXPECT_EQ(ofDialog.getTypeId(), NkDialogAuditor::getClassTypeId());
}

TEST_F(Auditors, KnowTheirTypes) {
  EXPECT_EQ(recorder.getTypeId(), NkDialogAuditor::getClassTypeId());
  EXPECT_TRUE(recorder.isOfType(NkAuditor::getClassTypeId()));
  EXPECT_EQ(CheckBoxCounter().getTypeId(), NkDialogCheckBoxAuditor::getClassTypeId());
  EXPECT_FALSE(CheckBoxCounter().isOfType(NkDialogAuditor::getClassTypeId()));
}

TEST(AuditorTypes, GoWithTheLibrary) {
  for (int round = 0; round < 2; ++round) {
    NkPanelix::init();
    NkPanelix::init();
    NkPanelix::finish();
    for (const TypeRow& row : kTypes) EXPECT_FALSE(row.type().isBad()) << row.name;
    NkPanelix::finish();
    for (const TypeRow& row : kTypes) EXPECT_TRUE(row.type().isBad()) << row.name;
  }
}

// The auditors of one component

namespace {

template <class Node, class Counter>
void expectTold() {
  const Ref<Node> node(new Node);
  Counter first;
  Counter second;
  node->removeAuditor(&first);
  node->applyDlgCptAuditor();
  node->addAuditor(&first);
  node->addAuditor(&second);
  node->addAuditor(&first);
  node->applyDlgCptAuditor();
  EXPECT_EQ(first.calls, 1);
  EXPECT_EQ(second.calls, 1);
  node->removeAuditor(&first);
  node->removeAuditor(&first);
  node->applyDlgCptAuditor();
  EXPECT_EQ(first.calls, 1);
  EXPECT_EQ(second.calls, 2);
}

} // namespace

TEST_F(Auditors, OfEachKindHearTheirComponent) {
  expectTold<NkDialogPushButton, PushButtonCounter>();
  expectTold<NkDialogPushButtonLauncher, PushButtonCounter>();
  expectTold<NkDialogCheckBox, CheckBoxCounter>();
  expectTold<NkDialogCheckBoxLauncher, CheckBoxCounter>();
  expectTold<NkDialogComboBox, ChoiceCounter>();
  expectTold<NkDialogRadioButtons, ChoiceCounter>();
  expectTold<NkDialogEditText, EditTextCounter>();
  expectTold<NkDialogIntegerSlider, IntegerSliderCounter>();
  expectTold<NkDialogRealSlider, RealSliderCounter>();
  expectTold<NkMenuCheckBox, MenuCheckBoxCounter>();
  expectTold<NkMenuCheckBoxLauncher, MenuCheckBoxCounter>();
  expectTold<NkMenuFileSelection, FileSelectionCounter>();
  expectTold<NkMenuPushButton, MenuPushButtonCounter>();
  expectTold<NkMenuPushButtonLauncher, MenuPushButtonCounter>();
  expectTold<NkMenuRadioButtons, MenuRadioButtonsCounter>();
  expectTold<NkTabDialog, PageCounter>();
}

TEST_F(Auditors, RunInTheOrderOfAdditionAndStopTheWayUp) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  auto* box = static_cast<NkDialogCheckBox*>(row->getChild(0));
  BoxReaction first([&](NkDialogCheckBox*) { calls.push_back("first"); });
  BoxReaction second([&](NkDialogCheckBox*) { calls.push_back("second"); });
  row->addAuditor(&recorder);
  box->addAuditor(&second);
  box->addAuditor(&first);
  box->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"second", "first"}));
  box->removeAuditor(&first);
  box->removeAuditor(&second);
  box->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"second", "first", "dialogCheckBox:box"}));
}

// Containers

namespace {

/// What the containers' auditors hear from a source of each class; empty for nothing.
const std::map<std::string, std::string> kDialogOperations{
    {"NkDialogPushButton", "dialogPushButton"},     {"NkDialogPushButtonLauncher", "dialogPushButton"},
    {"NkDialogCheckBox", "dialogCheckBox"},         {"NkDialogCheckBoxLauncher", "dialogCheckBox"},
    {"NkDialogComboBox", "dialogComboBox"},         {"NkDialogEditText", "dialogEditText"},
    {"NkDialogRadioButtons", "dialogRadioButtons"}, {"NkDialogIntegerSlider", "dialogIntegerSlider"},
    {"NkDialogRealSlider", "dialogRealSlider"},
};
const std::map<std::string, std::string> kMenuOperations{
    {"NkMenuCheckBox", "menuCheckBox"},         {"NkMenuCheckBoxLauncher", "menuCheckBox"},
    {"NkMenuRadioButtons", "menuRadioButtons"}, {"NkMenuFileSelection", "menuFileSelection"},
    {"NkMenuPushButton", "menuPushButton"},     {"NkMenuPushButtonLauncher", "menuPushButton"},
};

Calls expectedCalls(const std::string& className, bool ofDialog, bool ofMenu) {
  Calls expected;
  for (const auto* operations : {ofDialog ? &kDialogOperations : nullptr, ofMenu ? &kMenuOperations : nullptr}) {
    if (operations && operations->contains(className)) expected.push_back(operations->at(className) + ":source");
  }
  return expected;
}

/// Lets a source of each class reach the container's auditors.
template <class Container>
void expectKinds(bool ofDialog, bool ofMenu) {
  Calls calls;
  Recorder recorder(calls);
  const Ref<Container> container(new Container);
  container->addAuditor(&recorder);
  int sources = 0;
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    if (!row.type().canCreateInstance()) continue;
    const Ref<NkPanelix> source(static_cast<NkPanelix*>(row.type().createInstance()));
    source->auditorID = "source";
    calls.clear();
    container->applyAuditor(source.get());
    EXPECT_EQ(calls, expectedCalls(row.className, ofDialog, ofMenu)) << row.className;
    ++sources;
  }
  EXPECT_GE(sources, 30);
  calls.clear();
  container->applyAuditor(nullptr);
  EXPECT_EQ(calls, Calls{});
}

} // namespace

TEST_F(Auditors, OfAGroupHearComponents) { expectKinds<NkRowDialog>(true, false); }

TEST_F(Auditors, OfATopLevelDialogHearComponentsAndEntriesOfMenus) { expectKinds<NkTopLevelDialog>(true, true); }

TEST_F(Auditors, OfAMenuBarHearEntriesOfMenus) { expectKinds<NkMenuBar>(false, true); }

TEST_F(Auditors, OfAPopupHearEntriesOfMenus) { expectKinds<NkMenuPopup>(false, true); }

TEST_F(Auditors, OfAnyOtherNodeAreNone) {
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    if (!row.type().canCreateInstance()) continue;
    const Ref<NkPanelix> container(static_cast<NkPanelix*>(row.type().createInstance()));
    const Ref<NkDialogCheckBox> source(new NkDialogCheckBox);
    // Without a parent, auditors and a wish for reports nothing happens anywhere.
    container->applyAuditor(source.get());
  }
}

TEST_F(Auditors, NearestToTheSourceAloneHear) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog {"
                                                "  RowDialog { auditorID \"row\""
                                                "    ColumnDialog { DialogCheckBox { auditorID \"box\" } } } }");
  Recorder ofRow(calls, "row ");
  Recorder second(calls, "second ");
  dialog->addAuditor(&recorder);
  click(dialog, "box");
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));

  calls.clear();
  auto* row = static_cast<NkRowDialog*>(dialog->searchForAuditorId("row"));
  row->addAuditor(&ofRow);
  row->addAuditor(&second);
  row->addAuditor(&ofRow);
  click(dialog, "box");
  EXPECT_EQ(calls, (Calls{"row dialogCheckBox:box", "second dialogCheckBox:box"}));

  calls.clear();
  row->removeAuditor(&ofRow);
  row->removeAuditor(&second);
  click(dialog, "box");
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
}

TEST_F(Auditors, HearALeafEightLevelsDown) {
  std::string text = "DialogCheckBox { auditorID \"leaf\" }";
  for (int i = 0; i < 7; ++i) text = std::string(i % 2 ? "RowDialog" : "ColumnDialog") + " { " + text + " }";
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { " + text + " }");
  dialog->addAuditor(&recorder);
  click(dialog, "leaf");
  dialog->applyAuditors();
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:leaf", "dialogCheckBox:leaf"}));
}

TEST_F(Auditors, HearEntriesOfNestedMenus) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { MenuBar { MenuPopup { MenuPopup {"
                                                "  MenuFileSelection { auditorID \"file\" }"
                                                "  MenuPushButton { auditorID \"button\" } } } } }");
  dialog->addAuditor(&recorder);
  static_cast<NkMenuFileSelection*>(dialog->searchForAuditorId("file"))->applyDlgCptAuditor();
  static_cast<NkMenuPushButton*>(dialog->searchForAuditorId("button"))->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"menuFileSelection:file", "menuPushButton:button"}));

  calls.clear();
  Recorder ofBar(calls, "bar ");
  static_cast<NkMenuBar*>(dialog->getChild(0))->addAuditor(&ofBar);
  static_cast<NkMenuFileSelection*>(dialog->searchForAuditorId("file"))->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"bar menuFileSelection:file"}));

  calls.clear();
  Recorder ofPopup(calls, "popup ");
  static_cast<NkMenuBar*>(dialog->getChild(0))->getChild(0)->addAuditor(&ofPopup);
  static_cast<NkMenuFileSelection*>(dialog->searchForAuditorId("file"))->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"popup menuFileSelection:file"}));
}

TEST_F(Auditors, OfMenusWithoutADialogHearNothingFurtherUp) {
  const auto bar = readOne<NkMenuBar>("MenuBar { MenuPopup { MenuCheckBox { auditorID \"box\" } } }");
  wantReports();
  static_cast<NkMenuCheckBox*>(bar->searchForAuditorId("box"))->applyDlgCptAuditor();
}

TEST_F(Auditors, OfAGroupWithoutAParentComeWithIts3DForm) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } DialogCheckBox { } }");
  wantReports();
  click(row, "box");
  row->applyAuditors();
  build3D(*row);
  allowMessages("NkDialogAuditor::dialogCheckBox");
  click(row, "box");
  EXPECT_EQ(postedMessages().size(), 1U);
  row->applyAuditors();
  EXPECT_EQ(postedMessages().size(), 3U);
}

TEST_F(Auditors, OfAGroupBuiltWithinAParentAreNone) {
  auto row = readOne<NkRowDialog>("RowDialog { ColumnDialog { DialogCheckBox { auditorID \"box\" } } }");
  const Ref<NkColumnDialog> column(static_cast<NkColumnDialog*>(row->getChild(0)));
  wantReports();
  build3D(*column);
  click(column, "box");
  row = {};
  ASSERT_EQ(column->getParent(), nullptr);
  click(column, "box");
}

// A tab dialog's list holds auditors of pages, and, by way of its base, auditors of what is on the pages.

TEST_F(Auditors, OfPagesLeaveTheComponentsOnThePagesToTheParent) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { TabDialog { auditorID \"tabs\""
                                                "  RowDialog { DialogCheckBox { auditorID \"box\" } } } }");
  auto* tabs = static_cast<NkTabDialog*>(dialog->searchForAuditorId("tabs"));
  PageCounter pages;
  tabs->addAuditor(&pages);
  dialog->addAuditor(&recorder);
  click(dialog, "box");
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
  EXPECT_EQ(pages.calls, 0);
  tabs->applyDlgCptAuditor();
  EXPECT_EQ(pages.calls, 1);
  EXPECT_EQ(calls.size(), 1U);

  calls.clear();
  Recorder ofTabs(calls, "tabs ");
  static_cast<NkDialogGroup*>(tabs)->addAuditor(&ofTabs);
  click(dialog, "box");
  tabs->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"tabs dialogCheckBox:box"}));
  EXPECT_EQ(pages.calls, 2);
}

TEST_F(Auditors, OfATabDialogsParentDontHearOfPages) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { TabDialog { auditorID \"tabs\" } }");
  dialog->addAuditor(&recorder);
  wantReports();
  static_cast<NkTabDialog*>(dialog->searchForAuditorId("tabs"))->applyDlgCptAuditor();
  EXPECT_EQ(calls, Calls{});
  dialog->removeAuditor(&recorder);
  static_cast<NkTabDialog*>(dialog->searchForAuditorId("tabs"))->applyDlgCptAuditor();
}

// The present state of everything

namespace {

constexpr const char* kWholeDialog = "TopLevelDialog {"
                                     "  MenuBar { MenuPopup {"
                                     "    MenuCheckBox { auditorID \"menu\" }"
                                     "    MenuPushButtonLauncher { TopLevelDialog { DialogCheckBox { } } } } }"
                                     "  DialogCheckBox { auditorID \"1\" }"
                                     "  RowDialog {"
                                     "    DialogComboBox { auditorID \"2\" }"
                                     "    DialogCheckBoxLauncher { auditorID \"launcher\""
                                     "      TopLevelDialog { auditorID \"inner\" DialogEditText { auditorID \"3\" } } }"
                                     "    TabDialog { ColumnDialog { DialogRealSlider { auditorID \"4\" } } }"
                                     "    DialogLabel { auditorID \"label\" } }"
                                     "  DialogPushButtonLauncher {"
                                     "    TopLevelDialog { DialogIntegerSlider { auditorID \"5\" } } }"
                                     "  DialogRadioButtons { auditorID \"6\" }"
                                     "  DialogPushButton { auditorID \"7\" } }";

const Calls kWholeState{"dialogCheckBox:1",      "dialogComboBox:2",     "dialogEditText:3",  "dialogRealSlider:4",
                        "dialogIntegerSlider:5", "dialogRadioButtons:6", "dialogPushButton:7"};

} // namespace

TEST_F(Auditors, HearTheStateOfAllComponentsButNotOfMenus) {
  const auto dialog = readOne<NkTopLevelDialog>(kWholeDialog);
  dialog->addAuditor(&recorder);
  dialog->applyAuditors();
  // A launcher's dialogs are top-level dialogs and go no further up; the launchers themselves have no value to tell.
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:1", "dialogComboBox:2", "dialogRealSlider:4", "dialogRadioButtons:6",
                          "dialogPushButton:7"}));

  calls.clear();
  const auto withListeners = readOne<NkTopLevelDialog>(kWholeDialog);
  withListeners->addAuditor(&recorder);
  for (const char* id : {"3", "5"})
    static_cast<NkTopLevelDialog*>(withListeners->searchForAuditorId(id)->getParent())->addAuditor(&recorder);
  withListeners->applyAuditors();
  EXPECT_EQ(calls, kWholeState);
}

TEST_F(Auditors, OfComponentsDontHearTheStateThatAContainerTells) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  CheckBoxCounter counter;
  static_cast<NkDialogCheckBox*>(row->getChild(0))->addAuditor(&counter);
  row->addAuditor(&recorder);
  row->applyAuditors();
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
  EXPECT_EQ(counter.calls, 0);
}

TEST_F(Auditors, HearTheStateFromTheNearestContainer) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog {"
                                                "  RowDialog { DialogCheckBox { auditorID \"a\" } }"
                                                "  DialogCheckBox { auditorID \"b\" } }");
  Recorder ofRow(calls, "row ");
  dialog->addAuditor(&recorder);
  static_cast<NkRowDialog*>(dialog->getChild(0))->addAuditor(&ofRow);
  dialog->applyAuditors();
  EXPECT_EQ(calls, (Calls{"row dialogCheckBox:a", "dialogCheckBox:b"}));
}

TEST_F(Auditors, HearTheStateOfAGroupOrALauncherAlone) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"a\" }"
                                        "  ColumnDialog { DialogEditText { auditorID \"b\" } } }");
  row->addAuditor(&recorder);
  row->applyAuditors();
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:a", "dialogEditText:b"}));

  const auto expectOfLauncher = [&](auto launcher) {
    calls.clear();
    for (int i = 0; i < 2; ++i) launcher->getChild(i)->addAuditor(&recorder);
    launcher->applyAuditors();
    EXPECT_EQ(calls, (Calls{"dialogCheckBox:a", "dialogEditText:b"}));
  };
  const std::string dialogs = "{ TopLevelDialog { DialogCheckBox { auditorID \"a\" } }"
                              "  TopLevelDialog { DialogEditText { auditorID \"b\" } } }";
  expectOfLauncher(readOne<NkDialogCheckBoxLauncher>("DialogCheckBoxLauncher " + dialogs));
  expectOfLauncher(readOne<NkDialogPushButtonLauncher>("DialogPushButtonLauncher " + dialogs));
}

// Search

TEST_F(Auditors, AreFoundComponentsForByIdentifier) {
  const auto dialog = readOne<NkTopLevelDialog>(kWholeDialog);
  for (const char* id : {"menu", "1", "2", "launcher", "inner", "3", "4", "label", "5", "6", "7"}) {
    NkPanelix* found = dialog->searchForAuditorId(id);
    ASSERT_TRUE(found) << id;
    EXPECT_EQ(found->auditorID.getValue(), id);
  }
  EXPECT_EQ(dialog->searchForAuditorId("8"), nullptr);
  dialog->auditorID = "dialog";
  EXPECT_EQ(dialog->searchForAuditorId("dialog"), nullptr) << "looks below the dialog alone";
  EXPECT_EQ(dialog->searchForAuditorId(""), dialog->getChild(0)) << "who has no identifier has the empty one";
}

TEST_F(Auditors, AreFoundTheFirstOfTwoComponentsFor) {
  const auto row =
      readOne<NkRowDialog>("RowDialog {"
                           "  ColumnDialog { auditorID \"outer\" DialogLabel { auditorID \"x\" label \"1\" } }"
                           "  DialogLabel { auditorID \"x\" label \"2\" }"
                           "  ColumnDialog { auditorID \"y\" DialogLabel { auditorID \"y\" } } }");
  EXPECT_EQ(row->searchForAuditorId("x")->label.getValue(), "1");
  EXPECT_EQ(row->searchForAuditorId("y"), row->getChild(2)) << "a container comes ahead of its children";
}

TEST_F(Auditors, AreFoundEntriesOfMenusAndTheirDialogsFor) {
  const auto bar = readOne<NkMenuBar>("MenuBar { MenuPopup { auditorID \"a\" MenuSeparator { auditorID \"b\" }"
                                      "  MenuPopup { auditorID \"c\" MenuPushButton { auditorID \"d\" } }"
                                      "  MenuCheckBoxLauncher { auditorID \"e\" TopLevelDialog { auditorID \"f\""
                                      "    DialogLabel { auditorID \"g\" } } }"
                                      "  MenuPushButtonLauncher { auditorID \"h\" TopLevelDialog { auditorID \"i\""
                                      "    RowDialog { DialogLabel { auditorID \"j\" } } } } } }");
  for (const char* id : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"})
    ASSERT_TRUE(bar->searchForAuditorId(id)) << id;
  EXPECT_EQ(bar->searchForAuditorId("k"), nullptr);
  NkMenuPopup* popup = bar->getChild(0);
  EXPECT_EQ(popup->searchForAuditorId("a"), nullptr);
  EXPECT_EQ(popup->searchForAuditorId("j"), bar->searchForAuditorId("j"));
  EXPECT_EQ(static_cast<NkMenuCheckBoxLauncher*>(popup->getChild(2))->searchForAuditorId("g"),
            bar->searchForAuditorId("g"));
  EXPECT_EQ(static_cast<NkMenuPushButtonLauncher*>(popup->getChild(3))->searchForAuditorId("g"), nullptr);
}

TEST_F(Auditors, AreFoundComponentsOfALaunchersDialogsFor) {
  const auto expectSearch = [](const auto& launcher) {
    NkTopLevelDialog* first = launcher->getChild(0);
    EXPECT_EQ(launcher->searchForAuditorId("inner"), first);
    EXPECT_EQ(launcher->searchForAuditorId("x"), first->getChild(0));
    EXPECT_EQ(launcher->searchForAuditorId("y"), launcher->getChild(1)->getChild(0));
    EXPECT_EQ(launcher->searchForAuditorId("none"), nullptr);
    EXPECT_EQ(launcher->searchForAuditorId("own"), nullptr) << "looks below the launcher alone";
  };
  const std::string body = "{ auditorID \"own\" TopLevelDialog { auditorID \"inner\" DialogLabel { auditorID \"x\" } }"
                           "  TopLevelDialog { auditorID \"x\" DialogLabel { auditorID \"y\" } } }";
  expectSearch(readOne<NkDialogCheckBoxLauncher>("DialogCheckBoxLauncher " + body));
  expectSearch(readOne<NkDialogPushButtonLauncher>("DialogPushButtonLauncher " + body));
}

// What an auditor may do

TEST_F(Auditors, MayTakeThemselvesOff) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  Reaction once([&](NkDialogCheckBox*) {
    calls.push_back("once");
    row->removeAuditor(&once);
  });
  row->addAuditor(&once);
  row->addAuditor(&recorder);
  click(row, "box");
  click(row, "box");
  EXPECT_EQ(calls, (Calls{"once", "dialogCheckBox:box", "dialogCheckBox:box"}));
}

TEST_F(Auditors, MayTakeOthersOffAndDeleteThem) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  auto second = std::make_unique<Recorder>(calls, "second ");
  Reaction first([&](NkDialogCheckBox*) {
    row->removeAuditor(second.get());
    second.reset();
  });
  row->addAuditor(&first);
  row->addAuditor(second.get());
  row->addAuditor(&recorder);
  click(row, "box");
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
}

TEST_F(Auditors, MayDeleteThemselves) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  std::unique_ptr<NkDialogAuditor> once;
  once = std::make_unique<Reaction>([&](NkDialogCheckBox*) {
    // The function goes with the auditor.
    NkRowDialog* const kept = row.get();
    std::unique_ptr<NkDialogAuditor>& owner = once;
    kept->removeAuditor(owner.get());
    owner.reset();
  });
  row->addAuditor(once.get());
  row->addAuditor(&recorder);
  click(row, "box");
  EXPECT_FALSE(once);
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
}

TEST_F(Auditors, MayAddOthersForTheNextAction) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  Reaction first([&](NkDialogCheckBox*) { row->addAuditor(&recorder); });
  row->addAuditor(&first);
  click(row, "box");
  EXPECT_EQ(calls, Calls{});
  click(row, "box");
  EXPECT_EQ(calls, (Calls{"dialogCheckBox:box"}));
}

TEST_F(Auditors, MayTakeTheSourceAway) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"box\" } }");
  auto* box = static_cast<NkDialogCheckBox*>(row->getChild(0));
  BoxReaction first([&](NkDialogCheckBox*) { row->removeAllChildren(); });
  BoxReaction second([&](NkDialogCheckBox* source) { calls.push_back(source->auditorID.getValue().toUtf8()); });
  box->addAuditor(&first);
  box->addAuditor(&second);
  box->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{"box"}));
  EXPECT_EQ(row->getNumChildren(), 0);
}

TEST_F(Auditors, MayEndTheDialog) {
  for (const char* way : {"action", "state"}) {
    calls.clear();
    auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { RowDialog {"
                                            "  DialogCheckBox { auditorID \"a\" }"
                                            "  DialogCheckBox { auditorID \"b\" } } }");
    NkTopLevelDialog* const raw = dialog.get();
    Reaction first([&](NkDialogCheckBox*) { dialog = {}; });
    raw->addAuditor(&first);
    raw->addAuditor(&recorder);
    if (std::string(way) == "action")
      static_cast<NkDialogCheckBox*>(raw->searchForAuditorId("a"))->applyDlgCptAuditor();
    else
      raw->applyAuditors();
    EXPECT_FALSE(dialog);
    EXPECT_EQ(calls.at(0), "dialogCheckBox:a");
  }
}

TEST_F(Auditors, MayChangeTheChildrenWhileTheyHearTheState) {
  const auto row = readOne<NkRowDialog>("RowDialog { DialogCheckBox { auditorID \"a\" }"
                                        "  DialogCheckBox { auditorID \"b\" } DialogCheckBox { auditorID \"c\" }"
                                        "  DialogCheckBox { auditorID \"d\" } }");
  Reaction first([&](NkDialogCheckBox* box) {
    calls.push_back(box->auditorID.getValue().toUtf8());
    if (calls.size() > 1) return;
    row->removeChild(2);
    row->removeChild(0);
    row->insertChild(new NkDialogCheckBox, 0);
    row->addChild(new NkDialogCheckBox);
  });
  row->addAuditor(&first);
  row->applyAuditors();
  EXPECT_EQ(calls, (Calls{"a", "b", "d"}));
}

TEST_F(Auditors, LeaveANodeThatNobodyHoldsAlone) {
  // Made by hand and not yet given to anybody: a call must not end its life.
  auto* box = new NkDialogCheckBox;
  CheckBoxCounter counter;
  box->addAuditor(&counter);
  box->applyDlgCptAuditor();
  EXPECT_EQ(box->getRefCount(), 0);
  EXPECT_EQ(counter.calls, 1);
  auto* row = new NkRowDialog;
  row->addChild(box);
  row->addAuditor(&recorder);
  row->applyAuditors();
  EXPECT_EQ(row->getRefCount(), 0);
  const Ref<NkRowDialog> held(row);
  EXPECT_EQ(calls.size(), 1U);
}

// Reports

TEST_F(Auditors, OfADialogReportNothingUnasked) {
  const auto dialog = readOne<NkTopLevelDialog>(kWholeDialog);
  dialog->applyAuditors();
}

TEST_F(Auditors, OfADialogReportOnceTheSettingExists) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { DialogPushButton { auditorID \"b\" label \"l\""
                                                "  buttonLabel \"OK\" } }");
  auto* button = static_cast<NkDialogPushButton*>(dialog->searchForAuditorId("b"));
  for (const char* value : {"0", "1", "no", ""}) {
    NkPreferences::setString("DEBUG_PANELIX_AUDITORS", value);
    expectMessage("NkDialogAuditor::dialogPushButton(): WARNING ! The DialogAuditor does not define the "
                  "NkDialogPushButton component :\n\t\t -> label \"l\"\n\t\t -> buttonLabel \"OK\"");
    button->applyDlgCptAuditor();
  }
  NkPreferences::removeValue("DEBUG_PANELIX_AUDITORS");
  button->applyDlgCptAuditor();
}

namespace {

struct ReportRow {
  const char* text;      ///< Of a component.
  const char* operation; ///< That reports it.
  const char* report;    ///< Behind the beginning.
};

constexpr ReportRow kReports[] = {
    {"DialogPushButton { label \"l\" buttonLabel \"b\" }", "dialogPushButton",
     "NkDialogPushButton component :\n\t\t -> label \"l\"\n\t\t -> buttonLabel \"b\""},
    {"DialogCheckBox { label \"l\" onString \"yes\" offString \"no\" }", "dialogCheckBox",
     "NkDialogCheckBox component :\n\t\t -> label \"l\"\n\t\t -> onString \"yes\"\n\t\t -> offString \"no\""},
    {"DialogCheckBox { }", "dialogCheckBox",
     "NkDialogCheckBox component :\n\t\t -> label \"\"\n\t\t -> onString \"\"\n\t\t -> offString \"\""},
    {"DialogComboBox { label \"l\" items [\"one\", \"two\"] selectedItem 1 }", "dialogComboBox",
     "NkDialogComboBox component :\n\t\t -> label \"l\"\n\t\t -> selectedItem 1 : two"},
    {"DialogComboBox { label \"l\" items [\"one\", \"two\"] selectedItem 2 }", "dialogComboBox",
     "NkDialogComboBox component :\n\t\t -> label \"l\"\n\t\t -> selectedItem 2 : "},
    {"DialogComboBox { label \"l\" items [\"one\", \"two\"] selectedItem -2147483648 }", "dialogComboBox",
     "NkDialogComboBox component :\n\t\t -> label \"l\"\n\t\t -> selectedItem -2147483648 : "},
    {"DialogComboBox { label \"l\" items [] selectedItem 0 }", "dialogComboBox",
     "NkDialogComboBox component :\n\t\t -> label \"l\"\n\t\t -> selectedItem 0 : "},
    {"DialogEditText { label \"l\" editText \"some text\" }", "dialogEditText",
     "NkDialogEditText component :\n\t\t -> label \"l\"\n\t\t -> editText \"some text\""},
    {"DialogIntegerSlider { label \"l\" min -5 max 50 value 42 }", "dialogIntegerSlider",
     "NkDialogIntegerSlider component :\n\t\t -> label \"l\"42"},
    {"DialogIntegerSlider { label \"l\" value -3 }", "dialogIntegerSlider",
     "NkDialogIntegerSlider component :\n\t\t -> label \"l\"-3"},
    {"DialogRadioButtons { label \"l\" items [\"one\", \"two\"] selectedItem 0 }", "dialogRadioButtons",
     "NkDialogRadioButtons component :\n\t\t -> label \"l\"\n\t\t -> selectedItem 0 : one"},
    {"DialogRealSlider { label \"l\" value 0.5 }", "dialogRealSlider",
     "NkDialogRealSlider component :\n\t\t -> label \"l\"\n\t\t -> value \"0.500\""},
    {"DialogRealSlider { label \"l\" value 0.5 format \"about %6.2e m\" }", "dialogRealSlider",
     "NkDialogRealSlider component :\n\t\t -> label \"l\"\n\t\t -> value \"about 5.00e-01 m\""},
    {"DialogRealSlider { label \"l\" value 0.5 format \"%s%n\" }", "dialogRealSlider",
     "NkDialogRealSlider component :\n\t\t -> label \"l\"\n\t\t -> value \"0.500000\""},
    {"MenuPushButton { label \"l\" }", "menuPushButton", "NkMenuPushButton component :\n\t\t -> label \"l\""},
    {"MenuCheckBox { label \"l\" onString \"yes\" }", "menuCheckBox",
     "NkMenuCheckBox component :\n\t\t -> label \"l\"\n\t\t -> onString \"yes\""},
    {"MenuFileSelection { label \"l\" title \"Open\" filename \"a.arb\" }", "menuFileSelection",
     "NkMenuFileSelection component :\n\t\t -> title \"Open\"\n\t\t -> filename \"a.arb\""},
    {"MenuRadioButtons { label \"l\" items [\"one\", \"two\"] selectedItem 1 }", "menuRadioButtons",
     "NkMenuRadioButtons component :\n\t\t -> label \"l\"\n\t\t -> selectedItem 1 : two"},
};

} // namespace

TEST_F(Auditors, ReportEachKindInItsWords) {
  wantReports();
  NkTopLevelAuditor auditor;
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  for (const ReportRow& row : kReports) {
    const auto component = readOne<NkPanelix>(row.text);
    ASSERT_TRUE(component) << row.text;
    const std::string report = std::string("NkDialogAuditor::") + row.operation +
                               "(): WARNING ! The DialogAuditor does not define the " + row.report;
    allowMessages(report);
    dialog->applyAuditor(component.get());
    ASSERT_FALSE(postedMessages().empty()) << row.text;
    EXPECT_EQ(postedMessages().back(), report);
  }
  EXPECT_EQ(postedMessages().size(), std::size(kReports));
  auditor.tabDialog(nullptr);
  EXPECT_EQ(postedMessages().size(), std::size(kReports));
}

TEST_F(Auditors, ReportTextsThatAreNotLatin) {
  wantReports();
  const Ref<NkDialogPushButton> button(new NkDialogPushButton);
  button->label = NbString(L"\u0416 100%s");
  NkTopLevelAuditor auditor;
  expectMessage("label \"\xD0\x96 100%s\"");
  auditor.dialogPushButton(button.get());
}

TEST_F(Auditors, ReportTheOperationsThatTheyDontDefine) {
  class ComboBoxesOnly : public NkDialogAuditor {
  public:
    void dialogComboBox(NkDialogComboBox*) override { ++calls; }
    int calls = 0;
  };
  const auto row = readOne<NkRowDialog>("RowDialog { DialogRadioButtons { } DialogComboBox { } }");
  ComboBoxesOnly auditor;
  row->addAuditor(&auditor);
  row->applyAuditors();
  EXPECT_EQ(auditor.calls, 1);
  wantReports();
  expectMessage("NkDialogAuditor::dialogRadioButtons");
  row->applyAuditors();
  EXPECT_EQ(auditor.calls, 2);
}
