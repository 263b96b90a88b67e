#include "browser/WebBrowser.h"
#include "core/CategoryTree.h"
#include "core/SQLiteWrapper.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/SearchForm.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

using namespace Tesk;

namespace {

/// What a search is to do: this many hits, or not to search at all.
constexpr int NoSearch = -1;

constexpr int AllProducts = 150;
/// One for each reference number.
constexpr int AllReferences = 226;
constexpr int ReferencesToDorvik = 75;
constexpr int AllScissors = 83;
/// Of 145 mm.
constexpr int AllOfTheLength = 8;
constexpr int ScissorsOfTheLength = 2;

const QString OneProduct = QStringLiteral("TK 10-002-06");

const QString LongText = QString(10000, u'x');
const QString Cyrillic = QStringLiteral("ножницы");
const QString Emoji = QStringLiteral("\U0001F600");
/// Ends the pattern, asks for everything, and makes a comment of the rest.
const QString Injection = QStringLiteral("' or 1=1 --");

} // namespace

/// Texts that no catalogue holds, in every field of every search. They go into the statements
/// unescaped: one that spoils its statement finds nothing, and none does harm.
class TestSearchInput final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyWithDatabase(SampleCatalogue, path, QStringLiteral(SAMPLES_DIR "/catalog.db")));
        CountTheSample();
    }

    void init() { Use(QLocale(QLocale::German, QLocale::Germany)); }

    // Whatever was tried, the next search finds what it should.
    void cleanup()
    {
        QVERIFY(WaitForPageAfter([&] { FastSearchFor(*catalogue, OneProduct, 2); }));
        QCOMPARE(Hits(), 1);
        QCOMPARE(
            GetField(QStringLiteral("p.artNr"), catalogue->Window().Protocol().ProductRows(), 1),
            OneProduct);
    }

    void cleanupTestCase()
    {
        for (const auto &[name, window] : windows) {
            catalogue = window.get();
            QVERIFY(
                WaitForFillAfter(*catalogue, [&] { FastSearchFor(*catalogue, OneProduct, 2); }));
            QCOMPARE(ShownArtNrs(*catalogue), QStringList{OneProduct});
        }
        windows.clear();
    }

    void testFastSearch_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("hitsByText");
        QTest::addColumn<int>("hitsByNumber");
        for (const char *const sign : {"'", "%", "_", "\"", ";", " "})
            QTest::newRow(sign) << QString::fromLatin1(sign) << NoSearch << NoSearch;
        // Two apostrophes are one inside a text.
        QTest::newRow("''") << QStringLiteral("''") << 0 << 0;
        QTest::newRow("%%") << QStringLiteral("%%") << AllProducts << AllProducts;
        QTest::newRow("__") << QStringLiteral("__") << AllProducts << AllProducts;
        QTest::newRow("\"\"") << QStringLiteral("\"\"") << 0 << 0;
        QTest::newRow(";;") << QStringLiteral(";;") << 0 << 0;
        QTest::newRow("it's") << QStringLiteral("it's") << 0 << 0;
        // Each word of a text gets a condition of its own, which spoils the statement. A number
        // goes into it in one piece, and of several statements only the first one counts.
        QTest::newRow("injection") << Injection << 0 << AllProducts;
        QTest::newRow("injection in one word")
            << QStringLiteral("%')or(1=1)--") << AllProducts << 0;
        QTest::newRow("second statement")
            << QStringLiteral("%'; drop table products_global; --") << 0 << AllProducts;
        QTest::newRow("10,000 characters") << LongText << 0 << 0;
        QTest::newRow("Cyrillic") << Cyrillic << 0 << 0;
        QTest::newRow("emoji") << Emoji + Emoji << 0 << 0;
        // A text without a word asks for nothing; a number without a character is in every number.
        QTest::newRow("blanks") << QStringLiteral("    ") << 0 << AllProducts;
    }

    void testFastSearch()
    {
        QFETCH(const QString, text);
        QFETCH(const int, hitsByText);
        QFETCH(const int, hitsByNumber);
        QLineEdit *const field = catalogue->Window().header->tbFastSearchText;
        const std::array<int, 3> expected{hitsByText, hitsByText, hitsByNumber};
        for (int type = 0; type < 3; ++type) {
            SelectACategory();
            ChooseEntry(catalogue->Window().header->cbFastSearchType, type);
            ReplaceIn(field, text);
            QCOMPARE(field->text(), text);
            const int hits = expected[size_t(type)];
            const auto search = [field] { PressKey(field, Qt::Key_Return); };
            if (hits == NoSearch) {
                search();
                // Neither the page nor what was typed changes.
                QVERIFY(catalogue->Window().CurrentNode() != nullptr);
                QCOMPARE(field->text(), text);
                ReplaceIn(field, QString());
            } else {
                QVERIFY(WaitForPageAfter(search));
                VerifyHits(hits);
                QVERIFY(field->text().isEmpty());
            }
        }
        if (hitsByNumber != NoSearch)
            VerifyPage(hitsByNumber);
    }

    void testDetailSearch_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("byDescription");
        QTest::addColumn<int>("byArtNr");
        QTest::addColumn<int>("byLength");
        QTest::addColumn<int>("byAuthor");
        QTest::newRow("'") << QStringLiteral("'") << 0 << 0 << 0 << 0;
        QTest::newRow("%") << QStringLiteral("%") << AllProducts << AllProducts << 0 << AllProducts;
        QTest::newRow("_") << QStringLiteral("_") << AllProducts << AllProducts << 0 << AllProducts;
        QTest::newRow("\"") << QStringLiteral("\"") << 0 << 0 << 0 << 0;
        QTest::newRow(";") << QStringLiteral(";") << 0 << 0 << 0 << 0;
        QTest::newRow("injection") << Injection << 0 << AllProducts << 0 << 0;
        QTest::newRow("injection in one word")
            << QStringLiteral("%')or(1=1)--") << AllProducts << 0 << 0 << AllProducts;
        QTest::newRow("10,000 characters") << LongText << 0 << 0 << 0 << 0;
        QTest::newRow("10,000 digits") << QString(10000, u'9') << 0 << 0 << 0 << 0;
        QTest::newRow("Cyrillic") << Cyrillic << 0 << 0 << 0 << 0;
        QTest::newRow("emoji") << Emoji << 0 << 0 << 0 << 0;
        // Blanks are no words; a field that holds them is not empty, but asks for nothing.
        QTest::newRow("blanks") << QStringLiteral("   ") << NoSearch << 0 << 0 << NoSearch;
    }

    void testDetailSearch()
    {
        QFETCH(const QString, text);
        QFETCH(const int, byDescription);
        QFETCH(const int, byArtNr);
        QFETCH(const int, byLength);
        QFETCH(const int, byAuthor);
        using Fields = SearchForm::Fields;
        SearchInForm(Fields{.description = text}, byDescription);
        SearchInForm(Fields{.author = text}, byAuthor);
        SearchInForm(Fields{.length = text}, byLength);
        SearchInForm(Fields{.artNr = text}, byArtNr);
        VerifyPage(byArtNr);
    }

    void testCompetitionSearch_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("ofAll");
        QTest::addColumn<int>("ofDorvik");
        for (const char *const sign : {"'", "%", "_", "\"", ";", " ", "B"})
            QTest::newRow(sign) << QString::fromLatin1(sign) << NoSearch << NoSearch;
        QTest::newRow("''") << QStringLiteral("''") << 0 << 0;
        QTest::newRow("%%") << QStringLiteral("%%") << AllReferences << ReferencesToDorvik;
        QTest::newRow("__") << QStringLiteral("__") << AllReferences << ReferencesToDorvik;
        QTest::newRow("\"\"") << QStringLiteral("\"\"") << 0 << 0;
        QTest::newRow(";;") << QStringLiteral(";;") << 0 << 0;
        // Its blanks go, and what is left is no statement.
        QTest::newRow("injection") << Injection << 0 << 0;
        QTest::newRow("injection without blanks")
            << QStringLiteral("%'or(1=1)--") << AllReferences << AllReferences;
        QTest::newRow("10,000 characters") << LongText << 0 << 0;
        QTest::newRow("Cyrillic") << Cyrillic << 0 << 0;
        QTest::newRow("emoji") << Emoji + Emoji << 0 << 0;
        // Two blanks are long enough, and nothing is left of them to narrow the search.
        QTest::newRow("blanks") << QStringLiteral("  ") << AllReferences << ReferencesToDorvik;
    }

    void testCompetitionSearch()
    {
        QFETCH(const QString, text);
        QFETCH(const int, ofAll);
        QFETCH(const int, ofDorvik);
        SearchForm form(*catalogue);
        for (const auto &[company, hits] : {std::pair(0, ofAll), std::pair(2, ofDorvik)}) {
            form.Open();
            form.FillCompetition(company, text);
            VerifySearch([&] { form.SubmitCompetition(); }, hits);
            QCOMPARE(catalogue->Window().ucSearchDetail->tbCompanyArtNr->text(), text);
        }
        if (ofDorvik != NoSearch)
            VerifyPage(ofDorvik);
    }

    void testLength_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("length");
        QTest::addColumn<int>("unit");
        QTest::addColumn<int>("alone");
        QTest::addColumn<int>("withScissors");
        // A length that is not used leaves all scissors; alone it asks for nothing.
        constexpr int all = AllScissors;
        const QLocale german(QLocale::German, QLocale::Germany);
        const QLocale english(QLocale::English, QLocale::UnitedStates);
        const auto row = [](const QLocale &locale, const char *length, int unit, int alone,
                            int withScissors) {
            QTest::addRow("%s %s, unit %d", qPrintable(locale.name()), length, unit)
                << locale << QString::fromLatin1(length) << unit << alone << withScissors;
        };
        row(german, "14,5", 1, AllOfTheLength, ScissorsOfTheLength);
        row(english, "14.5", 1, AllOfTheLength, ScissorsOfTheLength);
        // The other notation's decimal mark groups digits, which lengths do not have.
        row(german, "14.5", 1, 0, all);
        row(english, "14,5", 1, 0, all);
        for (const QLocale &locale : {german, english}) {
            // 1000 mm: longer than every product.
            row(locale, "1e3", 0, 0, 0);
            row(locale, "abc", 0, 0, all);
            row(locale, "-1", 0, 0, all);
            row(locale, "0", 0, 0, all);
            row(locale, "999999999999", 0, 0, all);
            row(locale, "145 mm", 0, 0, all);
            row(locale, " 145 ", 0, AllOfTheLength, ScissorsOfTheLength);
            // An exponent of 0.
            row(locale, "145e0", 0, AllOfTheLength, ScissorsOfTheLength);
        }
    }

    void testLength()
    {
        QFETCH(const QLocale, locale);
        QFETCH(const QString, length);
        QFETCH(const int, unit);
        QFETCH(const int, alone);
        QFETCH(const int, withScissors);
        Use(locale);
        using Fields = SearchForm::Fields;
        SearchInForm(Fields{.length = length, .unit = unit}, alone);
        SearchInForm(
            Fields{.description = QStringLiteral("Schere"), .length = length, .unit = unit},
            withScissors);
        VerifyPage(withScissors);
    }

