#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "DialogTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSphere.h"

// What all containers have in common, on each of their classes.

using arbora::KeepAlive;
using arbora::Ref;

namespace {

struct GroupCase {
  using Container = NkDialogGroup;
  using Child = NkDialogComponent;
  static constexpr const char* kName = "NkDialogGroup";
  static constexpr const char* kKeyword = "DialogGroup";
  static constexpr const char* kChildKeyword = "DialogComponent";
  static constexpr const char* kGetChildTail = "";
  static constexpr int kGetChildExtra = 0; // How far the range that it posts goes beyond the last child.
  static constexpr bool kTakesOtherNodes = true;
};
struct RowCase : GroupCase {
  using Container = NkRowDialog;
  static constexpr const char* kKeyword = "RowDialog";
};
struct ColumnCase : GroupCase {
  using Container = NkColumnDialog;
  static constexpr const char* kKeyword = "ColumnDialog";
};
struct TopLevelCase {
  using Container = NkTopLevelDialog;
  using Child = NkTopComponent;
  static constexpr const char* kName = "NkTopLevelDialog";
  static constexpr const char* kKeyword = "TopLevelDialog";
  static constexpr const char* kChildKeyword = "TopComponent";
  static constexpr const char* kGetChildTail = "; Be careful";
  static constexpr int kGetChildExtra = 0; // How far the range that it posts goes beyond the last child.
  static constexpr bool kTakesOtherNodes = true;
};
template <class Launcher>
struct LauncherCase {
  using Container = Launcher;
  using Child = NkTopLevelDialog;
  static constexpr const char* kChildKeyword = "TopLevelDialog";
  static constexpr const char* kGetChildTail = "; Be careful";
  static constexpr int kGetChildExtra = 1; // How far the range that it posts goes beyond the last child.
  static constexpr bool kTakesOtherNodes = false;
};
struct CheckBoxLauncherCase : LauncherCase<NkDialogCheckBoxLauncher> {
  static constexpr const char* kName = "NkDialogCheckBoxLauncher";
  static constexpr const char* kKeyword = "DialogCheckBoxLauncher";
};
struct PushButtonLauncherCase : LauncherCase<NkDialogPushButtonLauncher> {
  static constexpr const char* kName = "NkDialogPushButtonLauncher";
  static constexpr const char* kKeyword = "DialogPushButtonLauncher";
};
struct MenuCheckBoxLauncherCase : LauncherCase<NkMenuCheckBoxLauncher> {
  static constexpr const char* kName = "NkMenuCheckBoxLauncher";
  static constexpr const char* kKeyword = "MenuCheckBoxLauncher";
};
struct MenuPushButtonLauncherCase : LauncherCase<NkMenuPushButtonLauncher> {
  static constexpr const char* kName = "NkMenuPushButtonLauncher";
  static constexpr const char* kKeyword = "MenuPushButtonLauncher";
};
struct MenuBarCase {
  using Container = NkMenuBar;
  using Child = NkMenuPopup;
  static constexpr const char* kName = "NkMenuBar";
  static constexpr const char* kKeyword = "MenuBar";
  static constexpr const char* kChildKeyword = "MenuPopup";
  static constexpr const char* kGetChildTail = "";
  static constexpr int kGetChildExtra = 0; // How far the range that it posts goes beyond the last child.
  static constexpr bool kTakesOtherNodes = false;
};
struct MenuPopupCase {
  using Container = NkMenuPopup;
  using Child = NkMenuItem;
  static constexpr const char* kName = "NkMenuPopup";
  static constexpr const char* kKeyword = "MenuPopup";
  static constexpr const char* kChildKeyword = "MenuItem";
  static constexpr const char* kGetChildTail = "";
  static constexpr int kGetChildExtra = 0; // How far the range that it posts goes beyond the last child.
  static constexpr bool kTakesOtherNodes = false;
};

using Cases =
    ::testing::Types<GroupCase, RowCase, ColumnCase, TopLevelCase, MenuBarCase, MenuPopupCase, CheckBoxLauncherCase,
                     PushButtonLauncherCase, MenuCheckBoxLauncherCase, MenuPushButtonLauncherCase>;

/// Lets the protected operations out: the kit's words for children, and reading.
template <class Container>
class Open : public Container {
public:
  using Container::getAnyPart;
  using Container::readInstance;

  template <class Use>
  void walk(Use&& use) {
    this->forEachChild(use);
  }

  void addToKit(NkNode* node) { NkBaseKit::addChild(node); }
  void insertIntoKit(NkNode* node, int index) { NkBaseKit::insertChild(node, index); }
  NkNode* getOfKit(int index) { return NkBaseKit::getChild(index); }
  int findInKit(NkNode* node) { return NkBaseKit::findChild(node); }
  void removeFromKit(NkNode* node) { NkBaseKit::removeChild(node); }
  void removeFromKit(int index) { NkBaseKit::removeChild(index); }
  void removeAllFromKit() { NkBaseKit::removeAllChildren(); }
  void replaceInKit(NkNode* oldNode, NkNode* newNode) { NkBaseKit::replaceChild(oldNode, newNode); }
  void replaceInKit(int index, NkNode* node) { NkBaseKit::replaceChild(index, node); }

