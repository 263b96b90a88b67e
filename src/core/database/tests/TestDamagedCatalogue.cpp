#include "base/Errors.h"
#include "base/tests/LogCapture.h"
#include "core/CatalogueQueries.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"
#include "sqlite2/Database.h"
#include "sqlite2/Error.h"
#include "sqlite2/tests/ByteMap.h"
#include "sqlite2/tests/DamageCases.h"
#include "sqlite2/tests/Scratch.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Tesk;
using namespace Tesk::Database;
using Sqlite2::ByteMap;
using Sqlite2::DamageCounts;
using Sqlite2::DamagesOf;
using Sqlite2::DamageStep;
using Sqlite2::TableTexts;

namespace {

constexpr std::array TableStatements{
    "CREATE TABLE categories (ID INTEGER PRIMARY KEY, TREE_ID INTEGER, parent VARCHAR,"
    " title_ge VARCHAR, firstLevelId INTEGER, catLevel2 INTEGER, catLevel3 INTEGER,"
    " catLevel4 INTEGER, catLevel5 INTEGER)",
    "CREATE TABLE products_global (ID INTEGER PRIMARY KEY, artNr VARCHAR, isSet VARCHAR,"
    " length DOUBLE, sCm VARCHAR)",
    "CREATE TABLE products_localized (ID INTEGER, lang VARCHAR, name VARCHAR, form VARCHAR)",
    "CREATE TABLE products2categories (prodID INTEGER, catID INTEGER)",
    "CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, iAmount INTEGER,"
    " iOrder INTEGER)",
    "CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR, sUnternehmen VARCHAR)",
};
constexpr auto IndexStatement = "CREATE INDEX i ON products_global (artNr)";

/// Rows for every statement of the program.
const std::vector<std::pair<std::string, Sqlite2::Row>> &CatalogueRows()
{
    static const std::vector<std::pair<std::string, Sqlite2::Row>> rows{
        {"categories", {"1", "503", "", "Schere", "1", "0", "0", "0", "0"}},
        {"categories", {"2", "506", "503", "Klemme", "1", "1", "0", "0", "0"}},
        {"products_global", {"1", "AB 10", "False", "145", "14,5 cm"}},
        {"products_global", {"2", "AB 12", "False", "120", {}}},
        {"products_global", {"3", "ZZ 7", "True", "", "12 cm"}},
        {"products_localized", {"1", "ge", "Klemme", "gro\xdf"}},
        {"products_localized", {"1", "en", "Clamp", {}}},
        {"products_localized", {"2", "ge", "Klemme, gerade", ""}},
        {"products_localized", {"2", "en", "Clamp", {}}},
        {"products_localized", {"3", "ge", "Klemmensatz", {}}},
        {"products2categories", {"1", "2"}},
        {"products2categories", {"2", "2"}},
        {"products2sets", {"3", "1", "4", "2"}},
        {"products2sets", {"3", "2", "1", "1"}},
        {"reference_numbers", {"1", "R-100", "Other Ltd."}},
    };
    return rows;
}

/// A version 2 catalogue of a dozen pages: all tables and an index. The schema has an inner page
/// and overflow chains.
QByteArray SmallCatalogue()
{
    return Sqlite2::MakeDatabase(Sqlite2::ByteOrder::Little, [](Sqlite2::Writer &writer) {
        for (const char *statement : TableStatements)
            writer.CreateTable(statement);
        writer.CreateIndex(IndexStatement);
        for (const auto &[table, row] : CatalogueRows())
            writer.InsertRow(table, row);
    });
}

/// The statements that make the same catalogue as a version 3 file of small pages.
QByteArray Version3Script()
{
    QByteArray script = "PRAGMA page_size = 512;";
    for (const char *statement : TableStatements)
        script += QByteArray(statement) + ';';
    script += QByteArray(IndexStatement) + ';';
    for (const auto &[table, row] : CatalogueRows()) {
        QByteArrayList values;
        for (const Sqlite2::Value &value : row)
            values.append(value ? '\'' + QString::fromLatin1(value->c_str()).toUtf8() + '\''
                                : "NULL");
        script += "INSERT INTO " + QByteArray::fromStdString(table) + " VALUES (" +
                  values.join(',') + ");";
    }
    return script;
}

QStringList TextsOf(const ResultTable &table, int row)
{
    QStringList texts;
    for (int column = 0; column < table.ColumnCount(); ++column)
        texts.append(table.IsNull(row, column) ? QStringLiteral("NULL") : table.Text(row, column));
    return texts;
}

/// All that the program ever sees of a version 2 file: its tables as the reader hands them out.
/// Empty for a file that the reader refuses.
QByteArray SeenIn(const QByteArray &bytes)
{
    QByteArray seen;
    const auto add = [&seen](const std::string &text) {
        seen += QByteArray::number(text.size()) + ':' + QByteArray::fromStdString(text);
    };
    try {
        const Sqlite2::Database database(bytes.toStdString());
        for (const Sqlite2::Table &table : database.Tables()) {
            add(table.name);
            for (const Sqlite2::Column &column : table.columns) {
                add(column.name);
                add(column.declaredType);
            }
            for (Sqlite2::TableRows rows = database.Rows(table); rows.Next();) {
                add(std::to_string(rows.RowId()));
                for (const Sqlite2::Value &value : rows.Values())
                    add(value ? 'v' + *value : "NULL");
            }
        }
    } catch (const Sqlite2::Error &) {
        return {};
    }
    return seen;
}

/// All that a catalogue says: its tables, and the answers to the program's statements.
struct Contents
{
    TableTexts tables;
    QList<QStringList> answers;
};

/// The answers to every statement that the program has.
QList<QStringList> AnswersOf(const SQLiteWrapper &database)
{
    const CatalogueQueries queries(
        database, [] { return QStringLiteral("ge"); }, QLocale::c());
    const QString two = QStringLiteral("2");
    const QString three = QStringLiteral("3");
    const QString artNr = QStringLiteral("AB%");
    const QString refNo = QStringLiteral("R-100");
    const QString word = QStringLiteral("klemme");
    const auto firstId = [](auto find) {
        try {
            return find();
        } catch (const ConversionError &) {
            return QStringLiteral("no number");
        }
    };
    return {
        RowsOf(queries.QueryCategories()),
        RowsOf(queries.QueryProductsOfCategory(two)),
        RowsOf(queries.QuerySetMembers(three)),
        RowsOf(queries.QueryProduct(two)),
        {firstId([&] { return queries.FindProductIdsByArtNr(artNr); })},
        {firstId([&] { return queries.FindProductIdsByRefNo(refNo); })},
        {queries.FindArtNrsByRefNo(refNo)},
        {queries.HasSingleProducts(two) ? QStringLiteral("yes") : QStringLiteral("no")},
        RowsOf(queries.SearchProducts(word, artNr, QStringLiteral("12.5"), QStringLiteral("cm"),
                                      true)),
        RowsOf(queries.SearchCompetition(refNo, QStringLiteral("Other Ltd."))),
        RowsOf(queries.SearchByArtNr(artNr)),
        RowsOf(queries.SearchByDescription(word)),
    };
}

/// Opens the catalogue as the program does; nothing when it is refused.
std::optional<Contents> Read(const QString &fileName)
{
    SQLiteWrapper database{QString()};
    if (!database.Open(fileName))
        return {};
    Contents contents;
    for (const char *name : {"categories", "products_global", "products_localized",
                             "products2categories", "products2sets", "reference_numbers"}) {
        QString error;
        const ResultTable table =
            database.GetTable(QStringLiteral("SELECT * FROM %1").arg(QLatin1String(name)), &error);
        if (!error.isEmpty())
            return {};
        QList<QStringList> &rows = contents.tables[name];
        for (int row = 1; row <= table.UpperRow(); ++row)
            rows.append(TextsOf(table, row));
    }
    contents.answers = AnswersOf(database);
    return contents;
}

/// Of the damage that changes nothing of what the program sees, this share goes through all of the
/// program: its way is that of the sound file.
constexpr int UnseenStep = 13;

} // namespace

