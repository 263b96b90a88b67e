#include "cart/model/clsShoppingCart.h"
#include "cart/pane/CartHtml.h"
#include "pages/PageContext.h"

#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

/// Texts show their keys, those of the delete link with the place of the number.
class Context final : public PageContext
{
public:
    bool hasPriceList = false;

    QString GetText(const QString &key) const override
    {
        if (key == QLatin1String("mShoppingCartItemDelete"))
            return QStringLiteral("Remove {0}");
        if (key == QLatin1String("mShoppingCartItemDeleteConfirm"))
            return QStringLiteral("Remove {0}, really {0}?");
        return key;
    }
    QString GetContentBaseUrl() const override { return QStringLiteral("file:///C:/Shop"); }
    QString GetResourceBaseUrl() const override { return {}; }
    QString GetSizeColumn() const override { return {}; }
    bool HasPriceList() const override { return hasPriceList; }
    QString GetPrice(const QString &artNr) const override
    {
        return artNr == QLatin1String("AB 1") ? QStringLiteral("12,50&nbsp;EUR") : QString();
    }
    bool HasPdfDocument(const QString &) const override { return false; }
    QString GetPdfDocumentUrl(const QString &) const override { return {}; }
    QString GetInfoDocumentUrl(const QString &) const override { return {}; }
};

std::shared_ptr<clsShoppingCartItem> Item(const char *id, const char *artNr, const char *title,
                                          qint16 amount, const char *category = "")
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->Id = QString::fromUtf8(id);
    item->ArtNr = QString::fromUtf8(artNr);
    item->Title = QString::fromUtf8(title);
    item->Amount = amount;
    item->AltCategory = QString::fromUtf8(category);
    return item;
}

const QString TableStart =
    QStringLiteral(R"x(<table cellpadding="0" cellspacing="0" width="100%"><tr><td></td>)x"
                   R"x(<td valign="top" class="prodCaption">productListCaptionNr</td>)x"
                   R"x(<td valign="top" class="prodCaption">productListCaptionDescription</td>)x"
                   R"x(<td valign="top" class="prodCaption">ucShoppingCartManualCatId</td>)x"
                   R"x(<td valign="top" class="prodCaption">productListAmount</td></tr>)x");

const QString TableStartWithPrices =
    QStringLiteral(R"x(<table cellpadding="0" cellspacing="0" width="100%"><tr><td></td>)x"
                   R"x(<td valign="top" class="prodCaption">productListCaptionNr</td>)x"
                   R"x(<td valign="top" class="prodCaption">productListCaptionDescription</td>)x"
                   R"x(<td class="prodCaption">productListCaptionPrice</td><td>&nbsp;</td>)x"
                   R"x(<td valign="top" class="prodCaption">ucShoppingCartManualCatId</td>)x"
                   R"x(<td valign="top" class="prodCaption">productListAmount</td></tr>)x");

const QString ClampRowStart = QStringLiteral(
    R"x(<tr id="contListRow0" onmouseover="changeBackgroundColor('contListRow0', 'C3C3C3');")x"
    R"x( onmouseout="changeBackgroundColor('contListRow0', 'ffffff');" class="contListRow">)x"
    R"x(<td width="20" valign="top">&nbsp;<img src="img/navPointer.gif" border="0" alt="" vspace="2">&nbsp;</td>)x"
    R"x(<td valign="top" class="prodItem" onclick="window.location='file:///C:/Shop/content/product_details.html?id=127';">AB 1</td>)x"
    R"x(<td valign="top" class="prodItem" onclick="window.location='file:///C:/Shop/content/product_details.html?id=127';">Clamp</td>)x");

const QString ClampPrice = QStringLiteral(
    R"x(<td width="50" class="prodItem" valign="top">12,50&nbsp;EUR</td><td>&nbsp;</td>)x");

const QString ClampRowEnd = QStringLiteral(
    R"x(<td valign="top" class="prodItem"><input class="catField" type="text" id="cat_0" value="OR 2" onfocus="activateAlert(this)" onblur="setAmount(this)"></td>)x"
    R"x(<td valign="top" class="prodItem"><input class="amountField" type="text" id="fld_0" value="3" onfocus="activateAlert(this)" onblur="setAmount(this,'ucShoppingCartManualAmountError')"></td>)x"
    R"x(<td valign="top" class="prodItem"><a href="javascript:if(confirm('Remove AB 1, really AB 1?')){ delItem('0') }" title="Remove AB 1"><img src="img/btnDelete.gif" border="0" alt="Remove AB 1" /></a>&nbsp;</td></tr>)x");

const QString ClampOrderCells = QStringLiteral(R"x(<td valign="top" class="prodItem">OR 2</td>)x"
                                               R"x(<td valign="top" class="prodItem">3</td>)x");

