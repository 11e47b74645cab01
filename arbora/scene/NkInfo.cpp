#include "arbora/scene/NkInfo.h"

NK_NODE_SOURCE(NkInfo, NkNode, "Info");

NkInfo::NkInfo() {
  NK_NODE_CONSTRUCTOR(NkInfo);
  NK_NODE_ADD_FIELD(string, (""));
}

NkInfo::~NkInfo() = default;
