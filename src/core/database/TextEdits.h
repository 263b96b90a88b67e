#pragma once

#include <QByteArray>

#include <vector>

namespace Tesk::Database {

/// A replacement of a stretch of a text; an insertion where `length` is 0.
struct TextEdit
{
    qsizetype position = 0;
    qsizetype length = 0;
    QByteArray text;
};

using TextEdits = std::vector<TextEdit>;

/// The text with all edits made. Edits must not overlap. Insertions at one position keep their
/// order and come before a replacement that begins there.
QByteArray Apply(TextEdits edits, const QByteArray &text);

} // namespace Tesk::Database