const QString SetRowEnd = QStringLiteral(
    R"x(onblur="setAmount(this,'ucShoppingCartManualAmountError')"></td>)x"
    R"x(<td valign="top" class="prodItem"><a href="javascript:if(confirm('Remove SET 9, really SET 9?')){ delItem('1') }" title="Remove SET 9"><img src="img/btnDelete.gif" border="0" alt="Remove SET 9" /></a>&nbsp;</td></tr>)x");

const QString MemberOrderCells = QStringLiteral(
    R"x(<td width="50" class="prodItem" valign="top"></td><td>&nbsp;</td>)x"
    R"x(<td valign="top" class="prodItem">tray</td><td valign="top" class="prodItem">4</td>)x");

const QString MemberRowStart = QStringLiteral(
    R"x(<tr id="contListRow1_1" onmouseover="changeBackgroundColor('contListRow1_1', 'C3C3C3');")x"
    R"x( onmouseout="changeBackgroundColor('contListRow1_1', 'ffffff');" class="contListRow">)x"
    R"x(<td width="20" valign="top"></td>)x"
    R"x(<td valign="top" class="prodItem" onclick="window.location='file:///C:/Shop/content/product_details.html?id=88';">AB 2</td>)x"
    R"x(<td valign="top" class="prodItem" onclick="window.location='file:///C:/Shop/content/product_details.html?id=88';">Scissors</td>)x");

const QString MemberRowEnd = QStringLiteral(
    R"x(<td valign="top" class="prodItem"><input class="catField" type="text" id="cat_1_1" value="tray" onfocus="activateAlert(this)" onblur="setAmount(this)"></td>)x"
    R"x(<td valign="top" class="prodItem"><input class="amountField" type="text" id="fld_1_1" value="4" onfocus="activateAlert(this)" onblur="setAmount(this)"></td>)x"
    R"x(<td valign="top" class="prodItem"><a href="javascript:if(confirm('Remove SET 9, really SET 9?')){ delItem('1_1') }" title="Remove SET 9"><img src="img/btnDelete.gif" border="0" alt="Remove SET 9"/></a>&nbsp;</td></tr>)x");

} // namespace

/// The cart's lines as HTML, character for character.
class TestCartHtml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testEmptyCartSaysSo();
    void testLine();
    void testLineWithPrice();
    void testArticleWithoutPriceHasAnEmptyCell();
    void testMembersOfASet();
    void testLinesAreKeyedFromZero();
    void testEmptyMemberListAddsNoLine();
    void testOrderIsReadOnly();
    void testOrderWithPricesAndMembers();
    void testEmptyOrderIsEmpty();
    void testTextsStandAsTheyAre();
    void testQuotationMarksEndNoAttribute();
    void testCategoryIsNoMarkup_data();
    void testCategoryIsNoMarkup();

private:
    std::unique_ptr<Context> context;
    std::unique_ptr<CartHtml> html;
    std::unique_ptr<clsShoppingCart> cart;

    void AddClamp() { cart->AddItem(Item("127", "AB 1", "Clamp", 3, "OR 2")); }
    void AddSet()
    {
        const auto set = Item("305", "SET 9", "Basic set", 1);
        set->SetItems = ShoppingCartItemList(1);
        set->SetItems->Append(Item("88", "AB 2", "Scissors", 4, "tray"));
        cart->AddItem(set);
    }
};

void TestCartHtml::init()
{
    context = std::make_unique<Context>();
    html = std::make_unique<CartHtml>(*context);
    cart = std::make_unique<clsShoppingCart>();
}

void TestCartHtml::testEmptyCartSaysSo()
{
    QCOMPARE(html->CartList(*cart),
             QStringLiteral(R"(<div class="prodCaption">&nbsp;ucShoppingCartNoEntries</div>)"));
}

void TestCartHtml::testLine()
{
    AddClamp();
    QCOMPARE(html->CartList(*cart),
             TableStart + ClampRowStart + ClampRowEnd + QStringLiteral("</table>"));
}

void TestCartHtml::testLineWithPrice()
{
    context->hasPriceList = true;
    AddClamp();
    QCOMPARE(html->CartList(*cart), TableStartWithPrices + ClampRowStart + ClampPrice +
                                        ClampRowEnd + QStringLiteral("</table>"));
}

void TestCartHtml::testArticleWithoutPriceHasAnEmptyCell()
{
    context->hasPriceList = true;
    cart->AddItem(Item("1", "AB 7", "Hook", 1));
    const QString cells = QStringLiteral(
        R"x(>Hook</td><td width="50" class="prodItem" valign="top"></td><td>&nbsp;</td><td)x");
    QVERIFY(html->CartList(*cart).contains(cells));
}

void TestCartHtml::testMembersOfASet()
{
    AddClamp();
    AddSet();
    const QString list = html->CartList(*cart);
    QVERIFY2(list.endsWith(MemberRowStart + MemberRowEnd + QStringLiteral("</table>")),
             qUtf8Printable(list));
    // The set's own line stands before them and is an item's line.
    QVERIFY(list.contains(SetRowEnd + QStringLiteral("<tr id=\"contListRow1_1\"")));
}