  /// A cube of the given size that stands in its parts, in the place of the 3D form.
  NkCube* showCube(float size) {
    this->setBuilt3D(1);
    auto* cube = new NkCube;
    cube->width = cube->height = cube->depth = size;
    static_cast<NkGroup*>(getAnyPart("geomSwitch", true))->addChild(cube);
    this->show3D(1);
    return cube;
  }
};

/// Tells of the end of its windows.
template <class Child>
class Watched : public Open<Child> {
public:
  std::function<void()> atEndOfWindows = [] {};
  void destroyWidget() override {
    atEndOfWindows();
    Child::destroyWidget();
  }
};

} // namespace

template <class Case>
class Containers : public DialogTest {
protected:
  const Ref<Open<typename Case::Container>> container{new Open<typename Case::Container>};

  std::string location(const char* operation) { return std::string(Case::kName) + "::" + operation + "(): "; }
  std::string outOfRange(const char* operation, int index, int last, const char* tail = "") {
    return location(operation) + "Index " + std::to_string(index) + " is out of range 0 - " + std::to_string(last) +
           tail;
  }
  /// Checks that the call posts that message, and no other.
  template <class Call>
  void expectPosted(const std::string& message, Call&& call) {
    expectMessage(message);
    const std::size_t before = postedMessages().size();
    call();
    ASSERT_EQ(postedMessages().size(), before + 1) << message;
    EXPECT_EQ(postedMessages().back(), message);
  }

  auto* add() {
    auto* child = new typename Case::Child;
    container->addChild(child);
    return child;
  }
  void expectChildren(const std::vector<typename Case::Child*>& children) {
    ASSERT_EQ(container->getNumChildren(), static_cast<int>(children.size()));
    for (std::size_t i = 0; i < children.size(); ++i) {
      EXPECT_EQ(container->getChild(static_cast<int>(i)), children[i]) << i;
      EXPECT_EQ(children[i]->getParent(), container.get()) << i;
    }
  }
};
TYPED_TEST_SUITE(Containers, Cases);

// The operations on the children

TYPED_TEST(Containers, StartEmpty) {
  EXPECT_EQ(this->container->getNumChildren(), 0);
  EXPECT_EQ(this->container->findChild(nullptr), -1);
  this->expectPosted(this->outOfRange("getChild", 0, TypeParam::kGetChildExtra - 1, TypeParam::kGetChildTail),
                     [&] { EXPECT_EQ(this->container->getChild(0), nullptr); });
  EXPECT_EQ(this->container->getChild(-1), nullptr);
}

TYPED_TEST(Containers, AddChildrenBehindTheOthers) {
  auto* first = this->add();
  auto* second = this->add();
  this->expectChildren({first, second});
  EXPECT_EQ(this->container->findChild(first), 0);
  EXPECT_EQ(this->container->findChild(second), 1);
  EXPECT_EQ(first->getRefCount(), 1);
  this->expectPosted(this->outOfRange("getChild", 2, TypeParam::kGetChildExtra + 1, TypeParam::kGetChildTail),
                     [&] { EXPECT_EQ(this->container->getChild(2), nullptr); });
}

TYPED_TEST(Containers, InsertChildrenAheadOfTheOneAtTheIndex) {
  using Child = typename TypeParam::Child;
  auto* last = this->add();
  auto* first = new Child;
  this->container->insertChild(first, 0);
  auto* middle = new Child;
  this->container->insertChild(middle, 1);
  auto* behind = new Child;
  this->container->insertChild(behind, 3);
  this->expectChildren({first, middle, last, behind});
}

TYPED_TEST(Containers, InsertNothingOutsideTheRange) {
  auto* only = this->add();
  const Ref<typename TypeParam::Child> other(new typename TypeParam::Child);
  for (const int index : {-1, 2}) {
    this->expectPosted(this->outOfRange("insertChild", index, 1),
                       [&] { this->container->insertChild(other.get(), index); });
  }
  this->expectChildren({only});
  EXPECT_EQ(other->getParent(), nullptr);
  EXPECT_EQ(other->getRefCount(), 1);
}

TYPED_TEST(Containers, TakeNoNullChild) {
  auto* only = this->add();
  this->expectPosted(this->location("addChild") + "NULL child node", [&] { this->container->addChild(nullptr); });
  // The child is looked at ahead of the index.
  this->expectPosted(this->location("insertChild") + "NULL child node",
                     [&] { this->container->insertChild(nullptr, 7); });
  this->expectPosted(this->location("replaceChild") + "NULL child node",
                     [&] { this->container->replaceChild(0, nullptr); });
  this->expectChildren({only});
}

TYPED_TEST(Containers, RemoveChildrenByIndexAndByNode) {
  const Ref<typename TypeParam::Child> first(this->add());
  auto* second = this->add();
  const Ref<typename TypeParam::Child> third(this->add());
  this->container->removeChild(third.get());
  this->expectChildren({first.get(), second});
  this->container->removeChild(0);
  this->expectChildren({second});
  EXPECT_EQ(first->getRefCount(), 1);
  EXPECT_EQ(third->getRefCount(), 1);
}

TYPED_TEST(Containers, RemoveNothingThatIsNotThere) {
  auto* only = this->add();
  const Ref<typename TypeParam::Child> stranger(new typename TypeParam::Child);
  this->expectPosted(this->outOfRange("removeChild", 1, 0), [&] { this->container->removeChild(1); });
  this->expectPosted(this->outOfRange("removeChild", -1, 0), [&] { this->container->removeChild(-1); });
  this->expectPosted(this->outOfRange("removeChild", -1, 0), [&] { this->container->removeChild(stranger.get()); });
  this->expectChildren({only});
}

