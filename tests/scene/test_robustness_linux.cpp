#include <pthread.h>

#include <functional>

#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkWriteAction.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

// Scenes of the greatest depth, on the call stack that programs of other makers have on Windows.

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SANITIZED_FRAMES 1
#endif
#endif
#ifdef SANITIZED_FRAMES
constexpr std::size_t kStackSize = std::size_t{8} << 20U; // Its frames are many times as large.
#else
constexpr std::size_t kStackSize = std::size_t{1} << 20U;
#endif

/// Runs a function to its end on a thread with that much of a stack.
void runOnSmallStack(const std::function<void()>& function) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackSize), 0);
  pthread_t thread{};
  const auto run = [](void* data) -> void* {
    (*static_cast<const std::function<void()>*>(data))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&function)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

class Kit : public NkInteractionKit {
  NK_KIT_HEADER(Kit);

public:
  NkSFNode content;
  Kit() {
    NK_KIT_CONSTRUCTOR(Kit);
    NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(content, NkNode, NkCube, true, "geomSeparator", "", true);
    NK_KIT_INIT_INSTANCE();
  }

protected:
  ~Kit() override = default;
};
NK_KIT_SOURCE(Kit, NkInteractionKit, "DeepKit");

enum Kind { SEPARATORS, GROUPS, SWITCHES, KITS, MIXED };

class SmallStack : public SceneTest, public ::testing::WithParamInterface<Kind> {
protected:
  SmallStack() {
    Kit::initClass();
    m_root = Ref<NkNode>(m_cube = new NkCube);
    // A kit has two separators around its content.
    constexpr int kKitLevels = 3;
    for (int levels = 1; levels < NkAction::kMaxDepth - kKitLevels;) {
      const Kind kind = GetParam() == MIXED ? static_cast<Kind>(levels % MIXED) : GetParam();
      levels += kind == KITS ? kKitLevels : 1;
      m_root = Ref<NkNode>(around(kind, m_root.get()));
    }
  }
  ~SmallStack() override {
    runOnSmallStack([this] { m_root = Ref<NkNode>(); });
    Kit::exitClass();
  }

  static NkNode* around(Kind kind, NkNode* node) {
    if (kind == KITS) {
      auto* kit = new Kit;
      kit->setPart("content", node);
      return kit;
    }
    NkGroup* group = nullptr;
    if (kind == SEPARATORS) {
      group = new NkSeparator;
    } else if (kind == SWITCHES) {
      auto* choice = new NkSwitch;
      choice->whichChild = 0;
      group = choice;
    } else {
      group = new NkGroup;
    }
    group->addChild(node);
    return group;
  }

  Ref<NkFullPath> pathToCube() {
    NkSearchAction search;
    search.setNode(m_cube);
    search.apply(m_root.get());
    return Ref<NkFullPath>(search.getPath() ? search.getPath()->full() : nullptr);
  }

  Ref<NkNode> m_root;
  NkCube* m_cube = nullptr;
};

} // namespace

TEST_P(SmallStack, MeasuresPicksAndDraws) {
  runOnSmallStack([this] {
    NkRayPickAction pick(NbViewportRegion(100, 100));
    pick.setRay(NbVec3f(0, 0, 10), NbVec3f(0, 0, -1));
    pick.apply(m_root.get());
    EXPECT_EQ(pick.getPickedPointsListLength(), 1);

    NkGetBoundingBoxAction measure;
    m_cube->width = 5;
    measure.apply(m_root.get());
    EXPECT_FLOAT_EQ(measure.getBoundingBox().getSize()[0], 5);

    arbora::RecordingBackend backend;
    NkGLRenderAction draw(NbViewportRegion(100, 100));
    draw.setBackend(&backend);
    for (int i = 0; i < 2; ++i) {
      draw.apply(m_root.get());
      EXPECT_EQ(backend.getDrawnInstances().size(), 1U);
      m_cube->width = 6;
    }
  });
}

TEST_P(SmallStack, SearchesAndFollowsPaths) {
  runOnSmallStack([this] {
    const Ref<NkFullPath> path = pathToCube();
    ASSERT_TRUE(path);
    NkGetMatrixAction().apply(path.get());
    NkGetBoundingBoxAction measure;
    measure.apply(path.get());
    EXPECT_FALSE(measure.getBoundingBox().isEmpty());

    NkCallbackAction walk;
    int visited = 0;
    const auto count = [](void* data, NkCallbackAction*, const NkNode*) {
      ++*static_cast<int*>(data);
      return NkCallbackAction::CONTINUE;
    };
    walk.addPreCallback(NkNode::getClassTypeId(), count, &visited);
    walk.apply(m_root.get());
    EXPECT_EQ(visited, path->getLength());

    NkHandleEventAction events(NbViewportRegion(100, 100));
    const NkLocation2Event motion;
    events.setEvent(&motion);
    events.apply(m_root.get());
    EXPECT_FALSE(events.isHandled());
  });
}

TEST_P(SmallStack, TellsOfChanges) {
  runOnSmallStack([this] {
    int told = 0;
    NkNodeSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &told);
    sensor.setPriority(0);
    sensor.attach(m_root.get());
    m_cube->width = 3;
    EXPECT_EQ(told, 1);
  });
}

TEST_P(SmallStack, CopiesWritesAndReads) {
  runOnSmallStack([this] {
    const Ref<NkNode> copy(m_root->copy());
    EXPECT_TRUE(copy);
    NkOutput out;
    NkWriteAction(&out).apply(m_root.get());
    NkOutput copyOut;
    NkWriteAction(&copyOut).apply(copy.get());
    EXPECT_EQ(out.getString(), copyOut.getString());
    EXPECT_TRUE(read(out.getString()));
  });
}

INSTANTIATE_TEST_SUITE_P(All, SmallStack, ::testing::Values(SEPARATORS, GROUPS, SWITCHES, KITS, MIXED));
