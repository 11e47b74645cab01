#include "arbora/base/NbFileHelper.h"

#include "tests/base/Environment.h"
#include "tests/support/TestSupport.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

void write(const NbString& path, const std::string& text) {
  std::FILE* file = NbFileHelper::open(path, "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(text.data(), 1, text.size(), file);
  std::fclose(file);
}

TEST(NbFileHelper, KnowsWhetherAPathExists) {
  const NbString folder = NbString::fromUtf8(outputDir());
  EXPECT_EQ(NbFileHelper::isAccessible(folder, 0), 1);
  EXPECT_TRUE(NbFileHelper::isDirectory(folder));
  EXPECT_EQ(NbFileHelper::isAccessible(folder + "/no such file", 0), 0);
  EXPECT_EQ(NbFileHelper::isAccessible(""), 0);
}

TEST(NbFileHelper, ReadsAndWritesUnderAnyName) {
  // Fresh, so that no file of an earlier run answers to one of the names.
  const std::filesystem::path fresh = std::filesystem::path(outputDir()) / "names";
  std::filesystem::remove_all(fresh);
  std::filesystem::create_directories(fresh);
  const NbString folder = NbString::fromUtf8(outputDir()) + "/names";
  const std::string content = std::string("a\r\nb\0c", 6) + std::string(100000, 'x');
  for (const NbString& name : {NbString("plain.txt"), NbString(L"w\u00EFde \u4E2D.txt"), NbString("latin\xE9.txt")}) {
    const NbString path = folder + "/" + name;
    write(path, content);
    EXPECT_EQ(NbFileHelper::isAccessible(path), 1);
    EXPECT_EQ(NbFileHelper::isAccessible(path, 4), 1);
    std::string text;
    EXPECT_TRUE(NbFileHelper::readWholeFile(path, text));
    EXPECT_EQ(text, content);
  }
  // The three forms of one name.
  EXPECT_EQ(NbFileHelper::isAccessible(folder + L"/latin\u00E9.txt"), 1);
  EXPECT_EQ(NbFileHelper::isAccessible(NbString(outputDir()) + "/names/latin\xC3\xA9.txt"), 1);
}

TEST(NbFileHelper, SaysWhyAFileCannotBeRead) {
  std::string text = "before";
  std::string why;
  EXPECT_FALSE(NbFileHelper::readWholeFile(NbString(outputDir()) + "/none", text, &why));
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(why, "No such file or directory");
  EXPECT_FALSE(NbFileHelper::readWholeFile(outputDir(), text, &why));
  EXPECT_EQ(why, "Is a directory");
}

TEST(NbFileHelper, TakesPathsApart) {
  struct Case {
    const char* path;
    const char* dir;
    const char* base;
    const char* extension;
    bool absolute;
  };
  const Case cases[] = {
      {"/a/b.c.txt", "/a", "b.c.txt", "txt", true},
      {"b", "", "b", "", false},
      {"/b.x", "/", "b.x", "x", true},
      {"a//b", "a", "b", "", false},
      {"C:\\x\\y.z", "C:\\x", "y.z", "z", true},
      {"C:\\y", "C:\\", "y", "", true},
      {"C:y", "C:", "y", "", false},
      {"a.b/.hidden", "a.b", ".hidden", "", false},
      {"a/", "a", "", "", false},
      {"", "", "", "", false},
      {"name.", "", "name.", "", false},
      {"/", "/", "", "", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(NbFileHelper::getDirName(c.path), c.dir) << c.path;
    EXPECT_EQ(NbFileHelper::getBaseName(c.path), c.base) << c.path;
    EXPECT_EQ(NbFileHelper::getExtension(c.path), c.extension) << c.path;
    EXPECT_EQ(NbFileHelper::isAbsolutePath(c.path), c.absolute) << c.path;
  }
  EXPECT_TRUE(NbFileHelper::isAbsolutePath(NbFileHelper::currentDirectory()));
}

TEST(NbFileHelper, TurnsBackslashes) {
  EXPECT_EQ(NbFileHelper::toUnixPath("a\\b/c\\"), "a/b/c/");
  EXPECT_EQ(NbFileHelper::toUnixPath(L"\u4E2D\\x"), NbString(L"\u4E2D/x"));
}

TEST(NbFileHelper, ExpandsTheEnvironment) {
  const EnvironmentVariable variable("ARBORA_TEST_DIR", "here");
#ifdef _WIN32
  const EnvironmentVariable home("USERPROFILE", "/home/me");
#else
  const EnvironmentVariable home("HOME", "/home/me");
#endif
  EXPECT_EQ(NbFileHelper::expandString("$ARBORA_TEST_DIR/x"), "here/x");
  EXPECT_EQ(NbFileHelper::expandString("a${ARBORA_TEST_DIR}b"), "ahereb");
  EXPECT_EQ(NbFileHelper::expandString(L"\u4E2D$ARBORA_TEST_DIR"), NbString(L"\u4E2Dhere"));
  EXPECT_EQ(NbFileHelper::expandString("~/x"), "/home/me/x");
  EXPECT_EQ(NbFileHelper::expandString("~"), "/home/me");
  for (const char* text : {"", "$", "$$", "${", "${}", "${ARBORA_TEST_DIR", "$ARBORA_TEST_NONE/x", "a~", "~x", "5$"}) {
    EXPECT_EQ(NbFileHelper::expandString(text), text);
  }
}

TEST(NbFileHelper, ExpandedValuesKeepTheirCharacters) {
  // The test needs a character that every code page has.
  const EnvironmentVariable variable("ARBORA_TEST_DIR", "d$ARBORA_TEST_DIR");
  EXPECT_EQ(NbFileHelper::expandString("$ARBORA_TEST_DIR"), "d$ARBORA_TEST_DIR");
}

} // namespace
