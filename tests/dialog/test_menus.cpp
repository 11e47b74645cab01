#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuCheckBoxAuditor.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuFileSelectionAuditor.h"
#include "Panelix/NkMenuItem.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkMenuPushButtonAuditor.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkMenuRadioButtonsAuditor.h"
#include "Panelix/NkMenuSeparator.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "tests/dialog/ClassTables.h"
#include "tests/dialog/DialogTest.h"

using arbora::Ref;

namespace {

class Menus : public DialogTest {};

/// Checks what a class adds to its parent: its fields, each with its default as scene text, and behind them its parts.
template <class Class, class Parent>
void expectAdded(const std::vector<std::pair<std::string, std::string>>& fields, const std::string& parts) {
  const Ref<Class> node(new Class);
  std::string names;
  for (const auto& [name, value] : fields) {
    names += name + " ";
    const NkField* field = node->getField(NbName(name));
    ASSERT_TRUE(field) << name;
    EXPECT_EQ(field->get(), value.c_str()) << name;
    // The filter is set after the fact, so that files hold it.
    EXPECT_EQ(field->isDefault(), name != "filter") << name;
  }
  const NkNodekitCatalog* catalog = Class::getClassNodekitCatalog();
  const NkNodekitCatalog* inherited = Parent::getClassNodekitCatalog();
  for (int i = inherited->getNumEntries(); i < catalog->getNumEntries(); ++i)
    names += std::string(catalog->getName(i).getString()) + " ";
  EXPECT_EQ(ownFields(node.get(), *Parent::getFieldDataPtr()), names);
  EXPECT_EQ(ownParts(node.get(), inherited), parts);
}

} // namespace

// Data models

TEST_F(Menus, BarAddsItsFrame) {
  expectAdded<NkMenuBar, NkTopComponent>({}, "Separator frameSep < geomSwitch\n"
                                             "Group frame < frameSep +\n");
}

TEST_F(Menus, ItemAddsItsFrameAndLabel) {
  expectAdded<NkMenuItem, NkPanelix>({}, "Separator itemFrameSep < geomSwitch\n"
                                         "Group frame < itemFrameSep +\n"
                                         "Separator labelSep < geomSwitch\n"
                                         "Group labelProp < labelSep +\n");
}

TEST_F(Menus, PopupAddsItsLooks) {
  expectAdded<NkMenuPopup, NkMenuItem>({}, "Separator frameSep < geomSwitch\n"
                                           "Switch frameSwitch < frameSep\n"
                                           "Group released < frameSwitch +\n"
                                           "Group pressed < frameSwitch +\n"
                                           "Group shapeReleased < frameSwitch +\n"
                                           "Group shapePressed < frameSwitch +\n");
}

TEST_F(Menus, PushButtonAddsItsKeyAndLooks) {
  expectAdded<NkMenuPushButton, NkMenuItem>({{"accelerator", "\"\""}}, "Separator btnSep < geomSwitch\n"
                                                                       "Switch btnSwtch < btnSep\n"
                                                                       "Group released < btnSwtch +\n"
                                                                       "Group pressed < btnSwtch +\n");
}

TEST_F(Menus, CheckBoxAddsItsStateAndMarks) {
  expectAdded<NkMenuCheckBox, NkMenuItem>({{"state", "FALSE"}, {"onString", "\"\""}, {"accelerator", "\"\""}},
                                          "Separator chkSep < geomSwitch\n"
                                          "Switch chkSwtch < chkSep\n"
                                          "Group stateOff < chkSwtch +\n"
                                          "Group stateOn < chkSwtch +\n");
}

TEST_F(Menus, RadioButtonsAddTheirEntriesAndMarks) {
  expectAdded<NkMenuRadioButtons, NkMenuItem>({{"items", "\"\""}, {"selectedItem", "0"}, {"accelerators", "\"\""}},
                                              "Separator radioSep < geomSwitch\n"
                                              "Separator itemsSep < radioSep\n"
                                              "Switch itemSwtch < itemsSep\n"
                                              "Group stateOff < itemSwtch +\n"
                                              "Group stateOn < itemSwtch +\n");
}

