#include "arbora/scene/NkDBImpl.h"

// Clusters and trackers aren't supported.

bool NkDBImpl::isRunningCluster() { return false; }

bool NkDBImpl::isRunningART() { return false; }
