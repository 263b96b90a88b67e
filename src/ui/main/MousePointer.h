#pragma once

namespace Tesk {

/// The program's mouse pointer: hourglass or default, set and never stacked, so that one reset
/// undoes any number of settings.
class MousePointer final
{
public:
    MousePointer() = default;
    ~MousePointer();

    MousePointer(const MousePointer &) = delete;
    MousePointer &operator=(const MousePointer &) = delete;

    void SetHourglass();
    void SetDefault();

private:
    bool isHourglass = false;
};

} // namespace Tesk
