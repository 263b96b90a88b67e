#include "MemoryFolder.h"

#include "base/Errors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/model/clsShoppingCart.h"
#include "core/Registry.h"
#include "core/SQLiteWrapper.h"
#include "core/SettingsFile.h"
#include "sqlite2/Writer.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace Tesk;

namespace {

constexpr int ProgramCount = 4;
constexpr int ChangeCount = 40;
constexpr int SaveCount = 200;
constexpr int RowCount = 2000;
constexpr int SmallCart = 100;
constexpr int LargeCart = 400;

// What one of the programs does, and what it prints then.

/// Opens the catalogue with an empty cache and prints its last row.
QString OpenCatalogue(const QStringList &arguments)
{
    SQLiteWrapper database(arguments[1]);
    if (!database.Open(arguments[0]))
        return QStringLiteral("closed");
    const ResultTable table = database.GetTable(QStringLiteral("SELECT x FROM a ORDER BY x"));
    return table.UpperRow() == RowCount ? table.Text(RowCount, 0) : QStringLiteral("wrong");
}

QString ValueName(const QString &program, int change)
{
    return QStringLiteral("%1-%2").arg(program).arg(change);
}

/// Stores values of its own and prints how many of them it finds again at once.
QString ChangeSettings(const QStringList &arguments)
{
    // On a loaded machine the others may take their time.
    const SettingsFile settings(arguments[0], std::chrono::seconds(20));
    int found = 0;
    for (int change = 0; change < ChangeCount; ++change) {
        const QString name = ValueName(arguments[1], change);
        settings.Update([&name](QJsonObject &root) {
            QJsonObject values = root.value(SettingsKey).toObject();
            values.insert(name, name);
            root.insert(SettingsKey, values);
        });
        found += settings.Read().value(SettingsKey).toObject().value(name) == name ? 1 : 0;
    }
    return QString::number(found);
}

void FillCart(clsShoppingCart &cart, int lineCount)
{
    for (int line = 0; line < lineCount; ++line) {
        auto item = std::make_shared<clsShoppingCartItem>();
        item->Title = QString::number(lineCount);
        cart.AddItem(item);
    }
}

/// Whether the cart is one that FillCart made.
bool IsWhole(const clsShoppingCart &cart)
{
    const int count = cart.Count();
    const auto &items = cart.Entries();
    return (count == SmallCart || count == LargeCart) &&
           std::all_of(items.begin(), items.end(),
                       [count](const auto &item) { return item->Title == QString::number(count); });
}

/// Saves a small and a large cart by turns, and tells the other program when it is done.
QString SaveCarts(const QStringList &arguments)
{
    clsShoppingCart small;
    clsShoppingCart large;
    FillCart(small, SmallCart);
    FillCart(large, LargeCart);
    for (int save = 0; save < SaveCount; ++save)
        ShoppingCartFile::Save(save % 2 == 0 ? large : small, arguments[0]);
    QFile done(arguments[1]);
    return done.open(QIODevice::WriteOnly) ? QStringLiteral("saved") : QStringLiteral("failed");
}

/// Loads the cart until the other program is done.
QString LoadCarts(const QStringList &arguments)
{
    bool isDone = false;
    while (!isDone) {
        isDone = QFile::exists(arguments[1]);
        clsShoppingCart cart;
        ShoppingCartFile::Load(arguments[0], cart);
        if (!IsWhole(cart))
            return QStringLiteral("a cart of %1 lines").arg(cart.Count());
    }
    return QStringLiteral("loaded");
}

const std::map<QString, QString (*)(const QStringList &)> Tasks{
    {QStringLiteral("open-catalogue"), &OpenCatalogue},
    {QStringLiteral("change-settings"), &ChangeSettings},
    {QStringLiteral("save-carts"), &SaveCarts},
    {QStringLiteral("load-carts"), &LoadCarts},
};

/// Runs a task as soon as the test says so.
int RunTask(const QStringList &arguments)
{
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    try {
        std::cout << Tasks.at(arguments[1])(arguments.mid(2)).toStdString();
    } catch (const CatalogueError &error) {
        std::cout << error.what();
    }
    return 0;
}

} // namespace

/// Several programs at once, which write the same files: nothing breaks and nothing is lost.
class TestTwoPrograms : public QObject
{
    Q_OBJECT

public:
    explicit TestTwoPrograms(const QString &program)
        : programName(program)
    {}

private Q_SLOTS:
    void init();
    void testAllMakeTheKeptDatabase();
    void testSettingsOfAllAreKept();
    void testCartIsLoadedWholeWhileItIsSaved();

private:
    QStringList RunAtOnce(const QList<QStringList> &tasks) const;
    QString PathOf(const char *name) const { return folder->filePath(QLatin1String(name)); }

