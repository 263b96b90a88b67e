#include "ui/main/MainMenu.h"

#include "core/LanguageSupport.h"
#include "ui/main/controls/ShortcutKeys.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

namespace Tesk {

namespace {

/// The catalogue's languages have no word for it; the library's own dialogs do.
QString DesktopText(const char *english)
{
    return QCoreApplication::translate("QPrintPreviewDialog", english);
}

} // namespace

MainMenu::MainMenu(QMenuBar *bar)
    : QObject(bar)
{
    mFile = bar->addMenu(QStringLiteral("&Datei"));
    mLoadPriceList = mFile->addAction(QStringLiteral("Preisliste laden"));
    mPrint = mFile->addAction(QStringLiteral("&Drucken"));
    mPrint->setShortcut(QKeySequence::Print);
    mFile->addSeparator();
    mExit = mFile->addAction(QStringLiteral("Beenden"));

    mLanguage = bar->addMenu(QStringLiteral("&Sprache"));
    const std::array<QString, LanguageCount> languageCaptions{
        QStringLiteral("Deutsch"), QStringLiteral("English"), QStringLiteral("Francais"),
        QStringLiteral("Espanol"), QStringLiteral("Italiano")};
    for (size_t i = 0; i < mLanguageSelect.size(); ++i) {
        mLanguageSelect[i] = mLanguage->addAction(languageCaptions[i]);
        mLanguageSelect[i]->setCheckable(true);
    }

    mExtra = bar->addMenu(QStringLiteral("E&xtras"));
    mSettings = mExtra->addAction(QStringLiteral("Einstellungen"));
    mContact = mExtra->addAction(QStringLiteral("Kontakt"));
    mExtra->addSeparator();
    mBack = mExtra->addAction(QStringLiteral("&Zurück"));
    mBack->setShortcut(ShortcutKeys::Back);
    mHome = mExtra->addAction(QStringLiteral("Willkommen"));
    mHome->setShortcut(ShortcutKeys::Home);
    mPreviousProduct = mExtra->addAction(QStringLiteral("Produkte ←"));
    mPreviousProduct->setShortcut(ShortcutKeys::PreviousProduct);
    mNextProduct = mExtra->addAction(QStringLiteral("Produkte →"));
    mNextProduct->setShortcut(ShortcutKeys::NextProduct);
    mFastSearch = mExtra->addAction(QStringLiteral("Suche"));
    mFastSearch->setShortcuts({ShortcutKeys::FastSearch, ShortcutKeys::SecondFastSearch});
    mExtra->addSeparator();
    mZoomIn = mExtra->addAction(QStringLiteral("Vergrößern"));
    // The plus sign shares its key with "=" on many keyboards.
    mZoomIn->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), Qt::CTRL | Qt::Key_Equal});
    mZoomOut = mExtra->addAction(QStringLiteral("Verkleinern"));
    mZoomOut->setShortcut(Qt::CTRL | Qt::Key_Minus);
    mZoomReset = mExtra->addAction(QStringLiteral("100 %"));
    mZoomReset->setShortcut(Qt::CTRL | Qt::Key_0);

    mHelp = bar->addMenu(QStringLiteral("&Hilfe"));
    mInfo = mHelp->addAction(QStringLiteral("Info"));
}

void MainMenu::ApplyGuiTexts(const LanguageSupport &languages)
{
    const auto text = [&](const char *key) { return languages.GetText(QLatin1String(key)); };
    mFile->setTitle(text("mFile"));
    mLoadPriceList->setText(text("mLoadPriceList"));
    mPrint->setText(text("btn_print"));
    mExit->setText(text("mExit"));
    mLanguage->setTitle(text("mLanguage"));
    for (size_t i = 0; i < mLanguageSelect.size(); ++i)
        mLanguageSelect[i]->setText(languages.GetText(QStringLiteral("mLanguageSelect%1").arg(i)));
    mExtra->setTitle(text("mExtra"));
    mSettings->setText(text("mSettings"));
    mContact->setText(text("mContact"));
    mBack->setText(text("mBack"));
    mHome->setText(text("ucWelcomeCaption"));
    mPreviousProduct->setText(text("tabControlMain") + QStringLiteral(" ←"));
    mNextProduct->setText(text("tabControlMain") + QStringLiteral(" →"));
    mFastSearch->setText(text("searchHeadline"));
    mZoomIn->setText(DesktopText("Zoom in"));
    mZoomOut->setText(DesktopText("Zoom out"));
    mHelp->setTitle(text("mHelp"));
    mInfo->setText(text("mInfo"));
}

void MainMenu::MarkCurrentLanguage(int index)
{
    for (size_t i = 0; i < mLanguageSelect.size(); ++i)
        mLanguageSelect[i]->setChecked(static_cast<int>(i) == index);
}

} // namespace Tesk
