#include "core/database/SqlTokens.h"

#include <QTest>

using namespace Tesk::Database;

namespace {

/// The tokens' texts with a "~" between them; "malformed" for a text that is none.
QByteArray TokensOf(const QByteArray &sql)
{
    const std::optional<SqlTokens> tokens = FirstStatement(sql);
    if (!tokens)
        return "malformed";
    QByteArrayList texts;
    for (const SqlToken &token : *tokens)
        texts.append(token.text.toByteArray());
    return texts.join("~");
}

} // namespace

class TestSqlTokens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testTokens_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<QByteArray>("tokens");
        const auto add = [](const char *name, const char *sql, const char *tokens) {
            QTest::newRow(name) << QByteArray(sql) << QByteArray(tokens);
        };
        add("words and signs", "select p.*,l.name", "select~p~.~*~,~l~.~name");
        add("long operators", "a<=b<>c||d!=e==f", "a~<=~b~<>~c~||~d~!=~e~==~f");
        add("numbers", "1 1.5 .5 2e3 2e+3", "1~1.5~.5~2e3~2e+3");
        add("doubled apostrophe", "'it''s' x", "'it''s'~x");
        add("names in quotes", "\"a b\" [c d] `e``f`", "\"a b\"~[c d]~`e``f`");
        add("letters beyond ASCII",
            "gr\xc3\xb6\xc3\x9f"
            "e = 1",
            "gr\xc3\xb6\xc3\x9f"
            "e~=~1");
        add("comments", "a -- b\n/* c\n */ d", "a~d");
        add("comment signs in a text", "'--' '/*'", "'--'~'/*'");
        add("only the first statement", "select 1; drop table p", "select~1");
        add("semicolon in a text", "select ';' ; x", "select~';'");
        add("nothing", "  -- only a comment", "");
        add("open text", "select 'abc", "malformed");
        add("open comment", "select /* abc", "select");
        add("open comment after a bracket", "select ( /* abc", "malformed");
        add("comment sign at the end", "select /*", "select~/~*");
        add("open name", "select [abc", "malformed");
        add("open bracket", "select (1", "malformed");
        add("closed too often", "select 1)", "malformed");
        add("number with letters", "select 12ab", "malformed");
        add("stray sign", "select ?", "malformed");
    }

    void testTokens()
    {
        QFETCH(QByteArray, sql);
        QTEST(TokensOf(sql), "tokens");
    }

    void testDepthCountsOpenBrackets()
    {
        const QByteArray sql("a (b (c)) d");
        const std::optional<SqlTokens> tokens = FirstStatement(sql);
        QVERIFY(tokens);
        QList<int> depths;
        for (const SqlToken &token : *tokens)
            depths.append(token.depth);
        QCOMPARE(depths, QList<int>({0, 0, 1, 1, 2, 1, 0, 0}));
    }

    void testNameLosesItsQuotes()
    {
        const QByteArray sql("\"a\"\"b\" [c\"d] e");
        const std::optional<SqlTokens> tokens = FirstStatement(sql);
        QVERIFY(tokens);
        QCOMPARE(tokens->at(0).Name(), QByteArray("a\"b"));
        QCOMPARE(tokens->at(1).Name(), QByteArray("c\"d"));
        QCOMPARE(tokens->at(2).Name(), QByteArray("e"));
    }

    void testKeywordsHaveNoCase()
    {
        const QByteArray sql("SeLeCt \"select\"");
        const std::optional<SqlTokens> tokens = FirstStatement(sql);
        QVERIFY(tokens);
        QVERIFY(tokens->at(0).IsWord("SELECT"));
        QVERIFY(!tokens->at(1).IsWord("SELECT"));
    }
};

QTEST_APPLESS_MAIN(TestSqlTokens)
#include "TestSqlTokens.moc"