private:
    /// The figures above, counted row by row.
    void CountTheSample() const
    {
        SQLiteWrapper database{QString()};
        QVERIFY(database.Open(path + QLatin1String("/catalog.db")));
        const auto table = [&](const char *sql) { return database.GetTable(QLatin1String(sql)); };
        const ResultTable products = table("SELECT ID, length FROM products_global");
        QCOMPARE(products.UpperRow(), AllProducts);
        std::map<QString, double> lengths;
        for (qsizetype row = 1; row <= products.UpperRow(); ++row)
            lengths[products.Text(row, 0)] = products.Text(row, 1).toDouble();
        const auto hasLength = [](const auto &product) { return product.second == 145; };
        QCOMPARE(int(std::count_if(lengths.begin(), lengths.end(), hasLength)), AllOfTheLength);

        const ResultTable names = table("SELECT ID, name, lang FROM products_localized");
        int scissors = 0;
        int scissorsOfTheLength = 0;
        for (qsizetype row = 1; row <= names.UpperRow(); ++row) {
            if (names.Text(row, 2) != QLatin1String("ge") ||
                !names.Text(row, 1).contains(QLatin1String("Schere"), Qt::CaseInsensitive))
                continue;
            ++scissors;
            scissorsOfTheLength += lengths[names.Text(row, 0)] == 145 ? 1 : 0;
        }
        QCOMPARE(scissors, AllScissors);
        QCOMPARE(scissorsOfTheLength, ScissorsOfTheLength);

        const ResultTable references = table("SELECT ID, sUnternehmen FROM reference_numbers");
        QCOMPARE(references.UpperRow(), AllReferences);
        int toDorvik = 0;
        for (qsizetype row = 1; row <= references.UpperRow(); ++row) {
            QVERIFY(lengths.contains(references.Text(row, 0)));
            toDorvik += references.Text(row, 1) == QLatin1String("Dorvik") ? 1 : 0;
        }
        QCOMPARE(toDorvik, ReferencesToDorvik);
    }

    /// The window of a user in this locale.
    void Use(const QLocale &locale)
    {
        auto &window = windows[locale.name()];
        if (window == nullptr) {
            window = std::make_unique<CatalogueWindow>(path, QStringLiteral("German"), locale);
            QVERIFY(window->WaitForFilledPage(QStringLiteral("welcome.html")));
        }
        catalogue = window.get();
        catalogue->Window().activateWindow();
    }

    int Hits() { return std::max(catalogue->Window().Protocol().ProductRows().UpperRow(), 0); }

    void SelectACategory()
    {
        frmCatalog &window = catalogue->Window();
        QVERIFY(WaitForPageAfter(
            [&] { window.TreeViewCategories_NodeClick(window.Tree().Nodes().front().get()); }));
    }

    /// Runs a search and waits for its page, which is yet to be filled.
    bool WaitForPageAfter(const std::function<void()> &search)
    {
        const QSignalSpy pages(catalogue->Window().wbMain, &WebBrowser::DocumentComplete);
        search();
        return WaitUntil([&] { return !pages.isEmpty(); });
    }

    void VerifyHits(int hits)
    {
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QVERIFY(catalogue->Window().CurrentNode() == nullptr);
        QCOMPARE(Hits(), hits);
    }

    /// That the page comes to show the hits, or says that there are none.
    void VerifyPage(int hits)
    {
        const QString none =
            catalogue->GetController().GetText(QStringLiteral("productListNoProducts"));
        QVERIFY(WaitUntil([&] {
            return RowCount(*catalogue) == std::min(hits, 20) &&
                   InnerText(*catalogue, QStringLiteral("list")).contains(none) == (hits == 0);
        }));
    }

    /// Submits the search form and looks at what came of it.
    void VerifySearch(const std::function<void()> &submit, int hits)
    {
        const QSignalSpy results(catalogue->Window().ucSearchDetail,
                                 &SearchDetail::OnNewSearchResults);
        if (hits == NoSearch) {
            submit();
            QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::SearchTab));
        } else {
            QVERIFY(WaitForPageAfter(submit));
            VerifyHits(hits);
        }
        QCOMPARE(results.size(), hits == NoSearch ? 0 : 1);
    }

    void SearchInForm(const SearchForm::Fields &fields, int hits)
    {
        SearchForm form(*catalogue);
        form.Open();
        form.Fill(fields);
        VerifySearch([&] { form.Submit(); }, hits);
        // What was typed is there to be mended.
        const SearchDetail &search = *catalogue->Window().ucSearchDetail;
        QCOMPARE(search.tbDescription->text(), fields.description);
        QCOMPARE(search.tbArtNr->text(), fields.artNr);
        QCOMPARE(search.tbProductLength->text(), fields.length);
        QCOMPARE(search.tbAuthor->text(), fields.author);
    }

    QTemporaryDir folder;
    QString path;
    std::map<QString, std::unique_ptr<CatalogueWindow>> windows;
    CatalogueWindow *catalogue = nullptr;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestSearchInput>(argc, argv);
}
#include "test_search_input.moc"
