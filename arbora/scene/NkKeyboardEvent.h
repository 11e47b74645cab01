#pragma once

#include "arbora/scene/NkButtonEvent.h"

/// A key that goes down or up.
class ARBORA_API NkKeyboardEvent : public NkButtonEvent {
  NK_EVENT_HEADER(NkKeyboardEvent);

public:
  /// Keys that print a Latin-1 character have that character's code, letters the small one: any such code may be given
  /// to `setKey`, named here or not. The others lie above 0xFF00.
  enum Key {
    ANY = 0,

    SPACE = 0x20,
    APOSTROPHE = 0x27,
    COMMA = 0x2C,
    MINUS = 0x2D,
    PERIOD = 0x2E,
    SLASH = 0x2F,
    NUMBER_0 = 0x30,
    NUMBER_1,
    NUMBER_2,
    NUMBER_3,
    NUMBER_4,
    NUMBER_5,
    NUMBER_6,
    NUMBER_7,
    NUMBER_8,
    NUMBER_9,
    SEMICOLON = 0x3B,
    EQUAL = 0x3D,
    BRACKET_LEFT = 0x5B,
    BACKSLASH = 0x5C,
    BRACKET_RIGHT = 0x5D,
    GRAVE = 0x60,
    A = 0x61,
    B,
    C,
    D,
    E,
    F,
    G,
    H,
    I,
    J,
    K,
    L,
    M,
    N,
    O,
    P,
    Q,
    R,
    S,
    T,
    U,
    V,
    W,
    X,
    Y,
    Z,

    BACKSPACE = 0xFF08,
    TAB = 0xFF09,
    RETURN = 0xFF0D,
    PAUSE = 0xFF13,
    SCROLL_LOCK = 0xFF14,
    ESCAPE = 0xFF1B,
    HOME = 0xFF50,
    LEFT_ARROW = 0xFF51,
    UP_ARROW = 0xFF52,
    RIGHT_ARROW = 0xFF53,
    DOWN_ARROW = 0xFF54,
    PAGE_UP = 0xFF55,
    PAGE_DOWN = 0xFF56,
    END = 0xFF57,
    PRINT = 0xFF61,
    INSERT = 0xFF63,
    NUM_LOCK = 0xFF7F,

    // The keypad, its digits in the order of the movements that the same keys make.
    PAD_ENTER = 0xFF8D,
    PAD_7 = 0xFF95,
    PAD_4 = 0xFF96,
    PAD_8 = 0xFF97,
    PAD_6 = 0xFF98,
    PAD_2 = 0xFF99,
    PAD_9 = 0xFF9A,
    PAD_3 = 0xFF9B,
    PAD_1 = 0xFF9C,
    PAD_5 = 0xFF9D,
    PAD_0 = 0xFF9E,
    PAD_PERIOD = 0xFF9F,
    PAD_MULTIPLY = 0xFFAA,
    PAD_ADD = 0xFFAB,
    PAD_SUBTRACT = 0xFFAD,
    PAD_DIVIDE = 0xFFAF,

    F1 = 0xFFBE,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12,

    LEFT_SHIFT = 0xFFE1,
    RIGHT_SHIFT = 0xFFE2,
    LEFT_CONTROL = 0xFFE3,
    RIGHT_CONTROL = 0xFFE4,
    CAPS_LOCK = 0xFFE5,
    LEFT_ALT = 0xFFE9,
    RIGHT_ALT = 0xFFEA,
    DELETE_ = 0xFFFF
  };

  NkKeyboardEvent();
  ~NkKeyboardEvent() override;

  Key getKey() const { return m_key; }
  void setKey(Key key) { m_key = key; }

  /// The Latin-1 character that the key typed, 0 if none. It is the one that was set. Without one it follows from the
  /// key: letters are capitals with Shift, other keys know no layout and give their plain character.
  char getPrintableCharacter() const;
  /// What the window system's keyboard layout makes of the key and its modifiers; 0 takes it back.
  void setPrintableCharacter(char character) { m_character = character; }

  /// NULL and events of other classes give false; `ANY` stands for all keys.
  static bool isKeyPressEvent(const NkEvent* event, Key key);
  static bool isKeyReleaseEvent(const NkEvent* event, Key key);

private:
  static bool isEvent(const NkEvent* event, Key key, State state);
  Key m_key = ANY;
  char m_character = 0;
};
