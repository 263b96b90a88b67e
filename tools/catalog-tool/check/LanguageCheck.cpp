#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"

#include <QRegularExpression>
#include <QSet>

namespace Tesk {

namespace {

constexpr QLatin1String ErrorKeys("error");

QString WithoutText(const QString &key)
{
    return key.startsWith(ErrorKeys) ? QStringLiteral("this error would be told in English")
                                     : QStringLiteral("nothing would show in its place");
}

/// The marks `{0}`, `{1}` … that the program puts values in place of, in their order.
QStringList ValueMarks(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("\\{\\d+\\}"));
    QStringList marks;
    for (auto found = mark.globalMatch(text); found.hasNext();)
        marks.append(found.next().captured());
    marks.sort();
    marks.removeDuplicates();
    return marks;
}

QString Named(const QStringList &marks)
{
    return marks.isEmpty() ? QStringLiteral("(none)") : marks.join(QLatin1Char(' '));
}

/// The keys of all languages together with those that the program looks up.
QSet<QString> AllKeys(const std::vector<LanguageSource> &languages)
{
    QSet<QString> keys(ProgramNeeds::TextKeys().begin(), ProgramNeeds::TextKeys().end());
    for (const LanguageSource &language : languages) {
        for (const LanguageText &text : language.Texts())
            keys.insert(text.key);
    }
    return keys;
}

void CheckKeys(const LanguageSource &language, const QSet<QString> &keys, Problems &problems)
{
    for (const QString &key : keys) {
        if (!language.Find(key))
            problems.Add(language.File(), 0,
                         QStringLiteral("the key \"%1\" is missing, so %2; add it")
                             .arg(key, WithoutText(key)));
    }
}

void CheckText(const LanguageSource &language, const LanguageText &text, Problems &problems)
{
    static const QRegularExpression quotingMark(QStringLiteral("['\"\\\\]"));
    if (text.text.trimmed().isEmpty())
        problems.Add(language.File(), text.line,
                     QStringLiteral("the text of \"%1\" is empty; write one").arg(text.key));
    const QRegularExpressionMatch match = quotingMark.match(text.text);
    if (match.hasMatch() && ProgramNeeds::QuotedTextKeys().contains(text.key))
        problems.Add(language.File(), text.line,
                     QStringLiteral("the text of \"%1\" stands inside quotation marks on a page "
                                    "and holds the character %2; use typographic marks (\u2019 "
                                    "\u201C \u201D)")
                         .arg(text.key, match.captured()));
}

void CheckValueMarks(const LanguageSource &language, const LanguageSource &model,
                     Problems &problems)
{
    for (const LanguageText &text : language.Texts()) {
        const LanguageText *other = model.Find(text.key);
        if (!other)
            continue;
        const QStringList marks = ValueMarks(text.text);
        const QStringList otherMarks = ValueMarks(other->text);
        if (marks != otherMarks)
            problems.Add(language.File(), text.line,
                         QStringLiteral("the text of \"%1\" has the marks %2, in %3 it has %4; "
                                        "write the same ones in both")
                             .arg(text.key, Named(marks), model.File(), Named(otherMarks)));
    }
}

} // namespace

void CheckLanguages(const CatalogueSources &sources, Problems &problems)
{
    const QSet<QString> keys = AllKeys(sources.Languages());
    for (const LanguageSource &language : sources.Languages()) {
        CheckKeys(language, keys, problems);
        for (const LanguageText &text : language.Texts())
            CheckText(language, text, problems);
        CheckValueMarks(language, sources.Languages().front(), problems);
    }
}

} // namespace Tesk