TYPED_TEST(Containers, EndTheWindowsOfAChildAheadOfItsPlace) {
  using Child = typename TypeParam::Child;
  auto* child = new Watched<Child>;
  std::vector<int> found;
  child->atEndOfWindows = [&] { found.push_back(this->container->findChild(child)); };
  const Ref<Child> keep(child);
  this->add();
  this->container->addChild(child);
  this->container->removeChild(1);
  EXPECT_EQ(found, std::vector<int>({1}));
  this->container->insertChild(child, 0);
  this->container->replaceChild(child, new Child);
  EXPECT_EQ(found, std::vector<int>({1, 0}));
  EXPECT_EQ(this->container->findChild(child), -1);
}

TYPED_TEST(Containers, RemoveAllFromTheLastToTheFirstAndTheirOwnPartsToo) {
  using Child = typename TypeParam::Child;
  std::vector<int> order;
  for (int i = 0; i < 3; ++i) {
    auto* child = new Watched<Child>;
    child->atEndOfWindows = [&order, i] { order.push_back(i); };
    this->container->addChild(child);
  }
  ASSERT_NE(this->container->getAnyPart("geomSwitch", true), nullptr);
  ASSERT_GT(this->container->getChildren()->getLength(), 3);
  this->container->removeAllChildren();
  EXPECT_EQ(order, std::vector<int>({2, 1, 0}));
  EXPECT_EQ(this->container->getNumChildren(), 0);
  EXPECT_EQ(this->container->getChildren()->getLength(), 0);
  auto* next = this->add();
  this->expectChildren({next});
}

TYPED_TEST(Containers, ReplaceChildrenByIndexAndByNode) {
  using Child = typename TypeParam::Child;
  const Ref<Child> first(this->add());
  auto* second = this->add();
  auto* other = new Child;
  this->container->replaceChild(0, other);
  this->expectChildren({other, second});
  EXPECT_EQ(first->getRefCount(), 1);
  auto* another = new Child;
  this->container->replaceChild(second, another);
  this->expectChildren({other, another});
}

TYPED_TEST(Containers, ReplaceNothingThatIsNotThere) {
  using Child = typename TypeParam::Child;
  auto* only = this->add();
  const Ref<Child> other(new Child);
  const Ref<Child> stranger(new Child);
  for (const int index : {-1, 1}) {
    this->expectPosted(this->outOfRange("replaceChild", index, 0),
                       [&] { this->container->replaceChild(index, other.get()); });
  }
  this->expectPosted(this->outOfRange("replaceChild", -1, 0),
                     [&] { this->container->replaceChild(stranger.get(), other.get()); });
  this->expectChildren({only});
  EXPECT_EQ(other->getParent(), nullptr);
}

TYPED_TEST(Containers, HoldTheirChildrenAheadOfTheirParts) {
  auto* first = this->add();
  this->container->getAnyPart("geomSwitch", true);
  auto* second = this->add();
  this->expectChildren({first, second});
  const NkChildList& list = *this->container->getChildren();
  ASSERT_EQ(list.getLength(), 3);
  EXPECT_EQ(list[0], first);
  EXPECT_EQ(list[1], second);
  EXPECT_TRUE(list[2]->isOfType(NkSeparator::getClassTypeId()));
}

TYPED_TEST(Containers, LeaveTheirChildrenWithoutAParentAtTheirEnd) {
  const Ref<typename TypeParam::Child> child(new typename TypeParam::Child);
  {
    const Ref<typename TypeParam::Container> parent(new typename TypeParam::Container);
    parent->addChild(child.get());
    EXPECT_EQ(child->getParent(), parent.get());
  }
  EXPECT_EQ(child->getParent(), nullptr);
  EXPECT_EQ(child->getRefCount(), 1);
}

// The kit's words for the same

TYPED_TEST(Containers, TakeChildrenByTheWordsOfTheKit) {
  using Child = typename TypeParam::Child;
  auto* first = new Child;
  auto* second = new Child;
  auto* third = new Child;
  this->container->addToKit(second);
  this->container->insertIntoKit(first, 0);
  this->container->addToKit(third);
  this->expectChildren({first, second, third});
  EXPECT_EQ(this->container->getOfKit(1), second);
  EXPECT_EQ(this->container->findInKit(third), 2);
  auto* fourth = new Child;
  this->container->replaceInKit(second, fourth);
  auto* fifth = new Child;
  this->container->replaceInKit(0, fifth);
  this->expectChildren({fifth, fourth, third});
  this->container->removeFromKit(fourth);
  this->container->removeFromKit(0);
  this->expectChildren({third});
  this->container->removeAllFromKit();
  EXPECT_EQ(this->container->getNumChildren(), 0);
  EXPECT_EQ(this->container->getChildren()->getLength(), 0);
}

