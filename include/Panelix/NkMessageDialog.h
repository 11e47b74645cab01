#pragma once

#include "Panelix/NkPanelix.h"

/// A short text to the user in a window of its own; `label` is the text.
class PANELIX_API NkMessageDialog : public NkPanelix {
  NK_KIT_HEADER(NkMessageDialog);

public:
  enum Type {
    MD_ERROR = 0,
    MD_INFORMATION = 1,
    MD_MESSAGE = 2,
    MD_QUESTION = 3,
    MD_WARNING = 4,
    MD_WORKING = 5 ///< Stays while the application works.
  };

  NkSFString title; ///< Of the window. Empty.
  NkSFEnum type;    ///< MD_MESSAGE.

  NkMessageDialog();

protected:
  ~NkMessageDialog() override;
};
