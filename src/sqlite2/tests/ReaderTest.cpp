#include "Samples.h"

#include "sqlite2/Error.h"
#include "sqlite2/Reader.h"

#include <QRegularExpression>
#include <QTest>

using namespace Sqlite2;
using namespace Sqlite2::Samples;

namespace {

constexpr auto Shapes = "shapes.db";

QStringList TableNames(const Reader &reader)
{
    QStringList names;
    for (const Table &table : reader.Tables())
        names.append(QString::fromStdString(table.name));
    return names;
}

QStringList ColumnNames(const Table &table)
{
    QStringList names;
    for (const Column &column : table.columns)
        names.append(QString::fromStdString(column.name));
    return names;
}

/// Catalogues without integer primary keys have row ids of their own.
std::int32_t RowIdOfProduct(const LoadedTable &products, const QString &id)
{
    const QList<std::int32_t> rowIds = products.RowIdsWhere(QStringLiteral("ID"), id);
    return rowIds.size() == 1 ? rowIds.first() : throw std::runtime_error("no single such product");
}

} // namespace

class ReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testTablesInTheOrderOfTheirCreation();
    void testColumnsTypesAndRowIdColumn();
    void testDeclaredIndexes();
    void testOddNamesAndPrimaryKeyAsConstraint();
    void testFindTableIgnoresAsciiCase();
    void testValuesOfEveryOffsetWidthAndOverflowLength();
    void testLongValuesByteForByte();
    void testDeepTreeWithDeletedRows();
    void testExtremeRowIds();
    void testEmptyTable();
    void testTextsComeBackAsTheyWereStored();
    void testCategories_data();
    void testCategories();
    void testProducts_data();
    void testProducts();
    void testRowIdsAscend();
    void testRecognisesVersion2Files();
    void testMissingFileIsAnErrorThatNamesIt();
    void testFolderIsAnError();
    void testForeignFileIsAnError();
    void testHandlersErrorsPassUnchanged();
    void testReadsTheSameTableTwice();
};

void ReaderTest::testTablesInTheOrderOfTheirCreation()
{
    const QStringList expected{QStringLiteral("widths"),   QStringLiteral("deep"),
                               QStringLiteral("edges"),    QStringLiteral("empty_one"),
                               QStringLiteral("odd name"), QStringLiteral("bytes8")};
    QCOMPARE(TableNames(Reader(File(Shapes))), expected);
}

void ReaderTest::testColumnsTypesAndRowIdColumn()
{
    const Reader reader(File("catalog.db"));
    const Table *const products = reader.FindTable("products_global");
    QVERIFY(products);
    QCOMPARE(products->columns.size(), std::size_t{16});
    QCOMPARE(products->columns[0].name, std::string("ID"));
    QCOMPARE(products->columns[1].declaredType, std::string("VARCHAR(50)"));
    QVERIFY(products->columns[1].Class() == TypeClass::Text);
    QVERIFY(products->columns[3].Class() == TypeClass::Numeric);
    QCOMPARE(products->rowIdColumn, 0);
    QCOMPARE(reader.FindTable("products_localized")->rowIdColumn, -1);
    QCOMPARE(Reader(File("catalog-untyped.db")).FindTable("categories")->rowIdColumn, -1);
    QCOMPARE(Reader(File("catalog-alltext.db")).FindTable("categories")->rowIdColumn, -1);
}

void ReaderTest::testDeclaredIndexes()
{
    const Reader reader(File("catalog.db"));
    const std::vector<Index> &indexes = reader.FindTable("products_localized")->indexes;
    QCOMPARE(indexes.size(), std::size_t{1});
    QCOMPARE(indexes[0].name, std::string("i1"));
    QVERIFY((indexes[0].columns == std::vector<std::string>{"ID", "lang"}));
    QVERIFY(!indexes[0].isUnique);
    QVERIFY(reader.FindTable("categories")->indexes.empty());
}

void ReaderTest::testOddNamesAndPrimaryKeyAsConstraint()
{
    const Reader reader(File(Shapes));
    const Table *const table = reader.FindTable("odd name");
    QVERIFY(table);
    QCOMPARE(ColumnNames(*table),
             QStringList({QStringLiteral("a b"), QStringLiteral("c"), QStringLiteral("d")}));
    QCOMPARE(table->columns[2].declaredType, std::string("VARCHAR(10)"));
    QCOMPARE(table->rowIdColumn, 1);

    QList<QStringList> rows;
    reader.ReadRows(*table, [&](std::int32_t, const Row &row) { rows.append(Texts(row)); });
    std::ranges::sort(rows, {}, [](const QStringList &row) { return row[2]; });
    const Answer answer = AnswerTo(Shapes, QStringLiteral("select * from \"odd name\" order by d"));
    QCOMPARE(rows, answer.rows);
}