TYPED_TEST(Containers, TakeNoOtherNodeForAChild) {
  auto* child = this->add();
  const Ref<NkCube> cube(new NkCube);
  if (TypeParam::kTakesOtherNodes) {
    this->container->insertIntoKit(cube.get(), 0);
    EXPECT_EQ(this->container->findInKit(cube.get()), 1);
    this->expectChildren({child});
    auto* sphere = new NkSphere;
    this->container->replaceInKit(1, sphere);
    this->container->addToKit(cube.get());
    EXPECT_EQ(this->container->findInKit(sphere), 1);
    EXPECT_EQ(this->container->findInKit(cube.get()), 2);
    auto* second = this->add();
    this->expectChildren({child, second});
    // In the place of a child it ends up behind them all the same.
    this->container->replaceInKit(0, new NkSphere);
    this->expectChildren({second});
    EXPECT_EQ(this->container->getChildren()->getLength(), 4);
    this->expectPosted("NkBaseKit::replaceChild(): NULL child node",
                       [&] { this->container->replaceInKit(0, nullptr); });
    this->expectChildren({second});
  } else {
    this->expectPosted(this->location("addChild") + "NULL child node", [&] { this->container->addToKit(cube.get()); });
    this->expectPosted(this->location("insertChild") + "NULL child node",
                       [&] { this->container->insertIntoKit(cube.get(), 0); });
    this->expectPosted(this->location("replaceChild") + "NULL child node",
                       [&] { this->container->replaceInKit(0, cube.get()); });
    EXPECT_EQ(this->container->findInKit(cube.get()), -1);
    this->expectChildren({child});
  }
  this->expectPosted(this->outOfRange("removeChild", -1, this->container->getNumChildren() - 1),
                     [&] { this->container->removeFromKit(cube.get()); });
}

// Changes inside callbacks

TYPED_TEST(Containers, OutliveASensorThatDropsThem) {
  using Container = typename TypeParam::Container;
  using Child = typename TypeParam::Child;
  const std::function<void(Container*)> changes[] = {
      [](Container* parent) { parent->addChild(new Child); },
      [](Container* parent) { parent->insertChild(new Child, 0); },
      [](Container* parent) { parent->replaceChild(0, new Child); },
      [](Container* parent) { parent->removeChild(0); },
      [](Container* parent) { parent->removeAllChildren(); },
  };
  for (const auto& change : changes) {
    auto* dropped = new Container;
    dropped->addChild(new Child);
    dropped->ref();
    NkNodeSensor sensor(
        [](void* data, NkSensor* self) {
          static_cast<NkNodeSensor*>(self)->detach();
          static_cast<Container*>(data)->unref();
        },
        dropped);
    sensor.setPriority(0);
    sensor.attach(dropped);
    change(dropped);
  }
}

TYPED_TEST(Containers, FindAllInOrderInsideASensor) {
  using Child = typename TypeParam::Child;
  using Container = typename TypeParam::Container;
  struct Seen {
    Container* container;
    std::vector<int> counts;
    bool hasParents = true;
  } seen{this->container.get(), {}};
  NkNodeSensor sensor(
      [](void* data, NkSensor*) {
        auto* s = static_cast<Seen*>(data);
        s->counts.push_back(s->container->getNumChildren());
        for (int i = 0; i < s->container->getNumChildren(); ++i)
          s->hasParents = s->hasParents && s->container->getChild(i)->getParent() == s->container;
      },
      &seen);
  sensor.setPriority(0);
  sensor.attach(this->container.get());
  this->add();
  this->container->insertChild(new Child, 0);
  this->container->replaceChild(1, new Child);
  this->container->removeChild(0);
  this->container->removeAllChildren();
  EXPECT_EQ(seen.counts, std::vector<int>({1, 2, 2, 1, 0}));
  EXPECT_TRUE(seen.hasParents);
}

TYPED_TEST(Containers, EmptiedInsideASensorStayInOrder) {
  using Container = typename TypeParam::Container;
  NkNodeSensor sensor(
      [](void* data, NkSensor* self) {
        static_cast<NkNodeSensor*>(self)->detach();
        static_cast<Container*>(data)->removeAllChildren();
      },
      this->container.get());
  sensor.setPriority(0);
  sensor.attach(this->container.get());
  const Ref<typename TypeParam::Child> child(new typename TypeParam::Child);
  this->container->addChild(child.get());
  EXPECT_EQ(this->container->getNumChildren(), 0);
  auto* next = this->add();
  this->expectChildren({next});
}

TYPED_TEST(Containers, BearThatTheEndOfWindowsChangesTheChildren) {
  using Child = typename TypeParam::Child;
  const Ref<Child> other(new Child);
  const std::function<void()> changes[] = {
      [&] { this->container->removeChild(1); },
      [&] { this->container->replaceChild(1, other.get()); },
      [&] { this->container->removeAllChildren(); },
  };
  for (const auto& change : changes) {
    auto* child = new Watched<Child>;
    this->add();
    this->container->addChild(child);
    bool isFirst = true;
    child->atEndOfWindows = [&] {
      if (std::exchange(isFirst, false)) this->container->removeAllChildren();
    };
    change();
    EXPECT_EQ(this->container->getNumChildren(), 0);
    EXPECT_EQ(other->getParent(), nullptr);
  }
}

// Walks