TEST_F(Menus, FileSelectionAddsItsDialog) {
  expectAdded<NkMenuFileSelection, NkMenuPushButton>({{"title", "\"\""},
                                                      {"filter", "[ \"*.arb\", \"Arbora file\" ]"},
                                                      {"defaultFilter", "0"},
                                                      {"fileDirectory", "\".\""},
                                                      {"filename", "\"\""},
                                                      {"mode", "OPEN"}},
                                                     "");
}

TEST_F(Menus, SeparatorAddsItsFrame) {
  expectAdded<NkMenuSeparator, NkMenuItem>({}, "Separator sepSep < geomSwitch\n"
                                               "Group sepFrame < sepSep +\n");
}

TEST_F(Menus, LaunchersAddNothing) {
  expectAdded<NkMenuPushButtonLauncher, NkMenuPushButton>({}, "");
  expectAdded<NkMenuCheckBoxLauncher, NkMenuCheckBox>({}, "");
}

TEST_F(Menus, ModeHasTwoValues) {
  const auto selection = readOne<NkMenuFileSelection>("MenuFileSelection { mode SAVE }");
  ASSERT_TRUE(selection);
  EXPECT_EQ(selection->mode.getValue(), 2);
  EXPECT_TRUE(selection->mode.set("OPEN"));
  EXPECT_EQ(selection->mode.getValue(), 1);
  const arbora::EnumData* data = selection->getFieldData()->getEnumData("Mode");
  ASSERT_TRUE(data);
  EXPECT_EQ(data->names, (std::vector<NbName>{"OPEN", "SAVE"}));
  EXPECT_EQ(data->values, (std::vector<int>{1, 2}));
}

// Files

namespace {

const char* const kFile = R"(#Arbora V2.1 ascii

MenuBar {
  MenuPopup {
    label "&File"
    MenuFileSelection {
      label "&Open"
      auditorID "open"
      accelerator "Ctrl+O"
      title "Open a log"
      filter [ "*.log", "Log" ]
      defaultFilter 1
      fileDirectory "logs"
      filename "a.log"
      mode SAVE
    }
    MenuSeparator { }
    MenuPopup {
      label "Recent"
      auditorID "recent"
      MenuPushButton {
        label "a.log\tCtrl+1"
        auditorID "a"
      }
    }
  }
  MenuPopup {
    label "View"
    MenuCheckBox {
      label "Grid"
      auditorID "grid"
      state TRUE
      onString "No grid"
      accelerator "Ctrl+G"
    }
    MenuRadioButtons {
      auditorID "units"
      items [ "bar", "kPa" ]
      selectedItem 1
      accelerators [ "Ctrl+1", "Ctrl+2" ]
    }
    MenuPushButtonLauncher {
      auditorID "history"
      TopLevelDialog {
        auditorID "list"
        DialogCheckBox {
          auditorID "all"
        }
      }
    }
    MenuCheckBoxLauncher {
      auditorID "valves"
      TopLevelDialog {
        auditorID "inlet"
      }
      TopLevelDialog {
        auditorID "outlet"
      }
    }
    MenuItem {
      label "Base"
    }
  }
}
)";

/// What stands in a container, as keywords.
template <class Container>
std::vector<std::string> kindsIn(const Container& container) {
  std::vector<std::string> kinds;
  for (int i = 0; i < container.getNumChildren(); ++i)
    kinds.push_back(container.getChild(i)->getTypeId().getName().getString());
  return kinds;
}

} // namespace

