#include "support/RecordingDocument.h"

namespace Tesk {

QStringList RecordingDocument::ChangedIds() const
{
    QStringList ids;
    for (const auto &changes : calls) {
        for (const ElementChange &change : changes)
            ids.append(change.id);
    }
    return ids;
}

QString RecordingDocument::Html(const QString &id) const
{
    return Last(id, ElementChange::Property::InnerHtml);
}

QString RecordingDocument::Visibility(const QString &id) const
{
    return Last(id, ElementChange::Property::Visibility);
}

QString RecordingDocument::Last(const QString &id, ElementChange::Property property) const
{
    QString value;
    for (const auto &changes : calls) {
        for (const ElementChange &change : changes) {
            if (change.id == id && change.property == property)
                value = change.value.isNull() ? QLatin1String("") : change.value;
        }
    }
    return value;
}

} // namespace Tesk
