#include "sqlite2/FileBytes.h"

#include "sqlite2/Error.h"

#include <fstream>
#include <system_error>

namespace Sqlite2 {

std::filesystem::path JournalName(std::filesystem::path databaseName)
{
    databaseName += "-journal";
    return databaseName;
}

std::string ReadFile(const std::filesystem::path &fileName)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error))
        throw Error("it is missing or no file");
    const auto size = std::filesystem::file_size(fileName, error);
    std::ifstream stream(fileName, std::ios::binary);
    if (error || !stream)
        throw Error("it cannot be opened");

    std::string bytes(size, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream)
        throw Error("it cannot be read to its end");
    return bytes;
}

std::string ReadFileBeginning(const std::filesystem::path &fileName, std::size_t size)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error))
        return {};
    std::ifstream stream(fileName, std::ios::binary);
    std::string bytes(size, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

void ReplaceFile(const std::filesystem::path &fileName, std::string_view bytes)
{
    std::filesystem::path temporary = fileName;
    temporary += ".part";
    std::error_code error;
    {
        std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) {
            std::filesystem::remove(temporary, error);
            throw Error("cannot write " + temporary.string() +
                        ": check the folder's permissions and the free space");
        }
    }
    std::filesystem::rename(temporary, fileName, error);
    if (error) {
        const std::string reason = error.message();
        std::filesystem::remove(temporary, error);
        throw Error("cannot write " + fileName.string() + ": " + reason);
    }
}

} // namespace Sqlite2
