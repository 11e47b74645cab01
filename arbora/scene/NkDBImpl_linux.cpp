#include "arbora/scene/NkDBImpl.h"

// No window can be made here.
bool NkDBImpl::m_isVerra = true;
