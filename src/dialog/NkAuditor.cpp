#include "Panelix/NkAuditor.h"

#include <iterator>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "Panelix/NkDialogChoiceAuditor.h"
#include "Panelix/NkDialogEditTextAuditor.h"
#include "Panelix/NkDialogIntegerSliderAuditor.h"
#include "Panelix/NkDialogPushButtonAuditor.h"
#include "Panelix/NkDialogRealSliderAuditor.h"
#include "Panelix/NkMenuCheckBoxAuditor.h"
#include "Panelix/NkMenuFileSelectionAuditor.h"
#include "Panelix/NkMenuPushButtonAuditor.h"
#include "Panelix/NkMenuRadioButtonsAuditor.h"
#include "Panelix/NkTabDialogAuditor.h"

NK_AUDITOR_SOURCE(NkAuditor, NkType::badType(), "Auditor");
NK_AUDITOR_SOURCE(NkDialogPushButtonAuditor, NkAuditor::getClassTypeId(), "NkDialogPushButtonAuditor");
NK_AUDITOR_SOURCE(NkDialogCheckBoxAuditor, NkAuditor::getClassTypeId(), "NkDialogCheckBoxAuditor");
NK_AUDITOR_SOURCE(NkDialogChoiceAuditor, NkAuditor::getClassTypeId(), "NkDialogChoiceAuditor");
NK_AUDITOR_SOURCE(NkDialogEditTextAuditor, NkAuditor::getClassTypeId(), "NkDialogEditTextAuditor");
NK_AUDITOR_SOURCE(NkDialogIntegerSliderAuditor, NkAuditor::getClassTypeId(), "NkDialogIntegerSliderAuditor");
NK_AUDITOR_SOURCE(NkDialogRealSliderAuditor, NkAuditor::getClassTypeId(), "NkDialogRealSliderAuditor");
NK_AUDITOR_SOURCE(NkMenuCheckBoxAuditor, NkAuditor::getClassTypeId(), "NkMenuCheckBoxAuditor");
NK_AUDITOR_SOURCE(NkMenuFileSelectionAuditor, NkAuditor::getClassTypeId(), "NkMenuFileSelectionAuditor");
NK_AUDITOR_SOURCE(NkMenuPushButtonAuditor, NkAuditor::getClassTypeId(), "NkMenuPushButtonAuditor");
NK_AUDITOR_SOURCE(NkMenuRadioButtonsAuditor, NkAuditor::getClassTypeId(), "NkMenuRadioButtonsAuditor");
NK_AUDITOR_SOURCE(NkTabDialogAuditor, NkAuditor::getClassTypeId(), "NkTabDialogAuditor");

namespace {

struct AuditorClass {
  void (*init)();
  void (*exit)();
};

template <class Class>
constexpr AuditorClass kClass{&Class::initClass, &Class::exitClass};

// In the order of their registration. The auditor of tab dialogs has no registered type.
constexpr AuditorClass kClasses[] = {
    kClass<NkAuditor>,
    kClass<NkDialogAuditor>,
    kClass<NkDialogPushButtonAuditor>,
    kClass<NkDialogCheckBoxAuditor>,
    kClass<NkDialogChoiceAuditor>,
    kClass<NkDialogEditTextAuditor>,
    kClass<NkDialogIntegerSliderAuditor>,
    kClass<NkDialogRealSliderAuditor>,
    kClass<NkMenuCheckBoxAuditor>,
    kClass<NkMenuFileSelectionAuditor>,
    kClass<NkMenuPushButtonAuditor>,
    kClass<NkMenuRadioButtonsAuditor>,
};

} // namespace

void NkAuditor::initClasses() {
  for (const AuditorClass& auditorClass : kClasses) auditorClass.init();
}

void NkAuditor::exitClasses() {
  for (auto auditorClass = std::rbegin(kClasses); auditorClass != std::rend(kClasses); ++auditorClass)
    auditorClass->exit();
}