void TestCartHtml::testLinesAreKeyedFromZero()
{
    for (int i = 0; i < 12; ++i)
        AddClamp();
    const QString list = html->CartList(*cart);
    QCOMPARE(list.count(QStringLiteral("<tr id=\"contListRow")), 12);
    QVERIFY(list.contains(QStringLiteral("id=\"fld_0\"")));
    QVERIFY(list.contains(QStringLiteral("delItem('11')")));
    QVERIFY(!list.contains(QStringLiteral("delItem('12')")));
}

// Every item of a loaded cart file has a member list.
void TestCartHtml::testEmptyMemberListAddsNoLine()
{
    const auto item = Item("127", "AB 1", "Clamp", 3, "OR 2");
    item->SetItems = ShoppingCartItemList();
    cart->AddItem(item);
    QCOMPARE(html->CartList(*cart),
             TableStart + ClampRowStart + ClampRowEnd + QStringLiteral("</table>"));
}

void TestCartHtml::testOrderIsReadOnly()
{
    AddClamp();
    QCOMPARE(html->OrderList(*cart),
             TableStart + ClampRowStart + ClampOrderCells + QStringLiteral("</tr></table>"));
}

void TestCartHtml::testOrderWithPricesAndMembers()
{
    context->hasPriceList = true;
    AddClamp();
    AddSet();
    const QString list = html->OrderList(*cart);
    QVERIFY(list.startsWith(TableStartWithPrices + ClampRowStart + ClampPrice + ClampOrderCells +
                            QStringLiteral("</tr><tr id=\"contListRow1\"")));
    QVERIFY2(list.endsWith(MemberRowStart + MemberOrderCells + QStringLiteral("</tr></table>")),
             qUtf8Printable(list));
}

void TestCartHtml::testEmptyOrderIsEmpty()
{
    QCOMPARE(html->OrderList(*cart), QString());
}

void TestCartHtml::testTextsStandAsTheyAre()
{
    cart->AddItem(Item("1' or %1", "A&B {0}", "<b>%2</b> \"it's\"", -7, "%3 <i> R&D & < ü"));
    const QString list = html->CartList(*cart);
    const QStringList pieces{
        QStringLiteral("product_details.html?id=1' or %1';\">A&B {0}</td>"),
        QStringLiteral("\"><b>%2</b> \"it's\"</td>"),
        QStringLiteral("value=\"%3 <i> R&D & < ü\" onfocus"),
        QStringLiteral("id=\"fld_0\" value=\"-7\""),
        QStringLiteral("title=\"Remove A&B {0}\""),
    };
    for (const QString &piece : pieces)
        QVERIFY2(list.contains(piece), qUtf8Printable(piece));
    QVERIFY(html->OrderList(*cart).contains(QStringLiteral(">%3 &lt;i> R&D & < ü</td>")));
}

void TestCartHtml::testQuotationMarksEndNoAttribute()
{
    cart->AddItem(Item("1\"2", "A\"B", "3\" hook", 1, "4\""));
    const QString list = html->CartList(*cart);
    const QStringList pieces{
        QStringLiteral("product_details.html?id=1&quot;2';\">A\"B</td>"),
        QStringLiteral("\">3\" hook</td>"),
        QStringLiteral("value=\"4&quot;\" onfocus"),
        QStringLiteral("confirm('Remove A&quot;B, really A&quot;B?')"),
        QStringLiteral("title=\"Remove A&quot;B\""),
        QStringLiteral("alt=\"Remove A&quot;B\""),
    };
    for (const QString &piece : pieces)
        QVERIFY2(list.contains(piece), qUtf8Printable(piece));
}

void TestCartHtml::testCategoryIsNoMarkup_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("inField");
    QTest::addColumn<QString>("inCell");
    const auto row = [](const char *category, const char *inField, const char *inCell) {
        QTest::newRow(category) << QString::fromUtf8(category) << QString::fromUtf8(inField)
                                << QString::fromUtf8(inCell);
    };
    row("<OR>", "<OR>", "&lt;OR>");
    row("</td>", "</td>", "&lt;/td>");
    row("<!-- -->", "<!-- -->", "&lt;!-- -->");
    row("1 < 2 <3 <", "1 < 2 <3 <", "1 < 2 <3 <");
    row("&lt;", "&amp;lt;", "&amp;lt;");
    row("&#65", "&amp;#65", "&amp;#65");
    row("A&B & C&", "A&B & C&", "A&B & C&");
}

void TestCartHtml::testCategoryIsNoMarkup()
{
    QFETCH(const QString, category);
    QFETCH(const QString, inField);
    QFETCH(const QString, inCell);
    cart->AddItem(Item("1", "A", "B", 1, qUtf8Printable(category)));
    QVERIFY(html->CartList(*cart).contains(QStringLiteral("value=\"") + inField + u'"'));
    QVERIFY(html->OrderList(*cart).contains(u'>' + inCell + QStringLiteral("</td>")));
}

QTEST_APPLESS_MAIN(TestCartHtml)
#include "TestCartHtml.moc"
