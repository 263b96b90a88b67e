#include "TourNotes.h"

#include <QPixmap>
#include <QProcess>
#include <QWidget>

namespace Tesk {

TourNotes::TourNotes(const QString &pictureFolder, const QString &prefix)
    : folder(pictureFolder)
    , prefix(prefix)
{}

void TourNotes::Check(bool isRight, const QString &what)
{
    if (!isRight)
        failures << prefix + what;
}

QString TourNotes::NextName(const QString &step)
{
    return folder.filePath(QStringLiteral("%1%2-%3")
                               .arg(prefix)
                               .arg(++pictureCount, 2, 10, QLatin1Char('0'))
                               .arg(step));
}

void TourNotes::SavePicture(const QString &step, QWidget *picture)
{
    const QString fileName = NextName(step) + QLatin1String(".png");
    Check(picture->grab().save(fileName), QStringLiteral("%1 is saved").arg(fileName));
}

void TourNotes::SaveSheets(const QString &step, const QString &pdfFile)
{
    const int done = QProcess::execute(QStringLiteral("pdftoppm"),
                                       {QStringLiteral("-png"), QStringLiteral("-r"),
                                        QStringLiteral("80"), pdfFile, NextName(step)});
    Check(done == 0, QStringLiteral("the sheets of %1 are drawn").arg(step));
}

} // namespace Tesk
