#pragma once

#include <vector>

namespace panelix {

/// The skin of one class: the file that defines its parts, and the text that stands in for a missing file.
struct Skin {
  const char* fileName;
  const char* const& builtInText;
  std::vector<const char*> partNames; ///< In the order in which they are exchanged.
  int isLoaded = 0;
  int isFirstUse = 1;
};

} // namespace panelix

// clang-format off

/// Declarations of a skinned class; `Text` names the pointer to the built-in text, which a program may exchange.
#define NK_SKIN_HEADER(Text)               \
 public:                                   \
  static const char* Text;                 \
  static void change3DSkin();              \
  static int isSkinLoaded();               \
  static void setSkinLoaded(int isLoaded); \
                                           \
 protected:                                \
  static panelix::Skin s_skin;             \
                                           \
 private:                                  \
  static_assert(true)

/// Definitions, in the class's source, behind that of the text. The names of the parts stand at the end.
#define NK_SKIN_SOURCE(Class, Text, ...)                                         \
  panelix::Skin Class::s_skin{#Text ".arb", Class::Text, {__VA_ARGS__}};         \
  void Class::change3DSkin() { exchangeSkin(s_skin); }                           \
  int Class::isSkinLoaded() { return s_skin.isLoaded; }                          \
  void Class::setSkinLoaded(int isLoaded) { s_skin.isLoaded = isLoaded; }        \
  static_assert(true)

// clang-format on
