#include "base/Errors.h"
#include "core/CategoryTree.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "sqlite2/Writer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

/// A catalogue of a clamp (1), a case (2), a set of both (3), a set without members (4), a set with
/// a member of an impossible amount (5), an article with two names in one language (6) and the
/// article of the largest id (32767).
void WriteCatalogue(const QString &fileName)
{
    Sqlite2::Writer writer;
    writer.CreateTable("CREATE TABLE categories (ID INTEGER, TREE_ID INTEGER, parent INTEGER, "
                       "title_ge VARCHAR, title_en VARCHAR, title_fr VARCHAR, title_sp VARCHAR, "
                       "title_it VARCHAR, firstLevelId INTEGER, catLevel2 VARCHAR, "
                       "catLevel3 VARCHAR, catLevel4 VARCHAR, catLevel5 VARCHAR)");
    writer.InsertRow("categories", {"10", "501", "", "Klemmen", "Clamps", "Pinces", "Pinzas",
                                    "Pinze", "1", "", "", "", ""});
    writer.InsertRow("categories", {"20", "502", "501", "Gerade", "Straight", "Droites", "Rectas",
                                    "Rette", "1", "a", "", "", ""});

    writer.CreateTable("CREATE TABLE products_global (ID INTEGER, artNr VARCHAR, isSet VARCHAR)");
    writer.InsertRow("products_global", {"1", "AB 1", "False"});
    writer.InsertRow("products_global", {"2", "AB 2", "False"});
    writer.InsertRow("products_global", {"3", "SET 3", "True"});
    writer.InsertRow("products_global", {"4", "SET 4", "True"});
    writer.InsertRow("products_global", {"5", "SET 5", "True"});
    writer.InsertRow("products_global", {"6", "AB 6", "False"});
    writer.InsertRow("products_global", {"7", "AB 7", "true"});
    writer.InsertRow("products_global", {"32767", "AB 9", "False"});

    writer.CreateTable("CREATE TABLE products_localized (ID INTEGER, lang VARCHAR, name VARCHAR, "
                       "form VARCHAR)");
    const auto addName = [&writer](const char *id, const char *lang, const char *name) {
        writer.InsertRow("products_localized", {id, lang, name, ""});
    };
    addName("1", "en", "Clamp");
    addName("1", "ge", "Klemme, gro\xDF");
    addName("2", "en", "Case");
    addName("3", "en", "Basic set");
    addName("4", "en", "Empty set");
    addName("5", "en", "Broken set");
    addName("6", "en", "First name");
    addName("6", "en", "Second name");
    addName("7", "en", "Set in small letters");
    addName("32767", "en", "Last");

    writer.CreateTable("CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, "
                       "iAmount INTEGER, iOrder INTEGER)");
    writer.InsertRow("products2sets", {"3", "1", "4", "2"});
    writer.InsertRow("products2sets", {"3", "2", "7", "1"});
    writer.InsertRow("products2sets", {"5", "1", "many", "1"});
    writer.Finish(QFile::encodeName(fileName).toStdString());
}

} // namespace

