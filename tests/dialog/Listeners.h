#pragma once

#include <functional>
#include <vector>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogPushButtonAuditor.h"

/// Auditors of an application that note whom they hear of and then do what a test wants.

class PushButtonListener : public NkDialogPushButtonAuditor {
public:
  explicit PushButtonListener(std::function<void()> act = [] {}) : react(std::move(act)) {}
  void dialogPushButton(NkDialogPushButton* button) override {
    heard.push_back(button);
    react();
  }

  std::vector<NkPanelix*> heard;
  std::function<void()> react;
};

class CheckBoxListener : public NkDialogCheckBoxAuditor {
public:
  explicit CheckBoxListener(std::function<void()> act = [] {}) : react(std::move(act)) {}
  void dialogCheckBox(NkDialogCheckBox* box) override {
    heard.push_back(box);
    react();
  }

  std::vector<NkPanelix*> heard;
  std::function<void()> react;
};

/// The same for all of a dialog.
class DialogListener : public NkDialogAuditor {
public:
  explicit DialogListener(std::function<void()> act = [] {}) : react(std::move(act)) {}
  void dialogPushButton(NkDialogPushButton* button) override {
    heard.push_back(button);
    react();
  }
  void dialogCheckBox(NkDialogCheckBox* box) override {
    heard.push_back(box);
    react();
  }

  std::vector<NkPanelix*> heard;
  std::function<void()> react;
};