void ReaderTest::testFindTableIgnoresAsciiCase()
{
    const Reader reader(File("catalog.db"));
    QCOMPARE(reader.FindTable("CATEGORIES"), reader.FindTable("categories"));
    QVERIFY(reader.FindTable("Categories"));
    QVERIFY(!reader.FindTable("sqlite_master"));
    QVERIFY(!reader.FindTable("categorie"));
}

void ReaderTest::testValuesOfEveryOffsetWidthAndOverflowLength()
{
    const Answer answer =
        AnswerTo(Shapes, QStringLiteral("select id, length(a) as n, b, c from widths order by id"));
    QList<QStringList> rows;
    for (const auto &[rowId, row] : RowsOf(File(Shapes), "widths"))
        rows.append(
            {Text(row[0]), QString::number(row[1].value().size()), Text(row[2]), Text(row[3])});
    QCOMPARE(rows.size(), 44);
    QCOMPARE(rows, answer.rows);
}

void ReaderTest::testLongValuesByteForByte()
{
    const auto rows = RowsOf(File(Shapes), "widths");
    const Answer answer = AnswerTo(
        Shapes,
        QStringLiteral("select id, a from widths where id in (13, 14, 15, 16, 17, 18, 19, 34, "
                       "42) order by id"));
    QCOMPARE(answer.rows.size(), 9);
    for (const QStringList &expected : answer.rows)
        QCOMPARE(Text(rows.at(expected[0].toInt())[1]), expected[1]);
}

void ReaderTest::testDeepTreeWithDeletedRows()
{
    const LoadedTable deep(File(Shapes), "deep");
    const auto count = AnswerTo(Shapes, QStringLiteral("select count(*) as res from deep"));
    QCOMPARE(QString::number(deep.rows.size()), count.rows[0][0]);

    const auto threes =
        AnswerTo(Shapes, QStringLiteral("select count(*) as res from deep where n=3"));
    QCOMPARE(QString::number(deep.RowIdsWhere(QStringLiteral("n"), QStringLiteral("3")).size()),
             threes.rows[0][0]);

    const auto first = AnswerTo(Shapes, QStringLiteral("select id from deep order by id limit 20"));
    QList<QStringList> firstIds;
    for (const auto &[rowId, row] : deep.rows) {
        if (firstIds.size() < 20)
            firstIds.append({Text(row[0])});
    }
    QCOMPARE(firstIds, first.rows);

    const auto fours =
        AnswerTo(Shapes, QStringLiteral("select id, t from deep where n=4 and id<400 order by id"));
    QList<QStringList> fourRows;
    for (const std::int32_t rowId : deep.RowIdsWhere(QStringLiteral("n"), QStringLiteral("4"))) {
        if (rowId < 400)
            fourRows.append({QString::number(rowId), deep.Cell(rowId, QStringLiteral("t"))});
    }
    QCOMPARE(fourRows, fours.rows);
}

void ReaderTest::testExtremeRowIds()
{
    QList<QStringList> rows;
    for (const auto &[rowId, row] : RowsOf(File(Shapes), "edges")) {
        QCOMPARE(Text(row[0]), QString::number(rowId));
        rows.append(Texts(row));
    }
    QCOMPARE(rows, AnswerTo(Shapes, QStringLiteral("select id, v from edges order by id")).rows);
}

void ReaderTest::testEmptyTable()
{
    QVERIFY(AnswerTo(Shapes, QStringLiteral("select * from empty_one")).rows.isEmpty());
    QVERIFY(RowsOf(File(Shapes), "empty_one").empty());
}

void ReaderTest::testTextsComeBackAsTheyWereStored()
{
    const QString sql = QStringLiteral("select n, t, u, v, f from a order by k");
    QList<QStringList> rows;
    for (const auto &[rowId, row] : RowsOf(File("typing.db"), "a"))
        rows.append(Texts(row).mid(1));
    QCOMPARE(rows, AnswerTo("typing.db", sql).rows);
}

