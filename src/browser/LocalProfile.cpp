#include "browser/LocalProfile.h"

#include "browser/Log.h"
#include "browser/RequestGate.h"
#include "browser/ResourceScheme.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace Tesk {
namespace {

void SetFonts(QWebEngineSettings &settings)
{
    const QFontInfo font(QGuiApplication::font());
    settings.setFontFamily(QWebEngineSettings::StandardFont, font.family());
    settings.setFontFamily(QWebEngineSettings::SansSerifFont, font.family());
    settings.setFontSize(QWebEngineSettings::DefaultFontSize, font.pixelSize());
}

void SetAttributes(QWebEngineSettings &settings)
{
    using Settings = QWebEngineSettings;
    for (const Settings::WebAttribute on :
         {Settings::PluginsEnabled, Settings::PdfViewerEnabled,
          Settings::LocalContentCanAccessFileUrls,
          // Left to the gate, which refuses the same requests but says so.
          Settings::LocalContentCanAccessRemoteUrls}) {
        settings.setAttribute(on, true);
    }
    for (const Settings::WebAttribute off :
         {// Whoever steers the pages by keyboard from a menu or list stays there.
          Settings::FocusOnNavigationEnabled,
          // A page that cannot be shown is answered by our own message.
          Settings::ErrorPageEnabled, Settings::AutoLoadIconsForPage, Settings::DnsPrefetchEnabled,
          Settings::HyperlinkAuditingEnabled, Settings::LocalStorageEnabled,
          Settings::FullScreenSupportEnabled, Settings::ScreenCaptureEnabled,
          Settings::WebGLEnabled, Settings::NavigateOnDropEnabled}) {
        settings.setAttribute(off, false);
    }
}

} // namespace

QWebEngineProfile *CreateLocalProfile(const QString &containerPath, const QString &allowedDirectory,
                                      QObject *parent)
{
    auto *profile = new QWebEngineProfile(parent);
    SetFonts(*profile->settings());
    SetAttributes(*profile->settings());
    ResourceScheme::Install(profile, containerPath);
    profile->setUrlRequestInterceptor(new RequestGate(allowedDirectory, profile));
    QObject::connect(profile, &QWebEngineProfile::downloadRequested, profile,
                     [](QWebEngineDownloadRequest *download) {
                         qCWarning(gateLog, "download refused: %ls",
                                   qUtf16Printable(download->url().toDisplayString()));
                         download->cancel();
                     });
    return profile;
}

} // namespace Tesk
