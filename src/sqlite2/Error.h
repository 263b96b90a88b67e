#pragma once

#include <stdexcept>

namespace Sqlite2 {

/// What is wrong with a version 2 file, in a sentence that names the page, table or statement.
class Error : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace Sqlite2
