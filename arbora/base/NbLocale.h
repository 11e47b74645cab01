#pragma once

#include <locale.h>

/// The system's handle of a locale, as its `..._l` functions take it.
#ifdef _WIN32
using NbLocale = _locale_t;
#else
using NbLocale = locale_t;
#endif
