#include "arbora/base/NbString.h"

#include "arbora/base/NbStringList.h"
#include "tests/support/TestSupport.h"

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <unordered_set>

namespace {

TEST(NbString, IsMadeFromBytesAndFromWideCharacters) {
  EXPECT_TRUE(NbString().isEmpty());
  EXPECT_TRUE(NbString(static_cast<const char*>(nullptr)).isEmpty());
  EXPECT_EQ(NbString("caf\xE9").getLength(), 4);
  EXPECT_FALSE(NbString("a").isUnicode());
  EXPECT_TRUE(NbString(L"a").isUnicode());
  EXPECT_TRUE(NbString(static_cast<const wchar_t*>(nullptr)).isEmpty());
  EXPECT_EQ(NbString(std::string("a\0b", 3)).getLength(), 3);
}

TEST(NbString, NarrowAndWideCompareByCharacters) {
  EXPECT_EQ(NbString("caf\xE9"), NbString(L"caf\u00E9"));
  EXPECT_NE(NbString("cafe"), NbString(L"caf\u00E9"));
  EXPECT_NE(NbString("a"), NbString(L"ab"));
  EXPECT_TRUE(NbString("abc") == "abc");
  EXPECT_TRUE(NbString(L"\u00E9") == "\xE9");
  EXPECT_TRUE(NbString("b") < NbString(L"\u00E9"));
  EXPECT_FALSE(NbString(L"\u00E9") < NbString("\xE9"));
}

TEST(NbString, EqualTextsHaveEqualHashes) {
  std::unordered_set<NbString> texts{NbString("caf\xE9")};
  EXPECT_EQ(texts.count(NbString(L"caf\u00E9")), 1U);
  EXPECT_EQ(texts.count(NbString("cafe")), 0U);
}

TEST(NbString, JoiningAWideTextMakesItWide) {
  NbString text("caf\xE9");
  text += " ";
  EXPECT_FALSE(text.isUnicode());
  text += L"\u4E2D";
  EXPECT_TRUE(text.isUnicode());
  text += NbString("\xE9");
  EXPECT_EQ(text, NbString(L"caf\u00E9 \u4E2D\u00E9"));
  EXPECT_EQ("a" + NbString("b") + "c", "abc");
  text += text;
  EXPECT_EQ(text.getLength(), 14);
}

TEST(NbString, SubStringIncludesBothEnds) {
  const NbString text("hello");
  EXPECT_EQ(text.getSubString(1, 3), "ell");
  EXPECT_EQ(text.getSubString(2, 2), "l");
  EXPECT_EQ(text.getSubString(2), "llo");
  EXPECT_EQ(text.getSubString(0, -1), "hello");
  EXPECT_EQ(text.getSubString(3, 100), "lo");
  EXPECT_EQ(text.getSubString(-7, 1), "he");
  EXPECT_TRUE(text.getSubString(3, 2).isEmpty());
  EXPECT_TRUE(text.getSubString(5).isEmpty());
  EXPECT_TRUE(text.getSubString(0, -2).isEmpty());
  EXPECT_TRUE(NbString().getSubString(0).isEmpty());
  EXPECT_TRUE(NbString(L"wide").getSubString(1, 2).isUnicode());
}

TEST(NbString, FindsAcrossNarrowAndWide) {
  const NbString text("one two one");
  EXPECT_EQ(text.find("one"), 0);
  EXPECT_EQ(text.find("one", 1), 8);
  EXPECT_EQ(text.find(L"two"), 4);
  EXPECT_EQ(text.find("three"), NbString::npos);
  EXPECT_EQ(text.find("", 3), 3);
  EXPECT_EQ(text.find("e", 100), NbString::npos);
  EXPECT_EQ(text.find("one", -5), 0);
  EXPECT_EQ(NbString(L"caf\u00E9").find("\xE9"), 3);
}

TEST(NbString, ConvertsToLatin1AndWide) {
  EXPECT_EQ(NbString(L"\u00E9\u4E2D").toLatin1(), "\xE9?");
  EXPECT_EQ(NbString("\xE9").toWideChar(), L"\u00E9");
  EXPECT_EQ(NbString("ab").latin1View(), "ab");
  NbString text("narrow");
  text.fromWideChar(L"plain");
  EXPECT_TRUE(text.isUnicode());
  EXPECT_EQ(text, "plain");
  text.makeEmpty();
  EXPECT_TRUE(text.isEmpty());
}

TEST(NbString, Utf8GoesBothWays) {
  EXPECT_FALSE(NbString::fromUtf8("plain").isUnicode());
  const char* text = "caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80";
  EXPECT_TRUE(NbString::fromUtf8(text).isUnicode());
  EXPECT_EQ(NbString::fromUtf8(text).toUtf8(), text);
  EXPECT_EQ(NbString("\xE9").toUtf8(), "\xC3\xA9");
}

TEST(NbString, MalformedUtf8IsTakenAsLatin1) {
  EXPECT_EQ(NbString::fromUtf8("a\xE9z"), NbString("a\xE9z"));
  EXPECT_EQ(NbString::fromUtf8("\xC0\x80"), NbString("\xC0\x80"));         // too long a form
  EXPECT_EQ(NbString::fromUtf8("\xED\xA0\x80"), NbString("\xED\xA0\x80")); // a surrogate
  EXPECT_EQ(NbString::fromUtf8("\xE4\xB8"), NbString("\xE4\xB8"));         // cut short
}

TEST(NbString, NumbersAreWrittenInTheFewestDigits) {
  EXPECT_EQ(NbString().setNum(-42), "-42");
  EXPECT_EQ(NbString().setNum(0.1F), "0.1");
  EXPECT_EQ(NbString().setNum(0.1), "0.1");
  EXPECT_EQ(NbString().setNum(100000.0F), "100000");
  EXPECT_EQ(NbString().setNum(999.01F), "999.01");
  EXPECT_EQ(NbString().setNum(0.0F), "0");
  EXPECT_EQ(NbString().setNum(1e20F), "1e+20");
}

TEST(NbString, WrittenNumbersReadBackEqual) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::uint32_t> bits;
  for (int i = 0; i < 20000; ++i) {
    const std::uint32_t pattern = bits(random);
    float value = 0;
    std::memcpy(&value, &pattern, sizeof value);
    if (std::isfinite(value)) {
      ASSERT_EQ(NbString().setNum(value).toFloat(), value);
      const double precise = static_cast<double>(value) / 3;
      ASSERT_EQ(NbString().setNum(precise).toDouble(), precise);
    }
  }
}

