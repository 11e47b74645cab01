#pragma once

#include "Panelix/NkPanelix.h"

class NkMenuBar;

/// Base of what stands in a menu: an entry with a title. The title is the `label`; in it "&" stands ahead of the
/// mnemonic, and the name of a key combination may follow behind a tab.
class PANELIX_API NkMenuItem : public NkPanelix {
  NK_KIT_HEADER(NkMenuItem);
  NK_SKIN_HEADER(MenuItem);

public:
  NkMenuItem();

  /// The nearest bar above; NULL if there is none.
  NkMenuBar* getMenuBar() const;

  /// The user chose the entry in a native menu: `menu` is its HMENU, `id` the command.
  virtual void menuEvent(void* menu, int id);

protected:
  ~NkMenuItem() override;

  /// Puts what a menu shows of a title into `result`: no "&", and nothing from the first tab on. Gives the mnemonic,
  /// the last one if there are several; 0 if there is none.
  static char buildTitleForMotifMenu(const NbString& title, NbString& result);
  /// What stands behind the first tab of a title; empty without a tab.
  static NbString getAccelerator(const NbString& title);

  NkSFNode itemFrameSep;
  NkSFNode frame;
  NkSFNode labelSep;
  NkSFNode labelProp;
};
