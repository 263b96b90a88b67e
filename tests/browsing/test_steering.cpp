#include "browser/Engine.h"
#include "browser/WebBrowser.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/NavLeft.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

using namespace Tesk;

namespace {

const QString SampleCatalogue = QStringLiteral(APPLICATION_DIR);

// Categories and products of the sample catalogue.
const QString Scissors = QStringLiteral("1");
const QString DissectingScissors = QStringLiteral("3");

QString CaptionOf(CatalogueWindow &catalogue)
{
    return catalogue.Evaluate(QStringLiteral("document.getElementById('caption')?.innerText"))
        .toString()
        .trimmed();
}

void TypeInto(QLineEdit *field, const QString &text)
{
    field->setFocus();
    for (const QChar &character : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character),
                            Qt::NoModifier);
}

void FastSearchFor(CatalogueWindow &catalogue, const QString &text, int type = 0)
{
    HeaderBand *const header = catalogue.Window().header;
    header->cbFastSearchType->setCurrentIndex(type);
    TypeInto(header->tbFastSearchText, text);
    QTest::keyClick(header->tbFastSearchText, Qt::Key_Return);
}

bool OpenCategory(CatalogueWindow &catalogue, const QString &id)
{
    frmCatalog &window = catalogue.Window();
    window.TreeViewCategories_NodeClick(window.Tree().FindByTag(id));
    return catalogue.WaitForFilledPage(QStringLiteral("id=") + id);
}

} // namespace

