#include "ui/main/controls/NavHeading.h"

#include "ui/main/controls/Colours.h"
#include "ui/main/controls/Twips.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Tesk {

namespace {

// All in twips.
constexpr int HeadingLeft = 50;
constexpr int HeadingTop = 30;
constexpr int HeadingWidth = 2940 - HeadingLeft; ///< the caption's place, less a margin
constexpr int UsualHeight = 250;

/// A caption that is too wide is drawn narrower down to this share, then cut.
constexpr double LeastStretch = 0.85;

} // namespace

NavHeading::NavHeading(QWidget *parent)
    : QWidget(parent)
{}

void NavHeading::SetCaption(const QString &newCaption)
{
    caption = newCaption;
    setAccessibleName(caption);
    UpdateToolTip();
    update();
}

void NavHeading::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        UpdateToolTip();
    QWidget::changeEvent(event);
}

void NavHeading::UpdateToolTip()
{
    setToolTip(ShownCaption() == caption ? QString() : caption);
}

QFont NavHeading::CaptionFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int NavHeading::BandHeight() const
{
    const int needed = HeadingTop + Twips::FromPixels(QFontMetrics(CaptionFont()).height());
    // Less than a pixel more holds nothing but the empty row under the letters.
    return needed < UsualHeight + Twips::PerPixel ? UsualHeight : needed + HeadingTop;
}

double NavHeading::Stretch() const
{
    const double usual = QFontMetricsF(CaptionFont()).horizontalAdvance(caption);
    return std::clamp(Twips::ToPixels(HeadingWidth) / std::max(1.0, usual), LeastStretch, 1.0);
}

QString NavHeading::ShownCaption() const
{
    // Half a pixel more, for what dividing and multiplying again may lose.
    const double width = Twips::ToPixels(HeadingWidth) / Stretch() + 0.5;
    return QFontMetricsF(CaptionFont()).elidedText(caption, Qt::ElideRight, width);
}

void NavHeading::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colours::Band);
    painter.setPen(Colours::OnBand);
    painter.setFont(CaptionFont());
    painter.translate(Twips::ToPixels(HeadingLeft),
                      Twips::ToPixels(HeadingTop) + painter.fontMetrics().ascent());
    painter.scale(Stretch(), 1);
    painter.drawText(0, 0, ShownCaption());
}

} // namespace Tesk
