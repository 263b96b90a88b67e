#pragma once

#include <QRect>

/// Positions of the drawn controls are whole twips, 15 to a device-independent pixel; they become
/// pixels at the very end.
namespace Tesk::Twips {

inline constexpr int PerPixel = 15;

constexpr int FromPixels(int pixels)
{
    return pixels * PerPixel;
}

constexpr int ToPixels(int twips)
{
    return twips / PerPixel;
}

/// Divides the edges, not the extent: what touches in twips touches in pixels.
constexpr QRect ToPixels(const QRect &twips)
{
    return QRect(
        QPoint(ToPixels(twips.x()), ToPixels(twips.y())),
        QPoint(ToPixels(twips.x() + twips.width()) - 1, ToPixels(twips.y() + twips.height()) - 1));
}

} // namespace Tesk::Twips
