#include "base/Errors.h"
#include "cart/dialogs/ManualAdd.h"
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

/// A clamp (1, competitor's SA010), a case (2, SA011), a set of three clamps (3, SA012), a set
/// whose member has an impossible amount (4), and ids that are none: 0, -5 and 40000 (SA040).
void WriteCatalogue(const QString &fileName)
{
    Sqlite2::Writer writer;
    writer.CreateTable("CREATE TABLE products_global (ID INTEGER, artNr VARCHAR, isSet VARCHAR)");
    writer.CreateTable("CREATE TABLE products_localized (ID INTEGER, lang VARCHAR, name VARCHAR, "
                       "form VARCHAR)");
    const auto addProduct = [&writer](const char *id, const char *artNr, const char *isSet,
                                      const char *name) {
        writer.InsertRow("products_global", {id, artNr, isSet});
        writer.InsertRow("products_localized", {id, "en", name, ""});
    };
    addProduct("1", "AB 1", "False", "Clamp");
    addProduct("2", "AB 2", "False", "Case");
    addProduct("3", "SET 3", "True", "Set");
    addProduct("4", "SET 4", "True", "Broken set");
    addProduct("0", "NO 0", "False", "Zero");
    addProduct("-5", "NO 5", "False", "Negative");
    addProduct("40000", "NO 40000", "False", "Too large");
    writer.CreateTable("CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, "
                       "iAmount INTEGER, iOrder INTEGER)");
    writer.InsertRow("products2sets", {"3", "1", "3", "1"});
    writer.InsertRow("products2sets", {"4", "1", "many", "1"});
    writer.CreateTable("CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR)");
    writer.InsertRow("reference_numbers", {"1", "SA010"});
    writer.InsertRow("reference_numbers", {"2", "SA011"});
    writer.InsertRow("reference_numbers", {"3", "SA012"});
    writer.InsertRow("reference_numbers", {"40000", "SA040"});
    writer.Finish(QFile::encodeName(fileName).toStdString());
}

CartRowEntry Row(const char *artNr, const char *reference, qint16 amount, const char *category = "")
{
    return {QString::fromUtf8(artNr), QString::fromUtf8(reference), amount,
            QString::fromUtf8(category)};
}

} // namespace

/// What the rows of the add dialog become in the cart.
class TestManualAdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testRowsAreAddedInTheirOrder();
    void testOwnNumberGoesBeforeTheReference();
    void testRowsThatAddNothing_data();
    void testRowsThatAddNothing();
    void testSameArticleTwiceGivesTwoLines();
    void testSetComesWithItsMembers();
    void testRowsAreAddedToWhatTheCartHolds();
    void testFailedRowDoesNotCostTheOthers_data();
    void testFailedRowDoesNotCostTheOthers();
    void testFullCartKeepsItsLines();

private:
    QStringList Added(std::initializer_list<CartRowEntry> rows);
    QStringList Lines() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<Controller> controller;
};

void TestManualAdd::init()
{
    folder = std::make_unique<QTemporaryDir>();
    const auto write = [this](const QString &name, const QByteArray &bytes) {
        QFile file(folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    };
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("content")));
    for (const QString &code : LanguageSupport::GetLanguageCodes())
        write(QStringLiteral("content/loc_%1.txt").arg(code), "key=text\r\n");
    write(QStringLiteral("resources.chm"), "ITSF");
    WriteCatalogue(folder->filePath(QStringLiteral("catalog.db")));
    registry = std::make_unique<Registry>(folder->filePath(QStringLiteral("settings.json")));
    controller = std::make_unique<Controller>(folder->path(), *registry,
                                              folder->filePath(QStringLiteral("cache")),
                                              QLocale(QLocale::English, QLocale::UnitedKingdom));
    controller->InitApplication();
}

QStringList TestManualAdd::Added(std::initializer_list<CartRowEntry> rows)
{
    frmShoppingCartAdd::Entries entries{};
    std::copy(rows.begin(), rows.end(), entries.begin());
    AddRowsToCart(entries, *controller);
    return Lines();
}

/// The cart's items as "id|article number|amount|category".
QStringList TestManualAdd::Lines() const
{
    QStringList lines;
    for (const auto &item : controller->GetShoppingCart().Entries())
        lines.append(QStringLiteral("%1|%2|%3|%4")
                         .arg(item->Id, item->ArtNr)
                         .arg(item->Amount)
                         .arg(item->AltCategory));
    return lines;
}