TEST(NbString, ReadsTheLeadingNumber) {
  bool ok = false;
  EXPECT_EQ(NbString("  12abc").toInt(&ok), 12);
  EXPECT_TRUE(ok);
  EXPECT_EQ(NbString("+7").toInt(), 7);
  EXPECT_EQ(NbString("3.9").toInt(), 3);
  EXPECT_FLOAT_EQ(NbString("-2.5e2kg").toFloat(), -250.0F);
  EXPECT_FLOAT_EQ(NbString(L".5").toFloat(), 0.5F);
  EXPECT_FLOAT_EQ(NbString("2e").toFloat(), 2.0F);
}

TEST(NbString, NoNumberGivesZero) {
  for (const char* text : {"", "abc", "-", ".", "+-3", "- 3", "nan", "inf", "-infinity"}) {
    bool ok = true;
    EXPECT_EQ(NbString(text).toFloat(&ok), 0.0F) << text;
    EXPECT_FALSE(ok) << text;
    EXPECT_EQ(NbString(text).toInt(), 0) << text;
  }
}

TEST(NbString, NumbersOutOfRangeGiveTheNearest) {
  EXPECT_EQ(NbString("99999999999").toInt(), INT_MAX);
  EXPECT_EQ(NbString("-99999999999").toInt(), INT_MIN);
  EXPECT_EQ(NbString("1e99").toFloat(), FLT_MAX);
  EXPECT_EQ(NbString("-1e99").toFloat(), -FLT_MAX);
  EXPECT_EQ(NbString("1e-99").toFloat(), 0.0F);
  EXPECT_EQ(NbString("1e99999999999999999999").toDouble(), DBL_MAX);
  EXPECT_EQ(NbString("1e-99999999999999999999").toDouble(), 0.0);
  EXPECT_EQ(NbString(std::string(500, '9')).toDouble(), DBL_MAX);
  EXPECT_EQ(NbString("0." + std::string(500, '0') + "1").toDouble(), 0.0);
}

