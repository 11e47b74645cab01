#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "src/dialog/support/NumberFormat.h"

using panelix::formatReal;

namespace {

struct Row {
  const char* format;
  float value;
  const char* text;
};

constexpr Row kRows[] = {
    // What sliders use.
    {"%.3f", 0.5F, "0.500"},
    {"%3f", 0.5F, "0.500000"},
    {"%.2f mm", -1.25F, "-1.25 mm"},
    {"about %6.2e!", 0.5F, "about 5.00e-01!"},
    // Flags, width, precision and each conversion.
    {"%+.1f", 2, "+2.0"},
    {"% .1f", 2, " 2.0"},
    {"%-6.1f|", 2, "2.0   |"},
    {"%06.1f", 2, "0002.0"},
    {"%#.0f", 2, "2."},
    {"%.f", 2, "2"},
    {"%.0f%%", 50, "50%"},
    {"%%%g%%", 0.25F, "%0.25%"},
    {"%lf", 1, "1.000000"},
    {"%E", 1, "1.000000E+00"},
    {"%G", 1e-10F, "1E-10"},
    {"%a", 1, "0x1p+0"},
    {"%A", 1, "0X1P+0"},
    {"%F", 1, "1.000000"},
    // What isn't one conversion of a floating-point number.
    {"", 0.5F, "0.500000"},
    {"none", 0.5F, "0.500000"},
    {"%", 0.5F, "0.500000"},
    {"%%", 0.5F, "0.500000"},
    {"%5", 0.5F, "0.500000"},
    {"%.", 0.5F, "0.500000"},
    {"%d", 0.5F, "0.500000"},
    {"%s", 0.5F, "0.500000"},
    {"%n", 0.5F, "0.500000"},
    {"%p", 0.5F, "0.500000"},
    {"%f %f", 0.5F, "0.500000"},
    {"%f %s", 0.5F, "0.500000"},
    {"%f%", 0.5F, "0.500000"},
    {"%*f", 0.5F, "0.500000"},
    {"%.*f", 0.5F, "0.500000"},
    {"%1$f", 0.5F, "0.500000"},
    {"%Lf", 0.5F, "0.500000"},
    {"%hf", 0.5F, "0.500000"},
    {"%llf", 0.5F, "0.500000"},
    {"%.-1f", 0.5F, "0.500000"},
    {"%1.2.3f", 0.5F, "0.500000"},
    // Too long to be meant.
    {"%1000f", 0.5F, "0.500000"},
    {"%.1000f", 0.5F, "0.500000"},
    {"%2147483648f", 0.5F, "0.500000"},
};

} // namespace

TEST(NumberFormat, PrintsAsAsked) {
  for (const Row& row : kRows) EXPECT_EQ(formatReal(row.format, row.value), row.text) << row.format;
}

TEST(NumberFormat, PrintsTheLongestNumbers) {
  const std::string longest = formatReal("%999.999f", -std::numeric_limits<float>::max()).toUtf8();
  EXPECT_EQ(longest.size(), 1040U);
  EXPECT_EQ(longest.substr(0, 7), "-340282");
  EXPECT_EQ(formatReal("%f", std::numeric_limits<float>::infinity()), "inf");
  EXPECT_EQ(formatReal("%.1f", -std::numeric_limits<float>::infinity()), "-inf");
  EXPECT_EQ(formatReal("%f", -std::nanf("")).toUtf8().find("nan") != std::string::npos, true);
}

TEST(NumberFormat, KeepsTextThatIsNotLatin) {
  EXPECT_EQ(formatReal(NbString(L"\u03C6 = %.1f\u00B0"), 1.5F), NbString(L"\u03C6 = 1.5\u00B0"));
  EXPECT_EQ(formatReal(NbString("%.1f \xB0"), 1.5F), NbString("1.5 \xB0"));
}

// Whatever stands in a file: a text comes back, the number's own or that of "%f".
TEST(NumberFormat, TakesAnyText) {
  constexpr char kPieces[] = "%%%%%0123456789.-+ #*$lLhjztqfFeEgGaAdiouxXcspn m\xB0";
  std::mt19937 random(1);
  int accepted = 0;
  for (int i = 0; i < 200000; ++i) {
    std::string format;
    for (unsigned length = random() % 8; length > 0; --length) format += kPieces[random() % (sizeof kPieces - 1)];
    const std::string text = formatReal(NbString(format), 0.5F).toUtf8();
    EXPECT_FALSE(text.empty()) << format;
    EXPECT_LT(text.size(), 1100U) << format;
    if (text != "0.500000") ++accepted;
  }
  EXPECT_GT(accepted, 1000) << "few formats of the test mean anything";
}

TEST(NumberFormat, KnowsWhatFitsANumber) {
  for (const char* format : {"%f", "%.3f", "%lf", "a %+08.2e b", "%g%%"}) {
    EXPECT_TRUE(panelix::isRealFormat(format)) << format;
    EXPECT_FALSE(panelix::isIntegerFormat(format)) << format;
  }
  for (const char* format : {"%d", "%5d", "%i", "no. %03u", "%x", "%d%%"}) {
    EXPECT_TRUE(panelix::isIntegerFormat(format)) << format;
    EXPECT_FALSE(panelix::isRealFormat(format)) << format;
  }
  for (const char* format : {"", "%", "%%", "%s", "%n", "%ld", "%d%d", "%f%f", "%d%f", "%*d"}) {
    EXPECT_FALSE(panelix::isRealFormat(format)) << format;
    EXPECT_FALSE(panelix::isIntegerFormat(format)) << format;
  }
}
