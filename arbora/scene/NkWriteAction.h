#pragma once

#include <memory>

#include "arbora/scene/NkAction.h"

class NkChildList;
class NkOutput;

/// Writes a scene, or as much of it as a path needs. Each object is written once; where it stands again, a reference
/// is written.
class ARBORA_API NkWriteAction : public NkAction {
public:
  /// Writes to `out`, which belongs to the caller, or to an output of its own.
  explicit NkWriteAction(NkOutput* out = nullptr);
  ~NkWriteAction() override;

  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  NkOutput* getOutput() const { return m_out; }

  void apply(NkNode* root) override;
  void apply(NkPath* path) override;
  /// The paths one after the other.
  void apply(const NkPathList& paths) override;

  /// Index of the last child of the present node that is to be written: all are, but on a path those up to the one
  /// that the path goes on with.
  int getLastChild(int numChildren) const;
  /// Writes or counts, as the stage demands, a node that stands in a field of the present one.
  void writeFieldNode(NkNode* node);
  /// Writes or counts the nodes of a path that is an object in the file.
  void writePathNodes(NkPath* path);

protected:
  void dispatch(NkNode* node) override;

private:
  /// Runs both stages.
  template <class WriteStage>
  void write(WriteStage writeStage);

  static NkType s_classTypeId;
  std::unique_ptr<NkOutput> m_ownOut;
  NkOutput* m_out;
};
