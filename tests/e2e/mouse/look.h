#pragma once

#include <QColor>

/// The colours and measures that tell what the window shows, as its style sheets give them.
namespace Look {
constexpr QRgb background = 0xff202020; ///< of the central widget and of message boxes
constexpr QRgb frame = 0xff505050;      ///< of message boxes and context menus
constexpr QRgb button = 0xff303030;
constexpr QRgb buttonUnderMouse = 0xff404040;
constexpr QRgb comboArrow = 0xffbbbbbb;
constexpr QRgb comboFrame = 0xff707070;
constexpr QRgb comboFrameUnderMouse = 0xff909090;
constexpr QRgb comboEntryUnderMouse = 0xff505050; ///< the current entry too
constexpr QRgb editFrameWithKeyboard = 0xffaaaaaa;
constexpr QRgb focusRing = 0xffaaaaaa; ///< around the control that has the keyboard
constexpr QRgb gridLine = 0xff252525;
constexpr QRgb cellSelected = 0xff404040; ///< of the pads page too
constexpr QRgb cellUnusable = 0xff303030; ///< the switch too
constexpr QRgb menuEntryUnderMouse = 0xff404040;

constexpr int menuFrame = 3;      ///< what surrounds the entries of a context menu
constexpr int menuSeparator = 11; ///< the height of a separator in one
} // namespace Look
