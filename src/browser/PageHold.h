#pragma once

#include <functional>

namespace Tesk {

/// As long as one lives, a browser keeps the page that it shows (WebBrowser::HoldPage).
class PageHold final
{
public:
    explicit PageHold(const std::function<void()> &released)
        : released(released)
    {}
    ~PageHold()
    {
        if (released)
            released();
    }
    PageHold(const PageHold &) = delete;
    PageHold &operator=(const PageHold &) = delete;

    /// The browser is gone.
    void Forget() { released = nullptr; }

private:
    std::function<void()> released;
};

} // namespace Tesk