    QString programName;
    std::unique_ptr<QTemporaryDir> folder;
};

void TestTwoPrograms::init()
{
    folder = std::make_unique<QTemporaryDir>(MemoryFolderTemplate());
    QVERIFY(folder->isValid());
}

/// What the programs print, one for each task; all begin when all are ready.
QStringList TestTwoPrograms::RunAtOnce(const QList<QStringList> &tasks) const
{
    std::vector<std::unique_ptr<QProcess>> programs;
    for (const QStringList &task : tasks) {
        programs.push_back(std::make_unique<QProcess>());
        programs.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        programs.back()->start(programName, task);
    }
    for (const auto &program : programs) {
        while (!program->canReadLine()) {
            if (!program->waitForReadyRead())
                throw std::runtime_error(program->errorString().toStdString());
        }
        program->readLine();
    }
    for (const auto &program : programs) {
        program->write("go\n");
        program->waitForBytesWritten();
    }
    QStringList printed;
    for (const auto &program : programs) {
        if (!program->waitForFinished())
            throw std::runtime_error(program->errorString().toStdString());
        printed.append(QString::fromUtf8(program->readAllStandardOutput()));
    }
    return printed;
}

void TestTwoPrograms::testAllMakeTheKeptDatabase()
{
    Sqlite2::Writer writer;
    writer.CreateTable("CREATE TABLE a (x TEXT)");
    for (int row = 1; row <= RowCount; ++row)
        writer.InsertRow("a", {row == RowCount ? "z" : "a" + std::to_string(row)});
    writer.Finish(PathOf("catalog.db").toStdString());

    const QStringList task{QStringLiteral("open-catalogue"), PathOf("catalog.db"), PathOf("cache")};
    const QStringList printed = RunAtOnce(QList<QStringList>(ProgramCount, task));
    QCOMPARE(printed, QStringList(ProgramCount, QStringLiteral("z")));
    // One good file is left, and nothing beside it but perhaps the note that it was read.
    const QDir cache(PathOf("cache"));
    QStringList kept = cache.entryList(QDir::Files | QDir::Hidden);
    kept.removeIf([](const QString &file) { return file.endsWith(QLatin1String(".checked")); });
    QCOMPARE(kept.size(), 1);
    const QDateTime made = QFileInfo(cache.filePath(kept.front())).lastModified();
    QCOMPARE(RunAtOnce({task}), QStringList(QStringLiteral("z")));
    QCOMPARE(QFileInfo(cache.filePath(kept.front())).lastModified(), made);
}

void TestTwoPrograms::testSettingsOfAllAreKept()
{
    Registry registry(PathOf("settings.json"));
    registry.RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("here"));
    QList<QStringList> tasks;
    for (int program = 0; program < ProgramCount; ++program)
        tasks.append(
            {QStringLiteral("change-settings"), PathOf("settings.json"), QString::number(program)});
    QCOMPARE(RunAtOnce(tasks), QStringList(ProgramCount, QString::number(ChangeCount)));

    for (int program = 0; program < ProgramCount; ++program) {
        for (int change = 0; change < ChangeCount; ++change) {
            const QString name = ValueName(QString::number(program), change);
            QCOMPARE(registry.RegGetString(SettingsKey, name), name);
        }
    }
    QCOMPARE(registry.RegGetString(SettingsKey, QStringLiteral("Location")),
             QStringLiteral("here"));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("settings.json")));
}

void TestTwoPrograms::testCartIsLoadedWholeWhileItIsSaved()
{
    clsShoppingCart cart;
    FillCart(cart, SmallCart);
    ShoppingCartFile::Save(cart, PathOf("order.csv"));
    const QStringList printed =
        RunAtOnce({{QStringLiteral("save-carts"), PathOf("order.csv"), PathOf("done")},
                   {QStringLiteral("load-carts"), PathOf("order.csv"), PathOf("done")},
                   {QStringLiteral("save-carts"), PathOf("order.csv"), PathOf("done")}});
    QCOMPARE(printed, QStringList({QStringLiteral("saved"), QStringLiteral("loaded"),
                                   QStringLiteral("saved")}));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral("done"), QStringLiteral("order.csv")}));
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (Tasks.contains(arguments.value(1)))
        return RunTask(arguments);
    TestTwoPrograms test(QCoreApplication::applicationFilePath());
    return QTest::qExec(&test, argc, argv);
}

#include "TestTwoPrograms.moc"
