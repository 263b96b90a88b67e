#include "widgets/FieldColour.h"

#include <QPalette>
#include <QWidget>

namespace Tesk {

namespace {

constexpr QColor InOrder(255, 255, 255);
constexpr QColor InError(255, 200, 200);

} // namespace

void ShowFieldError(QWidget *field, bool isError)
{
    QPalette colours = field->palette();
    colours.setColor(QPalette::Base, isError ? InError : InOrder);
    colours.setColor(QPalette::Text, Qt::black);
    field->setPalette(colours);
}

bool ShowsFieldError(const QWidget *field)
{
    return field->palette().color(QPalette::Base) == InError;
}

} // namespace Tesk
