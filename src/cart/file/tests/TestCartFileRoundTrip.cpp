#include "base/CodePage.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <random>

using namespace Tesk;
using namespace Tesk::CartFiles;

/// Carts of random contents survive being saved and loaded.
class TestCartFileRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testRandomCarts();

private:
    int Number(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(random);
    }
    QString RandomText();
    ShoppingCartItemList::Item RandomItem();

    std::mt19937 random{1952};
};

/// Any of the code page's characters but those that part lines and fields.
QString TestCartFileRoundTrip::RandomText()
{
    QByteArray bytes;
    const int length = Number(0, 30);
    while (bytes.size() < length) {
        const char byte = static_cast<char>(Number(0, 255));
        if (byte != '\r' && byte != '\n' && byte != ';')
            bytes += byte;
    }
    return CodePage::FromBytes(bytes);
}

ShoppingCartItemList::Item TestCartFileRoundTrip::RandomItem()
{
    return MakeItem(QString::number(Number(1, 32767)), RandomText(), RandomText(),
                    static_cast<qint16>(Number(-32768, 32767)), RandomText());
}

void TestCartFileRoundTrip::testRandomCarts()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first.csv"));
    const QString second = folder.filePath(QStringLiteral("second.csv"));
    for (int round = 0; round < 300; ++round) {
        clsShoppingCart cart;
        for (int count = Number(0, 12); count > 0; --count) {
            const auto item = RandomItem();
            if (Number(0, 1) == 1) {
                // Sets of the catalogue start at 1, those of a file at 0.
                item->SetItems = ShoppingCartItemList(Number(0, 1));
                for (int members = Number(0, 6); members > 0; --members)
                    item->SetItems->Append(RandomItem());
            }
            cart.AddItem(item);
        }
        ShoppingCartFile::Save(cart, first);

        clsShoppingCart loaded;
        ShoppingCartFile::Load(first, loaded);
        QCOMPARE(LinesOf(loaded), LinesOf(cart));
        ShoppingCartFile::Save(loaded, second);
        QCOMPARE(BytesOf(second), BytesOf(first));
    }
}

QTEST_APPLESS_MAIN(TestCartFileRoundTrip)
#include "TestCartFileRoundTrip.moc"
