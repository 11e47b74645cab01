#include "Panelix/NkPanelix.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "DialogTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "Panelix/Vocabulary.h"

using arbora::Ref;

namespace {

/// The scene library is in use, the toolkit isn't.
using Library = SceneTest;

int numTypes() {
  std::vector<NkType> types;
  NkType::getAllDerivedFrom(NkBase::getClassTypeId(), types);
  return static_cast<int>(types.size());
}

} // namespace

// Start and end

TEST_F(Library, IsInUseUntilAsManyFinishesAsInits) {
  EXPECT_FALSE(NkPanelix::isInitialized());
  NkPanelix::init();
  NkPanelix::init();
  EXPECT_TRUE(NkPanelix::isInitialized());
  NkPanelix::finish();
  EXPECT_TRUE(NkPanelix::isInitialized());
  EXPECT_FALSE(NkType::fromName("DialogCheckBox").isBad());
  NkPanelix::finish();
  EXPECT_FALSE(NkPanelix::isInitialized());
  EXPECT_TRUE(NkType::fromName("DialogCheckBox").isBad());
  EXPECT_TRUE(NkType::fromName("Panelix").isBad());
}

// One call of the scene library's `finish` would already take its classes, which the fixture holds once.
TEST_F(Library, FinishWithoutInitDoesNothing) {
  NkPanelix::finish();
  EXPECT_TRUE(NkDB::isInitialized());
  EXPECT_TRUE(NkNodeKit::isInitialized());
  EXPECT_TRUE(NkInteraction::isInitialized());
  NkPanelix::init();
  NkPanelix::finish();
  NkPanelix::finish();
  EXPECT_TRUE(NkDB::isInitialized());
  EXPECT_TRUE(NkNodeKit::isInitialized());
  EXPECT_TRUE(NkInteraction::isInitialized());
}

TEST_F(Library, EachInitHoldsTheSceneLibrary) {
  NkPanelix::init();
  NkPanelix::init();
  NkInteraction::finish();
  NkNodeKit::finish();
  NkDB::finish();
  NkPanelix::finish();
  EXPECT_TRUE(NkDB::isInitialized());
  EXPECT_TRUE(NkNodeKit::isInitialized());
  EXPECT_TRUE(NkInteraction::isInitialized());
  // For the fixture, which gives up what it no longer holds.
  NkDB::init();
  NkNodeKit::init();
  NkInteraction::init();
  NkPanelix::finish();
}

TEST_F(Library, EachFinishGivesTheSceneLibraryUp) {
  NkPanelix::init();
  NkPanelix::init();
  NkPanelix::finish();
  NkPanelix::finish();
  // What the fixture holds is the last.
  NkInteraction::finish();
  NkNodeKit::finish();
  NkDB::finish();
  EXPECT_FALSE(NkInteraction::isInitialized());
  EXPECT_FALSE(NkNodeKit::isInitialized());
  EXPECT_FALSE(NkDB::isInitialized());
  NkDB::init();
  NkNodeKit::init();
  NkInteraction::init();
}

TEST_F(Library, StartsAfreshAfterTheEnd) {
  const int before = numTypes();
  for (int i = 0; i < 1000; ++i) {
    NkPanelix::init();
    const Ref<NkSeparator> root = read("RowDialog { rowSpacing 3 DialogCheckBox { state TRUE labelAlignment LEFT } }");
    ASSERT_TRUE(root);
    ASSERT_EQ(root->getNumChildren(), 1);
    auto* row = static_cast<NkRowDialog*>(root->getChild(0));
    ASSERT_EQ(row->rowSpacing.getValue(), 3);
    ASSERT_TRUE(static_cast<NkDialogCheckBox*>(row->getChild(0))->state.getValue());
    NkPanelix::finish();
    ASSERT_EQ(numTypes(), before);
  }
}

TEST_F(Library, StartsOnAnyThread) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back([] { NkPanelix::init(); });
  for (std::thread& thread : threads) thread.join();
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(NkPanelix::isInitialized());
    NkPanelix::finish();
  }
  EXPECT_FALSE(NkPanelix::isInitialized());
}

