#include "ui/main/LogoButton.h"

#include "ui/main/controls/Colours.h"

#include <QFontMetrics>
#include <QPainter>

namespace Tesk {

namespace {

const QString FirstWord = QStringLiteral("tesk ");
const QString SecondWord = QStringLiteral("instruments");
constexpr int WordHeight = 20; // pixels
constexpr int FocusMargin = 3; // pixels around the words

} // namespace

LogoButton::LogoButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont LogoButton::WordFont() const
{
    QFont wordFont = font();
    wordFont.setPixelSize(WordHeight);
    wordFont.setBold(true);
    return wordFont;
}

QSize LogoButton::sizeHint() const
{
    const QFontMetrics metrics(WordFont());
    return {metrics.horizontalAdvance(FirstWord + SecondWord) + 2 * FocusMargin,
            metrics.height() + 2 * FocusMargin};
}

void LogoButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(WordFont());
    const QFontMetrics metrics = painter.fontMetrics();
    const int baseline = FocusMargin + metrics.ascent();
    painter.setPen(Colours::Band);
    painter.drawText(FocusMargin, baseline, FirstWord);
    painter.setPen(Colours::Text);
    painter.drawText(FocusMargin + metrics.horizontalAdvance(FirstWord), baseline, SecondWord);
    if (hasFocus()) {
        painter.setPen(Colours::Secondary);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

} // namespace Tesk
