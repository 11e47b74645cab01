#pragma once

#include <optional>
#include <string>

#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkSeparator.h"

namespace panelix {

struct DialogOptions;
class Messages;
class SceneFile;

/// A dialog of a file: a top-level dialog, wherever it stands, or a component that stands outside of any other. Such a
/// component gets a plain dialog around it, which makes it behave as it does in an application.
class Dialog {
public:
  /// The dialog that the options name. If there is none, that is posted and `component` is NULL.
  Dialog(const SceneFile& scene, const DialogOptions& options, Messages& messages);
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  /// What the file has.
  NkPanelix* component() const { return m_component.get(); }
  /// The component itself or what is around it.
  NkTopLevelDialog* top() const { return m_top.get(); }

  /// Builds the 2D form, hidden. On systems without windows the layout stands all the same; elsewhere this is false,
  /// and posted, if no window could be made.
  bool build2D(Messages& messages);
  /// Builds the 2D form and shows it in the program's main window, so that closing it ends the main loop. False, and
  /// posted, where there are no windows.
  bool open2D(Messages& messages);
  /// Builds the 3D form and gives its scene: the dialog alone.
  NkSeparator* build3D();
  /// Adds a camera that sees the 3D form straight from the front, with a little room around it, and a light. Gives the
  /// size of the picture: one in which a scene unit is a pixel unless it is given.
  NbVec2i32 addCamera(const std::optional<NbVec2i32>& size);

private:
  bool build2DIn(HWND window, Messages& messages);

  arbora::Ref<NkPanelix> m_component;
  arbora::Ref<NkTopLevelDialog> m_top;
  arbora::Ref<NkSeparator> m_scene;
  NbBox3f m_box; // Of the 3D form.
};

/// Whether a dialog of the file is meant rather than all of it: somebody asks for one, or the file holds nothing but
/// components.
bool isDialogMeant(const DialogOptions& options, const SceneFile& scene);

/// False, and posted, for a component that has no size.
bool setSize(NkPanelix& component, const NbVec2i32& size, Messages& messages);

/// Changes to a skin, if one is named. False, and posted, if there is none of that name.
bool setSkin(const std::string& name, Messages& messages);

} // namespace panelix
