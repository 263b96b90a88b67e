#include "ProcessTree.h"

#include <QDir>
#include <QFile>
#include <QMultiHash>

#include <chrono>
#include <cmath>
#include <thread>

namespace Tesk::ProcessTree {

namespace {

constexpr double KilobytesOfAMegabyte = 1024;

QByteArray Content(qint64 process, const char *name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(name)));
    // A process may have ended meanwhile.
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Status
{
    char state = 'X';
    qint64 parent = 0;
};

Status StatusOf(qint64 process)
{
    const QByteArray content = Content(process, "stat");
    if (content.isEmpty())
        return {};
    // The name, between brackets, may hold anything.
    const QList<QByteArray> fields = content.mid(content.lastIndexOf(')') + 2).split(' ');
    return {fields.value(0).at(0), fields.value(1).toLongLong()};
}

/// In kilobytes.
qint64 ProportionalSize(qint64 process)
{
    const QList<QByteArray> lines = Content(process, "smaps_rollup").split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Pss:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return 0;
}

} // namespace

QList<qint64> Of(qint64 process)
{
    QMultiHash<qint64, qint64> children;
    const QStringList entries =
        QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        if (const qint64 id = entry.toLongLong())
            children.insert(StatusOf(id).parent, id);
    }
    QList<qint64> tree{process};
    for (qsizetype i = 0; i < tree.size(); ++i)
        tree.append(children.values(tree[i]));
    return tree;
}

bool IsRunning(qint64 process)
{
    const char state = StatusOf(process).state;
    return state != 'Z' && state != 'X';
}

double Memory(qint64 process)
{
    qint64 kilobytes = 0;
    const QList<qint64> tree = Of(process);
    for (const qint64 id : tree)
        kilobytes += ProportionalSize(id);
    return static_cast<double>(kilobytes) / KilobytesOfAMegabyte;
}

double SettledMemory(qint64 process)
{
    constexpr std::chrono::milliseconds pause{500};
    constexpr int mostLooks = 40;
    constexpr int wantedLooks = 3;
    constexpr double mostChange = 0.002;
    double memory = Memory(process);
    int equalLooks = 0;
    for (int look = 0; look < mostLooks && equalLooks < wantedLooks; ++look) {
        std::this_thread::sleep_for(pause);
        const double next = Memory(process);
        equalLooks = std::abs(next - memory) < mostChange * memory ? equalLooks + 1 : 0;
        memory = next;
    }
    return memory;
}

} // namespace Tesk::ProcessTree
