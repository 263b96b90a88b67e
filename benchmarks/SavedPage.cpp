#include "SavedPage.h"

#include "Folders.h"
#include "browser/Address.h"
#include "browser/ChmFile.h"
#include "support/CatalogueWindow.h"
#include "support/PageUser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace Tesk {

namespace {

const QLatin1String ContentFolder{"/content/"};

QString FileOf(SavedPage page)
{
    switch (page) {
    case SavedPage::Welcome:
        return Folders::Pages + ContentFolder + QLatin1String("saved_welcome.html");
    case SavedPage::List:
        return Folders::Pages + ContentFolder + QLatin1String("saved_list.html");
    case SavedPage::Cart:
        return Folders::Pages + ContentFolder + QLatin1String("saved_cart.html");
    case SavedPage::LongCart:
        return Folders::Pages + ContentFolder + QLatin1String("saved_long_cart.html");
    }
    return {};
}

void Write(const QString &fileName, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(fileName).path());
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written: %s", qPrintable(fileName), qPrintable(file.errorString()));
}

/// The page with pictures from files in place of those from the container.
QString WithPicturesFromFiles(QString html, const QString &container)
{
    static const QRegularExpression address(QStringLiteral("mk:@MSITStore:[^\"']*"));
    const ChmFile pictures(container);
    for (auto found = address.match(html); found.hasMatch(); found = address.match(html)) {
        const QString member = Address::MemberPath(Address::ToUrl(found.captured()));
        // One that is missing is missing from the bare window's page as well.
        if (const auto picture = pictures.Read(member))
            Write(Folders::Pages + member, *picture);
        html.replace(found.captured(), QLatin1String("..") + member);
    }
    return html;
}

} // namespace

QByteArray AddressOf(SavedPage page)
{
    return QUrl::fromLocalFile(FileOf(page)).toEncoded();
}

void Save(SavedPage page, PageUser &shown, const QString &container)
{
    const QString html =
        shown.Evaluate(QStringLiteral("document.documentElement.outerHTML")).toString();
    if (html.isEmpty())
        qFatal("the page for %s gives no answer", qPrintable(FileOf(page)));
    Write(FileOf(page),
          "<!DOCTYPE html>\n" + WithPicturesFromFiles(html, container).toUtf8() + "\n");
}

void PrepareSavedPages(const QString &applicationDirectory)
{
    QDir(Folders::Pages).removeRecursively();
    if (!CopyApplicationDirectory(applicationDirectory + ContentFolder,
                                  Folders::Pages + ContentFolder))
        qFatal("%s cannot be filled", qPrintable(Folders::Pages));
}

} // namespace Tesk
