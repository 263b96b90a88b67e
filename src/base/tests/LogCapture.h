#pragma once

#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <algorithm>
#include <utility>

namespace Tesk {

/// Collects what is logged while it lives, and nothing of it is printed. One at a time.
class LogCapture
{
public:
    LogCapture()
    {
        current = this;
        previous = qInstallMessageHandler(Note);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(previous);
        current = nullptr;
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    /// Whether a line of this category holds all these texts.
    bool Has(const char *category, const QStringList &texts) const
    {
        const QMutexLocker lock(&mutex);
        return std::any_of(lines.cbegin(), lines.cend(), [&](const Line &line) {
            return line.first == QLatin1String(category) &&
                   std::all_of(texts.cbegin(), texts.cend(),
                               [&line](const QString &text) { return line.second.contains(text); });
        });
    }

    /// All lines, without their categories.
    QStringList Lines() const
    {
        const QMutexLocker lock(&mutex);
        QStringList texts;
        for (const Line &line : lines)
            texts.append(line.second);
        return texts;
    }

    qsizetype Count(const char *category) const
    {
        const QMutexLocker lock(&mutex);
        return std::count_if(lines.cbegin(), lines.cend(), [category](const Line &line) {
            return line.first == QLatin1String(category);
        });
    }

private:
    using Line = std::pair<QString, QString>;

    static void Note(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        {
            const QMutexLocker lock(&current->mutex);
            current->lines.append({QString::fromUtf8(context.category), text});
        }
        if (type == QtFatalMsg)
            current->previous(type, context, text);
    }

    static inline LogCapture *current = nullptr;
    QtMessageHandler previous = nullptr;
    // The engine logs from threads of its own.
    mutable QMutex mutex;
    QList<Line> lines;
};

} // namespace Tesk