/// Whatever single byte of a catalogue is damaged, and wherever it is cut off: either the program
/// says that it cannot be read, or every row is there and nothing but the text that holds the byte
/// may be another.
class TestDamagedCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testEveryByteDamaged();
    void testEveryTruncation();
    void testDamagedVersion3File();

private:
    void Open(const QString &name);
    void OpenVersion2();
    std::optional<Contents> ReadWith(qsizetype offset, char damage);
    static QString WrongIn(const ByteMap::Byte &byte, const Contents &sound,
                           const std::optional<Contents> &read);
    QString WrongInLog(const QStringList &lines, bool isRefused) const;

    QTemporaryDir folder;
    QString fileName;
    QFile file;
    QByteArray soundBytes;
};

void TestDamagedCatalogue::Open(const QString &name)
{
    fileName = folder.filePath(name);
    file.close();
    file.setFileName(fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        throw std::runtime_error("the test's file cannot be opened");
    soundBytes = file.readAll();
}

void TestDamagedCatalogue::OpenVersion2()
{
    WriteBytes(folder.filePath(QStringLiteral("catalog.db")), SmallCatalogue());
    Open(QStringLiteral("catalog.db"));
}

/// What the program reads while the byte is damaged.
std::optional<Contents> TestDamagedCatalogue::ReadWith(qsizetype offset, char damage)
{
    const auto put = [&](char byte) { return file.seek(offset) && file.putChar(byte); };
    if (!put(damage))
        throw std::runtime_error("the catalogue cannot be damaged");
    std::optional<Contents> contents = Read(fileName);
    if (!put(soundBytes[offset]))
        throw std::runtime_error("the catalogue cannot be mended");
    return contents;
}

QString TestDamagedCatalogue::WrongIn(const ByteMap::Byte &byte, const Contents &sound,
                                      const std::optional<Contents> &read)
{
    const std::optional<TableTexts> tables =
        read ? std::optional(read->tables) : std::optional<TableTexts>();
    QString wrong = WrongAfterDamage(byte, sound.tables, tables);
    if (!wrong.isEmpty() || !read)
        return wrong;
    // A column's declared type says how its texts compare.
    const bool mustAnswerAlike = read->tables == sound.tables && byte.use != ByteMap::Use::Schema;
    if (mustAnswerAlike && read->answers != sound.answers)
        return QStringLiteral("the tables are the same and the answers are not");
    return {};
}

/// Whoever reads the log learns which file is damaged, and no statement runs without end.
QString TestDamagedCatalogue::WrongInLog(const QStringList &lines, bool isRefused) const
{
    if (isRefused && lines.isEmpty())
        return QStringLiteral("nothing is said");
    for (const QString &line : lines) {
        if (!line.contains(fileName) || line.contains(QStringLiteral("takes too long")))
            return line;
    }
    return {};
}

void TestDamagedCatalogue::testEveryByteDamaged()
{
    OpenVersion2();
    const ByteMap map(soundBytes);
    const QByteArray soundSeen = SeenIn(soundBytes);
    const Contents sound = Read(fileName).value();
    const QStringList nothing{QString(), QStringLiteral("-1"), QStringLiteral("no")};
    for (const QStringList &answer : sound.answers)
        QVERIFY(!nothing.contains(answer.value(0)));

    DamageCounts counts;
    int unseen = 0;
    QByteArray damaged = soundBytes;
    for (qsizetype i = 0; i < soundBytes.size(); i += DamageStep) {
        const QByteArray damages = DamagesOf(soundBytes, i, 1);
        for (const char damage : damages) {
            damaged[i] = damage;
            if (SeenIn(damaged) == soundSeen && unseen++ % UnseenStep != 0)
                continue;
            const LogCapture log;
            const std::optional<Contents> read = ReadWith(i, damage);
            QString wrong = WrongIn(map.At(i), sound, read);
            if (wrong.isEmpty())
                wrong = WrongInLog(log.Lines(), !read);
            QVERIFY2(
                wrong.isEmpty(),
                qPrintable(QStringLiteral("byte %1 as %2: ").arg(i).arg(uchar(damage)) + wrong));
            counts.Add(!read, read && read->tables == sound.tables);
        }
        damaged[i] = soundBytes[i];
    }
    counts.Print();
    qInfo("one in %d of the %d cases that the reader does not see was asked too", UnseenStep,
          unseen);
}

void TestDamagedCatalogue::testEveryTruncation()
{
    OpenVersion2();
    for (qsizetype size = soundBytes.size() - 1; size >= 0; size -= DamageStep) {
        QVERIFY(file.resize(size));
        const LogCapture log;
        QVERIFY2(!Read(fileName), qPrintable(QString::number(size)));
        QCOMPARE(WrongInLog(log.Lines(), true), QString());
    }
    qInfo("%d cases, all refused", int(soundBytes.size() / DamageStep));
}

/// SQLite reads such a file itself and notices what it can. Whatever comes of it, it comes to an
/// end, no rows come from nowhere, and what fails is told with the file's name.
void TestDamagedCatalogue::testDamagedVersion3File()
{
    constexpr qsizetype step = 11 * DamageStep;
    WriteVersion3(folder.filePath(QStringLiteral("three.db")), Version3Script());
    Open(QStringLiteral("three.db"));
    const Contents sound = Read(fileName).value();
    QCOMPARE(sound.tables.value("products_localized").size(), 5);

    DamageCounts counts;
    for (qsizetype i = 0; i < soundBytes.size(); i += step) {
        const QByteArray damages = DamagesOf(soundBytes, i, 1);
        for (const char damage : damages) {
            const LogCapture log;
            const std::optional<Contents> read = ReadWith(i, damage);
            const QString wrong = WrongInLog(log.Lines(), !read);
            QVERIFY2(wrong.isEmpty(), qPrintable(QString::number(i) + QLatin1String(": ") + wrong));
            qsizetype rowCount = 0;
            for (const QList<QStringList> &rows : read.value_or(sound).tables)
                rowCount += rows.size();
            QVERIFY2(rowCount < soundBytes.size(), qPrintable(QString::number(i)));
            counts.Add(!read, read && read->tables == sound.tables);
        }
    }
    counts.Print(step);
}

QTEST_APPLESS_MAIN(TestDamagedCatalogue)
#include "TestDamagedCatalogue.moc"
