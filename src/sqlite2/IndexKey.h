#pragma once

#include "sqlite2/Schema.h"
#include "sqlite2/Value.h"

#include <string>

namespace Sqlite2 {

/// The key of one value in an index, so that keys sort byte by byte as values sort: `a` for NULL,
/// `b` and the number for a text in a numeric column that is a number, else `c` and the text; each
/// closed by a NUL. An entry's key is its columns' keys and then the row's key.
std::string EncodeIndexValue(const Value &value, TypeClass typeClass);

/// A number as characters that sort as numbers sort: the sign (`0`, or `-` below zero), the
/// exponent to the base 64 plus 1024 in two digits, then the mantissa plus one half in up to ten
/// digits of that base. Below zero, exponent and mantissa change their signs.
///
/// Zero and whole positive numbers are met in files that the version 2 engine wrote. Fractions,
/// negative numbers and those too large for a double follow the same rule without such a witness.
std::string EncodeNumber(double number);

} // namespace Sqlite2
