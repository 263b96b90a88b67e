#pragma once

#include <memory>

namespace Tesk {

class Controller;
class PageContext;

/// The page context of the running program. `controller` outlives it.
std::unique_ptr<const PageContext> MakePageContext(const Controller &controller);

} // namespace Tesk