TEST_F(DialogTest, NodesAreMadeOnAnyThread) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int made = 0; made < 100; ++made) {
        const Ref<NkTabDialog> tabs(new NkTabDialog);
        EXPECT_EQ(tabs->getNodekitCatalog()->getPartNumber("frame"), tabs->getNodekitCatalog()->getNumEntries() - 1);
        EXPECT_NE(tabs->getField("selectedPage"), nullptr);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_F(Library, TellsItsName) {
  EXPECT_STREQ(NkPanelix::getProductName(), "Panelix");
  EXPECT_STRNE(NkPanelix::getVersion(), "");
}

// Classes

TEST_F(Library, ClassesRegisterTheirBases) {
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    std::vector<std::string> messages;
    std::vector<const panelix::VocabularyRow*> bases;
    std::string name = row.className;
    for (;;) {
      const auto rows = panelix::vocabulary();
      const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& one) { return one.className == name; });
      if (found == rows.end()) break;
      bases.push_back(&*found);
      name = found->parentName;
      if (name != "NkDragger")
        messages.push_back(std::string(found->className) + "::initClass(): " + found->className +
                           " initialized before parent class " + name + "\n");
    }
    {
      const ExpectMessages expected(messages);
      row.initClass();
    }
    EXPECT_EQ(row.type().getName(), row.keyword);
    for (const panelix::VocabularyRow* base : bases) base->exitClass();
    EXPECT_TRUE(row.type().isBad());
  }
}

TEST_F(Library, ClassesLeaveOnce) {
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    const ExpectMessages expected({std::string(row.className) + "::exitClass(): Unable to remove type (" + row.keyword +
                                   ") for this class. Check exitClass() method is implemented and is called only "
                                   "once.\n"});
    row.exitClass();
  }
}

TEST_F(Library, AClassThatLostItsNameKeepsItsTypeAndGivesUpItsCatalog) {
  NkPanelix::init();
  // With a table of fields.
  Ref<NkDialogLabel>(new NkDialogLabel);
  const NkType type = NkDialogLabel::getClassTypeId();
  ASSERT_TRUE(NkType::removeType("DialogLabel"));
  {
    const ExpectMessages expected({"NkDialogLabel::exitClass(): Unable to remove type (DialogLabel) for this class. "
                                   "Check exitClass() method is implemented and is called only once.\n"});
    NkDialogLabel::exitClass();
  }
  EXPECT_EQ(NkDialogLabel::getClassTypeId(), type);
  EXPECT_NE(*NkDialogLabel::getFieldDataPtr(), nullptr);
  EXPECT_EQ(NkDialogLabel::getClassNodekitCatalog(), nullptr);
  {
    const Ref<NkDialogLabel> label(new NkDialogLabel);
    ASSERT_NE(label->getNodekitCatalog(), nullptr);
    EXPECT_NE(label->getNodekitCatalog()->getPartNumber("labelProp"), -1);
    EXPECT_NE(label->getNodekitCatalog()->getPartNumber("geomSwitch"), -1);
    NbVec2i32 none(0, 0);
    label->buildWidget(nullptr, none, none, 0);
    EXPECT_TRUE(label->isBuilt3D());
  }
  // Registered anew it leaves and comes back whole.
  NkDialogLabel::initClass();
  NkPanelix::finish();
  EXPECT_TRUE(NkDialogLabel::getClassTypeId().isBad());
  NkPanelix::init();
  const Ref<NkDialogLabel> label(new NkDialogLabel);
  EXPECT_NE(label->getNodekitCatalog()->getPartNumber("labelProp"), -1);
  NkPanelix::finish();
}

namespace {

struct Maker {
  NkBase* (*create)();
  std::vector<const char*> classes; ///< From the outermost base on.
};

const Maker kMakers[] = {
    {NkDialogLabel::createInstance, {"NkPanelix", "NkTopComponent", "NkDialogComponent", "NkDialogLabel"}},
    {NkTabDialog::createInstance, {"NkPanelix", "NkTopComponent", "NkDialogComponent", "NkDialogGroup", "NkTabDialog"}},
    {NkTopLevelDialog::createInstance, {"NkPanelix", "NkTopLevelDialog"}},
    {NkMenuFileSelection::createInstance, {"NkPanelix", "NkMenuItem", "NkMenuPushButton", "NkMenuFileSelection"}},
};

} // namespace

