#include "base/Errors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;
using namespace Tesk::CartFiles;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

/// What a saved cart looks like, byte for byte, and what a file becomes in the cart.
class TestShoppingCartFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testSavedArticleAndSet();
    void testSavedCharactersOfTheCodePage();
    void testSavedEmptyCartIsOneLineEnd();
    void testSavedCartReplacesTheOldFile();
    void testCharacterOutsideTheCodePageIsSavedAsQuestionMark();

    void testLoadedArticleAndSet();
    void testLoadedArticleReportsASet();
    void testLoadingReplacesTheItems();
    void testLoadedEmptyCart_data();
    void testLoadedEmptyCart();
    void testLastRecordWithoutItsEmptyLineIsLeftOut();
    void testEmptyLinesBetweenRecordsAreIgnored();
    void testLinesMayEndInLineFeedsOnly();
    void testFieldsBehindTheFifthAreIgnored();
    void testFieldsAreTakenAsTheyStand();
    void testMarkupInATitleIsText();
    void testSemicolonInACategoryCutsIt();
    void testAmountsOf16Bits_data();
    void testAmountsOf16Bits();
    void testHundredThousandLines();

private:
    QByteArray Saved() const;
    QStringList Loaded(const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> folder;
    QString path;
    clsShoppingCart cart;
};

void TestShoppingCartFile::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(Text("Bestellung März.csv"));
    cart.Clear();
}

QByteArray TestShoppingCartFile::Saved() const
{
    ShoppingCartFile::Save(cart, path);
    return BytesOf(path);
}

QStringList TestShoppingCartFile::Loaded(const QByteArray &bytes)
{
    WriteBytes(path, bytes);
    ShoppingCartFile::Load(path, cart);
    return LinesOf(cart);
}

void TestShoppingCartFile::testSavedArticleAndSet()
{
    cart.AddItem(MakeItem(Text("127"), Text("21-100-14"), Text("Pean clamp"), 3, Text("OR 2")));
    const auto set = MakeItem(Text("305"), Text("90-200-00"), Text("Basic set"), 1);
    ShoppingCartItemList members(1);
    members.Append(MakeItem(Text("88"), Text("21-100-14"), Text("Pean clamp"), 4));
    members.Append(MakeItem(Text("91"), Text("30-010-16"), Text("Scissors"), -2));
    set->SetItems = members;
    cart.AddItem(set);
    QCOMPARE(Saved(), QByteArray("127;21-100-14;Pean clamp;3;OR 2\r\n"
                                 "\r\n"
                                 "305;90-200-00;Basic set;1;\r\n"
                                 "88;21-100-14;Pean clamp;4;\r\n"
                                 "91;30-010-16;Scissors;-2;\r\n"
                                 "\r\n"
                                 "\r\n"));
}

void TestShoppingCartFile::testSavedCharactersOfTheCodePage()
{
    cart.AddItem(
        MakeItem(Text("1"), Text("AB 1"), Text("Schere, groß, 14 ½\""), 1, Text("Œuvre – 5 €")));
    QCOMPARE(Saved(), QByteArray("1;AB 1;Schere, gro\xDF, 14 \xBD\";1;\x8Cuvre \x96 5 \x80\r\n"
                                 "\r\n"
                                 "\r\n"));
}

void TestShoppingCartFile::testSavedEmptyCartIsOneLineEnd()
{
    QCOMPARE(Saved(), QByteArray("\r\n"));
}

void TestShoppingCartFile::testSavedCartReplacesTheOldFile()
{
    WriteBytes(path, QByteArray(5000, 'x'));
    QCOMPARE(Saved(), QByteArray("\r\n"));
}

void TestShoppingCartFile::testCharacterOutsideTheCodePageIsSavedAsQuestionMark()
{
    cart.AddItem(MakeItem(Text("1"), Text("AB 1"), Text("Ножницы 😀"), 1));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(Text("saved as '\\?'")));
    QCOMPARE(Saved(), QByteArray("1;AB 1;??????? ?;1;\r\n\r\n\r\n"));
}

void TestShoppingCartFile::testLoadedArticleAndSet()
{
    QCOMPARE(
        Loaded("127;21-100-14;Pean clamp;3;OR 2\r\n"
               "\r\n"
               "305;90-200-00;Gro\xDF\x65s Set;1;\r\n"
               "88;21-100-14;Pean clamp;4;\r\n"
               "91;30-010-16;Scissors;-2;left\r\n"
               "\r\n"
               "\r\n"),
        QStringList({Text("127|21-100-14|Pean clamp|3|OR 2"), Text("305|90-200-00|Großes Set|1|"),
                     Text(">88|21-100-14|Pean clamp|4|"), Text(">91|30-010-16|Scissors|-2|left")}));
    QCOMPARE(cart.Entries().At(1)->SetItems->LowerBound(), 0);
}

void TestShoppingCartFile::testLoadedArticleReportsASet()
{
    Loaded("127;AB 1;Clamp;3;\r\n\r\n");
    QVERIFY(cart.Entries().At(0)->IsSet());
    QCOMPARE(cart.Entries().At(0)->SetItems->UpperBound(), -1);
}

