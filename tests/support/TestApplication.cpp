#include "support/TestApplication.h"

#include "core/LanguageSupport.h"

#include <QDir>
#include <QFile>

namespace Tesk {

TestApplication::TestApplication(const QString &databaseFile)
    : registry(folder.filePath(QStringLiteral("settings.json")))
{
    QDir(folder.path()).mkpath(QStringLiteral("content"));
    QFile::copy(databaseFile, Path(QStringLiteral("catalog.db")));
    WriteFile(QStringLiteral("resources.chm"), QByteArray());
    WriteFile(QStringLiteral("version"), "1.0\r\n");
    for (const QString &code : LanguageSupport::GetLanguageCodes()) {
        QByteArray lines;
        for (const QString &key : Keys())
            lines += (key + u'=' + code + u':' + key).toLatin1() + "\r\n";
        WriteFile(QStringLiteral("content/loc_%1.txt").arg(code), lines);
    }
    registry.RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("English"));
    controller =
        std::make_unique<Controller>(folder.path(), registry, Path(QStringLiteral("cache")));
    controller->InitApplication();
}

QString TestApplication::Path(const QString &relative) const
{
    return relative.isEmpty() ? folder.path() : folder.filePath(relative);
}

QStringList TestApplication::Keys()
{
    return {QStringLiteral("productListSearchHeadline"),
            QStringLiteral("productListNoProducts"),
            QStringLiteral("productListCaptionNr"),
            QStringLiteral("defaultStatusBar"),
            QStringLiteral("ucWelcomeText"),
            QStringLiteral("ucSearchDetailHeadline"),
            QStringLiteral("ucSearchDetailDescription"),
            QStringLiteral("ucSearchDetailProductLength"),
            QStringLiteral("ucSearchDetailArtNr"),
            QStringLiteral("ucSearchDetailUnit"),
            QStringLiteral("ucSearchDetailAuthor"),
            QStringLiteral("ucSearchDetailSubmit"),
            QStringLiteral("ucSearchDetailCompetition"),
            QStringLiteral("ucSearchDetailCompany"),
            QStringLiteral("ucSearchDetailAllCompanies"),
            QStringLiteral("ucSearchDetailCompanyArtNr"),
            QStringLiteral("ucSearchDetailExamples")};
}

void TestApplication::WriteFile(const QString &relative, const QByteArray &bytes) const
{
    QFile file(Path(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

} // namespace Tesk
