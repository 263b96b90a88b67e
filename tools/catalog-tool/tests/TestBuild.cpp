#include "TinySources.h"

#include "build/CatalogueBuilder.h"
#include "build/ContainerReader.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sqlite2/Reader.h"

#include <QFileInfo>
#include <QImageReader>
#include <QTest>

using namespace Tesk;

/// Builds the tiny catalogue once; each test looks at one part of the result.
class TestBuild : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Problems problems;
        BuildCatalogue(CatalogueSources(tiny.Path(), problems), folder.path());
        QVERIFY(problems.IsEmpty());
    }

    void testDirectoryHoldsEverythingButTheProgram()
    {
        QCOMPARE(QDir(folder.path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
                 (QStringList{QStringLiteral("PDF"), QStringLiteral("catalog.db"),
                              QStringLiteral("content"), QStringLiteral("price_list.txt"),
                              QStringLiteral("resources.chm"), QStringLiteral("version")}));
    }

    void testDatabaseHoldsTheTablesAsDeclared()
    {
        const Sqlite2::Reader reader(DatabaseFile());
        QCOMPARE(reader.Tables().size(), size_t(6));
        const Sqlite2::Table *products = reader.FindTable("products_global");
        QVERIFY(products);
        QCOMPARE(products->columns.size(), size_t(16));
        QCOMPARE(products->columns.front().name, std::string("ID"));
        QCOMPARE(products->rowIdColumn, 0);
        QCOMPARE(products->columns[3].declaredType, std::string("DOUBLE"));
        const Sqlite2::Table *localized = reader.FindTable("products_localized");
        QCOMPARE(localized->indexes.size(), size_t(1));
        QCOMPARE(localized->indexes.front().columns, (std::vector<std::string>{"ID", "lang"}));
    }

    void testDatabaseHoldsTheRowsInTheCodePage()
    {
        const std::vector<Sqlite2::Row> names = Rows("products_localized");
        QCOMPARE(names.size(), size_t(15));
        QCOMPARE(names[0], (Sqlite2::Row{"1", "ge", "Schere gro\xDF", "x"}));
        QCOMPARE(names[2], (Sqlite2::Row{"1", "fr", "Ciseaux \x9Cil", "x"}));
        QCOMPARE(names[3], (Sqlite2::Row{"1", "sp", "Tijera ni\xF1o", "x"}));
        QCOMPARE(names[14], (Sqlite2::Row{"3", "it", "Set", std::nullopt}));
    }

    void testDatabaseTellsNullFromEmptyText()
    {
        const std::vector<Sqlite2::Row> products = Rows("products_global");
        QCOMPARE(products.size(), size_t(3));
        QCOMPARE(products[0], (Sqlite2::Row{"1", "AB 10/1", "False", "115", "11,5 cm", "4 1/2\"",
                                            "1", "/scissors", "1", "hcare", "Straight.svg", "0.5",
                                            "tip.svg", "2", "", "0"}));
        QVERIFY(!products[1][9].has_value());
        QVERIFY(!products[2][3].has_value());
        QCOMPARE(products[2][4], Sqlite2::Value(""));
    }

    void testContainerHoldsTheDocuments()
    {
        const ContainerReader reader(folder.filePath(QStringLiteral("resources.chm")));
        QCOMPARE(reader.Read(QStringLiteral("/Dokumente/info_sp_care.html")),
                 tiny.Read(QStringLiteral("documents/info_sp_care.html")));
    }

    void testLanguageFilesAreCodePageTextWithCrLf()
    {
        const QByteArray text = Read("content/loc_fr.txt");
        QVERIFY(text.contains("\r\nmHelp=fr \x9C mHelp\r\n"));
        QVERIFY(text.endsWith("\r\n"));
        QCOMPARE(text.count('\n'), 132);
        QCOMPARE(text.count('\r'), 132);
        QVERIFY(!text.contains('#'));
    }

    void testContentIsCopied()
    {
        QCOMPARE(Read("content/welcome.html"), tiny.Read(QStringLiteral("content/welcome.html")));
        QCOMPARE(Read("content/img/own.gif"), QByteArray("GIF of its own"));
    }

    void testPageDrawingsBecomeGifPictures()
    {
        QImageReader reader(folder.filePath(QStringLiteral("content/img/sub/half.gif")));
        QCOMPARE(reader.format(), QByteArray("gif"));
        const QImage picture = reader.read();
        QCOMPARE(picture.size(), QSize(48, 24));
        QCOMPARE(picture.pixel(2, 2), qRgb(219, 39, 28));
        QCOMPARE(qAlpha(picture.pixel(40, 2)), 0);
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("content/img/sub/half.svg"))));
    }

    void testDataSheetsArePrintedOrCopied()
    {
        QVERIFY(Read("PDF/AB_10-1.pdf").startsWith("%PDF-"));
        QCOMPARE(Read("PDF/AB_10-2.pdf"), QByteArray("%PDF-1.4 ready"));
        QCOMPARE(QDir(folder.filePath(QStringLiteral("PDF"))).entryList(QDir::Files).size(), 2);
    }

    void testPriceListIsCodePageTextWithCrLf()
    {
        QCOMPARE(Read("price_list.txt"), QByteArray("AB 10/1\t12,50\r\nAB 10/2\t9.90\r\n"));
    }

    void testVersionIsOneLine() { QCOMPARE(Read("version"), QByteArray("1.2 (2026)\r\n")); }

private:
    std::filesystem::path DatabaseFile() const
    {
        return QFileInfo(folder.filePath(QStringLiteral("catalog.db"))).filesystemFilePath();
    }

    std::vector<Sqlite2::Row> Rows(const char *table) const
    {
        const Sqlite2::Reader reader(DatabaseFile());
        std::vector<Sqlite2::Row> rows;
        reader.ReadRows(*reader.FindTable(table),
                        [&](std::int32_t, const Sqlite2::Row &row) { rows.push_back(row); });
        return rows;
    }

    QByteArray Read(const char *file) const
    {
        QFile source(folder.filePath(QLatin1String(file)));
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("missing");
    }

    TinySources tiny;
    QTemporaryDir folder;
};

QTEST_MAIN(TestBuild)
#include "TestBuild.moc"
