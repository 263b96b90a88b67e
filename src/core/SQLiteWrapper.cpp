#include "core/SQLiteWrapper.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "core/database/CatalogueConnection.h"
#include "core/database/Log.h"
#include "core/database/ReadGuard.h"
#include "core/database/StatementRewriter.h"
#include "core/database/StatementRunner.h"
#include "core/database/TableSchema.h"

#include <QDir>

#include <exception>
#include <future>
#include <system_error>
#include <utility>

namespace Tesk {

namespace {

/// Columns named as the statement writes them, and room for a whole catalogue's pages.
constexpr auto Settings = "PRAGMA short_column_names = OFF;"
                          "PRAGMA full_column_names = OFF;"
                          "PRAGMA query_only = ON;"
                          "PRAGMA cache_size = -32768";

/// Text reaches a version 2 database in its 8-bit code page; behind a NUL no database reads on.
QByteArray StatementText(const QString &sql, Database::FileVersion version)
{
    const qsizetype end = sql.indexOf(QChar::Null);
    const QStringView text = QStringView(sql).first(end < 0 ? sql.size() : end);
    if (version == Database::FileVersion::Three)
        return text.toUtf8();
    return CodePage::FromBytes(CodePage::ToBytes(text)).toUtf8();
}

struct OpenedFile
{
    Database::CatalogueConnection catalogue;
    Database::TableSchema schema;
};

/// Throws FileError or Sqlite2::Error.
OpenedFile OpenFile(const QString &fileName, const QString &cacheFolder)
{
    OpenedFile opened{Database::OpenCatalogue(fileName, cacheFolder), {}};
    Database::Execute(opened.catalogue.connection.get(), Settings);
    opened.schema = Database::TableSchema(opened.catalogue.connection.get());
    return opened;
}

} // namespace

class SQLiteWrapper::Private
{
public:
    QString cacheFolder;
    QString fileName;
    Database::TableSchema schema;
    Database::CatalogueConnection catalogue;

    /// What is being opened on another thread, and its name.
    std::future<OpenedFile> begun;
    QString begunName;

    void Open(const QString &fileName);
    ResultTable Run(const QString &sql) const;
};

void SQLiteWrapper::Private::Open(const QString &fileName)
{
    const bool isBegun = begun.valid() && begunName == fileName;
    OpenedFile opened = isBegun ? begun.get() : OpenFile(fileName, cacheFolder);
    schema = std::move(opened.schema);
    Database::GuardConnection(opened.catalogue.connection.get(), schema);
    catalogue = std::move(opened.catalogue);
}

/// Throws FileError.
ResultTable SQLiteWrapper::Private::Run(const QString &sql) const
{
    if (!catalogue.connection)
        throw FileError(QStringLiteral("no catalogue database is open"));
    const Database::RewrittenStatement statement =
        Database::RewriteStatement(StatementText(sql, catalogue.version), schema);
    return Database::RunStatement(catalogue.connection.get(), statement);
}

SQLiteWrapper::SQLiteWrapper(const QString &cacheFolder)
    : d(std::make_unique<Private>())
{
    d->cacheFolder = cacheFolder;
}

SQLiteWrapper::~SQLiteWrapper() = default;

void SQLiteWrapper::BeginOpen(const QString &fileName)
{
    try {
        d->begun = std::async(std::launch::async, OpenFile, fileName, d->cacheFolder);
        d->begunName = fileName;
    } catch (const std::system_error &error) {
        // Without a thread Open() does all of it.
        qCWarning(Database::databaseLog) << error.what();
    }
}

bool SQLiteWrapper::Open(const QString &fileName, QString *errorText)
{
    Close();
    d->fileName = QDir::toNativeSeparators(fileName);
    QString error;
    try {
        d->Open(fileName);
    } catch (const std::exception &failure) {
        error = QStringLiteral("The catalogue %1 cannot be opened: %2.")
                    .arg(d->fileName, QString::fromUtf8(failure.what()));
        qCWarning(Database::databaseLog).noquote() << error;
    }
    if (errorText)
        *errorText = error;
    return IsOpen();
}

void SQLiteWrapper::Close()
{
    d->catalogue.connection.reset();
}

bool SQLiteWrapper::IsOpen() const
{
    return d->catalogue.connection != nullptr;
}

ResultTable SQLiteWrapper::GetTable(const QString &sql, QString *errorText) const
{
    QString error;
    ResultTable table;
    try {
        table = d->Run(sql);
    } catch (const std::exception &failure) {
        error = QString::fromUtf8(failure.what());
        // A search text may be long; its beginning tells the statement.
        constexpr qsizetype longestShown = 300;
        qCWarning(Database::databaseLog).noquote()
            << QStringLiteral("The statement gives no rows of the catalogue %1 (%2): %3")
                   .arg(d->fileName, error, sql.first(qMin(sql.size(), longestShown)));
    }
    if (errorText)
        *errorText = error;
    return table;
}

} // namespace Tesk
