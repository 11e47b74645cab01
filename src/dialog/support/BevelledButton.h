#pragma once

// clang-format off

/// Scene text of a square button between -0.5 and 0.5, drawn on a grid of 14 by 14: two rings, each one unit wide and
/// split into an upper left and a lower right half, around a field of ten by ten. The arguments are the colours.
#define PANELIX_BEVELLED_BUTTON(outerUpper, outerLower, innerUpper, innerLower, field) \
  "  Translation { translation 0 0 0.1 }"                                              \
  "  NkScale { scaleFactor 0.07142857 0.07142857 1.0 }"                                \
  "  Material { diffuseColor " outerUpper " }"                                         \
  "  NkCoordinate3 { point [ -7 -6 0, -6 -6 0, -6 7 0, -7 7 0 ] }"                     \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  NkCoordinate3 { point [ -6 6 0, 6 6 0, 6 7 0, -6 7 0 ] }"                         \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  Material { diffuseColor " outerLower " }"                                         \
  "  NkCoordinate3 { point [ -7 -7 0, 7 -7 0, 7 -6 0, -7 -6 0 ] }"                     \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  NkCoordinate3 { point [ 6 -6 0, 7 -6 0, 7 7 0, 6 7 0 ] }"                         \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  Material { diffuseColor " innerUpper " }"                                         \
  "  NkCoordinate3 { point [ -6 -5 0, -5 -5 0, -5 6 0, -6 6 0 ] }"                     \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  NkCoordinate3 { point [ -5 5 0, 5 5 0, 5 6 0, -5 6 0 ] }"                         \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  Material { diffuseColor " innerLower " }"                                         \
  "  NkCoordinate3 { point [ -6 -6 0, 6 -6 0, 6 -5 0, -6 -5 0 ] }"                     \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  NkCoordinate3 { point [ 5 -5 0, 6 -5 0, 6 6 0, 5 6 0 ] }"                         \
  "  NkFaceSet { numVertices [ 4 ] }"                                                  \
  "  Material { diffuseColor " field " }"                                              \
  "  NkCoordinate3 { point [ -5 -5 0, 5 -5 0, 5 5 0, -5 5 0 ] }"                       \
  "  NkFaceSet { numVertices [ 4 ] }"

// clang-format on
