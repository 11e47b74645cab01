#include "arbora/base/NkPreferences.h"

#include "arbora/base/NbFileHelper.h"
#include "tests/base/Environment.h"
#include "tests/support/TestSupport.h"

#include <gtest/gtest.h>
#include <string>

namespace {

class Preferences : public ::testing::Test {
protected:
  Preferences() : m_path(outputDir() + "/settings"), m_variable("ARBORA_SETTINGS", m_path.c_str()) {}

  ~Preferences() override {
    NkPreferences::removeValue("PREF_A");
    setFile("");
  }

  void setFile(const std::string& text) {
    std::FILE* file = NbFileHelper::open(m_path, "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    NkPreferences::reload();
  }

  std::string m_path;
  EnvironmentVariable m_variable;
};

TEST_F(Preferences, AbsentNamesGiveNullOrTheDefault) {
  setFile("");
  EXPECT_EQ(NkPreferences::getValue("PREF_A"), nullptr);
  EXPECT_EQ(NkPreferences::getStringValue("PREF_A"), nullptr);
  EXPECT_EQ(NkPreferences::getValue(nullptr), nullptr);
  EXPECT_EQ(NkPreferences::getValue(""), nullptr);
  EXPECT_EQ(NkPreferences::getString("PREF_A", "default"), "default");
  EXPECT_EQ(NkPreferences::getInt("PREF_A", 3), 3);
}

TEST_F(Preferences, ProgramThenEnvironmentThenFile) {
  setFile("PREF_A = file\n");
  EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "file");
  {
    EnvironmentVariable variable("PREF_A", "environment");
    EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "environment");
    variable.set("changed");
    EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "changed");
    NkPreferences::setString("PREF_A", "program");
    EXPECT_EQ(*NkPreferences::getStringValue("PREF_A"), "program");
    NkPreferences::removeValue("PREF_A");
    EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "changed");
  }
  EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "file");
}

TEST_F(Preferences, PointersHoldWhileOtherNamesChange) {
  setFile("PREF_B = 1\n");
  NkPreferences::setString("PREF_A", "kept");
  const char* program = NkPreferences::getValue("PREF_A");
  const NbString* file = NkPreferences::getStringValue("PREF_B");
  for (int i = 0; i < 100; ++i) {
    const std::string name = "PREF_OTHER" + std::to_string(i);
    NkPreferences::setString(name.c_str(), "x");
    NkPreferences::removeValue(name.c_str());
  }
  setFile("PREF_B = 1\nPREF_C = 2\n");
  EXPECT_STREQ(program, "kept");
  EXPECT_EQ(*file, "1");
  EXPECT_EQ(NkPreferences::getStringValue("PREF_B"), file);
}

TEST_F(Preferences, ReadsNamesAndValuesFromTheFile) {
  setFile(
      "\xEF\xBB\xBF# a comment\r\n\r\n  PREF_A=a = b  \r\nPREF_B =\nPREF_A = last # no comment\nPREF_C = caf\xC3\xA9");
  EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "last # no comment");
  EXPECT_STREQ(NkPreferences::getValue("PREF_B"), "");
  EXPECT_EQ(*NkPreferences::getStringValue("PREF_C"), NbString("caf\xE9"));
  setFile("PREF_B = new\n");
  EXPECT_EQ(NkPreferences::getValue("PREF_A"), nullptr);
  EXPECT_STREQ(NkPreferences::getValue("PREF_B"), "new");
}

TEST_F(Preferences, MalformedLinesAreReportedOnceAndSkipped) {
  {
    const ExpectMessages expected({m_path + ":1:1: error: ", m_path + ":3:1: error: ", m_path + ":4:1: error: "});
    setFile("no equals sign\nPREF_A = good\n= nameless\ntwo words = x\n");
  }
  EXPECT_STREQ(NkPreferences::getValue("PREF_A"), "good");
  EXPECT_EQ(NkPreferences::getValue("PREF_B"), nullptr);
}

TEST_F(Preferences, ANamedFileThatIsMissingIsReported) {
  setFile("");
  m_variable.set((m_path + "-missing").c_str());
  const ExpectMessages expected({"settings-missing: error: "});
  NkPreferences::reload();
  m_variable.set(m_path.c_str());
}

TEST_F(Preferences, ConvertsNumbersAndTruth) {
  setFile("PREF_A = 12\nPREF_F = 2.5\nPREF_T = Yes\nPREF_N = OFF\nPREF_X = what\n");
  EXPECT_EQ(NkPreferences::getInt("PREF_A", 0), 12);
  EXPECT_FLOAT_EQ(NkPreferences::getFloat("PREF_F", 0), 2.5F);
  EXPECT_TRUE(NkPreferences::getBool("PREF_T", false));
  EXPECT_FALSE(NkPreferences::getBool("PREF_N", true));
  EXPECT_EQ(NkPreferences::getInt("PREF_X", 9), 9);
  EXPECT_FLOAT_EQ(NkPreferences::getFloat("PREF_X", 1.5F), 1.5F);
  EXPECT_TRUE(NkPreferences::getBool("PREF_X", true));
  EXPECT_FALSE(NkPreferences::getBool("PREF_X", false));
}

TEST_F(Preferences, ANameIsNeeded) {
  const ExpectMessages expected({"NkPreferences::setString", "NkPreferences::setString"});
  NkPreferences::setString("", "x");
  NkPreferences::setString(nullptr, "x");
}

} // namespace
