#include "tools/panelix/DialogCheck.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Panelix/NkDialogChoice.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkChildList.h"
#include "src/dialog/support/Accelerator.h"
#include "src/dialog/support/NumberFormat.h"
#include "tools/panelix/Json.h"
#include "tools/panelix/Messages.h"

namespace panelix {
namespace {

/// Fields in pixels, of any class.
constexpr const char* kLengths[] = {"width",     "height", "minWidth",   "minHeight",    "maxWidth",
                                    "maxHeight", "margin", "rowSpacing", "columnSpacing"};

struct Axis {
  const char* size;
  const char* min;
  const char* max;
  const char* fixed;
};
constexpr Axis kAxes[] = {{"width", "minWidth", "maxWidth", "fixedWidth"},
                          {"height", "minHeight", "maxHeight", "fixedHeight"}};

/// How menus take their titles apart.
struct Titles : NkPanelix {
  static NbString keyCombination(const NbString& title) { return acceleratorOf(convertToCString(title)); }
};

/// The text in quotes, on one line.
std::string quoted(const NbString& text) { return toJson(text.toUtf8()); }

std::string number(int value) { return std::to_string(value); }
std::string number(float value) {
  NkSFFloat field;
  field = value;
  return field.get().toUtf8();
}

bool isUsable(const NbString& keyCombination) {
  const auto record = parseKeyCombination(keyCombination, 0);
  return record && record->key != 0;
}

/// A list of one empty string stands for an empty list.
int countEntries(const NkMFString& items) { return items.getNum() == 1 && items[0].isEmpty() ? 0 : items.getNum(); }

class DialogCheck {
public:
  explicit DialogCheck(Messages& messages) : m_messages(messages) {}

  void checkAll(NkNode* root) {
    enter(root);
    while (!m_way.empty()) {
      Step& step = m_way.back();
      const NkChildList* children = step.node->getChildren();
      if (children && step.next < children->getLength())
        enter((*children)[step.next++]);
      else
        m_way.pop_back();
    }
  }

private:
  /// A node on the way from the root, and the child that comes next.
  struct Step {
    NkNode* node;
    int next = 0;
  };

  void enter(NkNode* node) {
    const auto* container = m_way.empty() ? nullptr : dynamic_cast<const NkPanelix*>(m_way.back().node);
    m_way.push_back({node});
    auto* component = dynamic_cast<NkPanelix*>(node);
    if (!m_seen.insert(node).second) {
      if (component && container) warn("has another place as well; a component has one");
      m_way.pop_back();
      return;
    }
    if (component) check(*component, container);
  }

  void check(NkPanelix& component, const NkPanelix* container) {
    checkId(component);
    checkSizes(component);
    apply(component, &DialogCheck::checkChoice);
    apply(component, &DialogCheck::checkEditText);
    apply(component, &DialogCheck::checkIntegerSlider);
    apply(component, &DialogCheck::checkRealSlider);
    apply(component, &DialogCheck::checkTabs);
    apply(component, &DialogCheck::checkMenuPushButton);
    apply(component, &DialogCheck::checkMenuCheckBox);
    apply(component, &DialogCheck::checkMenuRadioButtons);
    apply(component, &DialogCheck::checkFileSelection);
    if (dynamic_cast<const NkMenuBar*>(&component)) checkMenuBar(component, container);
  }

  template <class Class>
  void apply(const NkPanelix& component, void (DialogCheck::*rule)(const Class&)) {
    if (const auto* object = dynamic_cast<const Class*>(&component)) (this->*rule)(*object);
  }

  void checkId(const NkPanelix& component) {
    const NbString id = component.auditorID.getValue();
    if (id.isEmpty()) return;
    const auto [first, isNew] = m_ids.try_emplace(id.toUtf8(), component.getFileFormatName());
    if (!isNew) warn("has the auditorID of a " + first->second + " ahead of it; a search finds only one of them");
  }

  void checkSizes(const NkPanelix& component) {
    for (const char* name : kLengths) {
      const int length = intOf(component, name);
      if (length < 0) warn(std::string(name) + " " + number(length) + " is negative");
    }
    for (const Axis& axis : kAxes) {
      const auto* fixed = dynamic_cast<const NkSFBool*>(component.getField(axis.fixed));
      // Then the limits don't count.
      if (fixed && fixed->getValue()) continue;
      const int size = intOf(component, axis.size);
      const int min = intOf(component, axis.min);
      const int max = intOf(component, axis.max);
      if (checkOrder(axis.min, min, axis.max, max)) {
        checkOrder(axis.min, min, axis.size, size);
        checkOrder(axis.size, size, axis.max, max);
      }
    }
  }

  /// 0 stands for not set; a negative number has been told.
  bool checkOrder(const char* lesserName, int lesser, const char* greaterName, int greater) {
    if (lesser <= greater || greater <= 0) return true;
    warn(std::string(lesserName) + " " + number(lesser) + " is above " + greaterName + " " + number(greater));
    return false;
  }

  void checkChoice(const NkDialogChoice& choice) {
    checkIndex("selectedItem", choice.selectedItem.getValue(), countEntries(choice.items), "entries");
  }

  void checkEditText(const NkDialogEditText& text) {
    bool isNumber = false;
    text.editText.getValue().toFloat(&isNumber);
    if (text.isNumeric.getValue() && !text.editText.getValue().isEmpty() && !isNumber)
      warn("editText " + quoted(text.editText.getValue()) + " is no number, as isNumeric wants it");
  }

