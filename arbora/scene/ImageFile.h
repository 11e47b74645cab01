#pragma once

#include <string>

#include "arbora/scene/FieldIO.h"

namespace arbora {

/// Decodes the bytes of a PNG or JPEG file. False, and `why` tells the reason, if they can't be decoded.
bool decodeImage(const std::string& bytes, Image& image, std::string& why);

} // namespace arbora
