#pragma once

#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/NkTypedObject.h"

// clang-format off
// What every event class carries: its run-time type.
#define NK_EVENT_HEADER(Class)                              \
public:                                                     \
  static NkType getClassTypeId() { return s_classTypeId; }  \
  NkType getTypeId() const override;                        \
  static void initClass();                                  \
  static void exitClass();                                  \
                                                            \
private:                                                    \
  static NkType s_classTypeId

// The definitions, in the class's source.
#define NK_EVENT_SOURCE(Class, Parent, Name)                                                           \
  NkType Class::s_classTypeId;                                                                         \
  NkType Class::getTypeId() const { return s_classTypeId; }                                            \
  void Class::initClass() { s_classTypeId = NkType::createType(Parent::getClassTypeId(), Name); }      \
  void Class::exitClass() {                                                                            \
    NkType::removeType(Name);                                                                          \
    s_classTypeId = NkType::badType();                                                                 \
  }                                                                                                    \
  static_assert(true)
// clang-format on

/// Something that the user did, as the window glue tells it to the scene: when, where on the screen, and which
/// modifier keys were down.
class ARBORA_API NkEvent : public NkTypedObject {
  NK_EVENT_HEADER(NkEvent);

public:
  NkEvent();
  ~NkEvent() override;

  /// Seconds since a start that the window system chooses.
  double getTime() const { return m_time; }
  void setTime(double seconds) { m_time = seconds; }

  /// Pixels from the window's lower left corner.
  const NbVec2i32& getPosition() const { return m_position; }
  void setPosition(const NbVec2i32& pixels) { m_position = pixels; }
  /// The position within the viewport: (0, 0) is its lower left corner, (1, 1) its upper right.
  NbVec2f getNormalizedPosition(const NbViewportRegion& viewport) const;

  bool wasShiftDown() const { return m_shiftDown; }
  bool wasCtrlDown() const { return m_ctrlDown; }
  bool wasAltDown() const { return m_altDown; }
  void setShiftDown(bool down) { m_shiftDown = down; }
  void setCtrlDown(bool down) { m_ctrlDown = down; }
  void setAltDown(bool down) { m_altDown = down; }

  /// True for events of a pointing device in space. They carry a ray; their position on the screen means nothing.
  virtual bool isTrackerEvent() const { return false; }

private:
  double m_time = 0;
  NbVec2i32 m_position{0, 0};
  bool m_shiftDown = false;
  bool m_ctrlDown = false;
  bool m_altDown = false;
};
