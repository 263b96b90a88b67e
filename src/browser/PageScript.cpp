#include "browser/PageScript.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Tesk {
namespace {

const char *const CreationScript = R"js((token => {
    if (window.__documentId)
        return;
    const log = console.log.bind(console);
    const id = String(performance.timeOrigin) + Math.random();
    let text = '';
    Object.defineProperty(window, '__documentId', { value: id });
    Object.defineProperty(window, 'status', {
        configurable: true,
        enumerable: true,
        get: () => text,
        set: value => {
            text = String(value);
            log(token + 'status:' + text);
        }
    });
    log(token + 'document:' + id);
    addEventListener('load', () => log(token + 'loaded:' + id));
})(%1[0]);)js";

const char *const ChangesScript = R"js(((id, changes) => {
    if (window.__documentId !== id)
        return -2;
    for (let at = 0; at < changes.length; ++at) {
        const element = document.getElementById(changes[at].id);
        if (!element)
            return at;
        if (changes[at].visibility)
            element.style.visibility = changes[at].value;
        else
            element.innerHTML = changes[at].value;
    }
    return -1;
})(...%1);)js";

// JSON is a part of the script language, so texts go into a script as JSON strings.
QString WithArguments(const char *script, const QJsonArray &arguments)
{
    const QString json = QString::fromUtf8(QJsonDocument(arguments).toJson(QJsonDocument::Compact));
    return QString::fromLatin1(script).arg(json);
}

} // namespace

QString PageScript::OnDocumentCreation(const QString &token)
{
    return WithArguments(CreationScript, {token});
}

QString PageScript::ForChanges(const QString &documentId, const QList<ElementChange> &changes)
{
    QJsonArray list;
    for (const ElementChange &change : changes) {
        list.append(QJsonObject{
            {QStringLiteral("id"), change.id},
            {QStringLiteral("visibility"), change.property == ElementChange::Property::Visibility},
            {QStringLiteral("value"), change.value}});
    }
    return WithArguments(ChangesScript, {documentId, list});
}

} // namespace Tesk
