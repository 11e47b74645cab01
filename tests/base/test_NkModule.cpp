#include "arbora/base/NkModule.h"

#include "fanout/FanoutInitModuleCmd.h"

#include <gtest/gtest.h>

namespace {

const NkModule s_module("test module", "1.2.3", "built for tests");

TEST(NkModule, StaticObjectsAreListed) {
  const NkModule* found = NkModule::find("test module");
  ASSERT_EQ(found, &s_module);
  EXPECT_STREQ(found->getVersion(), "1.2.3");
  EXPECT_STREQ(found->getBuildData(), "built for tests");
  EXPECT_EQ(NkModule::find("other"), nullptr);
  EXPECT_EQ(NkModule::find(nullptr), nullptr);
}

TEST(NkModule, LeavesTheListWhenDestroyed) {
  const std::size_t before = NkModule::getModules().size();
  {
    const NkModule module("short", "1", nullptr);
    EXPECT_EQ(NkModule::getModules().size(), before + 1);
    EXPECT_EQ(NkModule::getModules().back(), &module);
    EXPECT_STREQ(module.getBuildData(), "");
  }
  EXPECT_EQ(NkModule::find("short"), nullptr);
  EXPECT_EQ(NkModule::getModules().size(), before);
}

TEST(FanoutInitModuleCmd, RemembersAnnouncedModules) {
  FanoutInitModuleCmd& command = FanoutInitModuleCmd::Instance();
  EXPECT_EQ(&command, &FanoutInitModuleCmd::Instance());
  EXPECT_FALSE(command.announced("TestModule"));
  command.serialize("TestModule");
  command.serialize("TestModule");
  command.serialize(nullptr);
  EXPECT_TRUE(command.announced("TestModule"));
  EXPECT_FALSE(command.announced(nullptr));
}

} // namespace
