#include "ui/main/MousePointer.h"

#include <QApplication>

namespace Tesk {

MousePointer::~MousePointer()
{
    SetDefault();
}

void MousePointer::SetHourglass()
{
    if (isHourglass)
        return;
    isHourglass = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void MousePointer::SetDefault()
{
    if (!isHourglass)
        return;
    isHourglass = false;
    QApplication::restoreOverrideCursor();
}

} // namespace Tesk
