#include "Panelix/NkMessageDialog.h"

NK_KIT_SOURCE(NkMessageDialog, NkPanelix, "MessageDialog");

NkMessageDialog::NkMessageDialog() {
  NK_KIT_CONSTRUCTOR(NkMessageDialog);
  NK_NODE_ADD_FIELD(title, (""));
  NK_NODE_ADD_FIELD(type, (MD_MESSAGE));
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_ERROR);
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_INFORMATION);
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_MESSAGE);
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_QUESTION);
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_WARNING);
  NK_NODE_DEFINE_ENUM_VALUE(Type, MD_WORKING);
  NK_NODE_SET_SF_ENUM_TYPE(type, Type);
  NK_KIT_INIT_INSTANCE();
}

NkMessageDialog::~NkMessageDialog() = default;
