#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>

#include "arbora/base/NbName.h"

namespace arbora {

struct DeleteFreeTypeFace {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using FreeTypeFace = std::unique_ptr<FT_FaceRec, DeleteFreeTypeFace>;

/// The fonts of a Linux system. It lives as long as a face of it is open; its own configuration, so that nothing else
/// in the program that asks for fonts is touched.
class FontSystem {
public:
  FontSystem();
  ~FontSystem();
  FontSystem(const FontSystem&) = delete;
  FontSystem& operator=(const FontSystem&) = delete;

  static std::shared_ptr<FontSystem> get();

  struct Match {
    FreeTypeFace face; // NULL if there is no font; must not outlive the system.
    std::string family;
    bool isAsAsked = false;
  };
  /// The face of that name, or the system's sans serif in its place.
  Match findFace(const NbName& face) const;

private:
  FcConfig* m_config;
  FT_Library m_freeType = nullptr;
};

} // namespace arbora
