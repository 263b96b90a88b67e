#include "ui/main/HeaderBand.h"

#include "core/LanguageSupport.h"
#include "ui/main/LogoButton.h"
#include "ui/main/controls/Colours.h"
#include "ui/main/controls/ShortcutKeys.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace Tesk {

namespace {

constexpr int BandHeight = 60;      // pixels
constexpr int ControlHeight = 28;   // pixels
constexpr int TwoRowsHeight = 76;   // pixels
constexpr int SideMargin = 12;      // pixels
constexpr int LogoDistance = 11;    // pixels
constexpr int ControlDistance = 3;  // pixels
constexpr int LeastFieldWidth = 80; // pixels
constexpr int MostFieldWidth = 230; // pixels

// The captions that stand until the texts of the current language are applied.
const std::array<QString, HeaderBand::LanguageCount> LanguageCaptions{
    QStringLiteral("deutsch"), QStringLiteral("english"), QStringLiteral("français"),
    QStringLiteral("espanol"), QStringLiteral("italiano")};

/// The band is white in every desktop scheme, and so its controls are light ones.
QPalette LightPalette()
{
    QPalette light(Colours::Control, Colours::Ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        light.setColor(role, Colours::Text);
    light.setColor(QPalette::Base, Colours::Ground);
    light.setColor(QPalette::PlaceholderText, Colours::Secondary);
    return light;
}

QString FlatButtonStyle()
{
    return QStringLiteral("QPushButton { border: 1px solid transparent; border-radius: 3px;"
                          " padding: 4px 5px; background: %1; color: %2; }"
                          "QPushButton:hover { text-decoration: underline; }"
                          "QPushButton:focus { border-color: %3; }"
                          "QPushButton:checked { background: %4; }")
        .arg(Colours::Ground.name(), Colours::Text.name(), Colours::Secondary.name(),
             Colours::CurrentLanguage.name());
}

QString MainButtonStyle()
{
    return QStringLiteral("QPushButton { border: 1px solid %1; border-radius: 3px; color: %2;"
                          " padding: 5px 12px; background: %1; font-weight: bold; }"
                          "QPushButton:hover, QPushButton:focus { border-color: %3; }"
                          "QPushButton:disabled { background: %4; border-color: %4; }")
        .arg(Colours::Band.name(), Colours::Ground.name(), Colours::Text.name(),
             Colours::Secondary.lighter(160).name());
}

} // namespace

HeaderBand::HeaderBand(QWidget *parent)
    : QWidget(parent)
{
    setAutoFillBackground(true);
    setPalette(LightPalette());

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(SideMargin, 0, SideMargin, 0);
    layout->setSpacing(LogoDistance);
    imgLogo = new LogoButton(this);
    imgLogo->setObjectName(QStringLiteral("imgLogo"));
    layout->addWidget(imgLogo);

    halves = new QBoxLayout(QBoxLayout::LeftToRight);
    halves->setSpacing(ControlDistance);
    links = BuildLinks();
    search = BuildSearch();
    halves->addWidget(links);
    halves->addWidget(search, 1);
    layout->addLayout(halves, 1);
    FitWidth();
}

QWidget *HeaderBand::BuildLinks()
{
    auto *const row = new QWidget(this);
    auto *const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(ControlDistance);
    const auto add = [&](const QString &name, const QString &caption) {
        auto *const button = new QPushButton(caption, row);
        button->setObjectName(name);
        button->setStyleSheet(FlatButtonStyle());
        button->setCursor(Qt::PointingHandCursor);
        button->setAutoDefault(false);
        layout->addWidget(button);
        return button;
    };
    for (size_t i = 0; i < btnLang.size(); ++i) {
        btnLang[i] = add(QStringLiteral("btnLang%1").arg(i), LanguageCaptions[i]);
        btnLang[i]->setCheckable(true);
    }
    btnInfo = add(QStringLiteral("btnInfo"), QStringLiteral("info"));
    layout->addStretch(1);
    return row;
}

QWidget *HeaderBand::BuildSearch()
{
    auto *const row = new QWidget(this);
    auto *const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(ControlDistance);
    layout->addStretch(1);

    cbUnitSelection = new QComboBox(row);
    cbUnitSelection->setObjectName(QStringLiteral("cbUnitSelection"));
    cbUnitSelection->addItems({QString(), QString()});

    tbFastSearchText = new QLineEdit(row);
    tbFastSearchText->setObjectName(QStringLiteral("tbFastSearchText"));
    tbFastSearchText->setMinimumWidth(LeastFieldWidth);
    tbFastSearchText->setMaximumWidth(MostFieldWidth);
    tbFastSearchText->setTextMargins(4, 0, 4, 0);

    cbFastSearchType = new QComboBox(row);
    cbFastSearchType->setObjectName(QStringLiteral("cbFastSearchType"));
    cbFastSearchType->addItems({QString(), QString(), QString()});

    btnFastSearch = new QPushButton(row);
    btnFastSearch->setObjectName(QStringLiteral("btnFastSearch"));
    btnFastSearch->setStyleSheet(MainButtonStyle());

    for (QComboBox *const box : {cbUnitSelection, cbFastSearchType})
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (QWidget *const control :
         std::initializer_list<QWidget *>{cbUnitSelection, cbFastSearchType, btnFastSearch})
        control->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (QWidget *const control : std::initializer_list<QWidget *>{
             cbUnitSelection, tbFastSearchText, cbFastSearchType, btnFastSearch}) {
        control->setMinimumHeight(ControlHeight);
        // The field takes what the others leave.
        layout->addWidget(control, control == tbFastSearchText ? 4 : 0);
    }
    return row;
}

bool HeaderBand::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        FitWidth();
    return isHandled;
}

