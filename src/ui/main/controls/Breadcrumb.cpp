#include "ui/main/controls/Breadcrumb.h"

#include "base/Numbers.h"
#include "ui/main/controls/Colours.h"
#include "ui/main/controls/CrumbButton.h"
#include "ui/main/controls/Triangle.h"
#include "ui/main/controls/Twips.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Tesk {

namespace {

// All in twips.
constexpr int ArrowOffset = 75;
constexpr int CaptionOffset = 200;
constexpr int AboveMiddle = 100;
constexpr int LargestUsualHeight = 240;

// In pixels.
constexpr int LeastHeight = 28;

/// How far above the band's middle the captions begin, in twips: 100, or half the height of letters
/// that are much larger than usual.
double AboveMiddleFor(const QFontMetrics &metrics)
{
    const int height = Twips::FromPixels(metrics.height());
    return height <= LargestUsualHeight ? AboveMiddle : height / 2.0;
}

} // namespace

Breadcrumb::Breadcrumb(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (int i = 0; i <= MaxCrumbs; ++i) {
        auto *const crumb = new CrumbButton(this);
        crumb->hide();
        connect(crumb, &CrumbButton::clicked, this,
                [this, i] { Q_EMIT OnCrumbSelect(crumbs.at(i).link); });
        lblCrumb.push_back(crumb);
    }
}

void Breadcrumb::SetList(const QList<Crumb> &newCrumbs)
{
    crumbs = newCrumbs;
    if (crumbs.size() > MaxCrumbs + 1)
        return;
    arrowLefts.resize(static_cast<size_t>(crumbs.size()));
    for (int i = 0; i <= MaxCrumbs; ++i) {
        const bool isShown = i < crumbs.size();
        CrumbButton *const label = lblCrumb[static_cast<size_t>(i)];
        if (isShown)
            label->SetCaption(crumbs.at(i).caption);
        label->setVisible(isShown);
    }
    Place();
}

void Breadcrumb::Place()
{
    const int top = ToInt16(Twips::FromPixels(height()) / 2.0 - AboveMiddleFor(fontMetrics()));
    const int largestWidth = LargestCaptionWidth();
    int x = 0;
    for (size_t i = 0; i < arrowLefts.size(); ++i) {
        arrowLefts[i] = x + ArrowOffset;
        const QSize size = lblCrumb[i]->CaptionSize();
        const int left = x + CaptionOffset;
        const int width = std::min(Twips::FromPixels(size.width()), largestWidth);
        lblCrumb[i]->SetCaptionRect(
            Twips::ToPixels(QRect(left, top, width, Twips::FromPixels(size.height()))));
        x = left + width;
    }
    update();
}

/// The width in twips to which the captions are cut, so that all of them fit into the band.
int Breadcrumb::LargestCaptionWidth() const
{
    std::vector<int> widths;
    for (size_t i = 0; i < arrowLefts.size(); ++i)
        widths.push_back(Twips::FromPixels(lblCrumb[i]->CaptionSize().width()));
    std::ranges::sort(widths);

    int rest =
        Twips::FromPixels(width()) - ArrowOffset - static_cast<int>(widths.size()) * CaptionOffset;
    auto left = static_cast<int>(widths.size());
    for (const int captionWidth : widths) {
        // From here on the captions are wider than an equal share of what is left.
        if (captionWidth * left > rest)
            return std::max(rest / left, 0);
        rest -= captionWidth;
        --left;
    }
    return widths.empty() ? 0 : widths.back();
}

QSize Breadcrumb::sizeHint() const
{
    return {Twips::ToPixels(CaptionOffset), minimumSizeHint().height()};
}

QSize Breadcrumb::minimumSizeHint() const
{
    return {0, std::max(LeastHeight, fontMetrics().height() + LeastHeight / 2)};
}

void Breadcrumb::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        Place();
    }
    QWidget::changeEvent(event);
}

void Breadcrumb::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colours::Band);
    for (size_t i = 0; i < arrowLefts.size(); ++i) {
        QRectF arrow(QPointF(), ArrowSizeFor(fontMetrics()));
        arrow.moveCenter(QRectF(lblCrumb[i]->CaptionRect()).center());
        arrow.moveLeft(double(arrowLefts[i]) / Twips::PerPixel);
        DrawTriangle(painter, arrow, Direction::Right, Colours::OnBand);
    }
}

void Breadcrumb::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Place();
}

} // namespace Tesk
