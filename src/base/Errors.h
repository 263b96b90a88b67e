#pragma once

#include <QString>

#include <stdexcept>

namespace Tesk {

/// The family of the program's run-time errors. The message is plain text for the user: what
/// failed, on which file or input, what to do.
class CatalogueError : public std::runtime_error
{
public:
    explicit CatalogueError(const QString &message);
    QString Message() const;
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
