#pragma once

#include <QList>
#include <QString>

namespace Tesk {

/// A fault in a catalogue's sources, told to the person who writes them.
struct Problem
{
    QString file;    ///< relative to the sources' folder, with '/'
    int line = 0;    ///< counted from 1; 0 for a fault that stands in no line
    QString message; ///< what is wrong and what to do
};

/// The faults found so far. Checks add to it and go on, so that one run shows them all.
class Problems final
{
public:
    void Add(const QString &file, int line, const QString &message);

    bool IsEmpty() const { return problems.isEmpty(); }
    qsizetype Count() const { return problems.size(); }

    /// By file, then by line, then by message.
    QList<Problem> Sorted() const;

    /// One line for each problem, `folder/file:line: message`, sorted, in the form that editors
    /// take up to jump to the place.
    QString ToText(const QString &folder) const;

private:
    QList<Problem> problems;
};

} // namespace Tesk
