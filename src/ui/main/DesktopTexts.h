#pragma once

#include <QString>
#include <QTranslator>

namespace Tesk {

/// The texts of what the desktop library brings itself: the buttons of message boxes, the file
/// dialogs, the menus of text fields.
class DesktopTexts final
{
public:
    DesktopTexts() = default;
    ~DesktopTexts();

    DesktopTexts(const DesktopTexts &) = delete;
    DesktopTexts &operator=(const DesktopTexts &) = delete;

    /// `code` is one of the catalogue's language codes. A language whose texts are not installed
    /// leaves the library's English.
    void UseLanguage(const QString &code);

private:
    QTranslator translator;
};

} // namespace Tesk