TEST_F(Library, NodesRegisterTheirClasses) {
  for (const Maker& maker : kMakers) {
    std::vector<std::string> messages;
    for (const char* name : maker.classes)
      messages.push_back(std::string("NK_NODE_CONSTRUCTOR(): Can't construct a node of type ") + name +
                         " until initClass() has been called");
    {
      const ExpectMessages expected(messages);
      const Ref<NkPanelix> node(static_cast<NkPanelix*>(maker.create()));
      EXPECT_EQ(node->getTypeId().getName(), maker.classes.back() + 2);
      EXPECT_NE(node->getField("labelAlignment"), nullptr);
    }
    for (auto name = maker.classes.rbegin(); name != maker.classes.rend(); ++name) {
      for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
        if (std::string(row.className) == *name) row.exitClass();
      }
    }
  }
}

// Files

namespace {

class Files : public DialogTest {
protected:
  Files() { write("#Arbora V2.1 ascii\n" + kText); }
  ~Files() override { std::filesystem::remove(path()); }

  static std::string path() { return outputDir() + "/panelix files.arb"; }
  static void write(const std::string& text) { std::ofstream(path(), std::ios::binary) << text; }

  /// The reference of the caller's is the result's.
  static Ref<NkPanelix> load(const std::string& file, const char* id) {
    const Ref<NkPanelix> node(NkPanelix::loadFromFile(NbString::fromUtf8(file.c_str()), id));
    if (node) node->unref();
    return node;
  }
  static Ref<NkPanelix> load(const char* id = "") { return load(path(), id); }

  static inline const std::string kText = R"(
    Cube { }
    Separator { DialogLabel { auditorID "hidden" } }
    RowDialog { auditorID "row" DialogLabel { auditorID "nested" } }
    DialogLabel { auditorID "label" label "one" }
    DialogLabel { auditorID "label" label "two" }
  )";
};

struct Root : NkPanelix {
  using NkPanelix::destroyByRef;
};

} // namespace

TEST_F(Files, GiveTheFirstComponent) {
  const Ref<NkPanelix> node = load();
  ASSERT_TRUE(node);
  EXPECT_EQ(node->auditorID.getValue(), "row");
}

TEST_F(Files, GiveTheFirstComponentOfTheName) {
  const Ref<NkPanelix> node = load("label");
  ASSERT_TRUE(node);
  EXPECT_EQ(node->label.getValue(), "one");
}

TEST_F(Files, GiveAReferenceEach) {
  NkPanelix* const first = NkPanelix::loadFromFile(NbString(path().c_str()), "row");
  ASSERT_NE(first, nullptr);
  const int count = first->getRefCount();
  EXPECT_EQ(count, 2);
  EXPECT_EQ(NkPanelix::loadFromFile(NbString(path().c_str()), "row"), first);
  EXPECT_EQ(first->getRefCount(), count + 1);
  first->unref();
  first->unref();
  EXPECT_EQ(first->getRefCount(), 1);
}

TEST_F(Files, KeepWhatTheApplicationChanged) {
  load("label")->label = "changed";
  write("DialogCheckBox { }");
  EXPECT_EQ(load("label")->label.getValue(), "changed");
}

TEST_F(Files, AreToldApartByTheSpellingOfTheirPath) {
  const std::string other = outputDir() + "/./panelix files.arb";
  const Ref<NkPanelix> node = load("label");
  const Ref<NkPanelix> again = load(other, "label");
  ASSERT_TRUE(again);
  EXPECT_NE(again.get(), node.get());
  EXPECT_EQ(load(other, "label").get(), again.get());
  EXPECT_EQ(load("label").get(), node.get());
}

TEST_F(Files, AreToldApartByLetterCaseAndSeparatorsToo) {
  const Ref<NkPanelix> node = load("label");
  // Where the system finds no file of that name, nothing is remembered for it.
  std::string otherCase = path();
  otherCase.replace(otherCase.rfind("panelix"), 7, "PANELIX");
  std::string otherSeparators = path();
  std::replace(otherSeparators.begin(), otherSeparators.end(), '/', '\\');
  for (const std::string& name : {otherCase, otherSeparators}) {
    allowMessages(name);
    const Ref<NkPanelix> other = load(name, "label");
    EXPECT_EQ(static_cast<bool>(other), std::filesystem::exists(name)) << name;
    EXPECT_NE(other.get(), node.get()) << name;
    if (other) {
      EXPECT_EQ(load(name, "label").get(), other.get()) << name;
    }
  }
  EXPECT_EQ(load("label").get(), node.get());
}

