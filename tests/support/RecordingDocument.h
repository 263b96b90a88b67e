#pragma once

#include "browser/HtmlDocument.h"

namespace Tesk {

/// Keeps what is written into a page.
class RecordingDocument final : public HtmlDocument
{
public:
    void Apply(const QList<ElementChange> &newChanges) override { changes += newChanges; }

    /// The last value written to the element; null when none was.
    QString Value(const QString &id) const
    {
        for (qsizetype i = changes.size() - 1; i >= 0; --i) {
            if (changes[i].id == id)
                return changes[i].value;
        }
        return {};
    }

    QList<ElementChange> changes;
};

} // namespace Tesk
