#pragma once

#include <QObject>
#include <QString>

#include <optional>

class QWebEngineProfile;

namespace Tesk {

/// How the pages of a profile speak to the program. A script of ours runs in every main document
/// before anything else, gives the document an id and reports the id, at once and again when the
/// document has loaded, and every assignment to `window.status`, which the engine itself ignores.
/// The reports are console messages: the engine keeps their order among themselves and drops none.
class PageChannel final : public QObject
{
public:
    struct Message
    {
        enum class Kind { DocumentId, DocumentLoaded, StatusText };
        Kind kind;
        QString text;
    };

    /// The one channel of this profile, made at the first call.
    static PageChannel &Of(QWebEngineProfile *profile);

    /// The script for a document that lacks it. The engine loses it with a process that fails.
    QString Script() const;

    /// What a console message reports; nothing for one that is not ours.
    std::optional<Message> Read(const QString &consoleMessage) const;

private:
    explicit PageChannel(QWebEngineProfile *profile);

    /// Marks our messages; no page can know it.
    QString token;
};

} // namespace Tesk
