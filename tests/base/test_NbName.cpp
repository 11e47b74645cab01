#include "arbora/base/NbName.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

namespace {

TEST(NbName, EqualTextsAreOneObject) {
  const NbName a("frame");
  const NbName b(NbString(L"frame"));
  const NbName c(std::string_view("frames").substr(0, 5));
  EXPECT_EQ(a, b);
  EXPECT_EQ(a, c);
  EXPECT_EQ(a.getString(), b.getString());
  EXPECT_NE(a, NbName("frames"));
  EXPECT_TRUE(a == "frame");
  EXPECT_TRUE(a != "other");
  EXPECT_EQ(a.getLength(), 5);
  EXPECT_EQ(sizeof(NbName), sizeof(void*));
}

TEST(NbName, ATextIsReadAnewAtEachPlace) {
  char text[] = "frame";
  const NbName before(text);
  text[0] = 'F';
  EXPECT_EQ(NbName(text), NbName(std::string("Frame")));
  text[0] = '\0';
  EXPECT_TRUE(!NbName(text));
  text[0] = 'f';
  EXPECT_EQ(NbName(text), before);
}

TEST(NbName, EmptyNamesAreEqual) {
  EXPECT_TRUE(!NbName());
  EXPECT_TRUE(!NbName(""));
  EXPECT_TRUE(!NbName(static_cast<const char*>(nullptr)));
  EXPECT_EQ(NbName(""), NbName::empty());
  EXPECT_STREQ(NbName().getString(), "");
  EXPECT_FALSE(!NbName("x"));
}

TEST(NbName, ServesAsAKey) {
  std::map<NbName, int> ordered{{NbName("a"), 1}, {NbName("b"), 2}};
  const std::unordered_set<NbName> hashed{NbName("a")};
  EXPECT_EQ(ordered[NbName("b")], 2);
  EXPECT_EQ(hashed.count(NbName("a")), 1U);
  EXPECT_EQ(hashed.count(NbName("c")), 0U);
}

TEST(NbName, IsOneObjectAcrossThreads) {
  std::vector<std::vector<const char*>> seen(4);
  std::vector<std::thread> threads;
  for (auto& mine : seen) {
    threads.emplace_back([&mine] {
      for (int i = 0; i < 500; ++i) {
        mine.push_back(NbName(std::string("threaded") + std::to_string(i)).getString());
      }
    });
  }
  for (auto& thread : threads) {
    thread.join();
  }
  for (const auto& mine : seen) {
    EXPECT_EQ(mine, seen[0]);
  }
}

TEST(NbName, KnowsWhatAFileCanHold) {
  EXPECT_TRUE(NbName::isIdentStartChar('a'));
  EXPECT_TRUE(NbName::isIdentStartChar('_'));
  EXPECT_TRUE(NbName::isIdentStartChar('\xE9'));
  EXPECT_FALSE(NbName::isIdentStartChar('7'));
  EXPECT_TRUE(NbName::isIdentChar('7'));
  for (const char c : std::string("\"'+.\\{}#,[] \t\n\x7F")) {
    EXPECT_FALSE(NbName::isIdentChar(c)) << static_cast<int>(c);
  }
  EXPECT_FALSE(NbName::isIdentChar('\0'));
}

} // namespace
