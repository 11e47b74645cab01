#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "Panelix/Skin.h"
#include "Panelix/export.h"
#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbPList.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/scene/NkDragger.h"
#include "arbora/scene/NkFieldSensor.h"
#include "src/platform/Win32.h"

class NkAuditor;
class NkGetBoundingBoxAction;
class NkGroup;
class NkMaterial;
class NkPickStyle;
class NkText3;
class NkTransform;
class NkTranslation;

/// Root of every node of the toolkit: the start and end of the library, what all components have in common, and the
/// services that both forms use. A component is a node kit, a dragger, and it can stand in a scene; its 2D form is
/// made of native windows. Both forms are built from the same fields and may stand at once.
class PANELIX_API NkPanelix : public NkDragger {
  NK_KIT_HEADER(NkPanelix);

public:
  enum LabelAlignment { LEFT = 0, CENTER = 1, RIGHT = 2 };

  NkSFBool enable;         ///< Takes input from the user. TRUE.
  NkSFString label;        ///< Text of the label area. Empty.
  NkSFString auditorID;    ///< Name by which `loadFromFile` and `searchForAuditorId` find the node. Empty.
  NkSFEnum labelAlignment; ///< Within the label area. RIGHT.

  // The library

  /// Starts the library and the scene library under it; counted. A node exists only between `init` and `finish`.
  static void init();
  /// To be called as often as `init`; the last call forgets the files that were read and the classes.
  static void finish();
  static bool isInitialized();
  static const char* getProductName();
  static const char* getVersion();

  /// The component of a scene text file whose `auditorID` is the one given, or the first component with an empty one;
  /// only the file's outermost nodes are looked at. The file is read once: a later call gives the same node. The
  /// caller gets a reference of his own. NULL, with a message, if there is no such file or component.
  static NkPanelix* loadFromFile(NbString fileName, NbString auditorID);

  /// 1 for the handle of a living window.
  static int existWidget(HWND window);

  // The tree

  /// Keeps the back pointer; the parent owns its children, not the reverse. It is cleared when the parent goes.
  void setParent(NkPanelix* parent);
  NkPanelix* getParent() const { return m_parent; }
  /// The top-level dialog above, whatever stands between. The way up ends where a parent can't be traversed, unless
  /// `ignoreTraversal`; it then gives this node with `orSelf`, otherwise NULL. Without a top-level dialog it gives the
  /// outermost group with `orSelf`, otherwise NULL.
  NkPanelix* getFirstTopParent(int ignoreTraversal, int orSelf);

  // Skins: directories with one scene text file per class

  /// Changes to the skin of that path, or of that name in one of the skin directories. Nothing happens if there is
  /// none.
  static void setSkin(NbString nameOrPath);
  /// 1 if `setSkin` would find it.
  static int existSkin(NbString nameOrPath);
  /// Where skins are looked for, separated by ";". Nothing is read again.
  static void setSkinsDirectories(NbString directories);
  static NbString getSkinsDirectories();
  /// Older names of `setSkin`, which gives 1, and of `getSkinsDirectories`.
  static int setSkinsDirectory(NbString nameOrPath);
  static NbString getSkinsDirectory();
  /// Reads all parts of all classes again. Nodes that use a part keep it and change their look.
  static void change3DSkin();
  static int isSkinLoaded();
  static void setSkinLoaded(int isLoaded);
  /// The two halves of the exchange of one part: the first empties it and hides its name from the file that is read
  /// next, the second fills it with what that file defined.
  static void free3DSkin(NbString partName);
  static void load3DSkin(NbString partName);
  /// Built-in text of the properties of all 3D texts: colour, distance from the panel and font.
  static const char* TextProperties;

  // Text

  /// Font of the windows that are made from now on; the caller keeps it alive. At first the system's font for
  /// controls.
  static void setFont(HFONT font);
  static HFONT getPanelixFont();
  static void setWidgetFont(HWND window);
  /// Size of a text in pixels, with 3 added to each side length; (0, 0) for the empty text. The node's class decides
  /// how escapes and line feeds count; it may be NULL.
  static NbVec2i32 getLabelPixelSize(NbString text, NkPanelix* node);

  /// What stands in a component changes nothing for what follows it.
  bool affectsState() const override { return false; }
  void GLRender(NkGLRenderAction* action) override;

  // Virtual operations

