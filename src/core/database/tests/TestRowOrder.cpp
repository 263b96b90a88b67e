#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>

using namespace Tesk;
using namespace Tesk::Database;

namespace {

struct Product
{
    int id;
    QByteArray artNr;
    int length;
};
struct LocalizedText
{
    int id;
    QByteArray code;
    QByteArray name;
};
struct ReferenceNumber
{
    int id;
    QByteArray number;
};

constexpr int ProductCount = 120;

/// Products whose ids run against their row ids, with many equal article numbers.
QList<Product> Products()
{
    QList<Product> products;
    for (int row = 0; row < ProductCount; ++row)
        products.append(
            {ProductCount - row, "AB " + QByteArray::number(row * 7 % 5), 100 + row * 11 % 4});
    return products;
}

/// Texts in two languages, scattered, some products twice.
QList<LocalizedText> Texts()
{
    QList<LocalizedText> texts;
    for (int row = 0; row < 3 * ProductCount; ++row) {
        const int id = row * 37 % ProductCount + 1;
        texts.append({id, row % 3 == 1 ? "en" : "ge", "Schere " + QByteArray::number(row)});
    }
    return texts;
}

QList<ReferenceNumber> References()
{
    QList<ReferenceNumber> references;
    for (int row = 0; row < 2 * ProductCount; ++row)
        references.append({row * 53 % ProductCount + 1, "BH" + QByteArray::number(row * 29 % 97)});
    return references;
}

} // namespace

/// The order of rows is that of nested loops in the order of the FROM clause, each by row id. The
/// expectations here are such loops.
class TestRowOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void testSearchWithEqualArticleNumbers();
    void testJoinWithoutOrder();
    void testSearchOfReferenceNumbers();
    void testOneTable();
    void testSeveralKeysKeepTheOrderOfTheTable();
    void testLimitTakesTheFirstRows();

private:
    QStringList RowsOf(const char *sql) const;

    QTemporaryDir folder;
    SQLiteWrapper database{QString()};
    const QList<Product> products = Products();
    const QList<LocalizedText> texts = Texts();
    const QList<ReferenceNumber> references = References();
};

void TestRowOrder::initTestCase()
{
    Version2Table global{
        "CREATE TABLE products_global (ID INTEGER, artNr VARCHAR(50), length DOUBLE)",
        "products_global",
        {}};
    for (const Product &product : products)
        global.rows.append(
            {QByteArray::number(product.id), product.artNr, QByteArray::number(product.length)});
    Version2Table localized{
        "CREATE TABLE products_localized (ID INTEGER, lang VARCHAR(2), name VARCHAR(255))",
        "products_localized",
        {}};
    for (const LocalizedText &text : texts)
        localized.rows.append({QByteArray::number(text.id), text.code, text.name});
    Version2Table numbers{
        "CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR(50))", "reference_numbers", {}};
    for (const ReferenceNumber &reference : references)
        numbers.rows.append({QByteArray::number(reference.id), reference.number});

    const QString file = folder.filePath(QStringLiteral("catalog.db"));
    WriteVersion2(file, {global, localized, numbers});
    QVERIFY(database.Open(file));
}

QStringList TestRowOrder::RowsOf(const char *sql) const
{
    QString error;
    const ResultTable table = database.GetTable(QString::fromLatin1(sql), &error);
    return error.isEmpty() ? Database::RowsOf(table) : QStringList(error);
}

void TestRowOrder::testSearchWithEqualArticleNumbers()
{
    QList<std::pair<QByteArray, QString>> found;
    for (const Product &p : products) {
        for (const LocalizedText &l : texts) {
            if (p.id == l.id && l.code == "ge" && l.name.contains('3'))
                found.append({p.artNr, QString::fromLatin1(p.artNr + '|' + l.name)});
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &left, const auto &right) { return left.first < right.first; });
    QStringList expected;
    for (const auto &row : found)
        expected.append(row.second);
    QVERIFY(expected.size() > 20);

    QCOMPARE(RowsOf("SELECT p.artNr, l.name FROM products_global p INNER JOIN products_localized l"
                    " ON (p.ID=l.ID AND l.lang='ge') WHERE (l.name LIKE '%3%') order by p.artNr"),
             expected);
}

void TestRowOrder::testJoinWithoutOrder()
{
    QStringList expected;
    for (const Product &p : products) {
        for (const LocalizedText &l : texts) {
            if (p.id == l.id && l.code == "en" && p.length == 101)
                expected.append(QStringLiteral("%1|").arg(p.id) + QString::fromLatin1(l.name));
        }
    }
    QVERIFY(expected.size() > 20);
    QCOMPARE(RowsOf("SELECT p.ID, l.name FROM products_global p INNER JOIN products_localized l"
                    " ON (p.ID=l.ID AND l.lang='en') WHERE p.length=101"),
             expected);
}

void TestRowOrder::testSearchOfReferenceNumbers()
{
    QStringList expected;
    for (const Product &p : products) {
        for (const ReferenceNumber &rn : references) {
            if (p.id == rn.id && rn.number.startsWith("BH1"))
                expected.append(QString::fromLatin1(p.artNr + '|' + rn.number));
        }
    }
    QVERIFY(expected.size() > 20);
    QCOMPARE(RowsOf("SELECT p.artNr, rn.sRefNo FROM products_global p"
                    " inner join reference_numbers rn on p.ID=rn.ID WHERE rn.sRefNo LIKE 'BH1%'"),
             expected);
}

void TestRowOrder::testOneTable()
{
    QStringList expected;
    for (const ReferenceNumber &rn : references)
        expected.append(QString::number(rn.id));
    QCOMPARE(RowsOf("SELECT p.ID FROM reference_numbers p WHERE p.sRefNo LIKE 'BH%'"), expected);
    QCOMPARE(RowsOf("SELECT ID FROM reference_numbers"), expected);
}

void TestRowOrder::testSeveralKeysKeepTheOrderOfTheTable()
{
    QStringList expected;
    for (const ReferenceNumber &rn : references) {
        if (rn.id == 3 || rn.id == 90 || rn.id == 17)
            expected.append(QString::number(rn.id));
    }
    QCOMPARE(RowsOf("SELECT ID FROM reference_numbers WHERE ID in ('90', '3', '17')"), expected);
    QCOMPARE(RowsOf("SELECT ID FROM reference_numbers WHERE ID=90 or ID=3 or ID=17"), expected);
}

void TestRowOrder::testLimitTakesTheFirstRows()
{
    QStringList expected;
    for (const Product &p : products) {
        if (p.length >= 102)
            expected.append(QString::number(p.id));
    }
    QCOMPARE(RowsOf("SELECT ID FROM products_global WHERE length>=102 LIMIT 5"), expected.first(5));
}

QTEST_APPLESS_MAIN(TestRowOrder)
#include "TestRowOrder.moc"
