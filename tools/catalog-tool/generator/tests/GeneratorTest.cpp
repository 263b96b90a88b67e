#include "GenerateCommand.h"
#include "Samples.h"
#include "Scratch.h"
#include "StructureChecker.h"
#include "UsageError.h"
#include "generator/CatalogueGenerator.h"
#include "generator/ProductPlan.h"

#include "base/Errors.h"

#include <QTest>

#include <algorithm>
#include <set>

using namespace Tesk;
using Sqlite2::Scratch;
using Sqlite2::StructureChecker;
using Sqlite2::Samples::LoadedTable;

namespace {

constexpr int ProductCount = 700;
constexpr std::size_t LocalizedCount = 3500;
constexpr std::size_t ReferenceCount = 1400;

QByteArray Generated(const GeneratorOptions &options)
{
    const Scratch scratch;
    GenerateCatalogue(scratch.File(), options);
    return scratch.Bytes();
}

/// The texts of one column in the order of the rows.
QStringList Column(const LoadedTable &table, const char *name)
{
    QStringList texts;
    for (const auto &[rowId, row] : table.rows)
        texts.append(table.Cell(rowId, QString::fromLatin1(name)));
    return texts;
}

QSet<QString> Distinct(const QStringList &texts)
{
    return {texts.begin(), texts.end()};
}

} // namespace

class GeneratorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void testEqualSeedsGiveEqualFiles();
    void testFileIsSound();
    void testProductsHaveAllIdsAndDistinctNumbers();
    void testEveryProductHasFiveLanguages();
    void testTextsUseTheCodePageAndNoQuotes();
    void testCategoriesFormATree();
    void testProductsLieInLeafCategories();
    void testSetsHaveSingleProductsAsMembers();
    void testReferenceNumbers();
    void testOptionalNumbers();
    void testProductsOfTheFirstCategory();
    void testSizeTexts_data();
    void testSizeTexts();
    void testSchemaIsThatOfTheSample();
    void testSmallestCatalogue();
    void testLargestCatalogue();
    void testRefusesNumbersOutOfRange();
    void testFileThatCannotBeWrittenIsAnError();
    void testCommandLine();
    void testWrongCommandLines_data();
    void testWrongCommandLines();

private:
    LoadedTable Table(const char *name) const { return {scratch.File(), name}; }

    Scratch scratch;
};

void GeneratorTest::initTestCase()
{
    GenerateCatalogue(scratch.File(), {ProductCount, 7, {}, {}});
}

void GeneratorTest::testEqualSeedsGiveEqualFiles()
{
    QCOMPARE(Generated({ProductCount, 7, {}, {}}), scratch.Bytes());
    QVERIFY(Generated({ProductCount, 8, {}, {}}) != scratch.Bytes());
}

void GeneratorTest::testFileIsSound()
{
    QCOMPARE(StructureChecker(scratch.Bytes()).Run(), QStringList());
}

void GeneratorTest::testProductsHaveAllIdsAndDistinctNumbers()
{
    const LoadedTable products = Table("products_global");
    QCOMPARE(products.rows.size(), std::size_t{ProductCount});
    QCOMPARE(products.rows.begin()->first, 1);
    QCOMPARE(products.rows.rbegin()->first, ProductCount);
    QCOMPARE(products.declaration.columns.front().name, std::string("ID"));
    QCOMPARE(Distinct(Column(products, "artNr")).size(), ProductCount);
    QCOMPARE(Column(products, "isSet").count(QStringLiteral("True")), ProductCount / 50);
}

void GeneratorTest::testEveryProductHasFiveLanguages()
{
    const LoadedTable texts = Table("products_localized");
    QCOMPARE(texts.rows.size(), LocalizedCount);
    QStringList keys;
    for (const auto &[rowId, row] : texts.rows)
        keys.append(texts.Cell(rowId, QStringLiteral("ID")) +
                    texts.Cell(rowId, QStringLiteral("lang")));
    QCOMPARE(Distinct(keys).size(), 5 * ProductCount);
    QCOMPARE(Distinct(Column(texts, "lang")),
             Distinct({QStringLiteral("ge"), QStringLiteral("en"), QStringLiteral("fr"),
                       QStringLiteral("sp"), QStringLiteral("it")}));
    QVERIFY(!Column(texts, "name").contains(QString()));
}

void GeneratorTest::testTextsUseTheCodePageAndNoQuotes()
{
    const QString all = Column(Table("products_localized"), "name").join(QLatin1Char('\n'));
    for (const char16_t letter : {u'ä', u'ß', u'ñ', u'é', u'œ', u'ø'})
        QVERIFY2(all.contains(QChar(letter)), qPrintable(QString(QChar(letter))));
    for (const char unwanted : {'\'', '"', '?', '='})
        QVERIFY(!all.contains(QLatin1Char(unwanted)));
}

