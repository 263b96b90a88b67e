#include "core/ResultTable.h"
#include "sql/TableText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Tesk;

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class TestTableText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testColumnsAreAligned()
    {
        ResultTable table({Text("p.ID"), Text("l.name"), Text("x")});
        table.AddRow({Text("1"), Text("Schere Müller"), Text("a")});
        table.AddRow({Text("12345"), QString(), Text("")});
        table.AddRow({Text(""), Text(""), QString()});
        QCOMPARE(AlignedText(table), Text("p.ID   l.name         x\n"
                                          "-----  -------------  ----\n"
                                          "1      Schere Müller  a\n"
                                          "12345  NULL\n"
                                          "                      NULL\n"));
    }

    void testLineBreaksStayInTheirLine()
    {
        ResultTable table({Text("x"), Text("y")});
        table.AddRow({Text("a\nb\tc\r"), Text("z")});
        QCOMPARE(AlignedText(table), Text("x          y\n"
                                          "---------  -\n"
                                          "a\\nb\\tc\\r  z\n"));
    }

    void testEmptyTable()
    {
        QCOMPARE(AlignedText(ResultTable()), QString());
        QCOMPARE(JsonText(ResultTable()), Text("[]\n"));
    }

    void testJsonHasTheNamesFirstAndNullForNull()
    {
        ResultTable table({Text("p.ID"), Text("l.name")});
        table.AddRow({Text("1"), Text("Castaño \"9\"\n")});
        table.AddRow({Text(""), QString()});
        const QString text = JsonText(table);
        QCOMPARE(text, Text("[[\"p.ID\",\"l.name\"],\n"
                            "[\"1\",\"Castaño \\\"9\\\"\\n\"],\n"
                            "[\"\",null]]\n"));
        QCOMPARE(QJsonDocument::fromJson(text.toUtf8()).array().size(), 3);
    }
};

QTEST_APPLESS_MAIN(TestTableText)
#include "TestTableText.moc"