TEST_F(Files, GiveNoNestedComponent) {
  const std::string where = "in Arbora file \"" + path() + "\".";
  for (const char* id : {"nested", "hidden", "none", "Row"}) {
    const ExpectMessages message({std::string("NkPanelix::loadFromFile(): Cannot find any Panelix component with "
                                              "auditorID = \"") +
                                  id + "\" " + where});
    EXPECT_FALSE(load(id));
  }
  // The file stays.
  const Ref<NkPanelix> node = load();
  write("");
  EXPECT_EQ(load().get(), node.get());
}

TEST_F(Files, MayHoldNoComponent) {
  write("#Arbora V2.1 ascii\nCube { }\n");
  expectMessage("NkPanelix::loadFromFile(): Cannot find any Panelix component in Arbora file \"" + path() + "\".");
  EXPECT_FALSE(load());
}

TEST_F(Files, MayBeMissingAtFirst) {
  std::filesystem::remove(path());
  {
    const ExpectMessages message({path()});
    EXPECT_FALSE(load());
  }
  write("DialogLabel { }");
  EXPECT_TRUE(load());
}

TEST_F(Files, MayBeBroken) {
  write("#Arbora V2.1 ascii\nDialogLabel {\n  enable 7x\n}\n");
  {
    const ExpectMessages message({path() + ":3:"});
    EXPECT_FALSE(load());
  }
  // A file that can't be read is read again.
  write("DialogLabel { }");
  EXPECT_TRUE(load());
}

TEST_F(Files, AreForgottenAtTheEnd) {
  NkPanelix::init();
  const Ref<NkPanelix> node = load();
  NkPanelix::finish();
  EXPECT_EQ(load().get(), node.get());
  EXPECT_EQ(node->getRefCount(), 2);
}

TEST_F(Files, AreForgottenByNode) {
  const Ref<NkPanelix> node = load("label");
  Root::destroyByRef(node.get());
  EXPECT_EQ(node->getRefCount(), 1);
  const Ref<NkPanelix> again = load("label");
  EXPECT_NE(again.get(), node.get());
  // It is in no file any more.
  Root::destroyByRef(node.get());
  EXPECT_EQ(load("label").get(), again.get());
  Root::destroyByRef(nullptr);
  EXPECT_EQ(load("label").get(), again.get());
}

// The last reference to the node is the file's, so that the node forgets its file once more while it goes.
TEST_F(Files, AreForgottenWithTheirNodes) {
  NkPanelix* const node = load("label").get();
  Root::destroyByRef(node);
  write("DialogCheckBox { }");
  EXPECT_TRUE(load()->isOfType(NkDialogCheckBox::getClassTypeId()));
}

// Parents

namespace {

class Parents : public DialogTest {};

} // namespace

TEST_F(Parents, AreJustStored) {
  const Ref<NkDialogLabel> node(new NkDialogLabel);
  const Ref<NkRowDialog> parent(new NkRowDialog);
  EXPECT_EQ(node->getParent(), nullptr);
  node->setParent(parent.get());
  EXPECT_EQ(node->getParent(), parent.get());
  EXPECT_EQ(parent->getNumChildren(), 0);
  EXPECT_EQ(node->getRefCount(), 1);
  EXPECT_EQ(parent->getRefCount(), 1);
  node->setParent(nullptr);
  EXPECT_EQ(node->getParent(), nullptr);
}

TEST_F(Parents, AreForgottenWhenTheyGo) {
  std::vector<Ref<NkDialogLabel>> nodes;
  const Ref<NkRowDialog> other(new NkRowDialog);
  {
    const Ref<NkRowDialog> parent(new NkRowDialog);
    for (int i = 0; i < 5; ++i) {
      nodes.emplace_back(new NkDialogLabel);
      nodes.back()->setParent(parent.get());
    }
    nodes[1]->setParent(other.get());
    nodes[4]->setParent(nullptr);
    nodes[0]->setParent(parent.get());
    nodes[2] = nullptr;
    nodes[3]->setParent(nodes[3].get());
    nodes[3]->setParent(parent.get());
  }
  EXPECT_EQ(nodes[0]->getParent(), nullptr);
  EXPECT_EQ(nodes[1]->getParent(), other.get());
  EXPECT_EQ(nodes[3]->getParent(), nullptr);
  EXPECT_EQ(nodes[4]->getParent(), nullptr);
}

