// What a search asks of the processor inside the program: from Enter in the field to the rows, and
// from the rows to the page that is handed to the browser.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "search/SearchDetail.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

namespace Tesk {

namespace {

constexpr int DescriptionType = 0;
constexpr int ArticleNumberType = 2;

/// Fills in what is asked; the answer is the field in which Enter is pressed then.
using Question = std::function<QLineEdit *(frmCatalog &window)>;

Question Fast(const QString &text, int type)
{
    return [=](frmCatalog &window) {
        window.header->cbFastSearchType->setCurrentIndex(type);
        window.header->tbFastSearchText->setText(text);
        return window.header->tbFastSearchText;
    };
}

Question Detail(const QString &words, const QString &length)
{
    return [=](frmCatalog &window) {
        window.tabMain->setCurrentIndex(frmCatalog::SearchTab);
        window.ucSearchDetail->tbDescription->setText(words);
        window.ucSearchDetail->tbProductLength->setText(length);
        return window.ucSearchDetail->tbDescription;
    };
}

Question Competition(const QString &number)
{
    return [=](frmCatalog &window) {
        window.tabMain->setCurrentIndex(frmCatalog::SearchTab);
        window.ucSearchDetail->tbCompanyArtNr->setText(number);
        return window.ucSearchDetail->tbCompanyArtNr;
    };
}

} // namespace

void MeasureSearches(const Extent &extent)
{
    struct Search
    {
        QString name;
        Question question;
    };
    const std::array searches{
        Search{QStringLiteral("search by two words"),
               Fast(QStringLiteral("holder adelmann"), DescriptionType)},
        Search{QStringLiteral("search by article number"),
               Fast(QStringLiteral("41-5"), ArticleNumberType)},
        Search{QStringLiteral("search by reference number"), Competition(QStringLiteral("BH 02"))},
        // No instrument has this length, so the search runs once more with tolerance.
        Search{QStringLiteral("detail search with tolerance"),
               Detail(QStringLiteral("holder"), QStringLiteral("151"))},
    };

    MeasuredWindow window(Folders::Limit);
    frmCatalog &form = window.Catalogue().Window();
    constexpr double most = 10;
    for (const auto &[name, question] : searches) {
        std::vector<double> processor;
        for (int run = 0; run < extent.runs; ++run) {
            window.GoHome();
            form.ucSearchDetail->Initialize();
            QLineEdit *const field = question(form);
            field->setFocus();
            processor.push_back(window
                                    .TimesOf(QStringLiteral("product_list.html"),
                                             [&] { QTest::keyClick(field, Qt::Key_Return); })
                                    .processor);
        }
        const int count = form.Protocol().ProductRows().UpperRow();
        if (count < 1)
            qFatal("%s: nothing was found", qPrintable(name));
        PrintRow({name + QStringLiteral(", processor time"), Unit::Milliseconds, most, processor,
                  QStringLiteral("%1 products found").arg(count)});
    }
}

} // namespace Tesk