  void checkIntegerSlider(const NkDialogIntegerSlider& slider) {
    checkLimits(slider);
    if (!isIntegerFormat(slider.format.getValue()))
      warn("format " + quoted(slider.format.getValue()) + " isn't one conversion of an integer, such as \"%d\"");
  }

  void checkRealSlider(const NkDialogRealSlider& slider) {
    checkLimits(slider);
    if (!isRealFormat(slider.format.getValue()))
      warn("format " + quoted(slider.format.getValue()) + " isn't one conversion of a real number, such as \"%.3f\"");
  }

  template <class Slider>
  void checkLimits(const Slider& slider) {
    const auto min = slider.min.getValue();
    const auto max = slider.max.getValue();
    const auto value = slider.value.getValue();
    // The comparisons are written so that what is no number fails them.
    if (min == max)
      warn("min and max are both " + number(min) + "; the thumb can't move");
    else if (!(min < max))
      warn("min " + number(min) + " is above max " + number(max));
    else if (!(min <= value && value <= max))
      warn("value " + number(value) + " is outside " + number(min) + " to " + number(max));
  }

  void checkTabs(const NkTabDialog& tabs) {
    checkIndex("selectedPage", tabs.selectedPage.getValue(), tabs.getNumChildren(), "pages");
  }

  void checkMenuPushButton(const NkMenuPushButton& button) {
    checkKeys("accelerator", button.accelerator.getValue(), button.label.getValue());
  }

  void checkMenuCheckBox(const NkMenuCheckBox& box) {
    checkKeys("accelerator", box.accelerator.getValue(), box.label.getValue());
  }

  void checkMenuRadioButtons(const NkMenuRadioButtons& buttons) {
    const int count = countEntries(buttons.items);
    checkIndex("selectedItem", buttons.selectedItem.getValue(), count, "entries");
    const int keys = countEntries(buttons.accelerators);
    if (keys > 0 && keys != count)
      warn("accelerators doesn't have one value for each of the " + number(count) + " entries");
    for (int i = 0; i < count; ++i)
      checkKeys("accelerators", i < keys ? buttons.accelerators[i] : NbString(), buttons.items[i]);
  }

  /// The key combination of a field goes ahead of the one in the title.
  void checkKeys(const char* field, const NbString& keys, const NbString& title) {
    if (isUsable(keys)) return;
    checkKeys(field, keys);
    checkKeys("the title's", Titles::keyCombination(title));
  }

  void checkKeys(const char* where, const NbString& keys) {
    if (!keys.isEmpty() && !isUsable(keys))
      warn(std::string(where) + " " + quoted(keys) + " has no effect; it takes Ctrl and a key, such as \"Ctrl+O\"");
  }

  void checkFileSelection(const NkMenuFileSelection& selection) {
    const int count = selection.filter.getNum();
    if (count % 2 != 0) warn("filter has an odd number of values; they are pairs");
    checkIndex("defaultFilter", selection.defaultFilter.getValue(), count / 2, "pairs in filter");
  }

  void checkMenuBar(const NkPanelix& bar, const NkPanelix* container) {
    if (!container) {
      warn("stands outside of a TopLevelDialog; the 2D form has no place for it");
      return;
    }
    const NkChildList& siblings = *container->getChildren();
    for (int i = 0; siblings[i] != &bar; ++i) {
      if (!dynamic_cast<const NkMenuBar*>(siblings[i])) continue;
      warn("is behind another MenuBar; a dialog has one");
      return;
    }
  }

  /// An index of 0 stands for none where there is nothing.
  void checkIndex(const char* name, int index, int count, const char* what) {
    if (index >= 0 && index < count) return;
    if (count > 0)
      warn(std::string(name) + " " + number(index) + " is outside 0 to " + number(count - 1));
    else if (index != 0)
      warn(std::string(name) + " " + number(index) + " stands where there are no " + what);
  }

  static int intOf(const NkPanelix& component, const char* name) {
    const auto* field = dynamic_cast<const NkSFInt32*>(component.getField(name));
    return field ? field->getValue() : 0;
  }

  /// About the node at the end of the way.
  void warn(const std::string& text) { m_messages.add(NkDebugError::WARNING, place() + ": " + text); }

  std::string place() const {
    std::string text;
    for (std::size_t i = m_way.size(); i-- > 0;) {
      const auto* component = dynamic_cast<const NkPanelix*>(m_way[i].node);
      if (!component) continue;
      const bool hasId = !component->auditorID.getValue().isEmpty();
      const std::string name = std::string(component->getFileFormatName()) +
                               (hasId ? " " + quoted(component->auditorID.getValue()) : ordinal(i));
      text = text.empty() ? name : name + " / " + text;
      if (hasId) break;
    }
    return text;
  }

  /// The number of a node among its siblings of the same type, if there are several.
  std::string ordinal(std::size_t step) const {
    if (step == 0) return {};
    const Step& parent = m_way[step - 1];
    const NkChildList& siblings = *parent.node->getChildren();
    int count = 0;
    int position = 0;
    for (int i = 0; i < siblings.getLength(); ++i) {
      if (siblings[i]->getTypeId() == m_way[step].node->getTypeId()) ++count;
      if (i < parent.next) position = count;
    }
    return count > 1 ? " " + number(position) : std::string();
  }

  Messages& m_messages;
  std::vector<Step> m_way;
  std::unordered_set<const NkNode*> m_seen;
  std::map<std::string, std::string> m_ids; ///< With the type of the first component that has it.
};

} // namespace

void checkDialogs(NkNode* root, Messages& messages) { DialogCheck(messages).checkAll(root); }

} // namespace panelix
