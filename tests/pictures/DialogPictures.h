#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Json.h"
#include "tests/tools/Picture.h"

/// Part of a picture, in pixels from its upper left corner.
struct Area {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

/// Fixture for pictures of dialogs that the program under test makes. Where a component is to be seen it says itself.
class DialogPictures : public ::testing::Test {
protected:
  /// Draws a form, "2d" or "3d", of the first dialog of an example.
  void draw(const std::string& example, const std::string& form, const std::vector<std::string>& options = {});

  const Picture& picture() const { return m_picture; }

  /// A component's place in the picture; the way leads through the children, from the dialog on.
  Area areaOf(const std::vector<std::size_t>& way) const;
  /// The letters and digits in an area as an optical reader sees them, with a space between two words. All letters are
  /// small ones, since for some only the size would tell.
  std::string readIn(const Area& area) const;
  std::string readAt(const std::vector<std::size_t>& way) const { return readIn(areaOf(way)); }

  /// Each example's texts at their places, in any form.
  void expectExportOptions() const;
  void expectNestedLayout() const;

private:
  bool is3D() const { return m_dialog["box"].kind == Json::ARRAY; }

  std::string m_path;
  Picture m_picture{""};
  Json m_dialog;
};