void ReaderTest::testCategories_data()
{
    QTest::addColumn<QString>("database");
    for (const char *name :
         {"catalog.db", "catalog-untyped.db", "catalog-alltext.db", "catalog-bigendian.db"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void ReaderTest::testCategories()
{
    QFETCH(QString, database);
    const std::string name = database.toStdString();
    const LoadedTable categories(File(name), "categories");
    int answersSeen = 0;
    for (const Answer &answer : Answers(name)) {
        if (!answer.sql.contains(QLatin1String("FROM categories")))
            continue;
        ++answersSeen;
        QCOMPARE(categories.rows.size(), static_cast<std::size_t>(answer.rows.size()));
        for (const QStringList &expected : answer.rows) {
            const std::int32_t rowId = RowIdOfProduct(categories, expected[0]);
            for (int i = 0; i < answer.columns.size(); ++i)
                QCOMPARE(categories.Cell(rowId, answer.columns[i]), expected[i]);
        }
    }
    QCOMPARE(answersSeen, 2);
}

void ReaderTest::testProducts_data()
{
    testCategories_data();
}

void ReaderTest::testProducts()
{
    QFETCH(QString, database);
    const std::string name = database.toStdString();
    const LoadedTable products(File(name), "products_global");
    const LoadedTable localized(File(name), "products_localized");
    const QRegularExpression language(QStringLiteral("l\\.lang='(..)'"));

    qsizetype cellsSeen = 0;
    for (const Answer &answer : Answers(name)) {
        if (!answer.sql.startsWith(QLatin1String("SELECT p.*")) || answer.rows.isEmpty())
            continue;
        const QString code = language.match(answer.sql).captured(1);
        for (const QStringList &expected : answer.rows) {
            const QString id = expected[answer.columns.indexOf(QLatin1String("p.ID"))];
            const std::int32_t product = RowIdOfProduct(products, id);
            std::int32_t texts = 0;
            for (const std::int32_t rowId : localized.RowIdsWhere(QStringLiteral("ID"), id)) {
                if (localized.Cell(rowId, QStringLiteral("lang")) == code)
                    texts = rowId;
            }
            QVERIFY(texts != 0);
            for (int i = 0; i < answer.columns.size(); ++i) {
                const QString column = answer.columns[i].mid(2);
                if (answer.columns[i].startsWith(QLatin1String("p."))) {
                    QCOMPARE(products.Cell(product, column), expected[i]);
                    QCOMPARE(products.Cell(product, column).isNull(), expected[i].isNull());
                    ++cellsSeen;
                } else if (answer.columns[i].startsWith(QLatin1String("l."))) {
                    QCOMPARE(localized.Cell(texts, column), expected[i]);
                    ++cellsSeen;
                }
            }
        }
    }
    QVERIFY(cellsSeen > 500);
}

void ReaderTest::testRowIdsAscend()
{
    const Reader reader(File(Shapes));
    for (const Table &table : reader.Tables()) {
        std::vector<std::int32_t> rowIds;
        reader.ReadRows(table, [&](std::int32_t rowId, const Row &) { rowIds.push_back(rowId); });
        QVERIFY(std::ranges::is_sorted(rowIds));
    }
}

void ReaderTest::testRecognisesVersion2Files()
{
    QVERIFY(Reader::IsVersion2File(File("catalog.db")));
    QVERIFY(Reader::IsVersion2File(File("catalog-bigendian.db")));
    QVERIFY(!Reader::IsVersion2File(File("catalog.jsonl")));
    QVERIFY(!Reader::IsVersion2File(File("none-of-this-name.db")));
    QVERIFY(!Reader::IsVersion2File(File(".")));
}

void ReaderTest::testMissingFileIsAnErrorThatNamesIt()
{
    try {
        const Reader reader(File("none-of-this-name.db"));
        QFAIL("a missing file was opened");
    } catch (const Error &error) {
        QVERIFY(
            QString::fromLocal8Bit(error.what()).contains(QLatin1String("none-of-this-name.db")));
    }
}

void ReaderTest::testFolderIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(Error, Reader(File(".")));
}

void ReaderTest::testForeignFileIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(Error, Reader(File("catalog.jsonl")));
}

void ReaderTest::testHandlersErrorsPassUnchanged()
{
    const Reader reader(File("typing.db"));
    try {
        reader.ReadRows(reader.Tables().front(),
                        [](std::int32_t, const Row &) { throw Error("the handler's own"); });
        QFAIL("the handler's error was lost");
    } catch (const Error &error) {
        QCOMPARE(QByteArray(error.what()), QByteArray("the handler's own"));
    }
}

void ReaderTest::testReadsTheSameTableTwice()
{
    const Reader reader(File("catalog.db"));
    for (int round = 0; round < 2; ++round) {
        int count = 0;
        reader.ReadRows(*reader.FindTable("products_global"),
                        [&](std::int32_t, const Row &) { ++count; });
        QCOMPARE(count, 150);
    }
}

QTEST_GUILESS_MAIN(ReaderTest)
#include "ReaderTest.moc"
