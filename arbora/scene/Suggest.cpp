#include "arbora/scene/Suggest.h"

#include "arbora/scene/NkInput.h"

std::string arbora::suggest(std::string_view name, std::span<const std::string_view> candidates) {
  Suggestion suggestion(name);
  for (const std::string_view candidate : candidates) suggestion.consider(candidate);
  return suggestion.text();
}
