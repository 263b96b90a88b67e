#include "about/frmAbout.h"

#include "about/ProgramInfo.h"
#include "about/RegistryKeys.h"
#include "base/Errors.h"
#include "core/CatalogueVersion.h"
#include "widgets/PlainMessageBox.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QLoggingCategory>
#include <QProcess>
#include <QPushButton>
#include <QShowEvent>

#include <utility>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(aboutLog, "tesk.about")

// German in every language.
const QString CaptionPrefix = QStringLiteral("Info zu ");
const QString SysInfoCaption = QStringLiteral("&Systeminfo …");
const QString NoSysInfo = QStringLiteral("Systeminformationen sind momentan nicht verfügbar");

const QString VersionPrefix = QStringLiteral("Version ");

const QString ProgramKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString ProgramValue = QStringLiteral("PATH");
const QString FolderKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");
const QString FolderValue = QStringLiteral("MSINFO");
const QString ProgramFile = QStringLiteral("\\MSINFO32.EXE");

// Pixels.
constexpr int Margin = 24;
constexpr int Gap = 16;

constexpr int CharactersOfALine = 60;
constexpr double TitleScale = 1.6;

QLabel *AddText(QBoxLayout *rows, const QString &name)
{
    auto *const label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * CharactersOfALine);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    rows->addWidget(label);
    return label;
}

bool StartDetached(const QString &path)
{
    return QProcess::startDetached(path, {});
}

} // namespace

frmAbout::SystemAccess frmAbout::SystemsOwnAccess()
{
    return {RegistryKeys::OfSystem(), StartDetached};
}

frmAbout::frmAbout(std::function<QString(const QString &key)> textLookup, const QString &folder,
                   QWidget *owner, SystemAccess systemAccess)
    : QDialog(owner)
    , getText(std::move(textLookup))
    , applicationFolder(folder)
    , system(std::move(systemAccess))
    , cmdSysInfo(new QPushButton(SysInfoCaption, this))
    , cmdOK(new QPushButton(this))
{
    Build();
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAbout::Build()
{
    setObjectName(QStringLiteral("frmAbout"));
    cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    lblTitle = AddText(rows, QStringLiteral("lblTitle"));
    QFont titleFont = lblTitle->font();
    titleFont.setPixelSize(qRound(lblTitle->fontInfo().pixelSize() * TitleScale));
    titleFont.setBold(true);
    lblTitle->setFont(titleFont);
    lblVersion = AddText(rows, QStringLiteral("lblVersion"));
    rows->addSpacing(Gap);
    lblDescription = AddText(rows, QStringLiteral("lblDescription"));
    rows->addSpacing(Gap);
    auto *const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    rows->addWidget(line);
    rows->addSpacing(Gap);
    lblDisclaimer = AddText(rows, QStringLiteral("lblDisclaimer"));
    rows->addSpacing(Gap);
    rows->addStretch(1);

    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(cmdSysInfo);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    rows->addLayout(buttons);
}

void frmAbout::SetTexts()
{
    const QString blankLine = QStringLiteral("\r\n\r\n");
    setWindowTitle(CaptionPrefix + ProgramInfo::Title);
    lblVersion->setText(VersionPrefix + ReadVersion());
    lblTitle->setText(ProgramInfo::Title);
    lblDescription->setText(ProgramInfo::LegalNotice + blankLine + ProgramInfo::Comments);
    lblDisclaimer->setText(getText(QStringLiteral("disclaimer")));
    cmdOK->setText(getText(QStringLiteral("commonButtonOK")));
}

QString frmAbout::ReadVersion() const
{
    try {
        return ReadCatalogueVersion(applicationFolder);
    } catch (const FileError &error) {
        qCWarning(aboutLog).noquote() << error.Message();
        return UnknownVersion;
    }
}

void frmAbout::showEvent(QShowEvent *event)
{
    // A spontaneous one is the window's coming back, not an opening.
    if (!event->spontaneous()) {
        SetTexts();
        cmdOK->setFocus();
        resize(layout()->sizeHint().width(),
               layout()->totalHeightForWidth(layout()->sizeHint().width()));
    }
    QDialog::showEvent(event);
}

QString frmAbout::FindSysInfo() const
{
    constexpr auto machine = RegistryKeys::Hive::LocalMachine;
    QString path;
    if (GetKeyValue(*system.registry, machine, ProgramKey, ProgramValue, path))
        return path;
    QString folder;
    if (GetKeyValue(*system.registry, machine, FolderKey, FolderValue, folder)) {
        path = folder + ProgramFile;
        if (QFileInfo::exists(path))
            return path;
    }
    return QString();
}

void frmAbout::StartSysInfo()
{
    const QString path = FindSysInfo();
    if (!path.isEmpty() && system.startProgram(path))
        return;
    PlainMessageBox(QMessageBox::NoIcon, windowTitle(), NoSysInfo, QMessageBox::Ok, this).exec();
}

} // namespace Tesk
