#include "Writings.h"

#include "MemoryFolder.h"

#include "base/Errors.h"
#include "base/tests/LogCapture.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/model/clsShoppingCart.h"
#include "core/Registry.h"
#include "core/SQLiteWrapper.h"
#include "sqlite2/Writer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <stdexcept>

namespace Tesk {

namespace {

QByteArray BytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteBytes(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    if (!QDir().mkpath(QFileInfo(fileName).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size())
        throw std::runtime_error("the test's file cannot be written");
}

class SettingsWriting final : public Writing
{
public:
    explicit SettingsWriting(const QByteArray &before)
        : fileName(PathOf("settings.json"))
        , oldBytes(before)
    {
        if (!before.isNull())
            WriteBytes(fileName, before);
    }
    QString Write() override
    {
        const LogCapture log;
        Registry(fileName).RegSetString(SettingsKey, QStringLiteral("Location"),
                                        QStringLiteral("here"));
        return log.Lines().filter(QStringLiteral("cannot be")).join(u'\n');
    }
    /// What was damaged must not be replaced before it was kept.
    QByteArray State() const override
    {
        const QByteArray bytes = BytesOf(fileName);
        const bool isReplaced = bytes != oldBytes;
        return isReplaced ? bytes + BytesOf(fileName + QStringLiteral(".damaged")) : bytes;
    }

private:
    QString fileName;
    QByteArray oldBytes;
};

class CartWriting final : public Writing
{
public:
    CartWriting(const QByteArray &before, int lineCount)
        : fileName(PathOf("order.csv"))
    {
        QDir().mkpath(Folder());
        if (!before.isNull())
            WriteBytes(fileName, before);
        for (int line = 0; line < lineCount; ++line) {
            auto item = std::make_shared<clsShoppingCartItem>();
            item->ArtNr = QString::number(line);
            cart.AddItem(item);
        }
    }
    QString Write() override
    {
        try {
            ShoppingCartFile::Save(cart, fileName);
        } catch (const FileError &error) {
            return error.Message();
        }
        return {};
    }
    QByteArray State() const override { return BytesOf(fileName); }

private:
    QString fileName;
    clsShoppingCart cart;
};

class CacheWriting final : public Writing
{
public:
    explicit CacheWriting(bool hasOlderVersion)
        : source(PathBeside("catalog.db"))
    {
        if (hasOlderVersion) {
            WriteSource("older");
            Write();
        }
        WriteSource("newer");
    }
    /// The catalogue must open and answer right, kept or not.
    QString Write() override
    {
        const LogCapture log;
        SQLiteWrapper database(Folder());
        if (!database.Open(source))
            return QStringLiteral("the catalogue does not open");
        const ResultTable table = database.GetTable(QStringLiteral("SELECT x FROM a"));
        if (table.UpperRow() != RowCount || table.Text(RowCount, 0) != text)
            return QStringLiteral("the catalogue answers wrong");
        return log.Lines().join(u'\n');
    }
    QByteArray State() const override
    {
        const QStringList kept = QDir(Folder()).entryList({QStringLiteral("*.db")}, QDir::Files);
        return kept.isEmpty() ? QByteArray() : BytesOf(QDir(Folder()).filePath(kept.front()));
    }

private:
    static constexpr int RowCount = 200;

    void WriteSource(const char *value)
    {
        text = QLatin1String(value);
        Sqlite2::Writer writer;
        writer.CreateTable("CREATE TABLE a (x TEXT)");
        for (int row = 0; row < RowCount; ++row)
            writer.InsertRow("a", {value});
        writer.Finish(source.toStdString());
    }

    QString source;
    QString text;
};

template <typename Kind, typename... Arguments>
std::function<std::unique_ptr<Writing>()> Making(Arguments... arguments)
{
    return [=] { return std::make_unique<Kind>(arguments...); };
}

} // namespace

Writing::Writing()
    : folder(MemoryFolderTemplate())
{}

QStringList Writing::Files() const
{
    QStringList files;
    const QFileInfoList entries = QDir(Folder()).entryInfoList(QDir::Files | QDir::Hidden);
    for (const QFileInfo &entry : entries)
        files.append(entry.filePath());
    return files;
}

void Writing::AgeFiles(const std::function<bool(const QString &fileName)> &isMeant) const
{
    const QDateTime past = QDateTime::currentDateTime().addDays(-1);
    const QStringList files = Files();
    for (const QString &name : files) {
        if (!isMeant(name))
            continue;
        QFile file(name);
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(past, QFileDevice::FileModificationTime))
            throw std::runtime_error("the test's file cannot be aged");
    }
}

const std::vector<KindOfWriting> &KindsOfWriting()
{
    const QByteArray oldSettings = R"({"Software\\Tesk": {"Location": "there", "Street": "x"}})";
    const QByteArray oldCart = "9;ZZ 9;Old;1;\r\n\r\n\r\n";
    constexpr int fewLines = 3;
    constexpr int manyLines = 5000;
    static const std::vector<KindOfWriting> kinds{
        {"first settings", Making<SettingsWriting>(QByteArray())},
        {"settings", Making<SettingsWriting>(oldSettings)},
        {"damaged settings", Making<SettingsWriting>(QByteArray("{1"))},
        {"new cart file", Making<CartWriting>(QByteArray(), fewLines)},
        {"cart file", Making<CartWriting>(oldCart, fewLines)},
        {"large cart file", Making<CartWriting>(oldCart, manyLines)},
        {"first kept database", Making<CacheWriting>(false)},
        {"kept database", Making<CacheWriting>(true)},
    };
    return kinds;
}

} // namespace Tesk
