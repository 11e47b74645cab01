#pragma once

#include <gtest/gtest.h>

#include "tests/tools/Json.h"
#include "tests/tools/Program.h"

/// Fixture for what `inspect` prints.
class Inspect : public ::testing::Test {
protected:
  /// The outermost node of a dialog in a scene text; fails the test if that can't be had or anything is said.
  static Json inspect(const std::string& text, const std::vector<std::string>& options = {}) {
    return inspectFile(writeScene("inspect.arb", text), options);
  }
  static Json inspectFile(const std::string& path, const std::vector<std::string>& options) {
    std::vector<std::string> words{"inspect", path};
    words.insert(words.end(), options.begin(), options.end());
    const Result result = runPanelix(words);
    EXPECT_EQ(result.exitCode, 0) << path;
    EXPECT_EQ(result.err, "") << path;
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json.kind, Json::OBJECT) << result.out;
    return json;
  }

  /// A list of numbers as "1 2 3".
  static std::string numbers(const Json& list) {
    std::string text;
    for (const Json& item : list.items) {
      if (!text.empty()) text += " ";
      text += item.kind == Json::ARRAY ? "(" + numbers(item) + ")" : std::to_string(static_cast<int>(item.number));
    }
    return text;
  }
  static std::string sizeOf(const Json& node) {
    return std::to_string(static_cast<int>(node["width"].number)) + " " +
           std::to_string(static_cast<int>(node["height"].number));
  }
  static const Json& childOf(const Json& node, std::size_t index) { return node["children"].items.at(index); }

  static int count(const Json& node) {
    int number = 1;
    for (const Json& child : node["children"].items) number += count(child);
    return number;
  }
};