void TestManualAdd::testRowsAreAddedInTheirOrder()
{
    QCOMPARE(Added({Row("AB 2", "", 3, "OR: 2"), Row("", "SA010", 999), Row("", "", 1),
                    Row("AB 1", "", 1, "left")}),
             QStringList({QStringLiteral("2|AB 2|3|OR: 2"), QStringLiteral("1|AB 1|999|"),
                          QStringLiteral("1|AB 1|1|left")}));
}

void TestManualAdd::testOwnNumberGoesBeforeTheReference()
{
    QCOMPARE(Added({Row("AB 1", "SA011", 1)}), QStringList(QStringLiteral("1|AB 1|1|")));
    controller->GetShoppingCart().Clear();
    // An own number that is unknown does not fall back on the reference.
    QCOMPARE(Added({Row("QQ 1", "SA011", 1)}), QStringList());
}

void TestManualAdd::testRowsThatAddNothing_data()
{
    QTest::addColumn<QString>("artNr");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<int>("amount");
    QTest::newRow("neither number") << QString() << QString() << 1;
    QTest::newRow("unknown number") << QStringLiteral("QQ 1") << QString() << 1;
    QTest::newRow("unknown reference") << QString() << QStringLiteral("SA0") << 1;
    QTest::newRow("no amount") << QStringLiteral("AB 1") << QString() << 0;
    QTest::newRow("negative amount") << QStringLiteral("AB 1") << QString() << -1;
    QTest::newRow("id 0") << QStringLiteral("NO 0") << QString() << 1;
    QTest::newRow("negative id") << QStringLiteral("NO 5") << QString() << 1;
}

void TestManualAdd::testRowsThatAddNothing()
{
    QFETCH(const QString, artNr);
    QFETCH(const QString, reference);
    QFETCH(const int, amount);
    QCOMPARE(Added({CartRowEntry{artNr, reference, static_cast<qint16>(amount), QString()},
                    Row("AB 2", "", 1)}),
             QStringList(QStringLiteral("2|AB 2|1|")));
}

void TestManualAdd::testSameArticleTwiceGivesTwoLines()
{
    QCOMPARE(Added({Row("AB 1", "", 2), Row("AB 1", "", 3)}),
             QStringList({QStringLiteral("1|AB 1|2|"), QStringLiteral("1|AB 1|3|")}));
}

void TestManualAdd::testSetComesWithItsMembers()
{
    QCOMPARE(Added({Row("", "SA012", 2, "OR 2")}), QStringList(QStringLiteral("3|SET 3|2|OR 2")));
    const auto item = controller->GetShoppingCart().Entries().At(0);
    QVERIFY(item->SetItems);
    QCOMPARE(item->SetItems->At(1)->ArtNr, QStringLiteral("AB 1"));
    QCOMPARE(item->SetItems->At(1)->Amount, qint16{3});
}

void TestManualAdd::testRowsAreAddedToWhatTheCartHolds()
{
    Added({Row("AB 1", "", 1)});
    QCOMPARE(Added({Row("AB 2", "", 1)}),
             QStringList({QStringLiteral("1|AB 1|1|"), QStringLiteral("2|AB 2|1|")}));
}

void TestManualAdd::testFailedRowDoesNotCostTheOthers_data()
{
    QTest::addColumn<QString>("artNr");
    QTest::addColumn<QString>("reference");
    QTest::newRow("id beyond 16 bits, by number") << QStringLiteral("NO 40000") << QString();
    QTest::newRow("id beyond 16 bits, by reference") << QString() << QStringLiteral("SA040");
    QTest::newRow("a member's amount") << QStringLiteral("SET 4") << QString();
}

void TestManualAdd::testFailedRowDoesNotCostTheOthers()
{
    QFETCH(const QString, artNr);
    QFETCH(const QString, reference);
    QVERIFY_THROWS_EXCEPTION(
        ConversionError, Added({Row("AB 1", "", 1), CartRowEntry{artNr, reference, 1, QString()},
                                Row("AB 2", "", 1)}));
    QCOMPARE(Lines(), QStringList({QStringLiteral("1|AB 1|1|"), QStringLiteral("2|AB 2|1|")}));
}

void TestManualAdd::testFullCartKeepsItsLines()
{
    clsShoppingCart &cart = controller->GetShoppingCart();
    for (int i = 0; i < 32766; ++i)
        cart.AddItem(std::make_shared<clsShoppingCartItem>());
    QVERIFY_THROWS_EXCEPTION(OverflowError, Added({Row("AB 1", "", 1), Row("AB 2", "", 1)}));
    QCOMPARE(cart.Count(), qint16{32767});
    QCOMPARE(cart.Entries().At(32766)->ArtNr, QStringLiteral("AB 1"));
}

QTEST_MAIN(TestManualAdd)
#include "TestManualAdd.moc"
