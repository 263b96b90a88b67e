#include "Scratch.h"

#include <QFile>

#include <stdexcept>

namespace Sqlite2 {

std::filesystem::path Scratch::File(const std::string &name) const
{
    return std::filesystem::path(folder.path().toStdString()) / name;
}

QByteArray Scratch::Bytes(const std::string &name) const
{
    QFile file(QString::fromStdString(File(name).string()));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + name);
    return file.readAll();
}

void Scratch::Write(const QByteArray &bytes, const std::string &name) const
{
    QFile file(QString::fromStdString(File(name).string()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + name);
}

QByteArray MakeDatabase(ByteOrder order, const std::function<void(Writer &)> &fill)
{
    const Scratch scratch;
    Writer writer(order);
    fill(writer);
    writer.Finish(scratch.File());
    return scratch.Bytes();
}

} // namespace Sqlite2
