#pragma once

namespace Tesk {

/// The space in pixels between the edge of a cart dialog and what stands in it.
constexpr int DialogMargin = 16;

} // namespace Tesk
