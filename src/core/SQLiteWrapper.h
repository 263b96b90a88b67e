#pragma once

#include "core/ResultTable.h"

#include <QString>

#include <memory>

namespace Tesk {

/// The one read-only connection to the catalogue database. A version 2 file comes into SQLite 3
/// once and is kept in the user's cache folder under the source file's identity; a version 3 file
/// opens directly.
class SQLiteWrapper final
{
public:
    /// `cacheFolder` is where opened version 2 files are kept; made when it is missing. With an
    /// empty name they are kept in memory only.
    explicit SQLiteWrapper(const QString &cacheFolder);
    ~SQLiteWrapper();

    SQLiteWrapper(const SQLiteWrapper &) = delete;
    SQLiteWrapper &operator=(const SQLiteWrapper &) = delete;

    /// Begins to open the file on another thread. Open() of the same name then only waits for the
    /// rest.
    void BeginOpen(const QString &fileName);
    /// Opens the file. On failure the reason goes to the logging category "tesk.database" and into
    /// `errorText`, the result is false and every query yields no rows.
    bool Open(const QString &fileName, QString *errorText = nullptr);
    void Close();
    bool IsOpen() const;

    /// The rows of the first statement of `sql` under version 2 column names; the empty table when
    /// there are none or the statement fails. A failure's reason is stored in `errorText` and
    /// logged; on success `errorText` becomes empty.
    ResultTable GetTable(const QString &sql, QString *errorText = nullptr) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Tesk
