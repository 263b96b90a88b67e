#pragma once

#include "base/Numbers.h"

namespace Tesk {

/// Item and row numbers are 16-bit numbers. Throws ConversionError for a value outside.
inline qint16 Int16(int value)
{
    return ToInt16(static_cast<double>(value));
}

} // namespace Tesk
