#include "TinySources.h"

#include "sources/ProgramNeeds.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace Tesk {

namespace {

constexpr char Icon[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 4 4\">"
                        "<circle cx=\"2\" cy=\"2\" r=\"2\" fill=\"#0a0\"/></svg>\n";

} // namespace

TinySources::TinySources()
{
    CopyData();
    MakeLanguages();
    MakePages();
    MakeDocuments();
}

QByteArray TinySources::Read(const QString &file) const
{
    QFile source(Path(file));
    if (!source.open(QIODevice::ReadOnly))
        qFatal("%s is missing", qPrintable(file));
    return source.readAll();
}

void TinySources::Write(const QString &file, const QByteArray &bytes) const
{
    QFile target(Path(file));
    QDir().mkpath(QFileInfo(target).path());
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(file));
}

void TinySources::Replace(const QString &file, const QByteArray &from, const QByteArray &to) const
{
    QByteArray bytes = Read(file);
    const qsizetype start = bytes.indexOf(from);
    if (start < 0)
        qFatal("%s does not hold \"%s\"", qPrintable(file), from.constData());
    Write(file, bytes.replace(start, from.size(), to));
}

void TinySources::Remove(const QString &file) const
{
    if (!QFile::remove(Path(file)))
        qFatal("%s cannot be removed", qPrintable(file));
}

void TinySources::CopyData() const
{
    const QDir data(QStringLiteral(TEST_DATA_DIR "/tiny"));
    QDirIterator files(data.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s cannot be read", qPrintable(file.fileName()));
        Write(data.relativeFilePath(file.fileName()), file.readAll());
    }
}

void TinySources::MakeLanguages() const
{
    for (const QString &code : ProgramNeeds::LanguageCodes()) {
        QString text = QStringLiteral("# Texts in the language %1\n\n").arg(code);
        for (const QString &key : ProgramNeeds::TextKeys())
            text += QStringLiteral("%1=%2 œ %1\n").arg(key, code);
        Write(QStringLiteral("languages/loc_%1.txt").arg(code), text.toUtf8());
    }
}

void TinySources::MakePages() const
{
    for (const ProgramNeeds::Page &page : ProgramNeeds::Pages()) {
        QByteArray text = "<html><head><link rel=\"stylesheet\" href=\"page.css\"></head>\n";
        for (const QString &id : page.elementIds)
            text += "<div id=\"" + id.toLatin1() + "\"></div>\n";
        Write(QStringLiteral("content/") + page.name, text + "</html>\n");
    }
    for (const QString &image : ProgramNeeds::PageImages())
        Write(QStringLiteral("content/img/%1.svg").arg(QFileInfo(image).baseName()), Icon);
}

void TinySources::MakeDocuments() const
{
    for (const QString &code : ProgramNeeds::LanguageCodes()) {
        Write(QStringLiteral("documents/welcome_%1.html").arg(code),
              "<script>location.replace('welcome.html')</script>\n");
        Write(QStringLiteral("documents/info_%1_care.html").arg(code),
              "<img src=\"../Grafiken/gross/scissors/Straight.svg\">\n");
    }
}

} // namespace Tesk