  /// Builds or updates one form: the 2D form inside `parent` if `is2D` isn't 0, otherwise the 3D form. A `size` other
  /// than 0 overrides the size that the component would take, per axis; both are in pixels.
  virtual void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D);
  /// Destroys the windows of the 2D form.
  virtual void destroyWidget();
  /// A field changed from outside. A class compares the sensor with its own and leaves the others to its base.
  virtual void updateFromSensor(NkSensor* sensor);
  /// Tells the auditors of a container about a user's action on `source`, or hands it on to its parent.
  virtual void applyAuditor(NkPanelix* source);
  /// Forgets the negotiated sizes, ahead of a new layout.
  virtual void resetSize();
  virtual void changeEnable();
  virtual void changeLabel();
  virtual void changeLabelAlignment();
  virtual void show3D(int on);
  /// Moves the 3D form by the offset that its parent gives it, in scene units.
  virtual void set3DParentTranslation(NbVec3f& translation);
  virtual void change3DPosition();
  /// The parent's part of enabling: takes input only if both `on` and `enable` hold.
  virtual void change3DWidgetEnable(int on);
  virtual void change3DEnable();
  virtual void change3DLabel();
  virtual void change3DLabelAlignment();
  /// Another component takes the 3D input.
  virtual void set3DInactive();

  int isBuilt3D() const { return m_built3D; }
  void setBuilt3D(int isBuilt) { m_built3D = isBuilt; }
  int canBeTraversed() const { return m_canBeTraversed; }
  void setCanBeTraversed(int canBe) { m_canBeTraversed = canBe; }
  const NbVec3f& get3DParentTranslation() const { return m_parentTranslation; }
  void apply3DParentTranslation();

protected:
  NkPanelix();
  ~NkPanelix() override;
  void destroy() override;
  bool dropCaches(NkNotification& notification) override;
  bool isCopied(const NkField& field) const override;

  /// Takes the file that holds the node out of the cache.
  static void destroyByRef(NkPanelix* node);

  /// Callback of all field sensors; `data` is the node.
  static void fieldChangedCB(void* data, NkSensor* sensor);
  /// Makes the sensor of a field unless it is there; it fires inside the write.
  void attachSensor(std::unique_ptr<NkFieldSensor>& sensor, NkField& field);

  // Auditors; they belong to the application

  /// An auditor is on the list at most once.
  void addAuditor(NkAuditor* auditor);
  void removeAuditor(NkAuditor* auditor);
  /// The entry of the list, which may be exchanged.
  void*& getAuditor(int index);
  int getAuditorListLength() const;
  /// Tells the auditors of class `Auditor`, in order, about the component whose state the user has changed; false if
  /// there is none. The list, the component and this node may go meanwhile.
  template <class Auditor, class Component>
  bool callAuditors(void (Auditor::*operation)(Component*), Component* component) {
    return callAuditorsOf<Auditor>(operation, component);
  }
  template <class Auditor, class Component>
  bool callAuditors(void (*operation)(Auditor*, Component*), Component* component) {
    return callAuditorsOf<Auditor>(operation, component);
  }
  /// The same; without any, the parent is told.
  template <class Operation, class Component>
  void tellAuditors(Operation operation, Component* component) {
    const arbora::KeepAlive alive(this);
    if (!callAuditors(operation, component) && m_parent) m_parent->applyAuditor(component);
  }

  // Skins

  /// Reads the parts of a file of the skin, or else those of the text.
  static void readDefaultSkinsParts(const NbString& fileName, const char* builtInText);
  /// First use of a class's skin: reads it unless it has been read.
  static void useSkin(panelix::Skin& skin);
  /// Reads a class's skin again in the place of what was read before.
  static void exchangeSkin(panelix::Skin& skin);
  static void loadFontProperties();

  // Text

  /// The text that a control shows: escapes and line ends are resolved as the node's class wants it; NULL for none.
  static NbString convertToCString(const NbString& text, NkPanelix* node = nullptr);
  /// The empty string.
  static NbString convertFromCString(const NbString& text, int unused);
  /// Number of line feeds.
  static int getNumLines(const NbString& text);
  /// Sets the text of a window.
  static void setWindowTextOf(HWND window, const NbString& text);
  /// Writes the lines of a text from the first line on; further lines stay.
  static void setStringToText3(NkText3* text3, const NbString& text);
  /// Inserts into a line behind column `column`, -1 for its end; a text with a line feed breaks the line instead. Gives
  /// the line on which the insertion ended.
  static int insertTextTo3DText(NbString text, NkText3* text3, int line, int column);
  /// Breaks a line so that no piece is wider than `maxWidth` scene units by more than one character, as far as a
  /// character fits at all; gives the last line that it wrote. `properties` sets the font.
  static int wrap3DTextLine(NkText3* text3, int line, float maxWidth, NkGroup* properties, NkPanelix* node);

  // 3D form

  /// The 3D form is there and follows the fields.
  bool isLive3D() const { return isBuilt3D() && canBeTraversed(); }
  /// Gives the 3D input to a component, which the previous holder is told; NULL takes it away.
  static void set3DCurrentActive(NkPanelix* component);
  /// The part of that name, a group. It is made if need be: a skin may lack all that stands in it.
  NkGroup* groupPart(const NbName& name);
  /// The box of a subgraph, and that of a text under its properties.
  NbBox3f measure3D(NkNode* node);
  NbBox3f measure3DText(NkNode* properties, NkText3* text);
  static const NbBox3f kNotMeasured;
  /// The same, into `box`, unless it holds the result already.
  void measure3DText(NbBox3f& box, NkNode* properties, NkText3* text);
  /// Makes `result` the translation and rotation at the end of a subgraph, without its scale: what comes behind a skin
  /// part lands on the part's far end, however the part is stretched.
  void undoTransformMatrix(NkNode* node, NkTransform* result);
  /// The same, unless that was done for the subgraph as it is; `measured` keeps its id.
  void undoTransformMatrix(NkNode* node, NkTransform* result, std::uint64_t& measured);
  /// How far the end of a subgraph stands out, in scene units.
  float compute3DDepth(NkNode* node);
  static constexpr float kDepthNotMeasured = -1;
  /// Adds the depth of a subgraph and the parent's offset to `translation`. `depth` caches the depth.
  void apply3DTranslation(NkNode* node, float& depth, NbVec3f& translation);
  /// The press that goes on hit something in that part.
  bool isPicked(const NkSFNode& part) const;
  int isLabelCachedBBox() const;
  void setLabelCacheBBox(const NbBox3f& box) { m_labelCachedBBox = box; }
  const NbBox3f& getLabelCachedBBox() const { return m_labelCachedBBox; }

  /// Writes the kit's scene as text, for a look at it.
  void writeNode(const char* fileName);

  static HFONT m_font;            ///< Of all windows; the application's or the system's.
  static NkPanelix* m_lastActive; ///< Holds the 3D input; not owned.

  int m_built2D = 0;             ///< What `buildWidget` was called with; 0 without a 2D form.
  HWND m_parentWidget = nullptr; ///< Window that the 2D form stands in.
  NkPanelix* m_parent = nullptr; ///< Owns this node.
  int m_visible3D = 1;
  arbora::Ref<NkPickStyle> m_pickStyle;
  arbora::Ref<NkMaterial> m_disableMaterial; ///< Greys what is disabled.
  NkSFNode geomSwitch;

