#include "arbora/scene/NkOutputImpl.h"

bool NkOutputImpl::isSynchronizing(const NkOutput* /*out*/) { return false; }
