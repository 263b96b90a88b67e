#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <stdexcept>

namespace Tesk {

// Whole files of a test. A file that cannot be written or read ends the test.

inline void WriteBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("the test's file cannot be written");
}

inline QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the test's file cannot be read");
    return file.readAll();
}

} // namespace Tesk
