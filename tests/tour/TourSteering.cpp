#include "Tour.h"

#include "browser/WebBrowser.h"
#include "search/SearchDetail.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavLeft.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

namespace Tesk {

namespace {

const QString DetailsPage = QStringLiteral("product_details.html");
const QString ListPage = QStringLiteral("product_list.html");
const QString WelcomePage = QStringLiteral("welcome.html");

/// Stands in the names of products in every language.
const QString Pattern = QStringLiteral("Metzenbaum");

QAbstractButton *ButtonOf(const frmCatalog &window, const QString &name)
{
    return window.scroller->findChild<QAbstractButton *>(name);
}

bool IsEnabled(const frmCatalog &window, const QString &scrollerButton)
{
    const QAbstractButton *const button = ButtonOf(window, scrollerButton);
    return button != nullptr && button->isEnabled();
}

QString CounterOf(const frmCatalog &window)
{
    const auto *const counter = window.scroller->findChild<QLabel *>(QStringLiteral("Counter"));
    return counter == nullptr ? QString() : counter->text();
}

NavEntry *SearchEntryOf(const frmCatalog &window)
{
    const QList<NavEntry *> entries = window.ucNavLeft->findChildren<NavEntry *>();
    const auto entry = std::find_if(entries.begin(), entries.end(), [](const NavEntry *candidate) {
        return candidate->Tag() == QLatin1String("searchDetail");
    });
    return entry == entries.end() ? nullptr : *entry;
}

} // namespace

void Tour::Scroller()
{
    const ResultTable rows = catalogue.Window().Protocol().ProductRows();
    const int count = rows.UpperRow();
    StepTo(QStringLiteral("btnFirst"), rows, 1);
    for (const char *name : {"btnFirst", "btnPrevious"})
        Check(!IsEnabled(catalogue.Window(), QLatin1String(name)),
              QStringLiteral("no way before the first product"));
    SavePicture(QStringLiteral("first-product"));
    StepTo(QStringLiteral("btnNext"), rows, 2);
    StepTo(QStringLiteral("btnLast"), rows, count);
    for (const char *name : {"btnNext", "btnLast"})
        Check(!IsEnabled(catalogue.Window(), QLatin1String(name)),
              QStringLiteral("no way behind the last product"));
    SavePicture(QStringLiteral("last-product"));
    StepTo(QStringLiteral("btnPrevious"), rows, count - 1);
}

void Tour::SetMembers()
{
    const ResultTable members = catalogue.Window().Protocol().ProductRows();
    const QString setAddress = catalogue.Window().wbMain->Address();
    Check(CounterOf(catalogue.Window()) == QStringLiteral("1/%1").arg(members.UpperRow()),
          QStringLiteral("the counter counts the set's members"));
    StepTo(QStringLiteral("btnNext"), members, 2);
    SavePicture(QStringLiteral("set-member"));
    StepTo(QStringLiteral("btnLast"), members, members.UpperRow());
    GoBackTo(DetailsPage + QLatin1String("?id=") + members.Text(2, 0));
    GoBackTo(setAddress);
    Check(Shows(QStringLiteral("list"), QStringLiteral(" St.")),
          QStringLiteral("the way back leads to the set"));
}

void Tour::WayBack(int language)
{
    QTest::mouseClick(catalogue.Window().header->btnLang[static_cast<size_t>(language)],
                      Qt::LeftButton);
    QTest::mouseClick(catalogue.Window().header->btnInfo, Qt::LeftButton);
    Check(WaitUntil([this] {
              return Shows(QStringLiteral("captionHead"),
                           catalogue.GetController().GetText(QStringLiteral("ucWelcomeCaption")));
          }),
          QStringLiteral("the welcome page in the language chosen"));
    FastSearchAndBack();
    DetailSearchAndBack();
}

void Tour::FastSearchAndBack()
{
    HeaderBand *const header = catalogue.Window().header;
    QTest::mouseClick(header->tbFastSearchText, Qt::LeftButton);
    QTest::keyClicks(header->tbFastSearchText, Pattern);
    QTest::keyClick(header->tbFastSearchText, Qt::Key_Return);
    Check(ShowsSearchResults(), QStringLiteral("the fast search shows its results"));
    SavePicture(QStringLiteral("search-results"));
    OpenResultAndGoBack();
    GoBackTo(WelcomePage);
}

void Tour::DetailSearchAndBack()
{
    frmCatalog &window = catalogue.Window();
    NavEntry *const entry = SearchEntryOf(window);
    Check(entry != nullptr, QStringLiteral("the left menu leads to the search"));
    if (entry == nullptr)
        return;
    QTest::mouseClick(entry, Qt::LeftButton);
    Check(window.tabMain->currentIndex() == frmCatalog::SearchTab,
          QStringLiteral("the search form"));
    SearchDetail *const form = window.ucSearchDetail;
    QTest::keyClicks(form->tbDescription, Pattern);
    QTest::keyClicks(form->tbProductLength, QStringLiteral("18"));
    QTest::mouseClick(form->rbUnit[1], Qt::LeftButton, {},
                      QPoint(8, form->rbUnit[1]->height() / 2));
    SavePicture(QStringLiteral("search-form"));
    QTest::keyClick(form->tbProductLength, Qt::Key_Return);
    Check(ShowsSearchResults(), QStringLiteral("the detail search shows its results"));
    const ResultTable rows = window.Protocol().ProductRows();
    for (int row = 1; row <= rows.UpperRow(); ++row)
        Check(GetField(QStringLiteral("p.length"), rows, row).toDouble() == 180,
              QStringLiteral("the search by length finds instruments of 18 cm"));
    SavePicture(QStringLiteral("results-by-length"));
    OpenResultAndGoBack();

    Check(Press(QStringLiteral("btnBack")), QStringLiteral("a way back to the search form"));
    Check(window.tabMain->currentIndex() == frmCatalog::SearchTab,
          QStringLiteral("the way back leads to the search form"));
    Check(form->tbDescription->text().isEmpty() && form->tbProductLength->text().isEmpty(),
          QStringLiteral("the search form is empty again"));
    SavePicture(QStringLiteral("back-at-the-search-form"));
    GoBackTo(WelcomePage);
}

void Tour::OpenResultAndGoBack()
{
    const ResultTable rows = catalogue.Window().Protocol().ProductRows();
    Check(rows.HasData(), QStringLiteral("the search finds something"));
    if (!rows.HasData())
        return;
    Check(catalogue.Click(QStringLiteral("#contListRow1 td:nth-child(2)")),
          QStringLiteral("a result can be opened"));
    Check(catalogue.WaitForFilledPage(DetailsPage + QLatin1String("?id=") + rows.Text(1, 0)),
          QStringLiteral("the result's details"));
    Check(CounterOf(catalogue.Window()) == QStringLiteral("1/%1").arg(rows.UpperRow()),
          QStringLiteral("the counter counts the results"));
    SavePicture(QStringLiteral("result"));
    GoBackTo(ListPage);
    Check(ShowsSearchResults(), QStringLiteral("the way back leads to the results"));
}

bool Tour::ShowsSearchResults()
{
    const QString headline =
        catalogue.GetController().GetText(QStringLiteral("productListSearchHeadline"));
    return WaitUntil([&] {
        return catalogue.Window().tabMain->currentIndex() == frmCatalog::ProductsTab &&
               Shows(QStringLiteral("caption"), headline) && Shows(QStringLiteral("list"), Pattern);
    });
}

bool Tour::Press(const QString &scrollerButton)
{
    // A page's fill sets the buttons' states last of all.
    const bool isEnabled = WaitUntil([&] { return IsEnabled(catalogue.Window(), scrollerButton); });
    if (isEnabled)
        QTest::mouseClick(ButtonOf(catalogue.Window(), scrollerButton), Qt::LeftButton);
    return isEnabled;
}

void Tour::StepTo(const QString &scrollerButton, const ResultTable &rows, int row)
{
    const QString name = QStringLiteral("%1 to row %2").arg(scrollerButton).arg(row);
    Check(Press(scrollerButton), name + QLatin1String(": the button is on"));
    Check(WaitUntil([&] {
              return catalogue.Window().wbMain->Address().endsWith(QLatin1String("?id=") +
                                                                   rows.Text(row, 0));
          }) &&
              catalogue.WaitForFilledPage(DetailsPage),
          name + QLatin1String(": the details"));
    Check(Shows(QStringLiteral("productDetails"), GetField(QStringLiteral("p.artNr"), rows, row)),
          name + QLatin1String(": the product"));
    Check(CounterOf(catalogue.Window()) == QStringLiteral("%1/%2").arg(row).arg(rows.UpperRow()),
          name + QLatin1String(": the counter"));
}

void Tour::GoBackTo(const QString &addressPart)
{
    Check(Press(QStringLiteral("btnBack")), QStringLiteral("a way back to ") + addressPart);
    Check(catalogue.WaitForFilledPage(addressPart),
          QStringLiteral("the way back leads to ") + addressPart);
}

} // namespace Tesk
