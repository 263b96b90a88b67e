#pragma once

#include <QWidget>

#include <array>

class QBoxLayout;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace Tesk {

class LanguageSupport;
class LogoButton;

/// The band at the window's top: the way home, the languages, the unit of length, and the fast
/// search. It holds the controls and their captions; the window acts on them.
class HeaderBand final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int LanguageCount = 5;

    explicit HeaderBand(QWidget *parent = nullptr);

    /// Captions in the current language; the unit list shows `unit`, the search type its first
    /// entry.
    void ApplyGuiTexts(const LanguageSupport &languages, int unit);
    /// Gives language `index` (0 to 4) the back colour of the current one.
    void MarkCurrentLanguage(int index);

    LogoButton *imgLogo = nullptr;
    QPushButton *btnInfo = nullptr;
    std::array<QPushButton *, LanguageCount> btnLang{};
    QComboBox *cbUnitSelection = nullptr;
    QLineEdit *tbFastSearchText = nullptr;
    QComboBox *cbFastSearchType = nullptr;
    QPushButton *btnFastSearch = nullptr;

protected:
    bool event(QEvent *event) override;

private:
    QWidget *BuildLinks();
    QWidget *BuildSearch();
    /// In one row where everything has its place, else the search below the languages.
    void FitWidth();

    QWidget *links = nullptr;
    QWidget *search = nullptr;
    QBoxLayout *halves = nullptr;
};

} // namespace Tesk