TYPED_TEST(Containers, AreWalkedThroughWhileTheyChange) {
  using Child = typename TypeParam::Child;
  // Children are told by the letters of their labels; `act` is called at "c".
  struct Row {
    const char* what;
    const char* visited;
    std::function<void()> act;
  };
  auto& group = *this->container;
  const auto insert = [&](int index) {
    auto* child = new Child;
    child->label = "x";
    group.insertChild(child, index);
  };
  const Row rows[] = {
      {"nothing changes", "abcdef", [] {}},
      {"it goes", "abcdef", [&] { group.removeChild(2); }},
      {"the next one goes", "abcef", [&] { group.removeChild(3); }},
      {"the last one goes", "abcde", [&] { group.removeChild(5); }},
      {"one that had its turn goes", "abcdef", [&] { group.removeChild(0); }},
      {"all but the last go", "abcf",
       [&] {
         while (group.getNumChildren() > 1) group.removeChild(0);
       }},
      {"all go", "abc", [&] { group.removeAllChildren(); }},
      {"others come in the place of all", "abc",
       [&] {
         group.removeAllChildren();
         for (int i = 0; i < 8; ++i) insert(0);
       }},
      {"one comes first", "abcdef", [&] { insert(0); }},
      {"one comes next", "abcdef", [&] { insert(3); }},
      {"one comes later, and another ahead of it", "abcdef",
       [&] {
         insert(5);
         insert(4);
       }},
      {"one comes last", "abcdef", [&] { insert(6); }},
      {"two come and go with the next one", "abcef",
       [&] {
         insert(4);
         insert(3);
         for (int i = 0; i < 3; ++i) group.removeChild(3);
         insert(3);
       }},
      {"it is replaced", "abcdef", [&] { group.replaceChild(2, new Child); }},
      {"the next one is replaced", "abcef", [&] { group.replaceChild(3, new Child); }},
      {"the last one is replaced", "abcde", [&] { group.replaceChild(5, new Child); }},
      {"one that had its turn goes to the end", "abcdef",
       [&] {
         const Ref<Child> child(group.getChild(0));
         group.removeChild(0);
         group.addChild(child.get());
       }},
      {"another walk changes it", "abc", [&] { group.walk([&](Child* child) { group.removeChild(child); }); }},
  };
  for (const Row& row : rows) {
    group.removeAllChildren();
    for (const char* letter : {"a", "b", "c", "d", "e", "f"}) this->add()->label = letter;
    std::string visited;
    group.walk([&](Child* child) {
      visited += child->label.getValue().toLatin1().c_str();
      if (child->label.getValue() == "c") row.act();
    });
    EXPECT_EQ(visited, row.visited) << row.what;
  }
}

TYPED_TEST(Containers, EndAWalkToWhichEachVisitAddsAChild) {
  using Child = typename TypeParam::Child;
  for (int i = 0; i < 3; ++i) this->add();
  int visits = 0;
  this->container->walk([&](Child* child) {
    ++visits;
    this->container->insertChild(new Child, this->container->findChild(child) + 1);
    this->add();
  });
  EXPECT_EQ(visits, 3);
  EXPECT_EQ(this->container->getNumChildren(), 9);
}

TYPED_TEST(Containers, LoseEachChildInAWalkThatRemovesIt) {
  using Child = typename TypeParam::Child;
  for (int i = 0; i < 5; ++i) this->add();
  this->container->walk([&](Child* child) { this->container->removeChild(child); });
  EXPECT_EQ(this->container->getNumChildren(), 0);
}

// Copies

TYPED_TEST(Containers, AreCopiedWithTheirChildren) {
  auto* first = this->add();
  this->add();
  first->label = "first";
  this->container->getAnyPart("geomSwitch", true);
  const Ref<NkNode> node(this->container->copy());
  ASSERT_TRUE(node->isOfType(TypeParam::Container::getClassTypeId()));
  auto* copy = static_cast<typename TypeParam::Container*>(node.get());
  ASSERT_EQ(copy->getNumChildren(), 2);
  EXPECT_NE(copy->getChild(0), first);
  EXPECT_EQ(copy->getChild(0)->label.getValue(), "first");
  EXPECT_EQ(copy->getChild(0)->getParent(), copy);
  EXPECT_EQ(copy->getChild(1)->getParent(), copy);
  EXPECT_EQ(first->getParent(), this->container.get());
  copy->removeAllChildren();
  EXPECT_EQ(this->container->getNumChildren(), 2);
}

TYPED_TEST(Containers, AreCopiedWithoutTheChildrenThatStandTooDeep) {
  this->add();
  this->add();
  Ref<NkNode> root(this->container.get());
  for (int depth = 0; depth < NkAction::kMaxDepth; ++depth) {
    auto* above = new NkGroup;
    above->addChild(root.get());
    root = Ref<NkNode>(above);
  }
  expectMessage("NkNode::copy");
  const Ref<NkNode> copy(root->copy());
  NkNode* node = copy.get();
  while (node->isOfType(NkGroup::getClassTypeId())) node = (*node->getChildren())[0];
  ASSERT_TRUE(node->isOfType(TypeParam::Container::getClassTypeId()));
  auto* copied = static_cast<typename TypeParam::Container*>(node);
  EXPECT_EQ(copied->getNumChildren(), 0);
  auto* child = new typename TypeParam::Child;
  copied->addChild(child);
  EXPECT_EQ(copied->getChild(0), child);
}

// Reading

TYPED_TEST(Containers, AreReadWithTheirChildren) {
  const std::string text = std::string("DEF Outer ") + TypeParam::kKeyword + " { label \"outer\" auditorID \"id\" " +
                           TypeParam::kChildKeyword + " { label \"one\" } " + TypeParam::kChildKeyword +
                           " { label \"two\" enable FALSE } }";
  const auto read = this->template readOne<typename TypeParam::Container>(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->label.getValue(), "outer");
  ASSERT_EQ(read->getNumChildren(), 2);
  EXPECT_EQ(read->getChild(0)->label.getValue(), "one");
  EXPECT_EQ(read->getChild(1)->label.getValue(), "two");
  EXPECT_FALSE(read->getChild(1)->enable.getValue());
  EXPECT_EQ(read->getChild(1)->getParent(), read.get());
  bool wasEnabled = read->enableNotify(true);
  EXPECT_TRUE(wasEnabled);
}

