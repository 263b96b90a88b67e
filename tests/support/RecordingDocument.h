#pragma once

#include "browser/HtmlDocument.h"

#include <QStringList>

namespace Tesk {

/// A page without a browser: it keeps what is written to it.
class RecordingDocument final : public HtmlDocument
{
public:
    QList<QList<ElementChange>> calls;

    void Apply(const QList<ElementChange> &changes) override { calls.append(changes); }

    /// The changed elements in the order of their changes.
    QStringList ChangedIds() const;
    /// The HTML that the element holds at the end; a null text when none was written.
    QString Html(const QString &id) const;
    QString Visibility(const QString &id) const;

private:
    QString Last(const QString &id, ElementChange::Property property) const;
};

} // namespace Tesk
