#pragma once

#include <gtest/gtest.h>

#include <string>

#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkInteraction.h"
#include "arbora/scene/NkNodeKit.h"
#include "arbora/scene/NkSeparator.h"
#include "tests/support/TestSupport.h"

/// Fixture with the scene library in use. Objects that outlive their test fail it.
class SceneTest : public ::testing::Test {
protected:
  SceneTest() {
    static const bool s_counted = registerLeakCounter("scene objects", &NkBase::getLiveCount);
    static_cast<void>(s_counted);
    NkDB::init();
    NkNodeKit::init();
    NkInteraction::init();
  }
  ~SceneTest() override {
    NkInteraction::finish();
    NkNodeKit::finish();
    NkDB::finish();
  }

  /// The scene of a text; NULL if it can't be read.
  static arbora::Ref<NkSeparator> read(const std::string& text) {
    NkInput in;
    in.setBuffer(text.data(), text.size());
    return arbora::Ref<NkSeparator>(NkDB::readAll(&in));
  }
};
