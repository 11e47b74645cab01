#pragma once

#include <vector>

#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkSubKit.h"

class NkPickedPoint;

/// Node with parts: nodes that have a name and a fixed place in a small tree under the kit. The class's catalog tells
/// which parts there are. A part is made when it is first asked for, together with its parents; until then it costs
/// nothing. Parts are held by fields of the same names.
///
/// To the outside a kit is one node. Paths that actions find in it end at the kit for the public; what was met inside
/// is told by a detail.
///
/// Parts are named by `part`, `list[2]` for an item of a list, and `kitPart.part` for a part of a kit that is itself a
/// part.
class ARBORA_API NkBaseKit : public NkNode {
  NK_NODE_HEADER(NkBaseKit);

public:
  NkBaseKit();

  static const NkNodekitCatalog* getClassNodekitCatalog() { return nodekitCatalog; }
  static const NkNodekitCatalog** getClassNodekitCatalogPtr() { return &nodekitCatalog; }
  virtual const NkNodekitCatalog* getNodekitCatalog() const;
  /// 1 for classes that are compiled in, which all are.
  virtual int getIsBuiltIn() const;

  /// The node of a public part. With `makeIfNeeded` a part that isn't there is made, otherwise it's NULL. A name that
  /// is no public part's is posted and gives NULL.
  NkNode* getPart(const NbName& partName, bool makeIfNeeded);
  /// Puts a node in the place of a public part; NULL takes the part out, with the parts below it. False, with a
  /// message, if the name is no public part's or the node isn't of the part's type.
  bool setPart(const NbName& partName, NkNode* node);
  /// The name of the part, or of the list item, that a node is in this kit; the empty name if it is none. Parts of kits
  /// inside aren't looked at.
  NbName getPartString(const NkBase* part) const;

  NkChildList* getChildren() const override { return &m_children; }
  bool affectsState() const override;

  void doAction(NkAction* action) override;
  void getMatrix(NkGetMatrixAction* action) override;
  /// Measures the kit first: a kit may put off making its content until somebody asks for its box.
  void GLRender(NkGLRenderAction* action) override;
  void rayPick(NkRayPickAction* action) override;
  void search(NkSearchAction* action) override;
  void addWriteReference(NkOutput* out, bool fromField = false) override;

  /// Whether searches look into kits. They do so from the start.
  static bool isSearchingChildren();
  static void setSearchingChildren(bool flag);

  /// Settles by the default flag which parts are written; called ahead of each writing. A part that the kit has made
  /// for itself is its own business and isn't. One that `getPart` has handed out is, once it differs from what the kit
  /// would make; a node that was put in the place of a part always is.
  virtual void setDefaultOnNonWritingFields();

  // For tests and the traversals of this library.
  void fieldHasChanged(NkField* field) override;
  bool validateNewFieldValue(NkField* field, void* newValue) override;

protected:
  ~NkBaseKit() override;

  static const arbora::KitClass& kitClass();

  // What the macros of a constructor come down to.
  /// Adds a row for the class whose first instance is under construction.
  void addCatalogRow(const arbora::KitClass& kit, const NkSFNode& holder, const arbora::CatalogRow& row);
  /// Makes room for the parts that the class has added to the catalog.
  void createNodekitPartsList();
  /// Makes the parts that aren't null by default.
  void createDefaultParts();
  /// Tells that a row of the catalog was refused while a class's first instance was made.
  static void catalogError();

  /// As `getPart` for parts that needn't be public. With `leafCheck` the part has to be a leaf, with `publicCheck`
  /// public; a part that isn't, or isn't there, is posted and gives NULL.
  virtual NkNode* getAnyPart(const NbName& partName, bool makeIfNeeded, bool leafCheck = false,
                             bool publicCheck = false);
  /// As `setPart`; with `anyPart` the part needn't be public.
  virtual bool setAnyPart(const NbName& partName, NkNode* node, bool anyPart = true);
  /// The holder field of a part; NULL if there is no such part.
  NkSFNode* getPartHolder(int part) const;
  NkSFNode* getPartHolder(const NbName& partName) const;

  // Children, parts included, as those of `NkGroup`: a kit that is a container offers them in its own words. The
  // virtual forms are what the others come down to.
  void addChild(NkNode* child);
  /// Valid for 0 to the number of children; anything else is posted and changes nothing.
  void insertChild(NkNode* child, int index);
  /// NULL, with a message, outside the list.
  NkNode* getChild(int index) const;
  int findChild(const NkNode* child) const;
  int getNumChildren() const;
  void removeChild(int index);
  void removeChild(NkNode* child);
  void removeAllChildren();
  void replaceChild(int index, NkNode* child);
  void replaceChild(NkNode* oldChild, NkNode* newChild);
  virtual void internalAddChild(NkNode* child);
  virtual void internalInsertChild(NkNode* child, int index);
  virtual NkNode* internalGetChild(int index) const;
  virtual int internalFindChild(const NkNode* child) const;
  virtual void internalRemoveChild(int index);
  virtual void internalRemoveChild(NkNode* child);
  virtual void internalRemoveAllChildren();
  virtual void internalReplaceChild(int index, NkNode* child);
  virtual void internalReplaceChild(NkNode* oldChild, NkNode* newChild);

  /// Whether files hold a field.
  bool isWritten(const NkField& field) const;
  /// Closes what `writeHeader` has opened: the last step of a class's own `write`.
  void endWrite(NkOutput* out) const;
  void copyContents(const NkNode* original) override;

private:
  // A part that stands in the tree.
  struct Placed {
    // Put there as it is; made on demand; made on demand and then handed out, so that it may have changed.
    enum Origin { PUT, MADE, HANDED_OUT };
    arbora::Ref<NkNode> node;
    Origin origin = PUT;
  };
  struct PartRef;

  PartRef findPart(const NbName& name, const char* operation) const;
  NkSFNode* holderAt(int part) const;
  NkNode* nodeAt(int part) const { return holderAt(part)->getValue(); }
  int partOfHolder(const NkField* field) const;
  int partOfNode(const NkNode* node) const;
  Placed& placed(int part);
  bool fitsPart(int part, const NkNode* node) const;
  bool checkPartType(int part, const NkNode* node, const char* operation) const;
  NkNode* makePart(int part);
  void handOut(int part);
  void putPart(int part, NkNode* node);
  void placePart(int part, NkNode* node);
  void placePartsBelow(int part, NkNode* previous, NkNode* node);
  void insertInOrder(int part, NkNode* node, NkChildList& siblings);
  NkChildList* siblingsOf(int part, bool makeIfNeeded);
  bool isAsMade(NkNode* node) const;
  void attachDetail(NkPickedPoint& point, int depth);
  bool checkIndex(const char* operation, int index, int last) const;

  static const NkNodekitCatalog* nodekitCatalog;
  static const NkNodekitCatalog** parentNodekitCatalogPtr;
  static int isBuiltIn;

  mutable NkChildList m_children;
  std::vector<Placed> m_placed;      // By part number; empty until the first part is there.
  const NkField* m_holder = nullptr; // The holder that the kit itself is writing.
};
