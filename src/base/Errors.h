#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <stdexcept>

namespace Tesk {

/// Where the language files hold an error's message in the user's language: the text of `key`, in
/// which "{0}" to "{9}" stand for the values.
struct ErrorText
{
    QString key = {};
    QStringList values = {};
};

/// The family of the program's run-time errors. The message is plain text for the user: what
/// failed, on which file or input, what to do.
class CatalogueError : public std::runtime_error
{
public:
    explicit CatalogueError(const QString &message, ErrorText textOfLanguage = {});
    /// In English.
    QString Message() const;
    /// In the language of `getText`, which gives the text of a key or the empty one; in English
    /// where that language lacks it.
    QString MessageIn(const std::function<QString(const QString &key)> &getText) const;

private:
    ErrorText text;
};

/// A text that is no number, or a number outside the range of its type.
class ConversionError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

/// A list that has grown beyond what its positions can number.
class OverflowError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

/// A row, column or list position that does not exist.
class SubscriptError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

/// A file that is missing, unreadable, or empty where it must not be.
class FileError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

/// A key that occurs twice where it must be unique.
class DuplicateKeyError : public CatalogueError
{
public:
    using CatalogueError::CatalogueError;
};

} // namespace Tesk
