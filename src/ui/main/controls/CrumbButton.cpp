#include "ui/main/controls/CrumbButton.h"

#include "ui/main/controls/Colours.h"

#include <QMargins>
#include <QPainter>

#include <cmath>

namespace Tesk {

namespace {

/// Pixels around the caption; the arrow behind it stands farther off.
constexpr QMargins Around(2, 2, 2, 2);

} // namespace

CrumbButton::CrumbButton(QWidget *parent)
    : DrawnButton(QAccessible::Link, parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void CrumbButton::SetCaption(const QString &newCaption)
{
    caption = newCaption;
    setAccessibleName(caption);
    update();
}

QSize CrumbButton::CaptionSize() const
{
    const double width = QFontMetricsF(font()).horizontalAdvance(caption);
    return {static_cast<int>(std::ceil(width)), fontMetrics().height()};
}

void CrumbButton::SetCaptionRect(const QRect &captionRect)
{
    setGeometry(captionRect.marginsAdded(Around));
    setToolTip(ShownCaption() == caption ? QString() : caption);
}

QString CrumbButton::ShownCaption() const
{
    return QFontMetricsF(font()).elidedText(caption, Qt::ElideRight, CaptionRect().width());
}

QRect CrumbButton::CaptionRect() const
{
    return geometry().marginsRemoved(Around);
}

void CrumbButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QFont captionFont = font();
    captionFont.setUnderline(underMouse());
    painter.setFont(captionFont);
    painter.setPen(Colours::OnBand);
    const QRect captionRect = rect().marginsRemoved(Around);
    painter.drawText(captionRect, Qt::AlignLeft | Qt::AlignVCenter, ShownCaption());
    if (hasFocus())
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace Tesk
