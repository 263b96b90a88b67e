#pragma once

#include <QApplication>
#include <QString>

#include <functional>

namespace Tesk {

class CatalogueError;

/// The application, with the one handler around the event loop for errors that nothing on their way
/// caught: a message box names the error and the program goes on. Windows without a title of their
/// own, such as message boxes, show the program's.
class CatalogApplication final : public QApplication
{
    Q_OBJECT

public:
    CatalogApplication(int &argc, char **argv);

    /// From now on errors are shown in the language of `getText`, which gives the text of a key.
    /// Without one they are in English.
    void SetTextLookup(std::function<QString(const QString &key)> getText);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void ShowError(const CatalogueError &error);

    std::function<QString(const QString &)> textLookup;
    bool isShowingError = false;
};

} // namespace Tesk