class TestController : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;
    QString applicationDirectory;
    std::unique_ptr<Registry> registry;

    void WriteFile(const QString &name, const QByteArray &bytes) const
    {
        const QString path = applicationDirectory + QLatin1Char('/') + name;
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    void RemoveFile(const QString &name) const
    {
        QVERIFY(QFile::remove(applicationDirectory + QLatin1Char('/') + name));
    }

    std::unique_ptr<Controller> MakeController() const
    {
        return std::make_unique<Controller>(applicationDirectory, *registry,
                                            folder->filePath(QStringLiteral("cache")),
                                            QLocale(QLocale::English, QLocale::UnitedKingdom));
    }

    std::unique_ptr<Controller> Started() const
    {
        auto controller = MakeController();
        controller->InitApplication();
        return controller;
    }

    /// The message of the FileError that ends the start; empty when it does not end so.
    QString StartError() const
    {
        try {
            Started();
        } catch (const FileError &error) {
            return error.Message();
        }
        return QString();
    }

private Q_SLOTS:
    /// A complete application directory whose path holds a blank and an umlaut.
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        applicationDirectory = folder->filePath(QStringLiteral(u"My Ger\u00E4te"));
        registry = std::make_unique<Registry>(folder->filePath(QStringLiteral("settings.json")));
        WriteFile(QStringLiteral("resources.chm"), "ITSF");
        for (const QString &code : LanguageSupport::GetLanguageCodes())
            WriteFile(QStringLiteral("content/loc_%1.txt").arg(code),
                      "code=" + code.toLatin1() + "\r\n");
        WriteCatalogue(applicationDirectory + QStringLiteral("/catalog.db"));
    }

    void testStartBuildsTheAddresses()
    {
        const auto controller = Started();
        QCOMPARE(controller->ApplicationDirectory(), applicationDirectory);
        QCOMPARE(controller->GetContentBaseUrl(), QStringLiteral("file://") + applicationDirectory);
        QCOMPARE(controller->GetResourceBaseUrl(), QStringLiteral("mk:@MSITStore:") +
                                                       applicationDirectory +
                                                       QStringLiteral("/resources.chm::"));
    }

    void testStartIsOverAfterwards()
    {
        const auto controller = MakeController();
        QVERIFY(!controller->IsStarting());
        controller->InitApplication();
        QVERIFY(!controller->IsStarting());
    }

    void testStartThatFailedIsNotOver()
    {
        RemoveFile(QStringLiteral("resources.chm"));
        const auto controller = MakeController();
        QVERIFY_THROWS_EXCEPTION(FileError, controller->InitApplication());
        QVERIFY(controller->IsStarting());
    }

    void testMissingResourcesEndTheStart()
    {
        RemoveFile(QStringLiteral("resources.chm"));
        QCOMPARE(StartError(), QStringLiteral("Can't find the file 'resources.chm' in working "
                                              "directory. Exit Application."));
    }

    void testMissingDatabaseEndsTheStart()
    {
        RemoveFile(QStringLiteral("catalog.db"));
        QCOMPARE(StartError(), QStringLiteral("Can't find the file 'catalog.db' in working "
                                              "directory. Exit Application."));
    }

    void testResourcesAreMissedFirst()
    {
        RemoveFile(QStringLiteral("catalog.db"));
        RemoveFile(QStringLiteral("resources.chm"));
        QVERIFY(StartError().contains(QStringLiteral("'resources.chm'")));
    }

    void testFolderIsNoFile()
    {
        RemoveFile(QStringLiteral("catalog.db"));
        QVERIFY(QDir(applicationDirectory).mkdir(QStringLiteral("catalog.db")));
        QVERIFY(StartError().contains(QStringLiteral("'catalog.db'")));
    }

    void testMissingLanguageFileEndsTheStart()
    {
        RemoveFile(QStringLiteral("content/loc_it.txt"));
        QVERIFY(StartError().contains(QStringLiteral("loc_it.txt")));
    }

    void testNothingIsStoredWhenAFileIsMissing()
    {
        RemoveFile(QStringLiteral("catalog.db"));
        QVERIFY(!StartError().isEmpty());
        QCOMPARE(registry->RegGetString(SettingsKey, QStringLiteral("Measure")), QString());
    }

    void testDatabaseThatCannotBeOpenedFindsNothing()
    {
        WriteFile(QStringLiteral("catalog.db"), "no database");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
        const auto controller = Started();
        QCOMPARE(controller->Queries().QueryCategories().UpperRow(), -1);
    }

    void testFilesAreLookedForInTheApplicationDirectoryOnly()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(applicationDirectory));
        applicationDirectory = folder->filePath(QStringLiteral("elsewhere"));
        const QString error = StartError();
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(error.contains(QStringLiteral("'resources.chm'")));
    }

    void testDocumentAddressesFollowTheLanguage()
    {
        const auto controller = Started();
        const QString base = controller->GetResourceBaseUrl();
        QCOMPARE(controller->GetWelcomeDocumentUrl(),
                 base + QStringLiteral("/Dokumente/welcome_en.html"));
        QCOMPARE(controller->GetInfoDocumentUrl(QStringLiteral("xlist")),
                 base + QStringLiteral("/Dokumente/info_en_list.html"));
        controller->Languages().SetLanguage(0);
        QCOMPARE(controller->GetWelcomeDocumentUrl(),
                 base + QStringLiteral("/Dokumente/welcome_ge.html"));
        QCOMPARE(controller->GetInfoDocumentUrl(QString()),
                 base + QStringLiteral("/Dokumente/info_ge_.html"));
    }

    void testDataSheetsAreFoundByTheirKey()
    {
        WriteFile(QStringLiteral("PDF/ab-12_x.pdf"), "%PDF");
        const auto controller = Started();
        QVERIFY(controller->HasPdfDocument(QStringLiteral("AB/12 X")));
        QCOMPARE(controller->GetPdfDocumentUrl(QStringLiteral("AB/12 X")),
                 QStringLiteral("file://") + applicationDirectory +
                     QStringLiteral("/PDF/ab-12_x.pdf"));
    }

    void testOtherSpellingsOfAKeyFindNoDataSheet()
    {
        WriteFile(QStringLiteral("PDF/abc.pdf"), "%PDF");
        const auto controller = Started();
        QVERIFY(controller->HasPdfDocument(QStringLiteral("ABC")));
        QVERIFY(!controller->HasPdfDocument(QStringLiteral("abc")));
        QCOMPARE(controller->GetPdfDocumentUrl(QStringLiteral("abc")), QString());
    }

    void testOtherEndingsAreNoDataSheets()
    {
        WriteFile(QStringLiteral("PDF/abc.PDF"), "%PDF");
        WriteFile(QStringLiteral("PDF/abd.txt"), "text");
        const auto controller = Started();
        QVERIFY(!controller->HasPdfDocument(QStringLiteral("ABC")));
        QVERIFY(!controller->HasPdfDocument(QStringLiteral("ABD")));
    }

    void testFoldersAreNoDataSheets()
    {
        WriteFile(QStringLiteral("PDF/sub.pdf/inner.pdf"), "%PDF");
        const auto controller = Started();
        QVERIFY(!controller->HasPdfDocument(QStringLiteral("SUB")));
        QVERIFY(!controller->HasPdfDocument(QStringLiteral("INNER")));
    }

    void testTwoDataSheetsOfOneKeyEndTheStart()
    {
        WriteFile(QStringLiteral("PDF/A B.pdf"), "%PDF");
        WriteFile(QStringLiteral("PDF/A_B.pdf"), "%PDF");
        try {
            Started();
            QFAIL("no error");
        } catch (const DuplicateKeyError &error) {
            QVERIFY(error.Message().contains(QStringLiteral("A B.pdf")));
            QVERIFY(error.Message().contains(QStringLiteral("A_B.pdf")));
        }
    }

    void testDataSheetsOfOneKeyAreMetBeforeMissingFiles()
    {
        WriteFile(QStringLiteral("PDF/A B.pdf"), "%PDF");
        WriteFile(QStringLiteral("PDF/a b.pdf"), "%PDF");
        RemoveFile(QStringLiteral("resources.chm"));
        QVERIFY_THROWS_EXCEPTION(DuplicateKeyError, Started());
    }

    void testSizesAreMetricAtFirst()
    {
        const auto controller = Started();
        QCOMPARE(controller->GetUnit(), 0);
        QCOMPARE(controller->GetSizeColumn(), QStringLiteral("p.sCm"));
    }

    void testAnyOtherUnitIsInch()
    {
        const auto controller = Started();
        for (const qint32 unit : {1, 2, -1}) {
            controller->SetUnit(unit);
            QCOMPARE(controller->GetUnit(), unit);
            QCOMPARE(controller->GetSizeColumn(), QStringLiteral("p.sInch"));
        }
        controller->SetUnit(0);
        QCOMPARE(controller->GetSizeColumn(), QStringLiteral("p.sCm"));
    }

    void testTextsFollowTheLanguage()
    {
        const auto controller = Started();
        QCOMPARE(controller->GetText(QStringLiteral("code")), QStringLiteral("en"));
        controller->Languages().SetLanguage(4);
        QCOMPARE(controller->GetText(QStringLiteral("code")), QStringLiteral("it"));
    }

    void testCategoriesFillTheTreeInTheCurrentLanguage()
    {
        const auto controller = Started();
        CategoryTree tree;
        tree.Fill(controller->Queries().QueryCategories());
        const CategoryNode *straight = tree.FindByTag(QStringLiteral("20"));
        QVERIFY(straight);
        QCOMPARE(straight->FullPath(), QStringLiteral("Clamps\\Straight"));
        controller->Languages().SetLanguage(0);
        tree.Fill(controller->Queries().QueryCategories());
        QCOMPARE(straight->FullPath(), QStringLiteral("Klemmen\\Gerade"));
    }

    void testClosedDatabaseFindsNothing()
    {
        const auto controller = Started();
        QVERIFY(controller->Queries().QueryCategories().HasData());
        controller->CloseDatabase();
        QVERIFY(!controller->Queries().QueryCategories().HasData());
    }

    void testPricesComeFromThePriceList()
    {
        WriteFile(QStringLiteral("prices.txt"), "AB 1\t12,50\r\n");
        const auto controller = Started();
        QVERIFY(!controller->HasPriceList());
        controller->Prices().LoadPriceList(applicationDirectory + QStringLiteral("/prices.txt"));
        QVERIFY(controller->HasPriceList());
        QCOMPARE(controller->GetPrice(QStringLiteral("AB1")), QStringLiteral("12,50&nbsp;EUR"));
    }

    void testCartIsEmptyAtFirst() { QCOMPARE(Started()->GetShoppingCart().Count(), qint16(0)); }

    void testSingleArticleGoesIntoTheCart()
    {
        const auto controller = Started();
        controller->AddProductToCart(1, 3, QStringLiteral("OR 2"));
        const clsShoppingCart &cart = controller->GetShoppingCart();
        QCOMPARE(cart.Count(), qint16(1));
        const clsShoppingCartItem &item = *cart.Entries().At(0);
        QCOMPARE(item.Id, QStringLiteral("1"));
        QCOMPARE(item.ArtNr, QStringLiteral("AB 1"));
        QCOMPARE(item.Title, QStringLiteral("Clamp"));
        QCOMPARE(item.Amount, qint16(3));
        QCOMPARE(item.AltCategory, QStringLiteral("OR 2"));
        QVERIFY(!item.IsSet());
    }

    void testTitleIsInTheCurrentLanguage()
    {
        const auto controller = Started();
        controller->Languages().SetLanguage(0);
        controller->AddProductToCart(1, 1, QString());
        QCOMPARE(controller->GetShoppingCart().Entries().At(0)->Title,
                 QStringLiteral(u"Klemme, gro\u00DF"));
    }

    void testSetTakesItsMembersInTheirOrderFromPositionOne()
    {
        const auto controller = Started();
        controller->AddProductToCart(3, 5, QString());
        const clsShoppingCartItem &item = *controller->GetShoppingCart().Entries().At(0);
        QVERIFY(item.IsSet());
        QCOMPARE(item.SetItems->LowerBound(), 1);
        QCOMPARE(item.SetItems->UpperBound(), 2);
        // Five sets still need 7 and 4 of each within one set.
        QCOMPARE(item.Serialize(), QStringLiteral("3;SET 3;Basic set;5;\r\n"
                                                  "2;AB 2;Case;7;\r\n"
                                                  "1;AB 1;Clamp;4;\r\n"
                                                  "\r\n"));
    }

    void testSetWithoutMembersHasAnEmptyList()
    {
        const auto controller = Started();
        controller->AddProductToCart(4, 1, QString());
        const clsShoppingCartItem &item = *controller->GetShoppingCart().Entries().At(0);
        QVERIFY(item.IsSet());
        QCOMPARE(item.Serialize(), QStringLiteral("4;SET 4;Empty set;1;\r\n\r\n"));
    }

    void testOnlyTheExactMarkMakesASet()
    {
        const auto controller = Started();
        controller->AddProductToCart(7, 1, QString());
        QVERIFY(!controller->GetShoppingCart().Entries().At(0)->IsSet());
    }

    void testMembersAmountThatIsNoNumberAddsNothing()
    {
        const auto controller = Started();
        QVERIFY_THROWS_EXCEPTION(ConversionError, controller->AddProductToCart(5, 1, QString()));
        QCOMPARE(controller->GetShoppingCart().Count(), qint16(0));
    }

    void testUnknownProductAddsNothing()
    {
        const auto controller = Started();
        controller->AddProductToCart(99, 1, QString());
        controller->AddProductToCart(-1, 1, QString());
        QCOMPARE(controller->GetShoppingCart().Count(), qint16(0));
    }

    void testProductWithoutANameInTheLanguageAddsNothing()
    {
        const auto controller = Started();
        controller->Languages().SetLanguage(2);
        controller->AddProductToCart(1, 1, QString());
        QCOMPARE(controller->GetShoppingCart().Count(), qint16(0));
    }

    void testProductOfTwoRowsAddsNothing()
    {
        const auto controller = Started();
        QCOMPARE(controller->Queries().QueryProduct(QStringLiteral("6")).UpperRow(), 2);
        controller->AddProductToCart(6, 1, QString());
        QCOMPARE(controller->GetShoppingCart().Count(), qint16(0));
    }

    void testLargestIdIsFound()
    {
        const auto controller = Started();
        controller->AddProductToCart(32767, 1, QString());
        QCOMPARE(controller->GetShoppingCart().Entries().At(0)->ArtNr, QStringLiteral("AB 9"));
    }

    void testEqualArticlesStayOnLinesOfTheirOwn()
    {
        const auto controller = Started();
        controller->AddProductToCart(1, 1, QString());
        controller->AddProductToCart(1, 2, QString());
        QCOMPARE(controller->GetShoppingCart().Count(), qint16(2));
        QCOMPARE(controller->GetShoppingCart().Entries().At(1)->Amount, qint16(2));
    }
};

QTEST_GUILESS_MAIN(TestController)
#include "TestController.moc"
