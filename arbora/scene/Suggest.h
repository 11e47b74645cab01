#pragma once

#include <span>
#include <string>
#include <string_view>

#include "arbora/scene/export.h"

namespace arbora {

/// `; did you mean 'NAME'?` for the candidate that is most like a name, as the reader tells it; empty if none is.
ARBORA_API std::string suggest(std::string_view name, std::span<const std::string_view> candidates);

} // namespace arbora
