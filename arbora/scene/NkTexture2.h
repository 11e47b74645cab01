#pragma once

#include "arbora/scene/NkSubNode.h"

/// An image on the shapes behind it, from a PNG or JPEG file or given in a field. A name that is no absolute path is
/// looked for in the folders of `NkInput`. Without an image shapes are plain.
class ARBORA_API NkTexture2 : public NkNode {
  NK_NODE_HEADER(NkTexture2);

public:
  enum Wrap { REPEAT = 0, CLAMP = 1 };
  enum Model { MODULATE = 0 };

  /// Empty: the image of the field `image` is used.
  NkSFFilePathString filename;
  NkSFImage image;
  NkSFEnum wrapS; // REPEAT.
  NkSFEnum wrapT; // REPEAT.
  NkSFEnum model; // MODULATE: the colour of the shape times that of the image.

  NkTexture2();

  /// The image to show; its size is 0 if there is none. The file is read when this is first asked for.
  const arbora::Image& getImage();

  void doAction(NkAction* action) override;
  void fieldHasChanged(NkField* field) override;

protected:
  ~NkTexture2() override;

private:
  void load();
  arbora::Image m_loaded;
  bool m_valid = false;
};
