#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

class QWidget;

namespace Tesk {

/// What a tour brings home: numbered pictures, and what was not as it should be.
class TourNotes final
{
public:
    /// Pictures go to `pictureFolder` as <prefix>NN-step.png.
    TourNotes(const QString &pictureFolder, const QString &prefix);

    void Check(bool isRight, const QString &what);
    void SavePicture(const QString &step, QWidget *picture);
    /// The sheets of a PDF file, as <prefix>NN-step-<sheet>.png.
    void SaveSheets(const QString &step, const QString &pdfFile);
    const QStringList &Failures() const { return failures; }

private:
    QString NextName(const QString &step);

    QDir folder;
    QString prefix;
    int pictureCount = 0;
    QStringList failures;
};

} // namespace Tesk