constexpr const char* kCommaLocales[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany.1252", "de-DE"};

// Sets the first locale with a decimal comma that the system has, else leaves the plain one.
bool setCommaLocale() {
  for (const char* name : kCommaLocales) {
    if (std::setlocale(LC_ALL, name) && std::localeconv()->decimal_point[0] == ',') {
      return true;
    }
  }
  return false;
}

// NULL where the system has no such locale.
NbLocale createCommaLocale() {
  for (const char* name : kCommaLocales) {
#ifdef _WIN32
    const NbLocale locale = _create_locale(LC_NUMERIC, name);
#else
    const NbLocale locale = newlocale(LC_NUMERIC_MASK, name, nullptr);
#endif
    if (locale) {
      return locale;
    }
  }
  return nullptr;
}

void freeLocale(NbLocale locale) {
#ifdef _WIN32
  _free_locale(locale);
#else
  freelocale(locale);
#endif
}

TEST(NbString, NumbersDoNotDependOnTheProgramsLocale) {
  // Without a locale with a comma this shows no more than that the plain one works.
  RecordProperty("commaLocale", setCommaLocale() ? "yes" : "no");
  EXPECT_FLOAT_EQ(NbString("2.5").toFloat(), 2.5F);
  EXPECT_FLOAT_EQ(NbString("2,5").toFloat(), 2.0F);
  EXPECT_EQ(NbString().setNum(2.5F), "2.5");
  EXPECT_EQ(NbString::toString_l(2.5, NbString::getLocaleObject()), "2.5");
  std::setlocale(LC_ALL, "C");
}

TEST(NbString, FormatsForALocale) {
  const NbLocale plain = NbString::getLocaleObject();
  ASSERT_TRUE(plain);
  EXPECT_EQ(NbString::getLocaleObject(), plain);
  EXPECT_EQ(NbString::toString_l(999.01F, plain), "999.01");
  EXPECT_EQ(NbString::toString_l(12, plain), "12");
  if (const NbLocale comma = createCommaLocale()) {
    EXPECT_EQ(NbString::toString_l(999.01F, comma), "999,01");
    EXPECT_EQ(NbString::toString_l(12, comma), "12");
    freeLocale(comma);
  }
}

TEST(NbStringList, SplitKeepsEmptyPieces) {
  NbStringList list;
  EXPECT_EQ(NbStringList::split(list, ";a;;b", ";"), 4);
  ASSERT_EQ(list.getLength(), 4);
  EXPECT_TRUE(list[0]->isEmpty());
  EXPECT_EQ(*list[1], "a");
  EXPECT_TRUE(list[2]->isEmpty());
  EXPECT_EQ(*list[3], "b");
  list.deleteStrings();
  EXPECT_EQ(list.getLength(), 0);
}

TEST(NbStringList, SplitsAtLongAndMissingSeparators) {
  NbStringList list;
  EXPECT_EQ(NbStringList::split(list, L"x--y--", "--"), 3);
  EXPECT_EQ(NbStringList::split(list, "", ";"), 1);
  EXPECT_EQ(NbStringList::split(list, "whole", ""), 1);
  EXPECT_EQ(list.getLength(), 5);
  EXPECT_EQ(*list[1], "y");
  EXPECT_TRUE(list[2]->isEmpty());
  EXPECT_EQ(*list[4], "whole");
  list.deleteStrings();
}

TEST(NbStringList, FindsAndRefusesWrongIndices) {
  NbString a("a");
  NbString b("b");
  NbStringList list;
  list.append(&a);
  list.append(&b);
  EXPECT_EQ(list.find(&b), 1);
  EXPECT_EQ(list.find(NbString(L"a")), 0);
  EXPECT_EQ(list.find(NbString("c")), -1);
  const ExpectMessages expected({"Index 2 is out of range 0 - 1"});
  EXPECT_EQ(list[2], nullptr);
  list.truncate(1);
  EXPECT_EQ(list.getLength(), 1);
}

} // namespace
