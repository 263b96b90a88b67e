#pragma once

#include <QColor>

namespace Tesk::Palette {

// The colours of what the program draws itself. Native controls keep the desktop's.

inline constexpr QColor Red{219, 39, 28};
inline constexpr QColor White{255, 255, 255};
inline constexpr QColor Text{31, 35, 38};
inline constexpr QColor Secondary{107, 114, 120};
inline constexpr QColor Line{227, 229, 231};
/// Of the current language's label.
inline constexpr QColor CurrentLanguage{0xE0, 0xE0, 0xE0};

} // namespace Tesk::Palette