TEST_F(Menus, AreReadInTheirOrder) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  EXPECT_EQ(kindsIn(*bar), (std::vector<std::string>{"MenuPopup", "MenuPopup"}));
  EXPECT_EQ(kindsIn(*bar->getChild(0)), (std::vector<std::string>{"MenuFileSelection", "MenuSeparator", "MenuPopup"}));
  EXPECT_EQ(kindsIn(*bar->getChild(1)),
            (std::vector<std::string>{"MenuCheckBox", "MenuRadioButtons", "MenuPushButtonLauncher",
                                      "MenuCheckBoxLauncher", "MenuItem"}));
}

TEST_F(Menus, ChildrenThatAreReadKnowTheirParents) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  NkMenuPopup* file = bar->getChild(0);
  EXPECT_EQ(file->getParent(), bar.get());
  auto* recent = static_cast<NkMenuPopup*>(file->getChild(2));
  EXPECT_EQ(recent->getParent(), file);
  EXPECT_EQ(recent->getChild(0)->getParent(), recent);
  NkPanelix* dialog = bar->searchForAuditorId("list");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->getParent(), bar->getChild(1)->getChild(2));
}

TEST_F(Menus, AreWrittenAsTheyWereRead) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  EXPECT_EQ(writeText(bar.get()), kFile);
  const auto again = readOne<NkMenuBar>(writeBinary(bar.get()));
  ASSERT_TRUE(again);
  EXPECT_EQ(writeText(again.get()), kFile);
}

TEST_F(Menus, UntouchedNodesAreWrittenWithoutFieldsButTheFilter) {
  const Ref<NkMenuPopup> popup(new NkMenuPopup);
  for (NkMenuItem* item : std::initializer_list<NkMenuItem*>{new NkMenuFileSelection, new NkMenuRadioButtons})
    popup->addChild(item);
  EXPECT_EQ(writeText(popup.get()),
            "#Arbora V2.1 ascii\n\nMenuPopup {\n  MenuFileSelection {\n    filter [ \"*.arb\", \"Arbora file\" ]\n  }\n"
            "  MenuRadioButtons { }\n}\n");
}

TEST_F(Menus, RefuseWhatDoesNotBelongThere) {
  const ExpectMessages messages({"MenuPushButton", "DialogCheckBox", "MenuItem"});
  EXPECT_FALSE(read("MenuBar { MenuPushButton { } }"));
  EXPECT_FALSE(read("MenuPopup { DialogCheckBox { } }"));
  EXPECT_FALSE(read("MenuPushButtonLauncher { MenuItem { } }"));
}

// The tree

TEST_F(Menus, EntriesFindTheirBar) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  NkMenuPopup* file = bar->getChild(0);
  EXPECT_EQ(file->getMenuBar(), bar.get());
  EXPECT_EQ(static_cast<NkMenuPopup*>(file->getChild(2))->getChild(0)->getMenuBar(), bar.get());
  EXPECT_FALSE(Ref<NkMenuItem>(new NkMenuItem)->getMenuBar());
  const auto popup = readOne<NkMenuPopup>("MenuPopup { MenuSeparator { } }");
  ASSERT_TRUE(popup);
  EXPECT_FALSE(popup->getChild(0)->getMenuBar());
}

TEST_F(Menus, AreSearchedThroughPopupsAndLaunchers) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  for (const char* id :
       {"open", "recent", "a", "grid", "units", "history", "list", "all", "valves", "inlet", "outlet"}) {
    NkPanelix* found = bar->searchForAuditorId(id);
    ASSERT_TRUE(found) << id;
    EXPECT_EQ(found->auditorID.getValue(), id);
  }
  EXPECT_FALSE(bar->searchForAuditorId("none"));
  EXPECT_FALSE(bar->getChild(0)->searchForAuditorId("grid"));
  EXPECT_TRUE(bar->getChild(1)->searchForAuditorId("outlet"));
}

TEST_F(Menus, FirstOfTwoWithOneNameIsFound) {
  const auto bar = readOne<NkMenuBar>("MenuBar { MenuPopup { MenuPopup { MenuItem { auditorID \"x\" label \"1\" } }"
                                      " MenuItem { auditorID \"x\" label \"2\" } } MenuPopup { auditorID \"x\" } }");
  ASSERT_TRUE(bar);
  NkPanelix* found = bar->searchForAuditorId("x");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->label.getValue(), "1");
}