/// Finding and finding back on the built sample catalogue, in the real engine.
class TestSteering final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void cleanup() { catalogue.reset(); }

    void testEnterInTheFastSearchShowsTheHits()
    {
        QVERIFY(OpenCategory(*catalogue, DissectingScissors));
        const CategoryNode *const node = catalogue->Window().CurrentNode();
        FastSearchFor(*catalogue, QStringLiteral("metzenbaum curved"));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html?firstItem=1&id=")));
        QVERIFY(
            WaitUntil([&] { return CaptionOf(*catalogue) == QLatin1String("Search results"); }));
        const ResultTable &rows = catalogue->Window().Protocol().ProductRows();
        QVERIFY(rows.HasData());
        for (int row = 1; row <= rows.UpperRow(); ++row) {
            const QString name = GetField(QStringLiteral("l.name"), rows, row).toLower();
            QVERIFY(name.contains(QLatin1String("metzenbaum")));
            QVERIFY(name.contains(QLatin1String("curved")));
        }
        QVERIFY(catalogue->Window().CurrentNode() == nullptr);
        QVERIFY(!catalogue->Window().TreeViewCategories->IsBold(node));
        QVERIFY(catalogue->Window().header->tbFastSearchText->text().isEmpty());

        catalogue->Window().GoBack();
        QVERIFY(WaitUntil([&] {
            return catalogue->Window().wbMain->Address().endsWith(QLatin1String("&id=") +
                                                                  DissectingScissors);
        }));
    }

    void testOneLetterDoesNothing()
    {
        FastSearchFor(*catalogue, QStringLiteral("m"));
        QCOMPARE(catalogue->Window().header->tbFastSearchText->text(), QStringLiteral("m"));
        QVERIFY(!catalogue->Window().Protocol().ProductRows().HasData());
    }

    void testUmlautInTheFastSearch()
    {
        catalogue->GetController().Languages().SetLanguage(0);
        catalogue->Window().ApplyGuiTexts();
        // Any letter beyond ASCII stands for any one character, so another umlaut finds it too.
        FastSearchFor(*catalogue, QStringLiteral("Pröparierschere"));
        const ResultTable &rows = catalogue->Window().Protocol().ProductRows();
        QVERIFY(rows.HasData());
        for (int row = 1; row <= rows.UpperRow(); ++row)
            QVERIFY(GetField(QStringLiteral("l.name"), rows, row)
                        .contains(QStringLiteral("Präparierschere")));
    }

    void testTheTwoTextSearchesAreAlike()
    {
        FastSearchFor(*catalogue, QStringLiteral("mayo straight"), 0);
        const ResultTable first = catalogue->Window().Protocol().ProductRows();
        FastSearchFor(*catalogue, QStringLiteral("mayo straight"), 1);
        const ResultTable second = catalogue->Window().Protocol().ProductRows();
        QVERIFY(first.HasData());
        QCOMPARE(second.UpperRow(), first.UpperRow());
        for (int row = 1; row <= first.UpperRow(); ++row)
            QCOMPARE(second.Text(row, 0), first.Text(row, 0));
    }

    void testArticleNumberIsFoundAnywhereInIt()
    {
        FastSearchFor(*catalogue, QStringLiteral("2/14"), 2);
        const ResultTable &rows = catalogue->Window().Protocol().ProductRows();
        QVERIFY(rows.HasData());
        for (int row = 1; row <= rows.UpperRow(); ++row)
            QVERIFY(GetField(QStringLiteral("p.artNr"), rows, row).contains(QLatin1String("2/14")));
    }

    void testNoHitIsAnEmptyList()
    {
        FastSearchFor(*catalogue, QStringLiteral("it's \"%;"));
        QVERIFY(WaitUntil([&] {
            return catalogue->Evaluate(QStringLiteral("document.getElementById('list')?.innerText"))
                .toString()
                .contains(
                    catalogue->GetController().GetText(QStringLiteral("productListNoProducts")));
        }));
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

    void testScrollerStepsThroughTheList()
    {
        QVERIFY(OpenCategory(*catalogue, DissectingScissors));
        const ResultTable rows = catalogue->Window().Protocol().ProductRows();
        QVERIFY(catalogue->Click(QStringLiteral("#contListRow2 td:nth-child(2)")));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                             rows.Text(2, 0)));
        QTest::mouseClick(ScrollerButton("btnNext"), Qt::LeftButton);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                             rows.Text(3, 0)));
        QTest::mouseClick(ScrollerButton("btnLast"), Qt::LeftButton);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                             rows.Text(rows.UpperRow(), 0)));
        QVERIFY(WaitUntil([&] { return !ScrollerButton("btnNext")->isEnabled(); }));
        QTest::mouseClick(ScrollerButton("btnBack"), Qt::LeftButton);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                             rows.Text(3, 0)));
    }

    void testDetailsOutsideAListHaveNoSteps()
    {
        catalogue->Window().ShowStandaloneDetails(QStringLiteral("31"));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=31")));
        QVERIFY(WaitUntil([&] { return ScrollerButton("btnBack")->isEnabled(); }));
        for (const char *name : {"btnFirst", "btnPrevious", "btnNext", "btnLast"})
            QVERIFY(!ScrollerButton(name)->isEnabled());
    }

    void testSearchEntryOfTheLeftMenuShowsTheForm()
    {
        Q_EMIT catalogue->Window().ucNavLeft->OnCategorySelect(QStringLiteral("searchDetail"));
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::SearchTab));
        const QList<Crumb> expected{{QStringLiteral("tesk-shop"), QStringLiteral("default.html")},
                                    {QStringLiteral("Detailsuche"), QString()}};
        QCOMPARE(catalogue->Window().ucBreadcrumb->list(), expected);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void testEntryOfTheLeftMenuOpensItsCategory()
    {
        Q_EMIT catalogue->Window().ucNavLeft->OnCategorySelect(DissectingScissors);
        QVERIFY(
            catalogue->WaitForFilledPage(QStringLiteral("firstItem=1&id=") + DissectingScissors));
        QCOMPARE(catalogue->Window().CurrentNode()->tag, DissectingScissors);
    }

    void testCrumbsLeadBack()
    {
        QVERIFY(OpenCategory(*catalogue, DissectingScissors));
        Breadcrumb *const crumbs = catalogue->Window().ucBreadcrumb;
        QVERIFY(WaitUntil([&] { return crumbs->list().size() == 3; }));
        QCOMPARE(crumbs->list()[1].link, QStringLiteral("category_list.html?id=") + Scissors);
        Q_EMIT crumbs->OnCrumbSelect(crumbs->list()[1].link);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("category_list.html?id=") + Scissors));
        Q_EMIT crumbs->OnCrumbSelect(crumbs->list()[0].link);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(WaitUntil([&] { return crumbs->list().size() == 1; }));
    }

    void testBackFromTheHitsOfADetailSearchShowsTheForm()
    {
        frmCatalog &window = catalogue->Window();
        window.tabMain->setCurrentIndex(frmCatalog::SearchTab);
        TypeInto(window.ucSearchDetail->tbDescription, QStringLiteral("metzenbaum"));
        QTest::keyClick(window.ucSearchDetail->tbDescription, Qt::Key_Return);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html?firstItem=1&id=")));
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        const QString hits = window.wbMain->Address();
        QVERIFY(WaitUntil([&] { return ScrollerButton("btnBack")->isEnabled(); }));
        QTest::mouseClick(ScrollerButton("btnBack"), Qt::LeftButton);
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        QCOMPARE(window.wbMain->Address(), hits);
        QVERIFY(window.ucSearchDetail->tbDescription->text().isEmpty());
    }

private:
    QAbstractButton *ScrollerButton(const char *name) const
    {
        return catalogue->Window().scroller->findChild<QAbstractButton *>(QLatin1String(name));
    }

    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    TestSteering test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_steering.moc"
