#include "core/FileDialog.h"

#include "widgets/PlainMessageBox.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QStringList>

namespace Tesk::FileDialog {

namespace {

Q_LOGGING_CATEGORY(filesLog, "tesk.files")

void SayThatFolderIsMissing(const QString &folder, QWidget *owner)
{
    // The library's own words, so that they come in the language of its dialogs.
    const QString message =
        QCoreApplication::translate("QFileDialog",
                                    "%1\nDirectory not found.\nPlease verify the correct directory "
                                    "name was given.")
            .arg(QDir::toNativeSeparators(folder));
    PlainMessageBox(QMessageBox::Warning, QString(), message, QMessageBox::Ok, owner).exec();
}

/// Runs the dialog, again and again while the name lies in no folder, and gives the path chosen.
QString ChosenPath(QFileDialog &dialog)
{
    for (;;) {
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return QString();
        const QDir folder = QFileInfo(dialog.selectedFiles().constFirst()).absoluteDir();
        if (folder.exists())
            break;
        SayThatFolderIsMissing(folder.path(), dialog.parentWidget());
    }
    QString path = QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
    if (path.size() > MaxPathLength) {
        qCWarning(filesLog) << "The path is longer than" << MaxPathLength << "characters:" << path;
        return QString();
    }
    return path;
}

bool MayReplace(const QString &path, QWidget *owner)
{
    if (!QFileInfo(path).isFile())
        return true;
    // The library's own words, so that they come in the language of its dialogs.
    const QString question =
        QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?")
            .arg(QFileInfo(path).fileName());
    PlainMessageBox box(QMessageBox::Warning, QString(), question,
                        QMessageBox::Yes | QMessageBox::No, owner);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace

QString ToQtFilter(const QString &filter)
{
    static const QRegularExpression separator(QStringLiteral("[|\\x{0}]"));
    const QStringList parts = filter.split(separator);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        if (patterns.isEmpty())
            continue;
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString suffix = QStringLiteral("(%1)").arg(patterns);
        // A description that ends with its patterns already names them as Qt wants them.
        filters.append(parts[i].endsWith(suffix) ? parts[i] : parts[i] + QLatin1Char(' ') + suffix);
    }
    return filters.join(QLatin1String(";;"));
}

QString ShowOpenDialog(const QString &filter, quint32 flags, QWidget *owner)
{
    QFileDialog dialog(owner, QString(), QString(), ToQtFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(flags & FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return ChosenPath(dialog);
}

QString ShowSaveDialog(const QString &filter, quint32 /*ignored*/, QWidget *owner,
                       const QString &ending)
{
    QFileDialog dialog(owner, QString(), QString(), ToQtFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (ending.isEmpty())
        return ChosenPath(dialog);
    // The dialog knows only the name as it was typed and would ask about that one.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    for (;;) {
        QString path = ChosenPath(dialog);
        if (path.isEmpty())
            return path;
        if (!path.endsWith(ending, Qt::CaseInsensitive))
            path += ending;
        if (MayReplace(path, owner))
            return path;
    }
}

} // namespace Tesk::FileDialog
