#include "src/dialog/support/Accelerator.h"

#include <string_view>

namespace panelix {
namespace {

constexpr int kCtrl = 1;
constexpr int kShift = 2;
constexpr int kMeta = 4;
constexpr int kAlt = 8;

struct Modifier {
  std::string_view name;
  int weight;
};

constexpr Modifier kModifiers[] = {
    {"Ctrl", kCtrl},   {"CTRL", kCtrl}, {"ctrl", kCtrl}, {"Ctl", kCtrl}, {"Shift", kShift}, {"SHIFT", kShift},
    {"shift", kShift}, {"Meta", kMeta}, {"META", kMeta}, {"Alt", kAlt},  {"ALT", kAlt},     {"alt", kAlt},
};

} // namespace

MenuTitle parseMenuTitle(const NbString& title) {
  const std::string bytes = title.toLatin1();
  const std::string_view shown = std::string_view(bytes).substr(0, bytes.find('\t'));
  MenuTitle result;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (shown[i] == '&') {
      if (++i == shown.size()) break;
      result.mnemonic = shown[i];
    }
    result.text += shown[i];
  }
  return result;
}

NbString acceleratorOf(const NbString& title) {
  const int tab = title.find("\t");
  return tab == NbString::npos ? NbString() : title.getSubString(tab + 1);
}

std::optional<ACCEL> parseKeyCombination(const NbString& text, WORD command) {
  const std::string bytes = text.toLatin1();
  int weight = 0;
  for (const Modifier& modifier : kModifiers) {
    if (bytes.find(modifier.name) != bytes.npos) weight += modifier.weight;
  }
  int flags = FVIRTKEY;
  // Spellings of one modifier add up: two of Ctrl weigh as much as Shift.
  const auto take = [&](int modifier, int flag) {
    if (weight < modifier) return;
    flags |= flag;
    weight -= modifier;
  };
  take(kAlt, FALT);
  take(kMeta, FALT);
  take(kShift, FSHIFT);
  if (weight == 0) return std::nullopt;
  if (weight == kCtrl) flags |= FCONTROL;
  // Behind a "+" at the end there is no key; 0 is the code of none.
  const std::size_t plus = bytes.rfind('+');
  const std::size_t key = plus == bytes.npos ? 0 : plus + 1;
  const auto code = key < bytes.size() ? static_cast<unsigned char>(bytes[key]) : static_cast<unsigned char>(0);
  return ACCEL{static_cast<BYTE>(flags), code, command};
}

} // namespace panelix
