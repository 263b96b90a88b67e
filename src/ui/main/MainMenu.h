#pragma once

#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;

namespace Tesk {

class LanguageSupport;

/// The window's menus and their captions; the window acts on the entries.
class MainMenu final : public QObject
{
    Q_OBJECT

public:
    static constexpr int LanguageCount = 5;

    explicit MainMenu(QMenuBar *bar);

    void ApplyGuiTexts(const LanguageSupport &languages);
    /// Checks language `index` (0 to 4) alone.
    void MarkCurrentLanguage(int index);

    QMenu *mFile = nullptr;
    QAction *mLoadPriceList = nullptr;
    QAction *mPrint = nullptr;
    QAction *mExit = nullptr;
    QMenu *mLanguage = nullptr;
    std::array<QAction *, LanguageCount> mLanguageSelect{};
    QMenu *mExtra = nullptr;
    QAction *mSettings = nullptr;
    QAction *mContact = nullptr;
    QAction *mBack = nullptr;
    QAction *mHome = nullptr;
    QAction *mPreviousProduct = nullptr;
    QAction *mNextProduct = nullptr;
    QAction *mFastSearch = nullptr;
    QAction *mZoomIn = nullptr;
    QAction *mZoomOut = nullptr;
    QAction *mZoomReset = nullptr;
    QMenu *mHelp = nullptr;
    QAction *mInfo = nullptr;
};

} // namespace Tesk