void HeaderBand::FitWidth()
{
    const int needed = 2 * SideMargin + imgLogo->sizeHint().width() + LogoDistance +
                       links->sizeHint().width() + ControlDistance +
                       search->minimumSizeHint().width();
    const bool isOneRow = needed <= width();
    halves->setDirection(isOneRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    setFixedHeight(isOneRow ? BandHeight : TwoRowsHeight);
}

void HeaderBand::ApplyGuiTexts(const LanguageSupport &languages, int unit)
{
    for (size_t i = 0; i < btnLang.size(); ++i)
        btnLang[i]->setText(languages.GetText(QStringLiteral("mLanguageSelect%1").arg(i)));
    for (int i = 0; i < cbUnitSelection->count(); ++i)
        cbUnitSelection->setItemText(i,
                                     languages.GetText(QStringLiteral("unitSelection%1").arg(i)));
    cbUnitSelection->setCurrentIndex(unit == 0 ? 0 : 1);

    btnFastSearch->setText(languages.GetText(QStringLiteral("fastSearchSubmit")));
    for (int i = 0; i < cbFastSearchType->count(); ++i)
        cbFastSearchType->setItemText(i,
                                      languages.GetText(QStringLiteral("fastSearchType%1").arg(i)));
    cbFastSearchType->setCurrentIndex(0);

    const QString searchName = languages.GetText(QStringLiteral("searchHeadline"));
    tbFastSearchText->setAccessibleName(searchName);
    tbFastSearchText->setPlaceholderText(searchName);
    tbFastSearchText->setToolTip(ShortcutKeys::ToolTip(searchName, ShortcutKeys::FastSearch));
    cbFastSearchType->setAccessibleName(searchName);
    cbUnitSelection->setAccessibleName(languages.GetText(QStringLiteral("ucSearchDetailUnit")));
    const QString homeName = languages.GetText(QStringLiteral("ucWelcomeCaption"));
    for (QAbstractButton *const home : std::initializer_list<QAbstractButton *>{imgLogo, btnInfo}) {
        home->setAccessibleName(homeName);
        home->setToolTip(ShortcutKeys::ToolTip(homeName, ShortcutKeys::Home));
    }
}

void HeaderBand::MarkCurrentLanguage(int index)
{
    for (size_t i = 0; i < btnLang.size(); ++i)
        btnLang[i]->setChecked(static_cast<int>(i) == index);
}

} // namespace Tesk
