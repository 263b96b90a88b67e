#include "ui/main/CartRequestText.h"

#include <QTest>

using namespace Tesk;

class TestCartRequestText final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testIdStandsBehindTheLastColon_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("id");
        QTest::newRow("plain") << QStringLiteral("shoppingCart:17") << QStringLiteral("17");
        QTest::newRow("with the time in front")
            << QStringLiteral("shoppingCart 12:30:59:17") << QStringLiteral("17");
        QTest::newRow("mark anywhere") << QStringLiteral("x:shoppingCart:y") << QStringLiteral("y");
        QTest::newRow("no id") << QStringLiteral("shoppingCart:") << QString();
        QTest::newRow("no colon") << QStringLiteral("shoppingCart")
                                  << QStringLiteral("shoppingCart");
    }

    void testIdStandsBehindTheLastColon()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, id);
        const std::optional<QString> read = CartRequestText::ProductId(text);
        QVERIFY(read.has_value());
        QCOMPARE(*read, id);
    }

    void testOtherTextsAskForNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("link") << QStringLiteral("file:///a/product_list.html?id=1");
        QTest::newRow("other case") << QStringLiteral("shoppingcart:1");
    }

    void testOtherTextsAskForNothing()
    {
        QFETCH(const QString, text);
        QVERIFY(!CartRequestText::ProductId(text));
    }
};

QTEST_APPLESS_MAIN(TestCartRequestText)
#include "test_cart_request_text.moc"