TYPED_TEST(Containers, KeepTheChildrenReadAheadOfAnError) {
  for (const bool isGood : {true, false}) {
    this->container->removeAllChildren();
    const std::string text = std::string("label \"outer\" ") + TypeParam::kChildKeyword + " { label \"one\" }" +
                             (isGood ? "}" : " Cube { } }");
    NkInput in;
    in.setBuffer(text.data(), text.size());
    if (!isGood) expectMessage("Cube");
    EXPECT_EQ(this->container->readInstance(&in, 0), isGood);
    ASSERT_EQ(this->container->getNumChildren(), 1);
    EXPECT_EQ(this->container->getChild(0)->label.getValue(), "one");
    EXPECT_TRUE(this->container->enableNotify(true)) << "what fails behind the fields gives the notification back";
  }
}

namespace {

std::string littleEndian(unsigned number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
  return bytes;
}

std::string counted(const std::string& text) { return littleEndian(static_cast<unsigned>(text.size())) + text; }

/// A node without fields in the binary form; `flags` is 2 for one with children, whose number follows.
std::string binaryNode(const char* keyword, unsigned flags) {
  return counted(keyword) + littleEndian(flags) + littleEndian(0);
}

} // namespace

TYPED_TEST(Containers, AreReadFromTheBinaryForm) {
  using Container = typename TypeParam::Container;
  const std::string child = binaryNode(TypeParam::kChildKeyword, 0);
  const std::string text =
      "#Arbora V2.1 binary\n" + binaryNode(TypeParam::kKeyword, 2) + littleEndian(2) + child + child;
  const auto read = this->template readOne<Container>(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->getNumChildren(), 2);

  // Without the flag the next node stands beside it.
  const Ref<NkSeparator> root = this->read("#Arbora V2.1 binary\n" + binaryNode(TypeParam::kKeyword, 0) + child);
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_EQ(static_cast<Container*>(root->getChild(0))->getNumChildren(), 0);
}

TYPED_TEST(Containers, CloseTheirChildrenWithAMarkInTheFirstBinaryVersion) {
  const std::string empty = binaryNode(TypeParam::kKeyword, 2) + littleEndian(0);
  EXPECT_TRUE(this->read("#Arbora V1.0 binary\n" + empty + littleEndian(0xFFFFFFFFU)));
  expectMessage("error");
  EXPECT_FALSE(this->read("#Arbora V1.0 binary\n" + empty + littleEndian(5)));
  expectMessage("error");
  EXPECT_FALSE(this->read("#Arbora V1.0 binary\n" + empty));
}

TYPED_TEST(Containers, AreNotReadFromABinaryFormThatEndsEarly) {
  const std::string child = binaryNode(TypeParam::kChildKeyword, 0);
  expectMessage("error");
  EXPECT_FALSE(this->read("#Arbora V2.1 binary\n" + binaryNode(TypeParam::kKeyword, 2) + littleEndian(2) + child));
  expectMessage("error");
  EXPECT_FALSE(this->read("#Arbora V2.1 binary\n" + binaryNode(TypeParam::kKeyword, 2)));
  expectMessage("error");
  EXPECT_FALSE(
      this->read("#Arbora V2.1 binary\n" + binaryNode(TypeParam::kKeyword, 2) + littleEndian(0x7FFFFFFFU) + child));
}

TYPED_TEST(Containers, StaySilentWhenTheirFieldsCannotBeRead) {
  const std::string bytes = "#Arbora V2.1 binary\n" + littleEndian(1) + counted("enable");
  NkInput in;
  in.setBuffer(bytes.data(), bytes.size());
  expectMessage("the file ends within a value");
  EXPECT_FALSE(this->container->readInstance(&in, 2));
  EXPECT_FALSE(this->container->enableNotify(true));
}

// Writing

TYPED_TEST(Containers, AreWrittenWithTheirChildrenAndWithoutTheirParts) {
  this->add()->label = "one";
  this->add()->label = "two";
  this->container->getAnyPart("geomSwitch", true);
  const std::string text = this->writeText(this->container.get());
  const std::string expected = std::string("#Arbora V2.1 ascii\n\n") + TypeParam::kKeyword + " {\n  " +
                               TypeParam::kChildKeyword + " {\n    label \"one\"\n  }\n  " + TypeParam::kChildKeyword +
                               " {\n    label \"two\"\n  }\n}\n";
  EXPECT_EQ(text, expected);
  for (const std::string& form : {text, this->writeBinary(this->container.get())}) {
    const auto copy = this->template readOne<typename TypeParam::Container>(form);
    ASSERT_TRUE(copy);
    EXPECT_EQ(this->writeText(copy.get()), text);
  }
}

TYPED_TEST(Containers, WriteASharedChildOnce) {
  auto* shared = this->add();
  shared->label = "shared";
  this->container->addChild(shared);
  for (const std::string& form : {this->writeText(this->container.get()), this->writeBinary(this->container.get())}) {
    const auto copy = this->template readOne<typename TypeParam::Container>(form);
    ASSERT_TRUE(copy);
    ASSERT_EQ(copy->getNumChildren(), 2);
    EXPECT_EQ(copy->getChild(0), copy->getChild(1));
    EXPECT_EQ(copy->getChild(0)->label.getValue(), "shared");
  }
}