// Titles

TEST_F(Menus, ItemsTakeTitlesApart) {
  struct Titles : NkMenuItem {
    using NkMenuItem::buildTitleForMotifMenu;
    using NkMenuItem::getAccelerator;
  };
  NbString result("before");
  EXPECT_EQ(Titles::buildTitleForMotifMenu("&Open\tCtrl+O", result), 'O');
  EXPECT_EQ(result, "Open");
  EXPECT_EQ(Titles::getAccelerator("&Open\tCtrl+O"), "Ctrl+O");
  EXPECT_EQ(Titles::buildTitleForMotifMenu("", result), 0);
  EXPECT_EQ(result, "");
}

// Auditors

namespace {

using Calls = std::vector<std::string>;

struct PushButtonAuditor : NkMenuPushButtonAuditor {
  explicit PushButtonAuditor(Calls& all) : calls(all) {}
  void menuPushButton(NkMenuPushButton* button) override {
    calls.push_back(std::string("button ") + button->getTypeId().getName().getString());
  }
  Calls& calls;
};

struct CheckBoxAuditor : NkMenuCheckBoxAuditor {
  explicit CheckBoxAuditor(Calls& all) : calls(all) {}
  void menuCheckBox(NkMenuCheckBox* box) override {
    calls.push_back(std::string("box ") + box->getTypeId().getName().getString());
  }
  Calls& calls;
};

struct RadioButtonsAuditor : NkMenuRadioButtonsAuditor {
  explicit RadioButtonsAuditor(Calls& all) : calls(all) {}
  void menuRadioButtons(NkMenuRadioButtons* buttons) override {
    calls.push_back("radio " + std::to_string(buttons->selectedItem.getValue()));
  }
  Calls& calls;
};

struct FileSelectionAuditor : NkMenuFileSelectionAuditor {
  explicit FileSelectionAuditor(Calls& all) : calls(all) {}
  void menuFileSelection(NkMenuFileSelection* selection) override {
    calls.push_back("file " + selection->filename.getValue().toLatin1());
  }
  Calls& calls;
};

struct MenuAuditor : NkDialogAuditor {
  explicit MenuAuditor(Calls& all, const char* at) : calls(all), place(at) {}
  void menuPushButton(NkMenuPushButton*) override { calls.push_back(place + "button"); }
  void menuCheckBox(NkMenuCheckBox*) override { calls.push_back(place + "box"); }
  void menuRadioButtons(NkMenuRadioButtons*) override { calls.push_back(place + "radio"); }
  void menuFileSelection(NkMenuFileSelection*) override { calls.push_back(place + "file"); }
  Calls& calls;
  std::string place;
};

template <class Node, class Auditor>
void expectCalled(const std::string& call) {
  Calls calls;
  Auditor first(calls);
  Auditor second(calls);
  const Ref<Node> node(new Node);
  node->applyDlgCptAuditor();
  EXPECT_EQ(calls, Calls());
  node->addAuditor(&first);
  node->addAuditor(&second);
  node->addAuditor(&first);
  node->applyDlgCptAuditor();
  EXPECT_EQ(calls, (Calls{call, call}));
  calls.clear();
  node->removeAuditor(&first);
  node->applyDlgCptAuditor();
  EXPECT_EQ(calls, Calls{call});
}

} // namespace

TEST_F(Menus, ActionsReachTheAuditorsOfTheEntry) {
  expectCalled<NkMenuPushButton, PushButtonAuditor>("button MenuPushButton");
  expectCalled<NkMenuPushButtonLauncher, PushButtonAuditor>("button MenuPushButtonLauncher");
  expectCalled<NkMenuCheckBox, CheckBoxAuditor>("box MenuCheckBox");
  expectCalled<NkMenuCheckBoxLauncher, CheckBoxAuditor>("box MenuCheckBoxLauncher");
  expectCalled<NkMenuRadioButtons, RadioButtonsAuditor>("radio 0");
  expectCalled<NkMenuFileSelection, FileSelectionAuditor>("file ");
}

