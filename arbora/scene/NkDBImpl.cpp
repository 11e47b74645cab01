#include "arbora/scene/NkDBImpl.h"

#ifdef _WIN32
bool NkDBImpl::m_isVerra = false;
#else
bool NkDBImpl::m_isVerra = true;
#endif

// Clusters and trackers aren't supported.

bool NkDBImpl::isRunningCluster() { return false; }

bool NkDBImpl::isRunningART() { return false; }
