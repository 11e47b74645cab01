#include "arbora/scene/NkDBImpl.h"

bool NkDBImpl::m_isVerra = false;
