#pragma once

#include <string_view>

namespace arbora {

/// Takes one character off the front of `bytes`. False, and nothing taken, if they are not well-formed UTF-8 there.
bool takeUtf8(std::string_view& bytes, char32_t& character);
bool isValidUtf8(std::string_view bytes);

} // namespace arbora
