#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A JSON value, read strictly: what a parser must refuse is refused here.
struct Json {
  enum Kind { INVALID, NONE, BOOLEAN, NUMBER, STRING, ARRAY, OBJECT };

  static Json parse(std::string_view text);

  /// An item of an object; invalid if there is none.
  const Json& operator[](std::string_view name) const;

  Kind kind = INVALID;
  double number = 0;
  std::string string;
  std::vector<Json> items;        ///< Of an array or an object.
  std::vector<std::string> names; ///< Of an object's items.
};