void GeneratorTest::testCategoriesFormATree()
{
    const Scratch own;
    GenerateCatalogue(own.File(), {10, 1, 400, {}});
    const LoadedTable categories(own.File(), "categories");
    QCOMPARE(categories.rows.size(), std::size_t{400});
    QSet<QString> known{QString()};
    qsizetype deepest = 0;
    for (const auto &[rowId, row] : categories.rows) {
        // A parent comes before its children.
        QVERIFY(known.contains(categories.Cell(rowId, QStringLiteral("parent"))));
        known.insert(categories.Cell(rowId, QStringLiteral("TREE_ID")));
        const QStringList levels = Sqlite2::Samples::Texts(row).mid(8);
        QCOMPARE(levels.size(), 5);
        deepest = std::max(deepest, 5 - levels.count(QStringLiteral("0")));
    }
    QCOMPARE(known.size(), 401);
    QCOMPARE(deepest, 4);
}

void GeneratorTest::testProductsLieInLeafCategories()
{
    const LoadedTable categories = Table("categories");
    const LoadedTable memberships = Table("products2categories");
    QCOMPARE(Distinct(Column(memberships, "prodID")).size(), ProductCount);
    const QSet<QString> parents = Distinct(Column(categories, "parent"));
    for (const QString &id : Distinct(Column(memberships, "catID"))) {
        QVERIFY(categories.rows.contains(id.toInt()));
        QVERIFY(!parents.contains(categories.Cell(id.toInt(), QStringLiteral("TREE_ID"))));
    }
}

void GeneratorTest::testSetsHaveSingleProductsAsMembers()
{
    const LoadedTable products = Table("products_global");
    const LoadedTable members = Table("products2sets");
    const auto isSet = [&](const QString &id) {
        return products.Cell(id.toInt(), QStringLiteral("isSet")) == QLatin1String("True");
    };
    const QStringList sets = Column(members, "iSetID");
    QCOMPARE(Distinct(sets).size(), ProductCount / 50);
    for (const QString &set : sets)
        QVERIFY(isSet(set) && sets.count(set) >= 3);
    for (const QString &member : Column(members, "iProdGlobId"))
        QVERIFY(!isSet(member));
    for (const QString &amount : Column(members, "iAmount"))
        QVERIFY(amount.toInt() >= 1);
}

void GeneratorTest::testReferenceNumbers()
{
    const LoadedTable references = Table("reference_numbers");
    QCOMPARE(references.rows.size(), ReferenceCount);
    QCOMPARE(Distinct(Column(references, "sUnternehmen")),
             Distinct({QStringLiteral("Varnholt"), QStringLiteral("Dorvik"),
                       QStringLiteral("Salvora")}));
    for (const QString &number : Column(references, "sRefNo"))
        QVERIFY(!number.isEmpty() && !number.contains(QLatin1Char(' ')));
    for (const QString &id : Column(references, "ID"))
        QVERIFY(id.toInt() >= 1 && id.toInt() <= ProductCount);
}

void GeneratorTest::testOptionalNumbers()
{
    const Scratch own;
    GenerateCatalogue(own.File(), {30, 1, 5, 11});
    QCOMPARE(LoadedTable(own.File(), "categories").rows.size(), std::size_t{5});
    QCOMPARE(LoadedTable(own.File(), "reference_numbers").rows.size(), std::size_t{11});
}

void GeneratorTest::testProductsOfTheFirstCategory()
{
    const QStringList all = Column(LoadedTable(scratch.File(), "products2categories"), "catID");
    for (const int count : {0, 3, 250, ProductCount}) {
        const Scratch own;
        GenerateCatalogue(own.File(), {ProductCount, 7, {}, {}, count});
        const QStringList categories =
            Column(LoadedTable(own.File(), "products2categories"), "catID");
        // Leaves are numbered as they are made, and the first one is never empty by default.
        const auto byNumber = [](const QString &left, const QString &right) {
            return left.toInt() < right.toInt();
        };
        const QString first = *std::ranges::min_element(all, byNumber);
        QCOMPARE(categories.count(first), count);
    }
}

