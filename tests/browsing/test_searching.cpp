#include "core/CategoryTree.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/SearchForm.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

namespace {

/// Article numbers between commas.
QStringList ArtNrs(const char *list)
{
    return QString::fromLatin1(list).split(QStringLiteral(", "));
}

/// The products of 145 mm.
const QStringList Of145mm =
    ArtNrs("AB 10-845-11, AB 11-128-29, AB 11-160-21, AB 12-355-20, AB 12-584-14, AB 12-964-05,"
           " TK 12-323-07, XM 10-088-18");
/// Those that Müller's name stands in, and the scissors among them.
const QStringList Mullers =
    ArtNrs("AB 10-655-15, AB 10-914-24, AB 10-939-14, AB 11-652-16, TK 11-575-27, TK 12-399-23,"
           " XM 10-101-27, XM 10-170-08, XM 10-703-24, XM 11-620-21, XM 12-358-11");
const QStringList MullersScissors = ArtNrs("AB 10-655-15, AB 10-914-24, AB 10-939-14,"
                                           " XM 10-101-27, XM 10-170-08, XM 10-703-24");

} // namespace

/// Searches from the control to the page, on the database of the version 2 engine. The rows are the
/// engine's own answers to the same statements, or were picked from the database's contents with
/// neither the program nor a database engine.
class TestSearching final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyWithDatabase(SampleCatalogue, path, QStringLiteral(SAMPLES_DIR "/catalog.db")));
        catalogue = std::make_unique<CatalogueWindow>(path, QStringLiteral("German"),
                                                      QLocale(QLocale::German, QLocale::Germany));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void cleanupTestCase() { catalogue.reset(); }

    void testFastSearch_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("expected");
        for (const int type : {0, 1}) {
            QTest::addRow("two words, type %d", type)
                << type << QStringLiteral("schere Müller") << MullersScissors;
            // A letter beyond ASCII stands for any one character.
            QTest::addRow("another umlaut, type %d", type)
                << type << QStringLiteral("Möller") << Mullers;
            QTest::addRow("AND between words, type %d", type)
                << type << QStringLiteral("klemme and Bréval")
                << ArtNrs("AB 12-584-14, AB 12-990-19, TK 12-784-22, XM 12-926-19");
            QTest::addRow("article number, type %d", type)
                << type << QStringLiteral("AB 10-845-11") << QStringList();
        }
        QTest::newRow("whole number")
            << 2 << QStringLiteral("AB 10-845-11") << QStringList{QStringLiteral("AB 10-845-11")};
        QTest::newRow("number without its blank")
            << 2 << QStringLiteral("ab10-845-11") << QStringList{QStringLiteral("AB 10-845-11")};
        QTest::newRow("inside the number")
            << 2 << QStringLiteral("2-1")
            << ArtNrs("AB 10-072-14, AB 11-652-16, AB 12-092-10, TK 10-282-10, TK 10-372-15,"
                      " TK 10-492-17, TK 12-197-15");
        QTest::newRow("words as a number") << 2 << QStringLiteral("schere") << QStringList();
    }

    void testFastSearch()
    {
        QFETCH(const int, type);
        QFETCH(const QString, text);
        QFETCH(const QStringList, expected);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { FastSearchFor(*catalogue, text, type); }));
        VerifyHits(expected);
        QVERIFY(catalogue->Window().header->tbFastSearchText->text().isEmpty());
    }

    void testButtonOfTheFastSearchSearchesToo()
    {
        const HeaderBand &header = *catalogue->Window().header;
        ChooseEntry(header.cbFastSearchType, 2);
        TypeInto(header.tbFastSearchText, QStringLiteral("TK 10-002-06"));
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickOn(header.btnFastSearch); }));
        VerifyHits({QStringLiteral("TK 10-002-06")});
    }

    void testManyHitsArePaged()
    {
        QVERIFY(WaitForFillAfter(*catalogue,
                                 [&] { FastSearchFor(*catalogue, QStringLiteral("TK1"), 2); }));
        QCOMPARE(catalogue->Window().Protocol().ProductRows().UpperRow(), 48);
        QStringList shown = ShownArtNrs(*catalogue);
        QCOMPARE(shown.size(), 20);
        QCOMPARE(shown.first(), QStringLiteral("TK 10-002-06"));
        QCOMPARE(shown.last(), QStringLiteral("TK 10-773-05"));
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(catalogue->Click(QStringLiteral("a[href*='firstItem=41&']")));
        }));
        QCOMPARE(ShownArtNrs(*catalogue),
                 ArtNrs("TK 12-474-05, TK 12-480-14, TK 12-570-26, TK 12-593-12, TK 12-784-22,"
                        " TK 12-893-21, TK 12-894-26, TK 12-932-26"));
    }

    void testDetailSearch_data()
    {
        QTest::addColumn<SearchForm::Fields>("fields");
        QTest::addColumn<QStringList>("expected");
        using Fields = SearchForm::Fields;
        QTest::newRow("words") << Fields{.description = QStringLiteral("schere Möller")}
                               << MullersScissors;
        QTest::newRow("author alone") << Fields{.author = QStringLiteral("Müller")} << Mullers;
        QTest::newRow("words and author")
            << Fields{.description = QStringLiteral("Schere"), .author = QStringLiteral("Müller")}
            << MullersScissors;
        // The author's letters are not masked: another umlaut finds nothing.
        QTest::newRow("misspelt author")
            << Fields{.author = QStringLiteral("Möller")} << QStringList();
        QTest::newRow("article number") << Fields{.artNr = QStringLiteral("TK10-00")}
                                        << QStringList{QStringLiteral("TK 10-002-06")};
        QTest::newRow("words and article number")
            << Fields{.description = QStringLiteral("gebogen"), .artNr = QStringLiteral("AB12")}
            << ArtNrs("AB 12-429-22, AB 12-724-09, AB 12-964-05");
        QTest::newRow("mm") << Fields{.length = QStringLiteral("145")} << Of145mm;
        QTest::newRow("cm") << Fields{.length = QStringLiteral("14,5"), .unit = 1} << Of145mm;
        // 5.9 times 24.5 is 144.55.
        QTest::newRow("inch") << Fields{.length = QStringLiteral("5,9"), .unit = 2} << Of145mm;
        QTest::newRow("words and length")
            << Fields{.description = QStringLiteral("Klemme"), .length = QStringLiteral("145")}
            << ArtNrs("AB 12-355-20, AB 12-584-14, AB 12-964-05, TK 12-323-07");
        // No product has 147 mm, so those of 132 to 162 mm come.
        QTest::newRow("length with the retry")
            << Fields{.description = QStringLiteral("schere"), .length = QStringLiteral("147")}
            << ArtNrs("AB 10-838-18, AB 10-845-11, AB 10-895-11, TK 10-307-08, TK 10-370-30,"
                      " TK 10-660-12, TK 10-681-14, TK 10-687-15, TK 10-795-10, TK 10-808-25,"
                      " TK 10-929-25, XM 10-029-05, XM 10-088-18, XM 10-414-17, XM 10-520-13,"
                      " XM 10-598-09, XM 10-608-11");
        QTest::newRow("no hit") << Fields{.description = QStringLiteral("Hammer")} << QStringList();
    }

    void testDetailSearch()
    {
        QFETCH(const SearchForm::Fields, fields);
        QFETCH(const QStringList, expected);
        SearchForm form(*catalogue);
        form.Open();
        form.Fill(fields);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { form.Submit(); }));
        VerifyHits(expected);
    }

    void testCompetitionSearch_data()
    {
        QTest::addColumn<int>("company");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QStringList>("expected");
        // A product stands once for each of its numbers that match.
        QTest::newRow("all companies")
            << 0 << QStringLiteral("BH0")
            << ArtNrs("AB 10-655-15, AB 10-665-30, AB 10-838-18, TK 10-307-08, TK 12-399-23,"
                      " TK 12-894-26, TK 12-894-26, XM 10-644-30, XM 11-255-18, XM 12-912-26");
        QTest::newRow("number with a blank")
            << 0 << QStringLiteral("BH 084") << QStringList{QStringLiteral("AB 10-838-18")};
        // "H 1" is "H1"; no stored number holds a blank.
        QTest::newRow("two characters and a blank")
            << 1 << QStringLiteral("H 1")
            << ArtNrs("AB 10-322-05, AB 10-343-28, AB 12-429-22, AB 12-724-09, TK 10-639-07,"
                      " TK 10-795-10, TK 12-381-13, TK 12-480-14, XM 10-520-13, XM 10-703-24,"
                      " XM 11-329-05, XM 12-267-10");
        QTest::newRow("Varnholt's")
            << 1 << QStringLiteral("bh084") << QStringList{QStringLiteral("AB 10-838-18")};
        QTest::newRow("not Dorvik's") << 2 << QStringLiteral("BH084") << QStringList();
        QTest::newRow("Dorvik's") << 2 << QStringLiteral("20-")
                                  << ArtNrs("XM 10-088-18, XM 10-798-12");
        QTest::newRow("Salvora's")
            << 3 << QStringLiteral("12.") << ArtNrs("AB 10-032-30, XM 12-029-05");
        QTest::newRow("unknown") << 0 << QStringLiteral("B 1") << QStringList();
    }

    void testCompetitionSearch()
    {
        QFETCH(const int, company);
        QFETCH(const QString, number);
        QFETCH(const QStringList, expected);
        SearchForm form(*catalogue);
        form.Open();
        form.FillCompetition(company, number);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { form.SubmitCompetition(); }));
        VerifyHits(expected);
    }

    void testCompanyNarrowsManyHits()
    {
        SearchForm form(*catalogue);
        form.Open();
        form.FillCompetition(2, QStringLiteral("1 "));
        QVERIFY(WaitForFillAfter(*catalogue, [&] { form.SubmitCompetition(); }));
        QCOMPARE(catalogue->Window().Protocol().ProductRows().UpperRow(), 52);
        QCOMPARE(ShownArtNrs(*catalogue),
                 ArtNrs("AB 10-032-30, AB 10-032-30, AB 10-055-05, AB 10-322-05, AB 10-353-13,"
                        " AB 10-446-23, AB 10-486-27, AB 10-643-16, AB 10-655-15, AB 10-655-15,"
                        " AB 10-665-30, AB 10-702-30, AB 10-860-07, AB 10-860-07, AB 10-895-11,"
                        " AB 10-895-11, AB 10-927-29, AB 11-002-07, AB 11-034-11, AB 11-206-14"));
    }

private:
    /// That the page shows these products as the result of a search.
    void VerifyHits(const QStringList &expected)
    {
        frmCatalog &window = catalogue->Window();
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::ProductsTab));
        QCOMPARE(ShownCaption(*catalogue),
                 catalogue->GetController().GetText(QStringLiteral("productListSearchHeadline")));
        QCOMPARE(ShownArtNrs(*catalogue), expected);
        QCOMPARE(std::max(window.Protocol().ProductRows().UpperRow(), 0), expected.size());
        const QString none =
            catalogue->GetController().GetText(QStringLiteral("productListNoProducts"));
        QCOMPARE(InnerText(*catalogue, QStringLiteral("list")).contains(none), expected.isEmpty());
    }

    QTemporaryDir folder;
    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestSearching>(argc, argv);
}
#include "test_searching.moc"