TYPED_TEST(Containers, AreWrittenOnceThemselves) {
  const Ref<NkSeparator> root(new NkSeparator);
  this->add();
  root->addChild(this->container.get());
  root->addChild(this->container.get());
  for (const std::string& form : {this->writeText(root.get()), this->writeBinary(root.get())}) {
    const auto copy = this->template readOne<NkSeparator>(form);
    ASSERT_TRUE(copy);
    ASSERT_EQ(copy->getNumChildren(), 2);
    EXPECT_EQ(copy->getChild(0), copy->getChild(1));
    EXPECT_EQ(static_cast<typename TypeParam::Container*>(copy->getChild(0))->getNumChildren(), 1);
  }
  const std::string text = this->writeText(root.get());
  EXPECT_EQ(text.find("DEF"), text.rfind("DEF")) << "its child is used once:\n" << text;
}

TYPED_TEST(Containers, AreWrittenOnAPathUpToTheChildOnIt) {
  this->add()->label = "one";
  this->add()->label = "two";
  this->add()->label = "three";
  this->container->getAnyPart("geomSwitch", true);
  const Ref<NkFullPath> path(NkPath::create(this->container.get()));
  path->append(1);
  for (const bool binary : {false, true}) {
    NkOutput out;
    out.setBinary(binary);
    NkWriteAction(&out).apply(path.get());
    NkInput in;
    in.setBuffer(out.getString().data(), out.getString().size());
    NkBase* object = nullptr;
    ASSERT_TRUE(NkBase::read(&in, object, NkPath::getClassTypeId())) << out.getString();
    ASSERT_TRUE(object);
    const Ref<NkPath> copy(static_cast<NkPath*>(object));
    ASSERT_EQ(copy->full()->getLength(), 2);
    EXPECT_EQ(static_cast<NkPanelix*>(copy->full()->getNode(1))->label.getValue(), "two");
    auto* head = static_cast<typename TypeParam::Container*>(copy->getHead());
    EXPECT_EQ(head->getChild(head->getNumChildren() - 1), copy->full()->getNode(1));
  }
}

TYPED_TEST(Containers, AreWrittenOnAPathIntoTheirParts) {
  this->add();
  this->container->getAnyPart("geomSwitch", true);
  const Ref<NkFullPath> path(NkPath::create(this->container.get()));
  path->append(1);
  NkOutput out;
  NkWriteAction(&out).apply(path.get());
  EXPECT_EQ(out.getString().find("Separator"), std::string::npos) << out.getString();
}

// Searching

TYPED_TEST(Containers, AreSearchedForTheirChildren) {
  this->add();
  auto* child = new Open<typename TypeParam::Child>;
  this->container->addChild(child);
  NkCube* cube = child->showCube(1.0F);
  // The last entry of the list counts as the container's own.
  this->container->getAnyPart("geomSwitch", true);
  NkSearchAction search;
  search.setNode(cube);
  search.setSearchingAll(true);
  search.apply(this->container.get());
  ASSERT_TRUE(search.isFound());
  EXPECT_EQ(search.getPath()->getTail(), child);
  EXPECT_EQ(search.getPath()->full()->getTail(), cube);

  search.reset();
  search.setSearchingAll(true);
  search.setInterest(NkSearchAction::ALL);
  search.setType(NkCube::getClassTypeId());
  search.apply(this->container.get());
  ASSERT_EQ(search.getPaths().getLength(), 1);
  EXPECT_EQ(search.getPaths()[0]->getTail(), child);

  NkBaseKit::setSearchingChildren(false);
  search.reset();
  search.setNode(cube);
  search.setSearchingAll(true);
  search.apply(this->container.get());
  NkBaseKit::setSearchingChildren(true);
  EXPECT_FALSE(search.isFound());
}

TYPED_TEST(Containers, AreSearchedForTheirPartsBehindTheirChildren) {
  auto* child = new Open<typename TypeParam::Child>;
  this->container->addChild(child);
  NkCube* cubeOfChild = child->showCube(1.0F);
  NkCube* cube = this->container->showCube(1.0F);
  NkSearchAction search;
  search.setType(NkCube::getClassTypeId());
  search.apply(this->container.get());
  ASSERT_TRUE(search.isFound());
  EXPECT_EQ(search.getPath()->full()->getTail(), cubeOfChild);
  search.reset();
  search.setNode(cube);
  search.apply(this->container.get());
  ASSERT_TRUE(search.isFound());
  // Other than a child's parts, its own are told.
  EXPECT_EQ(search.getPath()->getTail(), cube);
}

TYPED_TEST(Containers, AreThemselvesFound) {
  this->add();
  NkSearchAction search;
  search.setType(TypeParam::Container::getClassTypeId());
  search.apply(this->container.get());
  ASSERT_TRUE(search.isFound());
  EXPECT_EQ(search.getPath()->full()->getTail(), this->container.get());
}

// Picking

TYPED_TEST(Containers, TellThePickedChild) {
  auto* child = new Open<typename TypeParam::Child>;
  // One without a form stands ahead.
  this->add()->setBuilt3D(1);
  this->container->addChild(child);
  NkCube* cube = child->showCube(2.0F);
  this->container->showCube(1.0F);
  const Ref<NkSeparator> root(new NkSeparator);
  root->addChild(this->container.get());
  NkRayPickAction pick(NbViewportRegion(100, 100));
  pick.setRay(NbVec3f(0, 0, 10), NbVec3f(0, 0, -1));
  pick.apply(root.get());
  const NkPickedPoint* point = pick.getPickedPoint();
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->getPath()->getTail(), child);
  EXPECT_EQ(point->getPath()->full()->getTail(), cube);
  const auto* detail = static_cast<const NkNodeKitDetail*>(point->getDetail(child));
  ASSERT_NE(detail, nullptr);
  EXPECT_EQ(detail->getNodeKit(), child);
}