TEST_F(Menus, FileSelectionTellsItsAuditorsAsAPushButtonToo) {
  Calls calls;
  FileSelectionAuditor fileAuditor(calls);
  PushButtonAuditor buttonAuditor(calls);
  const Ref<NkMenuFileSelection> selection(new NkMenuFileSelection);
  selection->filename = "a.arb";
  NkMenuPushButton* button = selection.get();
  selection->addAuditor(&fileAuditor);
  button->addAuditor(&buttonAuditor);
  button->applyDlgCptAuditor();
  selection->validateFilename();
  const Calls once{"file a.arb", "button MenuFileSelection"};
  EXPECT_EQ(calls, (Calls{once[0], once[1], once[0], once[1]}));
}

TEST_F(Menus, ActionsGoUpToTheNearestAuditor) {
  const auto bar = readOne<NkMenuBar>(kFile);
  ASSERT_TRUE(bar);
  Calls calls;
  MenuAuditor ofBar(calls, "bar ");
  MenuAuditor ofFile(calls, "popup ");
  bar->addAuditor(&ofBar);
  bar->getChild(0)->addAuditor(&ofFile);
  const auto actOnAll = [&] {
    calls.clear();
    static_cast<NkMenuFileSelection*>(bar->searchForAuditorId("open"))->validateFilename();
    static_cast<NkMenuPushButton*>(bar->searchForAuditorId("a"))->applyDlgCptAuditor();
    static_cast<NkMenuCheckBox*>(bar->searchForAuditorId("grid"))->applyDlgCptAuditor();
    static_cast<NkMenuRadioButtons*>(bar->searchForAuditorId("units"))->applyDlgCptAuditor();
    static_cast<NkMenuPushButton*>(bar->searchForAuditorId("history"))->applyDlgCptAuditor();
    static_cast<NkMenuCheckBox*>(bar->searchForAuditorId("valves"))->applyDlgCptAuditor();
  };
  actOnAll();
  EXPECT_EQ(calls, (Calls{"popup file", "popup button", "bar box", "bar radio", "bar button", "bar box"}));
  bar->getChild(0)->removeAuditor(&ofFile);
  bar->removeAuditor(&ofFile);
  actOnAll();
  EXPECT_EQ(calls, (Calls{"bar file", "bar button", "bar box", "bar radio", "bar button", "bar box"}));
  bar->removeAuditor(&ofBar);
  actOnAll();
  EXPECT_EQ(calls, Calls());
}

// Skin

TEST_F(Menus, ArrowsOfSubmenusFillTheUnitSquare) {
  const Ref<NkSeparator> skin = read(NkMenuPopup::MenuPopup);
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->getNumChildren(), 4);
  const auto boxOf = [&](const char* name) {
    for (int i = 0; i < skin->getNumChildren(); ++i) {
      if (skin->getChild(i)->getName() != name) continue;
      NkGetBoundingBoxAction measure;
      measure.apply(skin->getChild(i));
      return measure.getBoundingBox();
    }
    return NbBox3f();
  };
  const auto expectBox = [](const NbBox3f& box, const NbVec3f& min, const NbVec3f& max) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_FLOAT_EQ(box.getMin()[i], min[i]);
      EXPECT_FLOAT_EQ(box.getMax()[i], max[i]);
    }
  };
  expectBox(boxOf("MenuPopupReleasedShape"), NbVec3f(-0.5F, -0.5F, 0), NbVec3f(0.5F, 0.5F, 0.2F));
  expectBox(boxOf("MenuPopupPressedShape"), NbVec3f(-0.5F, -0.5F, -0.2F), NbVec3f(0.5F, 0.5F, 0));
}
