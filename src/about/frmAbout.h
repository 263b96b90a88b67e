#pragma once

#include <QDialog>
#include <QString>

#include <functional>
#include <memory>

class QLabel;
class QPushButton;

namespace Tesk {

class RegistryKeys;

/// Tells what the program is, which version it has, and starts the system information program.
/// Each opening reads the version and the current language's texts afresh.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    /// What the dialog asks of the system.
    struct SystemAccess
    {
        std::shared_ptr<RegistryKeys> registry;
        /// Starts a program by its path, as a window of its own; false when it could not.
        std::function<bool(const QString &path)> startProgram;
    };

    /// That of the system that the program runs on.
    static SystemAccess SystemsOwnAccess();

    /// `textLookup` gives the text of a key in the current language. `folder`, the application
    /// directory, holds the file "version": its first line is the version. When it cannot be read
    /// or is empty, a dash stands for it and the logging category "tesk.about" tells why.
    frmAbout(std::function<QString(const QString &key)> textLookup, const QString &folder,
             QWidget *owner = nullptr, SystemAccess systemAccess = SystemsOwnAccess());

    /// Starts the system's own information program, or tells that it cannot be had.
    void StartSysInfo();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Build();
    void SetTexts();
    QString ReadVersion() const;
    QString FindSysInfo() const;

    std::function<QString(const QString &)> getText;
    QString applicationFolder;
    SystemAccess system;
    QLabel *lblTitle;
    QLabel *lblVersion;
    QLabel *lblDescription;
    QLabel *lblDisclaimer;
    QPushButton *cmdSysInfo;
    QPushButton *cmdOK;
};

} // namespace Tesk
