#pragma once

#include <string>
#include <string_view>

namespace panelix {

/// A JSON string. Bytes that aren't UTF-8, which a broken file may bring into a message, are taken as Latin-1.
std::string toJson(std::string_view text);

} // namespace panelix
