#pragma once

#include "base/Errors.h"

namespace Tesk {

/// A command line that does not say what to do.
class UsageError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

} // namespace Tesk
