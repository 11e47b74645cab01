#include "Panelix/NkDialogWidgetList.h"

void NkDialogWidgetList::append(HWND window) { NbPList::append(window); }

void NkDialogWidgetList::insert(HWND window, int index) { NbPList::insert(window, index); }

int NkDialogWidgetList::find(HWND window) const { return NbPList::find(window); }

HWND& NkDialogWidgetList::operator[](int index) const { return reinterpret_cast<HWND&>(NbPList::operator[](index)); }
