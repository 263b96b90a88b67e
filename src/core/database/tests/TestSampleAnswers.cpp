#include "core/SQLiteWrapper.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using Tesk::ResultTable;
using Tesk::SQLiteWrapper;

namespace {

/// The rows as the samples write them: null for NULL.
QJsonArray RowsOf(const ResultTable &table)
{
    QJsonArray rows;
    for (int row = 1; row <= table.UpperRow(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < table.ColumnCount(); ++column)
            cells.append(table.IsNull(row, column) ? QJsonValue() : table.Text(row, column));
        rows.append(cells);
    }
    return rows;
}

QJsonArray NamesOf(const ResultTable &table)
{
    QJsonArray names;
    for (int column = 0; column < table.ColumnCount(); ++column)
        names.append(table.Text(0, column));
    return names;
}

} // namespace

/// Every answer that the version 2 engine gave on the sample files.
class TestSampleAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testAnswers_data();
    void testAnswers();
    void testAnswersFromTheCache_data() { testAnswers_data(); }
    void testAnswersFromTheCache();

private:
    void CheckAnswer(const SQLiteWrapper &database) const;

    QTemporaryDir cache;
};

void TestSampleAnswers::testAnswers_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QJsonObject>("answer");
    for (const char *name : {"catalog", "catalog-untyped", "catalog-alltext", "catalog-bigendian",
                             "typing", "shapes"}) {
        const QString path = QStringLiteral(SAMPLES_DIR "/%1").arg(QLatin1String(name));
        QFile answers(path + QStringLiteral(".jsonl"));
        QVERIFY2(answers.open(QIODevice::ReadOnly), qPrintable(answers.fileName()));
        int line = 0;
        while (!answers.atEnd()) {
            const QJsonObject answer = QJsonDocument::fromJson(answers.readLine()).object();
            QVERIFY(answer.contains(QStringLiteral("sql")));
            QTest::addRow("%s:%d", name, ++line) << path + QStringLiteral(".db") << answer;
        }
        QVERIFY(line > 5);
    }
}

void TestSampleAnswers::CheckAnswer(const SQLiteWrapper &database) const
{
    QFETCH(QJsonObject, answer);
    const QString sql = answer.value(QStringLiteral("sql")).toString();
    QString error;
    const ResultTable table = database.GetTable(sql, &error);

    const bool fails = answer.value(QStringLiteral("rc")).toInt() != 0;
    QCOMPARE(!error.isEmpty(), fails);
    const QJsonArray rows = answer.value(QStringLiteral("rows")).toArray();
    QCOMPARE(table.UpperRow(), rows.isEmpty() ? -1 : static_cast<int>(rows.size()));
    QCOMPARE(NamesOf(table), answer.value(QStringLiteral("columns")).toArray());
    QCOMPARE(RowsOf(table), rows);
}

void TestSampleAnswers::testAnswers()
{
    QFETCH(QString, file);
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(file));
    CheckAnswer(database);
}

void TestSampleAnswers::testAnswersFromTheCache()
{
    QFETCH(QString, file);
    QVERIFY(SQLiteWrapper(cache.path()).Open(file));
    SQLiteWrapper database(cache.path());
    QVERIFY(database.Open(file));
    CheckAnswer(database);
}

QTEST_APPLESS_MAIN(TestSampleAnswers)
#include "TestSampleAnswers.moc"
