#pragma once

#include <QList>
#include <QString>

class QDir;

namespace Tesk {

class Problems;

struct LanguageText
{
    int line = 0;
    QString key;
    QString text;
};

/// The program's texts in one language: a line `key=text` each. Empty lines and lines that begin
/// with '#' are for the translator's eyes.
class LanguageSource final
{
public:
    /// Reads `languages/loc_<code>.txt`. A line without exactly one '=', a doubled key, blanks
    /// around a key and characters outside the code page are problems.
    LanguageSource(const QDir &folder, const QString &code, Problems &problems);

    const QString &Code() const { return code; }
    const QString &File() const { return file; }
    /// In the file's order.
    const QList<LanguageText> &Texts() const { return texts; }
    /// The key's text, or nullptr.
    const LanguageText *Find(const QString &key) const;

private:
    void ReadLine(int number, const QString &line, Problems &problems);

    QString code;
    QString file;
    QList<LanguageText> texts;
};

} // namespace Tesk
