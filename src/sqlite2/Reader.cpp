#include "sqlite2/Reader.h"

#include "sqlite2/AsciiText.h"
#include "sqlite2/Database.h"
#include "sqlite2/Error.h"
#include "sqlite2/FileBytes.h"
#include "sqlite2/Format.h"

#include <algorithm>
#include <optional>

namespace Sqlite2 {

namespace {

std::string ReadJournal(const std::filesystem::path &databaseName)
{
    const std::filesystem::path journalName = JournalName(databaseName);
    std::error_code error;
    const bool isThere = std::filesystem::exists(journalName, error) || error;
    return isThere ? ReadFile(journalName) : std::string();
}

/// Runs the step so that what goes wrong in it is reported with the place where it went wrong.
template <typename Step>
void NamingSource(const std::string &source, Step step)
{
    try {
        step();
    } catch (const Error &error) {
        throw Error("cannot read " + source + ": " + error.what());
    }
}

} // namespace

class Reader::Private final
{
public:
    explicit Private(const std::filesystem::path &file)
        : fileName(file.string())
        , database(ReadFile(file), ReadJournal(file))
    {}

    std::string fileName;
    Database database;
};

Reader::Reader(const std::filesystem::path &fileName)
{
    NamingSource(fileName.string(), [&] { d = std::make_unique<Private>(fileName); });
}

Reader::~Reader() = default;

bool Reader::IsVersion2File(const std::filesystem::path &fileName)
{
    return PageFile::HasHeaderText(ReadFileBeginning(fileName, Format::HeaderText.size()));
}

const std::vector<Table> &Reader::Tables() const
{
    return d->database.Tables();
}

const Table *Reader::FindTable(const std::string &name) const
{
    const auto found = std::ranges::find_if(
        Tables(), [&](const Table &table) { return EqualIgnoringCase(table.name, name); });
    return found == Tables().end() ? nullptr : &*found;
}

void Reader::ReadRows(const Table &table, const RowHandler &handler) const
{
    const std::string source = "the table \"" + table.name + "\" of " + d->fileName;
    std::optional<TableRows> rows;
    NamingSource(source, [&] { rows.emplace(d->database.Rows(table)); });
    while (true) {
        bool isRow = false;
        NamingSource(source, [&] { isRow = rows->Next(); });
        if (!isRow)
            return;
        // Outside the step: the handler's own errors are not the file's.
        handler(rows->RowId(), rows->Values());
    }
}

} // namespace Sqlite2