TEST_F(Parents, LeadToTheTopLevelDialog) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { RowDialog { ColumnDialog { DialogPushButtonLauncher "
                                                "{ TopLevelDialog { DialogLabel { } } } } } }");
  ASSERT_TRUE(dialog);
  auto* row = static_cast<NkRowDialog*>(dialog->getChild(0));
  auto* column = static_cast<NkColumnDialog*>(row->getChild(0));
  auto* launcher = static_cast<NkPanelix*>(column->getChild(0));
  for (NkPanelix* node : {static_cast<NkPanelix*>(row), static_cast<NkPanelix*>(column), launcher}) {
    for (int orSelf : {0, 1}) EXPECT_EQ(node->getFirstTopParent(0, orSelf), dialog.get());
  }
  // A dialog that is launched has a dialog above it, too, and its components find the nearer one.
  auto* inner = static_cast<NkTopLevelDialog*>((*launcher->getChildren())[0]);
  EXPECT_EQ(inner->getFirstTopParent(0, 0), dialog.get());
  EXPECT_EQ(static_cast<NkPanelix*>(inner->getChild(0))->getFirstTopParent(0, 0), inner);
}

TEST_F(Parents, WithoutOneJustAGroupIsItsOwn) {
  const Ref<NkDialogCheckBox> box(new NkDialogCheckBox);
  EXPECT_EQ(box->getFirstTopParent(0, 1), nullptr);
  EXPECT_EQ(box->getFirstTopParent(0, 0), nullptr);
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  EXPECT_EQ(dialog->getFirstTopParent(0, 1), nullptr);
  const Ref<NkRowDialog> row(new NkRowDialog);
  EXPECT_EQ(row->getFirstTopParent(0, 1), row.get());
  EXPECT_EQ(row->getFirstTopParent(0, 0), nullptr);
  row->addChild(box.get());
  EXPECT_EQ(box->getFirstTopParent(0, 1), row.get());
  EXPECT_EQ(box->getFirstTopParent(0, 0), nullptr);
}

TEST_F(Parents, EndWhereOneCanNotBeTraversed) {
  const auto dialog = readOne<NkTopLevelDialog>("TopLevelDialog { RowDialog { ColumnDialog { DialogLabel { } } } }");
  ASSERT_TRUE(dialog);
  auto* row = static_cast<NkRowDialog*>(dialog->getChild(0));
  auto* column = static_cast<NkColumnDialog*>(row->getChild(0));
  NkPanelix* label = column->getChild(0);
  row->setCanBeTraversed(0);
  EXPECT_EQ(label->getFirstTopParent(0, 1), column);
  EXPECT_EQ(label->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(label->getFirstTopParent(1, 0), dialog.get());
  EXPECT_EQ(row->getFirstTopParent(0, 0), dialog.get());
  row->setCanBeTraversed(1);
  dialog->setCanBeTraversed(0);
  EXPECT_EQ(label->getFirstTopParent(0, 1), row);
  EXPECT_EQ(label->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(label->getFirstTopParent(1, 1), dialog.get());
}

// Changes of fields

namespace {

/// Keeps the names of the operations that were called.
struct Recorder : NkPanelix {
  void changeEnable() override { record("changeEnable"); }
  void changeLabel() override { record("changeLabel"); }
  void changeLabelAlignment() override { record("changeLabelAlignment"); }
  void change3DEnable() override { record("change3DEnable"); }
  void change3DLabel() override { record("change3DLabel"); }
  void change3DLabelAlignment() override { record("change3DLabelAlignment"); }
  void record(const char* operation) { calls += (calls.empty() ? "" : " ") + std::string(operation); }

  std::string calls;
  using NkPanelix::m_built2D;
  using NkPanelix::m_parentWidget;
};

class Changes : public DialogTest {
protected:
  void build(int is2D) {
    NbVec2i32 size(0, 0);
    NbVec2i32 position(0, 0);
    node->buildWidget(window, size, position, is2D);
  }
  /// What the writes of all fields call.
  std::string write() {
    node->calls.clear();
    node->enable = !node->enable.getValue();
    node->label = "text";
    node->auditorID = "id";
    node->labelAlignment = NkPanelix::CENTER;
    return node->calls;
  }

  const Ref<Recorder> node{new Recorder};
  const HWND window = reinterpret_cast<HWND>(this);
};

const char* const k2D = "changeEnable changeLabel changeLabelAlignment";
const char* const k3D = "change3DEnable change3DLabel change3DLabelAlignment";
const char* const kBoth =
    "changeEnable change3DEnable changeLabel change3DLabel changeLabelAlignment change3DLabelAlignment";

} // namespace

TEST_F(Changes, MeanNothingBeforeTheFirstBuild) {
  node->m_built2D = 1;
  node->setBuilt3D(1);
  EXPECT_EQ(write(), "");
  EXPECT_FALSE(node->enable.getValue());
  build(1);
  EXPECT_EQ(node->calls, "");
  EXPECT_EQ(write(), kBoth);
}

TEST_F(Changes, ReachThe2DForm) {
  build(7);
  EXPECT_EQ(node->m_built2D, 7);
  EXPECT_EQ(node->m_parentWidget, window);
  EXPECT_EQ(node->isBuilt3D(), 0);
  EXPECT_EQ(write(), k2D);
}

TEST_F(Changes, ReachThe3DForm) {
  build(0);
  EXPECT_EQ(node->m_built2D, 0);
  EXPECT_EQ(node->m_parentWidget, nullptr);
  // The class whose 3D form stands says so.
  EXPECT_EQ(write(), "");
  node->setBuilt3D(1);
  EXPECT_EQ(write(), k3D);
  node->setCanBeTraversed(0);
  EXPECT_EQ(write(), "");
}

TEST_F(Changes, ReachBothForms) {
  build(1);
  build(0);
  node->setBuilt3D(1);
  EXPECT_EQ(write(), kBoth);
  node->setCanBeTraversed(0);
  EXPECT_EQ(write(), k2D);
  node->setCanBeTraversed(1);
  node->destroyWidget();
  EXPECT_EQ(node->m_built2D, 0);
  EXPECT_EQ(write(), k3D);
  EXPECT_TRUE(node->isBuilt3D());
}

TEST_F(Changes, AreHeardOnceHoweverOftenItWasBuilt) {
  for (int i = 0; i < 3; ++i) build(1);
  EXPECT_EQ(write(), k2D);
}

TEST_F(Changes, AreHeardInsideTheWriteOfAnEqualValueToo) {
  build(1);
  node->label = "";
  EXPECT_EQ(node->calls, "changeLabel");
}

TEST_F(Changes, OfOthersMeanNothing) {
  build(1);
  node->setBuilt3D(1);
  NkFieldSensor sensor;
  node->updateFromSensor(&sensor);
  sensor.attach(&node->label);
  node->updateFromSensor(&sensor);
  node->updateFromSensor(nullptr);
  EXPECT_EQ(node->calls, "");
}

namespace {

/// Holds itself until `enable` changes.
struct Dropped : NkPanelix {
  explicit Dropped(std::string& record) : calls(record), self(this) {}
  void changeEnable() override {
    self = nullptr;
    calls += "dropped ";
  }
  void change3DEnable() override { calls += "change3DEnable"; }

  std::string& calls;
  Ref<Dropped> self;
};

} // namespace

// The application may drop a node inside what a change of one of its fields calls.
TEST_F(Changes, MayEndTheNode) {
  std::string calls;
  auto* dropped = new Dropped(calls);
  NbVec2i32 none(0, 0);
  dropped->buildWidget(window, none, none, 1);
  dropped->setBuilt3D(1);
  dropped->enable = false;
  EXPECT_EQ(calls, "dropped change3DEnable");
}

TEST_F(DialogTest, NoWindowDoesNotExist) { EXPECT_EQ(NkPanelix::existWidget(nullptr), 0); }