void TestShoppingCartFile::testLoadingReplacesTheItems()
{
    cart.AddItem(MakeItem(Text("9"), Text("ZZ 9"), Text("Old"), 1));
    QCOMPARE(Loaded("1;AB 1;Clamp;3;\r\n\r\n"), QStringList(Text("1|AB 1|Clamp|3|")));
}

void TestShoppingCartFile::testLoadedEmptyCart_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("as saved") << QByteArray("\r\n");
    QTest::newRow("several empty lines") << QByteArray("\r\n\r\n\n\r\n");
    QTest::newRow("nothing") << QByteArray();
}

void TestShoppingCartFile::testLoadedEmptyCart()
{
    QFETCH(const QByteArray, bytes);
    cart.AddItem(MakeItem(Text("9"), Text("ZZ 9"), Text("Old"), 1));
    QCOMPARE(Loaded(bytes), QStringList());
    QCOMPARE(cart.Count(), qint16{0});
}

void TestShoppingCartFile::testLastRecordWithoutItsEmptyLineIsLeftOut()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(Text("last item .* left out")));
    QCOMPARE(Loaded("1;AB 1;Clamp;3;\r\n"
                    "\r\n"
                    "2;AB 2;Set;1;\r\n"
                    "1;AB 1;Clamp;2;\r\n"),
             QStringList(Text("1|AB 1|Clamp|3|")));
}

void TestShoppingCartFile::testEmptyLinesBetweenRecordsAreIgnored()
{
    QCOMPARE(Loaded("\r\n\r\n1;AB 1;Clamp;3;\r\n\r\n\r\n\r\n2;AB 2;Case;1;\r\n\r\n"),
             QStringList({Text("1|AB 1|Clamp|3|"), Text("2|AB 2|Case|1|")}));
}

void TestShoppingCartFile::testLinesMayEndInLineFeedsOnly()
{
    QCOMPARE(
        Loaded("2;AB 2;Set;1;left\n1;AB 1;Clamp;3;\n\n3;AB 3;Case;1;\n\n\n"),
        QStringList({Text("2|AB 2|Set|1|left"), Text(">1|AB 1|Clamp|3|"), Text("3|AB 3|Case|1|")}));
}

void TestShoppingCartFile::testFieldsBehindTheFifthAreIgnored()
{
    QCOMPARE(Loaded("1;AB 1;Clamp;3;left;right;9\r\n\r\n"),
             QStringList(Text("1|AB 1|Clamp|3|left")));
}

void TestShoppingCartFile::testFieldsAreTakenAsTheyStand()
{
    QCOMPARE(Loaded("; AB 1 ;\"Clamp\";3; \r\n\r\n"), QStringList(Text("| AB 1 |\"Clamp\"|3| ")));
}

void TestShoppingCartFile::testMarkupInATitleIsText()
{
    const QByteArray bytes("1;AB 1;<b onclick=\"x()\">Clamp</b> & case;3;\r\n\r\n\r\n");
    QCOMPARE(Loaded(bytes), QStringList(Text("1|AB 1|<b onclick=\"x()\">Clamp</b> & case|3|")));
    QCOMPARE(Saved(), bytes);
}

void TestShoppingCartFile::testSemicolonInACategoryCutsIt()
{
    cart.AddItem(MakeItem(Text("1"), Text("AB 1"), Text("Clamp"), 3, Text("OR;2")));
    const QByteArray bytes = Saved();
    QCOMPARE(bytes, QByteArray("1;AB 1;Clamp;3;OR;2\r\n\r\n\r\n"));
    QCOMPARE(Loaded(bytes), QStringList(Text("1|AB 1|Clamp|3|OR")));
}

void TestShoppingCartFile::testAmountsOf16Bits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("amount");
    QTest::newRow("smallest") << QByteArray("-32768") << -32768;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("largest") << QByteArray("32767") << 32767;
}

void TestShoppingCartFile::testAmountsOf16Bits()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, amount);
    Loaded("1;AB 1;Clamp;" + text + ";\r\n\r\n");
    QCOMPARE(int(cart.Entries().At(0)->Amount), amount);
}

void TestShoppingCartFile::testHundredThousandLines()
{
    constexpr int sets = 25000;
    QByteArray bytes;
    for (int i = 0; i < sets; ++i)
        bytes +=
            QByteArray::number(i) + ";AB 1;Set;1;\r\n1;AB 2;Clamp;2;\r\n2;AB 3;Case;3;\r\n\r\n";
    Loaded(bytes);
    QCOMPARE(int(cart.Count()), sets);
    QCOMPARE(cart.Entries().At(sets - 1)->Id, Text("24999"));
    QCOMPARE(cart.Entries().At(sets - 1)->SetItems->UpperBound(), 1);
    QCOMPARE(Saved(), bytes + "\r\n");
}

QTEST_APPLESS_MAIN(TestShoppingCartFile)
#include "TestShoppingCartFile.moc"
