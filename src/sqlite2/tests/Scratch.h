#pragma once

#include "sqlite2/Value.h"
#include "sqlite2/Writer.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace Sqlite2 {

/// A folder for one test's files, removed with it.
class Scratch final
{
public:
    std::filesystem::path File(const std::string &name = "test.db") const;
    QByteArray Bytes(const std::string &name = "test.db") const;
    void Write(const QByteArray &bytes, const std::string &name = "test.db") const;

private:
    QTemporaryDir folder;
};

/// The bytes of a database that the function fills.
QByteArray MakeDatabase(ByteOrder order, const std::function<void(Writer &)> &fill);

} // namespace Sqlite2
