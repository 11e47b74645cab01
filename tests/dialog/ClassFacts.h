#pragma once

#include <iosfwd>
#include <span>

/// What a user of the toolkit may rely on about a class, independently of the code.
struct ClassFacts {
  const char* keyword;
  const char* base;    ///< Keyword; empty for the class above all others.
  const char* fields;  ///< Each on a line: type, name, default, and behind "of" name and values of an enum type.
  const char* parts;   ///< Each on a line: type, name, "<", parent, and a "+" for a public part.
  const char* changes; ///< Inherited fields with a default of the class's own; "written" marks what files hold anyway.
  const char* childKeyword; ///< Class that its children derive from; empty for a class without children.
};

/// All classes, in the order of their registration.
std::span<const ClassFacts> classFacts();

/// How the test runner shows a parameter.
void PrintTo(const ClassFacts& facts, std::ostream* out);