TYPED_TEST(Containers, TellThePickOfTheirOwnParts) {
  auto* child = new Open<typename TypeParam::Child>;
  this->container->addChild(child);
  child->showCube(1.0F);
  NkCube* cube = this->container->showCube(2.0F);
  const Ref<NkSeparator> root(new NkSeparator);
  root->addChild(this->container.get());
  NkRayPickAction pick(NbViewportRegion(100, 100));
  pick.setRay(NbVec3f(0, 0, 10), NbVec3f(0, 0, -1));
  pick.apply(root.get());
  const NkPickedPoint* point = pick.getPickedPoint();
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->getPath()->getTail(), this->container.get());
  EXPECT_EQ(point->getPath()->full()->getTail(), cube);
  const auto* detail = static_cast<const NkNodeKitDetail*>(point->getDetail(this->container.get()));
  ASSERT_NE(detail, nullptr);
  EXPECT_EQ(detail->getNodeKit(), this->container.get());
}

// Containers in containers

class NestedContainers : public DialogTest {
protected:
  /// Checks that the call is refused under the name of that operation.
  template <class Call>
  static void expectRefused(const char* operation, Call&& call) {
    const ExpectMessages message({std::string(operation) + "(): The child node is this container or holds it"});
    call();
  }
};

TEST_F(NestedContainers, HoldNeitherThemselvesNorWhatHoldsThem) {
  const Ref<NkRowDialog> outer(new NkRowDialog);
  auto* middle = new NkColumnDialog;
  auto* inner = new NkRowDialog;
  outer->addChild(middle);
  middle->addChild(inner);
  inner->addChild(new NkDialogComponent);
  expectRefused("NkDialogGroup::addChild", [&] { outer->addChild(outer.get()); });
  expectRefused("NkDialogGroup::addChild", [&] { inner->addChild(outer.get()); });
  expectRefused("NkDialogGroup::insertChild", [&] { inner->insertChild(middle, 0); });
  expectRefused("NkDialogGroup::replaceChild", [&] { inner->replaceChild(0, outer.get()); });
  EXPECT_EQ(outer->getNumChildren(), 1);
  EXPECT_EQ(inner->getNumChildren(), 1);
  EXPECT_EQ(outer->getParent(), nullptr);
  EXPECT_EQ(middle->getParent(), outer.get());
  EXPECT_EQ(outer->getRefCount(), 1);
}

TEST_F(NestedContainers, HoldNoneThatHoldsThemBySomeOtherParent) {
  // The group stands in two rows, and its parent is the one that came last.
  const Ref<NkRowDialog> first(new NkRowDialog);
  const Ref<NkRowDialog> last(new NkRowDialog);
  auto* shared = new NkColumnDialog;
  first->addChild(shared);
  last->addChild(shared);
  expectRefused("NkDialogGroup::addChild", [&] { shared->addChild(first.get()); });
  expectRefused("NkDialogGroup::addChild", [&] { shared->addChild(last.get()); });
  EXPECT_EQ(shared->getNumChildren(), 0);
}

TEST_F(NestedContainers, EndTheirWindowsBehindThoseOfTheirChildrenInOrder) {
  class Row : public NkRowDialog {
  public:
    using NkRowDialog::m_built2D;
  };
  std::string order;
  const Ref<Row> row(new Row);
  for (const char* name : {"first", "second", "third"}) {
    auto* child = new Watched<NkColumnDialog>;
    child->atEndOfWindows = [&order, &isBuilt = row->m_built2D, name] {
      order += std::string(name) + (isBuilt ? " " : " late ");
    };
    row->addChild(child);
  }
  row->m_built2D = 1;
  row->destroyWidget();
  EXPECT_EQ(order, "first second third ");
  EXPECT_EQ(row->m_built2D, 0);
}

TEST_F(NestedContainers, HoldNoDialogThatLaunchesThem) {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* launcher = new NkDialogPushButtonLauncher;
  auto* popup = new NkMenuPopup;
  auto* inMenu = new NkMenuCheckBoxLauncher;
  auto* bar = new NkMenuBar;
  dialog->addChild(bar);
  bar->addChild(popup);
  popup->addChild(inMenu);
  dialog->addChild(launcher);
  expectRefused("NkDialogPushButtonLauncher::addChild", [&] { launcher->addChild(dialog.get()); });
  expectRefused("NkMenuCheckBoxLauncher::addChild", [&] { inMenu->addChild(dialog.get()); });
  expectRefused("NkMenuPopup::addChild", [&] { popup->addChild(popup); });
  EXPECT_EQ(launcher->getNumChildren(), 0);
  EXPECT_EQ(popup->getNumChildren(), 1);
}

TEST_F(NestedContainers, OfAFileHoldNeitherThemselvesNorWhatHoldsThem) {
  for (const char* text : {"DEF Own RowDialog { USE Own }", "DEF Own RowDialog { ColumnDialog { USE Own } }"}) {
    const ExpectMessages message({"'Own' can't contain itself"});
    EXPECT_FALSE(read(text)) << text;
  }
}

TEST_F(NestedContainers, LookThroughEachNodeAboveThemOnce) {
  const Ref<NkRowDialog> row(new NkRowDialog);
  Ref<NkNode> top(row.get());
  for (int level = 0; level < 100; ++level) {
    const Ref<NkGroup> group(new NkGroup);
    group->addChild(top.get());
    group->addChild(top.get());
    top = Ref<NkNode>(group.get());
  }
  row->addChild(new NkColumnDialog);
  EXPECT_EQ(row->getNumChildren(), 1);
}