void GeneratorTest::testSizeTexts_data()
{
    QTest::addColumn<int>("tenths");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *name, int tenths, const char *mm, const char *cm,
                        const char *inch) {
        QTest::newRow(name) << tenths
                            << QStringList{QString::fromLatin1(mm), QString::fromLatin1(cm),
                                           QString::fromLatin1(inch)};
    };
    // 145 mm are 5.71 inches, between 5 5/8 and 5 3/4.
    row("halves of centimetres", 1450, "145", "14,5 cm", "5 5/8\"");
    row("halves of millimetres", 1155, "115.5", "11,55 cm", "4 1/2\"");
    row("whole centimetres", 1200, "120", "12 cm", "4 5/8\"");
    row("just above whole inches", 1800, "180", "18 cm", "7\"");
    row("exactly ten inches", 2540, "254", "25,4 cm", "10\"");
}

void GeneratorTest::testSizeTexts()
{
    QFETCH(int, tenths);
    QFETCH(QStringList, texts);
    const Size size = SizeOf(tenths);
    QCOMPARE(QString::fromStdString(size.millimetres), texts[0]);
    QCOMPARE(QString::fromStdString(size.centimetres), texts[1]);
    QCOMPARE(QString::fromStdString(size.inches), texts[2]);
}

void GeneratorTest::testSchemaIsThatOfTheSample()
{
    QFile sample(QString::fromStdString(Sqlite2::Samples::File("catalog.db").string()));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    const auto statements = [](const QByteArray &bytes) {
        QSet<QByteArray> texts;
        for (const QList<QByteArray> &entry : StructureChecker(bytes).Schema())
            texts.insert(entry[4]);
        return texts;
    };
    QCOMPARE(statements(scratch.Bytes()), statements(sample.readAll()));
}

void GeneratorTest::testSmallestCatalogue()
{
    QCOMPARE(StructureChecker(Generated({1, 1, 1, 0})).Run(), QStringList());
}

void GeneratorTest::testLargestCatalogue()
{
    const Scratch own;
    GenerateCatalogue(own.File(), {32767, 1, {}, {}});
    const QByteArray bytes = own.Bytes();
    QVERIFY2(bytes.size() > 22'000'000 && bytes.size() < 30'000'000,
             qPrintable(QString::number(bytes.size())));
    QCOMPARE(LoadedTable(own.File(), "products_global").rows.rbegin()->first, 32767);
    QCOMPARE(LoadedTable(own.File(), "categories").rows.size(), std::size_t{400});

    QHash<QString, int> sizes;
    for (const QString &category : Column({own.File(), "products2categories"}, "catID"))
        ++sizes[category];
    const int largest = *std::ranges::max_element(sizes);
    QVERIFY2(largest > 400 && largest < 700, qPrintable(QString::number(largest)));
}

void GeneratorTest::testRefusesNumbersOutOfRange()
{
    for (const int products : {0, -1, 32768})
        QVERIFY_THROWS_EXCEPTION(CatalogueError, Generated({products, 1, {}, {}}));
    QVERIFY_THROWS_EXCEPTION(CatalogueError, Generated({1, 1, 0, {}}));
    QVERIFY_THROWS_EXCEPTION(CatalogueError, Generated({1, 1, {}, -1}));
    for (const int count : {-1, 31})
        QVERIFY_THROWS_EXCEPTION(CatalogueError, Generated({30, 1, {}, {}, count}));
}

void GeneratorTest::testFileThatCannotBeWrittenIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(FileError,
                             GenerateCatalogue(scratch.File("no folder") / "x.db", {1, 1, {}, {}}));
}

void GeneratorTest::testCommandLine()
{
    const Scratch own;
    const QString file = QString::fromStdString(own.File().string());
    QCOMPARE(RunGenerate({file, QStringLiteral("--products"), QStringLiteral("700"),
                          QStringLiteral("--seed"), QStringLiteral("7")}),
             0);
    QCOMPARE(own.Bytes(), scratch.Bytes());

    const QString line = QStringLiteral("%1 --products 700 --seed 7 --categories 20 --references 11"
                                        " --first-category 250");
    QCOMPARE(RunGenerate(line.arg(file).split(QLatin1Char(' '))), 0);
    QCOMPARE(own.Bytes(), Generated({ProductCount, 7, 20, 11, 250}));
}

void GeneratorTest::testWrongCommandLines_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line :
         {"", "a.db", "--products 5", "a.db --products", "a.db --products x",
          "a.db --products 5 --seed", "a.db --products 5 --seed -1", "a.db b.db --products 5",
          "a.db --products 5 --sets 3", "a.db --products 5 --categories"})
        QTest::newRow(*line ? line : "nothing") << QString::fromLatin1(line);
}

void GeneratorTest::testWrongCommandLines()
{
    QFETCH(QString, line);
    QVERIFY_THROWS_EXCEPTION(UsageError,
                             RunGenerate(line.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
}

QTEST_GUILESS_MAIN(GeneratorTest)
#include "GeneratorTest.moc"
