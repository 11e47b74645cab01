#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <unordered_set>

#include "Panelix/NkDialogComponent.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkPath.h"
#include "arbora/win/NkWin.h"
#include "tools/panelix/Commands.h"
#include "tools/panelix/Dialog.h"
#include "tools/panelix/Json.h"
#include "tools/panelix/Messages.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

std::string json(int value) { return std::to_string(value); }

std::string json(float value) {
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

std::string json(const NbVec2i32& value) { return "[" + json(value[0]) + ", " + json(value[1]) + "]"; }

std::string json(const NbVec3f& value) {
  return "[" + json(value[0]) + ", " + json(value[1]) + ", " + json(value[2]) + "]";
}

std::string json(const NbBox3f& box) {
  return box.isEmpty() ? "null" : "[" + json(box.getMin()) + ", " + json(box.getMax()) + "]";
}

std::string json(const NbString& text) { return toJson(text.toUtf8()); }

/// As programs write the styles of windows.
std::string jsonOfBits(LONG_PTR bits) {
  char text[16];
  std::snprintf(text, sizeof text, "\"0x%08lx\"", static_cast<unsigned long>(bits) & 0xffffffffUL);
  return text;
}

/// The window that holds the others of a node; NULL without one.
HWND frameOf(NkPanelix& node) {
  if (const auto* dialog = dynamic_cast<const NkTopLevelDialog*>(&node)) return dialog->getBaseWidget();
  const auto* component = dynamic_cast<const NkDialogComponent*>(&node);
  return component ? component->getWidget() : nullptr;
}

template <class Use>
void forEachChild(NkPanelix& node, Use&& use) {
  const NkChildList* children = node.getChildren();
  for (int i = 0; children && i < children->getLength(); ++i) {
    if (auto* child = dynamic_cast<NkPanelix*>((*children)[i])) use(*child);
  }
}

/// Prints a component that has been built, and what is below it.
class Inspection {
public:
  /// `way` leads to the component; it is empty if the form has no place in a scene.
  explicit Inspection(NkFullPath* way) : m_way(way) {}

  std::string describe(NkPanelix& component) {
    collectFrames(component);
    return node(component, 0) + "\n";
  }

private:
  void collectFrames(NkPanelix& node) {
    if (HWND frame = frameOf(node)) m_frames.insert(frame);
    forEachChild(node, [this](NkPanelix& child) { collectFrames(child); });
  }

  std::string node(NkPanelix& node, std::size_t depth) {
    const std::string indent(2 * depth, ' ');
    std::string text = indent + R"({"type": )" + toJson(node.getFileFormatName()) + R"(, "auditorID": )" +
                       json(node.auditorID.getValue()) + R"(, "label": )" + json(node.label.getValue()) + sizes(node) +
                       (m_way ? R"(, "box": )" + json(box()) : R"(, "windows": [)" + windows(frameOf(node)) + "]") +
                       R"(, "children": [)";
    bool isFirst = true;
    forEachChild(node, [&](NkPanelix& child) {
      if (m_way) m_way->append(&child);
      text += (isFirst ? "\n" : ",\n") + this->node(child, depth + 1);
      if (m_way) m_way->truncate(m_way->getLength() - 1);
      isFirst = false;
    });
    return text + (isFirst ? "]}" : "\n" + indent + "]}");
  }

  std::string sizes(NkPanelix& node) const {
    std::string text;
    const auto add = [&text](const char* name, const std::string& value) {
      text += std::string(", \"") + name + "\": " + value;
    };
    for (const char* name : {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"}) {
      const auto* field = dynamic_cast<const NkSFInt32*>(node.getField(name));
      add(name, field ? json(field->getValue()) : "null");
    }
    auto* component = dynamic_cast<NkDialogComponent*>(&node);
    const auto* dialog = dynamic_cast<const NkTopLevelDialog*>(&node);
    add("position", component ? json(component->getPosition()) : dialog ? placeOf(*dialog) : "null");
    add("labelInitSize", component ? json(component->getLabelInitSize()) : "null");
    add("componentInitSize", component ? json(component->getComponentInitSize()) : "null");
    add("labelSize", component ? json(component->getLabelSize()) : "null");
    add("componentSize", component ? json(component->getComponentSize()) : "null");
    return text;
  }

  std::string placeOf(const NkTopLevelDialog& dialog) const {
    return m_way ? json(dialog.position3D.getValue()) : json(dialog.position.getValue());
  }

  NbBox3f box() const {
    NkGetBoundingBoxAction measure;
    measure.apply(m_way.get());
    return measure.getBoundingBox();
  }

  /// A window and those in it, but for what belongs to other nodes.
  std::string windows(HWND window) const {
    if (!window) return {};
    std::string text = describe(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      if (!m_frames.count(child)) text += ", " + windows(child);
    }
    return text;
  }

  static std::string describe(HWND window) {
    constexpr int kLength = 1024;
    char className[kLength] = "";
    GetClassNameA(window, className, kLength);
    std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    const LONG_PTR style = GetWindowLongPtrA(window, GWL_STYLE);
    RECT area{};
    GetWindowRect(window, &area);
    POINT corner{area.left, area.top};
    if (style & WS_CHILD) ScreenToClient(GetParent(window), &corner);
    const auto number = [](LONG value) { return json(static_cast<int>(value)); };
    return R"({"class": )" + toJson(className) + R"(, "style": )" + jsonOfBits(style) + R"(, "extendedStyle": )" +
           jsonOfBits(GetWindowLongPtrA(window, GWL_EXSTYLE)) + R"(, "rectangle": [)" + number(corner.x) + ", " +
           number(corner.y) + ", " + number(area.right - area.left) + ", " + number(area.bottom - area.top) +
           R"(], "text": )" + json(NbString(title.c_str())) + "}";
  }

  arbora::Ref<NkFullPath> m_way;
  std::unordered_set<HWND> m_frames;
};

int inspectFile(const InspectOptions& options, Messages& messages) {
  const SceneFile scene(options.file);
  if (!scene.root()) return FAILED;
  Dialog dialog(scene, options.dialog, messages);
  NkPanelix* component = dialog.component();
  if (!component || (options.size && !setSize(*component, *options.size, messages))) return UNUSABLE;

  arbora::Ref<NkFullPath> way;
  if (options.dialog.form == Form::IN_2D) {
    if (!dialog.build2D(messages)) return UNUSABLE;
  } else {
    way = arbora::Ref<NkFullPath>(NkPath::create(dialog.build3D()));
    way->append(dialog.top());
    if (component != dialog.top()) way->append(component);
  }
  std::fputs(Inspection(way.get()).describe(*component).c_str(), stdout);
  return GOOD;
}

} // namespace

int inspect(const InspectOptions& options) {
  Messages messages;
  messages.setFile(options.file);
  const int result = inspectFile(options, messages);
  NkWin::finish();
  return result;
}

} // namespace panelix
