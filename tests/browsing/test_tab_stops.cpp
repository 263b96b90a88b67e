#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/NavLeft.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

using namespace Tesk;

/// The window for those who use the keyboard or a reader of the screen.
class TestTabStops final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void testTabLeadsThroughTheWindowFromTopToBottom()
    {
        frmCatalog &window = catalogue->Window();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const HeaderBand &header = *window.header;
        QList<QWidget *> expected;
        for (QPushButton *const button : header.btnLang)
            expected << button;
        expected << header.btnInfo << header.cbUnitSelection << header.tbFastSearchText
                 << header.cbFastSearchType << header.btnFastSearch;
        QWidget *focus = header.imgLogo;
        focus->setFocus();
        for (QWidget *const next : expected) {
            QTest::keyClick(focus, Qt::Key_Tab);
            focus = QApplication::focusWidget();
            QVERIFY2(focus == next, qPrintable(next->objectName()));
        }
        QTest::keyClick(focus, Qt::Key_Tab);
        QVERIFY(window.ucNavLeft->isAncestorOf(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(window.ucBreadcrumb->isAncestorOf(QApplication::focusWidget()));
    }

    void testWhatTabReachesHasAName()
    {
        frmCatalog &window = catalogue->Window();
        int named = 0;
        for (const int tab : {int(frmCatalog::CategoriesTab), int(frmCatalog::SearchTab)}) {
            window.tabMain->setCurrentIndex(tab);
            for (QWidget *const widget : window.findChildren<QWidget *>()) {
                const bool isReached = widget->isVisible() && widget->isEnabled() &&
                                       (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                                       widget->focusProxy() == nullptr;
                // The tabs themselves have the names, not their bar; a list's popup is no stop.
                if (!isReached || qobject_cast<QTabBar *>(widget) != nullptr)
                    continue;
                const QAccessibleInterface *const reader =
                    QAccessible::queryAccessibleInterface(widget);
                QVERIFY(reader != nullptr);
                QVERIFY2(!reader->text(QAccessible::Name).isEmpty(),
                         qPrintable(QLatin1String(widget->metaObject()->className()) + u' ' +
                                    widget->objectName()));
                ++named;
            }
        }
        QVERIFY(named > 20);
    }

private:
    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestTabStops>(argc, argv);
}
#include "test_tab_stops.moc"