private:
  /// Hands each auditor to `call`, in order. One that an earlier call takes off the list is left out.
  void forEachAuditor(const std::function<void(NkAuditor*)>& call);
  template <class Auditor, class Operation, class Component>
  bool callAuditorsOf(Operation operation, Component* component) {
    if (getAuditorListLength() == 0) return false;
    const arbora::KeepAlive alive(component);
    bool isTold = false;
    forEachAuditor([&](NkAuditor* entry) {
      // A base class or a subclass of the node may have put auditors of another kind on the list.
      auto* auditor = dynamic_cast<Auditor*>(entry);
      if (!auditor) return;
      isTold = true;
      std::invoke(operation, auditor, component);
    });
    return isTold;
  }

  void create3DPanelix();
  static NkGroup* readFromFile(const NbString& fileName);
  /// Where a skin is; empty if there is none.
  static NbString pathOfSkin(const NbString& nameOrPath);
  /// Switches to the skin of the settings if there is one and no other was set.
  static void findSkin();

  static NbString s_skinsPath;
  static int m_errorMsgDelivered; ///< Not 0 until the long explanation of a missing skin was given.
  static panelix::Skin s_skin;

  std::unique_ptr<NbPList> m_auditors;
  std::unique_ptr<NkFieldSensor> m_enableSensor, m_labelSensor, m_labelAlignmentSensor;
  NbBox3f m_labelCachedBBox;
  int m_built3D = 0;
  int m_canBeTraversed = 1;
  arbora::Ref<NkTranslation> m_parentTranslationNode;
  NbVec3f m_parentTranslation;
  std::vector<NkPanelix*> m_pointingHere; ///< Nodes whose parent this is.
  int m_indexInParent = 0;                ///< Own place in that list of the parent.
};
