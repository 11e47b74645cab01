#pragma once

#include <span>
#include <string_view>

namespace panelix {

/// What one field of a class means to who writes a dialog file.
struct FieldMeaning {
  const char* field;
  const char* text;
};

/// The same for a node class; `fields` are those that the class adds to its base, in their order.
struct ClassMeaning {
  const char* keyword;
  const char* text;
  std::span<const FieldMeaning> fields;
};

/// All node classes of the toolkit, in the order of their registration.
std::span<const ClassMeaning> meanings();

/// Empty if the table has no such row.
const char* meaningOf(std::string_view keyword);
const char* meaningOf(std::string_view keyword, std::string_view field);

} // namespace panelix
