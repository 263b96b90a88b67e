#include "ui/main/controls/ItemScroller.h"

#include "ui/main/controls/Colours.h"
#include "ui/main/controls/ScrollerButton.h"
#include "ui/main/controls/ShortcutKeys.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

// In pixels.
constexpr int Space = 4;
constexpr int RightMargin = 10;
constexpr int CounterMargin = 6;

/// Lists of fewer products leave room for as many.
constexpr int UsualCount = 99;

QString Position(int index, int count)
{
    return QStringLiteral("%1/%2").arg(index).arg(count);
}

} // namespace

ItemScroller::ItemScroller(std::function<QString(const QString &key)> textLookup, QWidget *parent)
    : QWidget(parent)
    , getText(std::move(textLookup))
    , btnFirst(new ScrollerButton(ScrollerButton::Picture::First, this))
    , btnPrevious(new ScrollerButton(ScrollerButton::Picture::Previous, this))
    , Counter(new QLabel(this))
    , btnNext(new ScrollerButton(ScrollerButton::Picture::Next, this))
    , btnLast(new ScrollerButton(ScrollerButton::Picture::Last, this))
    , btnBack(new ScrollerButton(ScrollerButton::Picture::None, this))
{
    btnFirst->setObjectName(QStringLiteral("btnFirst"));
    btnPrevious->setObjectName(QStringLiteral("btnPrevious"));
    Counter->setObjectName(QStringLiteral("Counter"));
    btnNext->setObjectName(QStringLiteral("btnNext"));
    btnLast->setObjectName(QStringLiteral("btnLast"));
    btnBack->setObjectName(QStringLiteral("btnBack"));

    Counter->setAlignment(Qt::AlignCenter);
    Counter->setMargin(CounterMargin);
    QPalette counterColours;
    counterColours.setColor(QPalette::WindowText, Colours::OnBand);
    Counter->setPalette(counterColours);
    Counter->hide();
    // The buttons keep their places while there is no position to show.
    QSizePolicy counterPolicy = Counter->sizePolicy();
    counterPolicy.setRetainSizeWhenHidden(true);
    Counter->setSizePolicy(counterPolicy);
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(Space, 0, RightMargin, 0);
    row->setSpacing(Space);
    for (QWidget *const part : std::initializer_list<QWidget *>{btnFirst, btnPrevious, Counter,
                                                                btnNext, btnLast, btnBack})
        row->addWidget(part);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setFocusPolicy(Qt::NoFocus);

    connect(btnFirst, &ScrollerButton::clicked, this, [this] { GoTo(1); });
    connect(btnPrevious, &ScrollerButton::clicked, this, [this] {
        if (index > 1)
            SetItemIndex(qint16(index - 1));
        Q_EMIT OnIndexChange(index);
    });
    connect(btnNext, &ScrollerButton::clicked, this, [this] {
        if (index < count)
            SetItemIndex(qint16(index + 1));
        Q_EMIT OnIndexChange(index);
    });
    connect(btnLast, &ScrollerButton::clicked, this, [this] { GoTo(count); });
    connect(btnBack, &ScrollerButton::clicked, this, &ItemScroller::OnHistoryBack);
}

void ItemScroller::Initialize()
{
    const QString back = getText(QStringLiteral("mBack"));
    btnBack->setText(back);
    btnBack->setAccessibleName(QString(back).remove(QLatin1Char('&')));
    btnBack->setToolTip(ShortcutKeys::ToolTip(QString(), ShortcutKeys::Back));
    btnBack->updateGeometry();
    NameButtons();
}

void ItemScroller::SetCount(qint16 value)
{
    count = value;
    index = 1;
    ShowCounter();
}

void ItemScroller::SetItemIndex(qint16 value)
{
    index = value;
    SetScrollerEnabled(index >= 2, index < count);
    ShowCounter();
}

void ItemScroller::GoTo(qint16 value)
{
    SetItemIndex(value);
    Q_EMIT OnIndexChange(index);
}

void ItemScroller::SetBackEnabled(bool enabled)
{
    btnBack->setEnabled(enabled);
}

void ItemScroller::EnableScroller()
{
    SetScrollerEnabled(true, true);
    ShowCounter();
}

void ItemScroller::DisableScroller()
{
    SetScrollerEnabled(false, false);
    Counter->clear();
    Counter->hide();
    NameButtons();
}

void ItemScroller::PressPrevious()
{
    btnPrevious->click();
}

void ItemScroller::PressNext()
{
    btnNext->click();
}

void ItemScroller::SetScrollerEnabled(bool backwards, bool onwards)
{
    // Qt would hand the focus of a button that is switched off to the next one, which leads back in
    // the history: the next press of Enter would leave the page.
    const bool losesFocus = (!backwards && (btnFirst->hasFocus() || btnPrevious->hasFocus())) ||
                            (!onwards && (btnNext->hasFocus() || btnLast->hasFocus()));
    if (losesFocus)
        setFocus();
    btnFirst->setEnabled(backwards);
    btnPrevious->setEnabled(backwards);
    btnNext->setEnabled(onwards);
    btnLast->setEnabled(onwards);
    if (losesFocus && backwards)
        btnPrevious->setFocus();
    else if (losesFocus && onwards)
        btnNext->setFocus();
}

void ItemScroller::ShowCounter()
{
    Counter->setText(Position(index, count));
    // Wide enough for every position, so that the buttons keep their places.
    const int most = std::max<int>(count, UsualCount);
    Counter->setMinimumWidth(fontMetrics().horizontalAdvance(Position(most, most)) +
                             2 * CounterMargin);
    Counter->show();
    NameButtons();
}

/// A button's name is an arrow and the position that it leads to, which every language reads.
void ItemScroller::NameButtons()
{
    const auto name = [this](ScrollerButton *button, QChar arrow, int target,
                             const QKeySequence &key = {}) {
        const QString position = Counter->text().isEmpty() ? QString() : Position(target, count);
        button->setToolTip(key.isEmpty() ? position : ShortcutKeys::ToolTip(position, key));
        button->setAccessibleName(QString(arrow + QLatin1Char(' ') + position).trimmed());
    };
    name(btnFirst, QChar(0x21E4), 1);
    name(btnPrevious, QChar(0x2190), std::max(index - 1, 1), ShortcutKeys::PreviousProduct);
    name(btnNext, QChar(0x2192), std::min<int>(index + 1, count), ShortcutKeys::NextProduct);
    name(btnLast, QChar(0x21E5), count);
}

void ItemScroller::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange && !Counter->text().isEmpty())
        ShowCounter();
    QWidget::changeEvent(event);
}

void ItemScroller::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Colours::Band);
}

} // namespace Tesk
