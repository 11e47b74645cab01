// The native side of push buttons and check boxes, against the bare calls that do the same.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

namespace {

constexpr int kRows = 1000;
constexpr int kRowHeight = 25;
constexpr int kRowWidth = 200;
constexpr int kLabelWidth = 60;
constexpr DWORD kFrameStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

HWND makeWindow(DWORD extendedStyle, const char* className, DWORD style, HWND parent) {
  const HWND window = CreateWindowExA(extendedStyle, className, "Panel", style, 0, 0, 0, 0, parent, nullptr,
                                      NkWin::getInstance(), nullptr);
  if (!window) std::abort();
  return window;
}

HWND makeControl(const wchar_t* className, DWORD style, HWND parent) {
  const HWND window =
      CreateWindowExW(0, className, L"Panel", style, 0, 0, 0, 0, parent, nullptr, NkWin::getInstance(), nullptr);
  if (!window) std::abort();
  SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(NkPanelix::getPanelixFont()), TRUE);
  return window;
}

HWND makeButton(DWORD style, HWND parent) {
  return makeControl(L"BUTTON", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP | BS_MULTILINE | style, parent);
}

/// A frame window with a window that fills it.
struct Frame {
  Frame() {
    NbString name = "BenchmarkFrame";
    WNDCLASSA record{};
    record.style = CS_PARENTDC | CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = DefWindowProcA;
    record.cbWndExtra = sizeof(void*);
    record.hInstance = NkWin::getInstance();
    record.lpszClassName = "BenchmarkFrame";
    NkWin::registerClass(record, name);
    base = makeWindow(WS_EX_WINDOWEDGE, "BenchmarkFrame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr);
    inside = makeWindow(0, "BenchmarkFrame", kFrameStyle, base);
    SetWindowPos(base, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
    SetWindowPos(inside, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOMOVE);
  }
  ~Frame() { DestroyWindow(base); }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  HWND base;
  HWND inside;
};

void bareRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    const Frame frame;
    for (int i = 0; i < kRows; ++i) {
      const HWND row = makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, frame.inside);
      const HWND label = makeControl(L"STATIC", WS_CHILD | WS_CLIPCHILDREN | SS_RIGHT, row);
      ShowWindow(label, SW_SHOW);
      const HWND button = makeButton(BS_PUSHBUTTON, row);
      SetWindowPos(row, nullptr, 0, i * kRowHeight, kRowWidth, kRowHeight, SWP_DEFERERASE);
      SetWindowPos(label, nullptr, 3, 3, kLabelWidth, kRowHeight - 6, SWP_DEFERERASE);
      SetWindowPos(button, nullptr, 3 + kLabelWidth, 3, kRowWidth - kLabelWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
    }
  }
  NkPanelix::finish();
}
BENCHMARK(bareRows);

void dialogOfRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    for (int i = 0; i < kRows; ++i) {
      auto* button = new NkDialogPushButton;
      button->label = "Panel";
      button->buttonLabel = "Panel";
      dialog->addChild(button);
    }
    dialog->buildDialog(nullptr, 0);
    if (!dialog->getWidget()) std::abort();
  }
  NkPanelix::finish();
}
BENCHMARK(dialogOfRows);

/// The calls that show a state: the check and, twice, the caption for it.
void bareCheck(benchmark::State& state) {
  NkPanelix::init();
  {
    const Frame frame;
    const HWND box = makeButton(BS_AUTOCHECKBOX, frame.inside);
    ShowWindow(frame.base, SW_SHOW);
    bool isChecked = false;
    for (auto _ : state) {
      isChecked = !isChecked;
      SendMessageA(box, BM_SETCHECK, isChecked, 0);
      for (int i = 0; i < 2; ++i) SetWindowTextW(box, isChecked ? L"yes" : L"no");
    }
  }
  NkPanelix::finish();
}
BENCHMARK(bareCheck);

/// A write of the field of a check box that stands in both forms.
void checkInBothForms(benchmark::State& state) {
  NkPanelix::init();
  {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    auto* box = new NkDialogCheckBox;
    box->onString = "yes";
    box->offString = "no";
    dialog->addChild(box);
    dialog->buildDialog(nullptr, 0);
    dialog->show();
    dialog->updateDialogBuild(0);
    if (!box->isBuilt3D() || !box->getWidget()) std::abort();
    for (auto _ : state) box->state = !box->state.getValue();
  }
  NkPanelix::finish();
}
BENCHMARK(checkInBothForms);

} // namespace
