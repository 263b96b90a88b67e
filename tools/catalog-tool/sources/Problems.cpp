#include "sources/Problems.h"

#include <algorithm>
#include <tuple>

namespace Tesk {

void Problems::Add(const QString &file, int line, const QString &message)
{
    problems.append({file, line, message});
}

QList<Problem> Problems::Sorted() const
{
    QList<Problem> sorted = problems;
    std::ranges::sort(sorted, [](const Problem &left, const Problem &right) {
        return std::tie(left.file, left.line, left.message) <
               std::tie(right.file, right.line, right.message);
    });
    return sorted;
}

QString Problems::ToText(const QString &folder) const
{
    QString text;
    for (const Problem &problem : Sorted()) {
        const QString line = problem.line > 0 ? QStringLiteral(":%1").arg(problem.line) : QString();
        text += QStringLiteral("%1/%2%3: %4\n").arg(folder, problem.file, line, problem.message);
    }
    return text;
}

} // namespace Tesk
