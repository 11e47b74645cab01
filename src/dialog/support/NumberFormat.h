#pragma once

#include "Panelix/export.h"
#include "arbora/base/NbString.h"

namespace panelix {

/// A number printed as `format` asks: text around one floating-point conversion of printf with flags, width and
/// precision. Any other format comes from a file that nobody checked, and counts as "%f".
PANELIX_API NbString formatReal(const NbString& format, float value);

/// Whether a format is text around exactly one conversion of that kind.
PANELIX_API bool isRealFormat(const NbString& format);
PANELIX_API bool isIntegerFormat(const NbString& format);

} // namespace panelix
