#pragma once

#include <QString>
#include <QWebEngineUrlRequestInterceptor>

namespace Tesk {

/// Lets through what pages need of the installation and refuses the rest with a line in
/// "tesk.browser.gate": nothing leaves for the network, no file outside the application directory
/// is read.
class RequestGate final : public QWebEngineUrlRequestInterceptor
{
public:
    /// `allowedDirectory`: the folder below which files may be read.
    explicit RequestGate(const QString &allowedDirectory, QObject *parent = nullptr);

    void interceptRequest(QWebEngineUrlRequestInfo &request) override;

    /// Whether content of this address may be loaded.
    bool Allows(const QUrl &url) const;

    /// Whether the scheme is one of those that the gate may let through.
    static bool IsLocal(const QUrl &url);

private:
    bool MayRead(const QString &path) const;

    QString spelledRoot;
    QString canonicalRoot;
};

} // namespace Tesk
