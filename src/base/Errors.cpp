#include "base/Errors.h"

#include <utility>

namespace Tesk {

namespace {

/// The text with its marks "{0}" to "{9}" replaced in one go: a value may hold such a mark itself.
QString Filled(const QString &text, const QStringList &values)
{
    constexpr qsizetype markSize = 3;
    QString filled;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QStringView mark = QStringView(text).mid(i, markSize);
        const bool isMark = mark.size() == markSize && mark[0] == u'{' && mark[2] == u'}';
        const int position = isMark ? mark[1].digitValue() : -1;
        if (position >= 0 && position < values.size()) {
            filled += values[position];
            i += markSize - 1;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

} // namespace

CatalogueError::CatalogueError(const QString &message, ErrorText textOfLanguage)
    : std::runtime_error(message.toStdString())
    , text(std::move(textOfLanguage))
{}

QString CatalogueError::Message() const
{
    return QString::fromUtf8(what());
}

QString CatalogueError::MessageIn(const std::function<QString(const QString &key)> &getText) const
{
    const QString translated = text.key.isEmpty() ? QString() : getText(text.key);
    return translated.isEmpty() ? Message() : Filled(translated, text.values);
}

} // namespace Tesk
