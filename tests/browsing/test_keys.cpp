#include "browser/Engine.h"
#include "browser/WebBrowser.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/ItemScroller.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QWebEngineView>
#include <QWheelEvent>

using namespace Tesk;

namespace {

const QString SampleCatalogue = QStringLiteral(APPLICATION_DIR);

// A leaf category of the sample catalogue.
const QString DissectingScissors = QStringLiteral("3");

/// As the desktop delivers it: to the window, which hands it to its shortcuts or its focus.
void Press(frmCatalog &window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

/// The innermost widget of the page, which gets the mouse first.
QWidget *InnerWidget(const frmCatalog &window)
{
    return window.wbMain->View()->focusProxy();
}

void TurnWheel(QWidget *widget, int angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, angle), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

/// The keys of the window, pressed while the page has the focus, as it has after a click in it.
class TestKeys final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        window = &catalogue->Window();
        QVERIFY(QTest::qWaitForWindowActive(window));
        window->wbMain->setFocus();
    }

    void cleanup() { catalogue.reset(); }

    void testLeadToTheFastSearch_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Ctrl+F") << int(Qt::Key_F) << int(Qt::ControlModifier);
        QTest::newRow("F3") << int(Qt::Key_F3) << int(Qt::NoModifier);
    }

    void testLeadToTheFastSearch()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        window->header->tbFastSearchText->setText(QStringLiteral("old"));
        Press(*window, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(window->header->tbFastSearchText->hasFocus());
        QCOMPARE(window->header->tbFastSearchText->selectedText(), QStringLiteral("old"));
    }

    void testAltLeftGoesBack()
    {
        QVERIFY(OpenList());
        Press(*window, Qt::Key_Left, Qt::AltModifier);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void testTheMousesBackButtonGoesBackOverThePage()
    {
        QVERIFY(OpenList());
        QTest::mouseClick(InnerWidget(*window), Qt::BackButton);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(!window->History().HasMoreEntries());
    }

    void testTheMousesBackButtonGoesBackOverAControl()
    {
        QVERIFY(OpenList());
        QTest::mouseClick(window->header, Qt::BackButton);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void testStepThroughTheProducts()
    {
        QVERIFY(OpenList());
        const ResultTable rows = window->Protocol().ProductRows();
        const QString first = rows.Text(1, 0);
        const QString second = rows.Text(2, 0);
        QVERIFY(
            catalogue->Click(QStringLiteral("[onclick$=\"id=%1';\"] td:nth-child(2)").arg(first)));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + first));

        Press(*window, Qt::Key_PageDown, Qt::AltModifier);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + second));
        Press(*window, Qt::Key_PageUp, Qt::AltModifier);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + first));
    }

    void testDoNotStepWhereNoProductIsShown()
    {
        QVERIFY(OpenList());
        QSignalSpy steps(window->scroller, &ItemScroller::OnIndexChange);
        Press(*window, Qt::Key_PageDown, Qt::AltModifier);
        Press(*window, Qt::Key_PageUp, Qt::AltModifier);
        QCOMPARE(steps.count(), 0);
        // The key did arrive: the same one steps on a page of details.
        QVERIFY(catalogue->Click(QStringLiteral("#contListRow1 td:nth-child(2)")));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html")));
        Press(*window, Qt::Key_PageDown, Qt::AltModifier);
        QCOMPARE(steps.count(), 1);
    }

    void testAltHomeGoesHome()
    {
        QVERIFY(OpenList());
        Press(*window, Qt::Key_Home, Qt::AltModifier);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void testShowATabAndGiveItsControlsTheFocus()
    {
        Press(*window, Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(window->tabMain->currentIndex(), int(frmCatalog::CategoriesTab));
        QVERIFY(window->TreeViewCategories->hasFocus());
        Press(*window, Qt::Key_4, Qt::ControlModifier);
        QCOMPARE(window->tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QVERIFY(window->ucSearchDetail->tbDescription->hasFocus());
        Press(*window, Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(window->tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QVERIFY(window->wbMain->isAncestorOf(QApplication::focusWidget()));
    }

    void testZoomThePage()
    {
        const double ownWidth = PageWidth();
        Press(*window, Qt::Key_Plus, Qt::ControlModifier);
        QVERIFY(WaitUntil([&] { return qAbs(PageWidth() * 1.1 - ownWidth) < 3; }));
        QVERIFY(window->lblZoom->isVisible());
        QCOMPARE(window->lblZoom->text(), QStringLiteral("110 %"));
        Press(*window, Qt::Key_Equal, Qt::ControlModifier);
        QVERIFY(WaitUntil([&] { return qAbs(PageWidth() * 1.25 - ownWidth) < 3; }));
        Press(*window, Qt::Key_0, Qt::ControlModifier);
        QVERIFY(WaitUntil([&] { return PageWidth() == ownWidth; }));
        QVERIFY(!window->lblZoom->isVisible());
        Press(*window, Qt::Key_Minus, Qt::ControlModifier);
        QVERIFY(WaitUntil([&] { return qAbs(PageWidth() * 0.9 - ownWidth) < 3; }));
    }

    void testZoomStaysOnTheNextPages()
    {
        const double ownWidth = PageWidth();
        Press(*window, Qt::Key_Plus, Qt::ControlModifier);
        QVERIFY(OpenList());
        QVERIFY(WaitUntil([&] { return qAbs(PageWidth() * 1.1 - ownWidth) < 3; }));
    }

    void testTheWheelZoomsWithTheControlKeyOnly()
    {
        TurnWheel(InnerWidget(*window), 120, Qt::ControlModifier);
        QCOMPARE(window->lblZoom->text(), QStringLiteral("110 %"));
        TurnWheel(InnerWidget(*window), -60, Qt::ControlModifier);
        QCOMPARE(window->lblZoom->text(), QStringLiteral("110 %"));
        TurnWheel(InnerWidget(*window), -60, Qt::ControlModifier);
        QCOMPARE(window->lblZoom->text(), QStringLiteral("100 %"));
        TurnWheel(InnerWidget(*window), 120, Qt::NoModifier);
        QCOMPARE(window->lblZoom->text(), QStringLiteral("100 %"));
    }

    void testCtrlQAsksAndNoKeepsTheWindow()
    {
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [this] { Press(*window, Qt::Key_Q, Qt::ControlModifier); }, {[](QWidget *dialog) {
                auto *const box = qobject_cast<QMessageBox *>(dialog);
                QVERIFY(box != nullptr);
                box->button(QMessageBox::No)->click();
            }}));
        QVERIFY(window->isVisible());
    }

    void testPrintThePage()
    {
        bool isPrintDialog = false;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [this] { Press(*window, Qt::Key_P, Qt::ControlModifier); }, {[&](QWidget *dialog) {
                isPrintDialog = qobject_cast<QPrintDialog *>(dialog) != nullptr;
                QTest::keyClick(dialog, Qt::Key_Escape);
            }}));
        QVERIFY(isPrintDialog);
    }

    void testAreNamedWhereTheirControlsAre()
    {
        window->menus->mLanguageSelect[0]->trigger();
        QCOMPARE(window->header->tbFastSearchText->toolTip(), QStringLiteral("Suche (Strg+F)"));
        QCOMPARE(window->header->imgLogo->toolTip(),
                 QStringLiteral("Willkommen bei Tesk Instruments (Alt+Pos1)"));
        QCOMPARE(window->tabMain->tabToolTip(frmCatalog::SearchTab),
                 QStringLiteral("Detailsuche (Strg+4)"));
        const auto toolTipOf = [this](const char *button) {
            return window->scroller->findChild<QAbstractButton *>(QLatin1String(button))->toolTip();
        };
        QCOMPARE(toolTipOf("btnBack"), QStringLiteral("Alt+Links"));
        QCOMPARE(toolTipOf("btnNext"), QStringLiteral("Alt+Bild abwärts"));
        QCOMPARE(toolTipOf("btnPrevious"), QStringLiteral("Alt+Bild aufwärts"));
        QCOMPARE(window->menus->mBack->shortcut(), QKeySequence(Qt::ALT | Qt::Key_Left));
        QCOMPARE(window->menus->mBack->text(), QStringLiteral("&Zurück"));
        QCOMPARE(window->menus->mHome->text(), QStringLiteral("Willkommen bei Tesk Instruments"));
        QCOMPARE(window->menus->mFastSearch->text(), QStringLiteral("Suche"));
        QCOMPARE(window->menus->mPreviousProduct->text(), QStringLiteral("Produkte ←"));
        QCOMPARE(window->menus->mNextProduct->text(), QStringLiteral("Produkte →"));
        QCOMPARE(window->menus->mPrint->text(), QStringLiteral("&Drucken"));
        QCOMPARE(window->menus->mPrint->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_P));
        QCOMPARE(window->menus->mZoomIn->text(), QStringLiteral("Vergrößern"));
        QCOMPARE(window->menus->mZoomOut->text(), QStringLiteral("Verkleinern"));
    }

private:
    bool OpenList()
    {
        window->TreeViewCategories_NodeClick(window->Tree().FindByTag(DissectingScissors));
        const bool isFilled =
            catalogue->WaitForFilledPage(QStringLiteral("id=") + DissectingScissors);
        window->wbMain->setFocus();
        return isFilled;
    }

    double PageWidth()
    {
        return catalogue->Evaluate(QStringLiteral("window.innerWidth")).toDouble();
    }

    std::unique_ptr<CatalogueWindow> catalogue;
    frmCatalog *window = nullptr;
};

int main(int argc, char *argv[])
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    TestKeys test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_keys.moc"
