#pragma once

#include <QColor>

/// The colours of the controls that the program draws itself.
namespace Tesk::Colours {

inline constexpr QColor Band(219, 39, 28);
inline constexpr QColor OnBand(255, 255, 255);
inline constexpr QColor Ground(255, 255, 255);
inline constexpr QColor OnGround(0, 0, 0);
inline constexpr QColor Marked(204, 204, 204);
inline constexpr QColor Line(227, 227, 227);
inline constexpr QColor FocusOnGround(31, 35, 38);
inline constexpr QColor Text(31, 35, 38);
inline constexpr QColor Secondary(107, 114, 120);
/// Of buttons and lists on the white band.
inline constexpr QColor Control(245, 245, 245);
/// Of the current language's label.
inline constexpr QColor CurrentLanguage(0xE0, 0xE0, 0xE0);

} // namespace Tesk::Colours
