#include "sources/LanguageSource.h"

#include "sources/Problems.h"
#include "sources/TextFile.h"

#include <QDir>

#include <algorithm>

namespace Tesk {

namespace {

constexpr QChar CommentMark = QLatin1Char('#');

} // namespace

LanguageSource::LanguageSource(const QDir &folder, const QString &languageCode, Problems &problems)
    : code(languageCode)
    , file(QStringLiteral("languages/loc_%1.txt").arg(languageCode))
{
    const QStringList lines = ReadSourceLines(folder, file, problems);
    for (int i = 0; i < lines.size(); ++i) {
        if (!lines[i].trimmed().isEmpty() && !lines[i].startsWith(CommentMark))
            ReadLine(i + 1, lines[i], problems);
    }
}

const LanguageText *LanguageSource::Find(const QString &key) const
{
    const auto found = std::ranges::find(texts, key, &LanguageText::key);
    return found == texts.end() ? nullptr : &*found;
}

void LanguageSource::ReadLine(int number, const QString &line, Problems &problems)
{
    CheckCodePage(line, file, number, problems);
    const QStringList parts = line.split(QLatin1Char('='));
    if (parts.size() != 2) {
        problems.Add(file, number,
                     QStringLiteral("the line has %1 times \"=\", so the program skips it; write "
                                    "key=text with exactly one \"=\"")
                         .arg(parts.size() - 1));
        return;
    }

    const QString &key = parts[0];
    if (key != key.trimmed() || key.isEmpty())
        problems.Add(file, number,
                     QStringLiteral("the key \"%1\" is empty or has blanks around it, which would "
                                    "belong to it; write it without")
                         .arg(key));
    if (const LanguageText *first = Find(key)) {
        problems.Add(file, number,
                     QStringLiteral("the key \"%1\" stands in line %2 already, and the program "
                                    "would not start; remove one of the two")
                         .arg(key)
                         .arg(first->line));
        return;
    }
    texts.append({number, key, parts[1]});
}

} // namespace Tesk
