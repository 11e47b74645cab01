#include "arbora/win/NkWin.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "arbora/base/NkDebugError.h"
#include "arbora/win/EventLoop.h"

namespace {

constexpr char kTopLevelClass[] = "NkWinTopLevel";
constexpr int kTopLevelWidth = 640;
constexpr int kTopLevelHeight = 480;
constexpr int kMostNames = 100;

struct RegisteredClass {
  std::string name;
  std::string actualName;
  HINSTANCE instance;
};

struct Layer {
  HWND topLevel = nullptr;
  HWND active = nullptr;
  std::vector<RegisteredClass> classes;
  std::vector<ACCEL> accelerators;
  HACCEL table = nullptr;
  bool tableIsOld = false;
  NkWin::ErrorDialogHook* hook = nullptr;
  void* hookData = nullptr;
};

Layer& layer() {
  static Layer instance;
  return instance;
}

const RegisteredClass* findClass(HINSTANCE instance, const char* name) {
  const auto& classes = layer().classes;
  const auto found = std::find_if(classes.begin(), classes.end(), [&](const RegisteredClass& each) {
    return each.instance == instance && each.name == name;
  });
  return found != classes.end() ? &*found : nullptr;
}

LRESULT CALLBACK topLevelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  NkWin::isArboraMessage(window, message, wParam, lParam);
  if (message == WM_CLOSE) {
    NkWin::exitMainLoop(0);
    return 0;
  }
  if (message == WM_DESTROY && window == layer().topLevel) layer().topLevel = nullptr;
  return DefWindowProcA(window, message, wParam, lParam);
}

HWND createTopLevel(const char* title) {
  NbString actualName;
  WNDCLASSA record{};
  if (!NkWin::getClassInfo(NkWin::getInstance(), kTopLevelClass, actualName, record)) {
    record = WNDCLASSA{};
    record.style = CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = topLevelProcedure;
    record.hInstance = NkWin::getInstance();
    record.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    record.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    record.lpszClassName = kTopLevelClass;
    if (!NkWin::registerClass(record, actualName)) return nullptr;
  }
  return CreateWindowExA(0, actualName.toLatin1().c_str(), title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                         CW_USEDEFAULT, kTopLevelWidth, kTopLevelHeight, nullptr, nullptr, NkWin::getInstance(),
                         nullptr);
}

void forgetTable() {
  if (layer().table != nullptr) DestroyAcceleratorTable(layer().table);
  layer().table = nullptr;
}

/// The same key with the same modifiers.
bool isSameKey(const ACCEL& a, const ACCEL& b) { return a.fVirt == b.fVirt && a.key == b.key; }

} // namespace

HWND NkWin::init(const char* appName) {
  arbora::prepareLoop();
  if (layer().topLevel == nullptr) layer().topLevel = createTopLevel(appName != nullptr ? appName : "");
  return layer().topLevel;
}

void NkWin::finish() {
  Layer& all = layer();
  if (all.topLevel != nullptr) DestroyWindow(all.topLevel);
  forgetTable();
  for (const RegisteredClass& each : all.classes) UnregisterClassA(each.actualName.c_str(), each.instance);
  all = Layer();
  arbora::finishLoop();
}

HINSTANCE NkWin::getInstance() { return arbora::programModule(); }

HWND NkWin::getTopLevelWidget() { return layer().topLevel; }

HWND NkWin::getActiveTopLevelWidget() { return layer().active; }

int NkWin::getClassInfo(HINSTANCE instance, const char* name, NbString& actualName, WNDCLASSA& record) {
  if (name == nullptr) return 0;
  if (instance == nullptr) instance = getInstance();
  if (const RegisteredClass* own = findClass(instance, name)) {
    actualName = own->actualName;
    return GetClassInfoA(instance, own->actualName.c_str(), &record);
  }
  if (!GetClassInfoA(nullptr, name, &record)) return 0;
  actualName = name;
  return 1;
}

int NkWin::registerClass(const WNDCLASSA& record, NbString& actualName) {
  if (record.lpszClassName == nullptr) return 0;
  const std::string name = record.lpszClassName;
  WNDCLASSA used = record;
  if (used.hInstance == nullptr) used.hInstance = getInstance();
  if (findClass(used.hInstance, name.c_str()) != nullptr) return 0;

  std::string candidate = name;
  for (int number = 2; number <= kMostNames; ++number) {
    used.lpszClassName = candidate.c_str();
    WNDCLASSA others{};
    // Asked for first, as a class of the whole system may be registered once more without an error.
    if (!GetClassInfoA(used.hInstance, candidate.c_str(), &others)) {
      if (!RegisterClassA(&used)) return 0;
      layer().classes.push_back({name, candidate, used.hInstance});
      actualName = candidate;
      return 1;
    }
    candidate = name + "#" + std::to_string(number);
  }
  return 0;
}

void NkWin::show(HWND window) {
  if (!IsWindow(window)) return;
  ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window);
  UpdateWindow(window);
}

void NkWin::hide(HWND window) {
  if (IsWindow(window)) ShowWindow(window, SW_HIDE);
}

int NkWin::mainLoop() {
  arbora::prepareLoop();
  return arbora::runLoop();
}

void NkWin::exitMainLoop(int code) { arbora::quitLoop(code); }

bool NkWin::processPendingMessages() {
  arbora::prepareLoop();
  return arbora::serveLoop();
}

int NkWin::isArboraMessage(HWND window, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  HWND& active = layer().active;
  if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
    active = window;
    return 1;
  }
  if (message == WM_DESTROY && window != nullptr && window == active) {
    active = nullptr;
    return 1;
  }
  return 0;
}

void NkWin::addAccelerator(const ACCEL& record) {
  auto& all = layer().accelerators;
  std::erase_if(all, [&](const ACCEL& each) { return isSameKey(each, record); });
  all.push_back(record);
  layer().tableIsOld = true;
}

void NkWin::removeAccelerator(WORD command) {
  if (std::erase_if(layer().accelerators, [=](const ACCEL& each) { return each.cmd == command; }) > 0) {
    layer().tableIsOld = true;
  }
}

bool arbora::translateAccelerator(MSG& message) {
  Layer& all = layer();
  if (all.tableIsOld) {
    forgetTable();
    if (!all.accelerators.empty()) {
      all.table = CreateAcceleratorTableA(all.accelerators.data(), static_cast<int>(all.accelerators.size()));
    }
    all.tableIsOld = false;
  }
  if (all.table == nullptr) return false;
  // Keys go to the control that has the focus, commands to the window around it.
  const HWND target = message.hwnd != nullptr ? GetAncestor(message.hwnd, GA_ROOT) : all.active;
  return target != nullptr && TranslateAcceleratorA(target, all.table, &message) != 0;
}

void NkWin::createSimpleErrorDialog(HWND parent, const char* title, const char* line1, const char* line2) {
  title = title != nullptr ? title : "";
  line1 = line1 != nullptr ? line1 : "";
  line2 = line2 != nullptr ? line2 : "";
  const Layer& all = layer();
  if (all.hook != nullptr) {
    all.hook(all.hookData, parent, title, line1, line2);
    return;
  }
  const std::string text = *line2 != '\0' ? std::string(line1) + "\n" + line2 : line1;
  if (MessageBoxA(parent, text.c_str(), title, MB_OK | MB_ICONERROR) != 0) return;
  NkDebugError::post("NkWin::createSimpleErrorDialog", "%s: %s%s%s", title, line1, *line2 != '\0' ? " " : "", line2);
}

void NkWin::setErrorDialogHook(ErrorDialogHook* hook, void* data) {
  layer().hook = hook;
  layer().hookData = data;
}
